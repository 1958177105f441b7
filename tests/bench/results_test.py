"""What the benchmarks print and put into documents is what was measured."""

import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "bench" / "driver"))
import goals  # noqa: E402
import page  # noqa: E402
import participants  # noqa: E402
import plot  # noqa: E402
import table  # noqa: E402
from results import OURS, Results  # noqa: E402

MACHINE = {"cores": 2, "processor": "P", "memory": "4 GiB", "system": "S", "compiler": "g++", "flags": "-O3",
           "versions": {"Qt": "5.15"}}  # fmt: skip


def results_of(rows, rounds=3):
    """Rows as (case, unit, {participant: samples})."""
    results = Results(MACHINE, rounds)
    for case, unit, samples in rows:
        for name, values in samples.items():
            for value in values:
                results.add(case, name, {unit: value})
    return results


class Fake:
    """Answers numbers in turn, or fails where one is None."""

    def __init__(self, name, answers, log):
        self.name, self._answers, self._log = name, answers, log

    def cases(self):
        return list(self._answers)

    def run(self, case):
        self._log.append((case, self.name))
        value = self._answers[case].pop(0)
        if value is None:
            raise RuntimeError("out of order")
        return {"s": value}


def measure(people, rounds, pattern=""):
    results = Results(MACHINE, rounds)
    participants.measure(people, pattern, results, lambda text: None)
    return results


class ResultsTest(unittest.TestCase):
    def test_median_spread_and_ratio(self):
        row = results_of([("a", "s", {OURS: [4, 1, 2], "Peer": [8, 8, 10]})]).find("a", "s")
        self.assertEqual(row.median(), 2)
        self.assertEqual(row.spread(), 150)
        self.assertEqual(row.ratio("Peer"), 0.25)
        self.assertIsNone(row.ratio("Nobody"))

    def test_json_there_and_back(self):
        results = results_of([("a", "s", {OURS: [4, 1, 2], "Peer": [8]}), ("b", "s", {OURS: [1]})])
        results.note("A note.")
        self.assertEqual(Results.from_json(results.to_json()).to_json(), results.to_json())


class RoundsTest(unittest.TestCase):
    def test_rounds_are_interleaved(self):
        log = []
        people = [Fake(OURS, {"a": [1, 2], "b": [3, 4]}, log), Fake("Peer", {"b": [5, 6]}, log)]
        results = measure(people, 2)
        once = [("a", OURS), ("b", OURS), ("b", "Peer")]
        self.assertEqual(log, once * 2)
        self.assertEqual(results.find("b", "s").samples, {OURS: [3, 4], "Peer": [5, 6]})

    def test_filter(self):
        results = measure([Fake(OURS, {"a/x": [1], "b/x": [2]}, [])], 1, "^b")
        self.assertEqual([row.case for row in results.rows], ["b/x"])

    def test_peer_that_fails_is_named_and_left_out(self):
        log = []
        people = [Fake(OURS, {"a": [1, 2, 3], "b": [1, 2, 3]}, log), Fake("Peer", {"a": [9, None], "b": [4, 5, 6]}, log)]
        results = measure(people, 3)
        self.assertEqual(results.find("a", "s").samples, {OURS: [1, 2, 3]})
        self.assertEqual(results.find("b", "s").samples["Peer"], [4, 5, 6])
        self.assertEqual(results.notes, ["Peer failed at a: out of order."])
        self.assertEqual(log.count(("a", "Peer")), 2)

    def test_own_failure_ends_the_run(self):
        with self.assertRaises(RuntimeError):
            measure([Fake(OURS, {"a": [None]}, [])], 1)

    def test_missing_peers_are_noted(self):
        results = Results(MACHINE, 1)
        with tempfile.TemporaryDirectory() as folder:
            participants.peers(Path(folder), Path(folder), results)
        self.assertIn("GTK did not take part: brisko_peer_gtk is not built.", results.notes)


