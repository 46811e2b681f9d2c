"""copy and doctor, end to end. VESTARA_PROGRAM is the command line. VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB are
URLs of databases that the tests may empty; without them their tests are skipped."""

import contextlib
import itertools
import json
import os
import shutil
import signal
import sqlite3
import subprocess
import time
import unittest

from command_line_test import DATABASE, OK, PROGRAM, USAGE, CommandLine

INTERRUPTED = 130
TABLES = {"storico": "id", "tRicerche": "idRicerca", "tSistemi": "idSis", "tSistemaDetail": "id", "ruote": "enumeratore"}
TEXTS = ["", " ", "it's", "\\", "\\'", "a\\\\b''c", "\"x\" `y` [z] -- /* ? %s $1 :p", "perchè € 𝄞", "two\nlines\tand\r\n",
         "trailing  ", "NULL", "2005-02-09", "5", "x" * 5000]


class Contents(dict):
    """The rows of every table."""


class Archives(CommandLine):
    def setUp(self):
        super().setUp()
        self.addTypeEqualityFunc(Contents, self.assert_same_rows)

    def assert_same_rows(self, left, right, msg=None):
        """Shows the first rows that differ: the whole difference of two archives takes minutes to print."""
        for table in left:
            pairs = itertools.zip_longest(left[table], right[table])
            self.assertIsNone(next((pair for pair in pairs if pair[0] != pair[1]), None), msg or table)

    def url(self, name):
        return f"sqlite:{self.folder / name}"

    def sql(self, name, statement, *values):
        with contextlib.closing(sqlite3.connect(self.folder / name)) as database:
            rows = database.execute(statement, *values).fetchall()
            database.commit()
            return rows

    def everything(self, name):
        return Contents((table, self.sql(name, f"SELECT * FROM {table} ORDER BY {key}"))
                        for table, key in (TABLES | {"vestara_manual_draws": "dtEstr"}).items())

    def make(self, name, last="2006-12-31", seed=1):
        """Draws, and in every other table whatever could go wrong on its way."""
        other = ["--db", self.url(name)]
        self.expect(OK, *other, "import", self.write("draws.txt", self.generated(seed, "2004-01-01", last)))
        with contextlib.closing(sqlite3.connect(self.folder / name)) as database:
            database.execute("UPDATE storico SET estr1=NULL,estr2=0,concorsoNumero=NULL WHERE id=5")
            database.execute("UPDATE storico SET id=1500000000 WHERE id=6")
            database.execute("CREATE TABLE vestara_manual_draws(dtEstr DATE NOT NULL PRIMARY KEY)")
            database.execute("INSERT INTO vestara_manual_draws SELECT DISTINCT dtEstr FROM storico WHERE id<40")
            database.executemany("INSERT INTO tRicerche VALUES(?,?,?,?,?,?,?,?)",
                                 [(10 * i, text, text, i - 7, None, None, "1871-01-07", "2005-02-09")
                                  for i, text in enumerate(TEXTS, 1)])
            database.executemany("INSERT INTO tSistemi VALUES(?,?,?,?,?,?,?,?,?)",
                                 [(i, text, text, text, 32767, -32768, None, 0, text) for i, text in enumerate(TEXTS, 1)])
            database.executemany("INSERT INTO tSistemaDetail VALUES(?,?,?)",
                                 [(3 * i, i % len(TEXTS) + 1, f"{i},'\\") for i in range(1, 2501)])
            database.commit()

    def make_damaged(self, name):
        """Every row can be read, but an index has other keys than its table."""
        self.make(name)
        self.sql(name, "CREATE INDEX lies ON storico(estr1)")
        with contextlib.closing(sqlite3.connect(self.folder / name)) as database:
            database.execute("PRAGMA writable_schema=ON")
            database.execute("UPDATE sqlite_master SET sql='CREATE INDEX lies ON storico(estr2)' WHERE name='lies'")
            database.commit()

    def copy(self, source, target, *more, code=OK):
        done = self.expect(code, "--format", "json", "copy", "--from", source, "--to", target, *more)
        return {table["table"]: table["rows"] for table in json.loads(done)["tables"]} if done else None

    def doctor(self, url, code=OK):
        """What is wrong; the exit code tells whether anything is."""
        done = self.run_program("--format", "json", "doctor", "--db", url)
        self.assertEqual(done.returncode, code, done.stderr.decode() + done.stdout.decode())
        return {fault["what"]: (fault["count"], fault["example"]) for fault in json.loads(done.stdout)["faults"]}


