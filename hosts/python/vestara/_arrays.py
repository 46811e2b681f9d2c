"""Arrays: tuples on the Python side, one level per dimension. Lower bounds are left out: tuples count from 0."""

from __future__ import annotations

import ctypes
from typing import Any, Callable, Sequence

from . import _abi, _dates, _errors
from ._abi import Bound, Value

_MOST_DIMENSIONS = 60

Reader = Callable[[Value], Any]


def read(array: Value, read_value: Reader) -> tuple[Any, ...]:
    counts, total = shape(array)
    return _nested(elements(array, 0, 1, total, read_value), counts)


def shape(array: Value) -> tuple[list[int], int]:
    """The count of every dimension, and of all elements."""
    dimensions, total = ctypes.c_size_t(), ctypes.c_size_t()
    bounds = (Bound * _MOST_DIMENSIONS)()
    _errors.check(
        _abi.array_shape(
            _abi.reference(array),
            _abi.reference(dimensions),
            bounds,
            _abi.size(_MOST_DIMENSIONS),
            _abi.reference(total),
        )
    )
    return [bounds[i].count for i in range(dimensions.value)], total.value


def elements(array: Value, first: int, stride: int, count: int, read_value: Reader) -> list[Any]:
    """`count` elements from `first`, `stride` apart, the first index running fastest."""
    if count == 0:
        return []
    place = (_abi.reference(array), ctypes.c_size_t(first), ctypes.c_size_t(stride), ctypes.c_size_t(count))
    reals, kinds = (ctypes.c_double * count)(), (ctypes.c_uint8 * count)()
    _errors.check(_abi.array_numbers(*place, reals, kinds))
    found = bytes(kinds)
    alike = _PLAIN.get(found[0]) if found.count(found[0]) == count else None
    if alike:
        return alike(reals[:])
    texts = iter(_texts(place, found) if _abi.TEXT in found else ())
    if found.count(_abi.TEXT) == count:
        return list(texts)
    return [
        next(texts) if kind == _abi.TEXT else _element(array, first + i * stride, kind, reals[i], read_value)
        for i, kind in enumerate(found)
    ]


def plain(reals: Sequence[float], kinds: bytes) -> list[Any]:
    """The values of kinds that are numbers, Booleans, dates or nothing; None for all others."""
    return [_PLAIN.get(kind, _PLAIN[_abi.NULL])((real,))[0] for real, kind in zip(reals, kinds)]


_PLAIN: dict[int, Callable[[Any], list[Any]]] = {
    _abi.EMPTY: lambda reals: [None] * len(reals),
    _abi.NULL: lambda reals: [None] * len(reals),
    _abi.BOOLEAN: lambda reals: list(map(bool, reals)),
    _abi.INTEGER: lambda reals: list(map(int, reals)),
    _abi.LONG: lambda reals: list(map(int, reals)),
    _abi.SINGLE: lambda reals: list(reals),
    _abi.DOUBLE: lambda reals: list(reals),
    _abi.DATE: lambda reals: _moments(reals),
}


def _moments(serials: Sequence[float]) -> list[Any]:
    """Each of them once: archives hold many rows a day."""
    known = {serial: _dates.from_serial(serial) for serial in set(serials)}
    return list(map(known.__getitem__, serials))


def _element(array: Value, place: int, kind: int, real: float, read_value: Reader) -> Any:
    if kind in _PLAIN:
        return _PLAIN[kind]((real,))[0]
    value = Value()
    _errors.check(_abi.array_get(_abi.reference(array), ctypes.c_size_t(place), _abi.reference(value)))
    try:
        return read_value(value)
    finally:
        _abi.clear(_abi.reference(value))


def _texts(place: tuple[Any, ...], kinds: bytes) -> list[str]:
    """The texts among those elements."""
    joined, lengths = Value(), (ctypes.c_size_t * len(kinds))()
    _errors.check(_abi.array_texts(*place, _abi.reference(joined), lengths))
    bytes_ = _abi.bytes_at(joined.address, joined.length)
    _abi.clear(_abi.reference(joined))
    return cut(bytes_, [length for length, kind in zip(lengths, kinds) if kind == _abi.TEXT])


def cut(joined: bytes, lengths: Sequence[int]) -> list[str]:
    """The texts of those lengths (in bytes) that stand one behind the other."""
    if joined.isascii():
        text = joined.decode("ascii")
        end = 0
        return [text[(start := end) : (end := start + length)] for length in lengths]
    end = 0
    return [joined[(start := end) : (end := start + length)].decode("utf-8", "replace") for length in lengths]


def _nested(flat: list[Any], counts: list[int]) -> tuple[Any, ...]:
    if len(counts) < 2:
        return tuple(flat)
    return tuple(_nested(flat[i :: counts[0]], counts[1:]) for i in range(counts[0]))


def write(array: Value, source: Sequence[Any], write_owned: Callable[[Value, Any], None]) -> None:
    """Makes an array of a sequence; sequences of one length inside it are its further dimensions."""
    counts = _counts(source)
    bounds = (Bound * len(counts))(*[Bound(0, count) for count in counts])
    _errors.check(_abi.make_array(_abi.reference(array), _abi.EMPTY, bounds, _abi.size(len(counts))))
    value = Value()
    for place, element in enumerate(_flat(source, len(counts))):
        try:
            write_owned(value, element)
            _errors.check(_abi.array_put(_abi.reference(array), ctypes.c_size_t(place), _abi.reference(value)))
        finally:
            _abi.clear(_abi.reference(value))


def _is_sequence(value: Any) -> bool:
    return isinstance(value, (list, tuple))


def _counts(source: Sequence[Any]) -> list[int]:
    if not source or not all(map(_is_sequence, source)):
        return [len(source)]
    inner = [_counts(element) for element in source]
    return [len(source), *inner[0]] if all(counts == inner[0] for counts in inner) else [len(source)]


def _flat(source: Sequence[Any], dimensions: int) -> list[Any]:
    """The elements with the first index running fastest."""
    if dimensions == 1:
        return list(source)
    columns = [_flat(element, dimensions - 1) for element in source]
    return [element for group in zip(*columns) for element in group]
