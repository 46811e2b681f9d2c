"""The generated stubs and the package as type checkers see them."""

from __future__ import annotations

import importlib.util
import pathlib
import shutil
import subprocess
import sys
import unittest

from .support import PACKAGE, InFolder
from .test_script import environment

SCRIPT = """
from vestara import ByRef, Dispatch, RunTimeError, WithEvents, connect

class Handler:
    def OnLoadingEnd(self) -> None: ...

with connect("sqlite::memory:") as connector:
    lotto = Dispatch("Vestara.cLotto")
    lotto.ActiveConnection = connector
    events = WithEvents(lotto, Handler)
    flag = ByRef(False)
    for row in lotto.LoadLottoEstr("5,12", 2, bTutteLeEstrazioni=flag):
        print(row.dtEstr, row["concorsoNumero"], row[0])
    hits: int = lotto.ContaSortiteTrovate
    name: str = connector.GetRecordset("SELECT 1").Fields(0).Name
"""

MISTAKES = (
    ("lotto.Nope", 'has no attribute "Nope"'),
    ("text: str = lotto.Ambi", "Incompatible types in assignment"),
    ("lotto.LoadLottoEstr(nope=1)", 'Unexpected keyword argument "nope"'),
    ("lotto.DbType = 'x'", "Incompatible types in assignment"),
    ("connector.ExecuteSql()", 'Missing positional argument "sql"'),
)


class Stubs(InFolder):
    def test_they_are_what_the_library_says(self) -> None:
        written = self.folder / "members.pyi"
        subprocess.run(
            [sys.executable, str(PACKAGE / "tools" / "make_stubs.py"), str(written)], env=environment(), check=True
        )
        kept = (PACKAGE / "vestara" / "_members.pyi").read_text(encoding="utf-8")
        self.assertEqual(written.read_text(encoding="utf-8"), kept, "run tools/make_stubs.py")


@unittest.skipUnless(
    shutil.which("mypy") or importlib.util.find_spec("mypy"), "mypy is not installed"
)
class Types(InFolder):
    def test_the_package_and_its_tools(self) -> None:
        self.check("vestara", "tools/make_stubs.py", "bench", "tests/support.py")

    def test_a_program(self) -> None:
        (self.folder / "program.py").write_text(SCRIPT, encoding="utf-8")
        self.check(str(self.folder / "program.py"))

    def test_mistakes_are_found(self) -> None:
        lines = [SCRIPT, *(line for line, _ in MISTAKES)]
        (self.folder / "program.py").write_text("\n".join(lines), encoding="utf-8")
        found = self.mypy(str(self.folder / "program.py")).stdout.splitlines()
        complaints = [line for line in found if ": error: " in line]
        self.assertEqual(len(complaints), len(MISTAKES), complaints)
        for complaint, (_, expected) in zip(complaints, MISTAKES):
            self.assertIn(expected, complaint)

    def check(self, *paths: str) -> None:
        done = self.mypy(*paths)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def mypy(self, *paths: str) -> subprocess.CompletedProcess[str]:
        program = shutil.which("mypy")
        command = [program] if program else [sys.executable, "-m", "mypy"]
        return subprocess.run(
            [*command, "--config-file", "pyproject.toml", "--cache-dir", str(self.folder / "cache"), *paths],
            cwd=PACKAGE,
            env=environment(MYPYPATH=str(PACKAGE)),
            capture_output=True,
            text=True,
            check=False,
        )


class Layout(unittest.TestCase):
    def test_the_version_is_the_project_s(self) -> None:
        import vestara

        project = pathlib.Path(PACKAGE.parents[1], "CMakeLists.txt")
        if not project.is_file():
            self.skipTest("the package stands alone")
        self.assertIn(f"VERSION {vestara.__version__} ", project.read_text(encoding="utf-8"))
