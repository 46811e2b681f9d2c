"""What an import does with draws entered by hand, end to end. VESTARA_PROGRAM is the command line."""

import pathlib
import shutil
import subprocess
import time
import unittest

from command_line_test import DATABASE, FILE, OK, PROGRAM
from draw_commands_test import HEADER, Draws, csv_of, draw_rows


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
        self.assertNotIn("entered by hand", self.errors)
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


if __name__ == "__main__":
    unittest.main(verbosity=2)
