"""Data frames from the arrays of GetRows, column by column, without a Python object per number."""

from __future__ import annotations

import ctypes
from typing import Any

import numpy
import pandas

from . import _abi, _arrays, _errors, _values
from ._abi import BOOLEAN, DATE, DOUBLE, EMPTY, INTEGER, LONG, NULL, SINGLE, TEXT, Value

_ROWS_AT_ONCE = 4096
_DAY_1970 = 25569  # counted from 1899-12-30
_DAYS_IN_RANGE = 106_751  # of datetime64[ns], before and after 1970
_NANOSECONDS_PER_DAY = 86_400_000_000_000
_SECONDS_PER_DAY = 86_400


def data_frame(rows: Any, names: list[str]) -> pandas.DataFrame:
    columns = [_Column(len(rows)) for _ in names]
    done = 0
    for block, width, count in rows._arrays(_ROWS_AT_ONCE):
        for place, column in enumerate(columns):
            column.take(block, place, width, done, count)
        done += count
    frame = pandas.DataFrame({place: column.finished() for place, column in enumerate(columns)}, copy=False)
    frame.columns = pandas.Index(names, dtype=object)
    return frame


class _Column:
    """One column while it is filled: every value's kind, the numbers and, where there are others, the objects."""

    def __init__(self, rows: int) -> None:
        self.reals = numpy.zeros(rows, dtype=numpy.float64)
        self.kinds = numpy.zeros(rows, dtype=numpy.uint8)
        self.objects: list[tuple[int, list[Any]]] = []

    def take(self, block: Value, place: int, width: int, done: int, count: int) -> None:
        reals, kinds = self.reals[done : done + count], self.kinds[done : done + count]
        _errors.check(
            _abi.array_numbers(
                _abi.reference(block),
                ctypes.c_size_t(place),
                ctypes.c_size_t(width),
                ctypes.c_size_t(count),
                reals.ctypes,
                kinds.ctypes,
            )
        )
        if kinds.max() >= TEXT:
            self.objects.append((done, _arrays.elements(block, place, width, count, _values.read)))

    def finished(self) -> Any:
        missing = (self.kinds == NULL) | (self.kinds == EMPTY)
        found = set(numpy.unique(self.kinds[~missing]).tolist())
        if self.objects or not found:
            return self._mixed()
        if found <= {INTEGER, LONG}:
            return _whole(self.reals.astype(numpy.int32), missing)
        if found == {BOOLEAN}:
            return _truths(self.reals != 0, missing)
        if found <= {INTEGER, LONG, SINGLE, DOUBLE}:
            return numpy.where(missing, numpy.nan, self.reals)
        if found == {DATE} and _in_range(self.reals[~missing]):
            return _moments(self.reals, missing)
        return self._mixed()

    def _mixed(self) -> Any:
        values = numpy.empty(len(self.kinds), dtype=object)
        if sum(len(block) for _, block in self.objects) < len(values):
            values[:] = _arrays.plain(self.reals.tolist(), self.kinds.tobytes())
        for start, block in self.objects:
            values[start : start + len(block)] = block
        return values


def _whole(values: Any, missing: Any) -> Any:
    return pandas.arrays.IntegerArray(values, missing) if missing.any() else values


def _truths(values: Any, missing: Any) -> Any:
    return pandas.arrays.BooleanArray(values, missing) if missing.any() else values


def _in_range(serials: Any) -> bool:
    return bool((numpy.abs(serials - _DAY_1970) < _DAYS_IN_RANGE).all())


def _moments(serials: Any, missing: Any) -> Any:
    """Before 1899-12-30 the fraction of a serial still counts the hours forward."""
    days = numpy.trunc(serials)
    seconds = numpy.rint(numpy.abs(serials - days) * _SECONDS_PER_DAY).astype(numpy.int64)
    nanoseconds = (days.astype(numpy.int64) - _DAY_1970) * _NANOSECONDS_PER_DAY + seconds * 1_000_000_000
    moments = nanoseconds.view("datetime64[ns]")
    moments[missing] = numpy.datetime64("NaT")
    return moments
