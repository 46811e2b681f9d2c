"""The C interface of the component model: its structures, constants and functions.

Functions have no declared argument types: ready-made ctypes values go through faster. Handles are `c_void_p`, sizes
come from `size`, null pointers are None.
"""

from __future__ import annotations

import ctypes
from ctypes import POINTER, c_char_p, c_double, c_int, c_int32, c_int64, c_size_t, c_uint32, c_void_p
from typing import Any

from . import _library

VERSION = 0x00010002

OK, RAISED = 0, 1
EMPTY, NULL, MISSING, BOOLEAN, INTEGER, LONG, SINGLE, DOUBLE, DATE, TEXT, OBJECT, ARRAY = range(12)
METHOD, GET, PUT, PUTREF = range(4)


class _Text(ctypes.Structure):
    _fields_ = [("text", c_char_p), ("length", c_size_t)]


class _TextPlace(ctypes.Structure):
    """The same bytes as an address, for texts that hold a NUL."""

    _fields_ = [("address", c_void_p), ("_length", c_size_t)]


class _Described(ctypes.Structure):
    """An object, and what all objects of its class have in common."""

    _fields_ = [("object", c_void_p), ("of_class", c_void_p)]


class _Payload(ctypes.Union):
    _anonymous_ = ("_text", "_place", "_described")
    _fields_ = [
        ("number", c_int32),
        ("real", c_double),
        ("_text", _Text),
        ("_place", _TextPlace),
        ("_described", _Described),
    ]


class _Kind(ctypes.Structure):
    _fields_ = [("kind", c_int32), ("owned", c_int32)]


class _Head(ctypes.Union):
    """Kind and owner at once: 0 is Empty, with nothing to clear."""

    _anonymous_ = ("_kind",)
    _fields_ = [("_kind", _Kind), ("head", c_int64)]


class Value(ctypes.Structure):
    """A value with its kind; all zero is Empty."""

    _anonymous_ = ("_head", "_payload")
    _fields_ = [("_head", _Head), ("_payload", _Payload)]

    # What the anonymous members make readable.
    head: int
    kind: int
    owned: int
    number: int
    real: float
    text: bytes | None
    length: int
    address: int | None
    object: int | None
    of_class: int | None


class Bound(ctypes.Structure):
    _fields_ = [("lower", c_int32), ("count", c_int32)]


class Error(ctypes.Structure):
    _fields_ = [("number", c_int32), ("description", c_char_p), ("source", c_char_p)]


EventSink = ctypes.CFUNCTYPE(c_int, c_void_p, c_int32, c_char_p, POINTER(Value), c_size_t)
YieldHook = ctypes.CFUNCTYPE(c_int, c_void_p)
GetId = ctypes.CFUNCTYPE(c_int, c_void_p, c_void_p, c_size_t, POINTER(c_int32))
Invoke = ctypes.CFUNCTYPE(
    c_int, c_void_p, c_int32, c_int, POINTER(Value), c_size_t, POINTER(c_char_p), c_size_t, POINTER(Value)
)
Destroy = ctypes.CFUNCTYPE(None, c_void_p)


class HostClass(ctypes.Structure):
    _fields_ = [("version", c_uint32), ("get_id", GetId), ("invoke", Invoke), ("destroy", Destroy)]


_calls, _short = _library.load()

_short.au_abi_version.restype = c_uint32
_found = _short.au_abi_version()
if _found >> 16 != VERSION >> 16 or _found < VERSION:
    raise ImportError(f"the libraries of vestara have another interface: {_found:#010x}, {VERSION:#010x} is wanted")

invoke = _calls.au_invoke
get = _calls.au_get
create_object = _calls.au_create_object

last_error = _short.au_last_error
last_error.restype = Error
clear = _short.au_clear
clear.restype = None
set_text = _short.au_set_text
set_object = _short.au_set_object
retain = _short.au_retain
release = _short.au_release
get_id = _short.au_get_id
describe = _short.au_describe
class_name = _short.au_class_name
class_name.restype = c_char_p
first_item = _short.au_first_item
class_at = _short.au_class_at
make_array = _short.au_make_array
array_shape = _short.au_array_shape
array_get = _short.au_array_get
array_put = _short.au_array_put
array_numbers = _short.au_array_numbers
array_texts = _short.au_array_texts
advise = _short.au_advise
unadvise = _short.au_unadvise
create_host_object = _short.au_create_host_object
host_of = _short.au_host_of
host_of.restype = c_void_p
raise_error = _short.au_raise
raise_error.restype = None
set_yield_hook = _short.au_set_yield_hook
set_yield_hook.restype = None
set_yield_interval = _short.au_set_yield_interval
set_yield_interval.restype = None

SIZES = [c_size_t(count) for count in range(16)]


def size(count: int) -> c_size_t:
    return SIZES[count] if count < len(SIZES) else c_size_t(count)


def reference(structure: Any) -> Any:
    return ctypes.byref(structure)


def keep_for_ever(thing: Any) -> Any:
    """For what the library may call until the process ends, after Python has taken its modules apart."""
    ctypes.pythonapi.Py_IncRef(ctypes.py_object(thing))
    return thing


def bytes_at(address: int | None, length: int) -> bytes:
    return ctypes.string_at(address, length) if address else b""
