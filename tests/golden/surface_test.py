"""The surface of the libraries equals surface.txt, docs/reference is what the generator makes of it, and the interface
definitions of the COM servers equal interfaces.idl, which leaves out the help that surface.txt has. VESTARA_PROGRAM is
the command line of the build, VESTARA_IDL_PROGRAM what prints the definitions."""

import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.environ["VESTARA_PROGRAM"]
IDL_PROGRAM = os.environ["VESTARA_IDL_PROGRAM"]
PROJECT = pathlib.Path(__file__).resolve().parents[2]
SURFACE = PROJECT / "tests" / "golden" / "surface.txt"
INTERFACES = PROJECT / "tests" / "golden" / "interfaces.idl"
REFERENCE = PROJECT / "docs" / "reference"


def difference(kept, made, name):
    return "".join(difflib.unified_diff(kept.splitlines(keepends=True), made.splitlines(keepends=True),
                                        f"{name} as kept", f"{name} as built"))


def interface_definitions():
    texts = (subprocess.run([IDL_PROGRAM, library], check=True, capture_output=True).stdout.decode()
             for library in ("Vestara", "Dorvane"))
    return re.sub(r', helpstring\("(?:[^"\\]|\\.)*"\)', "", "\n".join(texts))


class Golden(unittest.TestCase):
    maxDiff = None

    def test_the_interface_definitions(self):
        made = interface_definitions()
        kept = INTERFACES.read_text() if INTERFACES.exists() else ""
        if made != kept:
            self.fail(f"the interface definitions have changed:\n{difference(kept, made, INTERFACES.name)}\nIf that is "
                      f"meant, run in the project's folder:\n  VESTARA_PROGRAM={PROGRAM} VESTARA_IDL_PROGRAM="
                      f"{IDL_PROGRAM} python3 tests/golden/surface_test.py --keep-interfaces")

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
    if "--keep-interfaces" in sys.argv:
        sys.exit(INTERFACES.write_text(interface_definitions()) == 0)
    unittest.main(verbosity=2)
