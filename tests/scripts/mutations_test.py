#!/usr/bin/env python3
"""The mutation check plants faults, takes them out again and lists what nobody noticed."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

root = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(root / "scripts"))

from mutations.check import Failure, check, copy_tree, misplaced  # noqa: E402
from mutations.faults import FAULTS, Fault  # noqa: E402

SOUND = "if (a < b)\n    return one;\nreturn two;\n"
FILE = "src/model/A.cpp"


class FakeBuild:
    """Its one test looks for a text."""

    def __init__(self, tree: Path, wanted: str):
        self._file, self._wanted = tree / FILE, wanted
        self.built = []

    def configure(self) -> None:
        pass

    def build(self, area: str) -> None:
        self.built.append(self._file.read_text())
        if "syntax" in self.built[-1]:
            raise Failure("does not build")

    def first_failure(self, area: str) -> str | None:
        return None if self._wanted in self._file.read_text() else f"{area}.LooksForText"


class Mutations(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.tree = Path(self._folder.name)
        (self.tree / FILE).parent.mkdir(parents=True)
        (self.tree / FILE).write_text(SOUND)

    def run_check(self, faults: list, wanted: str = "a < b") -> tuple:
        self.build = FakeBuild(self.tree, wanted)
        results = []
        survivors = check(faults, self.tree, self.build, results.append)
        self.assertEqual((self.tree / FILE).read_text(), SOUND)
        return survivors, [result.noticed_by for result in results]

    def test_the_project_has_40_faults_that_can_all_be_planted(self):
        self.assertEqual(misplaced(FAULTS, root), [])
        self.assertGreaterEqual(len(FAULTS), 40)
        self.assertEqual({fault.area for fault in FAULTS}, {"model", "parser", "styling", "attributes"})
        self.assertEqual(len(set(FAULTS)), len(FAULTS))

    def test_a_fault_is_planted_and_taken_out_again(self):
        survivors, noticed = self.run_check([Fault(FILE, "a < b", "a > b")])
        self.assertEqual((survivors, noticed), ([], ["model.LooksForText"]))
        self.assertEqual(self.build.built, [SOUND, SOUND.replace("a < b", "a > b")])

    def test_survivors_are_listed(self):
        unnoticed = Fault(FILE, "return two;", "")
        survivors, noticed = self.run_check([Fault(FILE, "a < b", "b"), unnoticed])
        self.assertEqual((survivors, noticed), ([unnoticed], ["model.LooksForText", None]))

    def test_a_text_that_is_gone_or_stands_twice_is_an_error(self):
        for fault in (Fault(FILE, "a <= b", "x"), Fault(FILE, "return", "x"), Fault("src/model/None.cpp", "a", "b"),
                      Fault(FILE, "a < b", "a < b")):  # fmt: skip
            self.assertEqual(len(misplaced([fault], self.tree)), 1)
            with self.assertRaises(Failure):
                self.run_check([fault])

    def test_a_fault_that_does_not_build_is_an_error(self):
        with self.assertRaisesRegex(Failure, "return two"):
            self.run_check([Fault(FILE, "return two;", "syntax")])
        self.assertEqual((self.tree / FILE).read_text(), SOUND)

    def test_tests_that_fail_anyway_show_nothing(self):
        with self.assertRaisesRegex(Failure, "fails without a fault"):
            self.run_check([Fault(FILE, "a < b", "a > b")], wanted="something else")

    @unittest.skipUnless(shutil.which("git"), "there is no git")
    def test_the_copy_follows_the_tree(self):
        source, copy = self.tree / "source", self.tree / "copy"
        source.mkdir()
        for name, text in {"a.cpp": "a", "b.cpp": "b", ".gitignore": "/build/\n"}.items():
            (source / name).write_text(text)
        (source / "build").mkdir()
        (source / "build" / "x.o").write_text("x")
        subprocess.run(["git", "init", "-q", source], check=True)
        copy_tree(source, copy)
        self.assertEqual(sorted(path.name for path in copy.iterdir()), [".gitignore", "a.cpp", "b.cpp"])

        (copy / "build").mkdir()
        (copy / "build" / "y.o").write_text("y")
        kept = (copy / "a.cpp").stat().st_mtime_ns
        (source / "b.cpp").write_text("other")
        (source / ".gitignore").write_text("/build/\nc\n")
        (source / "d.cpp").write_text("d")
        copy_tree(source, copy)
        self.assertEqual((copy / "a.cpp").stat().st_mtime_ns, kept)
        self.assertEqual((copy / "b.cpp").read_text(), "other")
        self.assertEqual((copy / "build" / "y.o").read_text(), "y")
        (source / "d.cpp").unlink()
        copy_tree(source, copy)
        self.assertFalse((copy / "d.cpp").exists())


if __name__ == "__main__":
    unittest.main()
