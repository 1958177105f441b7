#!/usr/bin/env python3
"""The shells complete what the command line has. A shell that is not installed is skipped.

usage: completion_test.py BRISKO BASH_FILE ZSH_FILE FISH_FILE [UNITTEST-OPTION...]
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from terminal import Shell

BRISKO, BASH_FILE, ZSH_FILE, FISH_FILE = (str(Path(name).resolve()) for name in sys.argv[1:5])

# Where a word is completed: what is typed, and what it becomes.
LINES = [
    ("brisko expl", "brisko explain"),
    ("brisko explain scene.xml --why", "brisko explain scene.xml --why-not"),
    ("brisko style --form", "brisko style --format"),
    ("brisko style --format js", "brisko style --format json"),
    ("brisko style --format=js", "brisko style --format=json"),
    ("brisko check --format sa", "brisko check --format sarif"),
    ("brisko watch check --format sa", "brisko watch check --format sarif"),
    ("brisko --color alw", "brisko --color always"),
    ("brisko check theme.", "brisko check theme.css"),
    ("brisko check --import-root them", "brisko check --import-root themes/"),
    ("brisko query -s theme.", "brisko query -s theme.css"),
    ("brisko render scene.xml --output theme.", "brisko render scene.xml --output theme.css"),
    ("brisko --origin 2 quer", "brisko --origin 2 query"),
]
# Where nothing can be offered.
DEAD_ENDS = ["brisko style --why", "brisko parse --origin them", "brisko frob", "brisko style --on them",
             "brisko style --format sa", "brisko --format sa"]  # fmt: skip


def printed(*command: str) -> str:
    return subprocess.run(command, text=True, check=True, capture_output=True).stdout


def commands() -> list:
    return re.findall(r"^  brisko ([\w-]+)", printed(BRISKO, "--help"), re.MULTILINE)


def commands_below(command: str) -> list:
    """The commands that a command runs: "(style|check) ..." in its usage."""
    found = re.search(rf"^  brisko {command} \(([\w|-]+)\)", printed(BRISKO, "--help"), re.MULTILINE)
    return found.group(1).split("|") if found else []


def options(command: str) -> set:
    """The names of the options in the help of a command."""
    help_text = printed(BRISKO, command, "--help").split("\nOptions:\n")[1]
    return {name for line in re.findall(r"^  (-.*?)  ", help_text, re.MULTILINE)
            for name in re.findall(r"(?:^|, )(-[\w-]+)", line)}  # fmt: skip


class Completion:
    """What every shell has to do; completed() and offered() are its own."""

    @classmethod
    def setUpClass(cls):
        if not shutil.which(cls.shell):
            raise unittest.SkipTest(f"{cls.shell} is not installed")
        cls.folder = tempfile.TemporaryDirectory()
        for name in ("themes/inner", "theme.css", "scene.xml"):
            path = Path(cls.folder.name, name)
            path.parent.mkdir(exist_ok=True)
            path.touch()

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def environment(self) -> dict:
        return {"PATH": os.path.dirname(BRISKO) + ":" + os.environ["PATH"], "HOME": self.folder.name, "TERM": "dumb",
                "LC_ALL": "C.UTF-8", "INPUTRC": "/dev/null"}  # fmt: skip

    def test_lines_are_completed(self):
        self.check_lines([(line, wanted) for line, wanted in LINES])

    def test_nothing_is_offered_where_nothing_fits(self):
        self.check_lines([(line, line) for line in DEAD_ENDS])

    def test_every_command_is_offered(self):
        self.assertEqual(self.offered("brisko "), set(commands()))

    def test_every_option_is_offered(self):
        for command in commands():
            with self.subTest(command):
                below = commands_below(command)
                if below:
                    self.assertEqual(self.offered(f"brisko {command} "), set(below))
                    self.assertEqual(self.offered(f"brisko {command} {below[0]} -"), options(below[0]))
                else:
                    self.assertEqual(self.offered(f"brisko {command} -"), options(command))


class Bash(Completion, unittest.TestCase):
    shell = "bash"

    def check_lines(self, lines):
        setup = [f"source '{BASH_FILE}'", "bind 'set bell-style none'", "bind 'set enable-bracketed-paste off'"]
        with Shell(["bash", "--norc", "--noprofile", "-i"], setup, self.folder.name, self.environment()) as shell:
            for line, wanted in lines:
                self.assertEqual(shell.completed(line).rstrip("="), wanted)

    def offered(self, line: str) -> set:
        words = line.split(" ")
        script = (f"source '{BASH_FILE}'; COMP_WORDS=({' '.join(repr(word) for word in words)}); "
                  f"COMP_CWORD={len(words) - 1}; _brisko; printf '%s\\n' \"${{COMPREPLY[@]}}\"")  # fmt: skip
        return set(printed("bash", "-c", script).split())


class Zsh(Completion, unittest.TestCase):
    shell = "zsh"

    def start(self) -> Shell:
        folder = os.path.dirname(ZSH_FILE)
        setup = [f"fpath=('{folder}' $fpath)", "autoload -Uz compinit; compinit -D -u", "bindkey -e", "unsetopt beep prompt_sp",
                 "LISTMAX=10000"]  # fmt: skip
        return Shell(["zsh", "-f", "-i"], setup, self.folder.name, self.environment())

    def check_lines(self, lines):
        with self.start() as shell:
            for line, wanted in lines:
                self.assertEqual(shell.completed(line).rstrip("="), wanted.rstrip("/"))

    def offered(self, line: str) -> set:
        # What would be shown below the line, word by word, without the descriptions.
        with self.start() as shell:
            shell.send("zstyle ':completion:*' verbose no; zstyle ':completion:*' list-packed no\n")
            shell.wait_for(r"ready> $")
            shell.send(f"{line}\x04")
            found = shell.wait_for(r"\n((?:(?!ready> ).*\n)+?)ready> " + re.escape(line))
            return {word.rstrip("=") for word in found.group(1).split()}


class Fish(Completion, unittest.TestCase):
    shell = "fish"

    def complete(self, line: str) -> list:
        script = f"source '{FISH_FILE}'; complete -C \"{line}\""
        run = subprocess.run(["fish", "--no-config", "-c", script], text=True, check=True, capture_output=True,
                             cwd=self.folder.name, env=self.environment())  # fmt: skip
        return [entry.split("\t")[0] for entry in run.stdout.splitlines()]

    def check_lines(self, lines):
        for line, wanted in lines:
            with self.subTest(line):
                offered = [line[: len(line) - len(line.split(" ")[-1])] + word for word in self.complete(line)]
                self.assertEqual([word.rstrip("=") for word in offered] or [line], [wanted])

    def offered(self, line: str) -> set:
        return set(self.complete(line))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[5:])
