"""The connector that comes with the library."""

from __future__ import annotations

from typing import Any

from ._dispatch import Dispatch
from ._errors import AUTOMATION_ERROR, RunTimeError

_CONNECTOR = "Dorvane.DbConnector"


def connect(url: str = "") -> Any:
    """An open Dorvane.DbConnector: "sqlite:PATH", "sqlite::memory:"; by default what VESTARA_DB names. An archive that
    is there stays as it is. Used in a `with` it is closed at the end of the block.

    RunTimeError with the connector's LastError when it cannot be opened."""
    connector = Dispatch(_CONNECTOR)
    if not connector.Open(url):
        raise RunTimeError(AUTOMATION_ERROR, connector.LastError, _CONNECTOR)
    return connector
