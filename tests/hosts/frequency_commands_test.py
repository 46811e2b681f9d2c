"""delays, frequencies, table and gaps, end to end, against plain scans of the file. VESTARA_PROGRAM is the command
line."""

import csv
import itertools
import json
import math
import re
import statistics
import unittest
from collections import Counter
from datetime import date, timedelta

from command_line_test import NOTHING_FOUND, OK, REAL_ARCHIVE, USAGE, CommandLine
from statistics_commands_test import blocks, days_between

WHEELS = ("BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN")
CITIES = WHEELS[:10]


class Draws:
    """The rows of a file, asked slowly and plainly."""

    def __init__(self, rows):
        self.rows = sorted(rows, key=lambda row: row[0])

    @classmethod
    def of_tsv(cls, tsv):
        fields = [line.split("\t") for line in tsv.decode().splitlines()]
        return cls([(row[0].replace("/", "-"), row[1], tuple(map(int, row[2:]))) for row in fields])

    @classmethod
    def of_csv(cls, path):
        with open(path, encoding="utf-8", newline="") as lines:
            return cls([(row["date"], row["wheel"], tuple(int(row[f"n{i}"]) for i in range(1, 6)))
                        for row in csv.DictReader(lines)])

    def within(self, first="0", last="9", wheels=WHEELS):
        return Draws([row for row in self.rows if first <= row[0] <= last and row[1] in wheels])

    def of(self, wheel):
        return [row for row in self.rows if row[1] == wheel]

    def delays(self, wheel):
        """Of each number that came out."""
        delays = {}
        for place, row in enumerate(reversed(self.of(wheel))):
            for number in row[2]:
                delays.setdefault(number, place)
        return delays

    def counts(self):
        return Counter((number, row[1]) for row in self.rows for number in row[2])

    def distances(self, numbers, wheel):
        """(first, second, draws) of each two appearances, newest first."""
        found = [(place, row[0]) for place, row in enumerate(self.of(wheel)) if numbers <= set(row[2])]
        return [(one[1], other[1], other[0] - one[0]) for one, other in itertools.pairwise(found)][::-1]

    def distances_over_all(self, numbers):
        places = {day: place for place, day in enumerate(sorted({row[0] for row in self.rows}))}
        found = [row[0] for row in self.rows if numbers <= set(row[2])]
        return [(one, other, places[other] - places[one]) for one, other in itertools.pairwise(found)][::-1]


def triples(rows):
    return [(row["from"], row["to"], row["draws"]) for row in rows]


class Studies(CommandLine):
    def setUp(self):
        super().setUp()
        tsv = self.generated(3)
        self.expect(OK, "import", "-", stdin=tsv)
        self.draws = Draws.of_tsv(tsv)


