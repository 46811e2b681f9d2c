"""draw and saved, and what an import does with draws entered by hand, end to end. VESTARA_PROGRAM is the command line."""

import contextlib
import datetime
import json
import os
import pathlib
import pty
import shutil
import sqlite3
import subprocess
import time
import unittest

from command_line_test import DATABASE, FILE, NOTHING_FOUND, OK, PROGRAM, REAL_ARCHIVE, USAGE, CommandLine

WHEELS = ["BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"]
HEADER = "date,wheel,n1,n2,n3,n4,n5\n"


def numbers(first, wheel):
    """Five numbers that tell draws and wheels apart."""
    return [(first + wheel + 11 * i) % 90 + 1 for i in range(5)]


def draw_rows(date, first=1, wheels=WHEELS):
    return [",".join([date, name, *map(str, numbers(first, WHEELS.index(name)))]) for name in wheels]


def csv_of(*draws):
    """As the export writes it: by date and wheel code."""
    return HEADER + "".join(row + "\n" for row in sorted(row for draw in draws for row in draw))


def wheel_options(first=1, leave_out=()):
    return [word for wheel, name in enumerate(WHEELS) if name not in leave_out
            for word in ("--" + name, ",".join(map(str, numbers(first, wheel))))]


class Draws(CommandLine):
    def setUp(self):
        super().setUp()
        self.expect(OK, "import", "-", stdin=csv_of(draw_rows("2016-01-03", 1), draw_rows("2016-01-06", 2)).encode())

    def save(self, date, first=1, *more, code=OK):
        done = self.expect(code, "--format", "json", "draw", "save", date, *wheel_options(first), *more)
        return json.loads(done) if done else None

    def contents(self, *more):
        return self.expect(OK, "export", *more)

    def contest(self, date):
        return self.summary("draw", "show", date)["contest"]

    def sql(self, statement):
        with contextlib.closing(sqlite3.connect(self.archive)) as database:
            rows = database.execute(statement).fetchall()
            database.commit()
            return rows

    def marks(self):
        """The dates that count as entered by hand; None without the table."""
        if not self.sql("SELECT 1 FROM sqlite_master WHERE name='vestara_manual_draws'"):
            return None
        return [date for (date,) in self.sql("SELECT dtEstr FROM vestara_manual_draws ORDER BY 1")]

    def answering(self, answer, *arguments):
        """Runs at a terminal where somebody types the answer; returns the exit code and what the terminal shows."""
        ours, theirs = pty.openpty()
        with subprocess.Popen([PROGRAM, *map(str, arguments)], env=self.environment, stdin=theirs, stderr=theirs,
                              stdout=subprocess.DEVNULL) as process:
            os.close(theirs)
            os.write(ours, answer.encode())
            shown = b""
            try:
                while block := os.read(ours, 4096):
                    shown += block
            except OSError:  # the other side is closed
                pass
            code = process.wait()
        os.close(ours)
        return code, shown.decode()


