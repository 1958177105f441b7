"""An interactive shell behind a terminal, and what its line becomes when the tabulator key is pressed."""

import os
import pty
import re
import select
import time


class Shell:
    """A shell that reads and writes a terminal of its own. Use it with "with"."""

    def __init__(self, command: list, setup: list, folder: str, environment: dict):
        self.output = ""
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execvpe(command[0], command, environment)
        for line in setup + ["PS1='ready> '"]:
            self.send(line + "\n")
        self.wait_for(r"ready> $")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.terminal)
        os.waitpid(self.process, 0)

    def send(self, text: str):
        os.write(self.terminal, text.encode())

    def wait_for(self, pattern: str, seconds: float = 30) -> re.Match:
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = re.search(pattern, self.output)
            if found:
                self.output = self.output[found.end():]
                return found
            if select.select([self.terminal], [], [], 0.1)[0]:
                self.output += os.read(self.terminal, 65536).decode(errors="replace")
                self.output = re.sub(r"\x1b\[[?0-9;]*[a-zA-Z]|\r|\x07", "", self.output)
        raise AssertionError(f"no {pattern!r} in {self.output!r}")

    def completed(self, line: str) -> str:
        """What a line becomes when it is completed; blanks at its end are left out."""
        # The line goes behind an echo that shows it as the shell has it.
        self.send(f"{line}\t\x01echo SHOWN '\x05'\n")
        return self.wait_for(r"\nSHOWN (.*)\n(?:.*\n)*?.*ready> $").group(1).rstrip()