class Copies(Archives):
    def test_there_and_back(self):
        self.make("a")
        counts = self.copy(self.url("a"), self.url("b"))
        self.assertEqual(counts["tRicerche"], len(TEXTS))
        self.assertEqual(counts["tSistemaDetail"], 2500)
        self.assertEqual(self.everything("b"), self.everything("a"))
        self.copy(self.url("b"), self.url("c"))
        self.assertEqual(self.everything("c"), self.everything("a"))
        self.assertEqual(list(self.doctor(self.url("c"), DATABASE)), ["rows without a contest number"])

    def test_progress_is_for_terminals(self):
        self.make("a")
        shown = self.on_terminal("copy", "--from", self.url("a"), "--to", self.url("b"), stream="stderr")
        self.assertIn(b"\rcopy [", shown)
        self.assertIn(b"] 100%", shown)
        self.assertTrue(shown.endswith(b"\r\033[K"), shown)

    def test_a_source_that_is_only_readable(self):
        self.make("a")
        before = (self.folder / "a").read_bytes()
        self.copy(self.url("a") + "?mode=ro", self.url("b"))
        self.assertEqual(self.everything("b"), self.everything("a"))
        self.assertEqual((self.folder / "a").read_bytes(), before)

    def test_a_target_in_use(self):
        self.make("a")
        self.copy(self.url("a"), self.url("b"))
        before = self.everything("b")
        with contextlib.closing(sqlite3.connect(self.folder / "b")) as database:
            database.execute("BEGIN IMMEDIATE")
            self.copy(self.url("a"), self.url("b") + "?timeout=50", "--replace", code=DATABASE)
        self.assertEqual(self.everything("b"), before)

    def test_a_target_whose_tables_are_others(self):
        self.make("a")
        self.sql("b", "CREATE TABLE tRicerche(idRicerca INTEGER PRIMARY KEY)")
        for words in ([], ["--replace"]):
            self.copy(self.url("a"), self.url("b"), *words, code=DATABASE)
            self.assertRegex(self.errors, "the archive sqlite:.*b cannot be copied to: .*tRicerche")
        self.assertEqual(self.sql("b", "SELECT count(*) FROM storico"), [(0,)])

    def test_the_copy_numbers_on(self):
        self.make("a")
        self.copy(self.url("a"), self.url("b"))
        saved = self.summary("--db", self.url("b"), "saved", "save", "5,12", "--name", "new")
        self.assertEqual(saved["id"], 10 * len(TEXTS) + 1)


class Damaged(Archives):
    def test_the_doctor_finds_damage_that_no_row_shows(self):
        self.make_damaged("a")
        faults = self.doctor(self.url("a"), DATABASE)
        self.assertEqual([what for what in faults if "damaged" in what], ["the archive's file is damaged"])
        count, example = faults["the archive's file is damaged"]
        self.assertGreater(count, 0)
        self.assertIn("index lies", example)


class Ends(Archives):
    """A copy that is ended from outside leaves the old contents or the new ones."""

    def setUp(self):
        super().setUp()
        self.make("new", last="2026-12-31", seed=2)
        self.make("old")
        shutil.copyfile(self.folder / "old", self.folder / "kept")
        self.old, self.new = self.everything("old"), self.everything("new")
        self.copy(self.url("new"), self.url("whole"))
        self.new = self.everything("whole")

    def copy_for(self, seconds, ending):
        for file in self.folder.glob("old*"):
            file.unlink()
        shutil.copyfile(self.folder / "kept", self.folder / "old")
        command = [PROGRAM, "copy", "--from", self.url("new"), "--to", self.url("old"), "--replace"]
        with subprocess.Popen(command, env=self.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL) as process:
            time.sleep(seconds)
            process.send_signal(ending)
            return process.wait()

    def usual_time(self):
        start = time.monotonic()
        self.copy(self.url("new"), self.url("other"))
        return time.monotonic() - start

    def test_old_or_new(self):
        whole = self.usual_time()
        for ending in (signal.SIGKILL, signal.SIGINT):
            codes = set()
            for eighth in range(1, 9):
                code = self.copy_for(whole * eighth / 8, ending)
                codes.add(code)
                held = self.everything("old")
                self.assertTrue(held in (self.old, self.new))
                if code == OK:
                    self.assertTrue(held == self.new)
                if code == INTERRUPTED:
                    self.assertTrue(held == self.old)
            self.assertIn(INTERRUPTED if ending == signal.SIGINT else -ending, codes)


