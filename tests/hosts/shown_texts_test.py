"""What the command line shows of other people's texts: no orders to a terminal, no passwords. VESTARA_PROGRAM is the
command line."""

import csv
import io
import json
import os
import subprocess
import unittest

from command_line_test import OK, PROGRAM, CommandLine

# One of each kind: control characters, C1 as a character and as a byte, marks that turn the direction, bad UTF-8.
ORDERS = ["\x1b[2J", "\x07", "\x7f", "\u009b2J", "\u202e", "\u2066", "\u200f", "\u061c"]
BYTES = [text.encode() for text in ORDERS] + [b"\x9b2J", b"\xc3", b"\xed\xa0\x80", b"\xff"]


class Orders(CommandLine):
    def assert_harmless(self, shown, *context):
        for order in BYTES:
            self.assertNotIn(order, shown, context)
        shown.decode()  # and valid throughout

    def test_messages(self):
        self.imported()
        for order in BYTES:
            text = b"a" + order + b"b"
            for words in ([text], ["search", text], ["search", "5", b"--wheels=" + text], ["search", "5", b"--from=" + text],
                          ["import", text], ["archive", b"--db=" + text], ["archive", b"--db=sqlite:/none/" + text],
                          ["archive", b"--db=nosuch://host/" + text], ["export", b"--output=/none/" + text],
                          ["backup", b"/none/" + text], ["restore", b"/none/" + text], ["describe", text],
                          ["call", text, "x"], ["call", "Vestara.cLotto", text]):
                done = self.run_raw(*words)
                self.assertNotIn(done.returncode, (OK, -6, -11), words)
                self.assert_harmless(done.stderr, words)
                self.assert_harmless(done.stdout, words)

    def run_raw(self, *words, **variables):
        return subprocess.run([PROGRAM.encode(), *(word if isinstance(word, bytes) else word.encode() for word in words)],
                              env=self.environment | variables, stdin=subprocess.DEVNULL, capture_output=True, check=False)

    def test_warnings(self):
        self.imported()
        del self.environment["VESTARA_DB"]
        for order in BYTES:
            file = bytes(self.folder) + b"/a" + order + b"b"
            with open(file, "wb") as system:
                system.write(b"1,2\n3\n")
            done = self.run_raw("system", "convert", file, "--numbers", "5,6,7")
            self.assertEqual(done.returncode, OK, done.stderr)
            self.assertIn(b" has combinations of different lengths\n  line 2: ", done.stderr)
            self.assert_harmless(done.stderr, order)
            done = self.run_raw("call", "Vestara.cLotto", "DbType", "--get", XDG_DATA_HOME=os.fsdecode(file))
            self.assertEqual(done.returncode, OK, done.stderr)
            self.assertIn(b"archive.sqlite is missing, the object goes without", done.stderr)
            self.assert_harmless(done.stderr, order)

    def test_the_answer_of_a_call(self):
        self.imported()
        for text in ORDERS:
            done = self.run_raw("call", "Dorvane.DbConnector", "OpenRecordset", "empty", f"SELECT 'a{text}b' AS t")
            self.assertEqual(done.returncode, OK, done.stderr)
            self.assertEqual(json.loads(done.stdout)["written_back"]["rs"], [{"t": f"a{text}b"}])
            self.assert_harmless(done.stdout, text)
            done = self.run_raw("call", "Dorvane.DbConnector", "OpenRecordset", "empty", f"SELECT x AS \"a{text}b\"")
            self.assertNotEqual(done.returncode, OK)
            self.assert_harmless(done.stdout + done.stderr, text)

    def test_tables_and_the_forms_for_programs(self):
        self.imported()
        for place, text in enumerate(ORDERS, 1):
            name = f"a{text}b"
            self.expect(OK, "saved", "save", "5", f"--name={name}")
            for words in (["saved", "list"], ["saved", "show", place]):
                for form in ("table", "markdown"):
                    shown = self.run_program(*words, "--format", form)
                    self.assertEqual(shown.returncode, OK)
                    self.assert_harmless(shown.stdout, words, form)
            as_json = self.run_program("saved", "show", place, "--format", "json").stdout
            self.assertEqual(json.loads(as_json)["name"], name)
            self.assert_harmless(as_json)
            rows = csv.DictReader(io.StringIO(self.run_program("saved", "list", "--format", "csv").stdout.decode()))
            self.assertIn(name, [row["name"] for row in rows])


class Passwords(CommandLine):
    def test_no_message_shows_one(self):
        urls = [f"{scheme}{rest}" for scheme in ("postgresql:", "mariadb:", "other:")
                for rest in ("//u:s3cret@", "//u:s3cret@/", "//u:s3cret@:x/d", "//u:s3cret", "//:s3cret@127.0.0.1:1/d", "u:s3cret@h/d",
                             "//u@127.0.0.1:1/d?key=s3cret", "//u@127.0.0.1:1/d?tls=s3cret", "//u@127.0.0.1:1/d?password=s3cret",
                             "//u:s3cret@127.0.0.1:1/d?mode=x", "//u:s3%zzcret@127.0.0.1:1/d", "//u:s3cret@h@i:1/d", "//u:s3cret@[::1/d",
                             "//u:a?s3cret@127.0.0.1:1/d", "//u:a/s3cret@127.0.0.1:1/d", "//u:s3cret@127.0.0.1:1/d?timeout=x")]
        for url in urls:
            for words in (["doctor", "--db", url], ["export", "--db", url], ["copy", "--from", url, "--to", "sqlite::memory:"],
                          ["backup", "x", "--db", url], ["call", "Dorvane.DbConnector", "Open", url]):
                with self.subTest(words=words):
                    done = self.run_program(*words)
                    self.assertNotIn(b"s3cret", done.stdout + done.stderr)
        for log in self.folder.glob("*.log"):
            self.assertNotIn(b"s3cret", log.read_bytes())


if __name__ == "__main__":
    unittest.main(verbosity=2)
