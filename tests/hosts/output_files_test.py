"""Where results go: closed descriptors, files that are replaced, processes that are ended while they write one.
VESTARA_PROGRAM is the command line; VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB name databases that the tests may
empty."""

import itertools
import os
import signal
import stat
import subprocess
import time
import unittest

from command_line_test import FILE, OK, PROGRAM, CommandLine

LONG = ["generate", "--seed", "1", "--from", "1871-01-07", "--to", "2999-12-31"]


class ClosedDescriptors(CommandLine):
    def run_without(self, descriptors, *arguments, **more):
        """Runs with these descriptors closed; the exit code and what standard error says, where it is open."""
        closing = " ".join(f"{number}>&-" for number in descriptors)
        done = subprocess.run(["/bin/sh", "-c", f'exec "$@" {closing}', "sh", PROGRAM, *map(str, arguments)],
                              env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, check=False, **more)
        return done.returncode, done.stdout, done.stderr.decode()

    def test_results_that_nobody_takes_are_an_error(self):
        tsv = self.imported()
        before = self.archive.read_bytes()
        for words in (["archive"], ["export"], ["search", "5", "--format", "json"], ["--help"], ["doctor"]):
            for descriptors in ((1,), (0, 1), (0, 1, 2), (1, 2)):
                with self.subTest(words=words, descriptors=descriptors):
                    code, _, errors = self.run_without(descriptors, *words)
                    self.assertEqual(code, FILE)
                    if 2 not in descriptors:
                        self.assertEqual(errors, "vestara: the results cannot be written: standard output is closed; "
                                                 "standard output must take them\n")
        self.assertEqual(self.archive.read_bytes(), before)
        self.assertEqual(self.expect(OK, "export", "--as", "tsv").encode(), tsv.read_bytes())

    def test_where_no_results_are_due_nothing_is_missing(self):
        self.imported()
        out = self.folder / "out"
        code, _, errors = self.run_without((0, 1), "export", "--output", out)
        self.assertEqual((code, errors), (OK, ""))
        self.assertEqual(out.read_bytes(), self.expect(OK, "export").encode())
        code, shown, _ = self.run_without((0, 2), "export")
        self.assertEqual((code, shown), (OK, out.read_bytes()))

    def test_closed_input_is_empty(self):
        self.assertEqual(self.run_without((0,), "import", "-")[0], FILE)

    def test_a_server_gets_no_results(self):
        for variable in ("VESTARA_TEST_POSTGRESQL", "VESTARA_TEST_MARIADB"):
            url = os.environ.get(variable)
            if not url:
                continue
            self.expect(OK, "--db", url, "call", "Dorvane.DbConnector", "CreateSchema")
            for descriptors in ((1,), (0, 1, 2)):
                code, _, errors = self.run_without(descriptors, "doctor", "--db", url)
                self.assertEqual(code, FILE, errors)


class Shortages(CommandLine):
    def test_a_process_that_may_open_no_more_files_says_so(self):
        self.imported()
        for files in (4, 5):
            done = subprocess.run(["/bin/sh", "-c", f'ulimit -n {files}; exec "$@"', "sh", PROGRAM, "archive"],
                                  env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, check=False)
            self.assertEqual((done.returncode, done.stdout), (3, b""))
            self.assertRegex(done.stderr.decode(), r"may open only \d more files, raise ulimit -n\n$")


class ReplacedFiles(CommandLine):
    def test_an_output_keeps_what_belongs_to_the_file(self):
        self.imported()
        whole = self.expect(OK, "export").encode()
        target = self.write("target", "before")
        os.link(target, self.folder / "other name")
        (self.folder / "link").symlink_to("target")
        target.chmod(0o604)
        for name, old in itertools.product(("target", "other name", "link"), (b"before", whole + b"before")):
            target.write_bytes(old)
            before = target.stat()
            self.expect(OK, "export", "--output", self.folder / name)
            after = target.stat()
            self.assertEqual(target.read_bytes(), whole)
            self.assertEqual((after.st_ino, after.st_nlink, after.st_mode, after.st_uid, after.st_gid),
                             (before.st_ino, 2, before.st_mode, before.st_uid, before.st_gid))
        self.assertTrue((self.folder / "link").is_symlink())

    @unittest.skipUnless(os.geteuid() == 0, "only an administrator can give files away")
    def test_an_output_keeps_its_owner(self):
        self.imported()
        target = self.write("target", "before")
        os.chown(target, 12345, 54321)
        target.chmod(0o640)
        self.expect(OK, "export", "--output", target)
        after = target.stat()
        self.assertEqual((after.st_uid, after.st_gid, stat.S_IMODE(after.st_mode)), (12345, 54321, 0o640))

    def test_a_place_that_is_taken_is_not_followed(self):
        """Nothing that somebody puts beside the output beforehand is written into."""
        self.imported()
        victim = self.write("victim", "mine")
        for name in ("out.part", f"out.part-{os.getpid()}", ".vestara-part-", ".vestara-part-XXXXXX"):
            (self.folder / name).symlink_to(victim)
        self.expect(OK, "export", "--output", self.folder / "out")
        self.assertEqual(victim.read_text(), "mine")


class EndedWriters(CommandLine):
    def parts(self):
        return [path for path in self.folder.iterdir() if "part" in path.name]

    def started(self, **more):
        """A process that has begun to write a long file."""
        before = self.parts()
        process = subprocess.Popen([PROGRAM, *LONG, "--output", str(self.folder / "out")], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **more)
        while not any(path.stat().st_size for path in self.parts() if path not in before):
            self.assertIsNone(process.poll())
            time.sleep(0.001)
        return process

    def test_a_signal_takes_the_part_file_along(self):
        self.write("out", "before")
        for ending in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.started() as process:
                self.assertEqual([stat.S_IMODE(path.stat().st_mode) for path in self.parts()], [0o600])
                process.send_signal(ending)
                self.assertEqual(process.wait(), -ending)
            self.assertEqual(self.parts(), [])
            self.assertEqual((self.folder / "out").read_text(), "before")

    def test_what_a_killed_process_left_goes_with_the_next(self):
        with self.started() as process:
            process.kill()
            process.wait()
        left = self.parts()
        self.assertEqual(len(left), 1)
        with self.started() as process:
            self.assertEqual(len(self.parts()), 1)
            self.assertNotEqual(self.parts(), left)
            words = ["generate", "--seed", "1", "--from", "2004-01-01", "--to", "2004-12-31"]
            self.expect(OK, *words, "--output", self.folder / "other")
            self.assertEqual(len(self.parts()), 1)
            process.terminate()
        self.assertEqual(self.parts(), [])

    def test_what_lay_beside_a_left_over_goes_too(self):
        for name, stays in ((".vestara-part-AAAAAA", False), (".vestara-part-BBBBBB-journal", False),
                            (".vestara-part-CCCCC", True), (".vestara-parts", True), ("vestara-part-DDDDDD", True)):
            path = self.write(name, "x")
            self.expect(OK, "generate", "--seed", "1", "--from", "2004-01-01", "--to", "2004-12-31", "--output",
                        self.folder / "out")
            self.assertEqual(path.exists(), stays, name)

    @unittest.skipUnless(os.geteuid() == 0, "only an administrator can give files away")
    def test_what_another_user_left_stays(self):
        path = self.write(".vestara-part-AAAAAA", "x")
        os.chown(path, 12345, 54321)
        self.expect(OK, "generate", "--seed", "1", "--from", "2004-01-01", "--to", "2004-12-31", "--output",
                    self.folder / "out")
        self.assertTrue(path.exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
