"""Where the libraries come from, and the wheel that carries them."""

from __future__ import annotations

import importlib.util
import os
import subprocess
import sys
import tempfile
import unittest

from vestara import _library

from .support import PACKAGE, InFolder
from .test_script import environment

_PROGRAM = """
import vestara
with vestara.connect("sqlite::memory:") as connector:
    connector.CreateSchema()
    lotto = vestara.Dispatch("Vestara.cLotto")
    lotto.ActiveConnection = connector
    print(lotto.ContaEstrazioniStorico(), connector.GetRecordset("SELECT * FROM ruote").RecordCount)
"""


def run(**variables: str) -> subprocess.CompletedProcess[str]:
    kept = {name: value for name, value in environment().items() if name != "VESTARA_LIBRARY_DIR"}
    with tempfile.TemporaryDirectory() as elsewhere:
        return subprocess.run(
            [sys.executable, "-W", "error", "-c", _PROGRAM],
            cwd=elsewhere,
            env={**kept, **variables},
            capture_output=True,
            text=True,
            check=False,
        )


class Places(InFolder):
    def test_a_missing_library_says_where_to_look(self) -> None:
        done = run(VESTARA_LIBRARY_DIR=str(self.folder))
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("ImportError: the libraries of vestara cannot be loaded", done.stderr)
        self.assertIn("VESTARA_LIBRARY_DIR", done.stderr)

    def test_the_variable_names_the_folder(self) -> None:
        folder = _library.library_folder()
        if folder is None:
            self.skipTest("the libraries are the system's")
        done = run(VESTARA_LIBRARY_DIR=str(folder))
        self.assertEqual((done.stdout, done.stderr), ("0 11\n", ""))

    def test_the_system_s_libraries(self) -> None:
        folder = _library.library_folder()
        if folder is None or (PACKAGE / "vestara" / "lib").exists():
            self.skipTest("needs a folder that VESTARA_LIBRARY_DIR names")
        done = run(LD_LIBRARY_PATH=str(folder))
        self.assertEqual((done.stdout, done.stderr), ("0 11\n", ""))


_LEFT_BEHIND = """
from tests.support import RecordingConnector, archive, lotto_on
from vestara import DispatchWithEvents, WithEvents

class Handler:
    pass

own, python = lotto_on(archive()), lotto_on(RecordingConnector())
events = WithEvents(own, Handler)
both = DispatchWithEvents("Vestara.cLotto", Handler)
both.me = both
both.ActiveConnection = RecordingConnector()
rows = python.LoadLottoEstr("5", 1), own.LoadLottoEstr("5", 1)
field = rows[1].Fields("dtEstr")
"""


class Ending(InFolder):
    def test_objects_that_live_until_the_end(self) -> None:
        for last in ("", "import sys; sys.exit(0)", "del own, python, both, events"):
            done = subprocess.run(
                [sys.executable, "-c", _LEFT_BEHIND + last],
                env=environment(),
                capture_output=True,
                text=True,
                check=False,
            )
            self.assertEqual((done.returncode, done.stderr), (0, ""), last)


@unittest.skipUnless(
    all(importlib.util.find_spec(name) for name in ("setuptools", "wheel", "pip")),
    "building a wheel needs setuptools, wheel and pip",
)
class Wheel(InFolder):
    def test_it_carries_its_libraries(self) -> None:
        folder = _library.library_folder()
        if folder is None:
            self.skipTest("the libraries are the system's")
        before = sorted(PACKAGE.rglob("*"))
        wheels, installed = self.folder / "wheels", self.folder / "installed"
        self.quietly([str(PACKAGE / "tools" / "build_wheel.sh"), str(folder), str(wheels)])
        (wheel,) = wheels.glob("vestara-*.whl")
        self.assertRegex(wheel.name, r"vestara-1\.0\.0-py3-none-linux_\w+\.whl")
        pip = [sys.executable, "-m", "pip", "install", "--no-index", "--no-deps", "--no-cache-dir"]
        self.quietly([*pip, "--target", str(installed), str(wheel)])
        names = {path.name for path in (installed / "vestara").rglob("*")}
        self.assertLessEqual(
            {"py.typed", "_members.pyi", "libautomation.so.1", "libvestara.so.1", "libdorvane.so.1"}, names
        )
        done = run(PYTHONPATH=str(installed))
        self.assertEqual((done.stdout, done.stderr), ("0 11\n", ""))
        self.assertEqual([path for path in PACKAGE.rglob("*") if path not in before], [])

    def quietly(self, command: list[str]) -> None:
        done = subprocess.run(
            command, env={**os.environ, "PYTHON": sys.executable}, capture_output=True, text=True, check=False
        )
        self.assertEqual(done.returncode, 0, done.stderr)
