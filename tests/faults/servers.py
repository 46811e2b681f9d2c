"""A database server of a test's own, which the test may stop and kill, and clients of it. A test file is run with the
engine as its argument; ARCHIVE_CLIENT is the compiled client. Without the engine's programs the tests are skipped, or
fail where VESTARA_TEST_SERVERS is "required"."""

import datetime
import glob
import os
import pathlib
import queue
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "tools" / "servers.sh"
WHEELS = ["BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"]
PATIENCE = 30  # seconds; nobody waits so long unless something hangs
SKIPPED = 77  # an exit code


def temporary_folder(case):
    """A folder in memory where there is some, with a short path, which a server's own user can walk through."""
    memory = pathlib.Path("/dev/shm")
    folder = tempfile.TemporaryDirectory(prefix="vestara.", dir=memory if os.access(memory, os.W_OK) else None)
    case.addClassCleanup(folder.cleanup)
    os.chmod(folder.name, 0o711)
    return pathlib.Path(folder.name)


def has_ended(process):
    try:
        stat = pathlib.Path(f"/proc/{process}/stat").read_text()
    except OSError:
        return True
    return stat.rsplit(")", 1)[1].split()[0] == "Z"


class Server:
    def __init__(self, engine, folder, durable=False, options=""):
        self.engine = engine
        self.folder = folder
        self.environment = os.environ | {"DURABLE": "yes" if durable else "no", "SERVER_OPTIONS": options}

    def script(self, action):
        subprocess.run([SCRIPT, action, self.engine, self.folder], env=self.environment, check=True, timeout=90,
                       stdout=subprocess.DEVNULL)

    def start(self):
        self.script("start")

    def stop(self):
        self.script("stop")

    def kill(self):
        """As the script does it, but at once: nothing lies between the caller's moment and the kill."""
        process = int((self.folder / "pid").read_text())
        children = subprocess.run(["pgrep", "-P", str(process)], stdout=subprocess.PIPE, text=True).stdout.split()
        family = [process, *map(int, children)]
        for member in family:
            try:
                os.kill(member, signal.SIGKILL)
            except ProcessLookupError:
                pass  # a worker that just went
        end = time.monotonic() + PATIENCE
        while not all(map(has_ended, family)):
            if time.monotonic() > end:
                raise TimeoutError(f"the server {process} outlives its kill")
            time.sleep(0.002)
        (self.folder / "pid").unlink()

    def url(self, user="vestara", database="vestara", **options):
        options = {"socket": self.folder / ("socket" if self.engine == "mariadb" else "")} | options
        joined = "&".join(f"{name}={value}" for name, value in options.items())
        return f"{self.engine}://{user}@/{database}?{joined}"

    def rows(self, statement, database="vestara"):
        """The rows as lists of texts, asked by the engine's own client as its administrator."""
        if self.engine == "mariadb":
            # Tables have small names there.
            statement = statement.replace("tRicerche", "tricerche")
            command = ["mariadb", "--no-defaults", "-S", self.folder / "socket", "-u", "root", "-NB", database, "-e"]
        else:
            command = ["psql", "-XqAt", "-F", "\t", "-v", "ON_ERROR_STOP=1", "-h", self.folder, "-U", "vestara", "-d",
                       database, "-c"]
        answer = subprocess.run([*command, statement], stdout=subprocess.PIPE, text=True, check=True, timeout=PATIENCE)
        return [line.split("\t") for line in answer.stdout.splitlines()]

    def archive(self):
        """The rows of every date."""
        held = {}
        columns = "dtEstr,concorsoNumero,ruota,estr1,estr2,estr3,estr4,estr5"
        for date, *row in self.rows(f"SELECT {columns} FROM storico ORDER BY id"):
            held.setdefault(date, []).append(row)
        return held


class Client:
    """A running archive_client. Answers are waited for a limited time; None is a client that ended."""

    def __init__(self, case, environment=None):
        self.process = subprocess.Popen([os.environ["ARCHIVE_CLIENT"]], env=case.environment | (environment or {}),
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        self.answers = queue.Queue()
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()
        case.addCleanup(self.end, case)

    def read(self):
        for line in self.process.stdout:
            self.answers.put(line.rstrip("\n"))
        self.answers.put(None)

    def send(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()

    def answer(self, patience=PATIENCE):
        return self.answers.get(timeout=patience)

    def ask(self, command, patience=PATIENCE):
        self.send(command)
        return self.answer(patience)

    def lines(self, patience=PATIENCE):
        """The answers up to "ended"."""
        return list(iter(lambda: self.answer(patience), "ended"))

    def end(self, case):
        self.process.stdin.close()
        try:
            case.assertEqual(self.process.wait(PATIENCE), 0, "the client's exit code")
        finally:
            self.process.kill()
            self.reader.join()
            self.process.stdout.close()


class ServerTest(unittest.TestCase):
    """A server for the tests of a class."""

    engine = ""
    durable = False

    @classmethod
    def setUpClass(cls):
        cls.require_programs()
        cls.folder = temporary_folder(cls)
        cls.environment = os.environ | {"VESTARA_LOG_DIR": str(cls.folder)}
        cls.server = cls.make_server()
        cls.addClassCleanup(cls.server.stop)
        cls.server.start()

    @classmethod
    def require_programs(cls):
        programs = {"postgresql": ["psql", *(glob.glob("/usr/lib/postgresql/*/bin/postgres")[:1] or ["postgres"])],
                    "mariadb": ["mariadb", "mariadbd"]}[cls.engine]
        for program in programs:
            if shutil.which(program, path=os.environ["PATH"] + ":/usr/sbin"):
                continue
            if os.environ.get("VESTARA_TEST_SERVERS") == "required":
                raise RuntimeError(f"{cls.engine}: the program {program} is missing")
            raise unittest.SkipTest(f"no {cls.engine} here: the program {program} is missing")

    @classmethod
    def make_server(cls):
        return Server(cls.engine, cls.folder / "server", cls.durable)

    def opened(self, **options):
        client = Client(self)
        self.assertEqual(client.ask("open " + self.server.url(**options)), "True", client.ask("error"))
        return client

    def check(self, client, table):
        """Asks every command of the table and compares the answer."""
        for command, expected in table:
            self.assertEqual(client.ask(command), expected, f"{command}: {client.ask('error')}")

    def check_error(self, client, *pieces):
        error = client.ask("error")
        for piece in pieces:
            self.assertIn(piece, error.lower())


def history(draws, seed):
    """An archive of that many whole draws, every third day."""
    first = datetime.date(1980, 1, 2)
    dates = [(first + datetime.timedelta(3 * draw)).isoformat() for draw in range(draws)]
    return {date: draw_rows(draw % 180 + 1, seed) for draw, date in enumerate(dates)}


def draw_rows(contest, seed=0):
    """The rows of one date, as `save` of the client stores them."""
    numbers = [str((i + contest + seed) % 90 + 1) for i in range(55)]
    return [[str(contest), wheel, *numbers[5 * i:5 * i + 5]] for i, wheel in enumerate(WHEELS)]


def write_history(path, archive):
    """An update file. The multi-row import takes whole thousands of rows only."""
    records = ["#".join(["", row[0], date, *row[1:]]) for date, rows in archive.items() for row in rows]
    assert len(records) % 1000 == 0
    path.write_text("*".join(records))
    return path


def main():
    ServerTest.engine = sys.argv.pop(1).lower()
    result = unittest.main(exit=False, verbosity=2).result
    if result.skipped and not result.testsRun:
        sys.exit(SKIPPED)
    sys.exit(not result.wasSuccessful())
