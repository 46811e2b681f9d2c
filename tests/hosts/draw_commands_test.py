"""draw, end to end. VESTARA_PROGRAM is the command line."""

import contextlib
import datetime
import json
import sqlite3
import unittest

from command_line_test import DATABASE, FILE, NOTHING_FOUND, OK, REAL_ARCHIVE, USAGE, CommandLine

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

    def test_what_comes_while_a_question_stands_is_not_replaced(self):
        self.sql("DELETE FROM storico WHERE dtEstr='2016-01-06' AND ruota<>'BA'")
        words = ["draw", "save", "2016-01-06", *wheel_options(7)]
        more = "INSERT INTO storico SELECT 900000,'2016-01-06','VE',11,12,13,14,15,2"

        def contents():
            return self.sql("SELECT * FROM storico ORDER BY id")

        before = contents()
        code, shown = self.answering("y\n", *words, meanwhile=lambda: self.sql(more))
        self.assertEqual(code, DATABASE, shown)
        self.assertIn("vestara: replace the 1 row of 2016-01-06? [y/N] ", shown)
        self.assertIn("another program stored the 2 rows of 2016-01-06 meanwhile, nothing was changed; --yes ", shown)
        self.assertEqual((contents(), self.marks()), ([*before, (900000, "2016-01-06", "VE", 11, 12, 13, 14, 15, 2)], []))
        fewer = "DELETE FROM storico WHERE id=900000"
        self.assertEqual(self.answering("y\n", *words, meanwhile=lambda: self.sql(fewer))[0], OK)
        self.assertEqual(self.contents(), csv_of(draw_rows("2016-01-03", 1), draw_rows("2016-01-06", 7)))

    def test_today_is_not_the_future(self):
        today = datetime.date.today()
        self.assertEqual(self.save(today.isoformat(), 7)["replaced"], 0)
        self.save((today + datetime.timedelta(days=1)).isoformat(), 8, code=USAGE)
        self.assertIn(", which is in the future, nothing was changed; ", self.errors)

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
