"""Events of the library's objects, delivered to methods named On and the event's name."""

from __future__ import annotations

import itertools
import logging
import weakref
from ctypes import c_int32, c_void_p
from typing import Any, Callable

from . import _abi, _errors, _values
from ._dispatch import Dispatch, Dispatched, adopt
from ._errors import RunTimeError
from ._interrupts import callback, keep

_log = logging.getLogger("vestara")


class Connection:
    """The connection of one handler; ends with `close`, with the block, or when nothing holds it any more."""

    _numbers = itertools.count(1)
    _open: weakref.WeakValueDictionary[int, Connection] = weakref.WeakValueDictionary()

    def __init__(self, source: Dispatched, handler: Callable[[], Any]) -> None:
        """`handler` gives the handler, None when it is gone."""
        if not isinstance(source, Dispatched):
            raise RunTimeError(445, "Object doesn't support this action")
        self._handler = handler
        self._methods: dict[str, str | None] = {}
        self._key = next(self._numbers)
        self._cookie = c_int32()
        handle = source._handle
        _errors.check(_abi.advise(handle, _sink, c_void_p(self._key), _abi.reference(self._cookie)))
        _abi.retain(handle)
        self._handle: c_void_p | None = c_void_p(handle.value)
        self._open[self._key] = self

    def close(self) -> None:
        handle, self._handle = self._handle, None
        if handle is not None:
            _abi.unadvise(handle, self._cookie)
            _abi.release(handle)

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            self.close()

    def call(self, event: str, arguments: list[Any]) -> None:
        handler = self._handler()
        if handler is None:
            return
        if event not in self._methods:
            self._methods[event] = _method_for(handler, event)
        method = self._methods[event]
        if method is not None:
            getattr(handler, method)(*arguments)


def _method_for(handler: Any, event: str) -> str | None:
    wanted = f"On{event}"
    if hasattr(handler, wanted):
        return wanted
    return next((name for name in dir(handler) if name.lower() == wanted.lower()), None)


def _deliver(key: int, _event: int, name: bytes, arguments: Any, count: int) -> int:
    try:
        connection = Connection._open.get(key)
        if connection is not None:
            connection.call(name.decode("utf-8"), [_values.read(arguments[i]) for i in range(count)])
        return _abi.OK
    except Exception as error:
        _log.exception("On%s of an event handler failed; the load goes on", name.decode("utf-8"))
        return _errors.hand_to_library(error)
    except BaseException as error:
        keep(error)
        return _errors.hand_to_library(error)


_sink = callback(_abi.EventSink, _deliver)


class EventHandler:
    """A handler's instance while it is connected: reads like the handler, and `close` ends the connection."""

    def __init__(self, connection: Connection, handler: Any) -> None:
        self._connection = connection
        self._handler = handler

    def close(self) -> None:
        self._connection.close()

    def __getattr__(self, name: str) -> Any:
        return getattr(self._handler, name)

    def __enter__(self) -> EventHandler:
        return self

    def __exit__(self, *_failure: Any) -> None:
        self.close()


def WithEvents(source: Any, handler: Any) -> Any:
    """Connects a handler: an instance, or a class whose instance is made here and returned. It stays connected as long
    as `source` or the result is held, until `close` of the result.

    What a handler's method raises is logged and ends only its own turn. RunTimeError 445 when `source` raises no
    events."""
    if isinstance(handler, type):
        return _instance_with_events(source, handler)
    connection = Connection(source, lambda: handler)
    _hold(source, connection)
    return EventHandler(connection, handler)


def _instance_with_events(source: Dispatched, handler_class: type) -> Any:
    names: dict[str, Any] = {} if hasattr(handler_class, "close") else {"close": _close_instance}
    made = type(handler_class.__name__, (handler_class,), names)()
    connection = Connection(source, weakref.ref(made))
    made._connection = connection
    _hold(source, made)
    return made


def _close_instance(self: Any) -> None:
    """Ends the connection."""
    self._connection.close()


def _hold(source: Dispatched, held: Any) -> None:
    try:
        source._sinks.append(held)
    except AttributeError:
        source._sinks = [held]


def DispatchWithEvents(identifier: Any, handler_class: type) -> Any:
    """An object (by programmatic identifier, or one that is there) that is an instance of the handler's class too: its
    methods receive the object's events, and `self` has the object's members."""
    source = Dispatch(identifier)
    names = {"close": lambda self: self._sinks[0].close()} if not hasattr(handler_class, "close") else {}
    combined = type(handler_class.__name__, (type(source), handler_class), names)
    _abi.retain(source._handle)
    made = adopt(combined, c_void_p(source._handle.value))
    _hold(made, Connection(source, weakref.ref(made)))
    initialise: Any = handler_class.__init__  # type: ignore[misc]
    initialise(made)
    return made
