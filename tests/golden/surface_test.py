"""The surface of the libraries equals surface.txt, and docs/reference is what the generator makes of it.
VESTARA_PROGRAM is the command line of the build."""

import difflib
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.environ["VESTARA_PROGRAM"]
PROJECT = pathlib.Path(__file__).resolve().parents[2]
SURFACE = PROJECT / "tests" / "golden" / "surface.txt"
REFERENCE = PROJECT / "docs" / "reference"


def difference(kept, made, name):
    return "".join(difflib.unified_diff(kept.splitlines(keepends=True), made.splitlines(keepends=True),
                                        f"{name} as kept", f"{name} as built"))


class Golden(unittest.TestCase):
    maxDiff = None

    def test_the_surface(self):
        made = subprocess.run([PROGRAM, "describe", "--all"], check=True, capture_output=True).stdout.decode()
        kept = SURFACE.read_text() if SURFACE.exists() else ""
        if made != kept:
            self.fail(f"the surface has changed:\n{difference(kept, made, SURFACE.name)}\nIf that is meant, run in the "
                      f"project's folder:\n  {PROGRAM} describe --all > {SURFACE.relative_to(PROJECT)}")

    def test_the_reference(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, PROJECT / "tools" / "make_reference.py", "--program", PROGRAM, "--output",
                            folder], check=True)
            made = {page.name: page.read_text() for page in pathlib.Path(folder).glob("*.md")}
        kept = {page.name: page.read_text() for page in REFERENCE.glob("*.md")}
        changes = [difference(kept.get(name, ""), made.get(name, ""), name) for name in sorted(kept.keys() | made.keys())]
        if any(changes):
            self.fail(f"the reference is not that of this build:\n{''.join(changes)}\nRun in the project's folder:\n"
                      f"  tools/make_reference.py --program {PROGRAM}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
