"""Data frames."""

from __future__ import annotations

import csv
import sqlite3
import time
import unittest
from datetime import datetime
from typing import Any, Callable

from vestara import connect

from .support import REAL_ARCHIVE, InFolder, archive, statement

try:
    import numpy
    import pandas
except ImportError:
    raise unittest.SkipTest("pandas is not installed")

_UNION = " UNION ALL SELECT "


class Frames(InFolder):
    def frame(self, sql: str) -> Any:
        return archive().GetRecordset(sql).to_pandas()

    def test_columns(self) -> None:
        nat, moment = pandas.NaT, pandas.Timestamp
        for what, values, kind, expected in (
            ("whole", ("1", "2"), "int32", [1, 2]),
            ("whole and Null", ("1", "NULL"), "Int32", [1, pandas.NA]),
            ("real", ("1.5", "2.5"), "float64", [1.5, 2.5]),
            ("whole and real", ("1", "2.5", "NULL"), "float64", [1.0, 2.5, numpy.nan]),
            ("beyond 32 bits", ("1", "3000000000"), "float64", [1.0, 3e9]),
            ("text", ("'a'", "'perché'"), "object", ["a", "perché"]),
            ("text and Null", ("'a'", "NULL", "''"), "object", ["a", None, ""]),
            ("mixed", ("1", "'a'", "NULL", "2.5"), "object", [1, "a", None, 2.5]),
            ("nothing", ("NULL", "NULL"), "object", [None, None]),
            ("dates", ("'1871-01-07'", "'2026-08-21'"), "datetime64[ns]", [moment(1871, 1, 7), moment(2026, 8, 21)]),
            ("dates and Null", ("'1871-01-07'", "NULL"), "datetime64[ns]", [moment(1871, 1, 7), nat]),
            ("moments", ("'1871-01-07 18:00:01'", "'1999-12-31 23:59:59'"), "datetime64[ns]",
             [moment(1871, 1, 7, 18, 0, 1), moment(1999, 12, 31, 23, 59, 59)]),
            ("beyond nanoseconds", ("'1500-01-01'", "NULL"), "object", [datetime(1500, 1, 1), None]),
        ):
            with self.subTest(what=what):
                head, *rest = values
                frame = self.frame(f"SELECT {head} AS dtEstr" + "".join(_UNION + value for value in rest))
                self.assertEqual(str(frame["dtEstr"].dtype), kind)
                found = frame["dtEstr"].tolist()
                self.assertEqual(list(map(repr, found)), list(map(repr, expected)))

    def test_shape(self) -> None:
        for sql, columns, rows in (
            ("SELECT * FROM storico", 9, 5),
            ("SELECT * FROM storico WHERE id<0", 9, 0),
            ("SELECT 1 AS a, 2 AS a", 2, 1),
        ):
            self.assertEqual(self.frame(sql).shape, (rows, columns))
        self.assertEqual(list(self.frame("SELECT 1 AS a, 2 AS a").columns), ["a", "a"])

    def test_blocks(self) -> None:
        many = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<{}) SELECT i,{} FROM n"
        frame = self.frame(many.format(20000, "CASE WHEN i>15000 THEN 'late' ELSE i END AS x"))
        self.assertEqual(frame["i"].tolist(), list(range(1, 20001)))
        self.assertEqual(frame["x"].tolist(), [*range(1, 15001), *["late"] * 5000])

    def test_it_begins_at_the_first_row(self) -> None:
        rows = archive().GetRecordset("SELECT id FROM storico")
        rows.MoveLast()
        self.assertEqual(len(rows.to_pandas()), 5)
        self.assertEqual(rows.RecordCount, 5)


@unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
class RealArchive(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.path = self.folder / "archive.sqlite"
        self.connector = connect(f"sqlite:{self.path}")
        self.connector.CreateSchema()
        with REAL_ARCHIVE.open(newline="", encoding="ascii") as file:
            rows = [(0, *row.values()) for row in csv.DictReader(file)]
        self.connector.BeginTrans()
        for start in range(0, len(rows), 1000):
            self.assertTrue(self.connector.ExecuteSql(statement(rows[start : start + 1000])))
        self.connector.CommitTrans()

    def test_the_whole_archive_in_time(self) -> None:
        sql = "SELECT * FROM storico"
        database = sqlite3.connect(self.path)
        self.addCleanup(database.close)
        own, usual = self.best(lambda: self.connector.GetRecordset(sql).to_pandas()), self.best(
            lambda: pandas.read_sql(sql, database)
        )
        print(f"\nwhole archive as a data frame: {own:.3f} s, by pandas' own reader {usual:.3f} s: {own / usual:.2f}")
        self.assertLess(own, 3 * usual)

    def test_it_is_what_pandas_reads(self) -> None:
        sql = "SELECT * FROM storico"
        ours = self.connector.GetRecordset(sql).to_pandas()
        database = sqlite3.connect(self.path)
        theirs = pandas.read_sql(sql, database, parse_dates=["dtEstr"])
        database.close()
        self.assertEqual(len(ours), 105_156)
        pandas.testing.assert_frame_equal(ours, theirs, check_dtype=False)

    def best(self, body: Callable[[], object]) -> float:
        times = []
        for _ in range(3):
            start = time.perf_counter()
            body()
            times.append(time.perf_counter() - start)
        return min(times)
