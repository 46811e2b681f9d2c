"""Writes vestara/_members.pyi: the classes of the library with the types of their members, for type checkers.

    VESTARA_LIBRARY_DIR=build/release/lib python3 hosts/python/tools/make_stubs.py [OUTPUT]

The rows come from the library itself; what the library has no class of yet is left out.
"""

from __future__ import annotations

import keyword
import pathlib
import sys
from typing import Any, Iterator

PACKAGE = pathlib.Path(__file__).resolve().parents[1] / "vestara"
sys.path.insert(0, str(PACKAGE.parent))

from vestara import RunTimeError, connect
from vestara._classes import Description, Member
from vestara._dispatch import Closing, Collection, Dispatch, Dispatched
from vestara._recordset import RecordSet

CREATED = (
    "Vestara.cLotto",
    "Vestara.cEstrazione",
    "Vestara.cStatistiche",
    "Vestara.cSistemi",
    "Vestara.cFrequenza",
    "Vestara.cTabAnalytics",
    "Vestara.cDistanze",
    "Vestara.cDistanze2",
    "Dorvane.DbConnector",
)

HEADER = '''"""The classes of the library. Written by tools/make_stubs.py: do not edit."""

import datetime
from typing import Any, Literal, TypeVar, Union, overload

from ._dispatch import Closing as Closing
from ._dispatch import Collection as Collection
from ._dispatch import Dispatched as Dispatched
from ._markers import ByRef, Marker
from ._recordset import RecordSet as RecordSet

_Whole = Union[int, float, str]
_Real = Union[int, float, str]
_Moment = Union[datetime.date, str]
_T = TypeVar("_T", bound=Dispatched)
'''

FOOTER = """
@overload
def Dispatch(identifier: str) -> Any: ...
@overload
def Dispatch(identifier: _T) -> _T: ...
def DispatchWithEvents(identifier: Any, handler_class: type) -> Any: ...
def connect(url: str = ...) -> DbConnector: ...
"""

RESULTS = {
    "Nothing": "None",
    "Boolean": "bool",
    "Integer": "int",
    "Long": "int",
    "Single": "float",
    "Double": "float",
    "Date": "datetime.datetime",
    "String": "str",
    "Array": "tuple[Any, ...]",
}
PARAMETERS = {
    "Boolean": "bool",
    "Integer": "_Whole",
    "Long": "_Whole",
    "Single": "_Real",
    "Double": "_Real",
    "Date": "_Moment",
    "String": "str",
    "Array": "Union[list[Any], tuple[Any, ...]]",
}
COMFORTS = (RecordSet, Collection, Closing)


def instances() -> Iterator[tuple[str, Dispatched]]:
    """One object of every class, with its identifier where it is created by one."""
    for identifier in CREATED:
        try:
            yield identifier, Dispatch(identifier)
        except RunTimeError:
            continue
    with connect("sqlite::memory:") as connector:
        rows = connector.GetRecordset("SELECT 1 AS one")
        yield "", rows
        yield "", rows.Fields
        yield "", rows.Fields(0)


class Stubs:
    def __init__(self) -> None:
        self.objects = list(instances())
        self.classes = {description_of(instance).name for _, instance in self.objects}

    def text(self) -> str:
        parts = [HEADER]
        parts += [self.class_text(instance) for _, instance in self.objects]
        parts.append("".join(f"\n{self.creator(name, made)}" for name, made in self.objects if name))
        return "".join(parts) + FOOTER

    def creator(self, identifier: str, instance: Dispatched) -> str:
        name = description_of(instance).name
        return f'@overload\ndef Dispatch(identifier: Literal["{identifier}"]) -> {name}: ...'

    def class_text(self, instance: Dispatched) -> str:
        description = description_of(instance)
        bases = [base.__name__ for base in COMFORTS if isinstance(instance, base)] + ["Dispatched"]
        lines = [f'\nclass {description.name}({", ".join(bases)}):', f'    """{class_help(description)}"""', ""]
        for name, rows in description.members.items():
            lines += self.member_lines(instance, name, rows)
        return "\n".join(lines + self.default_lines(instance)) + "\n"

    def member_lines(self, instance: Dispatched, name: str, rows: list[Member]) -> list[str]:
        if not isinstance(vars(type_with(instance, name))[name], property):
            return [self.function(name, rows[0])]
        readable = next((row for row in rows if row["kind"] == "get"), None)
        found = type(getattr(instance, name)).__name__ if is_fields(instance, name) else ""
        result = found or (self.result(readable) if readable else "Any")
        lines = ["    @property", f"    def {name}(self) -> {result}: ..."]
        if any(row["kind"] in ("put", "putref") for row in rows):
            lines += [f"    @{name}.setter", f"    def {name}(self, value: {result}) -> None: ..."]
        return lines

    def default_lines(self, instance: Dispatched) -> list[str]:
        description = description_of(instance)
        name = description.default_member()
        if name is None:
            return []
        row = description.members[name][0]
        if not row["parameters"] and row["result"] in self.classes:
            # An index goes on to the default member of the object: recordset("dtEstr") is a field.
            return ["    def __call__(self, *index: Any) -> Any: ..."]
        result = self.result(row)
        lines = [self.function("__call__", row)]
        if row["parameters"]:
            lines.append(f"    def __getitem__(self, key: Any) -> {result}: ...")
        return lines

    def function(self, name: str, row: Member) -> str:
        parameters = ["self", *map(self.parameter, row["parameters"])]
        line = f"    def {name}({', '.join(parameters)}) -> {self.result(row)}: ..."
        if len(line) <= 120:
            return line
        return "\n".join(
            [f"    def {name}(", *(f"        {text}," for text in parameters), f"    ) -> {self.result(row)}: ..."]
        )

    def parameter(self, row: dict[str, Any]) -> str:
        name = row["name"] + ("_" if keyword.iskeyword(row["name"]) else "")
        kinds = [PARAMETERS.get(row["type"], "Any")]
        if kinds[0] != "Any":
            kinds += ["ByRef"] * row["writes_back"] + ["Marker"] * row["optional"]
        kind = f"Union[{', '.join(kinds)}]" if len(kinds) > 1 else kinds[0]
        return f"{name}: {kind}" + (" = ..." if row["optional"] else "")

    def result(self, row: Member) -> str:
        """Objects may come back as nothing, and a host's own object comes back as itself: their types are a help."""
        kind = row["result"]
        return RESULTS.get(kind) or (f"Union[{kind}, Any]" if kind in self.classes else "Any")


def description_of(instance: Dispatched) -> Description:
    description = type(instance)._description
    assert description is not None
    return description


def type_with(instance: Dispatched, name: str) -> type:
    return next(base for base in type(instance).__mro__ if name in vars(base))


def is_fields(instance: Dispatched, name: str) -> bool:
    return isinstance(instance, RecordSet) and name == "Fields"


def class_help(description: Description) -> str:
    events = ", ".join(
        f"On{event['name']}(" + ", ".join(parameter["name"] for parameter in event["parameters"]) + ")"
        for event in description.events
    )
    return description.help + (f"\n\n    Events: {events}.\n    " if events else "")


if __name__ == "__main__":
    output = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else PACKAGE / "_members.pyi"
    output.write_text(Stubs().text(), encoding="utf-8")
