"""Where the shared libraries lie, and loading them."""

from __future__ import annotations

import ctypes
import os
import pathlib

_CORE = "libautomation.so.1"
_CLASSES = ("libvestara.so.1", "libdorvane.so.1")
_FOLDER_VARIABLE = "VESTARA_LIBRARY_DIR"


def library_folder() -> pathlib.Path | None:
    """The folder that VESTARA_LIBRARY_DIR names, else the one inside the package; None leaves it to the system."""
    named = os.environ.get(_FOLDER_VARIABLE)
    if named:
        return pathlib.Path(named).absolute()
    packaged = pathlib.Path(__file__).absolute().parent / "lib"
    return packaged if (packaged / _CORE).is_file() else None


def load() -> tuple[ctypes.CDLL, ctypes.PyDLL]:
    """The component model twice: calls through the first let other threads run, calls through the second do not.

    The libraries that hold the classes are loaded too, so that classes of this folder win over registered ones.
    ImportError when the component model cannot be loaded.
    """
    folder = library_folder()
    path = str(folder / _CORE) if folder else _CORE
    try:
        calls, short_calls = ctypes.CDLL(path), ctypes.PyDLL(path)
    except OSError as error:
        raise ImportError(
            f"the libraries of vestara cannot be loaded: {error}; {_FOLDER_VARIABLE} names their folder"
        ) from error
    for name in _CLASSES:
        _load_classes(str(folder / name) if folder else name)
    return calls, short_calls


def _load_classes(path: str) -> None:
    try:
        ctypes.CDLL(path)
    except OSError:
        # Creating one of its classes says what is missing.
        return
