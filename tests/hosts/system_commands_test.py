"""system, end to end: lists of numbers, combinations, and the systems that an archive keeps. VESTARA_PROGRAM is the
command line."""

import contextlib
import itertools
import pathlib
import signal
import sqlite3
import subprocess
import time
import unittest

from command_line_test import DATABASE, FILE, NOTHING_FOUND, OK, PROGRAM, USAGE
from draw_commands_test import Draws

INTERRUPTED = 130
ALL_NUMBERS = ",".join(map(str, range(1, 91)))
COMMANDS = ["generate", "random", "integral", "save", "list", "show", "convert", "delete"]


def wait_until_it_listens(process):
    """Returns when the program has a handler of its own for Ctrl-C."""
    while True:
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
        caught = next(line for line in status.splitlines() if line.startswith("SigCgt:"))
        if int(caught.split()[1], 16) >> (signal.SIGINT - 1) & 1:
            return
        time.sleep(0.01)


def lines_of(*combinations):
    return "".join(",".join(map(str, combination)) + "\n" for combination in combinations)


class Systems(Draws):
    FOUR = lines_of(*itertools.combinations((5, 7, 9, 11), 3))

    def keep(self, text, *words, code=OK):
        self.expect(code, "--format", "csv", "system", "save", "-", *words, stdin=text.encode())
        return self.sql("SELECT max(idSis) FROM tSistemi")[0][0]

    def kept(self):
        """Both tables as they are."""
        return (self.sql("SELECT * FROM tSistemi ORDER BY 1"),
                self.sql("SELECT idSis,combinazione FROM tSistemaDetail ORDER BY id"))

    def plain(self, *words, code=OK):
        return self.expect(code, "system", *words, "--output", "-")


class Numbers(Systems):
    def test_sets(self):
        for words, numbers in ((["twins"], "11,22,33,44,55,66,77,88"), (["tens", 1], "1,2,3,4,5,6,7,8,9,10,11"),
                               (["tens", 1, "--strict"], "1,2,3,4,5,6,7,8,9,10"),
                               (["figure", 1, "--strict"], "1,10,19,28,37,46,55,64,73,82"),
                               (["fibonacci", 2, "--strict"], "2,4,6,10,16,26,42,68")):
            done = self.summary("system", "generate", *words)
            self.assertEqual(done, {"set": words[0], "count": numbers.count(",") + 1, "numbers": numbers})
        self.expect(OK, "search", self.summary("system", "generate", "ending", 3)["numbers"])
        self.assertEqual(self.summary("system", "generate", "figure", 81, code=NOTHING_FOUND)["numbers"], "")
        self.assertIn("stops at 80", self.errors)

    def test_random(self):
        drawn = self.summary("system", "random", "--count", 90, "--sort")
        self.assertEqual(drawn, {"count": 90, "numbers": ALL_NUMBERS})
        self.assertEqual(self.summary("system", "random", "--count", 3, "--from", 7, "--to", 7, "--repeat")["numbers"],
                         "7,7,7")
        self.expect(USAGE, "system", "random", "--count", 91)
        self.assertIn("--count 91: from 1 to 90 there are 90 different numbers; ", self.errors)

    def test_every_help_has_an_example(self):
        self.assertIn("Example:\n  vestara system ", self.expect(OK, "system", "--help"))
        for command in COMMANDS:
            self.assertIn(f"Example:\n  vestara system {command} ",
                          self.expect(OK, "system", command, "--help").replace("list\n", "list \n"))


