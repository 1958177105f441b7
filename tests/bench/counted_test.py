"""The check of instruction counts notices growth, and what is missing on either side.

With the path of the counting program as argument, one real case is counted as well.
"""

import contextlib
import io
import json
import os
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "bench" / "driver"))
import counted  # noqa: E402

PROGRAM = sys.argv.pop() if len(sys.argv) > 1 and os.path.exists(sys.argv[-1]) else None

# Answers like Callgrind: writes the count that stands in the file called like the case.
VALGRIND = """#!/bin/sh
[ "$1" != --version ] || exec echo fake
for argument; do
    case $argument in --callgrind-out-file=*) out=${argument#*=} ;; esac
done
folder=$(dirname "$0")
printf 'events: Ir\\ntotals: %s\\n' "$(cat "$folder/count of $argument")" >"$out"
"""


class CheckTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.baseline = self.folder / "baseline.json"
        self.program = self.script("program", "#!/bin/sh\nprintf 'parse\\nstyle\\n'\n")
        self.script("valgrind", VALGRIND)
        path = os.environ["PATH"]
        self.addCleanup(os.environ.__setitem__, "PATH", path)
        os.environ["PATH"] = f"{self.folder}:{path}"
        self.counts(parse=1000, style=2000)

    def script(self, name, text):
        path = self.folder / name
        path.write_text(text)
        path.chmod(0o755)
        return str(path)

    def counts(self, **numbers):
        for case, number in numbers.items():
            (self.folder / f"count of {case}").write_text(str(number))

    def keep(self, **numbers):
        self.baseline.write_text(json.dumps({"tools": {}, "instructions": numbers}))

    def check(self, program=None, pattern=""):
        """Exit code and messages."""
        messages = io.StringIO()
        with contextlib.redirect_stderr(messages), contextlib.redirect_stdout(io.StringIO()):
            code = counted.run_check(program or self.program, self.baseline, pattern)
        return code, messages.getvalue()

    def test_equal_counts_pass(self):
        self.keep(parse=1000, style=2000)
        self.assertEqual(self.check(), (0, ""))

    def test_three_percent_pass(self):
        self.keep(parse=1000, style=2000)
        self.counts(style=2060)
        self.assertEqual(self.check(), (0, ""))

    def test_more_fails_with_name_and_both_counts(self):
        self.keep(parse=1000, style=2000)
        self.counts(style=2061)
        code, messages = self.check()
        self.assertEqual(code, 1)
        self.assertIn("error: style: from 2,000 to 2,061 instructions, +3.05 % (at most +3 %)\n", messages)
        self.assertNotIn("parse:", messages)

    def test_less_passes(self):
        self.keep(parse=1000, style=4000)
        self.assertEqual(self.check(), (0, ""))

    def test_case_without_baseline_fails(self):
        self.keep(parse=1000)
        code, messages = self.check()
        self.assertEqual(code, 1)
        self.assertIn("error: style: not in the baseline (now 2,000)\n", messages)

    def test_case_that_is_gone_fails(self):
        self.keep(parse=1000, style=2000, restyle=3000)
        code, messages = self.check()
        self.assertEqual(code, 1)
        self.assertIn("error: restyle: in the baseline, but the program has no such case\n", messages)

    def test_nothing_counted_is_a_failure(self):
        self.keep(parse=1000, style=2000)
        self.counts(parse=0)
        with self.assertRaisesRegex(counted.Failure, "parse: nothing was counted"):
            self.check()

    def test_what_is_written_passes(self):
        with contextlib.redirect_stdout(io.StringIO()):
            counted.write(counted.count_all(self.program, ""), self.baseline)
        self.assertEqual(self.check(), (0, ""))
        self.assertEqual(json.loads(self.baseline.read_text())["instructions"], {"parse": 1000, "style": 2000})


@unittest.skipUnless(PROGRAM, "the counting program is not built")
class RealCountTest(unittest.TestCase):
    """A baseline that is 4 % lower than the truth is refused."""

    CASE = "parse: 200 rules of a framework"

    def test_growth_is_found(self):
        count = counted.instructions(PROGRAM, self.CASE)
        again = {self.CASE: counted.instructions(PROGRAM, self.CASE)}
        for factor, faults in ((1.0, 0), (0.96, 1), (1.04, 0)):
            baseline = {"tools": counted.tools(), "instructions": {self.CASE: int(count * factor)}}
            with contextlib.redirect_stderr(io.StringIO()), contextlib.redirect_stdout(io.StringIO()):
                self.assertEqual(counted.check(again, baseline), faults, factor)


if __name__ == "__main__":
    unittest.main()
