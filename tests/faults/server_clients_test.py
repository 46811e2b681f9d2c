"""Many hosts on one server at once: sixteen search while one saves, for five seconds or as many as the environment
variable VESTARA_CLIENT_SECONDS says; two save at once; eight make the same archive. MANY_CLIENTS and TWO_WRITERS are
the compiled hosts."""

import os
import subprocess

import servers
import two_writers_test

SECONDS = int(os.environ.get("VESTARA_CLIENT_SECONDS", "5"))
SEARCHERS = 16
MAKERS = 8


class ManyClients(servers.ServerTest):
    durable = True

    def start(self, work):
        return subprocess.Popen([os.environ["MANY_CLIENTS"], work, self.server.url(timeout=30000), str(SECONDS)],
                                env=self.environment, stdout=subprocess.PIPE, text=True)

    def test_every_answer_is_the_archive_before_or_after_a_save(self):
        client = self.opened()
        self.check(client, [("schema", "True"), ("sql DELETE FROM storico", "True")])
        running = [self.start(work) for work in ["save"] + ["search"] * SEARCHERS]
        lines = [process.communicate(timeout=SECONDS + 90)[0].strip() for process in running]
        self.assertEqual([process.returncode for process in running], [0] * len(running), lines)
        saves, *searches = (int(line.split()[1]) for line in lines)
        print(f"{SEARCHERS} searchers {sum(searches) / SECONDS:.0f} searches/s, a saver {saves / SECONDS:.0f} saves/s")
        self.assertGreater(min(searches), 0)
        self.assertGreater(saves, 0)
        self.assertEqual(client.ask("largest storico concorsoNumero"), str(saves))
        self.assertEqual({len(rows) for rows in self.server.archive().values()}, {len(servers.WHEELS)})

    def test_an_archive_made_by_many_at_once_is_made_once(self):
        client = self.opened()
        for table in ("storico", "tRicerche", "tSistemi", "tSistemaDetail", "ruote"):
            self.assertEqual(client.ask(f"sql DROP TABLE IF EXISTS {table}"), "True")
        makers = [self.opened(timeout=30000) for _ in range(MAKERS)]
        for maker in makers:
            maker.send("schema")
        answers = [maker.answer() for maker in makers]
        self.assertEqual(answers, ["True"] * MAKERS, [maker.ask("error") for maker in makers])
        self.check(client, [("check", ""), ("rows SELECT count(*) AS n FROM ruote", str(len(servers.WHEELS)))])

    def test_an_equal_key_is_refused(self):
        one, other = self.opened(), self.opened()
        self.check(one, [("schema", "True"), ("sql DELETE FROM tRicerche", "True")])
        statement = "sql INSERT INTO tRicerche(idRicerca,descRicerca)VALUES(7,'{}')".format
        self.check(one, [(statement("first"), "True")])
        self.check(other, [(statement("second"), "False")])
        self.check(other, [("rows SELECT idRicerca,descRicerca FROM tRicerche", "7,first")])


class TwoServerWriters(servers.ServerTest, two_writers_test.TwoWriters):
    test_the_file_is_sound = None

    @classmethod
    def setUpClass(cls):
        servers.ServerTest.setUpClass.__func__(cls)
        cls.write(cls.server.url(), cls.environment)

    def rows(self, statement):
        return [[int(value) if value.isdigit() else value for value in row] for row in self.server.rows(statement)]


if __name__ == "__main__":
    servers.main()
