"""What the figures ought to be."""

from dataclasses import dataclass
from typing import Callable, Optional

from results import OURS
from table import markdown_lines, number

STYLED = "style/tree-synth1000-10000"
AT_LEAST, AT_MOST = "at least", "at most"


@dataclass
class Goal:
    text: str
    unit: str
    bound: str
    limit: float
    figure: Callable  # takes the results; None where one is missing

    def line(self, results) -> Optional[list]:
        """A line of the table; None where the figures are missing."""
        figure = self.figure(results)
        if figure is None:
            return None
        met = figure >= self.limit if self.bound == AT_LEAST else figure <= self.limit
        asked = f"{self.bound} {self.limit:,g} {self.unit}".strip()
        return [self.text, asked, number(figure), "yes" if met else "no"]


def ours(case: str, unit: str) -> Callable:
    return lambda results: results.median(case, unit, OURS)


def against(peer: str, case: str, unit: str) -> Callable:
    def figure(results):
        row = results.find(case, unit)
        return row.ratio(peer) if row else None

    return figure


def quotient(large: str, small: str, unit: str) -> Callable:
    def figure(results):
        above, below = results.median(large, unit), results.median(small, unit)
        return above / below if above and below else None

    return figure


GOALS = [
    Goal("Parsing synth5000.css, by Chromium's rate", "", AT_LEAST, 1.25,
         against("Chromium", "parse/synth5000.css", "MB/s")),
    Goal("Parsing bootstrap.flat.css, by Chromium's rate", "", AT_LEAST, 1.25,
         against("Chromium", "parse/bootstrap.flat.css", "MB/s")),
    Goal("Parsing 200,000 rules, by the rate of 100 rules", "", AT_LEAST, 0.8,
         quotient("parse/synth200000.css", "parse/synth100.css", "MB/s")),
    Goal("A rule of three declarations", "bytes", AT_MOST, 500, ours("memory/rules, synth30000.css", "bytes/rule")),
    Goal("Styling 10,000 nodes with 1,000 rules", "ns a node", AT_MOST, 1000, ours(STYLED, "ns/node")),
    Goal("The same, by Chromium's recalculation", "", AT_MOST, 0.4, against("Chromium", STYLED, "ns/node")),
    Goal("The same where sets of classes repeat", "ns a node", AT_MOST, 400, ours(STYLED + "rep", "ns/node")),
    Goal("A node with 5,000 rules, by one with 100", "", AT_MOST, 2,
         quotient("style/tree-synth5000-10000", "style/tree-synth100-10000", "ns/node")),
    Goal("A node of 1,000,000, by one of 1,000", "", AT_MOST, 2,
         quotient("style/tree-synth1000-1000000", "style/tree-synth1000-1000", "ns/node")),
    Goal("Class at a leaf of 100,000 nodes", "µs", AT_MOST, 3, ours("restyle/class at a leaf", "us/change")),
    Goal("Pseudo-class at a leaf of 100,000 nodes", "µs", AT_MOST, 3,
         ours("restyle/pseudo-class at a leaf", "us/change")),
    Goal("Class for 1 % of the tree, by Chromium's time", "", AT_MOST, 0.5,
         against("Chromium", "restyle/class for 1 % of the tree", "us/change")),
    Goal("Class that no selector mentions, with 5,000 rules by 100", "", AT_MOST, 1.25,
         quotient("restyle/class that no selector mentions, 5000 rules",
                  "restyle/class that no selector mentions, 100 rules", "us/change")),
    Goal("A child beside 10,000, by one beside 10", "", AT_MOST, 1.25,
         quotient("restyle/child beside 10000", "restyle/child beside 10", "us/child")),
    Goal("A styled Styleable beside its properties", "bytes", AT_MOST, 700,
         ours("memory/styled node, tree-synth1000-10000", "bytes/node beside its properties")),
    Goal("A CSSBoxModel with nothing set", "bytes", AT_MOST, 6144, ours("memory/CSSBoxModel, fresh", "bytes/node")),
]  # fmt: skip


def table_lines(results) -> list:
    """The goals whose figures are there; empty where none is."""
    found = [line for goal in GOALS if (line := goal.line(results))]
    return markdown_lines([["", "goal", "measured", "met"], *found], 2) if found else []
