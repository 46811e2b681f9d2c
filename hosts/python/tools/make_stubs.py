"""Writes vestara/_members.pyi: the classes of the library with the types of their members, for type checkers.

    VESTARA_LIBRARY_DIR=build/release/lib python3 hosts/python/tools/make_stubs.py [OUTPUT]

The rows come from the libraries themselves.
"""

from __future__ import annotations

import keyword
import pathlib
import sys
from typing import Any, Iterator

PACKAGE = pathlib.Path(__file__).resolve().parents[1] / "vestara"
sys.path.insert(0, str(PACKAGE.parent))

from vestara._classes import Description, Member, descriptions
from vestara._dispatch import Closing, Collection, class_maker
from vestara._recordset import RecordSet

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


def surfaces() -> Iterator[Description]:
    """The classes of the libraries, but for those that the package has a class of its own for."""
    own = {comfort.__name__ for comfort in COMFORTS}
    return (description for description in descriptions() if description.name not in own)


class Stubs:
    def __init__(self) -> None:
        self.surfaces = list(surfaces())
        self.classes = {description.name for description in self.surfaces}

    def text(self) -> str:
        parts = [HEADER]
        parts += [self.class_text(description) for description in self.surfaces]
        parts += [self.creator(description) for description in self.surfaces if description.is_creatable]
        return "".join(parts) + FOOTER

    def creator(self, description: Description) -> str:
        identifier = f'Literal["{description.full_name}"]'
        return f"\n@overload\ndef Dispatch(identifier: {identifier}) -> {description.name}: ..."

    def class_text(self, description: Description) -> str:
        made = class_maker.make(description)
        bases = [base.__name__ for base in COMFORTS if issubclass(made, base)] + ["Dispatched"]
        lines = [f'\nclass {description.name}({", ".join(bases)}):', f'    """{class_help(description)}"""', ""]
        for name, rows in description.members.items():
            lines += self.member_lines(made, name, rows)
        return "\n".join(lines + self.default_lines(description)) + "\n"

    def member_lines(self, made: type, name: str, rows: list[Member]) -> list[str]:
        if not isinstance(vars(class_with(made, name))[name], property):
            return [self.function(name, rows[0])]
        readable = next((row for row in rows if row["kind"] == "get"), None)
        result = self.result(readable) if readable else "Any"
        if readable and issubclass(made, RecordSet) and name == "Fields":
            result = readable["result"]  # the library's own, always there
        lines = ["    @property", f"    def {name}(self) -> {result}: ..."]
        if any(row["kind"] in ("put", "putref") for row in rows):
            lines += [f"    @{name}.setter", f"    def {name}(self, value: {result}) -> None: ..."]
        return lines

    def default_lines(self, description: Description) -> list[str]:
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


def class_with(made: type, name: str) -> type:
    return next(base for base in made.__mro__ if name in vars(base))


def class_help(description: Description) -> str:
    events = ", ".join(
        f"On{event['name']}(" + ", ".join(parameter["name"] for parameter in event["parameters"]) + ")"
        for event in description.events
    )
    return description.help + (f"\n\n    Events: {events}.\n    " if events else "")


if __name__ == "__main__":
    output = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else PACKAGE / "_members.pyi"
    output.write_text(Stubs().text(), encoding="utf-8")