class Show(Draws):
    def test_by_date_and_from_the_end(self):
        expected = {"date": "2016-01-06", "contest": 2,
                    "wheels": [dict(zip(["wheel", "n1", "n2", "n3", "n4", "n5"], [name, *numbers(2, wheel)]))
                               for wheel, name in enumerate(WHEELS)]}
        for words in (["2016-01-06"], ["6/1/2016"], ["--back", 1]):
            self.assertEqual(self.summary("draw", "show", *words), expected)
        self.assertEqual(self.summary("draw", "show", "--back", 2)["date"], "2016-01-03")
        table = self.expect(OK, "draw", "show", "2016-01-03")
        self.assertTrue(table.startswith("date     2016-01-03\ncontest  1\n\nwheel  n1  n2  n3  n4  n5\n"
                                         "BA      2  13  24  35  46\n"), table)
        self.assertEqual(len(table.splitlines()), 4 + len(WHEELS))

    def test_what_is_not_there(self):
        for words in (["2016-01-04"], ["--back", 3]):
            self.assertEqual(self.expect(NOTHING_FOUND, "draw", "show", *words), "")
            self.assertTrue(self.errors.startswith("vestara: the archive "), self.errors)
        self.sql("DELETE FROM storico")
        self.expect(NOTHING_FOUND, "draw", "show", "--back", 1)
        self.assertFalse((self.folder / "ErrVestara.log").exists(), "what is not found is no error")

    def test_only_the_wheels_that_took_part(self):
        self.expect(OK, "import", "--replace", "-", stdin=csv_of(draw_rows("1871-01-07", 3, ["FI", "VE"])).encode())
        self.assertEqual([row["wheel"] for row in self.summary("draw", "show", "1871-01-07")["wheels"]], ["FI", "VE"])
        self.sql("UPDATE storico SET estr1=0,estr2=0,estr3=0,estr4=0,estr5=0 WHERE ruota='FI'")
        self.assertEqual(self.summary("draw", "show", "1871-01-07")["wheels"][0],
                         {"wheel": "FI", "n1": None, "n2": None, "n3": None, "n4": None, "n5": None})

    def test_a_draw_that_cannot_be_read(self):
        self.sql("UPDATE storico SET ruota='XX' WHERE ruota='BA' AND dtEstr='2016-01-06'")
        self.expect(DATABASE, "draw", "show", "2016-01-06")
        self.assertIn("cannot be read, see ", self.errors)


