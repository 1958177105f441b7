#!/usr/bin/env python3
"""Checks that twice the input takes about twice the instructions: instructions_test.py PROGRAM [TIMES]

The program runs its cases one after another, each with an input and one of twice the size, under Callgrind.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

LIMIT = 2.2  # times as many; sorting takes somewhat more than twice
SKIPPED = 77
FUNCTION = "counted"


def instructions(program: list) -> list:
    """Pairs of a line that the program printed and the instructions of the work before it."""
    with tempfile.TemporaryDirectory() as folder:
        out = Path(folder, "counts")
        command = ["valgrind", "--tool=callgrind", "--quiet", f"--toggle-collect={FUNCTION}",
                   f"--dump-after={FUNCTION}", f"--callgrind-out-file={out}", *program]  # fmt: skip
        environment = {"LANG": "C.UTF-8", "LD_BIND_NOW": "1", "QT_HASH_SEED": "0"}
        run = subprocess.run(command, env=environment, stdout=subprocess.PIPE, text=True, check=True)
        lines = run.stdout.splitlines()
        return [(line, total(Path(f"{out}.{i}"))) for i, line in enumerate(lines, 1)]


def total(path: Path) -> int:
    return int(re.search(r"^(?:totals|summary): (\d+)", path.read_text(), re.MULTILINE).group(1))


def main() -> int:
    try:
        counts = instructions(sys.argv[1:])
    except FileNotFoundError:
        print("valgrind is not there")
        return SKIPPED
    failed = 0
    for (name, once), (_, twice) in zip(counts[::2], counts[1::2]):
        ratio = twice / once
        print(f"{name:32} {once:12,} x {ratio:.2f}{'' if ratio <= LIMIT else '   MORE THAN LINEAR'}")
        failed += ratio > LIMIT
    return 1 if failed or not counts else 0


if __name__ == "__main__":
    sys.exit(main())
