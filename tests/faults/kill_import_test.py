"""Kills an import at fifty moments spread over its run time. Whatever the moment, the archive holds exactly the old
draws or exactly the new ones. VESTARA_PROGRAM is the command line."""

import os
import pathlib
import random
import shutil
import statistics
import subprocess
import tempfile
import time
import unittest

PROGRAM = os.environ["VESTARA_PROGRAM"]
KILLS = 50
SEED = 20260821


class KillImport(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.archive = self.folder / "archive.sqlite"
        self.scratch = self.folder / "scratch"
        self.scratch.mkdir()
        self.environment = os.environ | {
            "VESTARA_DB": f"sqlite:{self.archive}",
            "VESTARA_LOG_DIR": str(self.folder),
            "TMPDIR": str(self.scratch),
        }
        self.old = self.generate("old.txt", seed=1, last="1999-12-31")
        self.new = self.generate("new.txt", seed=2, last="2002-12-31")
        self.run_program("import", self.old)
        self.kept = self.folder / "kept.sqlite"
        shutil.copyfile(self.archive, self.kept)

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *map(str, arguments)], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=True).stdout

    def generate(self, name, seed, last):
        path = self.folder / name
        self.run_program("generate", "--seed", seed, "--from", "1980-01-01", "--to", last, "--output", path)
        return path

    def restore(self):
        for file in self.folder.glob("archive.sqlite*"):
            file.unlink()
        shutil.copyfile(self.kept, self.archive)

    def import_for(self, seconds):
        """Imports over the old archive; True when the kill came before the end."""
        self.restore()
        process = subprocess.Popen([PROGRAM, "import", self.new], env=self.environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            return process.wait(timeout=seconds) != 0
        except subprocess.TimeoutExpired:
            process.kill()
            return process.wait() != 0

    def usual_time(self):
        times = []
        for _ in range(5):
            start = time.monotonic()
            self.assertFalse(self.import_for(60))
            times.append(time.monotonic() - start)
        return statistics.median(times)

    def test_old_or_new(self):
        old, new = self.old.read_bytes(), self.new.read_bytes()
        whole = self.usual_time()
        draw = random.Random(SEED)
        seen = {"old": 0, "new": 0, "killed": 0, "ended first": 0}
        # An attempt that ends before its kill is made again: so many kills are to hit a running import.
        while seen["killed"] < KILLS and seen["ended first"] < 2 * KILLS:
            delay = whole * draw.random()
            killed = self.import_for(delay)
            held = self.run_program("export", "--as", "tsv")
            with self.subTest(delay=delay):
                self.assertIn(held, (old, new))
                self.assertTrue(killed or held == new)
            seen["old" if held == old else "new"] += 1
            seen["killed" if killed else "ended first"] += 1
        print(f"an import takes {whole:.3f} s; {seen}")
        self.assertEqual(seen["killed"], KILLS)
        self.assertGreater(seen["old"], 0)
        # One instant remains in which a temporary file has a name: before that name is taken away.
        self.assertLessEqual(len(list(self.scratch.iterdir())), 1)
        self.run_program("import", self.new)
        self.assertEqual(self.run_program("export", "--as", "tsv"), new)


if __name__ == "__main__":
    unittest.main(verbosity=2)
