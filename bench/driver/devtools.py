"""A Chromium without windows, told what to do over the pipe of its DevTools protocol."""

import json
import os
import subprocess
import tempfile

FLAGS = [
    "--headless",
    "--no-sandbox",
    "--disable-gpu",
    "--disable-quic",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-sync",
    "--no-first-run",
    "--window-size=1280,1024",
    "--remote-debugging-pipe",
]


class ProtocolError(Exception):
    """The browser refused a command, or went away."""


class Browser:
    """Starts a browser with an empty profile; one page is open."""

    def __init__(self, program: str):
        self._profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        command_out, command_in = os.pipe()
        answer_out, answer_in = os.pipe()

        def give_pipes():  # the browser reads from 3 and writes to 4
            spare_out, spare_in = os.dup(command_out), os.dup(answer_in)
            os.dup2(spare_out, 3)
            os.dup2(spare_in, 4)

        self._process = subprocess.Popen(
            [program, *FLAGS, f"--user-data-dir={self._profile.name}", "about:blank"],
            preexec_fn=give_pipes,
            pass_fds=(3, 4, command_out, answer_in),
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        os.close(command_out)
        os.close(answer_in)
        self._commands = command_in
        self._answers = answer_out
        self._unread = b""
        self._number = 0
        self._session = None
        targets = self.send("Target.getTargets")["targetInfos"]
        page = next(target["targetId"] for target in targets if target["type"] == "page")
        self._session = self.send("Target.attachToTarget", targetId=page, flatten=True)["sessionId"]

    def send(self, method: str, **parameters) -> dict:
        """Sends a command and waits for its result."""
        number = self._post(method, parameters)
        while True:
            message = json.loads(self._receive())
            if message.get("id") == number:
                break
        if "error" in message:
            raise ProtocolError(f"{method}: {message['error']['message']}")
        return message["result"]

    def _post(self, method: str, parameters: dict) -> int:
        self._number += 1
        message = {"id": self._number, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        unsent = json.dumps(message).encode() + b"\0"
        while unsent:
            unsent = unsent[os.write(self._commands, unsent) :]
        return self._number

    def _receive(self) -> bytes:
        while b"\0" not in self._unread:
            received = os.read(self._answers, 1 << 20)
            if not received:
                raise ProtocolError("the browser went away")
            self._unread += received
        message, self._unread = self._unread.split(b"\0", 1)
        return message

    def evaluate(self, script: str):
        """The value of a script in the page; a promise is waited for."""
        answer = self.send("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in answer:
            details = answer["exceptionDetails"]
            raise ProtocolError(details.get("exception", {}).get("description", details["text"]))
        return answer["result"].get("value")

    def trace(self, script: str, categories: list) -> list:
        """The events of those categories while a script runs in the page."""
        self.send("Tracing.start", traceConfig={"includedCategories": categories}, transferMode="ReportEvents")
        self.evaluate(script)
        self._post("Tracing.end", {})
        events = []
        while True:
            message = json.loads(self._receive())
            if message.get("method") == "Tracing.dataCollected":
                events += message["params"]["value"]
            if message.get("method") == "Tracing.tracingComplete":
                return events

    def await_tracing(self) -> None:
        """Waits until events of the page arrive: a page that has just been made may send none yet."""
        while not self.trace("performance.mark('ready')", ["blink.user_timing"]):
            pass

    def version(self) -> str:
        return self.send("Browser.getVersion")["product"]

    def close(self) -> None:
        self._session = None
        self._post("Browser.close", {})
        try:
            self._process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        os.close(self._commands)
        os.close(self._answers)
        self._profile.cleanup()
