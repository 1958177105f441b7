"""Figures of several participants over several rounds."""

import statistics
from dataclasses import dataclass, field

OURS = "Brisko"


@dataclass
class Row:
    """One figure of a case, such as "ns/node", with the samples of everybody who has it."""

    case: str
    unit: str
    samples: dict = field(default_factory=dict)  # lists, by participant

    def median(self, participant: str = OURS):
        """None where the participant has no such figure."""
        samples = self.samples.get(participant)
        return statistics.median(samples) if samples else None

    def spread(self, participant: str = OURS):
        """Distance between the lowest and the highest sample in percent of the median."""
        samples = self.samples.get(participant)
        if not samples:
            return None
        median = statistics.median(samples)
        return (max(samples) - min(samples)) * 100 / median if median else 0.0

    def ratio(self, peer: str):
        """Ours by theirs."""
        ours, theirs = self.median(), self.median(peer)
        return ours / theirs if ours is not None and theirs else None


class Results:
    def __init__(self, machine: dict, rounds: int):
        self.machine = machine
        self.rounds = rounds
        self.rows = []
        self.notes = []
        self._places = {}

    def add(self, case: str, participant: str, figures: dict) -> None:
        for unit, value in figures.items():
            self._row(case, unit).samples.setdefault(participant, []).append(value)

    def note(self, text: str) -> None:
        if text not in self.notes:
            self.notes.append(text)

    def drop(self, case: str, participant: str) -> None:
        """Takes back what a participant has said about a case."""
        for row in self.rows:
            if row.case == case:
                row.samples.pop(participant, None)
        self.rows = [row for row in self.rows if row.samples]
        self._places = {(row.case, row.unit): row for row in self.rows}

    def find(self, case: str, unit: str):
        return self._places.get((case, unit))

    def median(self, case: str, unit: str, participant: str = OURS):
        row = self.find(case, unit)
        return row.median(participant) if row else None

    def group(self, prefix: str) -> list:
        return [row for row in self.rows if row.case.startswith(prefix)]

    def to_json(self) -> dict:
        rows = []
        for row in self.rows:
            figures = {
                name: {"median": row.median(name), "spread": row.spread(name), "samples": samples}
                for name, samples in row.samples.items()
            }
            rows.append({"case": row.case, "unit": row.unit, "figures": figures})
        return {"machine": self.machine, "rounds": self.rounds, "notes": self.notes, "rows": rows}

    @classmethod
    def from_json(cls, data: dict) -> "Results":
        results = cls(data["machine"], data["rounds"])
        results.notes = data["notes"]
        for row in data["rows"]:
            for name, figures in row["figures"].items():
                for sample in figures["samples"]:
                    results.add(row["case"], name, {row["unit"]: sample})
        return results

    def _row(self, case: str, unit: str) -> Row:
        key = (case, unit)
        if key not in self._places:
            self._places[key] = Row(case, unit)
            self.rows.append(self._places[key])
        return self._places[key]


def participants_of(rows: list) -> list:
    """Ours first, the others in the order in which they appear."""
    names = {name: None for row in rows for name in row.samples}
    return sorted(names, key=lambda name: name != OURS)