class Save(Draws):
    def test_a_new_draw(self):
        saved = self.save("8/1/2016", 3)
        self.assertEqual(saved, {"result": "saved", "date": "2016-01-08", "contest": 3, "rows": 11, "replaced": 0})
        self.assertEqual(self.contents(), csv_of(draw_rows("2016-01-03", 1), draw_rows("2016-01-06", 2),
                                               draw_rows("2016-01-08", 3)))
        self.assertEqual(self.marks(), ["2016-01-08"])
        self.assertEqual(self.summary("draw", "show", "--back", 1)["date"], "2016-01-08")

    def test_contest_numbers(self):
        for date, more, contest in (("2016-01-04", [], 2), ("2016-01-10", [], 4), ("2015-12-30", [], 1),
                                    ("2017-01-02", [], 1), ("2016-01-13", ["--contest", 32767], 32767)):
            self.assertEqual(self.save(date, 5, *more)["contest"], contest)
            self.assertEqual(self.contest(date), contest)

    def test_what_it_replaces(self):
        before = self.contents()
        self.save("2016-01-06", 7, code=USAGE)
        self.assertIn("whether to replace the 11 rows of 2016-01-06, nothing was changed; --yes ", self.errors)
        self.assertEqual((self.contents(), self.marks()), (before, None))
        words = ["draw", "save", "2016-01-06", *wheel_options(7)]
        for answer in ("n\n", "\n", "yess\n", "\x04"):
            code, shown = self.answering(answer, *words)
            self.assertEqual(code, USAGE, shown)
            self.assertIn("vestara: replace the 11 rows of 2016-01-06? [y/N] ", shown)
            self.assertEqual(self.contents(), before)
        self.assertEqual(self.answering("Yes\n", *words)[0], OK)
        self.assertEqual(self.contents(), csv_of(draw_rows("2016-01-03", 1), draw_rows("2016-01-06", 7)))
        self.assertEqual(self.contest("2016-01-06"), 2)
        again = self.save("2016-01-06", 8, "--yes")
        self.assertEqual((again["result"], again["replaced"]), ("replaced", 11))
        self.assertEqual(self.marks(), ["2016-01-06"])
        self.assertEqual(len(self.sql("SELECT 1 FROM storico")), 22)

    def test_wrong_draws_change_nothing(self):
        before = self.contents()
        for words, why in ((wheel_options(1, ["VE"]), "not given: --VE; "),
                           (wheel_options(1, ["BA", "RN"]), "not given: --BA, --RN; "),
                           ([*wheel_options(), "--VE", "1,2,3,4"], "--VE \"1,2,3,4\": these are 4 numbers; "),
                           ([*wheel_options(), "--VE", "1,2,3,4,91"], "number 91 is not one of 1 to 90; "),
                           ([*wheel_options(), "--TO", "1,2,3,2,5"], "number 2 comes twice; "),
                           ([*wheel_options(), "--contest", "0"], "--contest \"0\" cannot be; ")):
            self.expect(USAGE, "draw", "save", "2016-01-06", "--yes", *words)
            self.assertIn(why, self.errors)
        self.assertEqual((self.contents(), self.marks()), (before, None))

    def test_a_refused_draw_takes_its_mark_back(self):
        self.save("2016-01-10", 3)
        before = self.contents()
        self.sql("CREATE TRIGGER breaks BEFORE INSERT ON storico WHEN NEW.ruota='VE' "
                 "BEGIN SELECT raise(ABORT,'no Venice today'); END")
        for date in ("2016-01-08", "2016-01-06", "2016-01-10"):
            self.save(date, 4, "--yes", code=DATABASE)
            self.assertIn("the archive refuses the draws, nothing was changed: ", self.errors)
            self.assertIn("no Venice today", self.errors)
            self.assertEqual((self.contents(), self.marks()), (before, ["2016-01-10"]))
        self.sql("DROP TRIGGER breaks")
        self.sql("CREATE TRIGGER breaks BEFORE DELETE ON storico BEGIN SELECT raise(ABORT,'nothing goes'); END")
        self.save("2016-01-06", 4, "--yes", code=DATABASE)
        self.assertEqual((self.contents(), self.marks()), (before, ["2016-01-10"]))

    def test_the_wheels_that_there_were(self):
        for date, leave_out, yes, code in (("2005-04-30", ["RN"], [], OK), ("1939-01-07", ["RN", "CA", "GE"], [], OK),
                                           ("1944-05-06", ["RN", "VE", "TO"], ["--yes"], OK),
                                           ("1944-05-13", ["RN", "VE"], [], USAGE), ("2005-04-30", [], [], USAGE)):
            before = self.contents()
            self.expect(code, "draw", "save", date, *wheel_options(5, leave_out), *yes)
            if not leave_out:
                self.assertIn("--RN does not go with 2005-04-30; its first draw was on 2005-05-04", self.errors)
            wheels = [name for name in WHEELS if name not in leave_out]
            expected = sorted([*before.splitlines(), *draw_rows(date, 5, wheels)]) if code == OK else None
            self.assertEqual(sorted(self.contents().splitlines()), expected or sorted(before.splitlines()))
        self.expect(USAGE, "draw", "save", "1944-05-13", *wheel_options(5, ["RN", "VE"]))
        self.assertIn("store the draw of 1944-05-13 without VE, nothing was changed; --yes ", self.errors)

    def test_numbers_as_a_line_or_a_file(self):
        line = " ".join(str(number) for wheel in range(11) for number in numbers(3, wheel))
        by_wheel = ";".join(f"{name} " + ",".join(map(str, numbers(4, wheel))) for wheel, name in enumerate(WHEELS))
        self.expect(OK, "draw", "save", "2016-01-08", "--numbers", line)
        self.expect(OK, "draw", "save", "2016-01-10", "--numbers", by_wheel)
        file = self.write("draws.csv", csv_of(draw_rows("2016-01-13", 5), draw_rows("2016-01-15", 6)))
        self.expect(OK, "draw", "save", "2016-01-13", "--file", file)
        self.expect(OK, "draw", "save", "2016-01-15", "--file", "-", stdin=file.read_bytes())
        self.assertEqual(self.contents(), csv_of(*(draw_rows(f"2016-01-{day:02}", first) for day, first in
                                                   ((3, 1), (6, 2), (8, 3), (10, 4), (13, 5), (15, 6)))))
        self.assertEqual(len(self.marks()), 4)
        for words, code, why in ((["--file", file, "--numbers", line], USAGE, "numbers are given in two ways; "),
                                 ([*wheel_options(), "--numbers", line], USAGE, "numbers are given in two ways; "),
                                 ([], USAGE, "no numbers are given; "),
                                 (["--numbers", "53,31,88,28,77"], USAGE, "these are 5 numbers; "),
                                 (["--file", file], FILE, "has no draw of 2016-01-20; its dates are 2016-01-13 to 2016-01-15")):
            self.expect(code, "draw", "save", "2016-01-20", *words)
            self.assertIn(why, self.errors)

    def test_a_date_in_the_future_asks(self):
        date = (datetime.date.today() + datetime.timedelta(days=2)).isoformat()
        words = ["draw", "save", date, *wheel_options(7)]
        self.expect(USAGE, *words)
        self.assertIn(f"store a draw of {date}, which is in the future, nothing was changed; --yes ", self.errors)
        self.assertEqual(self.answering("n\n", *words)[0], USAGE)
        self.assertEqual(len(self.sql("SELECT 1 FROM storico")), 22)
        self.assertEqual(self.answering("y\n", *words)[0], OK)
        self.assertEqual(self.save(date, 8, "--yes")["replaced"], 11)

    def test_archives_that_take_no_draw(self):
        missing = self.folder / "missing.sqlite"
        self.expect(DATABASE, "--db", f"sqlite:{missing}", "draw", "save", "2016-01-08", *wheel_options())
        self.assertFalse(missing.exists())
        self.sql("DELETE FROM ruote WHERE ruotaAlias='TO'")
        self.save("2016-01-08", 3, code=DATABASE)
        self.assertIn("does not have TO as number 9, nothing was changed", self.errors)
        self.assertEqual((len(self.sql("SELECT 1 FROM storico")), self.marks()), (22, None))


