"""Workers that are forked while an archive is open, as multiprocessing begins them."""

from __future__ import annotations

import gc
import multiprocessing
from typing import Any

from vestara import RunTimeError, connect

from .support import InFolder


class Forks(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.url = f"sqlite:{self.folder / 'forked.sqlite'}"
        self.archive: Any = connect(self.url)
        self.archive.CreateSchema()

    def in_a_worker(self, body: Any) -> list[Any]:
        """What the body gives in a forked worker, or the text of what it raised."""
        context = multiprocessing.get_context("fork")
        receiver, sender = context.Pipe(False)

        def work() -> None:
            try:
                sender.send(body())
            except Exception as error:
                sender.send([repr(error)])
            self.archive = None
            gc.collect()

        worker = context.Process(target=work)
        worker.start()
        answer: list[Any] = receiver.recv()
        worker.join()
        self.assertEqual(worker.exitcode, 0)
        return answer

    def test_a_worker_leaves_its_parents_transaction_alone(self) -> None:
        self.archive.BeginTrans()
        self.assertTrue(self.archive.ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(1)"))

        def use() -> list[Any]:
            answers = [self.archive.ConnectionState, self.archive.ExecuteSql("DELETE FROM tRicerche")]
            self.assertIn("forked", self.archive.LastError)
            with self.assertRaises(RunTimeError):
                self.archive.CommitTrans()
            self.archive.Close()
            return answers

        self.assertEqual(self.in_a_worker(use), [0, False])
        self.assertEqual(self.in_a_worker(list), [])
        self.archive.CommitTrans()
        self.assertEqual(connect(self.url).GetMaxId("tRicerche", "idRicerca"), 1)

    def test_a_worker_opens_the_archive_for_itself(self) -> None:
        def work() -> list[Any]:
            with connect(self.url) as own:
                return [own.ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(7)")]

        self.assertEqual(self.in_a_worker(work), [True])
        self.assertEqual(self.archive.GetMaxId("tRicerche", "idRicerca"), 7)
