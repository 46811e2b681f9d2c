"""The built command line, end to end. VESTARA_PROGRAM is its path; VESTARA_REAL_ARCHIVE names the CSV of the real
archive (by default the one beside the project, when it is there)."""

import contextlib
import csv
import functools
import hashlib
import io
import json
import os
import pathlib
import pty
import resource
import signal
import sqlite3
import subprocess
import tempfile
import time
import unittest
import zipfile

PROGRAM = os.environ["VESTARA_PROGRAM"]
PROJECT = pathlib.Path(__file__).resolve().parents[2]
REAL_ARCHIVE = pathlib.Path(
    os.environ.get("VESTARA_REAL_ARCHIVE", PROJECT.parent / "shared" / "data" / "estrazioni-lotto.csv"))

OK, NOTHING_FOUND, USAGE, DATABASE, FILE = range(5)

# What runs in the background may have these ignored, and the programs that are started here would inherit it.
signal.signal(signal.SIGINT, signal.default_int_handler)
signal.signal(signal.SIGHUP, signal.SIG_DFL)


def limited_to(size):
    """Files of the program that is started may not grow beyond so many bytes, as after ulimit -f."""
    return functools.partial(resource.setrlimit, resource.RLIMIT_FSIZE, (size, size))


class CommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.scratch = self.folder / "scratch"
        self.scratch.mkdir()
        self.archive = self.folder / "archive.sqlite"
        self.environment = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "TERM")}
        self.environment |= {
            "VESTARA_DB": f"sqlite:{self.archive}",
            "VESTARA_LOG_DIR": str(self.folder),
            "TMPDIR": str(self.scratch),
        }

    def run_program(self, *arguments, stdin=b"", **more):
        more.setdefault("env", self.environment)
        return subprocess.run([PROGRAM, *map(str, arguments)], input=stdin, capture_output=True, check=False, **more)

    def expect(self, code, *arguments, **more):
        """Runs, checks the exit code and that only a success is silent on stderr; returns stdout as text."""
        done = self.run_program(*arguments, **more)
        self.assertEqual(done.returncode, code, done.stderr.decode())
        self.errors = done.stderr.decode()
        if code not in (OK, NOTHING_FOUND):
            self.assertTrue(self.errors.startswith("vestara: "), self.errors)
            self.assertEqual(done.stdout, b"")
        return done.stdout.decode()

    def summary(self, *arguments, code=OK, **more):
        return json.loads(self.expect(code, "--format", "json", *arguments, **more))

    def write(self, name, text):
        path = self.folder / name
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        return path

    def generated(self, seed=1, first="2004-01-01", last="2006-12-31"):
        return self.expect(OK, "generate", "--seed", seed, "--from", first, "--to", last).encode()

    def imported(self, seed=1, **more):
        path = self.write("draws.txt", self.generated(seed, **more))
        self.expect(OK, "import", path)
        return path

    def on_terminal(self, *arguments, stream, code=OK, **variables):
        """What one of the two streams shows when it is a terminal. Standard input is none."""
        ours, theirs = pty.openpty()
        streams = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, stream: theirs}
        with subprocess.Popen([PROGRAM, *map(str, arguments)], env=self.environment | variables, **streams) as process:
            os.close(theirs)
            shown = b""
            try:
                while block := os.read(ours, 4096):
                    shown += block
            except OSError:  # the other side is closed
                pass
            self.assertEqual(process.wait(), code)
        os.close(ours)
        return shown

    def answering(self, answer, *arguments, meanwhile=None):
        """Runs at a terminal where somebody types the answer; returns the exit code and what the terminal shows.
        `meanwhile` is called when the question stands there."""
        ours, theirs = pty.openpty()
        with subprocess.Popen([PROGRAM, *map(str, arguments)], env=self.environment, stdin=theirs, stderr=theirs,
                              stdout=subprocess.DEVNULL) as process:
            os.close(theirs)
            shown = b""
            try:
                while meanwhile and b"[y/N] " not in shown:
                    shown += os.read(ours, 4096)
                if meanwhile:
                    meanwhile()
                os.write(ours, answer.encode())
                while block := os.read(ours, 4096):
                    shown += block
            except OSError:  # the other side is closed
                pass
            code = process.wait()
        os.close(ours)
        return code, shown.decode()


