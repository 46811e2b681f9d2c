"""Kills the server at thirty moments, spread over imports, saves and searches. Whatever the moment: the host goes on
and learns why, and the archive is the old one or the new one."""

import random
import statistics
import time
import unittest

import servers

KILLS_OF_A_KIND = 10
SEED = 20260821
TIMEOUT = 2  # seconds, of the URL
MARGIN = 8
DRAWS = 1000

# What a host gets on a connection that is lost, in this order, whatever the server does meanwhile.
LOST = [
    ("state", "0"),
    ("sql DELETE FROM storico", "False"),
    ("rows SELECT enumeratore FROM ruote", "refused"),
    ("largest storico concorsoNumero", "0"),
    ("hits 5,12", "nothing"),
    ("delay", "-1"),
    ("draws", "0"),
    ("newest", "Empty"),
    ("save 2031-01-01 7", "False"),
    ("begin", "raised"),
    ("sql DELETE FROM storico", "False"),
    ("commit", "raised"),
    ("rollback", "done"),
    ("schema", "False"),
    ("check", "the archive cannot be checked"),
    ("state", "0"),
]


def study(archive):
    """What `searches` finds: rows and dates with 5 or 12, the delay of 90 on the wheel VE, draws."""
    hits = [[row for row in rows if {"5", "12"} & set(row[2:])] for rows in archive.values()]
    newest_first = [archive[date] for date in sorted(archive, reverse=True)]
    delay = next(i for i, rows in enumerate(newest_first) if any(r[1] == "VE" and "90" in r[2:] for r in rows))
    return f"{sum(map(len, hits))}/{sum(map(bool, hits))} {delay} {len(archive)}"


class ServerKills(servers.ServerTest):
    durable = True

    def setUp(self):
        self.server.start()
        self.client = self.opened(timeout=1000 * TIMEOUT)
        self.assertEqual(self.client.ask("schema"), "True")
        self.archives = [servers.history(DRAWS, seed) for seed in (0, 1)]
        self.files = [servers.write_history(self.folder / f"{i}.txt", self.archives[i]) for i in (0, 1)]
        self.random = random.Random(SEED)
        self.contest = 0
        self.held = {}
        self.usual_time = statistics.median(self.import_once() for _ in range(3))

    def other(self):
        return 1 if self.held == self.archives[0] else 0

    def import_once(self):
        other = self.other()
        start = time.monotonic()
        self.assertEqual(self.client.ask(f"import {self.files[other]}"), "True")
        self.held = self.archives[other]
        return time.monotonic() - start

    def kill_after(self, seconds):
        time.sleep(seconds)
        self.server.kill()

    # Each kills the server, True when the kill met a running call, and tells which archives there may be now.

    def during_import(self):
        other = self.other()
        self.client.send(f"import {self.files[other]}")
        self.kill_after(self.usual_time * self.random.random())
        answer = self.client.answer(TIMEOUT + MARGIN)
        if answer == "True":
            return False, [self.archives[other]]
        self.assertEqual(answer, "False")
        return True, [self.held, self.archives[other]]

    def during_saves(self):
        self.client.send(f"saves {self.contest} 30000")
        self.kill_after(0.3 * self.random.random())
        saves = [line.split() for line in self.client.lines(TIMEOUT + MARGIN)]
        self.assertEqual([answer for _, _, answer in saves], ["True"] * (len(saves) - 1) + ["False"])
        self.contest += len(saves)
        before = dict(self.held)
        for date, contest, _ in saves[:-1]:
            before[date] = servers.draw_rows(int(contest))
        return True, [before, before | {saves[-1][0]: servers.draw_rows(int(saves[-1][1]))}]

    def during_searches(self):
        self.client.send("searches 30000")
        self.kill_after(0.3 * self.random.random())
        *found, last = self.client.lines(TIMEOUT + MARGIN)
        right = study(self.held)
        self.assertEqual(set(found) - {right}, set())
        for piece, whole, failure in zip(last.split(), right.split(), ["nothing", "-1", "0"]):
            self.assertIn(piece, (whole, failure))
        return last != right, [self.held]

    def survive(self, during):
        """One kill and what comes after it; True when it met a running call."""
        has_met, possible = during()
        if not has_met:  # nobody told the host so far
            self.check(self.client, [("rows SELECT enumeratore FROM ruote", "refused")])
        self.assertNotEqual(self.client.ask("error"), "")
        self.check(self.client, LOST)
        self.server.start()
        self.check(self.client, LOST)
        self.assertEqual(self.client.ask("open " + self.server.url(timeout=1000 * TIMEOUT)), "True")
        self.check(self.client, [("state", "1"), ("error", ""), ("check", "")])
        self.held = self.server.archive()
        self.assertTrue(self.held in possible, f"a mixed archive of {len(self.held)} draws")
        return has_met

    def test_thirty_kills(self):
        seen = {"during_import": 0, "during_saves": 0, "during_searches": 0}
        kinds = list(seen) * KILLS_OF_A_KIND
        self.random.shuffle(kinds)
        missed = 0
        for kind in kinds:
            while not self.survive(getattr(self, kind)):
                missed += 1
                self.assertLess(missed, len(kinds))
            seen[kind] += 1
        print(f"an import takes {self.usual_time:.3f} s, {self.contest} saves; {seen}, between calls {missed}")
        self.import_once()
        self.assertEqual(self.server.archive(), self.held)

    def test_open_fails_in_time_while_the_server_is_away(self):
        self.server.kill()
        start = time.monotonic()
        self.assertEqual(self.client.ask("open " + self.server.url(timeout=1000 * TIMEOUT)), "False")
        self.assertLess(time.monotonic() - start, TIMEOUT + MARGIN)
        self.assertNotEqual(self.client.ask("error"), "")
        # Now there is no connection at all, and nothing that could be taken back.
        self.check(self.client, [(command, "raised" if command == "rollback" else answer) for command, answer in LOST])
        self.server.start()
        self.assertEqual(self.client.ask("open " + self.server.url()), "True")


if __name__ == "__main__":
    servers.main()
