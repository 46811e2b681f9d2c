"""Comfort for record sets: rows, columns, dictionaries, data frames; fields found once."""

from __future__ import annotations

from typing import Any, Callable, Iterator

from . import _arrays, _calls, _values
from ._abi import Value
from ._classes import Description
from ._dispatch import comforts
from ._markers import Missing
from ._rows import Row, row_class

_FIRST_BLOCK, _LARGEST_BLOCK = 128, 8192


class RecordSet:
    """A record set of any library that has the classic members."""

    __slots__ = ()

    def __len__(self) -> int:
        return int(self.RecordCount)  # type: ignore[attr-defined]

    def __iter__(self) -> Iterator[Row]:
        """The rows from the first one on. The cursor follows in blocks of rows: during the loop, read the rows, not
        the fields."""
        make = row_class(self.columns)
        new = tuple.__new__
        for columns in self._blocks():
            for values in zip(*columns):
                yield new(make, values)

    @property
    def columns(self) -> list[str]:
        """The names of the columns."""
        return [field.Name for field in self.Fields]  # type: ignore[attr-defined]

    def to_dicts(self) -> list[dict[str, Any]]:
        """One dictionary a row."""
        names = self.columns
        first = [place for place, name in enumerate(names) if names.index(name) == place]
        kept = [names[place] for place in first]
        rows: list[dict[str, Any]] = []
        for columns in self._blocks():
            rows.extend(dict(zip(kept, values)) for values in zip(*map(columns.__getitem__, first)))
        return rows

    def to_pandas(self) -> Any:
        """A pandas.DataFrame of all rows. Dates become datetime64[ns], whole columns int32, or Int32 where values are
        missing; Null becomes NaN, NaT or None. ImportError without pandas."""
        from . import _pandas

        return _pandas.data_frame(self, self.columns)

    def _blocks(self, rows: int = 0) -> Iterator[list[list[Any]]]:
        """Blocks of rows as lists of columns; `rows` at a time, by default more and more."""
        for block, width, count in self._arrays(rows):
            yield [_arrays.elements(block, column, width, count, _values.read) for column in range(width)]

    def _arrays(self, rows: int = 0) -> Iterator[tuple[Value, int, int]]:
        """GetRows from the first row on, block by block: the array, its columns and its rows. Each block goes to its
        own place first, so that loops may be nested."""
        done, wanted = 0, rows or _FIRST_BLOCK
        while True:
            self.MoveFirst()  # type: ignore[attr-defined]
            if self.EOF:  # type: ignore[attr-defined]
                return
            if done:
                self.Move(done)  # type: ignore[attr-defined]
            if self.EOF:  # type: ignore[attr-defined]
                return
            with _calls.array_result(self._handle, self._rows_member, wanted) as block:  # type: ignore[attr-defined]
                (width, count), _ = _arrays.shape(block)
                yield block, width, count
            done += count
            wanted = rows or min(2 * wanted, _LARGEST_BLOCK)


class _KnownFields:
    """The fields of a record set: each is looked up once, as it is the same object in every row."""

    __slots__ = ()
    _cache: dict[Any, Any]

    def Item(self, index: Any = Missing, *more: Any, **named: Any) -> Any:
        try:
            if not (more or named):
                return self._cache[index]
        except (KeyError, TypeError):
            pass
        field = super().Item(*((index, *more) if index is not Missing else more), **named)  # type: ignore[misc]
        if isinstance(index, (str, int)):
            self._cache[index] = field
        return field

    __call__ = __getitem__ = Item


def _fields(original: property) -> property:
    read: Callable[[Any], Any] = original.fget  # type: ignore[assignment]
    known: dict[type, type] = {}

    def made_known(fields: Any) -> Any:
        plain = type(fields)
        if plain not in known:
            known[plain] = type(plain.__name__, (_KnownFields, plain), {"__slots__": (), "__module__": "vestara"})
        fields.__class__ = known[plain]
        fields._cache = {}
        return fields

    def get(self: Any) -> Any:
        try:
            return self._cache
        except AttributeError:
            fields = self._cache = made_known(read(self))
            return fields

    return property(get, doc=original.__doc__)


def _record_set(description: Description, names: dict[str, Any], bases: list[type]) -> None:
    if description.has("Fields", "MoveFirst", "Move", "EOF", "GetRows", "RecordCount"):
        bases.append(RecordSet)
        names["_rows_member"] = description.members["GetRows"][0]["id"]
        names["Fields"] = _fields(names["Fields"])


comforts.append(_record_set)