class Delays(Studies):
    def test_the_grid_is_that_of_the_file(self):
        for wheels, first, last in (("all", None, None), ("VE,RN", None, None), ("VE", None, "2005-02-08"),
                                    ("VE,RN,BA", "2005-01-01", "2005-06-30"), ("all", "2006-12-28", None)):
            chosen = WHEELS if wheels == "all" else wheels.split(",")
            bounds = [word for option, day in (("--from", first), ("--to", last)) if day for word in (option, day)]
            shown = self.summary("delays", "--grid", "--wheels", wheels, *bounds)
            draws = self.draws.within(first or "0", last or "9")
            expected = {wheel: draws.delays(wheel) for wheel in chosen}
            self.assertEqual({(row["wheel"], row["number"]): row["delay"] for row in shown["delays"]},
                             {(wheel, number): expected[wheel].get(number)
                              for wheel in chosen for number in range(1, 91)})
            drawn = [delay for of_wheel in expected.values() for delay in of_wheel.values()]
            self.assertEqual((shown["drawn"], shown["never_drawn"], shown["longest_delay"]),
                             (len(drawn), 90 * len(chosen) - len(drawn), max(drawn)))
            self.assertEqual("wheel was asked for by itself" in shown.get("note", ""),
                             len(bounds) > 0 and "," in wheels)
            ranking = self.summary("delays", "--true-ranking", "--wheels", wheels, *bounds)["delays"]
            self.assertEqual([row["delay"] for row in ranking],
                             sorted(drawn, reverse=True) + [None] * (90 * len(chosen) - len(drawn)))
            self.assertEqual([row["rank"] for row in ranking], list(range(1, len(ranking) + 1)))

    def maxima(self, draws, wheel):
        """(number, delay) of each that was larger than all met before it, the largest first."""
        met = {}
        maxima = []
        for place, row in enumerate(reversed(draws.of(wheel))):
            for number in row[2]:
                if number in met:
                    continue
                met[number] = place
                if place > max((delay for _, delay in maxima), default=0):
                    maxima.append((number, place))
        return maxima[::-1]

    def test_the_ranking_is_one_of_maxima(self):
        shown = self.summary("delays", "--wheels", "VE")["delays"]
        self.assertEqual([(row["number"], row["delay"]) for row in shown], self.maxima(self.draws, "VE"))
        self.assertEqual(self.summary("delays", "--wheels", "VE", "--top", 3)["delays"], shown[:3])
        draws = self.draws.within(last="2005-12-31")
        together = [(row["number"], row["wheel"], row["delay"])
                    for row in self.summary("delays", "--wheels", "VE,BA", "--to", "2005-12-31")["delays"]]
        each = [(number, wheel, delay) for wheel in ("BA", "VE") for number, delay in self.maxima(draws, wheel)]
        self.assertEqual(together, sorted(each, key=lambda entry: -entry[2]))

    def test_forms(self):
        words = ["delays", "--wheels", "VE", "--from", "2006-11-01"]
        shown = self.summary(*words, "--true-ranking")
        self.assertIsNone(shown["delays"][-1]["delay"])
        facts, rows = blocks(self.expect(OK, *words, "--true-ranking", "--format", "csv"))
        self.assertEqual([row["name"] for row in facts], ["longest_delay", "drawn", "never_drawn"])
        self.assertEqual([{name: "" if value is None else str(value) for name, value in row.items()}
                          for row in shown["delays"]], rows)
        lines = [json.loads(line) for line in
                 self.expect(OK, *words, "--true-ranking", "--format", "jsonl").splitlines()]
        self.assertEqual(lines[1:], [{"kind": "delay", **row} for row in shown["delays"]])
        for form in ("table", "markdown"):
            self.assertIn("never", self.expect(OK, *words, "--true-ranking", "--format", form).splitlines()[-1])
        self.expect(NOTHING_FOUND, "delays", "--from", "2030-01-01")

    def test_the_heat_map_suits_who_sees_it(self):
        plain = self.expect(OK, "delays", "--grid")
        self.assertNotIn("\033", plain)
        self.assertLessEqual(max(map(len, plain.splitlines())), 80)
        expected = {wheel: self.draws.delays(wheel) for wheel in WHEELS}
        maps = [block.splitlines() for block in plain.split("\n\n")[1:]]
        read = {}
        for heads, *lines in maps:
            for line in lines:
                wheel, *values = line.split()
                read |= {(wheel, int(number)): value for number, value in zip(heads.split(), values, strict=True)}
        self.assertEqual(read, {(wheel, number): str(expected[wheel].get(number, "-"))
                                for wheel in WHEELS for number in range(1, 91)})
        shown = self.on_terminal("delays", "--grid", stream="stdout", TERM="xterm").decode().replace("\r\n", "\n")
        self.assertIn("\033[48;5;", shown)
        bare = re.sub("\033\\[[0-9;]*m", "", shown)
        self.assertEqual(bare.rsplit("\n\n", 1)[0] + "\n", plain)
        self.assertNotIn("\033", self.on_terminal("delays", "--grid", stream="stdout", NO_COLOR="1").decode())


