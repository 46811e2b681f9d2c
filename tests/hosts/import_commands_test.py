"""import, end to end: what may go, what is joined, what is kept of it. VESTARA_PROGRAM is the command line.
VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB are URLs of databases that the tests may empty; without them their
tests are skipped."""

import contextlib
import gzip
import os
import pathlib
import resource
import sqlite3
import subprocess
import unittest

from command_line_test import FILE, OK, PROGRAM, REAL_ARCHIVE, USAGE, CommandLine

HEADER = "date,wheel,n1,n2,n3,n4,n5\n"
OTHER_ENGINES = {name.rsplit("_", 1)[1].capitalize(): url for name, url in os.environ.items()
                 if name in ("VESTARA_TEST_POSTGRESQL", "VESTARA_TEST_MARIADB")}


def changed(tsv, place):
    """The same rows, the first number of one of them another."""
    lines = tsv.splitlines(keepends=True)
    fields = lines[place].split(b"\t")
    fields[2] = next(number for number in (b"1", b"2", b"3", b"4", b"5", b"6") if number not in
                     [field.strip() for field in fields[2:]])
    return b"".join(lines[:place] + [b"\t".join(fields)] + lines[place + 1:])


class Imports(CommandLine):
    database = None

    def setUp(self):
        super().setUp()
        self.data = self.folder / "data"
        self.environment["XDG_DATA_HOME"] = str(self.data)
        if self.database:
            self.environment["VESTARA_DB"] = self.database
            source = f"sqlite:{self.folder / 'empty.sqlite'}"
            self.expect(OK, "--db", source, "import", "-", stdin=(HEADER + "1871-01-07,VE,1,2,3,4,5\n").encode())
            self.expect(OK, "--db", source, "draw", "delete", "1871-01-07", "--yes")
            self.expect(OK, "copy", "--replace", "--from", source, "--to", self.database)

    def held(self):
        return self.expect(OK, "export", "--as", "tsv").encode()

    def backups(self):
        """What was kept, oldest first."""
        folder = self.data / "vestara" if self.database else self.folder
        return sorted(path for path in folder.glob("*.removed-*")) if folder.is_dir() else []

    def figures(self, done):
        return tuple(done[name] for name in ("result", "added", "changed", "gone", "kept"))

    def whole(self):
        """A file of two years, its second half, and how many rows the halves have."""
        tsv = self.generated(1, "2004-01-01", "2005-12-31")
        lines = tsv.splitlines(keepends=True)
        middle = next(i for i, line in enumerate(lines) if line.startswith(b"2005"))
        return tsv, b"".join(lines[middle:]), middle, len(lines) - middle