class Integral(Systems):
    def test_it_is_what_combinations_says(self):
        for words in (["5,7,9,11", "--size", 3], ["90,1,33", "--size", 1], ["8,9,10,11,12", "--size", 5],
                      [ALL_NUMBERS, "--size", 2], ["1,2,3", "--size", 2, "--count-only"]):
            for form in ("table", "csv", "json", "jsonl", "markdown"):
                self.assertEqual(self.expect(OK, "system", "integral", *words, "--format", form),
                                 self.expect(OK, "combinations", *words, "--format", form))

    def test_plain_lines(self):
        for numbers, size in (((5, 7, 9, 11), 3), ((90, 1, 33), 2), (range(1, 91), 3), (range(1, 13), 12)):
            words = ["integral", ",".join(map(str, numbers)), "--size", size]
            expected = lines_of(*itertools.combinations(numbers, size))
            self.assertEqual(self.plain(*words), expected)
            path = self.folder / "out"
            self.assertEqual(self.expect(OK, "system", *words, "--output", path), "")
            self.assertEqual(path.read_text(), expected)

    def test_limits(self):
        for numbers, size, why in ((ALL_NUMBERS, 13, "make 1643385429346680 combinations, but the library chooses 12 "),
                                   (ALL_NUMBERS, 8, "make 77515521435 combinations, more than the 2147483647 that "),
                                   (ALL_NUMBERS, 6, "make 622614630 combinations, a text of 11456109192 bytes in ")):
            self.expect(USAGE, "system", "integral", numbers, "--size", size)
            self.assertIn(why, self.errors)
            self.assertIn("; vestara combinations ", self.errors)
        self.assertEqual(self.summary("system", "integral", ALL_NUMBERS, "--size", 45, "--count-only")["count"],
                         "103827421287553411369671120")

    def test_an_interruption_while_it_is_made(self):
        path = self.write("out", "as before\n")
        for more in ([], ["--output", str(path)]):
            words = [PROGRAM, "system", "integral", ALL_NUMBERS, "--size", "5", *more]
            with subprocess.Popen(words, env=self.environment, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE) as process:
                wait_until_it_listens(process)
                process.send_signal(signal.SIGINT)
                shown, errors = process.communicate()
            self.assertEqual((process.returncode, shown), (INTERRUPTED, b""))
            self.assertEqual(errors, b"vestara: interrupted after 0 of 43949268 combinations\n")
        self.assertEqual(path.read_text(), "as before\n")
        self.assertEqual([p.name for p in self.folder.glob("out*")], ["out"])

    def test_an_interruption_while_it_is_listed(self):
        words = [PROGRAM, "system", "integral", ALL_NUMBERS, "--size", "4", "--format", "csv"]
        with subprocess.Popen(words, env=self.environment, bufsize=0, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as process:
            shown = process.stdout.read(65536)
            process.send_signal(signal.SIGINT)
            rest, errors = process.communicate()
        self.assertEqual(process.returncode, INTERRUPTED)
        self.assertRegex(errors.decode(), r"^vestara: interrupted after \d+ of 2555190 combinations\n$")
        rows = [tuple(map(int, row.split(","))) for row in (shown + rest).decode().split("\n\n")[1].splitlines()[1:]]
        self.assertEqual(rows, list(itertools.islice(itertools.combinations(range(1, 91), 4), len(rows))))


class Keeping(Systems):
    def test_what_is_stored(self):
        path = self.write("system.txt", "# mine\r\n9 5,7\r\n\r\n05\t11 # last\r\n")
        done = self.summary("system", "save", path, "--title", "t", "--description", "d", "--guarantee", 2)
        self.assertEqual(done, {"result": "saved", "id": 1, "numbers": 4, "count": 2})
        self.assertEqual(self.errors, f"vestara: warning: {path} has combinations of different lengths\n"
                                      "  line 4: 2 numbers, line 2 has 3\n")
        self.assertEqual(self.kept(), ([(1, "t", "d", "5,7,9,11", 4, 2, 3, 2, "U")], [(1, "9,5,7"), (1, "5,11")]))
        self.assertEqual(self.summary("system", "show", 1),
                         {"id": 1, "title": "t", "description": "d", "kind": "U", "numbers": "5,7,9,11",
                          "number_count": 4, "size": 3, "bets": 2, "guarantee": 2, "count": 2,
                          "combinations": [{"combination": "9,5,7"}, {"combination": "5,11"}]})
        self.assertEqual(self.plain("show", 1), "9,5,7\n5,11\n")

    def test_bets(self):
        many = lines_of(*itertools.islice(itertools.combinations(range(1, 91), 3), 32768))
        for text, words, bets in ((self.FOUR, [], 4), (self.FOUR, ["--bets", 0], 0), (self.FOUR, ["--bets", 7], 7),
                                  (many, [], 0)):
            number = self.keep(text, "--title", "t", *words)
            self.assertEqual(self.summary("system", "show", number)["bets"], bets)
        self.assertEqual(self.plain("show", number), many)

    def test_from_one_command_to_the_next(self):
        number = self.keep(self.plain("integral", "5,7,9,11", "--size", 3), "--title", "piped")
        path = self.folder / "out"
        self.expect(OK, "system", "show", number, "--output", path)
        self.assertEqual(path.read_text(), self.FOUR)
        self.assertEqual(self.plain("convert", path, "--numbers", "1,2,3,4"), self.plain("integral", "1,2,3,4", "--size", 3))
        self.expect(FILE, "system", "show", number, "--output", self.folder / "none" / "out")

    def test_texts_come_back_and_are_found(self):
        texts = ["first try", "it's", "\\", "a\\'b\\\\'", "100% _ è ü € 漢", "\"q\"", "--", "two\nlines", "%", "_", "'';"]
        for text in texts:
            number = self.keep(self.FOUR, f"--title={text}", f"--description=about {text}.")
            self.assertEqual(self.summary("system", "show", number)["title"], text)
        for text in texts:
            expected = [number for number, other in enumerate(texts, 1) if text in other]
            for words in ([f"--title={text}"], [f"--description={text}"]):
                found = self.summary("system", "list", *words)["systems"]
                self.assertEqual([row["id"] for row in found], expected, text)
        self.assertEqual([row["title"] for row in self.summary("system", "list")["systems"]], texts)
        self.assertEqual(self.sql("SELECT titolo FROM tSistemi ORDER BY idSis"), [(text,) for text in texts])

    def test_filters(self):
        self.keep(self.FOUR, "--title", "four")
        self.keep(lines_of((1, 2), (3, 4)), "--title", "FORTY", "--guarantee", 3)
        self.sql("UPDATE tSistemi SET sisTipo='S' WHERE idSis=1")
        for words, ids in (([], [1, 2]), (["--numbers", 4], [1, 2]), (["--size", 2], [2]), (["--bets", 4], [1]),
                           (["--guarantee", 3], [2]), (["--kind", "S"], [1]), (["--title", "fo"], [1, 2]),
                           (["--title", "fo", "--kind", "U"], [2]), (["--title", "f_"], []), (["--numbers", 9], [])):
            code = OK if ids else NOTHING_FOUND
            self.assertEqual([row["id"] for row in self.summary("system", "list", *words, code=code)["systems"]], ids)
            self.assertEqual("vestara: no such system is saved; " in self.errors, not ids)

    def test_files_in_error_change_nothing(self):
        for text, why in (("1,2\n3,91\n4,4\n5,x\n", "standard input has 3 problems; "),
                          ("", "standard input holds no combinations; "),
                          ("# 1,2\n", "standard input holds no combinations; ")):
            self.keep(text, "--title", "t", code=FILE)
            self.assertIn(why, self.errors)
        self.keep("1,2\n3,91\n4,4\n5,x\n", "--title", "t", code=FILE)
        self.assertTrue(self.errors.endswith("\n  line 2: \"91\" is not one of 1 to 90\n  line 3: 4 comes twice\n"
                                             "  line 4: \"x\" is not one of 1 to 90\n"), self.errors)
        self.expect(FILE, "system", "save", self.folder / "missing", "--title", "t")
        self.assertEqual(self.kept(), ([], []))

    def test_unknown_ids(self):
        self.keep(self.FOUR, "--title", "t")
        before = self.kept()
        for words in (["show", 2], ["delete", 2, "--yes"], ["delete", 2], ["convert", 2, "--numbers", 1],
                      ["save", "-", "--title", "t", "--id", 2, "--yes"]):
            self.assertEqual(self.expect(NOTHING_FOUND, "system", *words, stdin=self.FOUR.encode()), "")
            self.assertIn("vestara: no system is saved as 2; vestara system list ", self.errors)
        self.assertEqual(self.kept(), before)

    def test_deleting(self):
        for _ in range(3):
            self.keep(self.FOUR, "--title", "t")
        self.expect(USAGE, "system", "delete", 1)
        self.assertIn("whether to delete the saved system 1 with its 4 combinations, nothing was changed; --yes ",
                      self.errors)
        self.assertEqual(self.answering("n\n", "system", "delete", 1)[0], USAGE)
        self.assertEqual(len(self.kept()[1]), 12)
        self.assertEqual(self.answering("y\n", "system", "delete", 1)[0], OK)
        self.assertEqual(self.summary("system", "delete", 3, "--yes"), {"result": "deleted", "id": 3, "count": 4})
        self.assertEqual({row[0] for rows in self.kept() for row in rows}, {2})
        before = self.kept()
        self.sql("CREATE TRIGGER breaks BEFORE DELETE ON tSistemi BEGIN SELECT raise(ABORT,'nothing goes'); END")
        self.expect(DATABASE, "system", "delete", 2, "--yes")
        self.assertIn("could not be deleted, nothing was changed: sqlite: nothing goes", self.errors)
        self.assertEqual(self.kept(), before)


class Replacing(Systems):
    TWO = lines_of((1, 2), (3, 4))

    def setUp(self):
        super().setUp()
        self.keep(self.FOUR, "--title", "old")
        self.keep(self.FOUR, "--title", "other")

    def replace(self, *words, code=OK):
        self.keep(self.TWO, "--title", "new", "--id", 1, "--yes", *words, code=code)

    def test_it_is_a_new_one(self):
        done = self.summary("system", "save", "-", "--title", "new", "--id", 1, "--yes", stdin=self.TWO.encode())
        self.assertEqual(done, {"result": "replaced", "id": 3, "former_id": 1, "numbers": 4, "count": 2})
        self.assertEqual([row[:2] for row in self.kept()[0]], [(2, "other"), (3, "new")])
        self.assertEqual(self.plain("show", 3), self.TWO)
        self.assertEqual(len(self.kept()[1]), 6)

    def test_it_asks(self):
        before = self.kept()
        path = self.write("system.txt", self.TWO)
        words = ["system", "save", path, "--title", "new", "--id", 1]
        self.expect(USAGE, *words)
        code, shown = self.answering("\n", *words)
        self.assertIn("vestara: replace the saved system 1 with its 4 combinations? [y/N] ", shown)
        self.assertEqual((code, self.kept()), (USAGE, before))
        self.assertEqual(self.answering("y\n", *words)[0], OK)
        self.assertNotEqual(self.kept(), before)

    def test_a_refused_statement_leaves_the_old_system(self):
        before = self.kept()
        shown = [self.expect(OK, "system", "show", 1), self.expect(OK, "system", "list")]
        for event in ("DELETE ON tSistemi", "DELETE ON tSistemaDetail", "INSERT ON tSistemi",
                      "INSERT ON tSistemaDetail WHEN NEW.combinazione='1,2'",
                      "INSERT ON tSistemaDetail WHEN NEW.combinazione='3,4'"):
            self.sql(f"CREATE TRIGGER breaks BEFORE {event} BEGIN SELECT raise(ABORT,'not today'); END")
            self.replace(code=DATABASE)
            self.assertIn("could not be saved, nothing was changed: sqlite: not today", self.errors)
            self.assertEqual(self.kept(), before, event)
            if "INSERT" in event:
                self.keep(self.TWO, "--title", "another", code=DATABASE)
                self.assertEqual(self.kept(), before, event)
            self.sql("DROP TRIGGER breaks")
        self.assertEqual([self.expect(OK, "system", "show", 1), self.expect(OK, "system", "list")], shown)
        self.replace()
        self.assertNotEqual(self.kept(), before)

    def test_an_archive_that_takes_no_change(self):
        before = self.kept()
        self.replace("--db", f"sqlite:{self.archive}?mode=ro", code=DATABASE)
        with contextlib.closing(sqlite3.connect(self.archive, isolation_level=None)) as other:
            other.execute("BEGIN IMMEDIATE")
            self.replace("--db", f"sqlite:{self.archive}?timeout=50", code=DATABASE)
            other.execute("ROLLBACK")
        self.assertEqual(self.kept(), before)
        self.replace("--db", f"sqlite:{self.folder / 'missing'}", code=DATABASE)
        self.assertFalse((self.folder / "missing").exists())

    def test_a_killed_save_leaves_one_of_the_two(self):
        rows = list(itertools.islice(itertools.combinations(range(1, 91), 4), 30000))
        path = self.write("system.txt", lines_of(*rows))
        for pause in (0.1, 0.3, 0.6, 1):
            number = self.sql("SELECT min(idSis) FROM tSistemi")[0][0]
            before = self.kept()
            words = [PROGRAM, "system", "save", str(path), "--title", "new", "--id", str(number), "--yes"]
            with subprocess.Popen(words, env=self.environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as process:
                time.sleep(pause)
                process.kill()
            after = self.kept()
            if after != before:
                self.assertEqual(len(after[0]), 2)
                newest = after[0][-1][0]
                self.assertEqual([text for key, text in after[1] if key == newest],
                                 [",".join(map(str, row)) for row in rows])


class Playing(Systems):
    def test_positions(self):
        number = self.keep(lines_of((1, 2), (1, 3), (3,)), "--title", "positions")
        self.assertEqual(self.plain("show", number, "--numbers", "10,20,30"), "10,20\n10,30\n30\n")
        shown = self.summary("system", "show", number, "--numbers", "30,20,10,40")
        self.assertEqual((shown["played_with"], shown["combinations"][1]), ("30,20,10,40", {"combination": "30,10"}))
        self.expect(USAGE, "system", "show", number, "--numbers", "10,20")
        self.assertIn("has positions up to 3, --numbers gives 2 numbers; ", self.errors)
        self.sql("UPDATE tSistemi SET sisTipo='S'")
        self.expect(USAGE, "system", "show", number, "--numbers", "10,20,30")
        self.assertIn("is of kind S and has no positions; ", self.errors)
        self.assertEqual(self.plain("show", number), "1,2\n1,3\n3\n")

    def test_other_numbers(self):
        number = self.keep(lines_of((1, 2), (1, 3)), "--title", "t")
        path = self.write("system.txt", "1 2 # first\r\n1 3\r\n")
        for source in (number, path):
            self.assertEqual(self.plain("convert", source, "--numbers", "10,20,30"), "10,20\n10,30\n")
            self.assertEqual(self.summary("system", "convert", source, "--numbers", "30,20,10"),
                             {"numbers_before": "1,2,3", "numbers": "30,20,10", "count": 2,
                              "combinations": [{"combination": "30,20"}, {"combination": "30,10"}]})
            for numbers, count in (("10,20", 2), ("1,2,3,4", 4)):
                self.expect(USAGE, "system", "convert", source, "--numbers", numbers)
                self.assertIn(f" has 3 different numbers, --numbers gives {count}; give one for each of 1,2,3",
                              self.errors)
        self.assertEqual(len(self.kept()[0]), 1)

    def test_a_file_that_is_there_stays_until_the_new_one_is(self):
        number = self.keep(self.FOUR, "--title", "t")
        path = self.write("out", "as before\n")
        self.expect(USAGE, "system", "convert", number, "--numbers", "1,2", "--output", path)
        self.assertEqual(path.read_text(), "as before\n")
        self.expect(OK, "system", "convert", number, "--numbers", "1,2,3,4", "--output", path)
        self.assertEqual(path.read_text(), lines_of(*itertools.combinations((1, 2, 3, 4), 3)))
        self.assertEqual([p.name for p in self.folder.glob("out*")], ["out"])

    def test_systems_of_other_programs(self):
        self.sql("INSERT INTO tSistemi(idSis,titolo) VALUES(4,NULL)")
        self.assertEqual(self.summary("system", "list")["systems"][0]["title"], None)
        self.assertEqual(self.summary("system", "show", 4)["combinations"], [])
        self.assertEqual(self.plain("show", 4, code=NOTHING_FOUND), "")
        self.expect(NOTHING_FOUND, "system", "convert", 4, "--numbers", "1,2")
        self.assertIn("system 4 holds no combinations", self.errors)
        self.sql("INSERT INTO tSistemaDetail(idSis,combinazione) VALUES(4,'one,two')")
        self.expect(DATABASE, "system", "convert", 4, "--numbers", "1,2")
        self.expect(DATABASE, "system", "show", 4, "--numbers", "1,2")
        self.assertIn("cannot be read, see ", self.errors)
        self.assertEqual(self.plain("show", 4), "one,two\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
