"""Ctrl-C while the library works.

Python raises KeyboardInterrupt only where Python code runs: inside one of the callbacks. No exception may leave a
callback, so it is kept here, the running load is ended through the yield hook, and the call that came from Python
raises it once it is back. The hook runs every few milliseconds, not at every row, and at once when something is kept.
"""

from __future__ import annotations

import atexit
import sys
import threading
from typing import Any, Callable

from . import _abi

_MILLISECONDS_BETWEEN_HOOKS = 5  # what Python's own threads wait for each other

pending: dict[int, BaseException] = {}  # by thread
_callbacks: list[Any] = []
_previous: Any = sys.unraisablehook
_main_thread = threading.main_thread().ident
_current_thread = threading.get_ident


def take_pending() -> BaseException | None:
    """What was kept on this thread, to be raised."""
    return pending.pop(_current_thread(), None) if pending else None


def keep(error: BaseException) -> None:
    """Called for what is no Exception: KeyboardInterrupt, SystemExit."""
    pending.setdefault(_current_thread(), error)
    _abi.set_yield_interval(_MILLISECONDS_BETWEEN_HOOKS)


def callback(prototype: Any, function: Callable[..., Any]) -> Any:
    """Makes a function callable from C for the life of the process."""
    _callbacks.append(function)
    return _abi.keep_for_ever(prototype(_abi.keep_for_ever(function)))


def call_library(*arguments: Any) -> int:
    """au_invoke. A signal that arrives just as a callback is entered is raised before that callback's own `try`, and
    ctypes would print and drop it: it is caught here instead."""
    global _previous
    hook = sys.unraisablehook
    if hook is _keep_unraisable or _current_thread() != _main_thread:
        return int(_abi.invoke(*arguments))
    _previous = hook
    sys.unraisablehook = _keep_unraisable
    try:
        return int(_abi.invoke(*arguments))
    finally:
        sys.unraisablehook = hook


def _keep_unraisable(unraisable: Any) -> None:
    if unraisable.object is None:
        ours = "ctypes callback" in (unraisable.err_msg or "")
    else:
        ours = unraisable.object in _callbacks
    if ours and unraisable.exc_value is not None:
        keep(unraisable.exc_value)
    else:
        _previous(unraisable)


def _ends_load(_host: int | None) -> int:
    # Pending signals are handled on the way into this function.
    try:
        return 1 if _current_thread() in pending else 0
    except BaseException as error:
        keep(error)
        return 1


_abi.set_yield_hook(callback(_abi.YieldHook, _ends_load), None)
_abi.set_yield_interval(_MILLISECONDS_BETWEEN_HOOKS)
atexit.register(_abi.set_yield_hook, None, None)
