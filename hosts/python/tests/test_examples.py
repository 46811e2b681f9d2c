"""The examples of the pages, run as they stand: with an update file, and with the operator's own file in its place."""

from __future__ import annotations

import pathlib
import re
import subprocess
import sys

from vestara import connect

from .support import DRAWS, PACKAGE, PROJECT, InFolder, update_file
from .test_script import environment

OPERATORS = "".join(
    "\t".join([day.replace("-", "/"), wheel, *map(str, numbers)]) + "\n" for _, day, wheel, *numbers in DRAWS
)
NOT_IMPORTED = "update.txt was not imported, the archive is what it was\n"
FOUND = "1871-01-14", "2026-01-02"


def example(page: pathlib.Path, first_line: str) -> str:
    """The indented lines of a page from one that begins so."""
    lines = page.read_text(encoding="utf-8").splitlines()
    start = next(place for place, line in enumerate(lines) if line.startswith("    " + first_line))
    end = next(place for place in range(start, len(lines)) if lines[place] and not lines[place].startswith("    "))
    return "\n".join(line[4:] for line in lines[start:end]) + "\n"


def as_python(script: str) -> str:
    """The script of the front page in this language: as few sentences as it has."""
    rules = (
        (r"^Set (\w+) = CreateObject\((.+)\)$", r"\1 = Dispatch(\2)"),
        (r"^Set (.+)$", r"\1"),
        (r"^If Not (.+) Then (.+)$", r"if not \1: \2"),
        (r"^If (.+) Then$", r"if \1():"),
        (r"^Else$", "else:"),
        (r"^End If$", "pass"),
        (r"^Do Until (\S+)$", r"while not \1:"),
        (r"^Loop$", "pass"),
        (r"WScript\.Echo (.+)$", r"print(\1)"),
        (r"WScript\.Quit (\d+)", r"raise SystemExit(\1)"),
        (r"(archive\.\w+Trans|archive\.CreateSchema|draws\.MoveNext)$", r"\1()"),
    )
    lines, depth = ["from vestara import Dispatch"], 0
    for sentence in re.sub(r" : (?!WScript\.Quit)", "\n", script).splitlines():
        text, *rest = sentence.strip().split(" : ")
        for pattern, replacement in rules:
            text = re.sub(pattern, replacement, text)
        depth -= text == "else:"
        lines.append("    " * depth + "; ".join([text, *(re.sub(*rules[9], part) for part in rest)]))
        depth += text.endswith(":")
        depth -= text == "pass"
    return "\n".join(lines) + "\n"


class Examples(InFolder):
    def run_example(self, script: str) -> str:
        done = subprocess.run(
            [sys.executable, "-c", script],
            cwd=self.folder,
            env=environment(),
            capture_output=True,
            text=True,
            check=False,
        )
        self.assertEqual((done.stderr, done.returncode), ("", 0), script)
        return done.stdout

    def rows(self) -> int:
        with connect(f"sqlite:{self.folder / 'lotto.sqlite'}") as archive:
            return len(archive.GetRecordset("SELECT id FROM storico"))

    def check_both_files(self, script: str) -> None:
        update = pathlib.Path(update_file(self.folder, DRAWS))
        printed = self.run_example(script)
        self.assertNotIn(NOT_IMPORTED, printed)
        self.assertEqual(self.rows(), len(DRAWS))
        update.write_text(OPERATORS, encoding="ascii")
        self.assertIn(NOT_IMPORTED, self.run_example(script))
        self.assertEqual(self.rows(), len(DRAWS))

    def test_the_page_of_this_package(self) -> None:
        self.check_both_files(example(PACKAGE / "README.md", "from vestara import Dispatch, WithEvents"))

    def test_the_front_page(self) -> None:
        update_file(self.folder, DRAWS)
        self.run_example(example(PACKAGE / "README.md", "from vestara import Dispatch, WithEvents"))
        printed = self.run_example(example(PROJECT / "README.md", "from vestara import Dispatch, connect"))
        for date in FOUND:
            self.assertIn(date, printed)

    def test_the_script_of_the_front_page(self) -> None:
        script = example(PROJECT / "README.md", 'Set archive = CreateObject("Dorvane.DbConnector")')
        self.assertIn("If lotto.UpdateTblStorico Then\n", script)
        here = script.replace("C:/lotto/archive.sqlite", "lotto.sqlite").replace("C:/lotto/", "")
        self.check_both_files(as_python(here))