class Frequencies(Studies):
    def test_counts_are_those_of_the_file(self):
        for wheels, first, last in (("all", None, None), ("RN", None, None), ("VE,RN", None, None),
                                    ("VE,RN,BA", "2005-01-01", "2005-06-30"), ("all", None, "2004-06-30")):
            chosen = WHEELS if wheels == "all" else wheels.split(",")
            bounds = [word for option, day in (("--from", first), ("--to", last)) if day for word in (option, day)]
            words = ["frequencies", "--wheels", wheels, *bounds]
            counts = self.draws.within(first or "0", last or "9", chosen).counts()
            grid = self.summary(*words, "--grid")
            pairs = [(number, wheel) for wheel in chosen for number in range(1, 91)]
            self.assertEqual({(row["number"], row["wheel"]): row["times"] for row in grid["frequencies"]},
                             {pair: counts[pair] for pair in pairs})
            self.assertEqual(grid["numbers_drawn"], counts.total())
            levels = self.summary(*words, "--all-levels")["frequencies"]
            self.assertEqual([row["times"] for row in levels],
                             sorted((counts[pair] for pair in pairs), reverse=True))
            totals = Counter()
            for (number, _), count in counts.items():
                totals[number] += count
            numbers = self.summary(*words, "--numbers")["numbers"]
            self.assertEqual([(row["number"], row["times"]) for row in numbers],
                             sorted(((number, totals[number]) for number in range(1, 91)),
                                    key=lambda entry: (-entry[1], entry[0])))
            self.assertEqual("wheel was asked for by itself" in grid.get("note", ""), bool(bounds) and "," in wheels)

    def test_the_ranking_has_one_entry_for_each_count(self):
        counts = self.draws.counts()
        shown = self.summary("frequencies")["frequencies"]
        self.assertEqual([row["times"] for row in shown], sorted(set(counts.values()), reverse=True))
        for row in shown:
            self.assertEqual(counts[(row["number"], row["wheel"])], row["times"])

    def test_averages(self):
        counts = self.draws.counts()
        dates = len({row[0] for row in self.draws.rows})
        own = {wheel: len(self.draws.of(wheel)) for wheel in WHEELS}
        shown = self.summary("frequencies", "--average")
        self.assertEqual((shown["dates"], len(shown["frequencies"])), (dates, 90))
        for row in shown["frequencies"]:
            self.assertEqual(row["times"], counts[(row["number"], row["wheel"])])
            self.assertAlmostEqual(row["percent"], 100 * row["times"] / dates, places=5)
        whole = self.summary("frequencies", "--average", "--per-wheel", "--all-levels")["frequencies"]
        self.assertEqual(len(whole), 990)
        for row in whole:
            self.assertEqual((row["times"], row["wheel_draws"]),
                             (counts[(row["number"], row["wheel"])], own[row["wheel"]]))
            self.assertAlmostEqual(row["wheel_percent"], 100 * row["times"] / row["wheel_draws"], places=9)
            self.assertAlmostEqual(row["percent"], 100 * row["times"] / dates, places=5)
        percents = [row["wheel_percent"] for row in whole]
        self.assertEqual(percents, sorted(percents, reverse=True))
        self.assertEqual(self.summary("frequencies", "--average", "--per-wheel")["frequencies"], whole[:90])
        for rows, has_national in ((shown["frequencies"], False), (whole[:90], True)):
            self.assertEqual("RN" in {row["wheel"] for row in rows}, has_national, "it has fewer draws than the others")

    def test_averages_of_wheels_asked_for_one_by_one(self):
        words = ["frequencies", "--average", "--wheels", "VE,RN", "--from", "2005-01-01"]
        draws = self.draws.within("2005-01-01")
        shown = self.summary(*words)
        self.assertNotIn("dates", shown)
        for row in shown["frequencies"]:
            self.assertAlmostEqual(row["percent"], 100 * row["times"] / len(draws.of(row["wheel"])), places=5)

    def test_forms(self):
        for more in (["--top", 3], ["--numbers"], ["--average"], ["--average", "--per-wheel"], ["--grid"]):
            whole = self.summary("frequencies", *more)
            listing = whole["numbers" if "--numbers" in more else "frequencies"]
            rows = blocks(self.expect(OK, "frequencies", *more, "--format", "csv"))[1]
            self.assertEqual([{name: str(value) for name, value in row.items()} for row in listing],
                             [{name: self.as_json(value) for name, value in row.items()} for row in rows])
            self.assertLessEqual(max(map(len, self.expect(OK, "frequencies", *more).splitlines())), 80)
        self.assertRegex(self.expect(OK, "frequencies", "--average", "--grid"), r"\nBA +\d\.\d +\d\.\d ")

    @staticmethod
    def as_json(text):
        """A number of a CSV as Python writes what it read from JSON."""
        try:
            return str(json.loads(text))
        except json.JSONDecodeError:
            return text


