"""Events of the import, delivered to Python."""

from __future__ import annotations

import gc
import weakref
from typing import Any

from vestara import Dispatch, DispatchWithEvents, WithEvents

from .support import InFolder, archive, update_file

DRAWS = [(1, f"{day:02}/01/1900", "BA", 1, 2, 3, 4, 5) for day in range(1, 4)]
EXPECTED = ["start", (0, 2), (1, 2), (2, 2), "end"]


class Handler:
    def __init__(self) -> None:
        self.seen: list[Any] = []

    def OnLoadingStart(self) -> None:
        self.seen.append("start")

    def OnLoadingProgress(self, recPos: int, recCount: int) -> None:
        self.seen.append((recPos, recCount))

    def onloadingend(self) -> None:
        self.seen.append("end")


class Deaf:
    pass


class Failing(Handler):
    def OnLoadingProgress(self, recPos: int, recCount: int) -> None:
        super().OnLoadingProgress(recPos, recCount)
        raise ValueError("the handler's own trouble")


class WrongArguments(Handler):
    def OnLoadingProgress(self) -> None:  # type: ignore[override]
        pass


class Own(Handler):
    close = "mine"


class Events(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.lotto = self.ready(Dispatch("Vestara.cLotto"))

    def ready(self, lotto: Any) -> Any:
        lotto.DbType = 1
        lotto.FileUpdate = update_file(self.folder, DRAWS)
        lotto.ActiveConnection = archive()
        return lotto

    def test_a_class_gives_its_instance(self) -> None:
        events = WithEvents(self.lotto, Handler)
        self.assertIsInstance(events, Handler)
        self.assertTrue(self.lotto.UpdateTblStorico())
        self.assertEqual(events.seen, EXPECTED)

    def test_an_instance(self) -> None:
        handler = Handler()
        events = WithEvents(self.lotto, handler)
        self.assertTrue(self.lotto.UpdateTblStorico())
        self.assertEqual(handler.seen, EXPECTED)
        self.assertIs(events.seen, handler.seen)

    def test_it_stays_connected_while_the_object_is_held(self) -> None:
        handler = Handler()
        WithEvents(self.lotto, handler)
        gc.collect()
        self.lotto.UpdateTblStorico()
        self.assertEqual(handler.seen, EXPECTED)

    def test_closing(self) -> None:
        handler = Handler()
        first = WithEvents(self.lotto, handler)
        second = WithEvents(self.lotto, Handler)
        first.close()
        second.close()
        second.close()
        with WithEvents(self.lotto, handler):
            pass
        self.lotto.UpdateTblStorico()
        self.assertEqual(handler.seen + second.seen, [])

    def test_several_handlers(self) -> None:
        handlers = [WithEvents(self.lotto, Handler) for _ in range(3)]
        self.lotto.UpdateTblStorico()
        self.assertEqual([handler.seen for handler in handlers], [EXPECTED] * 3)

    def test_a_handler_without_methods(self) -> None:
        WithEvents(self.lotto, Deaf)
        self.assertTrue(self.lotto.UpdateTblStorico())

    def test_a_handler_that_fails(self) -> None:
        for handler in (Failing, WrongArguments):
            failing, other = WithEvents(self.lotto, handler), WithEvents(self.lotto, Handler)
            with self.assertLogs("vestara", "ERROR") as logged:
                self.assertTrue(self.lotto.UpdateTblStorico())
            self.assertEqual(other.seen, EXPECTED)
            self.assertEqual(len(logged.records), 3)
            self.assertEqual(logged.records[0].getMessage()[:17], "OnLoadingProgress")
            failing.close()

    def test_a_handler_may_end_its_own_connection(self) -> None:
        class Once(Handler):
            def OnLoadingStart(self) -> None:
                super().OnLoadingStart()
                self.close()  # type: ignore[attr-defined]

        events = WithEvents(self.lotto, Once)
        self.assertTrue(self.lotto.UpdateTblStorico())
        self.assertEqual(events.seen, ["start"])

    def test_a_name_of_the_class_s_own_stays(self) -> None:
        self.assertEqual(WithEvents(self.lotto, Own).close, "mine")

    def test_an_object_that_is_its_own_handler(self) -> None:
        for source in ("Vestara.cLotto", Dispatch("Vestara.cLotto")):
            both = self.ready(DispatchWithEvents(source, Handler))
            self.assertIsInstance(both, Handler)
            self.assertTrue(both.UpdateTblStorico())
            self.assertEqual(both.seen, EXPECTED)
            both.own = 1
            self.assertEqual((both.own, both.dbtype), (1, 1))
            gone = weakref.ref(both)
            both.close()
            del both
            self.assertIsNone(gone())

    def test_nothing_keeps_a_handler_alive(self) -> None:
        events = WithEvents(self.lotto, Handler)
        gone = weakref.ref(events)
        del events
        self.assertIsNotNone(gone())
        del self.lotto
        self.assertIsNone(gone())

    def test_a_handler_outlives_its_source(self) -> None:
        events = WithEvents(self.lotto, Handler)
        del self.lotto
        self.assertEqual(events.seen, [])
        events.close()

    def test_objects_without_events(self) -> None:
        for source in (archive(), object()):
            self.raises(445, lambda source=source: WithEvents(source, Handler))
