"""Values on their way into the library and back."""

from __future__ import annotations

import datetime
import numbers
from ctypes import c_void_p
from typing import Any, Callable, Mapping

from . import _abi, _arrays, _dates
from ._abi import Value
from ._markers import ByRef, Marker

LONG_MIN, LONG_MAX = -(2**31), 2**31 - 1

# How objects cross is known to modules above this one.
_wrap: Callable[[int, Any], Any]
_write_object: Callable[[Value, Any], None]
_hosts: Mapping[int, Any]
_host_of: Callable[[int], Any]


def connect_objects(
    wrap: Callable[[int, Any], Any],
    write_object: Callable[[Value, Any], None],
    hosts: Mapping[int, Any],
    host_of: Callable[[int], Any],
) -> None:
    """`wrap` makes a Python object of a counted handle and its class and takes the count over, `write_object` fills in a value with
    any Python object that is no plain value, `host_of` gives the Python object behind a handle, None if there is none;
    it is asked only while there are `hosts`."""
    global _wrap, _write_object, _hosts, _host_of
    _wrap, _write_object, _hosts, _host_of = wrap, write_object, hosts, host_of


# ---- Out of the library ----


def _read_nothing(_value: Value) -> None:
    return None


def _read_text(value: Value) -> str:
    return text_bytes(value).decode("utf-8", "replace")


def text_bytes(value: Value) -> bytes:
    text, length = value.text or b"", value.length
    return text if len(text) == length else _abi.bytes_at(value.address, length)


def _read_object(value: Value) -> Any:
    handle = value.object
    if not handle:
        return None
    if _hosts:
        host = _host_of(handle)
        if host is not None:
            return host
    if value.owned:
        value.head = 0
    else:
        _abi.retain(c_void_p(handle))
    return _wrap(handle, value.of_class)


_READERS: tuple[Callable[[Value], Any], ...] = (
    _read_nothing,
    _read_nothing,
    lambda value: Marker.MISSING,
    lambda value: value.number != 0,
    lambda value: value.number,
    lambda value: value.number,
    lambda value: value.real,
    lambda value: value.real,
    lambda value: _dates.from_serial(value.real),
    _read_text,
    _read_object,
    lambda value: _arrays.read(value, read),
)


def read(value: Value) -> Any:
    """The Python value. An object's count moves from `value` to the result; everything else stays the value's own."""
    return _READERS[value.kind](value)


# ---- Into the library ----


def _write_none(value: Value, _source: Any) -> None:
    value.kind = _abi.NULL


_MARKER_KINDS = {Marker.MISSING: _abi.MISSING, Marker.EMPTY: _abi.EMPTY, Marker.NOTHING: _abi.OBJECT}


def _write_marker(value: Value, source: Any) -> None:
    value.kind = _MARKER_KINDS[source]
    value.object = None


def _write_bool(value: Value, source: bool) -> None:
    value.kind = _abi.BOOLEAN
    value.number = source


def _write_int(value: Value, source: int) -> None:
    if LONG_MIN <= source <= LONG_MAX:
        value.kind = _abi.LONG
        value.number = source
    else:
        _write_float(value, float(source))


def _write_float(value: Value, source: float) -> None:
    value.kind = _abi.DOUBLE
    value.real = source


def _write_text(value: Value, source: str) -> None:
    text = source.encode("utf-8", "replace")
    value.kind = _abi.TEXT
    value.text = text
    value.length = len(text)


def _write_date(value: Value, source: datetime.date) -> None:
    value.kind = _abi.DATE
    value.real = _dates.to_serial(source)


def _write_time(value: Value, source: datetime.time) -> None:
    value.kind = _abi.DATE
    value.real = _dates.time_fraction(source)


def _write_array(value: Value, source: Any) -> None:
    _arrays.write(value, source, write_owned)


def _write_by_ref(value: Value, source: ByRef) -> None:
    write(value, source.value)


def _write_foreign_number(value: Value, source: Any) -> None:
    if isinstance(source, numbers.Integral):
        _write_int(value, int(source))
    else:
        _write_float(value, float(source))


def _write_numpy(value: Value, source: Any) -> None:
    write(value, source.tolist())


def _write_bytes(_value: Value, source: Any) -> None:
    raise TypeError(f"{type(source).__name__} cannot be handed to the library: decode it")


Writer = Callable[[Value, Any], None]

WRITERS: dict[type, Writer] = {
    type(None): _write_none,
    Marker: _write_marker,
    bool: _write_bool,
    int: _write_int,
    float: _write_float,
    str: _write_text,
    datetime.datetime: _write_date,
    datetime.date: _write_date,
    datetime.time: _write_time,
    list: _write_array,
    tuple: _write_array,
    ByRef: _write_by_ref,
}

_BASES: tuple[tuple[Any, Writer], ...] = (
    (int, _write_int),
    (str, _write_text),
    (datetime.date, _write_date),
    (datetime.time, _write_time),
    ((list, tuple), _write_array),
    (numbers.Number, _write_foreign_number),
    ((bytes, bytearray, memoryview), _write_bytes),
)


def writer_of(source: Any) -> Writer:
    """How a value whose exact type is not in WRITERS is written."""
    kind = type(source)
    if kind.__module__ == "numpy" and hasattr(source, "tolist"):
        return _write_numpy
    for base, writer in _BASES:
        if isinstance(source, base):
            return writer
    return _write_object


def write(value: Value, source: Any) -> None:
    """Fills in an Empty value for one call. What it points to belongs to `source`, or is owned and must be cleared."""
    (WRITERS.get(type(source)) or writer_of(source))(value, source)


def write_owned(value: Value, source: Any) -> None:
    """Fills in an Empty value that outlives `source`."""
    write(value, source)
    if value.owned:
        return
    if value.kind == _abi.TEXT:
        text = source.encode("utf-8", "replace")
        value.kind = _abi.EMPTY
        _abi.set_text(_abi.reference(value), text, _abi.size(len(text)))
    elif value.kind == _abi.OBJECT:
        handle, value.kind = value.object, _abi.EMPTY
        _abi.set_object(_abi.reference(value), c_void_p(handle))
