#!/usr/bin/env python3
"""Instruction counts of fixed work, compared with those that are kept in a file.

    counted.py check|write PROGRAM BASELINE [--filter REGEX]

A count says what a change does to the work, whatever else the machine is doing. `check` fails where a count grew by
more than 3 %; `write` puts the counts into the file.
"""

import argparse
import json
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

LIMIT = 3.0  # percent
FUNCTION = "counted"  # what the program calls to have its work counted

# What libraries choose by the processor that they find is switched off, hash seeds and addresses are fixed, and
# functions are bound before the work begins. Nothing else is taken from the caller's environment.
PLAIN_PROCESSOR = [
    "AVX", "AVX2", "AVX512F", "AVX512BW", "AVX512VL", "AVX_Fast_Unaligned_Load", "BMI1", "BMI2", "ERMS", "FSRM",
    "LZCNT", "MOVBE", "POPCNT", "RTM", "SSE4_1", "SSE4_2", "SSSE3",
]  # fmt: skip
TUNABLES = [
    "glibc.cpu.hwcaps=" + ",".join("-" + feature for feature in PLAIN_PROCESSOR),
    "glibc.cpu.x86_data_cache_size=32768",
    "glibc.cpu.x86_shared_cache_size=1048576",
    "glibc.cpu.x86_non_temporal_threshold=786432",
    "glibc.cpu.x86_rep_movsb_threshold=2048",
    "glibc.cpu.x86_rep_stosb_threshold=2048",
]
ENVIRONMENT = {
    "GLIBC_TUNABLES": ":".join(TUNABLES),
    "LANG": "C.UTF-8",
    "LD_BIND_NOW": "1",
    "QT_HASH_SEED": "0",
    "QT_NO_CPU_FEATURE": "sse3 ssse3 sse4.1 sse4.2 avx avx2 avx512f avx512bw avx512vl bmi bmi2 popcnt",
}


class Failure(Exception):
    """What the caller has to be told in one line."""


def environment() -> dict:
    return {"PATH": os.environ["PATH"], **ENVIRONMENT}


def case_names(program: str) -> list:
    listed = subprocess.run([program], env=environment(), stdout=subprocess.PIPE, text=True, check=True)
    return listed.stdout.splitlines()


def instructions(program: str, case: str) -> int:
    """Runs a case under Callgrind."""
    with tempfile.TemporaryDirectory() as folder:
        out = Path(folder, "callgrind.out")
        command = ["valgrind", "--tool=callgrind", "--quiet", f"--toggle-collect={FUNCTION}",
                   f"--callgrind-out-file={out}", program, case]  # fmt: skip
        run = subprocess.run(command, env=environment(), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if run.returncode != 0 or not out.exists():
            raise Failure(f"{case} could not be counted:\n{run.stdout}")
        total = re.search(r"^(?:totals|summary): (\d+)", out.read_text(), re.MULTILINE)
    count = int(total.group(1)) if total else 0
    if count == 0:
        raise Failure(f"{case}: nothing was counted; is {FUNCTION}() there?")
    return count


def count_all(program: str, pattern: str) -> dict:
    counts = {}
    for case in case_names(program):
        if re.search(pattern, case):
            counts[case] = instructions(program, case)
    return counts


def version_of(command: list) -> str:
    try:
        first_line = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout.splitlines()[0]
    except (OSError, subprocess.CalledProcessError, IndexError):
        return "unknown"
    return first_line.strip()


def tools() -> dict:
    """What a count depends on besides the program's own source."""
    return {
        "compiler": version_of(["g++", "-dumpfullversion"]),
        "libc": version_of(["getconf", "GNU_LIBC_VERSION"]),
        "qt": version_of(["pkg-config", "--modversion", "Qt5Core"]),
        "valgrind": version_of(["valgrind", "--version"]),
    }


def growth(old: int, new: int) -> float:
    return (new - old) * 100.0 / old


def check(counts: dict, baseline: dict) -> int:
    """Prints the comparison and what is wrong with it.

    @return number of faults
    """
    kept = baseline["instructions"]
    faults = []
    for case, new in counts.items():
        if case not in kept:
            faults.append(f"{case}: not in the baseline (now {new:,})")
            continue
        old = kept[case]
        percent = growth(old, new)
        print(f"{case:<56} {old:>14,} {new:>14,} {percent:>+8.2f} %")
        if percent > LIMIT:
            faults.append(f"{case}: from {old:,} to {new:,} instructions, {percent:+.2f} % (at most +{LIMIT:g} %)")
    for fault in faults:
        print(f"error: {fault}", file=sys.stderr)
    if faults and tools() != baseline.get("tools"):
        print(f"note: counted with {tools()}, the baseline with {baseline.get('tools')}", file=sys.stderr)
    return len(faults)


def missing(kept: dict, present: list) -> list:
    return [case for case in kept if case not in present]


def run_check(program: str, path: Path, pattern: str) -> int:
    baseline = json.loads(path.read_text())
    gone = missing(baseline["instructions"], case_names(program))
    for case in gone:
        print(f"error: {case}: in the baseline, but the program has no such case", file=sys.stderr)
    faults = check(count_all(program, pattern), baseline)
    return 1 if faults or gone else 0


def write(counts: dict, path: Path) -> None:
    path.write_text(json.dumps({"tools": tools(), "instructions": counts}, indent=2) + "\n")
    print(f"{len(counts)} counts are in {path}")


def main() -> int:
    parser = argparse.ArgumentParser(prog="counted.py", description=__doc__.splitlines()[0])
    parser.add_argument("action", choices=["check", "write"])
    parser.add_argument("program")
    parser.add_argument("baseline", type=Path)
    parser.add_argument("--filter", default="", help="only the cases that this regular expression finds (check)")
    arguments = parser.parse_args()
    try:
        if arguments.action == "check":
            return run_check(arguments.program, arguments.baseline, arguments.filter)
        write(count_all(arguments.program, ""), arguments.baseline)
    except Failure as failure:
        print(f"counted.py: {failure}", file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
