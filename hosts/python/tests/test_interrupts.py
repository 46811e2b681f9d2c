"""Ctrl-C while the library works."""

from __future__ import annotations

import os
import signal
import sys
import threading
import unittest
from typing import Any

from vestara import WithEvents

from .support import InFolder, RecordingConnector, archive, lotto_on, update_file

DRAWS = [(1, "07/01/1871", "BA", 1, 2, 3, 4, 5)] * 60_000


class Counting:
    def __init__(self) -> None:
        self.calls = 0

    def OnLoadingProgress(self, recPos: int, recCount: int) -> None:
        self.calls += 1


class Interrupting(Counting):
    def OnLoadingProgress(self, recPos: int, recCount: int) -> None:
        super().OnLoadingProgress(recPos, recCount)
        if self.calls == 3:
            signal.raise_signal(signal.SIGINT)


class Leaving(Counting):
    def OnLoadingProgress(self, recPos: int, recCount: int) -> None:
        super().OnLoadingProgress(recPos, recCount)
        sys.exit("enough")


class InterruptedConnector(RecordingConnector):
    def ExecuteSql(self, sql: str) -> bool:
        if len(self.statements) == 10:
            signal.raise_signal(signal.SIGINT)
        return super().ExecuteSql(sql)


@unittest.skipIf(
    signal.getsignal(signal.SIGINT) is not signal.default_int_handler, "Ctrl-C does not raise KeyboardInterrupt here"
)
class Interrupts(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.printed: list[Any] = []
        before, sys.unraisablehook = sys.unraisablehook, self.printed.append
        self.addCleanup(setattr, sys, "unraisablehook", before)

    def tearDown(self) -> None:
        self.assertEqual(self.printed, [])

    def lotto(self, connector: Any) -> Any:
        lotto = lotto_on(connector)
        lotto.DbType = 1
        lotto.FileUpdate = update_file(self.folder, DRAWS)
        return lotto

    def interrupted(self, lotto: Any, after: float) -> None:
        """A signal that arrives while the import runs, at whatever place."""
        timer = threading.Timer(after, os.kill, (os.getpid(), signal.SIGINT))
        with self.assertRaises(KeyboardInterrupt):
            timer.start()
            lotto.UpdateTblStorico()
            timer.join()
        timer.join()

    def test_while_nothing_of_python_runs(self) -> None:
        connector = archive()
        lotto = self.lotto(connector)
        for milliseconds in range(5, 25, 4):
            self.interrupted(lotto, milliseconds / 1000)
        self.assertIn(lotto.GetMaxDateStorico(), ("", "07/01/1871"))
        self.assertLess(connector.GetMaxId("storico", "id"), len(DRAWS))

    def test_while_events_arrive(self) -> None:
        lotto = self.lotto(archive())
        WithEvents(lotto, Counting)
        for milliseconds in range(5, 25, 2):
            self.interrupted(lotto, milliseconds / 1000)

    def test_while_a_connector_of_python_works(self) -> None:
        lotto = self.lotto(RecordingConnector())
        for milliseconds in range(5, 25, 2):
            self.interrupted(lotto, milliseconds / 1000)

    def test_inside_a_handler(self) -> None:
        lotto = self.lotto(archive())
        handler = WithEvents(lotto, Interrupting)
        self.assertRaises(KeyboardInterrupt, lotto.UpdateTblStorico)
        self.assertEqual(handler.calls, 3)
        handler.close()
        lotto.FileUpdate = update_file(self.folder, DRAWS[:5])
        self.assertTrue(lotto.UpdateTblStorico())

    def test_inside_a_connector(self) -> None:
        connector = InterruptedConnector()
        self.assertRaises(KeyboardInterrupt, self.lotto(connector).UpdateTblStorico)
        self.assertEqual(len(connector.statements), 10)

    def test_every_call_leaves_the_hook_of_the_process_in_its_place(self) -> None:
        hook = sys.unraisablehook
        lotto = self.lotto(archive())
        lotto.FileUpdate = update_file(self.folder, DRAWS[:5])
        for handler, ends in ((Counting, None), (Interrupting, KeyboardInterrupt), (Leaving, SystemExit)):
            with self.subTest(handler=handler.__name__), WithEvents(lotto, handler()):
                if ends is None:
                    self.assertTrue(lotto.UpdateTblStorico())
                else:
                    self.assertRaises(ends, lotto.UpdateTblStorico)
                self.assertIs(sys.unraisablehook, hook)

    def test_leaving_the_program(self) -> None:
        lotto = self.lotto(archive())
        handler = WithEvents(lotto, Leaving)
        with self.assertRaises(SystemExit) as caught:
            lotto.UpdateTblStorico()
        self.assertEqual((caught.exception.code, handler.calls), ("enough", 1))
