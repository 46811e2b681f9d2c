#!/usr/bin/env python3
"""The figures of the library beside the same figures from pandas and numpy, in one process.

Their data stands in memory, sorted, before the clock starts; the library reads its archive from the file each time.
Every figure is compared before it is timed. Usage: figures.py CSV (date,wheel,n1..n5), or without one an archive by
chance of a hundred thousand rows; the delay load also on a million rows.
"""

import datetime
import itertools
import statistics
import sys
import tempfile
import time
from pathlib import Path

import numpy as np
import pandas as pd

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "hosts" / "python"))
from vestara import Dispatch, connect  # noqa: E402

WHEELS = ["BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"]
NUMBERS = ["n1", "n2", "n3", "n4", "n5"]
ROUNDS = 9


def archive_by_chance(rows):
    """Every wheel on 336 dates a year from 1871 on."""
    chance = np.random.default_rng(1)
    dates = rows // len(WHEELS)
    numbers = np.argsort(chance.random((dates * len(WHEELS), 90)), axis=1)[:, :5] + 1
    days = [f"{1871 + d // 336}-{d // 28 % 12 + 1:02}-{d % 28 + 1:02}" for d in range(dates)]
    frame = pd.DataFrame(numbers, columns=NUMBERS)
    frame.insert(0, "wheel", WHEELS * dates)
    frame.insert(0, "date", np.repeat(days, len(WHEELS)))
    return frame


def read_archive(path):
    # NA is a wheel.
    return pd.read_csv(path, names=["date", "wheel", *NUMBERS], header=0, keep_default_na=False)


def store(frame, path):
    """Writes the archive through the library's connector, newest rows last."""
    connector = connect("sqlite:" + str(path))
    connector.CreateSchema()
    connector.BeginTrans()
    connector.ExecuteSql("DELETE FROM storico")
    rows = [
        "(1,'%s','%s',%d,%d,%d,%d,%d)" % row for row in frame.itertuples(index=False, name=None)
    ]
    for start in range(0, len(rows), 1000):
        text = ",".join(rows[start : start + 1000])
        head = "INSERT INTO storico (concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES"
        if not connector.ExecuteSql(head + text):
            raise SystemExit(connector.LastError())
    connector.CommitTrans()
    return connector


class Draws:
    """The archive in memory, newest draw first, and what both peers start from."""

    def __init__(self, frame):
        self.frame = frame.sort_values("date", ascending=False, kind="stable", ignore_index=True)
        self.frame["wheel"] = self.frame["wheel"].map({w: i for i, w in enumerate(WHEELS)}).astype(np.int64)
        self.wheel = self.frame["wheel"].to_numpy()
        self.numbers = self.frame[NUMBERS].to_numpy(dtype=np.int64)
        self.date = self.frame["date"].to_numpy()


def pandas_long(frame):
    """One row per number: wheel, number, draws of the wheel before."""
    draws = frame.groupby("wheel").cumcount()
    return frame.assign(draw=draws).melt(["wheel", "draw"], NUMBERS, value_name="number")


def pandas_delays(draws):
    return pandas_long(draws.frame).groupby(["wheel", "number"])["draw"].min()


def pandas_counts(draws):
    return draws.frame.melt(["wheel"], NUMBERS, value_name="number").groupby(["wheel", "number"]).size()


def pandas_lists(long, keys):
    """The list of distances of every key."""
    long = long.sort_values("draw", kind="stable")
    distance = long.groupby(keys)["draw"].diff().fillna(long["draw"]).astype(np.int64)
    return long.assign(distance=distance).groupby(keys)["distance"].agg(list)


def pandas_numbers(draws):
    return pandas_lists(pandas_long(draws.frame), ["wheel", "number"])


