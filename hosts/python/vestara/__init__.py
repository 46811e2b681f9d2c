"""The archive of the Italian Lotto: the classes of Vestara and its connectors, called by name.

    from vestara import Dispatch, WithEvents, connect

    lotto = Dispatch("Vestara.cLotto")
    lotto.ActiveConnection = connect("sqlite:lotto.sqlite")
    rs = lotto.LoadLottoEstr("5,12,33", 2, "BA,NA")
    while not rs.EOF:
        print(rs.Fields("dtEstr").Value, rs.Fields("concorsoNumero").Value)
        rs.MoveNext()
"""

from typing import TYPE_CHECKING

from . import _host_objects as _host_objects  # connects Python's objects with the library
from . import _recordset as _recordset
from ._errors import RunTimeError
from ._events import WithEvents
from ._markers import ByRef, Empty, Missing, Nothing, Null

if TYPE_CHECKING:
    from ._members import Dispatch, DispatchWithEvents, connect
else:
    from ._connect import connect
    from ._dispatch import Dispatch
    from ._events import DispatchWithEvents

__version__ = "1.0.0"

__all__ = [
    "ByRef",
    "Dispatch",
    "DispatchWithEvents",
    "Empty",
    "Missing",
    "Nothing",
    "Null",
    "RunTimeError",
    "WithEvents",
    "connect",
]