class Delete(Draws):
    def test_it_asks(self):
        before = self.contents()
        self.expect(USAGE, "draw", "delete", "2016-01-06")
        self.assertIn("no terminal to ask whether to delete the 11 rows of 2016-01-06, nothing was changed; --yes ",
                      self.errors)
        self.assertEqual(self.answering("no\n", "draw", "delete", "2016-01-06")[0], USAGE)
        self.assertEqual(self.contents(), before)
        code, shown = self.answering("y\n", "draw", "delete", "2016-01-06")
        self.assertEqual(code, OK, shown)
        self.assertEqual(self.contents(), csv_of(draw_rows("2016-01-03", 1)))
        self.expect(NOTHING_FOUND, "draw", "delete", "2016-01-06", "--yes")

    def test_it_takes_the_mark_along(self):
        self.save("2016-01-08", 3)
        self.save("2016-01-10", 4)
        self.assertEqual(self.summary("draw", "delete", "8/1/2016", "--yes"),
                         {"result": "deleted", "date": "2016-01-08", "rows": 11})
        self.assertEqual(self.marks(), ["2016-01-10"])
        self.sql("CREATE TRIGGER breaks BEFORE DELETE ON vestara_manual_draws "
                 "BEGIN SELECT raise(ABORT,'nothing goes'); END")
        before = self.contents()
        self.expect(DATABASE, "draw", "delete", "2016-01-10", "--yes")
        self.assertIn("cannot be marked, nothing was changed: sqlite: nothing goes", self.errors)
        self.assertEqual((self.contents(), self.marks()), (before, ["2016-01-10"]))


