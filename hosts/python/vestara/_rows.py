"""The rows that a loop over a record set gives."""

from __future__ import annotations

from typing import Any, Callable, Sequence


class Row(tuple):  # type: ignore[type-arg]
    """The values of one row, by place, by name (`row["dtEstr"]`) or as attributes (`row.dtEstr`), without regard to
    case; the first of two columns that share a name."""

    __slots__ = ()
    _places: dict[str, int] = {}

    def __getitem__(self, key: Any) -> Any:
        if isinstance(key, str):
            try:
                return tuple.__getitem__(self, self._places[key.lower()])
            except KeyError:
                raise KeyError(key) from None
        return tuple.__getitem__(self, key)

    def __getattr__(self, name: str) -> Any:
        place = self._places.get(name.lower())
        if place is None:
            raise AttributeError(f"the row has no column {name!r}")
        return tuple.__getitem__(self, place)

    def keys(self) -> list[str]:
        return list(self._names)

    def __repr__(self) -> str:
        return "Row(" + ", ".join(f"{name}={value!r}" for name, value in zip(self._names, self)) + ")"

    _names: tuple[str, ...] = ()


def row_class(names: Sequence[str]) -> type[Row]:
    places: dict[str, int] = {}
    for place, name in enumerate(names):
        places.setdefault(name.lower(), place)
    members: dict[str, Any] = {"__slots__": (), "_names": tuple(names), "_places": places}
    for name in names:
        if name.isidentifier() and not name.startswith("_"):
            members[name] = property(_cell(places[name.lower()]))
    return type("Row", (Row,), members)


def _cell(place: int) -> Callable[[Any], Any]:
    item = tuple.__getitem__
    return lambda row: item(row, place)
