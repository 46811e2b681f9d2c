"""Two hosts write draws and searches to one archive at once, two seconds or as many as the argument says. What was
acknowledged is there, whole; what was not is not. TWO_WRITERS is the compiled host."""

import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.environ["TWO_WRITERS"]
WORKERS = (1, 2)
WHEELS = ["BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"]
SECONDS = 2


class TwoWriters(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        archive = pathlib.Path(folder.name) / "archive.sqlite"
        cls.write(f"sqlite:{archive}", os.environ | {"VESTARA_LOG_DIR": folder.name})
        cls.database = sqlite3.connect(archive)
        cls.addClassCleanup(cls.database.close)

    @classmethod
    def write(cls, url, environment):
        cls.url, cls.environment = url, environment
        cls.start(worker=0, seconds=0).communicate(timeout=60)  # makes the tables
        running = [cls.start(worker, SECONDS) for worker in WORKERS]
        outputs = [process.communicate(timeout=SECONDS + 60)[0] for process in running]
        cls.calls = [[line.split() for line in output.splitlines()] for output in outputs]
        cls.exit_codes = [process.returncode for process in running]

    @classmethod
    def start(cls, worker, seconds):
        return subprocess.Popen([PROGRAM, cls.url, str(worker), str(seconds)], env=cls.environment,
                                stdout=subprocess.PIPE, text=True)

    def rows(self, statement):
        return self.database.execute(statement).fetchall()

    def test_both_ended_well_and_both_came_through(self):
        self.assertEqual(self.exit_codes, [0, 0])
        for calls in self.calls:
            for kind in ("draw", "search"):
                answers = [call[-1] for call in calls if call[0] == kind]
                print(f"{kind}: {answers.count('True')} True, {answers.count('False')} False")
                self.assertIn("True", answers)
                self.assertLessEqual(set(answers), {"True", "False"})

    def test_every_acknowledged_draw_is_there_whole(self):
        acknowledged = {}
        for calls in self.calls:
            for call in calls:
                if call[0] == "draw" and call[-1] == "True":
                    acknowledged[call[1]] = int(call[2])
        held = {}
        for date, contest, wheel, *numbers in self.rows(
                "SELECT dtEstr,concorsoNumero,ruota,estr1,estr2,estr3,estr4,estr5 FROM storico ORDER BY id"):
            held.setdefault((date, contest), []).append((wheel, numbers))
        self.assertEqual(sorted(held), sorted(acknowledged.items()))
        for (_, contest), draw in held.items():
            self.assertEqual([wheel for wheel, _ in draw], WHEELS)
            drawn = [number for _, numbers in draw for number in numbers]
            self.assertEqual(drawn, [(i + contest - 1) % 90 + 1 for i in range(55)])

    def test_exactly_the_acknowledged_searches_are_there(self):
        acknowledged = [call[1] for calls in self.calls for call in calls if call[0] == "search" and call[-1] == "True"]
        self.assertEqual(sorted(name for name, in self.rows("SELECT descRicerca FROM tRicerche")), sorted(acknowledged))

    def test_keys_are_unique(self):
        for table, key in (("storico", "id"), ("tRicerche", "idRicerca")):
            self.assertEqual(self.rows(f"SELECT {key} FROM {table} GROUP BY {key} HAVING count(*)>1"), [])

    def test_the_file_is_sound(self):
        self.assertEqual(self.rows("PRAGMA integrity_check"), [("ok",)])


if __name__ == "__main__":
    if len(sys.argv) > 1:
        SECONDS = int(sys.argv.pop())
    unittest.main(verbosity=2)