def pandas_pairs(draws):
    frame = draws.frame
    ordered = pd.DataFrame(np.sort(frame[NUMBERS].to_numpy(), axis=1), columns=NUMBERS)
    wheel, draw = frame["wheel"], frame.groupby("wheel").cumcount()
    long = pd.concat(
        [
            pd.DataFrame({"wheel": wheel, "draw": draw, "pair": ordered[a] * 100 + ordered[b]})
            for a, b in itertools.combinations(NUMBERS, 2)
        ]
    )
    return pandas_lists(long, ["wheel", "pair"])


def numpy_draw(draws):
    """Draws of each row's wheel before it."""
    order = np.argsort(draws.wheel, kind="stable")
    starts = np.searchsorted(draws.wheel[order], np.arange(len(WHEELS)))
    draw = np.empty(len(order), dtype=np.int64)
    draw[order] = np.arange(len(order)) - starts[draws.wheel[order]]
    return draw


def numpy_delays(draws):
    cells = draws.wheel[:, None] * 90 + draws.numbers - 1
    delays = np.full(990, -1, dtype=np.int64)
    delays[cells[::-1].ravel()] = np.repeat(numpy_draw(draws)[::-1], 5)
    return delays


def numpy_counts(draws):
    return np.bincount((draws.wheel[:, None] * 90 + draws.numbers - 1).ravel(), minlength=990)


def numpy_distances(keys, draw, width):
    """Distances key by key, the keys there are, and where each one's begin."""
    flat = keys.ravel()
    order = np.argsort(flat, kind="stable")
    sorted_keys, sorted_draws = flat[order], np.repeat(draw, width)[order]
    distances = np.diff(sorted_draws, prepend=0)
    first = np.diff(sorted_keys, prepend=-1) != 0
    distances[first] = sorted_draws[first]
    starts = np.flatnonzero(first)
    return sorted_keys[starts], starts, distances


def numpy_numbers(draws):
    return numpy_distances(draws.wheel[:, None] * 100 + draws.numbers, numpy_draw(draws), 5)


def numpy_pairs(draws):
    ordered = np.sort(draws.numbers, axis=1)
    first, second = np.triu_indices(5, 1)
    keys = draws.wheel[:, None] * 10000 + ordered[:, first] * 100 + ordered[:, second]
    return numpy_distances(keys, numpy_draw(draws), 10)


def pandas_table(draws):
    newest = datetime.date.fromisoformat(draws.date[0])
    since = (newest - datetime.timedelta(days=730)).isoformat()
    frame = draws.frame[draws.frame["date"] >= since].reset_index(drop=True)
    delay = (frame["date"] != frame["date"].shift()).cumsum() - 1
    long = frame.assign(delay=delay, row=frame.index).melt(["wheel", "delay", "row"], NUMBERS, value_name="number")
    long = long.sort_values("row", kind="stable").drop_duplicates(["wheel", "number"])
    return long.groupby("row").agg(
        {"number": lambda numbers: ".".join(map(str, numbers)), "delay": "first", "wheel": "first"}
    )


def timed(work):
    start = time.perf_counter()
    work()
    return time.perf_counter() - start


def compare(name, ours, peers):
    """Prints how many times faster than each peer the library is, pair by pair."""
    ours()
    for peer, work, goal in peers:
        work()
        pairs = [(timed(work), timed(ours)) for _ in range(ROUNDS)]
        ratio = statistics.median(theirs / mine for theirs, mine in pairs)
        theirs, mine = (statistics.median(times) * 1000 for times in zip(*pairs))
        verdict = "" if goal is None else f"   goal {goal:g}" + ("" if ratio >= goal else "   MISSED")
        print(f"{name + ', ' + peer:<44} peer {theirs:9.3f} ms   vestara {mine:9.3f} ms   {ratio:7.1f} times faster{verdict}")


def check(name, same):
    if not same:
        raise SystemExit(f"{name}: the figures differ")


