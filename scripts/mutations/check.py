"""Plants faults in a copy of the tree and runs the tests."""

import re
import shutil
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

TIME_LIMIT = 600  # seconds for the tests of an area; what takes longer hangs


class Failure(Exception):
    """What the caller has to be told: nothing can be said about the tests."""


def misplaced(faults: list, tree: Path) -> list:
    """What is wrong with the list, a line for each fault that cannot be planted."""
    complaints = []
    for fault in faults:
        file = tree / fault.file
        count = file.read_text().count(fault.old) if file.exists() else 0
        if count != 1:
            complaints.append(f"{fault}: the old text is there {count} times")
        elif fault.old == fault.new:
            complaints.append(f"{fault}: changes nothing")
    return complaints


def copy_tree(source: Path, target: Path) -> None:
    """Copies what git knows or would take in. Files that are the same stay untouched, and so do their objects."""
    listed = subprocess.run(["git", "ls-files", "-coz", "--exclude-standard"], cwd=source, stdout=subprocess.PIPE,
                            check=True)  # fmt: skip
    names = [name for name in listed.stdout.decode().split("\0") if name and (source / name).is_file()]
    for name in names:
        old, new = target / name, source / name
        if old.exists() and old.read_bytes() == new.read_bytes():
            continue
        old.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(new, old)
        shutil.copymode(new, old)
    kept = {target / name for name in names} | {target / "build"}
    for old in target.rglob("*"):
        if old.is_file() and not kept.intersection([old, *old.parents]):
            old.unlink()


class Build:
    """The copy, configured like the preset dev."""

    def __init__(self, tree: Path):
        self._tree = tree

    def configure(self) -> None:
        command = ["cmake", "--preset", "dev", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"]
        if shutil.which("ccache"):
            command.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        self._run(command, "the copy cannot be configured")

    def build(self, area: str) -> None:
        self._run(["cmake", "--build", "--preset", "dev", "--target", f"{area}_test"], "does not build")

    def first_failure(self, area: str) -> str | None:
        """The first test of the area that fails; None where none does."""
        program = self._tree / "build" / "dev" / "tests" / f"{area}_test"
        try:
            run = subprocess.run([program, "--gtest_fail_fast", "--gtest_brief=1"], cwd=self._tree, text=True,
                                 errors="replace", stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                 timeout=TIME_LIMIT)  # fmt: skip
        except subprocess.TimeoutExpired:
            return "a test that does not end"
        if run.returncode == 0:
            return None
        failed = re.search(r"^\[  FAILED  \] ([^\s,]+)", run.stdout, re.MULTILINE)
        return failed[1] if failed else "a test that crashes"

    def _run(self, command: list, complaint: str) -> None:
        run = subprocess.run(command, cwd=self._tree, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if run.returncode != 0:
            raise Failure(f"{complaint}:\n{run.stdout}")


@dataclass
class Result:
    fault: object
    noticed_by: str | None
    seconds: float


def try_fault(fault, tree: Path, build) -> Result:
    """Plants a fault, and takes it out again."""
    file = tree / fault.file
    sound = file.read_text()
    started = time.monotonic()
    file.write_text(sound.replace(fault.old, fault.new))
    try:
        build.build(fault.area)
        built = time.monotonic()
        return Result(fault, build.first_failure(fault.area), built - started)
    except Failure as failure:
        raise Failure(f"{fault}: {failure}") from failure
    finally:
        file.write_text(sound)


def check(faults: list, tree: Path, build, report) -> list:
    """Tries faults of which all can be planted. The tests have to pass without them.

    @return those that nobody noticed
    """
    complaints = misplaced(faults, tree)
    if complaints:
        raise Failure("\n".join(complaints))
    build.configure()
    for area in dict.fromkeys(fault.area for fault in faults):
        build.build(area)
        failed = build.first_failure(area)
        if failed:
            raise Failure(f"{failed} fails without a fault")
    survivors = []
    for fault in faults:
        result = try_fault(fault, tree, build)
        report(result)
        if not result.noticed_by:
            survivors.append(fault)
    return survivors
