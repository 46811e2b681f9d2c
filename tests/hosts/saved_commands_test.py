"""saved, end to end. VESTARA_PROGRAM is the command line."""

import datetime
import os
import pty
import subprocess
import unittest

from command_line_test import DATABASE, NOTHING_FOUND, OK, PROGRAM, USAGE
from draw_commands_test import Draws


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

    def test_a_search_that_goes_while_the_question_stands(self):
        number = self.save_search("5", "--name", "first")
        code, shown = self.answering("y\n", "saved", "save", "7", "--name", "second", "--id", number,
                                     meanwhile=lambda: self.sql("DELETE FROM tRicerche"))
        self.assertEqual(code, NOTHING_FOUND, shown)
        self.assertIn(f"no search is saved as {number}; ", shown)
        self.assertEqual(self.sql("SELECT * FROM tRicerche"), [])

    def test_nobody_is_asked_where_nobody_can_answer(self):
        """Standard error is a terminal, standard input is none."""
        number = self.save_search("5", "--name", "first")
        shown = self.on_terminal("saved", "delete", number, stream="stderr", code=USAGE)
        self.assertIn(b"there is no terminal to ask", shown)
        self.assertNotIn(b"[y/N]", shown)
        self.assertEqual(len(self.summary("saved", "list")["searches"]), 1)

    def test_a_question_that_nobody_sees_is_not_asked(self):
        """Standard input is a terminal, standard error is none."""
        number = self.save_search("5", "--name", "first")
        ours, theirs = pty.openpty()
        os.write(ours, b"y\n")
        done = subprocess.run([PROGRAM, "saved", "delete", str(number)], env=self.environment, stdin=theirs,
                              capture_output=True, check=False)
        os.close(theirs)
        os.close(ours)
        self.assertEqual(done.returncode, USAGE)
        self.assertIn(b"there is no terminal to ask", done.stderr)
        self.assertNotIn(b"[y/N]", done.stderr)
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


if __name__ == "__main__":
    unittest.main(verbosity=2)
