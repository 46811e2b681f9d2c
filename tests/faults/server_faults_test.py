"""What a host learns when a server refuses, waits too long or goes away in order, and what the archive holds then."""

import time

import servers

DRAWS = 1000
LONG_DRAWS = 6000  # an import of seconds
WAIT = 1  # seconds, of the URL; MariaDB counts whole ones
MARGIN = 6

SLOW = "SELECT count(*) AS n FROM storico AS a, storico AS b, storico AS c WHERE a.estr1+b.estr2+c.estr3=-1"
INSERT = "sql INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1)VALUES({},'2031-01-01','BA',1)"
COUNT = "rows SELECT count(*) AS n FROM storico WHERE dtEstr='2031-01-01'"


class ServerFaults(servers.ServerTest):
    def setUp(self):
        self.server.start()
        self.old, self.new = servers.history(DRAWS, 0), servers.history(DRAWS, 1)
        self.new_file = servers.write_history(self.folder / "new.txt", self.new)
        old_file = servers.write_history(self.folder / "old.txt", self.old)
        self.client = self.opened()
        self.check(self.client, [("schema", "True"), (f"import {old_file}", "True")])

    def timed(self, client, command, least, most):
        start = time.monotonic()
        answer = client.ask(command)
        self.assertGreaterEqual(time.monotonic() - start, least, command)
        self.assertLess(time.monotonic() - start, most, command)
        return answer

    def test_a_statement_runs_no_longer_than_it_may(self):
        client = self.opened(statement_timeout=500)
        self.assertEqual(self.timed(client, "rows " + SLOW, 0.4, MARGIN), "refused")
        self.check_error(client, "statement_timeout")
        slow_change = "sql DELETE FROM storico WHERE -1=(" + SLOW.replace("=-1", ">-1") + ")"
        self.assertEqual(self.timed(client, slow_change, 0.4, MARGIN), "False")
        self.check_error(client, "statement_timeout")
        self.check(client, [("state", "1"), ("draws", str(DRAWS)), ("save 2031-01-01 7", "True"), (COUNT, "11")])

    def test_a_turn_is_waited_for_no_longer_than_the_timeout(self):
        waiting = self.opened(timeout=1000 * WAIT)
        for command, refusal in [("begin", "raised"), ("save 2031-01-01 7", "False"),
                                 (f"import {self.new_file}", "False")]:
            with self.subTest(command=command):
                self.assertEqual(self.client.ask("begin"), "done")
                self.assertEqual(self.timed(waiting, command, 0.8 * WAIT, WAIT + MARGIN), refusal)
                self.check_error(waiting, "lock", "try again")
                # Readers never wait.
                self.check(waiting, [("rollback", "done"), ("draws", str(DRAWS))])
                self.check(self.client, [("rollback", "done")])
                self.check(waiting, [("begin", "done"), ("rollback", "done")])

    def test_a_row_is_waited_for_no_longer_than_the_timeout(self):
        waiting = self.opened(timeout=1000 * WAIT)
        update = "sql UPDATE storico SET estr1=9 WHERE dtEstr='1980-01-02' AND ruota='BA'"
        self.check(self.client, [("begin", "done"), (update, "True")])
        self.assertEqual(self.timed(waiting, update, 0.8 * WAIT, WAIT + MARGIN), "False")
        self.check_error(waiting, "lock", "try again")
        self.check(self.client, [("rollback", "done")])
        self.check(waiting, [(update, "True")])

    def test_of_a_deadlock_one_survives(self):
        # Without wheels there are no turns, which would keep the two apart.
        self.check(self.client, [("sql DELETE FROM ruote", "True")])
        self.addCleanup(lambda: self.assertEqual(self.client.ask("schema"), "True"))
        update = "sql UPDATE storico SET estr1={} WHERE dtEstr='1980-01-02' AND ruota='{}'".format
        pair = [self.client, self.opened()]
        for number, client, own in zip((71, 72), pair, ("BA", "CA")):
            self.check(client, [("begin", "done"), (update(number, own), "True")])
        for number, client, others in zip((71, 72), pair, ("CA", "BA")):
            client.send(update(number, others))
        answers = [client.answer() for client in pair]
        self.assertEqual(sorted(answers), ["False", "True"])
        winner, loser = sorted(pair, key=lambda client: answers[pair.index(client)], reverse=True)
        self.check_error(loser, "deadlock", "try again")
        self.check(loser, [("state", "1"), (update(73, "BA"), "False"), ("rows SELECT 1 AS n", "refused")])
        self.check_error(loser, "transaction is lost")
        self.check(winner, [("commit", "done")])
        self.check(loser, [("rollback", "done"), ("draws", str(DRAWS)), ("begin", "done"), ("rollback", "done")])
        kept = str(71 + pair.index(winner))
        self.assertEqual([row[2] for row in self.server.archive()["1980-01-02"][:2]], [kept, kept])

    def test_the_commit_of_a_lost_transaction_raises(self):
        self.end_session_in_a_transaction()
        self.check(self.client, [("commit", "raised")])

    def test_nothing_reconnects_silently(self):
        self.end_session_in_a_transaction()
        for command, refusal in [(INSERT.format(2), "False"), (COUNT, "refused"), ("draws", "0"), ("begin", "raised"),
                                 (INSERT.format(3), "False"), ("commit", "raised"), (INSERT.format(4), "False"),
                                 ("save 2031-01-01 7", "False"), ("rollback", "done"), (COUNT, "refused"),
                                 ("state", "0")]:
            self.check(self.client, [(command, refusal)])
            self.assertNotEqual(self.client.ask("error"), "")
        self.check(self.client, [("open " + self.server.url(), "True"), (COUNT, "0"), (INSERT.format(5), "True"),
                                 (COUNT, "1")])

    def end_session_in_a_transaction(self):
        self.check(self.client, [("begin", "done"), (INSERT.format(1), "True")])
        if self.engine == "postgresql":
            self.server.rows("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name='vestara'")
        else:
            for session, in self.server.rows("SELECT id FROM information_schema.processlist WHERE user='vestara'"):
                self.server.rows(f"KILL CONNECTION {session}")
        self.check(self.client, [(INSERT.format(2), "False"), ("state", "0")])

    def test_a_damaged_table_is_found(self):
        if self.engine == "postgresql":
            self.check(self.client, [("file", ""), ("begin", "done"), ("file", ""), ("rollback", "done")])
            return
        self.check(self.client, [("file", ""), ("begin", "done")])
        self.assertIn("cannot be checked inside a transaction", self.client.ask("file"))
        self.check(self.client, [(INSERT.format(1), "True"), ("rollback", "done"), (COUNT, "0")])
        self.server.stop()
        self.addCleanup(self.server.rows, "DROP TABLE storico")
        table, = self.server.folder.glob("data/vestara/storico.ibd")
        self.overwrite_pages(table)
        self.server.start()
        self.assertIn("storico: ", self.opened().ask("file"))

    @staticmethod
    def overwrite_pages(table, page_size=16384):
        with open(table, "r+b") as file:
            # The first pages are the table's own books: a server that cannot read them does not know the table.
            for page in range(6, 40, 5):
                file.seek(page * page_size + 2000)
                file.write(b"\x7f" * 200)

    def test_a_server_that_is_stopped_takes_an_import_back(self):
        long = servers.history(LONG_DRAWS, 2)
        file = servers.write_history(self.folder / "long.txt", long)
        start = time.monotonic()
        self.check(self.client, [(f"import {file}", "True"), (f"import {self.new_file}", "True")])
        whole = time.monotonic() - start
        taken_back = 0
        for part in (0.1, 0.3, 0.45):
            with self.subTest(part=part):
                self.check(self.client, [(f"import {self.new_file}", "True")])
                self.client.send(f"import {file}")
                time.sleep(part * whole)
                self.server.stop()
                # An orderly end may wait for the commit of an import that is nearly done.
                has_ended = self.client.answer() == "True"
                taken_back += not has_ended
                self.check(self.client, [("rows SELECT 1 AS n", "refused"), ("state", "0")])
                self.assertNotEqual(self.client.ask("error"), "")
                self.server.start()
                self.assertTrue(self.server.archive() == (long if has_ended else self.new))
                self.check(self.client, [("draws", "0"), ("open " + self.server.url(), "True")])
        self.assertGreater(taken_back, 0)


if __name__ == "__main__":
    servers.main()
