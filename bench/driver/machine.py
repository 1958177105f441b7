"""What the figures were measured on and with."""

import os
import re
import subprocess
from pathlib import Path

PACKAGES = {
    "Qt": "qtbase5-dev",
    "Chromium": "chromium",
    "litehtml": "liblitehtml-dev",
    "GTK": "libgtk-4-dev",
}


def first_match(pattern: str, text: str) -> str:
    found = re.search(pattern, text, re.MULTILINE)
    return found.group(1).strip() if found else "unknown"


def package_version(package: str) -> str:
    """Without epoch and Debian revision; empty where it is not installed."""
    command = ["dpkg-query", "-W", "-f", "${Version}", package]
    try:
        asked = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    except OSError:
        return ""
    return re.sub(r"^\d+:|[+~-].*$", "", asked.stdout)


def compiler_and_flags(build: Path) -> tuple:
    cache = (build / "CMakeCache.txt").read_text()
    kind = first_match(r"^CMAKE_BUILD_TYPE:\w+=(.*)$", cache)
    flags = first_match(rf"^CMAKE_CXX_FLAGS_{kind.upper()}:\w+=(.*)$", cache)
    program = first_match(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache)
    version = subprocess.run([program, "--version"], stdout=subprocess.PIPE, text=True).stdout
    return version.splitlines()[0], flags


def describe(build: Path) -> dict:
    compiler, flags = compiler_and_flags(build)
    memory = int(first_match(r"^MemTotal:\s+(\d+)", Path("/proc/meminfo").read_text()))
    return {
        "processor": first_match(r"^model name\s*:(.*)$", Path("/proc/cpuinfo").read_text()),
        "cores": len(os.sched_getaffinity(0)),
        "memory": f"{memory / 1024 / 1024:.0f} GiB",
        "system": first_match(r'^PRETTY_NAME="(.*)"$', Path("/etc/os-release").read_text()),
        "compiler": compiler,
        "flags": flags,
        "versions": {name: version for name, package in PACKAGES.items() if (version := package_version(package))},
    }
