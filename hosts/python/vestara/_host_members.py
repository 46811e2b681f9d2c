"""Members of Python objects as the library asks for them: by names without regard to case, by ids after that."""

from __future__ import annotations

import functools
import inspect
import types
import weakref
from typing import Any, Sequence

from . import _abi
from ._errors import RunTimeError
from ._markers import ByRef, Missing

DEFAULT_MEMBER = 0

#: The arguments that a connector hands back through, by member. Other methods say so by the annotation ByRef.
HANDED_BACK = {"openrecordset": (0,), "closerecordset": (0,)}

_SUBSTITUTES = {"item": "__getitem__", "count": "__len__"}

# Ids are one for all classes: the place of the name in this list, as the library spelled it first.
_names: list[str] = ["Value"]
_ids: dict[str, int] = {}
_by_type: weakref.WeakKeyDictionary[type, dict[int, str]] = weakref.WeakKeyDictionary()
_by_reference: weakref.WeakKeyDictionary[type, dict[str, tuple[int, ...]]] = weakref.WeakKeyDictionary()


def id_of(host: Any, name: str) -> int | None:
    """The id of a member, None when the object has none of that name."""
    wanted = name.lower()
    if _find(host, wanted, name) is None:
        return None
    member = _ids.get(wanted)
    if member is None:
        member = _ids[wanted] = len(_names)
        _names.append(name)
    return member


def _find(host: Any, wanted: str, spelled: str) -> str | None:
    """The attribute's own spelling. Nothing of the object is run unless its class makes attributes up."""
    for name in dir(host):
        if name.lower() == wanted:
            return name
    substitute = _SUBSTITUTES.get(wanted)
    if substitute and hasattr(type(host), substitute):
        return substitute
    return spelled if hasattr(type(host), "__getattr__") and hasattr(host, spelled) else None


def _attribute(host: Any, member: int) -> str:
    known = _by_type.setdefault(type(host), {})
    name = known.get(member)
    if name is None:
        spelled = _names[member] if 0 <= member < len(_names) else ""
        name = _find(host, spelled.lower(), spelled)
        if name is None and member == DEFAULT_MEMBER:
            name = _find(host, "item", "Item")
        if name is None:
            raise RunTimeError(438, "Object doesn't support this property or method")
        if hasattr(type(host), name):
            known[member] = name
    return name


def call(host: Any, member: int, kind: int, arguments: list[Any], names: Sequence[str]) -> Any:
    """Calls, reads or assigns. By-reference arguments are replaced in the list by their ByRef holders."""
    name = _attribute(host, member)
    if kind in (_abi.PUT, _abi.PUTREF):
        if len(arguments) != 1:
            raise RunTimeError(450, "Wrong number of arguments or invalid property assignment")
        setattr(host, name, arguments[0])
        return None
    found = getattr(host, name)
    if not arguments and kind == _abi.GET and not _is_routine(found):
        return found
    if not callable(found) and arguments:
        found = getattr(found, "Item", None) or found.__getitem__
    if not callable(found):
        return found
    for place in _handed_back(host, name, found):
        if place < len(arguments):
            arguments[place] = ByRef(arguments[place])
    given = arguments[: len(arguments) - len(names)]
    while given and given[-1] is Missing:
        given.pop()
    return found(*given, **dict(zip(names, arguments[len(arguments) - len(names) :])))


def _is_routine(found: Any) -> bool:
    return inspect.isroutine(found) or isinstance(found, (functools.partial, types.MethodWrapperType))


def _handed_back(host: Any, name: str, function: Any) -> tuple[int, ...]:
    known = _by_reference.setdefault(type(host), {})
    places = known.get(name)
    if places is None:
        places = known[name] = HANDED_BACK.get(name.lower()) or _annotated(function)
    return places


def _annotated(function: Any) -> tuple[int, ...]:
    try:
        parameters = list(inspect.signature(function).parameters.values())
    except (TypeError, ValueError):
        return ()
    return tuple(place for place, row in enumerate(parameters) if row.annotation in (ByRef, "ByRef"))