class OnServer:
    """Runs against the server whose URL a variable names. Every test begins with empty tables."""

    variable = ""

    def setUp(self):
        super().setUp()
        self.server = os.environ.get(self.variable)
        if not self.server:
            self.skipTest(f"{self.variable} names no server")
        (self.folder / "empty").touch()
        self.expect(OK, "--db", self.url("empty"), "call", "Dorvane.DbConnector", "CreateSchema")
        self.copy(self.url("empty"), self.server, "--replace")

    def test_there_and_back(self):
        self.make("a")
        self.copy(self.url("a"), self.server)
        self.assertEqual(list(self.doctor(self.server, DATABASE)), ["rows without a contest number"])
        self.copy(self.server, self.url("b"))
        self.assertEqual(self.everything("b"), self.everything("a"))

    def test_high_keys_stay(self):
        self.make("a")
        self.sql("a", "UPDATE storico SET id=id+1200000000 WHERE id<900000000")
        self.copy(self.url("a"), self.server)
        self.copy(self.server, self.url("b"))
        self.assertEqual(self.everything("b"), self.everything("a"))

    def test_the_same_archive(self):
        self.copy(self.server, self.server, "--replace", code=USAGE)
        self.assertIn("are the same archive", self.errors)

    def test_it_is_not_empty(self):
        self.make("a")
        self.copy(self.url("a"), self.server)
        self.copy(self.url("a"), self.server, code=USAGE)
        self.assertIn("holds draws already", self.errors)
        self.copy(self.url("a"), self.server, "--replace")
        self.copy(self.server, self.url("b"))
        self.assertEqual(self.everything("b"), self.everything("a"))

    def test_new_rows_come_behind(self):
        self.make("a")
        self.copy(self.url("a"), self.server)
        saved = self.summary("--db", self.server, "saved", "save", "5,12", "--name", "new")
        self.assertEqual(saved["id"], 10 * len(TEXTS) + 1)

    def test_a_bad_source_leaves_it_as_it_was(self):
        self.make("a")
        self.copy(self.url("a"), self.server)
        self.make("bad", seed=2)
        self.sql("bad", "UPDATE storico SET dtEstr='2005-02-30' WHERE id=300")
        self.copy(self.url("bad"), self.server, "--replace", code=DATABASE)
        self.assertIn("table storico, key 300: dtEstr holds \"2005-02-30\", which is no date", self.errors)
        self.sql("bad", "UPDATE storico SET dtEstr='2005-02-03' WHERE id=300")
        self.sql("bad", "UPDATE tRicerche SET numeri=CAST(x'61ff62' AS TEXT) WHERE idRicerca=50")
        done = self.run_program("copy", "--from", self.url("bad"), "--to", self.server, "--replace")
        self.assertEqual(done.returncode, DATABASE)
        self.assertIn(b"table tRicerche, key 50: the row is refused: ", done.stderr)
        self.copy(self.server, self.url("b"))
        self.assertEqual(self.everything("b"), self.everything("a"))

    def test_an_end_from_outside(self):
        self.make("old")
        self.make("new", last="2026-12-31", seed=2)
        self.copy(self.url("old"), self.server)
        start = time.monotonic()
        self.copy(self.url("new"), self.url("whole"))
        whole = time.monotonic() - start
        for ending in (signal.SIGINT, signal.SIGKILL):
            command = [PROGRAM, "copy", "--from", self.url("new"), "--to", self.server, "--replace"]
            with subprocess.Popen(command, env=self.environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as process:
                time.sleep(whole / 2)
                process.send_signal(ending)
                code = process.wait()
            self.copy(self.server, self.url("held"), "--replace")
            held = self.everything("held")
            self.assertTrue(held == self.everything("new" if code == OK else "old"), code)

    def test_the_doctor_finds_what_is_wrong(self):
        self.make("a")
        for statement in ("INSERT INTO storico SELECT 1700000000,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero "
                          "FROM storico WHERE id=50",
                          "INSERT INTO storico(id,ruota)VALUES(1700000001,'BA')",
                          "UPDATE storico SET ruota='XX' WHERE id=60",
                          "UPDATE storico SET estr1=91 WHERE id=70",
                          "UPDATE storico SET estr1=estr2 WHERE id=80",
                          "UPDATE storico SET id=2000000000 WHERE id=90",
                          "INSERT INTO tSistemaDetail VALUES(9000,8000,'1,2')",
                          "INSERT INTO vestara_manual_draws VALUES('1999-01-01')"):
            self.sql("a", statement)
        self.copy(self.url("a"), self.server)
        here, there = self.doctor(self.url("a"), DATABASE), self.doctor(self.server, DATABASE)
        self.assertEqual(here, there)
        self.assertEqual({what: count for what, (count, _) in there.items()}, {
            "rows of one date, wheel and contest more than once": 1,
            "rows without a date or a wheel": 1,
            "wheels in storico that ruote does not have": 1,
            "rows with a number outside 0 to 90": 1,
            "rows with a number twice": 1,
            "rows without a contest number": 1,
            "keys of storico near the end of 32 bits": 1,
            "combinations without their system": 1,
            "draws marked as entered by hand that are not there": 1,
        })


class OnPostgresql(OnServer, Archives):
    variable = "VESTARA_TEST_POSTGRESQL"


class OnMariadb(OnServer, Archives):
    variable = "VESTARA_TEST_MARIADB"

    def test_from_the_other_server(self):
        other = os.environ.get("VESTARA_TEST_POSTGRESQL")
        if not other:
            self.skipTest("VESTARA_TEST_POSTGRESQL names no server")
        self.make("a")
        self.copy(self.url("a"), other, "--replace")
        self.copy(other, self.server)
        self.copy(self.server, self.url("b"))
        self.assertEqual(self.everything("b"), self.everything("a"))


if __name__ == "__main__":
    unittest.main()
