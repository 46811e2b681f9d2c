"""Calls of members. The memory of a call is used again by the next one."""

from __future__ import annotations

import contextlib
import ctypes
from typing import Any, Callable, Iterator, Mapping, Sequence

from . import _abi, _errors
from ._abi import LONG, METHOD, MISSING, OBJECT, PUT, PUTREF, TEXT, Value
from ._interrupts import call_library, pending, take_pending
from ._markers import ByRef
from ._values import WRITERS, read, writer_of

_clear = _abi.clear
_NONE = _abi.size(0)


class _Frame:
    """Room for the arguments and the result of one call."""

    __slots__ = ("arguments", "slots", "references", "size", "result", "result_reference")

    def __init__(self, count: int) -> None:
        self.arguments = (Value * count)() if count else None
        self.slots = tuple(self.arguments or ())
        self.references = tuple(map(_abi.reference, self.slots))
        self.size = _abi.size(count)
        self.result = Value()
        self.result_reference = _abi.reference(self.result)

    def fill(self, given: Sequence[Any]) -> None:
        for slot, value in zip(self.slots, given):
            (WRITERS.get(type(value)) or writer_of(value))(slot, value)

    def read_back(self, given: Sequence[Any]) -> None:
        for slot, value in zip(self.slots, given):
            if type(value) is ByRef:
                _read_back(slot, value)

    def take_result(self) -> Any:
        result = self.result
        answer = result.number if result.kind == LONG else read(result)
        if result.owned:
            _clear(self.result_reference)
        return answer

    def clear_arguments(self) -> None:
        for slot, reference in zip(self.slots, self.references):
            if slot.owned:
                _clear(reference)


# Frames that no call is using, by their number of arguments. Calls nest, so there can be several.
_free: list[list[_Frame]] = [[] for _ in range(12)]
_free_without_arguments = _free[0]


def run(handle: ctypes.c_void_p, member: int) -> Any:
    """A method without arguments."""
    return answer_of(_run, handle, member)


def _run(handle: ctypes.c_void_p, member: int, result: Any) -> int:
    return call_library(handle, member, METHOD, None, _NONE, None, _NONE, result)


def answer_of(library_call: Callable[..., int], handle: ctypes.c_void_p, member: int) -> Any:
    """What a call without arguments answers."""
    try:
        frame = _free_without_arguments.pop()
    except IndexError:
        frame = _Frame(0)
    try:
        if library_call(handle, member, frame.result_reference):
            raise take_pending() or _errors.last_failure()
        answer = frame.take_result()
    except BaseException:
        _clear(frame.result_reference)
        raise
    _free_without_arguments.append(frame)
    if pending:
        _raise_pending()
    return answer


def invoke(
    handle: ctypes.c_void_p, member: int, kind: int, arguments: Sequence[Any], named: Mapping[str, Any] | None = None
) -> Any:
    """Calls a member; `named` follow the positional arguments. ByRef arguments hold what came back. An assignment of
    an object is one by reference."""
    given = (*arguments, *named.values()) if named else arguments
    frame = _take(len(given))
    try:
        frame.fill(given)
        if kind == PUT and frame.slots[-1].kind == OBJECT:
            kind = PUTREF
        names, size = _names_of(named) if named else (None, _NONE)
        if call_library(handle, member, kind, frame.arguments, frame.size, names, size, frame.result_reference):
            failure = take_pending() or _errors.last_failure()
            frame.read_back(given)
            raise failure
        answer = frame.take_result()
        frame.read_back(given)
    except BaseException:
        _clear(frame.result_reference)
        raise
    finally:
        frame.clear_arguments()
    if len(given) < len(_free):
        _free[len(given)].append(frame)
    if pending:
        _raise_pending()
    return answer


@contextlib.contextmanager
def array_result(handle: ctypes.c_void_p, member: int, number: int) -> Iterator[Value]:
    """The array that a method of one number returns, as the library made it, for the length of the block."""
    argument, result = Value(kind=LONG, number=number), Value()
    reference = _abi.reference(result)
    try:
        if call_library(handle, member, METHOD, _abi.reference(argument), _abi.size(1), None, _NONE, reference):
            raise take_pending() or _errors.last_failure()
        yield result
    finally:
        _clear(reference)


def _names_of(named: Mapping[str, Any]) -> tuple[Any, ctypes.c_size_t]:
    return (ctypes.c_char_p * len(named))(*(name.encode("utf-8") for name in named)), _abi.size(len(named))


def _take(count: int) -> _Frame:
    try:
        return _free[count].pop()
    except IndexError:
        return _Frame(count)


def _read_back(slot: Value, holder: ByRef) -> None:
    """Takes over what the member left; a variable that it did not change keeps its Python type, a flag is a bool."""
    if slot.kind == MISSING or (slot.kind in (TEXT, OBJECT) and not slot.owned):
        return
    before, found = holder.value, read(slot)
    if isinstance(before, list) and isinstance(found, tuple):
        holder.value = list(found)
    elif isinstance(found, bool) != isinstance(before, bool) or not (
        isinstance(found, (int, float, str)) and found == before
    ):
        holder.value = found


def _raise_pending() -> None:
    error = take_pending()
    if error is not None:
        raise error
