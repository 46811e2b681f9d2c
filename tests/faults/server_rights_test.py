"""Users with fewer rights, connections that are read only, and passwords: wrong ones, and the ways to give the right
one."""

import servers

DRAWS = 1000
PASSWORD = "s3cr3t&odd/%"
ENCODED = "s3cr3t%26odd%2F%25"
WRONG = "n0nsense"

# What may be read, and what must not change.
READING = [("state", "1"), ("check", ""), ("draws", str(DRAWS)), ("newest", "17/03/1988"),
           ("rows SELECT count(*) AS n FROM ruote", "11"), ("largest ruote enumeratore", "11")]
CHANGES = ["save 2031-01-01 7", "save 1980-01-02 7", "sql DELETE FROM storico", "sql UPDATE storico SET estr1=1",
           "sql INSERT INTO storico(concorsoNumero)VALUES(1)", "sql DROP TABLE storico",
           "sql CREATE TABLE other(n integer)"]

# Engine and password go in.
MISWRITTEN = ["{}://guarded:{}@", "{}:guarded:{}@host/vestara", "{}://guarded:{}%ZZ@/vestara",
              "{}://guarded:{}?x@/vestara", "{}://guarded:{}@host:port/vestara", "{}//guarded:{}@host/vestara",
              "no{}://guarded:{}@host/vestara"]


class ServerRights(servers.ServerTest):
    @classmethod
    def make_server(cls):
        # A server that asks one user for a password and trusts everybody else.
        options = ""
        if cls.engine == "postgresql":
            rules = cls.folder / "rules.conf"
            rules.write_text("local all guarded scram-sha-256\nlocal all all trust\n")
            rules.chmod(0o644)
            options = f"-c hba_file={rules}"
        return servers.Server(cls.engine, cls.folder / "server", options=options)

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        if cls.engine == "postgresql":
            grants = [f"CREATE USER guarded PASSWORD '{PASSWORD}'", "CREATE USER reader",
                      "GRANT SELECT ON ALL TABLES IN SCHEMA public TO reader,guarded"]
        else:
            grants = [f"CREATE USER guarded@localhost IDENTIFIED BY '{PASSWORD}'", "CREATE USER reader@localhost",
                      "GRANT SELECT ON vestara.* TO reader@localhost", "GRANT SELECT ON vestara.* TO guarded@localhost"]
        case = cls()
        owner = case.opened()
        file = servers.write_history(cls.folder / "old.txt", servers.history(DRAWS, 0))
        case.check(owner, [("schema", "True"), (f"import {file}", "True")])
        for statement in grants:
            cls.server.rows(statement)
        case.doCleanups()

    def refuse_changes(self, client):
        before = self.server.archive()
        for command in CHANGES:
            with self.subTest(command=command):
                self.check(client, [(command, "False"), ("rollback", "done")])
                self.assertNotEqual(client.ask("error"), "")
        self.check(client, [(f"import {self.folder / 'old.txt'}", "False"), ("rollback", "done")])
        self.assertTrue(self.server.archive() == before)

    def test_a_user_who_may_read_reads(self):
        client = self.opened(user="reader")
        self.check(client, READING + [("schema", "True")])
        self.assertEqual(client.ask("hits 5,12"), self.opened().ask("hits 5,12"))
        self.refuse_changes(client)
        self.check(client, READING)

    def test_a_user_who_may_read_completes_no_archive(self):
        owner, client = self.opened(), self.opened(user="reader")
        on_table = " ON storico" if self.engine == "mariadb" else ""
        for missing, named in [("DROP INDEX vestara_storico_wheel" + on_table, "vestara_storico_wheel"),
                               ("DELETE FROM ruote WHERE enumeratore=3", "wheel FI"),
                               ("DROP TABLE tSistemaDetail", "tSistemaDetail")]:
            with self.subTest(missing=missing):
                self.check(owner, [(f"sql {missing}", "True")])
                self.assertIn(named, client.ask("check"))
                self.check(client, [("schema", "False"), ("draws", str(DRAWS))])
                self.check_error(client, "right")
                self.check(owner, [("schema", "True"), ("check", "")])
                if missing.startswith("DROP TABLE") and self.engine == "postgresql":
                    self.server.rows("GRANT SELECT ON ALL TABLES IN SCHEMA public TO reader,guarded")
                self.check(client, [("schema", "True")])

    def test_a_connection_that_is_read_only_refuses_changes(self):
        client = self.opened(mode="ro")
        self.check(client, READING + [("begin", "raised")])
        self.check_error(client, "read only", "mode=ro")
        self.check(client, [("rollback", "done")])
        self.refuse_changes(client)
        self.check(client, READING)

    def ways_to_give(self, password):
        """Environments of a client that give it this password."""
        home = self.folder / password[:3]
        home.mkdir(exist_ok=True)
        if self.engine == "postgresql":
            file = home / ".pgpass"
            file.write_text(f"*:*:*:guarded:{password}\n")
            named = {"PGPASSWORD": password}
        else:
            file = home / ".my.cnf"
            file.write_text(f'[client]\npassword="{password}"\n')
            named = {"MYSQL_PWD": password}
        file.chmod(0o600)
        return {"a variable": named, "a file": {"HOME": str(home)}}

    def test_a_password_can_come_from_the_url_a_variable_or_a_file(self):
        guarded = self.server.url(user="guarded")
        cases = {"the URL": ({}, self.server.url(user=f"guarded:{ENCODED}"))}
        cases |= {way: (environment, guarded) for way, environment in self.ways_to_give(PASSWORD).items()}
        for way, (environment, url) in cases.items():
            with self.subTest(way=way):
                client = servers.Client(self, environment)
                self.check(client, [(f"open {url}", "True")] + READING)

    def test_a_refusal_tells_no_password(self):
        nowhere = "not_there"
        cases = [({}, self.server.url(user=f"guarded:{WRONG}"), "guarded"),
                 ({}, self.server.url(user="guarded"), ""),
                 ({}, self.server.url(user="nobody:" + WRONG), "nobody"),
                 ({}, self.server.url(user="guarded:" + ENCODED, database=nowhere), nowhere),
                 ({}, self.server.url(user="vestara:" + WRONG, database=nowhere), ""),
                 ({}, self.server.url(user="guarded:" + ENCODED, odd="yes"), "does not know an option"),
                 ({}, self.server.url(user="guarded:" + ENCODED, socket="/nowhere"), "/nowhere")]
        guarded = self.server.url(user="guarded")
        cases += [(environment, guarded, "") for environment in self.ways_to_give(WRONG).values()]
        cases += [({}, text.format(self.engine, WRONG), "") for text in MISWRITTEN]
        for environment, url, named in cases:
            with self.subTest(url=url, environment=environment):
                client = servers.Client(self, environment)
                self.check(client, [(f"open {url}", "False"), ("state", "0")])
                error = client.ask("error")
                self.assertNotEqual(error, "")
                self.assertIn(named, error)
                for secret in (PASSWORD, ENCODED, WRONG):
                    self.assertNotIn(secret, error)


if __name__ == "__main__":
    servers.main()
