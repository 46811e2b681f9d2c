"""distances, probability, combinations and search --statistics, end to end. VESTARA_PROGRAM is the command line."""

import csv
import io
import itertools
import json
import math
import os
import signal
import subprocess
import unittest
from collections import Counter
from datetime import date

from command_line_test import NOTHING_FOUND, OK, PROGRAM, REAL_ARCHIVE, USAGE, CommandLine

INTERRUPTED = 130
ALL_NUMBERS = ",".join(map(str, range(1, 91)))


def days_between(first, last):
    return (date.fromisoformat(last) - date.fromisoformat(first)).days


def blocks(text):
    """The parts of a CSV output, each a list of rows."""
    return [list(csv.DictReader(io.StringIO(part + "\n"))) for part in text.rstrip("\n").split("\n\n")]


def rows_of(tsv):
    """(date, wheel, numbers) of every row."""
    rows = [line.split("\t") for line in tsv.decode().splitlines()]
    return [(row[0].replace("/", "-"), row[1], set(map(int, row[2:]))) for row in rows]


class Distances(CommandLine):
    def gaps_of(self, rows, numbers, hits, wheels):
        """What the listing should say, oldest first and without the columns of the hit."""
        dates = sorted({row[0] for row in rows})
        wheel_dates = sorted({row[0] for row in rows if row[1] in wheels})
        found = sorted(row[0] for row in rows if row[1] in wheels and len(row[2] & numbers) >= hits)

        def between(all_dates, first, last):
            return sum((first is None or day > first) and (last is None or day < last) for day in all_dates)

        sides = list(zip([None, *found], [*found, None]))
        if between(dates, *sides[-1]) == 0:
            del sides[-1]
        return [{"from": first, "to": last, "draws": between(dates, first, last),
                 "days": days_between(first, last) if first and last else None,
                 "wheel_draws": between(wheel_dates, first, last)} for first, last in sides]

    def test_the_gaps_are_those_of_the_file(self):
        tsv = self.generated(3)
        self.expect(OK, "import", "-", stdin=tsv)
        rows = rows_of(tsv)
        wheels = sorted({row[1] for row in rows})
        for numbers, hits, chosen in (({53}, 1, ["VE"]), ({53}, 1, wheels), ({1, 2, 3, 4, 5, 6}, 2, ["BA", "RN"]),
                                      ({90}, 1, ["RN"])):
            expected = self.gaps_of(rows, numbers, hits, chosen)
            option = "all" if chosen == wheels else ",".join(chosen)
            shown = self.summary("distances", *numbers, "--hits", hits, "--wheels", option, "--asc", "--wheel-draws")
            columns = expected[0].keys()
            self.assertEqual([{name: row[name] for name in columns} for row in shown["distances"]], expected)
            self.assertEqual(shown["gaps"], len(expected))
            self.assertEqual(shown["maximum_gap_wheel_draws"], max(row["wheel_draws"] for row in expected))
            self.assertAlmostEqual(shown["mean_gap_draws"], sum(row["draws"] for row in expected) / len(expected),
                                   places=4)
            newest_first = self.summary("distances", *numbers, "--hits", hits, "--wheels", option)
            sides = [(row["from"], row["to"], row["draws"]) for row in expected]
            listed = [(row["from"], row["to"], row["draws"]) for row in newest_first["distances"]]
            self.assertEqual([row for row in reversed(listed) if row[0] and row[1]],
                             [row for row in sides if row[0] and row[1]])
            self.assertEqual(newest_first["current_delay"], listed[0][2])
            self.assertEqual(shown["current_delay"], listed[0][2])

    def test_forms_say_what_is_open(self):
        self.imported()
        words = ["distances", 53, "--wheels", "VE"]
        whole = self.summary(*words)
        self.assertEqual((whole["distances"][0]["to"], whole["distances"][-1]["from"]), (None, None))
        facts, rows = blocks(self.expect(OK, *words, "--format", "csv"))
        self.assertEqual({row["name"]: float(row["value"]) for row in facts},
                         {name: value for name, value in whole.items() if name != "distances"})
        self.assertEqual([{name: "" if value is None else str(value) for name, value in row.items()}
                          for row in whole["distances"]], rows)
        lines = [json.loads(line) for line in self.expect(OK, *words, "--format", "jsonl").splitlines()]
        self.assertEqual(lines[1:], [{"kind": "distance", **row} for row in whole["distances"]])
        for form in ("table", "markdown"):
            self.assertIn("open", self.expect(OK, *words, "--format", form))

    def test_no_hit_is_nothing_found(self):
        self.imported()
        shown = self.summary("distances", 1, 2, 3, 4, 5, "--hits", "cinquina", code=NOTHING_FOUND)
        self.assertEqual((shown["gaps"], shown["current_delay"]), (1, shown["maximum_gap_draws"]))
        shown = self.summary("distances", 5, "--to", "1900-01-01", code=NOTHING_FOUND)
        self.assertEqual((shown["gaps"], shown["current_delay"], shown["distances"]), (0, None, []))

    def test_the_plot_suits_who_sees_it(self):
        self.imported()
        words = ["distances", 53, "--wheels", "VE", "--plot"]
        plain = self.expect(OK, *words).split("\n\ngaps between two hits, in draws\n")[1]
        self.assertRegex(plain, r"^( *\d+(-\d+)?  +\d+(  #+)?\n)+$")
        self.assertEqual(max(map(len, plain.splitlines())), 80)
        for locale, bar in (("C.UTF-8", "█"), ("C", "#")):
            shown = self.on_terminal(*words, stream="stdout", LC_ALL=locale).decode()
            self.assertIn(bar, shown.split("gaps between two hits")[1])
        self.expect(USAGE, *words, "--format", "json")


