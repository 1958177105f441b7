"""Those who are asked which value wins: each answers with a list per node of a value per compared property."""

import json
import os
import subprocess
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import devtools
from oracle.pairs import Pair
from oracle.properties import COMPARED, of_browser, of_ours

PAGE = Path(__file__).with_name("page.js")
EMPTY_PAGE = "data:application/xhtml+xml,<html xmlns='http://www.w3.org/1999/xhtml'><body/></html>"


class Failure(Exception):
    """One of them gave no answer."""


class Browser:
    def __init__(self, program: str):
        self._browser = devtools.Browser(program)
        self._browser.send("Page.navigate", url=EMPTY_PAGE)
        while self._browser.evaluate("document.contentType + document.readyState") != "application/xhtml+xmlcomplete":
            time.sleep(0.01)
        self._browser.evaluate(PAGE.read_text())

    def version(self) -> str:
        return self._browser.version().replace("/", " ")

    def winners(self, pairs: list) -> list:
        arguments = [[pair.root.to_json(), pair.texts(), COMPARED] for pair in pairs]
        answers = self._browser.evaluate(f"{json.dumps(arguments)}.map(pair => computedValues(...pair))")
        return [[[of_browser(value) for value in node] for node in answer] for answer in answers]

    def close(self) -> None:
        self._browser.close()


def write_pair(pair: Pair, folder: Path) -> list:
    """Writes the scene and the sheets as files.

    @return the arguments for the command
    """
    scene = folder / "scene.xml"
    scene.write_text(pair.root.to_xml())
    arguments = ["style", str(scene)]
    for place, text in enumerate(pair.texts()):
        sheet = folder / f"sheet{place}.css"
        sheet.write_bytes(text.encode())
        arguments += ["-s", str(sheet)]
    return arguments + ["--any-property"]


def nodes_of(document: dict) -> list:
    """The nodes of the command's answer, in the order of the document."""
    return [document] + [node for child in document["children"] for node in nodes_of(child)]


class Command:
    def __init__(self, program: Path):
        self._program = program

    def winners(self, pairs: list) -> list:
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            return list(pool.map(self._winners_of, pairs))

    def _winners_of(self, pair: Pair) -> list:
        with tempfile.TemporaryDirectory() as folder:
            arguments = write_pair(pair, Path(folder))
            run = subprocess.run([self._program, *arguments, "--format", "json"], capture_output=True)
        if run.returncode != 0:
            raise Failure(f"seed {pair.seed}: exit code {run.returncode}: {run.stderr.decode(errors='replace')}")
        root = json.loads(run.stdout)["root"]
        return [[of_ours(node["attributes"].get(name)) for name in COMPARED] for node in nodes_of(root)]
