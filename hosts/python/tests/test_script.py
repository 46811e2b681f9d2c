"""The script of hosts, run as its own process."""

from __future__ import annotations

import os
import pathlib
import subprocess
import sys

from .support import DRAWS, PACKAGE, InFolder, update_file

SCRIPT = pathlib.Path(__file__).with_name("hosts_script.py")

EXPECTED = """\
start
progress 0 4
progress 1 4
progress 2 4
progress 3 4
progress 4 4
end
imported True
draws 3 from 07/01/1871 to 02/01/2026
rows 2 hits 3 ambi 7 terni 2
1871-01-14 2
2026-01-02 1
on RM 0 0
"""


class Script(InFolder):
    def test_it_runs(self) -> None:
        update = update_file(self.folder, DRAWS)
        done = subprocess.run(
            [sys.executable, str(SCRIPT), f"sqlite:{self.folder / 'archive.sqlite'}", update],
            env=environment(),
            capture_output=True,
            text=True,
            check=False,
        )
        self.assertEqual((done.stdout, done.stderr, done.returncode), (EXPECTED, "", 0))

    def test_only_its_import_knows_the_package(self) -> None:
        lines = [line for line in SCRIPT.read_text(encoding="utf-8").splitlines() if "vestara" in line]
        self.assertEqual(lines, ["from vestara import Dispatch, WithEvents"])


def environment(**more: str) -> dict[str, str]:
    return {**os.environ, "PYTHONPATH": str(PACKAGE), **more}
