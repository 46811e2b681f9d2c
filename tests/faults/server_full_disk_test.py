"""The server's disk fills up during an import: the archive stays the old one, and with some space everything works
again. The disk is a small file system in memory, which only root can make."""

import os
import subprocess
import unittest

import servers

MEGABYTE = 1 << 20
DISK = 160  # megabytes
LEFT = 4  # megabytes, for an import that needs more
OLD_DRAWS, NEW_DRAWS = 1000, 10000


class ServerFullDisk(servers.ServerTest):
    durable = True

    @classmethod
    def make_server(cls):
        cls.disk = cls.folder / "disk"
        cls.disk.mkdir()
        mount = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={DISK}m,mode=711", "vestara", cls.disk],
                               stderr=subprocess.PIPE, text=True)
        if mount.returncode != 0:
            raise unittest.SkipTest(f"no small file system can be made here: {mount.stderr.strip()}")
        cls.addClassCleanup(subprocess.run, ["umount", "--lazy", cls.disk], check=True)
        return servers.Server(cls.engine, cls.disk / "server", cls.durable)

    def setUp(self):
        self.old = servers.history(OLD_DRAWS, 0)
        files = [(self.folder / "old.txt", self.old), (self.folder / "new.txt", servers.history(NEW_DRAWS, 1))]
        self.old_file, self.new_file = (servers.write_history(*file) for file in files)
        self.client = self.opened()
        self.check(self.client, [("schema", "True"), (f"import {self.old_file}", "True")])
        if self.engine == "postgresql":
            # Room in the log of changes, which the engine does not outlive when it cannot be written.
            for statement in ("SELECT pg_switch_wal()", "CHECKPOINT"):
                self.server.rows(statement)

    def fill(self):
        """Takes the free space but for a little; returns the file that does."""
        ballast = self.disk / "ballast"
        free = os.statvfs(self.disk)
        with open(ballast, "wb") as file:
            os.posix_fallocate(file.fileno(), 0, free.f_bavail * free.f_frsize - LEFT * MEGABYTE)
        return ballast

    def test_an_import_that_finds_no_room_changes_nothing(self):
        ballast = self.fill()
        self.check(self.client, [(f"import {self.new_file}", "False")])
        self.assertNotEqual(self.client.ask("error"), "")
        ballast.unlink()
        # An engine may end when it finds no room at all.
        self.server.start()
        self.assertTrue(self.server.archive() == self.old)
        if self.client.ask("state") == "0":
            self.check(self.client, [("open " + self.server.url(), "True")])
        self.check(self.client, [("draws", str(OLD_DRAWS)), ("save 2031-01-01 7", "True")])
        self.check(self.client, [(f"import {self.old_file}", "True"), ("draws", str(OLD_DRAWS))])
        self.assertTrue(self.server.archive() == self.old)


if __name__ == "__main__":
    servers.main()
