"""Draws are saved by hand, deleted and imported by six programs at once. Afterwards a date has a mark exactly when its
draw was entered by hand. VESTARA_PROGRAM is the command line; VESTARA_ROUNDS says how often;
VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB are URLs of databases that the test may empty."""

import concurrent.futures
import os
import pathlib
import random
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["VESTARA_PROGRAM"]
ROUNDS = int(os.environ.get("VESTARA_ROUNDS", "3"))
SEED = 20261122
WHEELS = ["BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"]
DATES = [f"2016-01-{day:02}" for day in (2, 5, 7, 9, 12, 14)]
HEADER = "date,wheel,n1,n2,n3,n4,n5\n"


def rows(date, first):
    return [f"{date},{name},{first},{20 + wheel},40,60,80" for wheel, name in enumerate(WHEELS)]


OFFICIAL = 1
BY_HAND = (2, 3, 4)


class DrawsAndMarks(unittest.TestCase):
    database = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.environment = os.environ | {
            "VESTARA_DB": self.database or f"sqlite:{self.folder / 'archive.sqlite'}?timeout=60000",
            "VESTARA_LOG_DIR": folder.name, "XDG_DATA_HOME": folder.name}
        self.official = self.folder / "official.csv"
        # Every second date is in the file, and one that nobody else touches.
        self.official.write_text(HEADER + "\n".join(row for date in [*DATES[::2], "2016-01-16"]
                                                    for row in rows(date, OFFICIAL)) + "\n", encoding="ascii")

    def run_program(self, *words, codes=(0,), **more):
        done = subprocess.run([PROGRAM, *words], env=self.environment, capture_output=True, text=True, check=False,
                              **more)
        self.assertIn(done.returncode, codes, (words, done.stderr))
        return done.stdout

    def save(self, first, draw):
        for _ in range(3):
            line = " ".join(",".join(row.split(",")[1:]) for row in rows("", first))
            self.run_program("draw", "save", draw.choice(DATES), "--numbers", line, "--yes")

    def delete(self, draw):
        for _ in range(3):
            self.run_program("draw", "delete", draw.choice(DATES), "--yes", codes=(0, 1))

    def bring_in(self, words):
        self.run_program("import", *words, str(self.official))

    def held(self):
        """The first numbers of each date."""
        found = {}
        for row in self.run_program("export").splitlines()[1:]:
            fields = row.split(",")
            found.setdefault(fields[0], []).append(int(fields[2]))
        return found

    def marked(self):
        """A dry run names every draw that counts as entered by hand."""
        done = self.run_program("--format", "csv", "import", "--dry-run", "--add", str(self.official))
        return {row.split(",")[0] for row in done.split("\n\n")[1].splitlines()[1:]} if "\n\n" in done else set()

    def empty(self):
        self.run_program("import", "--replace", "--no-backup", str(self.official))

    def test_they_agree(self):
        draw = random.Random(SEED)
        for place in range(ROUNDS):
            self.empty()
            words = ["--add"] if place % 2 == 0 else ["--replace", "--keep-manual", "--no-backup"]
            with concurrent.futures.ThreadPoolExecutor(6) as programs:
                running = [programs.submit(self.save, first, random.Random(draw.random())) for first in BY_HAND]
                running += [programs.submit(self.delete, random.Random(draw.random())) for _ in range(2)]
                running.append(programs.submit(self.bring_in, words))
            for program in running:
                program.result()
            held, marked = self.held(), self.marked()
            for date, firsts in held.items():
                self.assertEqual(firsts, [firsts[0]] * len(WHEELS), date)
            by_hand = {date for date, firsts in held.items() if firsts[0] in BY_HAND}
            self.assertEqual(marked, by_hand, f"round {place}, {words}")
            self.assertIn("2016-01-16", held)


for name in ("Postgresql", "Mariadb"):
    if url := os.environ.get("VESTARA_TEST_" + name.upper()):
        globals()["DrawsAndMarksOn" + name] = type("DrawsAndMarksOn" + name, (DrawsAndMarks,), {"database": url})


if __name__ == "__main__":
    unittest.main(verbosity=2)
