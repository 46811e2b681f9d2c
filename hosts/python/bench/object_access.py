"""What a property that returns an object costs, beside one that returns a number: nanoseconds, the best of five runs.

    VESTARA_LIBRARY_DIR=build/release/lib python3 hosts/python/bench/object_access.py [CALLS]
"""

from __future__ import annotations

import pathlib
import sys
import timeit
from typing import Any

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

from vestara import Dispatch, connect

_RUNS = 5


def measure(instance: Any, name: str, calls: int) -> None:
    body = timeit.Timer(f"instance.{name}", globals={"instance": instance})
    best = min(body.repeat(_RUNS, calls)) / calls
    returned = type(getattr(instance, name)).__name__
    print(f"{type(instance).__name__ + '.' + name:<36}{returned:<16}{best * 1e9:8.0f} ns")


def main() -> None:
    calls = int(sys.argv[1]) if len(sys.argv) > 1 else 50_000
    with connect("sqlite::memory:") as connector:
        connector.CreateSchema()
        lotto = Dispatch("Vestara.cLotto")
        lotto.ActiveConnection = connector
        lotto.StatisticsIsActive = True
        lotto.LoadLottoEstr("5")
        measure(lotto, "Ambate", calls)
        measure(lotto, "Statistiche", calls)
        measure(lotto.Statistiche, "Distanze", calls)
        for name in ("cStatistiche", "cSistemi", "cFrequenza", "cTabAnalytics", "cDistanze"):
            instance = Dispatch(f"Vestara.{name}")
            instance.ActiveConnection = connector
            measure(instance, "ActiveConnection", calls)


if __name__ == "__main__":
    main()
