"""backup and restore, end to end, while others read and write and while they are killed. VESTARA_PROGRAM is the command
line. VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB are URLs of databases that the tests may empty."""

import contextlib
import os
import shutil
import signal
import sqlite3
import subprocess
import threading
import time
import unittest

from command_line_test import DATABASE, FILE, OK, PROGRAM, USAGE
from copy_commands_test import TEXTS, Archives


class Backups(Archives):
    def backup(self, url, name, *more, code=OK):
        return self.expect(code, "backup", self.folder / name, "--db", url, *more)

    def restore(self, url, name, *more, code=OK):
        return self.expect(code, "restore", self.folder / name, "--db", url, *more)

    def parts(self):
        return [path.name for path in self.folder.iterdir() if "-part-" in path.name]


class RoundTrip(Backups):
    def test_there_and_back(self):
        self.make("a")
        before = self.everything("a")
        self.assertIn("backed up", self.backup(self.url("a"), "kept"))
        self.assertEqual(self.everything("kept"), before)
        self.assertEqual(sorted(path.name for path in self.folder.glob("kept*")), ["kept"])
        self.assertEqual((self.folder / "kept").stat().st_mode & 0o777, 0o666 & ~self.mask())
        self.sql("a", "DELETE FROM storico")
        self.sql("a", "DELETE FROM tSistemi WHERE idSis>3")
        self.sql("a", "DELETE FROM vestara_manual_draws")
        self.restore(self.url("a"), "kept", "--yes")
        self.assertEqual(self.everything("a"), before)
        self.restore(self.url("new"), "kept")  # nobody is asked about an archive that holds nothing
        self.assertEqual(self.everything("new"), before)
        saved = self.summary("--db", self.url("new"), "saved", "save", "5,12", "--name", "new")
        self.assertEqual(saved["id"], 10 * len(TEXTS) + 1)
        self.assertEqual(self.parts(), [])

    @staticmethod
    def mask():
        mask = os.umask(0)
        os.umask(mask)
        return mask

    def test_a_read_only_backup(self):
        self.make("a")
        before = self.everything("a")
        self.backup(self.url("a") + "?mode=ro", "kept")
        (self.folder / "kept").chmod(0o444)
        self.restore(self.url("b"), "kept")
        self.assertEqual(self.everything("b"), before)

    def test_what_is_there_is_asked_about(self):
        self.make("a")
        self.backup(self.url("a"), "kept")
        kept = (self.folder / "kept").read_bytes()
        self.sql("a", "DELETE FROM storico WHERE id>100")
        held = self.everything("a")
        self.backup(self.url("a"), "kept", code=USAGE)
        self.assertIn(f"whether to replace {self.folder / 'kept'}, nothing was changed; --yes ", self.errors)
        self.assertEqual((self.folder / "kept").read_bytes(), kept)
        self.restore(self.url("a"), "kept", code=USAGE)
        self.assertRegex(self.errors, r"whether to replace the \d+ rows of sqlite:.* by those of .*, nothing was changed; ")
        self.assertEqual(self.everything("a"), held)
        for answer, code, expected in (("n\n", USAGE, held), ("y\n", OK, None)):
            words = ["restore", self.folder / "kept", "--db", self.url("a")]
            self.assertEqual(self.answering(answer, *words)[0], code)
            self.assertEqual(self.everything("a"), expected or self.everything("kept"))
        self.backup(self.url("a"), "kept", "--yes")

    def test_what_is_no_backup(self):
        self.make("a")
        before = self.everything("a")
        self.write("text", "no database" * 200)
        self.write("empty", "")
        self.sql("other", "CREATE TABLE things(id)")
        self.backup(self.url("a"), "damaged")
        with open(self.folder / "damaged", "r+b") as file:
            file.seek(3 * 4096)
            file.write(b"\xff" * 8192)
        for name, code in (("none", FILE), ("text", DATABASE), ("empty", DATABASE), ("other", DATABASE),
                           ("damaged", DATABASE), ("a", USAGE), (".", FILE)):
            with self.subTest(name=name):
                self.restore(self.url("a"), name, "--yes", code=code)
                self.assertEqual(self.everything("a"), before)
        self.backup(self.url("a"), "a", "--yes", code=USAGE)
        self.backup(self.url("a"), "no/such/folder", code=FILE)
        self.assertEqual(self.everything("a"), before)

    def test_an_archive_whose_tables_are_others(self):
        self.make("a")
        self.backup(self.url("a"), "kept")
        self.sql("b", "CREATE TABLE tRicerche(idRicerca INTEGER PRIMARY KEY)")
        for form, step in (("restored", self.restore), ("backed up", self.backup)):
            step(self.url("b"), "kept", "--yes", code=DATABASE)
            self.assertRegex(self.errors, f"the archive sqlite:.*b cannot be {form}: .*tRicerche")
        self.assertEqual(self.everything("kept"), self.everything("a"))

    def test_damage_that_no_row_shows(self):
        self.make("a")
        before = self.everything("a")
        self.make_damaged("damaged")
        self.restore(self.url("a"), "damaged", "--yes", code=DATABASE)
        self.assertRegex(self.errors, "damaged is damaged, nothing was changed: .*index lies")
        self.assertEqual(self.everything("a"), before)
        self.backup(self.url("damaged"), "kept", code=DATABASE)
        self.assertIn("the backup of sqlite:", self.errors)
        self.assertFalse((self.folder / "kept").exists())
        self.assertEqual(self.parts(), [])

    def test_a_value_that_does_not_fit_leaves_everything(self):
        self.make("a")
        self.backup(self.url("a"), "kept")
        self.sql("kept", "UPDATE storico SET dtEstr='2005-02-30' WHERE id=300")
        before = self.everything("a")
        self.restore(self.url("a"), "kept", "--yes", code=DATABASE)
        self.assertIn("table storico, key 300: dtEstr holds \"2005-02-30\", which is no date", self.errors)
        self.assertEqual(self.everything("a"), before)


