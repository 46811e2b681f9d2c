"""Damaged archive files: the doctor finds each one that answers otherwise than the sound one did, or reading it is an
error. VESTARA_PROGRAM is the command line; VESTARA_REAL_ARCHIVE names the CSV of the real archive."""

import contextlib
import json
import random
import sqlite3
import unittest

from command_line_test import OK, REAL_ARCHIVE, CommandLine

ARCHIVES = 240
SEED = 20260822
PAGE = 4096
# What a user asks: everything that is stored, and figures that walk the indexes.
QUESTIONS = (["export", "--contest"], ["archive", "--format", "json"], ["search", "5", "12", "--hits", "2", "--format", "json"],
             ["saved", "list", "--format", "json"])


class DamagedArchives(CommandLine):
    def answers(self, name):
        """Exit code and output of every question."""
        words = ["--db", f"sqlite:{self.folder / name}?mode=ro"]
        return [(done.returncode, done.stdout) for done in (self.run_program(*words, *question) for question in QUESTIONS)]

    def doctor(self, name):
        return self.run_program("--db", f"sqlite:{self.folder / name}?mode=ro", "doctor")

    def damage(self, sound, draw):
        """Some bytes, a stretch of zeros or noise, a page that lies elsewhere, or a file that ends too early."""
        bytes_ = bytearray(sound)
        kind = draw.randrange(5)
        if kind == 0:
            for _ in range(draw.randint(1, 8)):
                bytes_[draw.randrange(len(bytes_))] ^= draw.randint(1, 255)
        elif kind in (1, 2):
            place = draw.randrange(len(bytes_))
            stretch = len(bytes_[place:place + draw.randint(1, 2 * PAGE)])
            bytes_[place:place + stretch] = bytes(stretch) if kind == 1 else draw.randbytes(stretch)
        elif kind == 3:
            one, other = (PAGE * draw.randrange(len(bytes_) // PAGE) for _ in range(2))
            bytes_[one:one + PAGE] = bytes_[other:other + PAGE]
        else:
            del bytes_[draw.randrange(1, len(bytes_)):]
        return bytes(bytes_)

    def test_none_answers_wrongly_unnoticed(self):
        self.imported(first="2003-01-01")
        sound = self.archive.read_bytes()
        self.write("sound", sound)
        expected = self.answers("sound")
        self.assertEqual(self.doctor("sound").returncode, OK)
        draw = random.Random(SEED)
        seen = {"found": 0, "harmless": 0, "wrong": 0}
        for place in range(ARCHIVES):
            self.write("damaged", self.damage(sound, draw))
            found = self.doctor("damaged").returncode != OK
            # What the doctor finds need not be asked.
            wrong = not found and any(code in (0, 1) and answer != right for (code, answer), (_, right)
                                      in zip(self.answers("damaged"), expected))
            seen["found" if found else "wrong" if wrong else "harmless"] += 1
            with self.subTest(place=place):
                self.assertFalse(wrong)
            for extra in self.folder.glob("damaged-*"):
                extra.unlink()
        print(seen)
        self.assertGreater(seen["found"], ARCHIVES // 2)

    def faults(self):
        """What the doctor says of the archive: what is wrong, and an example."""
        return {fault["what"]: fault["example"] for fault in json.loads(
            self.run_program("doctor", "--format", "json").stdout)["faults"]}

    def test_what_the_database_does_by_itself(self):
        self.imported()
        with contextlib.closing(sqlite3.connect(self.archive)) as database:
            database.execute("CREATE TRIGGER quiet AFTER INSERT ON storico BEGIN DELETE FROM storico WHERE id=1; END")
            database.execute("CREATE TABLE other(x)")
            database.execute("CREATE TRIGGER elsewhere AFTER INSERT ON other BEGIN DELETE FROM other; END")
        self.assertEqual(self.faults(), {"triggers on the archive's tables": "quiet on storico"})

    def test_a_collation_that_is_not_there(self):
        self.imported()
        with contextlib.closing(sqlite3.connect(self.archive)) as database:
            database.create_collation("italian", lambda left, right: (left > right) - (left < right))
            database.execute("ALTER TABLE tSistemi DROP COLUMN titolo")
            database.execute("ALTER TABLE tSistemi ADD COLUMN titolo TEXT COLLATE italian")
        (what, example), = self.faults().items()
        self.assertEqual(what, "texts of tSistemi.titolo cannot be compared")
        self.assertIn("italian", example)

    @unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
    def test_the_real_archive_is_sound(self):
        self.expect(OK, "import", REAL_ARCHIVE)
        shown = self.summary("doctor")
        self.assertEqual((shown["findings"], shown["faults"]), (0, []))
        self.assertEqual(shown["stray_dates"], 5)


if __name__ == "__main__":
    unittest.main(verbosity=2)