class WhatGoes(Imports):
    def test_nothing_goes_unasked(self):
        tsv, later, before, after = self.whole()
        self.expect(OK, "import", "-", stdin=tsv)
        one_row = tsv.splitlines(keepends=True)[5]
        earlier = b"".join(tsv.splitlines(keepends=True)[:before])
        for file, first, last in ((one_row, "2004-01-03", "2005-12-31"), (earlier, "2005-01-01", "2005-12-31")):
            for flags in ([], ["--dry-run"]):
                self.expect(FILE, "import", *flags, "-", stdin=file)
                rows = tsv.count(b"\n") - file.count(b"\n")
                self.assertIn(f"nothing was changed: {rows} rows of {first} to {last} would go", self.errors)
                self.assertIn("vestara import --add - keeps everything and adds what is new", self.errors)
                self.assertRegex(self.errors, r"\n  200[45]-01-0\d, \d+ rows\n")
                self.assertIn("\n  and ", self.errors)
                self.assertEqual(self.held(), tsv)
        self.assertEqual(self.backups(), [])

    def test_a_file_that_begins_later_is_joined(self):
        tsv, later, before, after = self.whole()
        lines = tsv.splitlines(keepends=True)
        newest = lines[-1].split(b"\t")[0]
        older = b"".join(line for line in lines if not line.startswith(newest))
        new_rows = len(lines) - older.count(b"\n")
        self.expect(OK, "import", "-", stdin=older)
        done = self.summary("import", "-", stdin=later)
        self.assertEqual(self.figures(done), ("joined", new_rows, 0, 0, before))
        self.assertIn(f"agrees with it on {after - new_rows} rows; {before} rows that it does not have stay",
                      self.errors)
        self.assertEqual((self.held(), self.backups()), (tsv, []))
        contests = self.expect(OK, "export", "--contest").splitlines()
        place = len({line.split(b"\t")[0] for line in later.splitlines()})
        self.assertEqual(contests[-1].split(",")[1], str(place))
        self.assertEqual(self.figures(self.summary("import", "-", stdin=later)), ("joined", 0, 0, 0, before))

    def test_a_later_file_that_differs_is_refused(self):
        tsv, later, _, after = self.whole()
        self.expect(OK, "import", "-", stdin=tsv)
        other = changed(later, after // 2)
        old, new = later.splitlines()[after // 2].split(b"\t"), other.splitlines()[after // 2].split(b"\t")
        for words in ([], ["--add"]):
            self.expect(FILE, "import", *words, "-", stdin=other)
            self.assertIn(f"\n  {old[0].decode().replace('/', '-')} {old[1].decode()} {b' '.join(old[2:]).decode()} -> "
                          f"{b' '.join(new[2:]).decode()}\n", self.errors)
            self.assertIn("vestara import --replace - takes the file's rows", self.errors)
            self.assertEqual(self.held(), tsv)

    def test_add(self):
        tsv, later, before, after = self.whole()
        lines = tsv.splitlines(keepends=True)
        self.expect(OK, "import", "-", stdin=b"".join(lines[20:40]))
        self.expect(FILE, "import", "-", stdin=b"".join(lines[30:60]))
        for flags in (["--dry-run"], []):
            done = self.summary("import", "--add", *flags, "-", stdin=b"".join(lines[30:60]))
            self.assertEqual(self.figures(done)[1:], (20, 0, 0, 10))
        self.assertEqual(self.held(), b"".join(lines[20:60]))
        done = self.summary("import", "--add", "-", stdin=tsv)
        self.assertEqual(self.figures(done), ("imported", len(lines) - 40, 0, 0, 0))
        self.assertEqual((self.held(), self.backups()), (tsv, []))

    def test_replace_keeps_what_it_removes(self):
        tsv, later, before, after = self.whole()
        self.expect(OK, "import", "-", stdin=tsv)
        other = changed(later, 3)
        for place in range(5):
            done = self.summary("import", "--replace", "-", stdin=other)
            self.assertEqual(self.figures(done), ("imported", 0, 1, before, 0))
            self.assertEqual(self.held(), other)
            kept = pathlib.Path(done["backup"])
            self.assertEqual(kept.stat().st_mode & 0o777, 0o600)
            self.assertEqual(self.backups()[-1], kept)
            self.assertEqual(len(self.backups()), min(place + 1, 3))
            done = self.summary("import", "--add", kept, code=None)
            self.assertIn("would change", self.errors)
            done = self.summary("import", "--replace", "--no-backup", "-", stdin=later)
            self.assertIsNone(done["backup"])
            self.assertEqual(self.figures(self.summary("import", "--add", kept))[1:], (before, 0, 0, after - 1))
            self.assertEqual(self.held(), tsv)

    def summary(self, *arguments, code=OK, **more):
        """Any outcome with `code` None."""
        if code is not None:
            return super().summary(*arguments, code=code, **more)
        self.errors = self.run_program(*arguments, **more).stderr.decode()
        return None


class OnSqlite(Imports):
    def test_replace_asks_at_a_terminal(self):
        tsv, later, before, after = self.whole()
        other, more = changed(tsv, 3), tsv + later.splitlines()[-1].replace(b"2005/", b"2006/") + b"\n"
        rows = before + after
        for file, gone, change, answer, words, code in (
                (later, before, 0, "n\n", [], USAGE), (later, before, 0, "\n", [], USAGE),
                (later, before, 0, "y\n", [], OK), (later, None, None, "n\n", ["--yes"], OK),
                (later, None, None, "n\n", ["--dry-run"], None), (other, 0, 1, "n\n", [], USAGE),
                (other, 0, 1, "y\n", [], OK), (changed(later, 3), before, 1, "n\n", [], USAGE),
                (tsv, None, None, "n\n", [], OK), (more, None, None, "n\n", [], OK)):
            held = file if code == OK else tsv
            code = code or OK
            name = self.write("file.txt", file)
            self.expect(OK, "import", "--replace", "-", stdin=tsv)
            self.assertEqual(self.held(), tsv)
            done, shown = self.answering(answer, "import", "--replace", *words, name)
            self.assertEqual(done, code, shown)
            question = f"vestara: replace {rows} rows, of which {gone} go and {change} change? [y/N] "
            self.assertEqual((question in shown, "[y/N]" in shown), (gone is not None,) * 2, shown)
            self.assertEqual(self.held(), held)

    def test_without_room_for_what_goes_nothing_goes(self):
        tsv, later, _, _ = self.whole()
        self.expect(OK, "import", "-", stdin=tsv)
        # Names that are too long to be given one more ending.
        deep = self.folder / ("x" * 240)
        self.archive.rename(deep)
        self.environment["VESTARA_DB"] = f"sqlite:{deep}"
        self.expect(FILE, "import", "--replace", "-", stdin=later)
        self.assertIn(", nothing was changed; --no-backup does without", self.errors)
        self.assertEqual(self.held(), tsv)
        self.expect(OK, "import", "--replace", "--no-backup", "-", stdin=later)
        self.assertEqual(self.held(), later)

    def test_rows_that_no_file_of_draws_can_hold_are_kept_beside(self):
        tsv, later, before, after = self.whole()
        self.expect(OK, "import", "-", stdin=tsv)
        with contextlib.closing(sqlite3.connect(self.archive)) as database:
            database.execute("UPDATE storico SET estr1=NULL WHERE id=1")
            database.execute("INSERT INTO storico SELECT 900000,dtEstr,ruota,11,12,13,14,15,concorsoNumero "
                             "FROM storico WHERE id=2")
            database.commit()
        done = self.summary("import", "--replace", "-", stdin=later)
        self.assertEqual((done["gone"], done["held_before"]), (before + 1, before + after + 1))
        self.assertIn("\n  1 row without a whole draw\n", self.errors)
        kept = pathlib.Path(done["backup"])
        self.assertEqual(kept.read_text().count("\n"), before)
        rest = pathlib.Path(str(kept).replace(".csv", ".rest.csv")).read_text()
        self.assertEqual(rest.count("\n"), 2, rest)
        self.expect(OK, "import", "--add", kept)

    def test_rows_without_a_draw_go_alone(self):
        """Nothing but rows that are no draw goes: they are kept all the same, and only where they go."""
        tsv = self.generated()
        self.expect(OK, "import", "-", stdin=tsv)
        for change, row in (("dtEstr=NULL", ",BA,11,12,13,14,15,77"), ("ruota=NULL", "2099-01-01,,11,12,13,14,15,77"),
                            ("ruota='XX'", "2099-01-01,XX,11,12,13,14,15,77"),
                            ("estr5=NULL", "2099-01-01,BA,11,12,13,14,,77"),
                            ("estr1=0", "2099-01-01,BA,0,12,13,14,15,77"),
                            ("estr1=91", "2099-01-01,BA,91,12,13,14,15,77")):
            with self.subTest(change=change), contextlib.closing(sqlite3.connect(self.archive)) as database:
                database.execute("INSERT INTO storico VALUES(900000,'2099-01-01','BA',11,12,13,14,15,77)")
                database.execute(f"UPDATE storico SET {change} WHERE id=900000")
                database.commit()
                before = self.backups()
                for words in (["--add"], ["--replace", "--dry-run"], []):
                    self.assertIsNone(self.summary("import", *words, "-", stdin=tsv)["backup"])
                done = self.summary("import", "--replace", "--yes", "-", stdin=tsv)
                self.assertEqual(self.figures(done), ("imported", 0, 0, 1, 0))
                kept = pathlib.Path(done["backup"])
                self.assertEqual(kept.read_text(), "date,contest,wheel,n1,n2,n3,n4,n5\n")
                rest = pathlib.Path(str(kept).replace(".csv", ".rest.csv"))
                self.assertEqual(len(set(self.backups()) - set(before)), 2)
                self.assertEqual(rest.read_text(), row + "\n")
                self.assertIsNone(self.summary("import", "--replace", "--yes", "-", stdin=tsv)["backup"])

    def test_options_that_exclude_each_other(self):
        self.expect(USAGE, "import", "--add", "--replace", "x")
        self.assertIn("--add and --replace exclude each other", self.errors)


class Sources(Imports):
    def test_gzip(self):
        tsv = self.generated()
        packed = gzip.compress(tsv)
        for name, stdin in (("-", packed), (self.write("a.txt.gz", packed), b"")):
            self.assertEqual(self.summary("import", name, stdin=stdin)["read"], tsv.count(b"\n"))
        self.assertEqual(self.held(), tsv)
        for broken in (packed[:-9], packed[:len(packed) // 2], packed[:-6] + b"xx" + packed[-4:]):
            self.expect(FILE, "import", "-", stdin=broken)
            self.assertIn("the gzip file is damaged or cut off", self.errors)

    def test_more_than_the_limit(self):
        stars = self.write("stars.gz", gzip.compress(b"*" * (256 << 20 | 1), 1))
        for words, stdin in (([stars], None), (["-"], "pipe")):
            if stdin:
                endless = ["head", "-c", str((256 << 20) + 1), "/dev/zero"]
                with subprocess.Popen(endless, stdout=subprocess.PIPE) as zeros:
                    done = subprocess.run([PROGRAM, "import", "-"], env=self.environment, stdin=zeros.stdout,
                                          capture_output=True, check=False)
                    zeros.stdout.close()
            else:
                done = self.run_program("import", *words)
            self.assertEqual(done.returncode, FILE)
            self.assertIn(b"holds more than 256 MiB, which is the limit", done.stderr)
        self.assertFalse(self.archive.exists())

    def test_rejects_take_no_memory(self):
        self.expect(FILE, "import", "-", stdin=b"#" + b"*" * 1_000_001)
        self.assertIn("has 1000000 rows in error, nothing was changed", self.errors)
        self.assertIn("line 1: 2 fields where 9 are needed", self.errors)
        self.assertEqual(len(self.errors.splitlines()), 22)

    def test_a_process_without_descriptors_says_so(self):
        file = self.write("draws.txt", self.generated())
        for most in range(4, 20):
            done = self.run_program("import", file, preexec_fn=lambda limit=most: resource.setrlimit(
                resource.RLIMIT_NOFILE, (limit, limit)))
            if done.returncode == OK:
                break
            self.assertIn(b"too many files are open, in this process or on this machine", done.stderr.lower())
        self.assertEqual(self.held(), file.read_bytes())

    def test_a_process_without_memory_says_so(self):
        if b"libasan" in pathlib.Path(PROGRAM).read_bytes():
            self.skipTest("the sanitizers take memory of their own")
        file = self.write("draws.txt", b"".join(self.generated(seed, "1871-01-07", "2020-12-31") for seed in range(2)))
        said = set()
        for megabytes in range(24, 200, 4):
            limit = megabytes << 20
            done = self.run_program("import", file, preexec_fn=lambda bytes=limit: resource.setrlimit(
                resource.RLIMIT_AS, (bytes, bytes)))
            said.add(done.stderr.split(b",")[0])
        self.assertIn(b"vestara: there is not enough memory for this", said)
        self.assertFalse([text for text in said if b"bad_alloc" in text], said)

@unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
class RealArchive(Imports):
    def test_the_weekly_step(self):
        lines = REAL_ARCHIVE.read_bytes().splitlines(keepends=True)
        newest = lines[-1].split(b",")[0]
        self.expect(OK, "import", "-", stdin=b"".join(line for line in lines if not line.startswith(newest)))
        later = b"".join([lines[0], *(line for line in lines[1:] if line >= b"1939-01-07")])
        done = self.summary("import", "-", stdin=later)
        self.assertEqual(self.figures(done), ("joined", 11, 0, 0, len(lines) - later.count(b"\n")))
        self.assertEqual(self.expect(OK, "export").encode(), REAL_ARCHIVE.read_bytes())


for engine, url in OTHER_ENGINES.items():
    globals()["WhatGoesOn" + engine] = type("WhatGoesOn" + engine, (WhatGoes,), {"database": url})


if __name__ == "__main__":
    unittest.main(verbosity=2)