class Imports(Draws):
    """By hand: 6 January (the file agrees), 8 January (it does not), 10 January (it has none)."""

    OFFICIAL = [draw_rows("2016-01-03", 1), draw_rows("2016-01-06", 2), draw_rows("2016-01-08", 30)]
    FATES = [("2016-01-06", "equal", "replaced"), ("2016-01-08", "different", "replaced")]

    def setUp(self):
        super().setUp()
        self.save("2016-01-06", 2, "--yes")
        self.save("2016-01-08", 3)
        self.save("2016-01-10", 4, "--contest", 77)
        self.official = self.write("official.csv", csv_of(*self.OFFICIAL))

    def imported(self, *options):
        done = self.summary("import", *options, self.official)
        return done, [tuple(row.values()) for row in done["manual_draws"]]

    def test_a_lost_draw_refuses_the_import(self):
        before = self.contents()
        for flags in (["--dry-run"], []):
            self.expect(FILE, "import", *flags, self.official)
            self.assertIn("11 rows of 2016-01-10 would go, which the file does not have; they were entered by hand, "
                          "--keep-manual keeps them", self.errors)
            self.assertEqual((self.contents(), len(self.marks())), (before, 3))

    def test_without_keeping(self):
        for flags, verb in ((["--dry-run"], "would go"), ([], "went")):
            before = self.archive.read_bytes() if flags else None
            done, fates = self.imported("--replace", *flags)
            self.assertEqual(fates, [*self.FATES, ("2016-01-10", "missing", "lost")])
            self.assertEqual([done[name] for name in ("added", "changed", "gone", "kept", "held_before")],
                             [0, 11, 11, 0, 44])
            self.assertIn(f"1 draw entered by hand {verb} away: 2016-01-10; --keep-manual ", self.errors)
            if flags:
                self.assertEqual(self.archive.read_bytes(), before)
                self.assertEqual(self.marks(), ["2016-01-06", "2016-01-08", "2016-01-10"])
        self.assertEqual(self.contents(), csv_of(*self.OFFICIAL))
        self.assertEqual(self.marks(), [])
        self.assertEqual(self.imported()[1], [])
        self.assertEqual(self.errors, "")

    def test_with_keeping(self):
        for words in (["--add"], ["--keep-manual"]):
            for flags in (["--dry-run"], []):
                if words == ["--add"] and not flags:
                    continue
                done, fates = self.imported(*words, *flags)
                self.assertEqual(fates, [*self.FATES, ("2016-01-10", "missing", "kept")])
                self.assertEqual([done[name] for name in ("read", "added", "changed", "gone", "kept")],
                                 [33, 0, 11, 0, 11])
                self.assertEqual(self.errors, "")
        self.assertEqual(self.contents(), csv_of(*self.OFFICIAL, draw_rows("2016-01-10", 4)))
        self.assertEqual((self.marks(), self.contest("2016-01-10")), (["2016-01-10"], 77))
        self.assertEqual(self.imported("--keep-manual")[1], [("2016-01-10", "missing", "kept")])
        self.assertEqual(self.errors, "")
        self.write("official.csv", csv_of(*self.OFFICIAL, draw_rows("2016-01-10", 5)))
        self.assertEqual(self.imported("--keep-manual")[1], [("2016-01-10", "different", "replaced")])
        self.assertEqual((self.marks(), self.contest("2016-01-10")), ([], 4))

    def test_what_gave_way_is_kept_in_a_file(self):
        done, _ = self.imported("--keep-manual")
        kept = pathlib.Path(done["backup"])
        rows = [row.replace("2016-01-08,", "2016-01-08,3,") + "\n" for row in draw_rows("2016-01-08", 3)]
        self.assertEqual(kept.read_text(), HEADER.replace("date,", "date,contest,") + "".join(rows))
        self.expect(OK, "import", "--replace", kept)
        self.assertEqual(self.contents(), csv_of(draw_rows("2016-01-08", 3)))

    def test_a_kept_draw_goes_into_its_place(self):
        self.write("official.csv", csv_of(draw_rows("2016-01-03", 1), draw_rows("2016-01-13", 9)))
        fates = self.imported("--keep-manual")[1]
        self.assertEqual([fate for _, _, fate in fates], ["kept"] * 3)
        self.assertEqual(self.contents(),
                         csv_of(draw_rows("2016-01-03", 1), draw_rows("2016-01-06", 2), draw_rows("2016-01-08", 3),
                                draw_rows("2016-01-10", 4), draw_rows("2016-01-13", 9)))

    def test_part_of_a_draw_in_the_file_is_the_draw(self):
        self.write("official.csv", csv_of(draw_rows("2016-01-10", 4, ["BA", "CA"])))
        self.assertEqual(self.imported("--add")[1][-1], ("2016-01-10", "different", "replaced"))
        self.assertEqual(len(self.sql("SELECT 1 FROM storico WHERE dtEstr='2016-01-10'")), 2)

    def test_marks_without_a_draw_mean_nothing(self):
        self.sql("DELETE FROM storico WHERE dtEstr='2016-01-10'")
        self.write("official.csv", csv_of(*self.OFFICIAL, draw_rows("2016-01-10", 4)))
        self.assertEqual(self.imported("--keep-manual")[1], self.FATES)
        self.assertEqual(self.marks(), [])

    def test_many_rows(self):
        tsv = self.generated(1, "2004-01-01", "2015-12-31")
        self.official.write_bytes(tsv)
        done, fates = self.imported("--replace", "--keep-manual")
        self.assertEqual((len(fates), done["gone"]), (3, 11))
        self.assertEqual(len(self.sql("SELECT 1 FROM storico")), tsv.count(b"\n") + 33)

    def test_a_failed_import_takes_everything_back(self):
        before = self.contents()
        self.sql("CREATE TRIGGER breaks BEFORE DELETE ON vestara_manual_draws "
                 "BEGIN SELECT raise(ABORT,'nothing goes'); END")
        self.expect(DATABASE, "import", "--keep-manual", self.official)
        self.assertIn("cannot be marked, nothing was changed: sqlite: nothing goes", self.errors)
        self.assertEqual((self.contents(), len(self.marks())), (before, 3))

    def test_an_interrupted_import_takes_everything_back(self):
        official = "".join(row.replace("-", "/").replace(",", "\t") + "\n" for row in self.OFFICIAL[1])
        many = self.write("many.txt", self.generated(2, "1950-01-01", "2015-12-31") + official.encode())
        words = ["import", "--replace", "--keep-manual", many]
        copy = f"sqlite:{shutil.copy(self.archive, self.folder / 'copy.sqlite')}"
        self.expect(OK, "--db", copy, *words)
        before = (self.contents("--contest"), ["2016-01-06", "2016-01-08", "2016-01-10"])
        after = (self.contents("--contest", "--db", copy), ["2016-01-08", "2016-01-10"])
        for pause in (0.05, 0.2, 0.5, 1):
            with subprocess.Popen([PROGRAM, *words], env=self.environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as process:
                time.sleep(pause)
                process.kill()
            self.assertIn((self.contents("--contest"), self.marks()), (before, after))

    def test_an_archive_that_never_had_a_draw_by_hand(self):
        self.sql("DROP TABLE vestara_manual_draws")
        done, fates = self.imported("--replace", "--keep-manual")
        self.assertEqual((fates, done["gone"], done["changed"], self.marks()), ([], 11, 11, None))


class Saved(Draws):
    TEXTS = ["first try", "it's", "\\", "a\\'b\\\\'", "100% _ è ü € 漢", "\"q\"", "[x]", "{y}", "--", "two\nlines", " ", ""]

    def save_search(self, *words):
        return self.summary("saved", "save", *words)["id"]

    def test_texts_come_back_as_they_were(self):
        for place, text in enumerate(self.TEXTS):
            self.assertEqual(self.save_search("5", *([f"--name={text}"] if text else ["--name", text])), place + 1)
            self.assertEqual(self.summary("saved", "show", place + 1)["name"], text)
        listed = self.summary("saved", "list")["searches"]
        self.assertEqual([row["name"] for row in listed], self.TEXTS[::-1])
        self.assertEqual(self.sql("SELECT descRicerca FROM tRicerche ORDER BY idRicerca"),
                         [(text,) for text in self.TEXTS])
        self.assertEqual(len(self.expect(OK, "saved", "list").splitlines()), len(self.TEXTS) + 1)

    def test_what_is_stored(self):
        today = datetime.date.today().isoformat()
        full = ["5", "12", "33", "--hits", "ambo", "--wheels", "napoli,BA", "--from", "1/2/2026", "--to", "2026-03-01"]
        for words, values in ((["5,12", "--name", "a"], ["5,12", 1, "", None, None]),
                              ([*full, "--name", "b"], ["5,12,33", 2, "NA,BA", "2026-02-01", "2026-03-01"]),
                              (["5", "--name", "c", "--wheels", "cities"],
                               ["5", 1, "BA,CA,FI,GE,MI,NA,PA,RM,TO,VE", None, None])):
            number = self.save_search(*words)
            shown = self.summary("saved", "show", number)
            self.assertEqual(list(shown), ["id", "name", "numbers", "hits", "wheels", "from", "to", "saved"])
            self.assertEqual(list(shown.values())[2:7], values)
            self.assertIn(shown["saved"], (today, datetime.date.today().isoformat()))

    def test_replacing(self):
        first = self.save_search("5", "--name", "first", "--from", "2026-01-01")
        self.sql("UPDATE tRicerche SET dtSave='2001-01-01'")
        second = self.save_search("6", "--name", "second")
        self.expect(USAGE, "saved", "save", "7,8", "--name", "it's third", "--id", first)
        self.assertIn(f"whether to replace the saved search {first}, nothing was changed; --yes ", self.errors)
        words = ["saved", "save", "7,8", "--name", "it's third", "--id", first]
        self.assertEqual(self.answering("n\n", *words)[0], USAGE)
        self.assertEqual(self.summary("saved", "show", first)["name"], "first")
        self.assertEqual(self.answering("y\n", *words)[0], OK)
        self.assertEqual(self.summary("saved", "show", first)["name"], "it's third")
        done = self.summary(*words, "--yes")
        self.assertEqual(done, {"result": "replaced", "id": first})
        shown = self.summary("saved", "show", first)
        self.assertEqual((shown["name"], shown["numbers"], shown["from"]), ("it's third", "7,8", None))
        self.assertNotEqual(shown["saved"], "2001-01-01")
        self.expect(NOTHING_FOUND, "saved", "save", "7", "--name", "none", "--id", 99)
        self.assertEqual(len(self.summary("saved", "list")["searches"]), 2)
        self.assertEqual(second, first + 1)

    def test_nobody_is_asked_where_nobody_can_answer(self):
        """Standard error is a terminal, standard input is none."""
        number = self.save_search("5", "--name", "first")
        shown = self.on_terminal("saved", "delete", number, stream="stderr", code=USAGE)
        self.assertIn(b"there is no terminal to ask", shown)
        self.assertNotIn(b"[y/N]", shown)
        self.assertEqual(len(self.summary("saved", "list")["searches"]), 1)

    def test_newest_first(self):
        for name in "abcde":
            self.save_search("5", "--name", name)
        for name, date in (("a", "'2020-01-01'"), ("c", "NULL"), ("d", "'2030-01-01'")):
            self.sql(f"UPDATE tRicerche SET dtSave={date} WHERE descRicerca='{name}'")
        self.assertEqual("".join(row["name"] for row in self.summary("saved", "list")["searches"]), "debac")

    def test_a_run_is_the_search(self):
        self.expect(OK, "import", "--replace", self.write("draws.txt", self.generated(3)))
        for words, code in ((["5,12,33"], OK), (["5", "12", "33", "--hits", "ambo"], OK),
                            (["1,90", "--wheels", "rn,BA", "--from", "2005-01-01"], OK),
                            (["7", "--wheels", "cities", "--to", "2005-12-31"], OK),
                            (["5,12,33,44,55", "--hits", "cinquina"], NOTHING_FOUND)):
            number = self.save_search(*words, "--name", "n")
            for form in ("table", "csv", "json", "jsonl", "markdown"):
                self.assertEqual(self.expect(code, "saved", "run", number, "--format", form),
                                 self.expect(code, "search", *words, "--format", form))

    def test_what_cannot_be_run(self):
        number = self.save_search("5,12", "--name", "n", "--hits", "2")
        for change, why in (("numeri='5;12'", "NUMBERS: \"5;12\" is not one of 1 to 90"), ("numeri=''", "none given"),
                            ("numeri=NULL", "none given"), ("numeri='7'", "--hits 2 cannot come of 1 number"),
                            ("numeri='1) OR (1=1'", "is not one of 1 to 90"),
                            ("combinazione=9", "--hits \"9\" is not known"), ("combinazione=NULL", "--hits \"\""),
                            ("ruote='XX'", "--wheels \"XX\" is not known"), ("ruote=' '", "--wheels \" \""),
                            ("dtDa='soon'", "--from \"soon\" is no date"),
                            ("dtDa='2026-02-02',dtA='2026-01-01'", "is later than --to 2026-01-01")):
            self.sql("UPDATE tRicerche SET numeri='5,12',combinazione=2,ruote='',dtDa=NULL,dtA=NULL")
            self.sql(f"UPDATE tRicerche SET {change}")
            self.expect(DATABASE, "saved", "run", number)
            self.assertIn(f"saved search {number} cannot be run: ", self.errors)
            self.assertIn(why, self.errors)
            self.assertEqual(len(self.summary("saved", "list")["searches"]), 1)
            self.summary("saved", "show", number)

    def test_deleting(self):
        number = self.save_search("5", "--name", "n")
        self.expect(USAGE, "saved", "delete", number)
        self.assertIn(f"whether to delete the saved search {number}, nothing was changed; --yes ", self.errors)
        self.assertEqual(self.answering("n\n", "saved", "delete", number)[0], USAGE)
        self.assertEqual(self.answering("y\n", "saved", "delete", number)[0], OK)
        other = self.save_search("5", "--name", "n")
        self.assertEqual(self.summary("saved", "delete", other, "--yes"), {"result": "deleted", "id": other})

    def test_nothing_saved(self):
        self.assertEqual(self.summary("saved", "list", code=NOTHING_FOUND), {"searches": []})
        self.assertIn("vestara: no search is saved; ", self.errors)
        for words in (["show", 1], ["run", 1], ["delete", 1, "--yes"], ["delete", 1], ["show", 0]):
            self.expect(NOTHING_FOUND, "saved", *words)
            self.assertIn(f"no search is saved as {words[1]}; ", self.errors)


@unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
class RealArchive(Draws):
    def test_the_real_archive(self):
        self.expect(OK, "import", "--replace", REAL_ARCHIVE)
        wheels = {row["wheel"]: row for row in self.summary("draw", "show", "2005-02-09")["wheels"]}
        self.assertEqual((len(wheels), wheels["VE"]["n1"]), (10, 53))
        self.assertEqual(self.summary("draw", "show", "--back", 1)["date"], "2026-08-21")
        newest = self.contest("2026-08-21")
        self.assertEqual(self.save("2026-08-22", 1, "--yes")["contest"], newest + 1)
        done = self.summary("import", "--keep-manual", REAL_ARCHIVE)
        self.assertEqual((done["added"], done["gone"]), (0, 0))
        self.assertEqual(self.summary("draw", "show", "--back", 1)["date"], "2026-08-22")
        self.expect(OK, "draw", "delete", "2026-08-22", "--yes")
        self.assertEqual(self.contents().encode(), REAL_ARCHIVE.read_bytes())


if __name__ == "__main__":
    unittest.main(verbosity=2)
