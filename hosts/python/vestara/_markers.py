"""What stands for the kinds of value that Python has no word for."""

from __future__ import annotations

import enum
from typing import Any


class Marker(enum.Enum):
    MISSING = "Missing"
    EMPTY = "Empty"
    NOTHING = "Nothing"

    def __repr__(self) -> str:
        return self.value

    def __bool__(self) -> bool:
        return False


#: An optional argument that is left out.
Missing = Marker.MISSING
#: A variable that was never assigned.
Empty = Marker.EMPTY
#: An object variable that holds none.
Nothing = Marker.NOTHING
#: No value: what a database column without one holds.
Null = None


class ByRef:
    """A variable handed over by reference: `value` is what the member left in it."""

    __slots__ = ("value",)

    def __init__(self, value: Any = None) -> None:
        self.value = value

    def __repr__(self) -> str:
        return f"ByRef({self.value!r})"