class Table(Studies):
    def lines_of(self, today, last="9"):
        """(date, wheel, numbers, delay, wheel delay) of every line, newest first."""
        first = (date.fromisoformat(today) - timedelta(days=730)).isoformat()
        rows = self.draws.within(first, last).rows
        dates = sorted({row[0] for row in rows}, reverse=True)
        met = {wheel: set() for wheel in WHEELS}
        seen = Counter()
        lines = []
        for row in sorted(rows, key=lambda row: row[0], reverse=True):
            new = [number for number in row[2] if number not in met[row[1]]]
            met[row[1]].update(new)
            if new:
                lines.append((row[0], row[1], ",".join(map(str, new)), dates.index(row[0]), seen[row[1]]))
            seen[row[1]] += 1
        return lines

    def test_the_lines_are_those_of_the_file(self):
        for today in ("2006-12-31", "2008-12-15"):
            expected = self.lines_of(today)
            shown = self.summary("table", "--as-of", today, "--per-wheel")
            self.assertEqual(shown["lines"][0]["date"], "2006-12-30")
            self.assertCountEqual([tuple(row.values()) for row in shown["lines"]], expected)
            self.assertEqual([row["date"] for row in shown["lines"]], [line[0] for line in expected])
            without = self.summary("table", "--as-of", today)["lines"]
            self.assertEqual(without, [{name: row[name] for name in ("date", "wheel", "numbers", "delay")}
                                       for row in shown["lines"]])

    def test_a_wheel_that_missed_draws(self):
        rows = [row for row in self.draws.rows if row[1] != "VE" or row[0] < "2006-12-01"]
        text = "date,wheel,n1,n2,n3,n4,n5\n" + "".join(f"{day},{wheel},{','.join(map(str, numbers))}\n"
                                                      for day, wheel, numbers in rows)
        self.expect(OK, "import", "--replace", self.write("without.csv", text))
        newest = next(row for row in self.summary("table", "--as-of", "2006-12-31", "--per-wheel")["lines"]
                      if row["wheel"] == "VE")
        self.assertEqual(newest["wheel_delay"], 0)
        self.assertGreater(newest["delay"], 10)

    def test_later_draws_do_not_count(self):
        for today, newest in (("2005-06-30", "2005-06-30"), ("2005-07-01", "2005-06-30"), ("2005-07-03", "2005-07-02")):
            expected = self.lines_of(today, last=today)
            shown = self.summary("table", "--as-of", today, "--per-wheel")
            self.assertEqual(shown["lines"][0]["date"], newest)
            self.assertCountEqual([tuple(row.values()) for row in shown["lines"]], expected)
            self.assertNotIn("note", shown)

    def test_nothing_in_the_window(self):
        for words, window in ((["--as-of", "2001-12-31"], "from 2000-01-01 to 2001-12-31"),
                              (["--as-of", "2010-01-01"], "from 2008-01-02 to 2010-01-01"), ([], "")):
            self.expect(NOTHING_FOUND, "table", *words)
            self.assertRegex(self.errors, f"^vestara: the archive holds no draw {window}.*; its newest is of 2006-12-30, "
                                          "--as-of DATE shows an older time\n$")