class ErrorLog(CommandLine):
    """A load that meets a number which there is not writes an entry."""

    def logged(self, **environment):
        self.imported()
        with contextlib.closing(sqlite3.connect(self.archive)) as archive, archive:
            archive.execute("UPDATE storico SET estr1 = 91")
        del self.environment["VESTARA_LOG_DIR"]
        self.environment |= environment
        self.expect(DATABASE, "delays")

    def test_lies_in_the_state_folder(self):
        for variables, place in (({"XDG_STATE_HOME": "{}/state"}, "state/vestara"),
                                 ({"XDG_STATE_HOME": "", "HOME": "{}/home"}, "home/.local/state/vestara"),
                                 ({"XDG_STATE_HOME": "relative", "HOME": "{}/home2"}, "home2/.local/state/vestara"),
                                 ({"VESTARA_LOG_DIR": "{}/scratch", "HOME": "{}/home3"}, "scratch")):
            self.setUp()
            self.logged(**{name: value.format(self.folder) for name, value in variables.items()})
            entry = (self.folder / place / "ErrVestara.log").read_bytes()
            self.assertIn(b"- Procedura: vestara: the delays cannot be counted\r\nDesc.: Subscript out of range\r\n", entry)

    def test_a_pipe_or_a_link_in_its_place_is_left_alone(self):
        victim = self.write("victim", "kept")
        log = self.scratch / "ErrVestara.log"
        os.mkfifo(log)
        self.logged(VESTARA_LOG_DIR=str(self.scratch))
        log.unlink()
        log.symlink_to(victim)
        self.expect(DATABASE, "delays", timeout=60)
        self.assertEqual(victim.read_bytes(), b"kept")


class RoundTrip(CommandLine):
    def test_every_form_leads_back_to_the_same_bytes(self):
        tsv = self.generated()
        rows = tsv.count(b"\n")
        imported = self.summary("import", self.write("a.txt", tsv))
        self.assertEqual((imported["read"], imported["added"], imported["file_form"]), (rows, rows, "tsv"))
        held = self.summary("archive")
        self.assertEqual(held["rows"], rows)
        self.assertEqual((held["first_date"], held["last_date"]), ("2004-01-03", "2006-12-30"))
        self.assertEqual(len(held["wheels"]), 11)
        first = tsv.split(b"\n")[0].decode().split("\t")
        found = self.summary("search", ",".join(first[2:]), "--hits", "cinquina", "--wheels", first[1])
        self.assertIn({"date": "2004-01-03", "contest": 1}, found["dates"])
        self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), tsv)
        for form in (["csv"], ["csv", "--contest"], ["update"]):
            out = self.folder / "out"
            self.expect(OK, "export", "--output", out, "--as", *form)
            other = ["--db", f"sqlite:{self.folder}/other.sqlite"]
            again = self.summary(*other, "import", out)
            self.assertEqual((again["read"], again["repeated"]), (rows, 0))
            self.assertEqual(self.expect(OK, *other, "export", "--as", *form).encode(), out.read_bytes())
            self.assertEqual(self.expect(OK, *other, "export", "--as", "tsv").encode(), tsv)

    def test_contest_numbers_that_cannot_be_are_left_out(self):
        self.imported(last="2004-01-10")
        for number, shown in (("1", "1"), ("32766", "32766"), ("32767", "32767"), ("32768", ""), ("40000", ""),
                              ("65537", ""), ("0", ""), ("-1", ""), ("NULL", "")):
            with contextlib.closing(sqlite3.connect(self.archive)) as archive, archive:
                archive.execute(f"UPDATE storico SET concorsoNumero={number}")
            rows = list(csv.DictReader(io.StringIO(self.expect(OK, "export", "--contest"))))
            self.assertEqual({row["contest"] for row in rows}, {shown}, number)
            self.assertEqual(self.errors, "")

    def test_a_seed_is_a_file(self):
        digest = hashlib.sha256(self.generated(42, "1871-01-07", "1900-12-31")).hexdigest()
        self.assertEqual(digest, "4095c81de2a0a6098753a61e60d4a8a58b35f51c63a8e961de3133760c3adeeb")
        out = self.folder / "out"
        self.expect(OK, "generate", "--seed", 1, "--from", "1/1/2004", "--to", "31/12/2006", "--output", out)
        self.assertEqual(out.read_bytes(), self.generated(1))
        self.assertNotEqual(self.generated(2), self.generated(1))

    def test_an_import_replaces_when_it_is_told_to(self):
        self.imported(seed=1)
        second = self.write("second.txt", self.generated(2, last="2006-12-23"))
        change = self.summary("import", "--replace", second)
        self.assertGreater(change["gone"], 0)
        self.assertIn(f"warning: {change['gone']} rows of the archive went away", self.errors)
        self.assertIn("more\n", self.errors)
        self.assertEqual(change["held_before"] - change["gone"] + change["added"], change["read"])
        self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), second.read_bytes())
        self.assertEqual(self.summary("import", second)["added"], 0)
        self.assertEqual(self.errors, "")