def check_delays(frequency, draws):
    peer = numpy_delays(draws)
    series = pandas_delays(draws)
    for wheel, number in itertools.product(range(11), range(1, 91)):
        delay = frequency.GetRitNum(number, wheel + 1)
        check("delays", delay == peer[wheel * 90 + number - 1])
        check("delays", delay == series.get((wheel, number), -1))


def check_counts(frequency, draws):
    peer = numpy_counts(draws)
    series = pandas_counts(draws)
    for wheel, number in itertools.product(range(11), range(1, 91)):
        count = frequency.GetFrqNum(number, wheel + 1)
        check("counts", count == peer[wheel * 90 + number - 1] == series.get((wheel, number), 0))


def list_of(figures, key):
    keys, starts, distances = figures
    place = int(np.searchsorted(keys, key))
    if place == len(keys) or keys[place] != key:
        return []
    return distances[starts[place] :][: np.diff(starts, append=len(distances))[place]].tolist()


def check_distances(distances, draws):
    by_numpy, by_pandas = numpy_numbers(draws), pandas_numbers(draws)
    for wheel, number in itertools.product(range(11), range(1, 91)):
        mine = list(distances.GetDistanzeSingleNumber(number, wheel + 1))
        same = list_of(by_numpy, wheel * 100 + number) == by_pandas.get((wheel, number), [])
        check("number distances", same and mine == by_pandas.get((wheel, number), []))
    by_numpy, by_pandas = numpy_pairs(draws), pandas_pairs(draws)
    for wheel, first, second in itertools.product(range(11), range(1, 90, 7), range(2, 91, 5)):
        if first >= second:
            continue
        key = first * 100 + second
        mine = list(distances.GetDistanzeAmbi(first, second, wheel + 1))
        same = list_of(by_numpy, wheel * 10000 + key) == by_pandas.get((wheel, key), [])
        check("pair distances", same and mine == by_pandas.get((wheel, key), []))


def main():
    frame = read_archive(sys.argv[1]) if len(sys.argv) > 1 else archive_by_chance(105156)
    with tempfile.TemporaryDirectory() as folder:
        connector = store(frame, Path(folder) / "archive.sqlite")
        draws = Draws(frame)
        frequency = Dispatch("Vestara.cFrequenza")
        frequency.ActiveConnection = connector
        frequency.LoadRitardi()
        check_delays(frequency, draws)
        compare(
            "delay load",
            frequency.LoadRitardi,
            [("pandas", lambda: pandas_delays(draws), 50), ("numpy", lambda: numpy_delays(draws), None)],
        )
        frequency.LoadFrequenti()
        check_counts(frequency, draws)
        compare(
            "frequency load",
            frequency.LoadFrequenti,
            [("pandas", lambda: pandas_counts(draws), None), ("numpy", lambda: numpy_counts(draws), None)],
        )
        table = Dispatch("Vestara.cTabAnalytics")
        table.ActiveConnection = connector
        table.LoadTabelloneAnalitico()
        compare("analytic table", table.LoadTabelloneAnalitico, [("pandas", lambda: pandas_table(draws), None)])
        distances = Dispatch("Vestara.cDistanze2")
        distances.ActiveConnection = connector
        distances.LoadDistanze1("")
        distances.LoadDistanze2Ambi("")
        check_distances(distances, draws)
        compare(
            "number distances",
            lambda: distances.LoadDistanze1(""),
            [("pandas", lambda: pandas_numbers(draws), 3), ("numpy", lambda: numpy_numbers(draws), None)],
        )
        compare(
            "pair distances",
            lambda: distances.LoadDistanze2Ambi(""),
            [("pandas", lambda: pandas_pairs(draws), 8), ("numpy", lambda: numpy_pairs(draws), 2)],
        )
        million = archive_by_chance(1000000)
        frequency.ActiveConnection = store(million, Path(folder) / "million.sqlite")
        draws = Draws(million)
        compare("delay load, 1M rows", frequency.LoadRitardi, [("pandas", lambda: pandas_delays(draws), 50)])


main()
