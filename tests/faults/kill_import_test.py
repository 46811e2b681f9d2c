"""Kills an import at moments spread over its run time. Whatever the moment, the archive holds exactly the old draws or
exactly the new ones. VESTARA_PROGRAM is the command line; VESTARA_KILLS says how many kills of each kind."""

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
KILLS = int(os.environ.get("VESTARA_KILLS", "25"))
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

    def import_for(self, seconds, words):
        """Imports over the old archive; True when the kill came before the end."""
        self.restore()
        process = subprocess.Popen([PROGRAM, "import", *words, self.new], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            return process.wait(timeout=seconds) != 0
        except subprocess.TimeoutExpired:
            process.kill()
            return process.wait() != 0

    def usual_time(self, words):
        times = []
        for _ in range(3):
            start = time.monotonic()
            self.assertFalse(self.import_for(60, words))
            times.append(time.monotonic() - start)
        return statistics.median(times)

    def check_backup(self, held, old, new):
        """What was removed is whole in its file once it is gone; a file from before the end is whole or not there."""
        kept = list(self.folder.glob("archive.sqlite.removed-*"))
        self.assertLessEqual(len(kept), 1)
        if held == new:
            self.assertEqual(len(kept), 1)
            other = {"VESTARA_DB": f"sqlite:{self.folder / 'other.sqlite'}"}
            for file in self.folder.glob("other.sqlite*"):
                file.unlink()
            subprocess.run([PROGRAM, "import", kept[0]], env=self.environment | other, stdout=subprocess.DEVNULL,
                           check=True)
            rows = subprocess.run([PROGRAM, "export", "--as", "tsv"], env=self.environment | other,
                                  stdout=subprocess.PIPE, check=True).stdout
            self.assertEqual(set(rows.splitlines()), set(old.splitlines()) - set(new.splitlines()))

    def kill_often(self, *words, removes):
        old, new = self.old.read_bytes(), self.new.read_bytes()
        whole = self.usual_time(words)
        draw = random.Random(SEED)
        seen = {"old": 0, "new": 0, "killed": 0, "ended first": 0}
        # An attempt that ends before its kill is made again: so many kills are to hit a running import.
        while seen["killed"] < KILLS and seen["ended first"] < 2 * KILLS:
            delay = whole * draw.random()
            killed = self.import_for(delay, words)
            held = self.run_program("export", "--as", "tsv")
            with self.subTest(delay=delay):
                self.assertIn(held, (old, new))
                self.assertTrue(killed or held == new)
                if removes:
                    self.check_backup(held, old, new)
            seen["old" if held == old else "new"] += 1
            seen["killed" if killed else "ended first"] += 1
        print(f"import {' '.join(words)} takes {whole:.3f} s; {seen}")
        self.assertEqual(seen["killed"], KILLS)
        self.assertGreater(seen["old"], 0)
        self.assertEqual(list(self.scratch.iterdir()), [])
        self.run_program("import", *words, self.new)
        self.assertEqual(self.run_program("export", "--as", "tsv"), new)

    def test_replace_is_old_or_new(self):
        self.kill_often("--replace", removes=True)

    def test_add_is_old_or_new(self):
        self.new = self.generate("more.txt", seed=1, last="2002-12-31")
        self.assertTrue(self.new.read_bytes().startswith(self.old.read_bytes()))
        self.kill_often("--add", removes=False)


if __name__ == "__main__":
    unittest.main(verbosity=2)