class Sources(CommandLine):
    def test_zip_and_standard_input(self):
        tsv = self.generated()
        packed = self.packed({"__MACOSX/._storico.txt": b"x", "folder/": b"", "folder/storico.txt": tsv})
        for name, stdin in (("-", tsv), ("-", packed), (self.write("a.zip", packed), b"")):
            self.archive.unlink(missing_ok=True)
            self.expect(OK, "import", name, stdin=stdin)
            self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), tsv)

    @staticmethod
    def packed(files):
        target = io.BytesIO()
        with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as archive:
            for name, content in files.items():
                archive.writestr(name, content)
        return target.getvalue()

    def test_what_else_a_zip_may_hold(self):
        tsv = self.generated()
        for other, counts in (("__MACOSX/storico.txt", False), ("__MACOSX/folder/storico.txt", False),
                              (".storico.txt", False), ("folder/.storico.txt", False), ("folder/", False),
                              ("storico.txt~", True), ("__MACOSX.txt", True), ("folder/__MACOSX/storico.txt", True)):
            for names in (("storico.txt", other), (other, "storico.txt")):
                with self.subTest(names=names):
                    packed = self.packed({name: tsv if name == "storico.txt" else b"" if name.endswith("/") else b"x"
                                          for name in names})
                    self.expect(FILE if counts else OK, "import", "--dry-run", "-", stdin=packed)
                    self.assertEqual("the zip holds 2 files" in self.errors, counts)

    def test_unusable_zips(self):
        def packed(**files):
            return self.packed(files)

        damaged = bytearray(packed(a=self.generated()))
        damaged[200] ^= 0xFF
        target = io.BytesIO()
        with zipfile.ZipFile(target, "w", zipfile.ZIP_STORED) as archive:
            archive.writestr("a", self.generated())
        other_bytes = bytearray(target.getvalue())
        other_bytes[other_bytes.index(b"\t") + 4] ^= 0x01  # a digit: the draws would still be such
        for content, why in ((bytes(other_bytes), "standard input: "), (packed(), "holds no file"), (packed(a="x", b="y"), "holds 2 files"),
                             (bytes(damaged), "standard input: "), (packed(a=b""), "is empty")):
            self.expect(FILE, "import", "-", stdin=content)
            self.assertIn(why, self.errors)
        self.assertFalse(self.archive.exists())

    def test_dates_before_1900(self):
        text = "date,wheel,n1,n2,n3,n4,n5\n1871-01-07,FI,15,71,18,64,81\n1899-12-30,NA,1,2,3,4,5\n1900-01-06,VE,1,2,3,4,5\n"
        self.expect(OK, "import", "-", stdin=text.encode())
        self.assertEqual(self.expect(OK, "export"), text)
        dates = self.summary("search", 1, "--asc")["dates"]
        self.assertEqual([row["date"] for row in dates], ["1899-12-30", "1900-01-06"])

    def test_nothing_stays_behind(self):
        self.imported()
        self.assertEqual(list(self.scratch.iterdir()), [])

    def test_exactly_a_thousand_rows_and_one_more_or_less(self):
        lines = self.generated().splitlines(keepends=True)
        for count in (1, 999, 1000, 1001, 2000, 2001):
            text = b"".join(lines[:count])
            self.assertEqual(self.summary("import", "--replace", "-", stdin=text)["read"], count)
            self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), text)


