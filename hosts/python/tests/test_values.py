"""Values both ways, through the memory that a call uses."""

from __future__ import annotations

import datetime
import decimal
import enum
import unittest
from datetime import date, time
from random import Random
from typing import Any

from . import support
from vestara import ByRef, Empty, Missing, Nothing, Null
from vestara import _abi, _dates, _values
from vestara._abi import Value

moment = datetime.datetime


class Whole(enum.IntEnum):
    TWO = 2


class Text(str):
    pass


NOTHINGS = (
    (None, _abi.NULL, None),
    (Null, _abi.NULL, None),
    (Empty, _abi.EMPTY, None),
    (Missing, _abi.MISSING, Missing),
    (Nothing, _abi.OBJECT, None),
)
NUMBERS = (
    (True, _abi.BOOLEAN, True),
    (False, _abi.BOOLEAN, False),
    (0, _abi.LONG, 0),
    (Whole.TWO, _abi.LONG, 2),
    (-(2**31), _abi.LONG, -(2**31)),
    (2**31 - 1, _abi.LONG, 2**31 - 1),
    (2**31, _abi.DOUBLE, 2147483648.0),
    (-(2**31) - 1, _abi.DOUBLE, -2147483649.0),
    (1.5, _abi.DOUBLE, 1.5),
    (decimal.Decimal("2.5"), _abi.DOUBLE, 2.5),
)
TEXTS = (
    ("", _abi.TEXT, ""),
    ("perché 😀", _abi.TEXT, "perché 😀"),
    ("before\0behind", _abi.TEXT, "before\0behind"),
    (Text("own"), _abi.TEXT, "own"),
    ("\udc80", _abi.TEXT, "?"),
)
DATES = (
    (moment(1871, 1, 7), _abi.DATE, moment(1871, 1, 7)),
    (moment(1899, 12, 29, 6), _abi.DATE, moment(1899, 12, 29, 6)),
    (moment(1899, 12, 30, 18, 30), _abi.DATE, moment(1899, 12, 30, 18, 30)),
    (moment(100, 1, 1, 23, 59, 59), _abi.DATE, moment(100, 1, 1, 23, 59, 59)),
    (moment(9999, 12, 31, 23, 59, 59), _abi.DATE, moment(9999, 12, 31, 23, 59, 59)),
    (moment(2026, 8, 21, 12, 34, 56, 789000), _abi.DATE, moment(2026, 8, 21, 12, 34, 56)),
    (moment.combine(date(2026, 8, 21), time.max), _abi.DATE, moment(2026, 8, 21, 23, 59, 59)),
    (moment.combine(date(1871, 1, 7), time.max), _abi.DATE, moment(1871, 1, 7, 23, 59, 59)),
    (moment.combine(date(1899, 12, 29), time.max), _abi.DATE, moment(1899, 12, 29, 23, 59, 59)),
    (moment(2026, 8, 21, 0, 0, 0, 999999), _abi.DATE, moment(2026, 8, 21)),
    (time.max, _abi.DATE, moment(1899, 12, 30, 23, 59, 59)),
    (moment(2026, 8, 21, 12, tzinfo=datetime.timezone.utc), _abi.DATE, moment(2026, 8, 21, 12)),
    (date(1871, 1, 7), _abi.DATE, moment(1871, 1, 7)),
    (time(6, 0), _abi.DATE, moment(1899, 12, 30, 6)),
)
ARRAYS = (
    ([], _abi.ARRAY, ()),
    ([1, "a", None, 2.5, True], _abi.ARRAY, (1, "a", None, 2.5, True)),
    ((1, 2, 3), _abi.ARRAY, (1, 2, 3)),
    (["perché", "né", ""], _abi.ARRAY, ("perché", "né", "")),
    ([date(1871, 1, 7), date(1871, 1, 7)], _abi.ARRAY, (moment(1871, 1, 7),) * 2),
    ([[1, 2, 3], [4, 5, 6]], _abi.ARRAY, ((1, 2, 3), (4, 5, 6))),
    ([[[1, 2], [3, 4]], [[5, 6], [7, 8]]], _abi.ARRAY, (((1, 2), (3, 4)), ((5, 6), (7, 8)))),
    ([[1, 2], [3]], _abi.ARRAY, ((1, 2), (3,))),
    ([1, [2, 3]], _abi.ARRAY, (1, (2, 3))),
    ([None, None], _abi.ARRAY, (None, None)),
)


class BothWays(unittest.TestCase):
    def test_values(self) -> None:
        for given, kind, expected in NOTHINGS + NUMBERS + TEXTS + DATES + ARRAYS:
            for write in (_values.write, _values.write_owned):
                with self.subTest(given=given, write=write.__name__):
                    found, found_kind = through(write, given)
                    self.assertEqual(found_kind, kind)
                    self.assertEqual(found, expected)
                    self.assertIs(type(found), type(expected))

    def test_a_holder_is_its_value(self) -> None:
        self.assertEqual(through(_values.write, ByRef("text")), ("text", _abi.TEXT))

    def test_objects_keep_their_identity(self) -> None:
        for thing in (object(), {"a": 1}, {1, 2}, lambda: None, BothWays):
            with self.subTest(thing=thing):
                self.assertIs(through(_values.write, thing)[0], thing)
                self.assertIs(through(_values.write_owned, [thing, 1])[0][0], thing)

    def test_bytes_are_refused(self) -> None:
        for thing in (b"bytes", bytearray(b"bytes"), memoryview(b"bytes")):
            self.assertRaises(TypeError, through, _values.write, thing)

    def test_numpy(self) -> None:
        try:
            import numpy
        except ImportError:
            self.skipTest("numpy is not installed")
        table = (
            (numpy.int64(5), _abi.LONG, 5),
            (numpy.float32(0.5), _abi.DOUBLE, 0.5),
            (numpy.float64(0.5), _abi.DOUBLE, 0.5),
            (numpy.bool_(True), _abi.BOOLEAN, True),
            (numpy.array([[1, 2], [3, 4]]), _abi.ARRAY, ((1, 2), (3, 4))),
        )
        for given, kind, expected in table:
            self.assertEqual(through(_values.write, given), (expected, kind))


class Serials(unittest.TestCase):
    def test_table(self) -> None:
        for day, serial in (
            (moment(1899, 12, 30), 0.0),
            (moment(1899, 12, 29, 6), -1.25),
            (moment(1900, 1, 1), 2.0),
            (moment(1871, 1, 7), -10584.0),
            (moment(1970, 1, 1, 12), 25569.5),
        ):
            self.assertEqual(_dates.to_serial(day), serial)
            self.assertEqual(_dates.from_serial(serial), day)

    def test_any_moment_keeps_its_second(self) -> None:
        random = Random(12)
        for _ in range(20_000):
            day = date.fromordinal(random.randint(date(100, 1, 1).toordinal(), date.max.toordinal()))
            given = moment.combine(day, time.min) + datetime.timedelta(microseconds=random.randrange(86_400_000_000))
            self.assertEqual(_dates.from_serial(_dates.to_serial(given)), given.replace(microsecond=0))

    def test_no_fraction_reaches_the_next_day(self) -> None:
        self.assertEqual(_dates.from_serial(1.9999999999), moment(1899, 12, 31, 23, 59, 59))


def through(write: Any, given: Any) -> tuple[Any, int]:
    """What comes back of a value that was written, and the kind that the library saw."""
    value = Value()
    write(value, given)
    kind = value.kind
    try:
        return _values.read(value), kind
    finally:
        _abi.clear(_abi.reference(value))


if __name__ == "__main__":
    unittest.main()
