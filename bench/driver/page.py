"""Puts figures between the marks of documents:

    <!-- bench: NAME -->
    ...
    <!-- bench end -->

What stands outside is written by hand and stays, and so does what a run has no figures for.
"""

import re
from pathlib import Path

import goals
import plot
import table

DOCUMENTS = ["performance.md", "costs.md"]
PLOT = "pictures/growth.svg"
BLOCK = re.compile(r"(<!-- bench: ([\w/-]+) -->\n).*?(<!-- bench end -->)", re.DOTALL)


def machine_lines(results) -> list:
    machine = results.machine
    lines = [
        f"- {machine['cores']} processors ({machine['processor']}), {machine['memory']}, {machine['system']}",
        f"- {machine['compiler']}, `{machine['flags']}`",
        "- " + ", ".join(f"{name} {version}" for name, version in machine["versions"].items()),
        f"- {results.rounds} rounds",
    ]
    return lines + [f"- {note}" for note in results.notes]


BLOCKS = {
    "machine": machine_lines,
    "goals": goals.table_lines,
    "parse": lambda results: table.compared(results, "parse/"),
    "style": lambda results: table.compared(results, "style/"),
    "restyle": lambda results: table.compared(results, "restyle/"),
    "limit": lambda results: table.compared(results, "limit/"),
    "memory": lambda results: table.ours(results, "memory/"),
    "change": lambda results: table.by_unit(results, "change/"),
}


def fill(document: str, results) -> str:
    def block(found):
        lines = BLOCKS[found[2]](results)
        if not lines:
            return found[0]
        return found[1] + "\n" + "\n".join(lines) + "\n\n" + found[3]

    return BLOCK.sub(block, document)


def write(results, docs: Path) -> None:
    for name in DOCUMENTS:
        path = docs / name
        path.write_text(fill(path.read_text(), results))
    picture = plot.svg(results)
    if picture:
        (docs / PLOT).write_text(picture)
