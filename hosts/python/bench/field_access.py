"""What reading costs: a field a call, rows by iteration, dictionaries, a data frame.

    VESTARA_LIBRARY_DIR=build/release/lib python3 hosts/python/bench/field_access.py [ROWS]
"""

from __future__ import annotations

import pathlib
import sys
import time
from typing import Any, Callable

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

from vestara import connect

_BY_STATEMENT = 500


def filled(rows: int) -> Any:
    connector = connect("sqlite::memory:")
    connector.CreateSchema()
    connector.BeginTrans()
    for start in range(0, rows, _BY_STATEMENT):
        tuples = ",".join(
            f"({i % 200},'{1871 + i % 150}-{i % 12 + 1:02}-07','BA',{i % 90 + 1},12,33,7,90)"
            for i in range(start, min(start + _BY_STATEMENT, rows))
        )
        connector.ExecuteSql(
            f"INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES{tuples}"
        )
    connector.CommitTrans()
    return connector


def walk(rs: Any) -> int:
    total = 0
    rs.MoveFirst()
    while not rs.EOF:
        total += rs.Fields("estr1").Value
        rs.MoveNext()
    return total


def read_again(rs: Any, times: int) -> int:
    total = 0
    rs.MoveFirst()
    for _ in range(times):
        total += rs.Fields("estr1").Value
    return total


def iterate(rs: Any) -> int:
    return sum(row.estr1 for row in rs)


def measure(what: str, count: int, body: Callable[[], object]) -> None:
    start = time.perf_counter()
    body()
    seconds = time.perf_counter() - start
    print(f"{what:<48}{seconds:8.3f} s{seconds / count * 1e9:10.0f} ns each")


def main() -> None:
    rows = int(sys.argv[1]) if len(sys.argv) > 1 else 100_000
    with filled(rows) as connector:
        rs = connector.GetRecordset("SELECT * FROM storico")
        rs.MoveLast()
        reads = 1_000_000
        measure('rs.Fields("estr1").Value, one row', reads, lambda: read_again(rs, reads))
        measure("EOF, one field, MoveNext: rows", rows, lambda: walk(rs))
        measure("for row in rs: row.estr1: rows of 9 fields", rows, lambda: iterate(rs))
        measure("rs.to_dicts(): rows of 9 fields", rows, rs.to_dicts)
        try:
            import pandas
        except ImportError:
            return
        measure("rs.to_pandas(): rows of 9 fields", rows, rs.to_pandas)


if __name__ == "__main__":
    main()