class Gaps(Studies):
    def check(self, shown, expected, current):
        self.assertEqual(triples(shown["distances"]), expected)
        lengths = [draws for _, _, draws in expected]
        self.assertEqual((shown["appearances"], shown["current_delay"]), (len(expected) + 1, current))
        self.assertEqual((shown["minimum_distance"], shown["maximum_distance"]), (min(lengths), max(lengths)))
        self.assertAlmostEqual(shown["mean_distance"], sum(lengths) / len(lengths))
        self.assertAlmostEqual(shown["deviation"], statistics.stdev(lengths))
        for row in shown["distances"]:
            self.assertEqual(row["days"], days_between(row["from"], row["to"]))

    def test_the_distances_of_a_wheel_are_those_of_the_file(self):
        for numbers, wheel, first, last in (({53}, "VE", "0", "9"), ({90}, "RN", "0", "9"),
                                            ({5}, "RM", "2005-01-01", "2005-12-31")):
            draws = self.draws.within(first, last)
            bounds = ["--from", first, "--to", last] if first > "0" else []
            current = min(draws.delays(wheel)[number] for number in numbers)
            shown = self.summary("gaps", *numbers, "--wheel", wheel, *bounds)
            self.check(shown, draws.distances(numbers, wheel), current)
            self.assertAlmostEqual(shown["expected_distance"], 18)
        pair, wheel = self.frequent_pair()
        expected = self.draws.distances(pair, wheel)
        places = [set(row[2]) for row in reversed(self.draws.of(wheel))]
        current = next(place for place, numbers in enumerate(places) if pair <= numbers)
        for words in (sorted(pair), sorted(pair, reverse=True), [",".join(map(str, pair))]):
            shown = self.summary("gaps", *words, "--wheel", wheel)
            self.check(shown, expected, current)
            self.assertAlmostEqual(shown["expected_distance"], 8010 / 20)

    def frequent_pair(self):
        pairs = Counter((pair, row[1]) for row in self.draws.rows for pair in itertools.combinations(sorted(row[2]), 2))
        pair, wheel = pairs.most_common(1)[0][0]
        return set(pair), wheel

    def test_over_all_wheels_dates_count(self):
        pair, _ = self.frequent_pair()
        for numbers, more, wheels in (({53}, [], WHEELS), ({53}, ["--all"], WHEELS), ({53}, ["--without-rn"], CITIES),
                                      (pair, ["--all", "--without-rn"], CITIES)):
            draws = self.draws.within(wheels=wheels)
            expected = draws.distances_over_all(numbers)
            dates = sorted({row[0] for row in draws.rows}, reverse=True)
            shown = self.summary("gaps", *numbers, *more)
            self.check(shown, expected, dates.index(expected[0][1]))
            between = [length for _, _, length in expected if length]
            self.assertEqual(shown["on_the_same_date"], len(expected) - len(between))
            self.assertAlmostEqual(shown["mean_between_dates"], sum(between) / len(between))
            wheels_a_date = len(draws.rows) / len(dates)
            chance = 5 / 90 if len(numbers) == 1 else math.comb(5, 2) / math.comb(90, 2)
            self.assertAlmostEqual(shown["expected_distance"], 1 / (1 - (1 - chance) ** wheels_a_date))

    def test_a_distance_is_one_more_than_the_gap(self):
        gaps = self.summary("distances", 53, "--wheels", "VE", "--wheel-draws")["distances"]
        closed = [(row["from"], row["to"], row["wheel_draws"] + 1) for row in gaps if row["from"] and row["to"]]
        self.assertEqual(triples(self.summary("gaps", 53, "--wheel", "VE")["distances"]), closed)

    def test_few_appearances(self):
        self.expect(NOTHING_FOUND, "gaps", 53, "--to", "2000-01-01")
        last = next(row[0] for row in reversed(self.draws.of("VE")) if 53 in row[2])
        shown = self.summary("gaps", 53, "--wheel", "VE", "--from", last)
        self.assertEqual((shown["appearances"], shown["mean_distance"], shown["deviation"], shown["distances"]),
                         (1, None, None, []))

    def test_the_plot_suits_who_sees_it(self):
        words = ["gaps", 53, "--wheel", "VE", "--plot"]
        head, plot = self.expect(OK, *words).split("\n\ndistances between two appearances, ")
        self.assertEqual(head + "\n", self.expect(OK, *words[:-1]))
        first, *lines = plot.splitlines()
        self.assertEqual(first, "in draws of VE; | is what chance alone would give")
        for line in lines:
            self.assertRegex(line, r"^ *\d+(-\d+)?  +\d+  [# ]*\|?#*$")
        self.assertLessEqual(max(map(len, lines)), 80)
        shown = self.on_terminal(*words, stream="stdout", LC_ALL="C.UTF-8").decode()
        self.assertIn("┃", shown.split("two appearances")[1])
        self.assertIn("in draw dates; ", self.expect(OK, "gaps", 53, "--plot"))
        self.assertIn("in draws of RN: none\n",
                      self.expect(NOTHING_FOUND, "gaps", 53, "--wheel", "RN", "--to", "2005-01-01", "--plot"))
        self.expect(USAGE, *words, "--format", "json")


@unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
class RealArchive(CommandLine):
    def test_published_figures(self):
        self.expect(OK, "import", REAL_ARCHIVE)
        self.draws = Draws.of_csv(REAL_ARCHIVE)
        for check in (self.delays, self.frequencies, self.records, self.table):
            with self.subTest(check.__name__):
                check()

    def delays(self):
        shown = self.summary("delays", "--wheels", "VE", "--to", "2005-02-08")
        self.assertEqual(shown["delays"][0], {"rank": 1, "number": 53, "wheel": "VE", "delay": 182})
        grid = self.summary("delays", "--grid", "--wheels", "VE,RM", "--to", "2005-02-08")["delays"]
        delays = {wheel: self.draws.within(last="2005-02-08").delays(wheel) for wheel in ("VE", "RM")}
        self.assertEqual({(row["wheel"], row["number"]): row["delay"] for row in grid},
                         {(wheel, number): delay for wheel in delays for number, delay in delays[wheel].items()})

    def frequencies(self):
        shown = self.summary("frequencies", "--numbers", "--from", "1939-01-07", "--to", "1999-12-29")
        self.assertEqual(shown["numbers_drawn"], 165505)
        times = {row["number"]: row["times"] for row in shown["numbers"]}
        self.assertEqual((times[81], times[9]), (1968, 1727))
        self.assertEqual([shown["numbers"][place]["number"] for place in (0, -1)], [81, 9])
        counts = self.draws.counts()
        levels = self.summary("frequencies", "--all-levels")["frequencies"]
        self.assertEqual({(row["number"], row["wheel"]): row["times"] for row in levels}, counts)

    def records(self):
        """Delays that the press called records, and where a plain scan of the file finds them."""
        for number, wheel, draws in ((53, "RN", 258), (8, "RM", 202), (34, "CA", 204), (78, "BA", 202),
                                     (21, "BA", 202), (55, "BA", 197), (82, "BA", 194), (67, "VE", 192),
                                     (71, "CA", 192)):
            shown = self.summary("gaps", number, "--wheel", wheel)
            expected = self.draws.distances({number}, wheel)
            self.assertEqual(triples(shown["distances"]), expected)
            self.assertEqual(shown["maximum_distance"], draws, f"{number} {wheel}")
            self.assertEqual(max(row[2] for row in expected), draws, f"{number} {wheel}")
            if (number, wheel) == (53, "RN"):
                self.assertIn(("2015-06-03", "2017-01-24", 258), expected)

    def table(self):
        lines = self.summary("table", "--as-of", "2026-08-21", "--per-wheel")["lines"]
        delays = {wheel: self.draws.delays(wheel) for wheel in WHEELS}
        listed = {(row["wheel"], int(number)): row["wheel_delay"]
                  for row in lines for number in row["numbers"].split(",")}
        self.assertEqual(listed, {(wheel, number): delay for wheel in WHEELS for number, delay in
                                  delays[wheel].items() if (wheel, number) in listed})
        self.assertGreater(len(listed), 980)


if __name__ == "__main__":
    unittest.main(verbosity=2)