class Statistics(CommandLine):
    # Scripts read these names: none of them goes or comes to mean something else.
    NAMES = {"theoretical_percent", "effective_percent", "theoretical_draws_per_hit", "effective_draws_per_hit",
             "wheels_in_formula", "draws_in_range", "draws_with_hit", "combinations_found", "plain_theoretical_percent",
             "plain_effective_percent", "plain_theoretical_draws_per_hit", "plain_effective_draws_per_hit",
             "plain_wheels", "plain_draws_in_range", "wheels_per_draw", "expected_draws_with_hit", "expected_percent",
             "expected_draws_per_hit", "gaps", "current_delay", "mean_gap_draws", "minimum_gap_draws",
             "maximum_gap_draws", "mean_gap_days", "minimum_gap_days", "maximum_gap_days"}

    def test_the_names_stay(self):
        self.imported()
        for more, code in (([], OK), (["--wheels", "VE"], OK), (["--to", "2003-12-31"], NOTHING_FOUND)):
            words = ["search", 5, "--statistics", *more]
            named = self.summary(*words, code=code)["statistics"]
            in_rows = blocks(self.expect(code, *words, "--format", "csv"))[2]
            line = json.loads(self.expect(code, *words, "--format", "jsonl").splitlines()[-1])
            for names in (named, [row["name"] for row in in_rows], [name for name in line if name != "kind"]):
                self.assertEqual(set(names) - {"note"}, self.NAMES)

    def test_figures_follow_from_the_search(self):
        tsv = self.imported().read_bytes()
        rows = rows_of(tsv)
        for wheels, in_formula, searched in (("all", 1, None), ("cities", 10, lambda wheel: wheel != "RN"),
                                             ("VE", 1, lambda wheel: wheel == "VE"),
                                             ("RN,BA", 2, lambda wheel: wheel in ("RN", "BA"))):
            words = ["search", 5, 12, "--hits", 1, "--wheels", wheels]
            without = self.summary(*words)
            shown = self.summary(*words, "--statistics")
            figures = shown.pop("statistics")
            self.assertEqual(shown, without)
            miss = math.comb(88, 5) / math.comb(90, 5)
            drawn = Counter(row[0] for row in rows if searched is None or searched(row[1]))
            expected = sum(1 - miss ** wheels_drawn for wheels_drawn in drawn.values())
            self.assertEqual(figures["plain_draws_in_range"], len(drawn))
            self.assertAlmostEqual(figures["wheels_per_draw"], sum(drawn.values()) / len(drawn))
            self.assertAlmostEqual(figures["expected_draws_with_hit"], expected, places=6)
            self.assertAlmostEqual(figures["expected_percent"], 100 * expected / len(drawn), places=6)
            self.assertAlmostEqual(figures["expected_draws_per_hit"], len(drawn) / expected, places=6)
            self.assertEqual(figures["draws_with_hit"], shown["draws"])
            self.assertAlmostEqual(figures["plain_effective_percent"], 100 * shown["draws"] / len(drawn))
            self.assertAlmostEqual(figures["plain_effective_draws_per_hit"], len(drawn) / shown["draws"])
            self.assertAlmostEqual(figures["theoretical_percent"], 100 * (1 - miss ** in_formula))
            self.assertAlmostEqual(figures["theoretical_draws_per_hit"], 1 / (1 - miss ** in_formula))
            self.assertEqual(figures["wheels_in_formula"], in_formula)
            self.assertEqual(figures["draws_in_range"], self.summary("archive")["draw_dates"])
            every = len({row[1] for row in rows if searched is None or searched(row[1])})
            self.assertEqual(figures["plain_wheels"], every)
            self.assertAlmostEqual(figures["plain_theoretical_percent"], 100 * (1 - miss ** every))
            self.assertAlmostEqual(figures["plain_theoretical_draws_per_hit"], 1 / (1 - miss ** every))
            self.assertEqual(figures["combinations_found"], shown["ambate"] + shown["ambi"])
            dates = figures["draws_in_range"]
            self.assertAlmostEqual(figures["effective_percent"], 100 * shown["draws"] / dates)
            self.assertAlmostEqual(figures["effective_draws_per_hit"], dates / shown["draws"])
            gaps = self.summary("distances", *words[1:])
            self.assertEqual({name: figures[name] for name in gaps if name != "distances"},
                             {name: value for name, value in gaps.items() if name != "distances"})
            self.assertEqual(figures.get("note"), "no wheel was named, so the library's theoretical figures are those of "
                                                  "one wheel" if wheels == "all" else None)

    def test_a_wheel_that_began_later(self):
        self.imported(first="2005-01-01")
        figures = self.summary("search", 5, "--wheels", "RN", "--statistics")["statistics"]
        wheel = next(row for row in self.summary("archive")["wheels"] if row["wheel"] == "RN")
        self.assertEqual(figures["plain_draws_in_range"], wheel["draw_dates"])
        self.assertGreater(figures["plain_effective_percent"], figures["effective_percent"])
        self.assertIn("had none of the wheels", figures["note"])

    def test_wheels_that_came_one_after_the_other(self):
        """Three numbers, two of them on a wheel, since 1871: eleven wheels were not drawn in most of those draws."""
        self.imported(first="1871-01-07")
        figures = self.summary("search", 5, 12, 33, "--hits", 2, "--statistics")["statistics"]
        miss = 1 - (3 * math.comb(87, 3) + math.comb(87, 2)) / math.comb(90, 5)
        self.assertLess(figures["wheels_per_draw"], 10)
        self.assertLess(figures["expected_percent"], 100 * (1 - miss ** 10))
        self.assertGreater(figures["expected_percent"], 100 * (1 - miss ** 8))
        self.assertAlmostEqual(figures["plain_theoretical_percent"], 100 * (1 - miss ** 11))

    def test_forms_parse(self):
        self.imported()
        words = ["search", 5, "--wheels", "VE", "--statistics"]
        figures = self.summary(*words)["statistics"]
        rows = blocks(self.expect(OK, *words, "--format", "csv"))[2]
        self.assertEqual([row["name"] for row in rows], list(figures))
        last = json.loads(self.expect(OK, *words, "--format", "jsonl").splitlines()[-1])
        self.assertEqual(last, {"kind": "statistics", **figures})
        self.assertRegex(self.expect(OK, *words, "--limit", 1), r"more\n\nplain draws in range +\d+\nwheels per draw +1\n")
        self.assertIn("\n\n| name | value |\n", self.expect(OK, *words, "--format", "markdown"))

    def test_what_was_never_hit(self):
        self.imported()
        table = self.expect(NOTHING_FOUND, "search", 1, 2, 3, 4, 5, "--hits", 5, "--statistics")
        self.assertRegex(table, r"\nplain effective draws per hit +never\n")