class Others(Backups):
    """Other programs that use the archive meanwhile."""

    def test_a_backup_while_others_write(self):
        self.make("a")
        self.sql("a", "DELETE FROM storico")
        done = threading.Event()

        def write():
            with contextlib.closing(sqlite3.connect(self.folder / "a", timeout=60)) as database:
                key = 0
                while not done.is_set():
                    key += 2
                    database.execute("INSERT INTO storico(id,estr1)VALUES(?,1),(?,1)", (key, key + 1))
                    database.commit()

        writer = threading.Thread(target=write)
        writer.start()
        try:
            counts = []
            for place in range(5):
                self.backup(self.url("a"), f"kept{place}")
                self.assertEqual(self.sql(f"kept{place}", "PRAGMA integrity_check"), [("ok",)])
                ((rows,),) = self.sql(f"kept{place}", "SELECT count(*) FROM storico")
                self.assertEqual(rows % 2, 0)
                counts.append(rows)
        finally:
            done.set()
            writer.join()
        self.assertEqual(counts, sorted(counts))
        self.assertGreater(counts[-1], counts[0])

    def test_a_restore_while_others_read(self):
        self.make("a")
        self.backup(self.url("a"), "kept")
        self.sql("a", "UPDATE storico SET estr1=7")
        with contextlib.closing(sqlite3.connect(self.folder / "a")) as database:
            reading = database.execute("SELECT estr1 FROM storico")
            self.assertEqual(next(reading), (7,))
            self.restore(self.url("a"), "kept", "--yes")
            self.assertEqual({row[0] for row in reading}, {7})
        self.assertEqual(self.everything("a"), self.everything("kept"))

    def test_a_restore_while_somebody_writes(self):
        self.make("a")
        self.backup(self.url("a"), "kept")
        before = self.everything("a")
        with contextlib.closing(sqlite3.connect(self.folder / "a")) as database:
            database.execute("BEGIN IMMEDIATE")
            self.restore(self.url("a") + "?timeout=50", "kept", "--yes", code=DATABASE)
        self.assertEqual(self.everything("a"), before)


class Ends(Backups):
    def test_old_or_new(self):
        self.make("old")
        self.make("new", last="2026-12-31", seed=2)
        self.backup(self.url("new"), "backup")
        shutil.copyfile(self.folder / "old", self.folder / "safe")
        old, new = self.everything("old"), self.everything("backup")
        start = time.monotonic()
        self.restore(self.url("other"), "backup")
        whole = time.monotonic() - start
        for eighth in range(1, 9):
            for file in self.folder.glob("old*"):
                file.unlink()
            shutil.copyfile(self.folder / "safe", self.folder / "old")
            words = [PROGRAM, "restore", str(self.folder / "backup"), "--db", self.url("old"), "--yes"]
            with subprocess.Popen(words, env=self.environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as process:
                time.sleep(whole * eighth / 8)
                process.send_signal(signal.SIGKILL if eighth % 2 else signal.SIGINT)
                code = process.wait()
            held = self.everything("old")
            self.assertTrue(held in (old, new))
            self.assertTrue(code != OK or held == new)

    def test_a_backup_that_is_ended(self):
        self.make("new", last="2026-12-31")
        self.write("kept", "before")
        start = time.monotonic()
        self.backup(self.url("new"), "other")
        whole = time.monotonic() - start
        for sixth, ending in enumerate((signal.SIGKILL, signal.SIGTERM) * 3, 1):
            words = [PROGRAM, "backup", str(self.folder / "kept"), "--db", self.url("new"), "--yes"]
            with subprocess.Popen(words, env=self.environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as process:
                time.sleep(whole * sixth / 7)
                process.send_signal(ending)
                code = process.wait()
            if code == OK:
                self.assertEqual(self.everything("kept"), self.everything("new"))
                self.write("kept", "before")
            self.assertEqual((self.folder / "kept").read_text(), "before")
        self.backup(self.url("new"), "kept", "--yes")
        self.assertEqual(self.parts(), [])
        self.assertEqual(self.everything("kept"), self.everything("new"))


class OnServer:
    variable = ""

    def test_there_and_back(self):
        server = os.environ.get(self.variable)
        if not server:
            self.skipTest(f"{self.variable} names no server")
        self.make("a")
        self.copy(self.url("a"), server, "--replace")
        self.backup(server, "kept")
        self.assertEqual(self.everything("kept"), self.everything("a"))
        self.make("b", seed=2)
        self.copy(self.url("b"), server, "--replace")
        self.restore(server, "kept", code=USAGE)
        self.restore(server, "kept", "--yes")
        self.backup(server, "again")
        self.assertEqual(self.everything("again"), self.everything("a"))


class OnPostgresql(OnServer, Backups):
    variable = "VESTARA_TEST_POSTGRESQL"


class OnMariadb(OnServer, Backups):
    variable = "VESTARA_TEST_MARIADB"


if __name__ == "__main__":
    unittest.main()