class Failures(CommandLine):
    def test_exit_codes(self):
        self.expect(DATABASE, "archive")
        self.assertEqual(self.errors, f"vestara: the archive {self.archive} is missing; vestara import FILE makes one\n")
        self.assertFalse(self.archive.exists())
        self.imported()
        out = self.folder / "no" / "out"
        for code, *arguments in (
                (USAGE,), (USAGE, "nothing"), (USAGE, "search"), (USAGE, "search", "91"), (USAGE, "search", "5,5"),
                (USAGE, "search", "5", "--wheels", "BA,XX"), (USAGE, "search", "5", "--hits", "6"),
                (USAGE, "search", "5", "--from", "2004-02-30"), (USAGE, "archive", "--format", "xml"),
                (USAGE, "archive", "--unknown"), (USAGE, "import"), (USAGE, "export", "--as", "xml"),
                (USAGE, "search", "5", "--color", "blue"), (DATABASE, "archive", "--db", "nonsense"),
                (DATABASE, "archive", "--db", f"sqlite:{self.folder}"), (FILE, "import", self.folder / "missing"),
                (FILE, "import", self.folder), (FILE, "export", "--output", out), (NOTHING_FOUND, "search", "5", "--to",
                                                                                  "2003-12-31")):
            with self.subTest(arguments=arguments):
                self.expect(code, *arguments)
        self.assertFalse(out.parent.exists())

    def test_nothing_found_still_counts(self):
        self.imported()
        found = self.summary("search", "5", "--to", "2003-12-31", code=NOTHING_FOUND)
        self.assertEqual(found, {"rows": 0, "draws": 0, "ambate": 0, "ambi": 0, "terni": 0, "quaterne": 0,
                                 "cinquine": 0, "dates": []})

    def test_a_bad_row_leaves_the_old_archive(self):
        good = self.imported().read_bytes()
        lines = good.splitlines(keepends=True)
        bad = b"".join(lines[:1500] + [b"2004/13/01\tBA\t1\t2\t3\t4\t5\n"] + lines[1500:])
        for flags in ([], ["--dry-run"]):
            self.expect(FILE, "import", *flags, "-", stdin=bad)
            self.assertIn("line 1501: \"2004/13/01\" is no date", self.errors)
            self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), good)

    def test_a_locked_archive_keeps_what_it_holds(self):
        good = self.imported().read_bytes()
        self.archive.chmod(0o444)
        for extra in self.folder.glob("archive.sqlite-*"):
            extra.unlink()
        other = self.write("other.txt", self.generated(2))
        self.expect(DATABASE, "--db", f"sqlite:{self.archive}?mode=ro", "import", "--replace", other)
        self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), good)

    def test_a_database_that_does_not_keep_every_row(self):
        good = self.imported().read_bytes()
        other = self.write("other.txt", self.generated(2))
        for body, why in (("DELETE FROM storico WHERE id=NEW.id", "the archive took "),
                          ("SELECT raise(ABORT,'no more rows')", "no more rows")):
            with contextlib.closing(sqlite3.connect(self.archive)) as database:
                database.execute("CREATE TRIGGER breaks AFTER INSERT ON storico WHEN NEW.ruota='VE' "
                                 f"AND NEW.dtEstr>'2006-06-01' BEGIN {body}; END")
            self.expect(DATABASE, "import", "--replace", other)
            self.assertIn(why, self.errors)
            with contextlib.closing(sqlite3.connect(self.archive)) as database:
                database.execute("DROP TRIGGER breaks")
            self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), good)

    def test_an_archive_in_use(self):
        good = self.imported().read_bytes()
        other = self.write("other.txt", self.generated(2))
        with contextlib.closing(sqlite3.connect(self.archive)) as database:
            database.execute("BEGIN IMMEDIATE")
            self.expect(DATABASE, "--db", f"sqlite:{self.archive}?timeout=50", "import", "--replace", other)
            self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), good)

    def test_a_dry_run_changes_nothing(self):
        new = self.write("new.txt", self.generated(2))
        first = self.summary("import", "--dry-run", new)
        self.assertEqual((first["result"], first["held_before"]), ("checked, nothing changed", 0))
        self.assertFalse(self.archive.exists())
        self.archive.touch()  # a database without tables
        for words in ([], ["--replace"]):
            self.assertEqual(self.summary("import", "--dry-run", *words, new), first)
        self.assertEqual(self.archive.read_bytes(), b"")
        self.imported(seed=1)
        before = self.archive.read_bytes()
        second = self.summary("import", "--dry-run", "--replace", new)
        self.assertEqual((second["gone"], second["added"], second["changed"]), (0, 0, first["read"]))
        self.expect(FILE, "import", "--dry-run", new)
        self.assertIn("would change", self.errors)
        self.assertEqual(self.archive.read_bytes(), before)

    def test_a_reader_that_leaves_early(self):
        self.imported()
        for command in (["export"], ["generate", "--seed", "1", "--from", "1871-01-07", "--to", "2026-01-01"]):
            with subprocess.Popen([PROGRAM, *command], env=self.environment, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE) as process:
                process.stdout.read(10)
                process.stdout.close()
                self.assertEqual(process.stderr.read(), b"")
                self.assertIn(process.wait(), (OK, -signal.SIGPIPE))

    def test_a_reader_that_leaves_early_where_the_signal_is_ignored(self):
        """Without the signal the writing itself fails, which is no error either."""
        self.imported(first="1990-01-01")
        with subprocess.Popen([PROGRAM, "export"], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, restore_signals=False) as process:
            process.stdout.read(10)
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            self.assertEqual(process.wait(), OK)

    @unittest.skipUnless(os.path.exists("/dev/full"), "this system has no /dev/full")
    def test_a_full_disk_is_said(self):
        self.imported()
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "export"], env=self.environment, stdout=full, stderr=subprocess.PIPE,
                                  check=False)
        self.assertEqual(done.returncode, FILE)
        self.assertIn(b"No space left", done.stderr)

    def test_a_file_that_may_not_grow_is_said(self):
        good = self.imported().read_bytes()
        more = self.write("more.txt", self.generated(last="2026-12-31"))
        self.assertTrue(more.read_bytes().startswith(good))
        # What does not fit: anything, the first rows, the rows behind twice the archive.
        fits = self.archive.stat().st_size
        for size in (65536, fits + 600_000, fits * 2):
            with self.subTest(size=size):
                self.expect(DATABASE, "import", more, preexec_fn=limited_to(size))
                self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), good)
        out = self.folder / "out.txt"
        self.expect(FILE, "export", "--output", out, preexec_fn=limited_to(65536))
        self.assertFalse(out.exists())
        self.assertEqual(list(self.folder.glob("*part*")), [])
        self.expect(OK, "import", more)


