"""Chromium as a participant: the same cases as the programs have, in a page without a window."""

import json
import shutil
import statistics
import time
from pathlib import Path

import devtools

PAGE = Path(__file__).with_name("chromium.js")
LARGE_TREE = "tree-synth1000-100000"

# Name of the case, tree, and the script that measures it.
CHANGES = [
    ("restyle/class at a leaf", LARGE_TREE, "toggle('leaf', 'tgl')"),
    ("restyle/class at the root, nothing waits below", LARGE_TREE, "toggle('root', 'tgl')"),
    ("restyle/class for 1 % of the tree", LARGE_TREE, "toggle('hundredth', 'tgl2')"),
    ("restyle/class for the whole tree", LARGE_TREE, "toggle('root', 'tgl2')"),
    ("restyle/class that no selector mentions, leaf", LARGE_TREE, "toggle('leaf', 'unheard-of')"),
    ("restyle/class that no selector mentions, root", LARGE_TREE, "toggle('root', 'unheard-of')"),
    ("restyle/class that no selector mentions, 100 rules", "tree-synth100-10000",
     "toggle('leaf', 'unheard-of')"),
    ("restyle/class that no selector mentions, 5000 rules", "tree-synth5000-10000",
     "toggle('leaf', 'unheard-of')"),
]  # fmt: skip
SIBLINGS = [10, 10000]


def sheet_of_tree(tree: Path) -> Path:
    """The sheet that a tree was made for: "synth100.css" or "synth100.flat.css" of "tree-synth100-10000.txt"."""
    name = tree.name.split("-")[1]
    plain = tree.with_name(name + ".css")
    return plain if plain.exists() else tree.with_name(name + ".flat.css")


def seconds_per_call(browser, script: str) -> float:
    """What a script measures in batches: the median of the thread's processor time."""
    begin, calls, samples = None, 0, []
    for event in sorted(browser.trace(script, ["blink.user_timing"]), key=lambda event: event["ts"]):
        if event["name"].startswith("begin "):
            begin, calls = event["tts"], int(event["name"].split()[1])
        elif event["name"] == "end":
            samples.append((event["tts"] - begin) / 1e6 / calls)
    return statistics.median(samples)


def seconds_in(events: list, names: list) -> float:
    """Processor time of the thread in the events of those names, which must not lie within each other."""
    return sum(event["tdur"] for event in events if event["name"] in names and event["ph"] == "X") / 1e6


class Chromium:
    name = "Chromium"

    def __init__(self, inputs: Path, program: str = "chromium"):
        self._program = shutil.which(program)
        if not self._program:
            raise FileNotFoundError(f"no program called {program}")
        self._cases = {}
        for sheet in sorted(inputs.glob("*.css")):
            self._cases[f"parse/{sheet.name}"] = lambda browser, sheet=sheet: parse(browser, sheet)
        for tree in sorted(inputs.glob("tree-*.txt")):
            self._cases[f"style/{tree.stem}"] = lambda browser, tree=tree: style(browser, tree)
        for case, tree, script in CHANGES:
            self._add_change(case, inputs / f"{tree}.txt", script, "us/change")
        for siblings in SIBLINGS:
            case = f"restyle/child beside {siblings}"
            self._add_change(case, inputs / f"{LARGE_TREE}.txt", f"addChildren({siblings})", "us/child")

    def _add_change(self, case: str, tree: Path, script: str, unit: str) -> None:
        if tree.exists():
            self._cases[case] = lambda browser: change(browser, tree, script, unit)

    def cases(self) -> list:
        return list(self._cases)

    def run(self, case: str) -> dict:
        """The figures of a case by unit. Every run has a browser of its own."""
        browser = devtools.Browser(self._program)
        try:
            browser.evaluate(PAGE.read_text())
            browser.await_tracing()
            return self._cases[case](browser)
        finally:
            browser.close()

    def version(self) -> str:
        browser = devtools.Browser(self._program)
        try:
            return browser.version().replace("/", " ")
        finally:
            browser.close()


def parse(browser, sheet: Path) -> dict:
    text = sheet.read_text()
    seconds = seconds_per_call(browser, f"parse({json.dumps(text)})")
    return {"MB/s": sheet.stat().st_size / 1e6 / seconds}


def prepare(browser, tree: Path) -> None:
    sheet = sheet_of_tree(tree).read_text()
    browser.evaluate(f"prepareTree({json.dumps(sheet)}, {json.dumps(tree.read_text())})")


def style(browser, tree: Path) -> dict:
    nodes = sum(1 for _ in tree.open())
    recalculation, everything = [], []
    started = time.monotonic()
    while len(recalculation) < 3 and time.monotonic() - started < 4:
        prepare(browser, tree)
        events = browser.trace("attachTree()", ["blink_style", "devtools.timeline"])
        styled = max(event["args"].get("elementCount", 0) for event in events if event["name"] == "UpdateLayoutTree")
        if styled < nodes:
            raise devtools.ProtocolError(f"only {styled} of {nodes} elements were styled")
        recalculation.append(seconds_in(events, ["Document::recalcStyle"]))
        everything.append(seconds_in(events, ["UpdateLayoutTree", "Layout"]))
        browser.evaluate("dropTree()")
    return {
        "ns/node": statistics.median(recalculation) * 1e9 / nodes,
        "ns/node with boxes and layout": statistics.median(everything) * 1e9 / nodes,
    }


def change(browser, tree: Path, script: str, unit: str) -> dict:
    prepare(browser, tree)
    browser.evaluate("attachTree()")
    return {unit: seconds_per_call(browser, script) * 1e6}
