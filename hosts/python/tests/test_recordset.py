"""Record sets as scripts walk them, and what Python adds."""

from __future__ import annotations

import json
from datetime import datetime
from typing import Any

from vestara import ByRef
from vestara._classes import Description
from vestara._dispatch import Collection, _collection

from .support import DRAWS, InFolder, archive

FIRST = datetime(1871, 1, 7)
INDEX = {"name": "index", "type": "Long", "optional": False, "default": None, "writes_back": False}


class Walking(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.connector = archive()
        self.rows = self.connector.GetRecordset("SELECT * FROM storico ORDER BY id")

    def test_fields(self) -> None:
        rows = self.rows
        for value in (
            rows.Fields("dtEstr").Value,
            rows("dtEstr").Value,
            rows.Fields("DTESTR").value,
            rows.Fields("dtEstr")(),
            rows.fields.item("dtEstr").Value,
            rows.Fields["s.dtEstr"].Value,
            rows.Fields(1).Value,
            rows.Fields.Item(index=1).Value,
            rows.Fields(index="dtEstr").Value,
        ):
            self.assertEqual(value, FIRST)
        self.assertEqual(str(rows.Fields("ruota")), "FI")
        self.assertEqual([field.Name for field in rows.Fields][:3], ["id", "dtEstr", "ruota"])
        self.assertEqual((len(rows.Fields), rows.Fields.Count), (9, 9))
        self.assertIs(rows.Fields("ruota"), rows.Fields("ruota"))

    def test_fields_that_are_not_there(self) -> None:
        for index in ("nope", 9, -1):
            self.raises(3265, lambda index=index: self.rows.Fields(index))
        self.raises(449, lambda: self.rows.Fields.Item())
        self.raises(450, lambda: self.rows.Fields.Item(1, 2))
        self.raises(13, lambda: self.rows.Fields([1]))

    def test_a_field_shows_the_current_row(self) -> None:
        wheel = self.rows.Fields("ruota")
        seen = []
        while not self.rows.EOF:
            seen.append(wheel.Value)
            self.rows.MoveNext()
        self.assertEqual(seen, [draw[2] for draw in DRAWS])
        self.raises(3021, lambda: wheel.Value)

    def test_closing(self) -> None:
        with self.rows as rows:
            field = rows.Fields("id")
            self.assertEqual(rows.State, 1)
        self.assertEqual(rows.State, 0)
        for body in (lambda: field.Value, lambda: list(rows), lambda: len(rows), rows.to_dicts, lambda: rows.EOF):
            self.raises(3704, body)

    def test_get_rows(self) -> None:
        block = self.rows.GetRows(2)
        self.assertEqual(block[1], (FIRST, FIRST))
        self.assertEqual(block[2], ("FI", "MI"))
        self.assertEqual(self.rows.Fields("id").Value, 3)
        self.assertEqual(len(self.rows.GetRows()[0]), 3)
        self.assertEqual(self.rows.GetRows(), ((),) * 9)

    def test_a_record_set_handed_back(self) -> None:
        holder = ByRef()
        self.assertTrue(self.connector.OpenRecordset(holder, "SELECT 1 AS one"))
        self.assertEqual(holder.value.to_dicts(), [{"one": 1}])
        self.connector.CloseRecordset(holder)
        self.assertIsNone(holder.value)
        self.assertFalse(self.connector.OpenRecordset(ByRef(), "SELECT nonsense"))
        self.assertIn("nonsense", self.connector.LastError)


class Collections(InFolder):
    def test_the_first_item(self) -> None:
        class Counted(Collection):
            _first = 1
            Count = 3

            def Item(self, place: int) -> str:
                return f"item {place}"

        class Asked(Counted):
            def Count(self) -> int:  # type: ignore[override]
                return 2

        self.assertEqual(list(Counted()), ["item 1", "item 2", "item 3"])
        self.assertEqual((len(Asked()), list(Asked())), (2, ["item 1", "item 2"]))
        self.assertIn("item 2", Counted())

    def test_a_collection_begins_where_its_class_says(self) -> None:
        for first in (0, 1):
            rows = [
                {"id": 0, "kind": "get", "name": "Item", "result": "String", "help": "", "parameters": [INDEX]},
                {"id": 1, "kind": "get", "name": "Count", "result": "Long", "help": "", "parameters": []},
            ]
            surface: dict[str, Any] = {"library": "L", "class": "Texts", "help": "", "events": [], "members": rows}
            surface |= {"creatable": False, "first_item": first}
            names: dict[str, Any] = {}
            bases: list[type] = []
            _collection(Description(json.dumps(surface).encode()), names, bases)
            self.assertEqual((names["_first"], bases), (first, [Collection]))


class Rows(InFolder):
    def rows(self, sql: str) -> Any:
        return archive().GetRecordset(sql)

    def test_rows(self) -> None:
        rows = self.rows("SELECT * FROM storico ORDER BY id")
        row = next(iter(rows))
        for value in (row.dtEstr, row.DTESTR, row["dtEstr"], row["DTestr"], row[1], row[-8]):
            self.assertEqual(value, FIRST)
        self.assertEqual(row[3:5], (15, 71))
        self.assertEqual(dict(row)["ruota"], "FI")
        self.assertEqual(len(row), 9)
        identity, *_, contest = row
        self.assertEqual((identity, contest), (1, 1))
        self.assertIn("ruota='FI'", repr(row))
        for error, body in (
            (AttributeError, lambda: row.nope),
            (KeyError, lambda: row["nope"]),
            (IndexError, lambda: row[9]),
            (AttributeError, lambda: setattr(row, "ruota", 1)),
        ):
            self.assertRaises(error, body)

    def test_iteration_begins_at_the_first_row(self) -> None:
        rows = self.rows("SELECT id FROM storico ORDER BY id")
        rows.MoveLast()
        self.assertEqual([row.id for row in rows], [1, 2, 3, 4, 5])
        self.assertEqual([row.id for row in rows], [1, 2, 3, 4, 5])
        self.assertEqual((len(rows), rows.RecordCount), (5, 5))

    def test_loops_in_loops(self) -> None:
        many = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<300) SELECT i FROM n"
        rows = self.rows(many)
        pairs = sum(1 for one in rows for other in rows if one.i == other.i)
        self.assertEqual(pairs, 300)

    def test_more_rows_than_a_block(self) -> None:
        many = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30000) SELECT i FROM n"
        rows = self.rows(many)
        self.assertEqual([row.i for row in rows], list(range(1, 30001)))
        self.assertEqual([row["i"] for row in rows.to_dicts()], list(range(1, 30001)))

    def test_no_rows(self) -> None:
        rows = self.rows("SELECT * FROM storico WHERE id<0")
        self.assertEqual((list(rows), rows.to_dicts(), len(rows), bool(rows)), ([], [], 0, True))

    def test_columns(self) -> None:
        for sql, columns, row in (
            ("SELECT 1 AS a, 'x' AS a, NULL AS b", ["a", "a", "b"], {"a": 1, "b": None}),
            ('SELECT 1.5 AS "count", 2 AS "index", 3 AS "two words"', ["count", "index", "two words"],
             {"count": 1.5, "index": 2, "two words": 3}),
            ('SELECT 1 AS "class", 2 AS "_x", 3 AS "keys"', ["class", "_x", "keys"], {"class": 1, "_x": 2, "keys": 3}),
            ("SELECT 3000000000 AS big, -1 AS small", ["big", "small"], {"big": 3000000000.0, "small": -1}),
            ("SELECT max(dtEstr) AS dmax FROM storico", ["dmax"], {"dmax": datetime(2026, 1, 2)}),
        ):
            with self.subTest(sql=sql):
                rows = self.rows(sql)
                self.assertEqual(rows.columns, columns)
                self.assertEqual(rows.to_dicts(), [row])
                first = next(iter(rows))
                self.assertEqual([first[name] for name in row], list(row.values()))
        row = next(iter(self.rows('SELECT 1.5 AS "count", 2 AS "index"')))
        self.assertEqual((row.count, row.index), (1.5, 2))

    def test_mixed_columns(self) -> None:
        rows = self.rows("SELECT 1 AS x UNION ALL SELECT 'perché' UNION ALL SELECT NULL UNION ALL SELECT 2.5")
        self.assertEqual([row.x for row in rows], [1, "perché", None, 2.5])