class Options(CommandLine):
    def test_common_options_stand_before_and_after(self):
        self.imported()
        del self.environment["VESTARA_DB"]
        database = ["--db", f"sqlite:{self.archive}"]
        expected = self.expect(OK, *database, "--format", "csv", "--color", "never", "archive")
        self.assertEqual(self.expect(OK, "archive", *database, "--format", "csv", "--color", "never"), expected)
        self.assertEqual(self.expect(OK, "--format", "json", "archive", *database, "--format", "csv"), expected)

    def test_the_usual_archive_comes_with_its_folder(self):
        del self.environment["VESTARA_DB"]
        tsv = self.generated()
        for name, place in (("XDG_DATA_HOME", "data"), ("HOME", "home/.local/share")):
            environment = {key: value for key, value in self.environment.items() if key != "XDG_DATA_HOME"}
            environment[name] = str(self.folder / place.split("/")[0])
            self.expect(DATABASE, "archive", env=environment)
            self.expect(OK, "import", "--dry-run", "-", stdin=tsv, env=environment)
            archive = self.folder / place / "vestara" / "archive.sqlite"
            self.assertFalse(archive.parent.exists())
            self.expect(OK, "import", "-", stdin=tsv, env=environment)
            self.assertTrue(archive.is_file())
            self.assertEqual(self.expect(OK, "export", "--as", "tsv", env=environment).encode(), tsv)

    def test_forms_parse(self):
        self.imported()
        search = ["search", "5", "12", "--hits", "ambo"]
        one = self.summary(*search)
        lines = [json.loads(line) for line in self.expect(OK, *search, "--format", "jsonl").splitlines()]
        self.assertEqual(lines[0], {"kind": "summary", **{key: one[key] for key in one if key != "dates"}})
        self.assertEqual(lines[1:], [{"kind": "date", **row} for row in one["dates"]])
        facts, dates = self.expect(OK, *search, "--format", "csv").split("\n\n")
        facts = {row["name"]: int(row["value"]) for row in csv.DictReader(io.StringIO(facts))}
        self.assertEqual(facts, {key: one[key] for key in one if key != "dates"})
        rows = [{"date": row["date"], "contest": int(row["contest"])} for row in csv.DictReader(io.StringIO(dates))]
        self.assertEqual(rows, one["dates"])
        markdown = self.expect(OK, *search, "--format", "markdown")
        self.assertIn(f"| draws | {one['draws']} |\n", markdown)
        for form in ("json", "jsonl", "csv", "markdown", "table"):
            self.assertTrue(self.expect(OK, "archive", "--format", form))
            self.assertTrue(self.expect(OK, "import", self.folder / "draws.txt", "--format", form))

    def test_the_limit_cuts_the_table(self):
        self.imported()
        table = self.expect(OK, "search", "5", "--limit", "2")
        self.assertRegex(table, r"\ndate +contest\n.*\n.*\nand \d+ more\n$")

    def test_a_search_agrees_with_the_file(self):
        tsv = self.generated()
        self.expect(OK, "import", "-", stdin=tsv)
        rows = [line.split("\t") for line in tsv.decode().splitlines()]
        for wanted, hits, wheels, option in (({5}, 1, None, "all"), ({5, 12, 33}, 2, None, "all"),
                                             ({90, 1}, 1, {"BA", "RN"}, "ba,nz"), ({7}, 1, "RN", "cities")):
            def counts(row):
                return len(wanted & set(map(int, row[2:]))) >= hits and (
                    wheels is None or (row[1] != "RN" if wheels == "RN" else row[1] in wheels))
            matches = [row for row in rows if counts(row)]
            found = self.summary("search", *wanted, "--hits", hits, "--wheels", option)
            self.assertEqual(found["rows"], len(matches))
            self.assertEqual([row["date"] for row in found["dates"]],
                             sorted({row[0].replace("/", "-") for row in matches}, reverse=True))

    def test_colour_is_for_terminals(self):
        self.imported()
        self.assertNotIn("\033", self.expect(OK, "archive"))
        self.assertIn("\033[1m", self.expect(OK, "archive", "--color", "always"))
        for variables, code in (({}, b"\033[1m"), ({"NO_COLOR": "1"}, None), ({"TERM": "dumb"}, None)):
            shown = self.on_terminal("archive", stream="stdout", **variables)
            self.assertEqual(b"\033[1m" in shown, code is not None, variables)

    def test_progress_is_for_terminals(self):
        path = self.write("draws.txt", self.generated())
        shown = self.on_terminal("import", path, stream="stderr")
        self.assertIn(b"\rimport [", shown)
        self.assertTrue(shown.endswith(b"\r\033[K"), shown)
        self.expect(OK, "import", path)
        self.assertEqual(self.errors, "")


