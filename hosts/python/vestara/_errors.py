"""Run-time errors, and how they cross between Python and the library."""

from __future__ import annotations

from . import _abi

AUTOMATION_ERROR = 440
USER_INTERRUPT = 18


class RunTimeError(Exception):
    """What a member raised: a number, a description and the source, as hosts of the library know them."""

    def __init__(self, number: int, description: str = "", source: str = "") -> None:
        super().__init__(number, description, source)
        self.number = number
        self.description = description
        self.source = source

    def __str__(self) -> str:
        return f"{self.description} ({self.number})" if self.description else f"Run-time error ({self.number})"


def last_failure() -> RunTimeError:
    """The failure of the call that just came back."""
    error = _abi.last_error()
    return RunTimeError(error.number, _text(error.description), _text(error.source))


def check(status: int) -> None:
    if status:
        raise last_failure()


def hand_to_library(error: BaseException) -> int:
    """Makes an exception the error of the callback that is running; returns the callback's status."""
    if isinstance(error, RunTimeError):
        number, description, source = error.number or AUTOMATION_ERROR, error.description, error.source
    elif isinstance(error, Exception):
        number, description, source = AUTOMATION_ERROR, f"{type(error).__name__}: {error}", ""
    else:
        number, description, source = USER_INTERRUPT, type(error).__name__, ""
    _abi.raise_error(number, description.encode("utf-8", "replace"), source.encode("utf-8", "replace"))
    return _abi.RAISED


def _text(bytes_: bytes | None) -> str:
    return (bytes_ or b"").decode("utf-8", "replace")
