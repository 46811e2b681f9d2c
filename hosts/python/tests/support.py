"""What the tests share: archives, update files, a connector written in Python."""

from __future__ import annotations

import atexit
import os
import pathlib
import shutil
import sqlite3
import tempfile
import unittest
from datetime import date
from typing import Any, Callable, Iterable, Sequence

PACKAGE = pathlib.Path(__file__).resolve().parents[1]
PROJECT = PACKAGE.parents[1]
REAL_ARCHIVE = pathlib.Path(
    os.environ.get("VESTARA_REAL_ARCHIVE", PROJECT.parent / "shared" / "data" / "estrazioni-lotto.csv")
)

_folder = tempfile.mkdtemp(prefix="vestara-python-")
atexit.register(shutil.rmtree, _folder, True)
os.environ["VESTARA_LOG_DIR"] = _folder

from vestara import Dispatch, RunTimeError, connect

COLUMNS = "concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5"
DRAWS = (
    (1, "1871-01-07", "FI", 15, 71, 18, 64, 81),
    (1, "1871-01-07", "MI", 63, 69, 56, 9, 55),
    (2, "1871-01-14", "FI", 5, 12, 33, 40, 41),
    (2, "1871-01-14", "NA", 12, 5, 77, 90, 1),
    (1, "2026-01-02", "BA", 5, 6, 12, 33, 8),
)


class InFolder(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=_folder))
        log = pathlib.Path(_folder, "ErrVestara.log")
        log.unlink(missing_ok=True)
        self.log = log

    def raises(self, number: int, body: Callable[[], object]) -> RunTimeError:
        with self.assertRaises(RunTimeError) as caught:
            body()
        self.assertEqual(caught.exception.number, number)
        return caught.exception


def statement(draws: Iterable[Sequence[Any]]) -> str:
    tuples = ",".join(f"({n},'{day}','{wheel}',{','.join(map(str, numbers))})" for n, day, wheel, *numbers in draws)
    return f"INSERT INTO storico({COLUMNS})VALUES{tuples}"


def archive(draws: Iterable[Sequence[Any]] = DRAWS) -> Any:
    """A connector with an archive in memory."""
    connector = connect("sqlite::memory:")
    assert connector.CreateSchema()
    assert connector.ExecuteSql(statement(draws)), connector.LastError
    return connector


def lotto_on(connector: Any) -> Any:
    lotto = Dispatch("Vestara.cLotto")
    lotto.ActiveConnection = connector
    return lotto


def update_file(folder: pathlib.Path, draws: Iterable[Sequence[Any]]) -> str:
    path = folder / "update.txt"
    path.write_text("*".join("#" + "#".join(map(str, draw)) for draw in draws), encoding="ascii")
    return str(path)


class PythonField:
    def __init__(self, rows: PythonRecordset, place: int) -> None:
        self._rows, self._place = rows, place

    @property
    def Name(self) -> str:
        return self._rows.names[self._place]

    @property
    def Value(self) -> Any:
        value = self._rows.rows[self._rows.position][self._place]
        return date.fromisoformat(value) if self._rows.dated(self._place) and value else value


class PythonFields:
    def __init__(self, rows: PythonRecordset) -> None:
        self._rows = rows
        self.Count = len(rows.names)

    def Item(self, index: Any) -> PythonField:
        if isinstance(index, str):
            index = [name.lower() for name in self._rows.names].index(index.lower().rpartition(".")[2])
        return PythonField(self._rows, index)


class PythonRecordset:
    """The rows of a cursor, by the classic names."""

    def __init__(self, cursor: sqlite3.Cursor) -> None:
        self.names = [column[0] for column in cursor.description]
        self.rows = cursor.fetchall()
        self.position = 0
        self.Fields = PythonFields(self)
        self.RecordCount = len(self.rows)
        self.State = 1

    def dated(self, place: int) -> bool:
        return self.names[place].lower() in ("dtestr", "dmax", "dmin")

    @property
    def EOF(self) -> bool:
        return self.position >= len(self.rows)

    @property
    def BOF(self) -> bool:
        return not self.rows or self.position < 0

    def MoveFirst(self) -> None:
        self.position = 0

    def MoveNext(self) -> None:
        self.position += 1

    def Move(self, rows: int) -> None:
        self.position += rows

    def Close(self) -> None:
        self.State = 0


class RecordingConnector:
    """A connector over Python's own database module. It writes every statement down and refuses the n-th."""

    def __init__(self, draws: Iterable[Sequence[Any]] = DRAWS, fail: int = 0) -> None:
        self._database = sqlite3.connect(":memory:", isolation_level=None)
        self._database.execute(f"CREATE TABLE storico(id INTEGER PRIMARY KEY,{COLUMNS})")
        self._database.execute("CREATE TABLE ruote(enumeratore,enumeratoreBit,ruotaAlias)")
        for place, wheel in enumerate("BA CA FI GE MI NA PA RM TO VE RN".split(), 1):
            self._database.execute("INSERT INTO ruote VALUES(?,?,?)", (place, 1 << place, wheel))
        self._database.execute(statement(draws))
        self.statements: list[str] = []
        self.fail = fail
        self.held: list[PythonRecordset] = []
        self.ConnectionState = 1

    def __del__(self) -> None:
        self._database.close()

    def _refused(self, sql: str) -> bool:
        self.statements.append(sql)
        return len(self.statements) == self.fail

    def OpenRecordset(self, rs: Any, sql: str) -> bool:
        if self._refused(sql):
            return False
        rs.value = PythonRecordset(self._database.execute(sql))
        self.held.append(rs.value)
        return True

    def CloseRecordset(self, rs: Any) -> None:
        if rs.value is not None:
            self.held.remove(rs.value)
            rs.value = None

    def ExecuteSql(self, sql: str) -> bool:
        if self._refused(sql):
            return False
        self._database.execute(sql)
        return True

    def GetMaxId(self, table: str, column: str) -> int:
        return int(self._database.execute(f"SELECT coalesce(max({column}),0) FROM {table}").fetchone()[0])

    def GetRecordset(self, sql: str) -> PythonRecordset | None:
        return None if self._refused(sql) else PythonRecordset(self._database.execute(sql))

    def BeginTrans(self) -> None:
        self._database.execute("BEGIN")

    def CommitTrans(self) -> None:
        self._database.execute("COMMIT")

    def RollbackTrans(self) -> None:
        self._database.execute("ROLLBACK")
