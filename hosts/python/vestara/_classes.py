"""Python classes made of the descriptions that the library gives of its own."""

from __future__ import annotations

import ctypes
import itertools
import json
from typing import Any, Callable, Iterator

from . import _abi, _calls
from ._abi import Value
from ._calls import answer_of
from ._markers import Nothing
from ._values import text_bytes

Member = dict[str, Any]
#: Adds to a class what its members make possible. Takes the class's names and the base classes so far.
Comfort = Callable[["Description", dict[str, Any], list[type]], None]

_DEFAULT_MEMBER = 0
_class_name = _abi.class_name
_get = _abi.get


class Description:
    """The surface of one class, from its JSON text."""

    def __init__(self, text: bytes) -> None:
        surface: dict[str, Any] = json.loads(text)
        self.library: str = surface["library"]
        self.name: str = surface["class"]
        self.is_creatable: bool = surface["creatable"]
        #: The index of a collection's first item; None for what is no collection.
        self.first_item: int | None = surface["first_item"]
        self.help: str = surface["help"]
        self.events: list[dict[str, Any]] = surface["events"]
        self.rows: list[Member] = surface["members"]
        self.members: dict[str, list[Member]] = {}
        for row in self.rows:
            self.members.setdefault(row["name"], []).append(row)

    @property
    def full_name(self) -> str:
        return f"{self.library}.{self.name}" if self.library else self.name

    def has(self, *names: str) -> bool:
        return all(name in self.members for name in names)

    def default_member(self) -> str | None:
        return next((row["name"] for row in self.rows if row["id"] == _DEFAULT_MEMBER), None)


def describe(handle: ctypes.c_void_p) -> Description | None:
    """The surface of the object's class; None when it has none."""
    return _description(lambda json_value: _abi.describe(handle, json_value))


def descriptions() -> Iterator[Description]:
    """The surfaces of the loaded libraries: first the classes that are created, then those that members hand out."""
    for place in itertools.count():
        description = _description(lambda json_value: _abi.class_at(_abi.size(place), json_value))
        if description is None:
            return
        yield description


def _description(ask: Callable[[Any], Any]) -> Description | None:
    json_value = Value()
    if ask(_abi.reference(json_value)):
        return None
    text = text_bytes(json_value)
    _abi.clear(_abi.reference(json_value))
    return Description(text)


class ClassMaker:
    """Makes the Python class of an object, once for each name of a class."""

    def __init__(self, base: type, comforts: list[Comfort]) -> None:
        self._base = base
        self._comforts = comforts
        self._made: dict[bytes | None, type] = {}

    def class_of(self, handle: ctypes.c_void_p) -> type:
        name = _class_name(handle)
        made = self._made.get(name)
        if made is None:
            description = describe(handle)
            made = self._made[name] = self.make(description) if description and description.rows else self._base
        return made

    def make(self, description: Description) -> type:
        """The Python class of a surface."""
        names: dict[str, Any] = {
            "__slots__": (),
            "__doc__": description.help,
            "__module__": "vestara",
            "_description": description,
            "_spelling": {name.lower(): name for name in description.members},
        }
        names.update(_attributes(description))
        bases: list[type] = [self._base]
        for comfort in self._comforts:
            comfort(description, names, bases)
        return type(description.name, tuple(reversed(bases)), names)


def _attributes(description: Description) -> Iterator[tuple[str, Any]]:
    for name, rows in description.members.items():
        readable = next((row for row in rows if row["kind"] in ("method", "get")), None)
        if readable is not None and _is_called(readable):
            yield name, _callable_member(description, readable)
        else:
            yield name, _property(rows, readable)


def _is_called(row: Member) -> bool:
    """Methods are; so are properties with arguments, unless they give an object without any."""
    if row["kind"] == "method":
        return True
    needed = any(not parameter["optional"] for parameter in row["parameters"])
    return needed or (bool(row["parameters"]) and row["result"] in _PLAIN_RESULTS)


_PLAIN_RESULTS = {"Nothing", "Variant", "Boolean", "Integer", "Long", "Single", "Double", "Date", "String", "Array"}


def _callable_member(description: Description, row: Member) -> Callable[..., Any]:
    member, kind = row["id"], _abi.METHOD if row["kind"] == "method" else _abi.GET

    def call(self: Any, *arguments: Any, **named: Any) -> Any:
        if arguments or named:
            return _calls.invoke(self._handle, member, kind, arguments, named)
        return _calls.run(self._handle, member)

    call.__name__ = row["name"]
    call.__qualname__ = f"{description.name}.{row['name']}"
    call.__doc__ = f"{_signature(row)}\n\n{row['help']}"
    return call


def _property(rows: list[Member], readable: Member | None) -> property:
    member = rows[0]["id"]
    assigned = {row["kind"] for row in rows} & {"put", "putref"}
    takes_nothing = assigned == {"putref"}

    def get(self: Any) -> Any:
        return answer_of(_get, self._handle, member)

    def put(self: Any, value: Any) -> None:
        if value is None and takes_nothing:
            value = Nothing
        _calls.invoke(self._handle, member, _abi.PUT, (value,))

    return property(get, put, doc=(readable or rows[0])["help"])


def _signature(row: Member) -> str:
    parameters = ", ".join(
        f"{parameter['name']}={parameter['default'] or 'Missing'}" if parameter["optional"] else parameter["name"]
        for parameter in row["parameters"]
    )
    return f"{row['name']}({parameters}) -> {row['result']}"


def id_of(handle: ctypes.c_void_p, name: str) -> int | None:
    """The id of a member of an object that describes nothing."""
    found = ctypes.c_int32()
    missing = _abi.get_id(handle, name.encode("utf-8"), _abi.reference(found))
    return None if missing else found.value
