"""What two participants disagree about."""

from dataclasses import dataclass

from oracle.pairs import Pair
from oracle.properties import COMPARED


@dataclass(frozen=True)
class Difference:
    node: int  # place in the order of the document
    property: str
    browser: object
    ours: object

    def __str__(self) -> str:
        return f"node {self.node}, {self.property}: the browser has {self.browser!r}, ours is {self.ours!r}"


def differences(browser: list, ours: list) -> list:
    if len(browser) != len(ours):
        return [Difference(0, "number of nodes", len(browser), len(ours))]
    return [
        Difference(node, name, theirs, own)
        for node, (of_browser, of_ours) in enumerate(zip(browser, ours))
        for name, theirs, own in zip(COMPARED, of_browser, of_ours, strict=True)
        if theirs != own
    ]


def winners(answer: list) -> int:
    """How many values somebody declared."""
    return sum(value is not None for node in answer for value in node)


class Oracle:
    """Asks a browser and ours about pairs."""

    def __init__(self, browser, command):
        self._browser = browser
        self._command = command
        self.compared = 0  # winners

    def differences(self, pairs: list) -> list:
        """A list for each pair."""
        found = []
        for theirs, own in zip(self._browser.winners(pairs), self._command.winners(pairs), strict=True):
            self.compared += winners(theirs)
            found.append(differences(theirs, own))
        return found

    def differs(self, pair: Pair) -> bool:
        return bool(self.differences([pair])[0])
