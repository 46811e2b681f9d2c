"""Threads that share nothing but the process: each has its own connector and its own objects."""

from __future__ import annotations

import os
import threading
import unittest
from typing import Any

from vestara import Dispatch

from .support import InFolder, archive

THREADS = 4
#: Objects a thread; the environment sets another number.
OBJECTS = int(os.environ.get("VESTARA_THREAD_OBJECTS", "1500"))


def delay(connector: Any) -> Any:
    frequency = Dispatch("Vestara.cFrequenza")
    frequency.ActiveConnection = connector
    frequency.LoadRitardi()
    return frequency.GetRitNum(71, "FI")


def pairs(connector: Any) -> Any:
    lotto = Dispatch("Vestara.cLotto")
    lotto.ActiveConnection = connector
    lotto.LoadLottoEstr("5,12", 2, "NA,FI")
    return lotto.Ambi


def wheels(connector: Any) -> Any:
    distances = Dispatch("Vestara.cDistanze2")
    distances.ActiveConnection = connector
    return distances.LoadDistanze1("FI")


STUDIES = ((delay, 1), (pairs, 2), (wheels, True))


class FourThreads(InFolder):
    def test_each_with_its_own_connector_and_objects(self) -> None:
        together = threading.Barrier(THREADS)
        wrong: list[object] = []

        def work() -> None:
            try:
                connector = archive()
                together.wait()
                for turn in range(OBJECTS):
                    study, expected = STUDIES[turn % len(STUDIES)]
                    found = study(connector)
                    if found != expected:
                        wrong.append((study.__name__, found))
            except Exception as error:
                wrong.append(error)

        threads = [threading.Thread(target=work) for _ in range(THREADS)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(wrong, [])
        self.assertFalse(self.log.exists())


if __name__ == "__main__":
    unittest.main()
