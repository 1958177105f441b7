#!/usr/bin/env python3
"""The coverage check counts lines and branches by folder and notices what is missing."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parent.parent.parent / "scripts" / "check-coverage"


def file(name: str, lines: list) -> dict:
    """A file of a report; a line is its count and those of its branches."""
    return {"file": name, "lines": [{"line_number": number, "count": count, "gcovr/noncode": False,
                                     "branches": [{"count": branch} for branch in branches]}
                                    for number, (count, *branches) in enumerate(lines, 1)]}  # fmt: skip


def check(files: list) -> subprocess.CompletedProcess:
    with tempfile.TemporaryDirectory() as folder:
        report = Path(folder, "report.json")
        report.write_text(json.dumps({"files": files}))
        return subprocess.run([sys.executable, CHECK, report], text=True, capture_output=True)


LIBRARY = file("src/model/A.cpp", [(1, 2, 3)] * 100)
HOST = file("src/host/Ondex/B.cpp", [(5,)] * 100)


class Coverage(unittest.TestCase):
    def test_whole_coverage_is_enough(self):
        run = check([LIBRARY, HOST])
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn("src/model                lines    100 of    100  100.0 %   branches    200 of    200  100.0 %",
                      run.stdout)  # fmt: skip
        self.assertIn("src/host/Ondex           lines    100 of    100", run.stdout)

    def test_lines_of_the_library(self):
        missing = file("src/parser/C.cpp", [(0,)] * 6)
        run = check([LIBRARY, HOST, missing])
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stderr, "error: library without host: 94.3 % of lines, at least 95 % are asked for\n")
        self.assertEqual(check([LIBRARY, HOST, file("src/parser/C.cpp", [(0,)] * 5)]).returncode, 0)

    def test_branches_of_the_library(self):
        run = check([HOST, file("src/model/A.cpp", [(9, 1, 0)] * 21 + [(9, 1, 1)] * 79)])
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stderr, "error: library without host: 89.5 % of branches, at least 90 % are asked for\n")

    def test_the_host_needs_fewer_lines_and_no_branches(self):
        self.assertEqual(check([LIBRARY, file("src/host/A.cpp", [(1, 0, 0)] * 90 + [(0,)] * 10)]).returncode, 0)
        run = check([LIBRARY, file("src/host/A.cpp", [(1, 0, 0)] * 89 + [(0,)] * 11)])
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stderr, "error: host: 89.0 % of lines, at least 90 % are asked for\n")

    def test_a_report_about_nothing_is_no_success(self):
        run = check([LIBRARY])
        self.assertEqual((run.returncode, run.stderr), (1, "error: host: nothing was measured\n"))

    def test_lines_without_code_do_not_count(self):
        blank = file("src/model/D.cpp", [(0,)] * 50)
        for line in blank["lines"]:
            line["gcovr/noncode"] = True
        self.assertEqual(check([LIBRARY, HOST, blank]).returncode, 0)


if __name__ == "__main__":
    unittest.main()