class Interruption(CommandLine):
    def test_an_interrupted_import_takes_everything_back(self):
        good = self.imported().read_bytes()
        other = self.write("other.txt", self.generated(2, "1950-01-01", "2006-12-31"))
        with subprocess.Popen([PROGRAM, "import", "--replace", other], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as process:
            time.sleep(0.05)
            process.send_signal(signal.SIGINT)
            code = process.wait()
        expected = good if code == -signal.SIGINT else other.read_bytes()
        self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), expected)


@unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
class RealArchive(CommandLine):
    def test_the_real_archive(self):
        imported = self.summary("import", REAL_ARCHIVE)
        self.assertEqual((imported["read"], imported["added"], imported["rejected"]), (105156, 105156, 0))
        held = self.summary("archive")
        self.assertEqual((held["draw_dates"], held["rows"], held["first_date"], held["last_date"]),
                         (10918, 105156, "1871-01-07", "2026-08-21"))
        wheels = {row["wheel"]: row for row in held["wheels"]}
        self.assertEqual((wheels["BA"]["rows"], wheels["BA"]["first_date"]), (10740, "1874-05-02"))
        self.assertEqual((wheels["RN"]["rows"], wheels["RN"]["first_date"]), (3474, "2005-05-04"))
        venice = ["search", 53, "--wheels", "VE", "--to", "2005-02-09"]
        self.assertEqual(self.summary(*venice)["draws"], 430)
        self.assertEqual(self.summary(*venice, "--from", "1945-01-01")["draws"], 205)
        self.assertEqual(self.expect(OK, "export").encode(), REAL_ARCHIVE.read_bytes())


if __name__ == "__main__":
    unittest.main(verbosity=2)