class TableTest(unittest.TestCase):
    def test_numbers_keep_three_digits(self):
        shown = [(None, ""), (0, "0"), (12345.6, "12,346"), (99.96, "100"), (12.34, "12.3"), (0.5678, "0.568")]
        for value, text in shown:
            self.assertEqual(table.number(value), text, value)

    def test_terminal(self):
        results = results_of([("parse/a", "MB/s", {OURS: [10, 20, 30], "Peer": [40]}), ("b", "s", {OURS: [1]})])
        results.note("Somebody did not take part.")
        lines = table.terminal(results).splitlines()
        self.assertEqual(lines[0].split(), ["case", "unit", "Brisko", "±", "Peer", "±", "ratio"])
        self.assertEqual(lines[1].split(), ["parse/a", "MB/s", "20.0", "100", "%", "40.0", "0", "%", "0.50"])
        self.assertEqual(lines[2].split(), ["b", "s", "1.00", "0", "%"])
        self.assertEqual(lines[-1], "Note: Somebody did not take part.")


class GoalTest(unittest.TestCase):
    def goal(self, ours, peer):
        rows = [("parse/synth5000.css", "MB/s", {OURS: [ours], "Chromium": [peer]})]
        return goals.table_lines(results_of(rows))[2:]

    def test_met_and_missed(self):
        line = "| Parsing synth5000.css, by Chromium's rate | at least 1.25 | {} |"
        self.assertEqual(self.goal(100, 80), [line.format("1.25 | yes")])
        self.assertEqual(self.goal(96, 80), [line.format("1.20 | no")])

    def test_without_figures_there_is_no_goal(self):
        self.assertEqual(goals.table_lines(results_of([])), [])


class PageTest(unittest.TestCase):
    def test_only_marked_parts_change(self):
        before = "By hand.\n<!-- bench: parse -->\nold\n<!-- bench end -->\nBy hand as well.\n"
        results = results_of([("parse/a.css", "MB/s", {OURS: [20], "Peer": [40]})])
        after = page.fill(before, results)
        self.assertIn("| a.css | MB/s | 20.0 (0 %) | 40.0 (0 %) | 0.50 |\n", after)
        self.assertTrue(after.startswith("By hand.\n<!-- bench: parse -->\n"))
        self.assertTrue(after.endswith("<!-- bench end -->\nBy hand as well.\n"))
        self.assertNotIn("old", after)
        self.assertEqual(page.fill(after, results), after)

    def test_what_was_not_measured_stays(self):
        before = "<!-- bench: parse -->\nold\n<!-- bench end -->"
        self.assertEqual(page.fill(before, results_of([("style/a", "ns/node", {OURS: [20]})])), before)

    def test_units_are_columns_of_our_own_cases(self):
        results = results_of([("change/x", "us", {OURS: [7]}), ("change/x", "allocations", {OURS: [3]})])
        after = page.fill("<!-- bench: change -->\n<!-- bench end -->", results)
        self.assertIn("|  | us | allocations |\n| --- | ---: | ---: |\n| x | 7.00 | 3.00 |\n", after)

    def test_the_documents_have_every_mark(self):
        docs = Path(__file__).resolve().parents[2] / "docs"
        marks = [found[1] for name in page.DOCUMENTS for found in page.BLOCK.findall((docs / name).read_text())]
        self.assertCountEqual(marks, page.BLOCKS)


class PlotTest(unittest.TestCase):
    def test_every_figure_is_a_point(self):
        rows = [(f"style/tree-synth1000-{nodes}", "ns/node", {OURS: [500], "Chromium": [5000]})
                for nodes in (1000, 10000, 100000)]  # fmt: skip
        picture = xml.etree.ElementTree.fromstring(plot.svg(results_of(rows)))
        points = [element for element in picture.iter() if element.tag.endswith("circle")]
        # One panel shows all sizes, the one over rules only that of 10,000 nodes; the legend has two points a name.
        self.assertEqual(len(points), 2 * (3 + 1) + 2 * 2)

    def test_nothing_to_show(self):
        self.assertEqual(plot.svg(results_of([])), "")

    def test_larger_stands_higher(self):
        scale = plot.Scale([1, 1000], 300, 0, whole_decades=True)
        self.assertEqual([scale.place(value) for value in (1, 10, 1000)], [300, 200, 0])


if __name__ == "__main__":
    unittest.main()
