"""Python objects as objects of the library."""

from __future__ import annotations

import itertools
from ctypes import c_void_p
from typing import Any

from . import _abi, _errors, _host_members, _values
from ._abi import Value
from ._dispatch import Dispatched, wrap
from ._interrupts import callback, keep
from ._markers import ByRef

# What the library holds, by the number that it knows it by. An object is here exactly as long as the library has it.
_live: dict[int, Any] = {}
_numbers = itertools.count(1)


def _get_id(key: int, name: int, length: int, found: Any) -> int:
    try:
        member = _host_members.id_of(_live[key], _abi.bytes_at(name, length).decode("utf-8", "replace"))
        if member is None:
            return _abi.RAISED
        found[0] = member
        return _abi.OK
    except BaseException as error:
        return _failed(error)


def _invoke(
    key: int, member: int, kind: int, arguments: Any, count: int, names: Any, name_count: int, result: Any
) -> int:
    try:
        given = [_values.read(arguments[i]) for i in range(count)]
        before = list(given)
        spelled = [names[i].decode("utf-8") for i in range(name_count)]
        answer = _host_members.call(_live[key], member, kind, given, spelled)
        for place, value in enumerate(given):
            if type(value) is ByRef and value.value is not before[place]:
                _replace(arguments[place], value.value)
        _replace(result[0], answer)
        return _abi.OK
    except BaseException as error:
        return _failed(error)


def _destroy(key: int, _live: dict[int, Any] = _live) -> None:
    _live.pop(key, None)


def _replace(value: Value, source: Any) -> None:
    _abi.clear(_abi.reference(value))
    _values.write_owned(value, source)


def _failed(error: BaseException) -> int:
    if not isinstance(error, Exception):
        keep(error)
    return _errors.hand_to_library(error)


_table = _abi.keep_for_ever(
    _abi.HostClass(
        _abi.VERSION,
        callback(_abi.GetId, _get_id),
        callback(_abi.Invoke, _invoke),
        callback(_abi.Destroy, _destroy),
    )
)
_table_reference = _abi.keep_for_ever(_abi.reference(_table))


def _write_object(value: Value, source: Any) -> None:
    if isinstance(source, Dispatched):
        value.kind = _abi.OBJECT
        value.object = source._handle.value
        return
    key = next(_numbers)
    _live[key] = source
    handle = c_void_p()
    if _abi.create_host_object(_table_reference, c_void_p(key), _abi.reference(handle)):
        del _live[key]
        raise _errors.last_failure()
    value.kind, value.owned = _abi.OBJECT, 1
    value.object = handle.value


def _host_of(handle: int) -> Any:
    key = _abi.host_of(_table_reference, c_void_p(handle))
    return _live[key] if key else None


_values.connect_objects(wrap, _write_object, _live, _host_of)