class Probability(CommandLine):
    def test_percentages_are_those_of_counting(self):
        for numbers, hits, wheels in itertools.product((1, 2, 5, 17, 85, 86, 90), range(1, 6), (1, 2, 10, 11)):
            shown = self.summary("probability", "--numbers", numbers, "--hits", hits, "--wheels", wheels)
            ways = sum(math.comb(numbers, i) * math.comb(90 - numbers, 5 - i) for i in range(hits, 6))
            miss = 1 - ways / math.comb(90, 5)
            expected = -100 * math.expm1(wheels * math.log1p(-ways / math.comb(90, 5))) if miss else 100
            self.assertAlmostEqual(shown["percent"], expected, places=9)
            if ways:
                self.assertAlmostEqual(shown["draws_per_hit"] * expected / 100, 1, places=6)
            else:
                self.assertEqual((shown["percent"], shown["draws_per_hit"], shown["odds"]), (0, None, "never"))

    def test_tables_read_well(self):
        table = self.expect(OK, "probability", "--numbers", 3, "--hits", "cinquina")
        self.assertRegex(table, r"draws per hit +never\nodds +never\n$")
        self.assertIn("17 to 1 against", self.expect(OK, "probability", "--numbers", 1))


class Combinations(CommandLine):
    def test_every_form_lists_them_in_order(self):
        numbers = [40, 5, 12, 33, 90]
        words = ["combinations", ",".join(map(str, numbers)), "--size", 3]
        expected = list(itertools.combinations(numbers, 3))
        as_objects = [{"n1": a, "n2": b, "n3": c} for a, b, c in expected]
        whole = self.summary(*words)
        self.assertEqual(whole, {"numbers": 5, "size": 3, "count": 10, "combinations": as_objects})
        lines = [json.loads(line) for line in self.expect(OK, *words, "--format", "jsonl").splitlines()]
        self.assertEqual(lines[1:], [{"kind": "combination", **row} for row in as_objects])
        rows = blocks(self.expect(OK, *words, "--format", "csv"))[1]
        self.assertEqual([tuple(map(int, row.values())) for row in rows], expected)
        table = self.expect(OK, *words).split("\n\n")[1].splitlines()
        self.assertEqual([tuple(map(int, line.split())) for line in table[1:]], expected)
        markdown = self.expect(OK, *words, "--format", "markdown")
        self.assertIn("| 40 | 5 | 12 |\n", markdown)
        self.assertEqual(self.summary(*words, "--first", 4)["combinations"], as_objects[:4])
        self.assertEqual(self.summary(*words, "--first", 11)["combinations"], as_objects)

    def test_counts_are_exact(self):
        for size in (1, 2, 5, 18, 19, 45, 72, 90):
            count = math.comb(90, size)
            words = ["combinations", ALL_NUMBERS, "--size", size, "--count-only"]
            self.assertEqual(int(self.summary(*words)["count"]), count)
            self.assertRegex(self.expect(OK, *words), rf"\ncount +{count}\n$")

    def test_more_than_can_be_listed_is_refused(self):
        self.expect(USAGE, "combinations", ALL_NUMBERS, "--size", 45)
        self.assertIn(f" {math.comb(90, 45)} combinations", self.errors)
        first = self.summary("combinations", ALL_NUMBERS, "--size", 45, "--first", 2)
        self.assertEqual([row["n45"] for row in first["combinations"]], [45, 46])
        self.assertIsNone(first.get("n46"))

    def interrupted(self, form):
        """What an interrupted listing leaves on its two streams."""
        words = [PROGRAM, "combinations", ALL_NUMBERS, "--size", "5", "--format", form]
        with subprocess.Popen(words, env=self.environment, bufsize=0, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as process:
            shown = b""
            while len(shown) < 200000:
                shown += process.stdout.read(65536)
            process.send_signal(signal.SIGINT)
            rest, errors = process.communicate()
            self.assertEqual(process.returncode, INTERRUPTED)
        return (shown + rest).decode(), errors.decode()

    def test_an_interruption_ends_with_a_line(self):
        for form, last in (("table", r"\n( ?\d+ *){5}\n$"), ("csv", r"\n(\d+,){4}\d+\n$"), ("markdown", r"\d \|\n$"),
                           ("jsonl", r"\"n5\":\d+\}\n$"), ("json", r"\n    \}\n$")):
            shown, errors = self.interrupted(form)
            self.assertRegex(shown[-200:], last)
            self.assertRegex(errors, r"^vestara: interrupted after \d+ of 43949268 combinations\n$")
            if form == "csv":
                rows = [tuple(map(int, line.split(","))) for line in shown.split("\n\n")[1].splitlines()[1:]]
                self.assertEqual(rows, list(itertools.islice(itertools.combinations(range(1, 91), 5), len(rows))))
                self.assertIn(f" {len(rows)} of ", errors)

    def test_a_reader_that_leaves_early(self):
        with subprocess.Popen([PROGRAM, "combinations", ALL_NUMBERS, "--size", "5"], env=self.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            process.stdout.read(10)
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            self.assertIn(process.wait(), (OK, -signal.SIGPIPE))

    @unittest.skipUnless(os.path.exists("/dev/full"), "this system has no /dev/full")
    def test_a_full_disk_is_said(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "combinations", ALL_NUMBERS, "--size", "5"], env=self.environment,
                                  stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, 4)
        self.assertIn(b"No space left", done.stderr)

    def test_progress_is_for_terminals(self):
        words = ["combinations", ALL_NUMBERS, "--size", 3]
        shown = self.on_terminal(*words, stream="stderr")
        self.assertIn(b"\rcombinations [", shown)
        self.assertTrue(shown.endswith(b"\r\033[K"), shown)
        self.assertNotIn(b"\rcombinations", self.on_terminal(*words, stream="stdout"))
        self.expect(OK, *words)
        self.assertEqual(self.errors, "")


@unittest.skipUnless(REAL_ARCHIVE.is_file(), "the real archive is not here: VESTARA_REAL_ARCHIVE names it")
class RealArchive(CommandLine):
    def test_the_record_delay_of_venice(self):
        self.expect(OK, "import", REAL_ARCHIVE)
        venice = ["distances", 53, "--wheels", "VE", "--wheel-draws"]
        record = self.summary(*venice, "--from", "2003-05-10", "--to", "2005-02-09")
        self.assertEqual(record["maximum_gap_wheel_draws"], 182)
        self.assertEqual(record["distances"][-1],
                         {"from": "2003-05-10", "to": "2005-02-09", "draws": 182, "days": 641, "wheel": "VE", "hits": 1,
                          "contest": 38, "wheel_draws": 182})
        self.assertEqual(self.summary(*venice, "--to", "2005-02-08")["current_wheel_delay"], 182)
        whole = self.summary(*venice)
        self.assertEqual(whole["maximum_gap_wheel_draws"], 182)
        figures = self.summary("search", 53, "--wheels", "VE", "--to", "2005-02-09", "--statistics")["statistics"]
        self.assertEqual(figures["draws_with_hit"], 430)
        threes = self.summary("search", 5, 12, 33, "--hits", "ambo", "--statistics")["statistics"]
        self.assertEqual((threes["draws_in_range"], threes["plain_draws_in_range"]), (10918, 10918))
        self.assertAlmostEqual(threes["wheels_per_draw"], 105156 / 10918)
        self.assertAlmostEqual(threes["expected_percent"], 6.83, places=2)


if __name__ == "__main__":
    unittest.main(verbosity=2)
