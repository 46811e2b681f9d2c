"""Objects, members and arguments."""

from __future__ import annotations

import copy
import gc
import pickle
import subprocess
import sys
import threading
from datetime import date, datetime, time, timedelta
from typing import Any

from vestara import ByRef, Dispatch, Empty, Missing, Null, RunTimeError, _calls, connect

from .support import DRAWS, InFolder, archive, lotto_on


class Members(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.connector = archive()
        self.lotto = lotto_on(self.connector)

    def test_names_have_no_case(self) -> None:
        self.lotto.DBTYPE = 1
        self.lotto.fileupdate = "x"
        self.assertEqual((self.lotto.DbType, self.lotto.dbType), (1, 1))
        self.assertEqual((self.lotto.FileUpdate, self.lotto.FILEUPDATE), ("x", "x"))
        self.assertEqual(self.lotto.getmindatestorico(), "07/01/1871")

    def test_methods_need_parentheses(self) -> None:
        self.assertEqual(self.lotto.GetMaxDateStorico(), "02/01/2026")
        self.assertTrue(callable(self.lotto.GetMaxDateStorico))

    def test_arguments_by_place_and_by_name(self) -> None:
        for arguments, named, hits in (
            (("5,12",), {"combinazioneTipo": 2}, 3),
            ((), {"sNum": "5,12", "COMBINAZIONETIPO": 2}, 3),
            (("5,12", 2, "FI,NA"), {}, 2),
            (("5,12", 2, Missing, "1900-01-01"), {}, 1),
            (("5,12", 2), {"dtA": "1900-01-01"}, 2),
            (("5,12", 2, "", None, Null), {}, 3),
            (("5,12", "2"), {}, 3),
        ):
            with self.subTest(arguments=arguments, named=named):
                self.lotto.LoadLottoEstr(*arguments, **named)
                self.assertEqual(self.lotto.ContaSortiteTrovate, hits)

    def test_empty_is_no_bound_where_the_count_says_so(self) -> None:
        for bound, dates in ((Empty, 3), ("", 3), (Null, 3), ("not a date", 0), ("1900-01-01", 1)):
            with self.subTest(bound=bound):
                self.assertEqual(self.lotto.ContaEstrazioniStorico(bound), dates)

    def test_write_back(self) -> None:
        for before, numbers, after in ((False, "", True), (True, "", True), (False, "5", False), (0, "", True)):
            holder = ByRef(before)
            self.lotto.LoadLottoEstr(numbers, 1, bTutteLeEstrazioni=holder)
            self.assertIs(holder.value, after, (before, numbers))

    def test_a_flag_comes_back_as_what_ran_and_other_variables_keep_their_type(self) -> None:
        holder = ByRef(1)
        self.lotto.LoadLottoEstr("", 1, bTutteLeEstrazioni=holder)
        self.assertIs(holder.value, True)
        count = ByRef(1.0)
        Dispatch("Vestara.cSistemi").CombinazioniIntegraliString("7", 1, count)
        self.assertIs(type(count.value), float)

    def test_texts_are_handed_back(self) -> None:
        texts = ByRef("L'anno"), ByRef("1,2"), ByRef("BA")
        description, numbers, wheels = texts
        now = datetime(2026, 1, 2)
        saved = self.lotto.SaveRicerchePersonalizzate(0, description, numbers, 2, wheels, now, None, None)
        self.assertTrue(saved)
        self.assertEqual([text.value for text in texts], ["L''anno", "1,2", "BA"])
        (row,) = self.lotto.GetRicerchePersonalizzate(1)
        self.assertEqual((row.descRicerca, row.numeri), ("L'anno", "1,2"))

    def test_objects_as_arguments_and_results(self) -> None:
        draw = Dispatch("Vestara.cEstrazione")
        draw.DataEstrazione = date(1900, 1, 6)
        draw.NumeroConcorso = 3
        for wheel in range(1, 12):
            for position in range(2, 7):
                draw.AddNumero(wheel, position, wheel + position)
        self.assertTrue(self.lotto.SalvaEstrazione(draw))
        found = self.lotto.GetEstrazioneDaData("1900-01-06")
        self.assertIs(type(found), type(draw))
        self.assertNotEqual(found, draw)
        self.assertEqual((found.NumeroConcorso, found.GetNumeri(2)), (3, "4,5,6,7,8"))

    def test_errors(self) -> None:
        lotto = self.lotto
        for number, body in (
            (91, lambda: lotto.ActiveConnection),
            (13, lambda: lotto.ContaEstrazioniStorico(Ruota="twelve")),
            (6, lambda: setattr(lotto, "DbType", 40000)),
            (448, lambda: lotto.LoadLottoEstr(nope=1)),
            (450, lambda: lotto.GetMaxDateStorico(1)),
            (450, lambda: setattr(lotto, "Ambate", 1)),
            (13, lambda: setattr(lotto, "ActiveConnection", 5)),
            (449, lambda: self.connector.ExecuteSql()),
            (429, lambda: Dispatch("Vestara.Nope")),
            (429, lambda: Dispatch("../Vestara.cLotto")),
        ):
            with self.subTest(number=number):
                error = self.raises(number, body)
                self.assertEqual(str(error), f"{error.description} ({number})")

    def test_unknown_members(self) -> None:
        with self.assertRaisesRegex(AttributeError, "Vestara.cLotto has no member 'Nope'"):
            self.lotto.Nope
        with self.assertRaises(AttributeError):
            self.lotto.Nope = 1
        with self.assertRaises(AttributeError):
            self.lotto.GetMaxDateStorico = 1
        self.assertFalse(hasattr(self.lotto, "nope"))
        self.assertTrue(hasattr(self.lotto, "ambate"))

    def test_assignment_of_nothing(self) -> None:
        self.lotto.ActiveConnection = None
        self.assertIsNone(self.lotto.GetMaxDateStorico())

    def test_objects(self) -> None:
        other = Dispatch("vestara.clotto.1")
        self.assertNotEqual(self.lotto, other)
        self.assertEqual(len({self.lotto, other}), 2)
        self.assertIs(Dispatch(self.lotto), self.lotto)
        self.assertEqual(repr(other), "<Vestara.cLotto>")
        self.assertTrue(self.lotto.LoadLottoEstr("89", 1) or False)  # an empty record set is not False
        self.assertIs(type(other), type(self.lotto))
        self.assertIn("LoadLottoEstr", dir(other))
        self.assertIn("sNum", other.LoadLottoEstr.__doc__)
        for copied in (copy.copy, copy.deepcopy, pickle.dumps):
            self.assertRaises(TypeError, copied, other)

    def test_more_arguments_than_frames_are_kept_for(self) -> None:
        self.raises(450, lambda: self.lotto.LoadLottoEstr(*range(30)))

    def test_every_thread_has_its_own_errors(self) -> None:
        found: list[Any] = []

        def work() -> None:
            with connect("sqlite::memory:") as connector:
                connector.CreateSchema()
                lotto = lotto_on(connector)
                found.append(lotto.ContaEstrazioniStorico())
                try:
                    lotto.ActiveConnection
                except RunTimeError as error:
                    found.append(error.number)

        threads = [threading.Thread(target=work) for _ in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(sorted(found), [0] * 8 + [91] * 8)


class Moments(InFolder):
    """A date argument means its day, whatever its fraction."""

    def test_a_draw_is_removed_on_its_own_day(self) -> None:
        days = (date(1871, 1, 7), date(1899, 12, 28), date(1899, 12, 30), date(2026, 1, 2))
        draws = [(1, day + timedelta(days=more), "BA", 1, 2, 3, 4, 5) for day in days for more in (0, 1)]
        for day in days:
            for moment in (time.min, time(12, 30, 0, 1), time(23, 59, 59, 499_999), time.max):
                with self.subTest(day=day, moment=moment):
                    lotto = lotto_on(connector := archive([(n, str(day), *rest) for n, day, *rest in draws]))
                    given = datetime.combine(day, moment)
                    self.assertEqual(lotto.GetEstrazioneDaData(given).NumeroConcorso, 1)
                    self.assertEqual(lotto.ContaEstrazioniStorico(given, given), 1)
                    self.assertEqual(len(lotto.LoadLottoEstr("5", 1, "", given, given)), 1)
                    self.assertTrue(lotto.DelEstrazione(given))
                    rows = connector.GetRecordset("SELECT dtEstr FROM storico ORDER BY id")
                    left = [row.dtEstr.date() for row in rows]
                    self.assertEqual(left, [day_ for _, day_, *_rest in draws if day_ != day])


class Finalizers(InFolder):
    def test_a_circle_that_goes_calls_members_in_any_order(self) -> None:
        said: list[object] = []

        class Farewell:
            def __init__(self, lotto: Any) -> None:
                self.lotto, self.myself = lotto, self

            def __del__(self) -> None:
                try:
                    said.append(self.lotto.ContaSortiteTrovate)
                except RunTimeError as error:
                    said.append(str(error))

        Farewell(Dispatch("Vestara.cLotto"))
        gc.collect()
        self.assertIn(said, ([0], ["the object is null (5)"]))

    def test_the_interpreter_s_end_is_not_a_crash(self) -> None:
        ends = """
            h = Farewell(lotto)
            h = Farewell(lotto); h.myself = h
            h = Farewell(lotto); h.myself = h; del lotto, h
            import builtins; builtins.h = Farewell(lotto)
            lotto.ActiveConnection = Connector(); h = Farewell(lotto); h.myself = h; del lotto
            h = Farewell(lotto); events = WithEvents(lotto, h); h.events = events
            h = Farewell(rows); h.myself = h; del rows
        """
        for end in filter(None, map(str.strip, ends.splitlines())):
            with self.subTest(end=end):
                run = subprocess.run([sys.executable, "-c", FAREWELL + end], capture_output=True, text=True, timeout=100)
                self.assertEqual((run.returncode, run.stderr), (0, ""))


FAREWELL = """
from vestara import Dispatch, WithEvents, connect

class Farewell:
    def __init__(self, held): self.held = held
    def OnLoadingEnd(self): pass
    def __del__(self):
        for member in ("GetMaxDateStorico", "LoadLottoEstr", "EOF", "Fields", "MoveNext"):
            try:
                getattr(self.held, member)()
            except Exception:
                pass

class Connector:
    ConnectionState = 1
    def OpenRecordset(self, rows, sql): return False
    def CloseRecordset(self, rows): pass

archive = connect("sqlite::memory:")
archive.CreateSchema()
lotto = Dispatch("Vestara.cLotto")
lotto.ActiveConnection = archive
rows = archive.GetRecordset("SELECT * FROM storico")
"""


class Connect(InFolder):
    def test_it_changes_nothing(self) -> None:
        path = self.folder / "archive.sqlite"
        with connect(f"sqlite:{path}") as connector:
            connector.CreateSchema()
        before = path.read_bytes()
        with connect(f"sqlite:{path}") as connector:
            self.assertEqual(connector.ConnectionState, 1)
            held = connector
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual(held.ConnectionState, 0)

    def test_a_failure_says_why(self) -> None:
        for url in ("nonsense:x", f"sqlite:{self.folder}/missing.sqlite?mode=ro", f"sqlite:{self.folder}"):
            with self.subTest(url=url):
                error = self.raises(440, lambda: connect(url))
                self.assertTrue(error.description)
                self.assertEqual(error.source, "Dorvane.DbConnector")

    def test_the_block_closes_after_a_failure_too(self) -> None:
        with self.assertRaises(KeyError):
            with connect("sqlite::memory:") as connector:
                raise KeyError
        self.assertEqual(connector.ConnectionState, 0)


class Reuse(InFolder):
    def test_calls_from_inside_a_call_have_memory_of_their_own(self) -> None:
        inner = archive()

        class Asking:
            ConnectionState = 1

            def OpenRecordset(self, rs: ByRef, sql: str) -> bool:
                inner.GetMaxId("storico", "id")
                return bool(inner.OpenRecordset(rs, sql))

            def CloseRecordset(self, rs: ByRef) -> None:
                inner.CloseRecordset(rs)

        lotto = lotto_on(Asking())
        for _ in range(3):
            rows = lotto.LoadLottoEstr("5,12", 2)
            self.assertEqual(len(rows), 2)
        self.assertEqual(len(DRAWS), inner.GetMaxId("storico", "id"))

    def test_frames_come_back(self) -> None:
        connector = archive()

        def free_after(calls: int) -> list[int]:
            for _ in range(calls):
                connector.GetMaxId("storico", "id")
                connector.ConnectionState
            return list(map(len, _calls._free))

        self.assertEqual(free_after(1), free_after(100))
