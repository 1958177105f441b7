"""Those whose figures are compared: programs of cases here, Chromium in a file of its own."""

import re
import subprocess
import sys
from pathlib import Path

from chromium import Chromium
from results import OURS, Results

TIME_LIMIT = 900  # seconds, of one run of one case


class Unavailable(Exception):
    """Why somebody cannot take part."""


class Program:
    """One or more programs of cases: "PROGRAM FOLDER" lists them, "PROGRAM FOLDER CASE" prints figures."""

    def __init__(self, name: str, programs: list, inputs: Path):
        self.name = name
        self._inputs = inputs
        self._programs = {}
        for program in programs:
            if not program.exists():
                raise Unavailable(f"{program.name} is not built")
            for case in self._output(program).splitlines():
                self._programs[case] = program

    def cases(self) -> list:
        return list(self._programs)

    def run(self, case: str) -> dict:
        """The figures of a case by unit."""
        figures = {}
        for line in self._output(self._programs[case], case).splitlines():
            value, unit = line.split("\t")
            figures[unit] = float(value)
        return figures

    def _output(self, program: Path, *arguments: str) -> str:
        command = [program, self._inputs, *arguments]
        try:
            run = subprocess.run(command, stdout=subprocess.PIPE, text=True, timeout=TIME_LIMIT)
        except subprocess.TimeoutExpired:
            raise Unavailable(f"it took more than {TIME_LIMIT} s") from None
        if run.returncode != 0:
            kind = "signal" if run.returncode < 0 else "exit code"
            raise Unavailable(f"it ended with {kind} {abs(run.returncode)}")
        return run.stdout


def ours(build: Path, inputs: Path) -> Program:
    return Program(OURS, [build / "brisko_bench", build / "brisko_memory"], inputs)


def peers(build: Path, inputs: Path, results: Results) -> list:
    """Everybody else who is there; the others are noted."""
    makers = {
        "Chromium": lambda: Chromium(inputs),
        "litehtml": lambda: Program("litehtml", [build / "brisko_peer_litehtml"], inputs),
        "Qt": lambda: Program("Qt", [build / "brisko_peer_qt"], inputs),
        "GTK": lambda: Program("GTK", [build / "brisko_peer_gtk"], inputs),
    }
    present = []
    for name, make in makers.items():
        try:
            present.append(make())
        except (Unavailable, OSError) as reason:
            results.note(f"{name} did not take part: {reason}.")
    return present


def measure(participants: list, pattern: str, results: Results, progress) -> None:
    """Runs all rounds. In each, a case is run by one participant after the other before the next case comes, so that
    what disturbs the machine disturbs all of them alike. Whoever fails at a case is left out of it."""
    names = dict.fromkeys(case for participant in participants for case in participant.cases())
    cases = [case for case in names if re.search(pattern, case)]
    failed = set()
    for number in range(1, results.rounds + 1):
        for case in cases:
            for participant in participants:
                if case not in participant.cases() or (case, participant.name) in failed:
                    continue
                progress(f"round {number} of {results.rounds}: {case}, {participant.name}")
                try:
                    results.add(case, participant.name, participant.run(case))
                except Exception as reason:  # whatever a peer fails with must not end the run
                    if participant.name == OURS:
                        raise
                    failed.add((case, participant.name))
                    results.drop(case, participant.name)
                    results.note(f"{participant.name} failed at {case}: {str(reason).splitlines()[0]}.")
    progress("")


def show_progress(text: str) -> None:
    if sys.stderr.isatty():
        print(f"\r\033[K{text}", end="", file=sys.stderr, flush=True)
    elif text:
        print(text, file=sys.stderr, flush=True)
