"""Objects of the library as Python sees them."""

from __future__ import annotations

from ctypes import c_void_p
from typing import Any, Callable, Iterator, TYPE_CHECKING, TypeVar, cast

from . import _abi, _calls, _classes, _errors
from ._classes import Description


class Dispatched:
    """An object of the library. Members are attributes, found without regard to case."""

    __slots__ = ("_handle", "_cache", "_sinks", "__weakref__")

    _handle: c_void_p
    _cache: Any  # what a class keeps for speed
    _sinks: list[Any]  # connections that live as long as this object

    _description: Description | None = None
    _spelling: dict[str, str] = {}

    def __del__(self, _release: Callable[[c_void_p], int] = _abi.release) -> None:
        try:
            handle = self._handle
        except AttributeError:
            return
        _release(handle)
        # Finalizers of one circle run in any order, at the interpreter's end too: calls that come later find no object.
        handle.value = None

    def _spelled(self, name: str) -> Any:
        """A member by another spelling; the class remembers each."""
        if name.startswith("_"):
            raise AttributeError(name)
        spelling = self._spelling.get(name.lower())
        if spelling is None:
            return self._undescribed(name)
        if spelling == name:
            raise AttributeError(name)
        owner = next(base for base in type(self).__mro__ if spelling in base.__dict__)
        setattr(owner, name, owner.__dict__[spelling])
        return getattr(self, name)

    if not TYPE_CHECKING:  # type checkers know the declared spelling only
        __getattr__ = _spelled

    def _undescribed(self, name: str) -> Any:
        member = None if self._description else _classes.id_of(self._handle, name)
        if member is None:
            raise AttributeError(f"{self._name()} has no member {name!r}")
        found = member

        def call(*arguments: Any, **named: Any) -> Any:
            return _calls.invoke(self._handle, found, _abi.METHOD, arguments, named)

        return call

    def __setattr__(self, name: str, value: Any) -> None:
        spelling = self._spelling.get(name.lower(), name)
        object.__setattr__(self, spelling, value)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Dispatched) and other._handle.value == self._handle.value

    def __hash__(self) -> int:
        return hash(self._handle.value)

    def __bool__(self) -> bool:
        return True

    def __repr__(self) -> str:
        return f"<{self._name()}>"

    def __reduce__(self) -> Any:
        raise TypeError(f"{self._name()} cannot be copied")

    def _name(self) -> str:
        return self._description.full_name if self._description else "object"


_set_handle = Dispatched.__dict__["_handle"].__set__


_new = object.__new__


def adopt(cls: type, handle: c_void_p) -> Any:
    """An instance of a class of objects; takes the caller's count of the handle over."""
    made: Any = _new(cls)
    _set_handle(made, handle)
    return made


#: The Python classes by what all objects of a class have in common.
_classes_of: dict[Any, type] = {}


def wrap(handle: int, of_class: Any) -> Any:
    """An object of the library; takes the caller's count over."""
    counted = c_void_p(handle)
    try:
        made: Any = _new(_classes_of[of_class])
    except KeyError:
        cls = class_maker.class_of(counted)
        if of_class is not None:
            _classes_of[of_class] = cls
        made = _new(cls)
    _set_handle(made, counted)
    return made


def Dispatch(identifier: Any) -> Any:
    """Creates an object by its programmatic identifier ("Vestara.cLotto"). An object stays what it is.

    RunTimeError 429 when no such class is registered."""
    if not isinstance(identifier, str):
        return identifier
    handle = c_void_p()
    _errors.check(_abi.create_object(identifier.encode("utf-8"), _abi.reference(handle)))
    return adopt(class_maker.class_of(handle), handle)


# ---- What the members of a class make possible ----


_T = TypeVar("_T")


class Closing:
    """Leaving the block closes the object."""

    __slots__ = ()

    def __enter__(self: _T) -> _T:
        return self

    def __exit__(self, *_failure: Any) -> None:
        self.Close()  # type: ignore[attr-defined]


class Collection:
    """Anything with Count and Item, counted from the first item on that its class names."""

    __slots__ = ()
    _first: int

    def __len__(self) -> int:
        count = self.Count  # type: ignore[attr-defined]
        return int(count() if callable(count) else count)

    def __iter__(self) -> Iterator[Any]:
        for place in range(self._first, self._first + len(self)):
            yield self.Item(place)  # type: ignore[attr-defined]


def _closing(description: Description, _names: dict[str, Any], bases: list[type]) -> None:
    if description.has("Close"):
        bases.append(Closing)


def _collection(description: Description, names: dict[str, Any], bases: list[type]) -> None:
    if description.first_item is not None:
        bases.append(Collection)
        names["_first"] = description.first_item


def _default_member(description: Description, names: dict[str, Any], _bases: list[type]) -> None:
    default = description.default_member()
    if default is None:
        return
    member = names[default]
    if isinstance(member, property):
        read = cast(Callable[[Any], Any], member.fget)

        def call(self: Any, *index: Any) -> Any:
            """The default member; an index goes on to the object that it returns."""
            value = read(self)
            return value(*index) if index else value

        names["__call__"] = call
        names["__str__"] = lambda self: str(self())
        return
    names["__call__"] = member
    names["__getitem__"] = lambda self, key: member(self, *key) if isinstance(key, tuple) else member(self, key)


comforts: list[_classes.Comfort] = [_closing, _collection, _default_member]
class_maker = _classes.ClassMaker(Dispatched, comforts)
