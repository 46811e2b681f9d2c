"""Encrypted connections: what each value of `tls` does with a server that has encryption and with one that has not."""

import os
import shutil
import socket
import subprocess

import servers


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class NetworkServer(servers.Server):
    """A server that is reached over this machine's own network, with a certificate or without encryption."""

    def __init__(self, engine, folder, certificate):
        self.port = free_port()
        if engine == "mariadb":
            options = f"--skip-networking=0 --bind-address=127.0.0.1 --port={self.port}"
            options += f" --ssl-cert={certificate} --ssl-key={certificate}.key" if certificate else " --skip-ssl"
        else:
            options = f"-c listen_addresses=127.0.0.1 -c port={self.port}"
            options += f" -c ssl=on -c ssl_cert_file={certificate} -c ssl_key_file={certificate}.key" if certificate else ""
        super().__init__(engine, folder, options=options)
        self.environment["PGPORT"] = str(self.port)

    def network_url(self, **options):
        joined = "&".join(f"{name}={value}" for name, value in options.items())
        return f"{self.engine}://vestara@127.0.0.1:{self.port}/vestara?{joined}"


class ServerTls(servers.ServerTest):
    @classmethod
    def make_server(cls):
        cls.certificate = cls.folder / "certificate"
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
                        "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-out", cls.certificate, "-keyout",
                        f"{cls.certificate}.key"], check=True, capture_output=True)
        if os.geteuid() == 0:
            owner = {"postgresql": "postgres", "mariadb": "mysql"}[cls.engine]
            shutil.chown(f"{cls.certificate}.key", owner)
        return NetworkServer(cls.engine, cls.folder / "server", cls.certificate)

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.plain = NetworkServer(cls.engine, cls.folder / "plain", None)
        cls.addClassCleanup(cls.plain.stop)
        cls.plain.start()

    asked = 0

    def encrypted_sessions(self, server):
        if self.engine == "mariadb":
            # Who asks is encrypted as well, and counted.
            self.asked += 1
            return int(server.rows("SHOW GLOBAL STATUS LIKE 'Ssl_finished_accepts'")[0][1]) - self.asked
        os.environ["PGPORT"] = str(server.port)  # for the engine's own client
        return int(server.rows("SELECT count(*) FROM pg_stat_ssl NATURAL JOIN pg_stat_activity"
                               " WHERE application_name='vestara' AND ssl")[0][0])

    def check_session(self, server, opens, encrypts, **options):
        with self.subTest(server=server.folder.name, **options):
            before = self.encrypted_sessions(server)
            client = servers.Client(self)
            answer = client.ask("open " + server.network_url(**options))
            self.assertEqual(answer, str(opens), client.ask("error"))
            if opens:
                self.assertEqual(client.ask("rows SELECT 1 AS n"), "1")
                self.assertEqual(self.encrypted_sessions(server) > before, encrypts)
            else:
                self.assertRegex(client.ask("error").lower(), "encrypt|ssl|tls|certificate")
            client.ask("close")
            self.doCleanups()

    def test_a_server_with_encryption(self):
        for opens, encrypts, options in [(True, True, {}), (True, True, {"tls": "prefer"}),
                                         (True, True, {"tls": "require"}), (True, False, {"tls": "disable"}),
                                         (True, True, {"tls": "verify", "tls_ca": self.certificate}),
                                         (False, False, {"tls": "verify"})]:
            self.check_session(self.server, opens, encrypts, **options)

    def test_a_server_without_encryption(self):
        for opens, options in [(True, {}), (True, {"tls": "prefer"}), (True, {"tls": "disable"}),
                               (False, {"tls": "require"}),
                               (False, {"tls": "verify", "tls_ca": self.certificate})]:
            self.check_session(self.plain, opens, False, **options)

    def test_what_cannot_be_honoured_is_said(self):
        for options, reason in [({"tls": "require"}, "needs a host"), ({"tls": "verify"}, "needs a host"),
                                ({"tls_ca": self.certificate}, "tls=verify")]:
            client = servers.Client(self)
            self.assertEqual(client.ask("open " + self.server.url(**options)), "False")
            self.check_error(client, reason)


if __name__ == "__main__":
    servers.main()
