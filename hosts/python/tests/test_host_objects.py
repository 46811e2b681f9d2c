"""Python objects that the library calls."""

from __future__ import annotations

import gc
import io
import sys
import threading
import weakref
from contextlib import redirect_stderr
from typing import Any

from vestara import ByRef, Dispatch, Missing, RunTimeError
from vestara import _abi, _host_members, _host_objects
from vestara._values import write

from .support import InFolder, PythonRecordset, RecordingConnector, archive, lotto_on, update_file

class Connector(InFolder):
    def test_answers_agree_with_the_library_s_own_connector(self) -> None:
        python, own = lotto_on(RecordingConnector()), lotto_on(archive())
        for arguments in (("5,12", 2), ("5,12,33", 3, "FI,BA"), ("89", 1), ("", 0), ("5", 1, "", "1900-01-01")):
            with self.subTest(arguments=arguments):
                theirs, ours = python.LoadLottoEstr(*arguments), own.LoadLottoEstr(*arguments)
                self.assertIsInstance(theirs, PythonRecordset)
                self.assertEqual(walked(theirs), [(row.dtEstr.date(), row.concorsoNumero) for row in ours])
                for counter in ("Ambate", "Ambi", "Terni", "Quaterne", "Cinquine", "ContaSortiteTrovate"):
                    self.assertEqual(getattr(python, counter), getattr(own, counter))
        self.assertEqual(python.ContaEstrazioniStorico(), own.ContaEstrazioniStorico())
        self.assertEqual(python.GetMaxDateStorico(), "02/01/2026")
        self.assertEqual(python.GetMinDateStorico(), "07/01/1871")

    def test_statements_arrive_as_text(self) -> None:
        connector = RecordingConnector()
        lotto = lotto_on(connector)
        lotto.GetMaxDateStorico()
        self.assertEqual(connector.statements[-1], "SELECT max(dtEstr)as dmax FROM Storico")

    def test_the_largest_key_is_asked_for_by_table_and_column(self) -> None:
        class Asked(RecordingConnector):
            asked: list[tuple[str, str]] = []

            def GetMaxId(self, table: str, column: str) -> int:
                self.asked.append((table, column))
                return 7

        connector = Asked()
        lotto_on(connector).SaveRicerchePersonalizzate(0, "mine", "1,2", 1, "BA")
        self.assertEqual(connector.asked, [("tRicerche", "idRicerca")])
        self.assertIn(" VALUES (8,'mine',", connector.statements[-1])

    def test_record_sets_come_back_as_themselves(self) -> None:
        connector = RecordingConnector()
        rows = lotto_on(connector).LoadLottoEstr("5", 1)
        self.assertIs(rows, connector.held[-1])
        self.assertEqual(len(connector.held), 1)  # what the library opened for itself is closed

    def test_every_refused_statement(self) -> None:
        whole = RecordingConnector()
        lotto_on(whole).LoadLottoEstr("5,12", 2)
        for fail in range(2, len(whole.statements) + 1):
            with self.subTest(fail=fail):
                connector = RecordingConnector(fail=fail)
                lotto = lotto_on(connector)
                lotto.LoadLottoEstr("5,12", 2)
                self.assertLessEqual(len(connector.held), 1)
                self.assertEqual(len(walked(lotto.LoadLottoEstr("5,12", 2))), 2)
                self.assertEqual(lotto.ContaSortiteTrovate, 3)

    def test_a_refused_insert_ends_the_import(self) -> None:
        draws = [(1, f"{day:02}/01/1900", "BA", 1, 2, 3, 4, 5) for day in range(1, 6)]
        for fail, inserted in ((0, 5), (3, 0), (5, 2)):
            connector = RecordingConnector(fail=fail)
            lotto = lotto_on(connector)
            lotto.DbType = 1
            lotto.FileUpdate = update_file(self.folder, draws)
            self.assertIs(lotto.UpdateTblStorico(), fail == 0)
            self.assertEqual(connector.GetMaxId("storico", "id"), inserted)

    def test_exceptions_become_entries_of_the_log(self) -> None:
        for error, number, description in (
            (RunTimeError(53, "File not found", "here"), 53, "File not found"),
            (ValueError("no good"), 440, "ValueError: no good"),
            (RunTimeError(0, "no number"), 440, "no number"),
        ):
            connector = RecordingConnector()
            lotto = lotto_on(connector)

            def fail(rs: Any, sql: str, error: Exception = error) -> bool:
                raise error

            connector.OpenRecordset = fail  # type: ignore[method-assign]
            with redirect_stderr(io.StringIO()) as printed:
                self.assertIsNone(lotto.GetMaxDateStorico())
            self.assertEqual(printed.getvalue(), "")
            entry = self.log.read_text(encoding="cp1252")
            self.assertIn(description, entry)
            self.assertIn(str(number), entry)

    def test_exceptions_reach_a_caller_that_traps_nothing(self) -> None:
        class Shut:
            @property
            def ConnectionState(self) -> int:
                raise ValueError("shut")

        error = self.raises(440, lambda: lotto_on(Shut()))
        self.assertEqual(error.description, "ValueError: shut")

    def test_a_connector_that_asks_its_caller_again_ends_in_an_error(self) -> None:
        class Circling(RecordingConnector):
            depth = deepest = 0
            raised: list[RunTimeError] = []

            def OpenRecordset(self, rs: Any, sql: str) -> bool:
                self.depth += 1
                self.deepest = max(self.deepest, self.depth)
                try:
                    lotto.GetMaxDateStorico()
                except RunTimeError as error:
                    self.raised.append(error)
                    raise
                finally:
                    self.depth -= 1
                return False

        def ask() -> None:
            connector.deepest = 0
            for _ in range(2):
                self.assertIsNone(lotto.GetMaxDateStorico())
                self.assertEqual([error.number for error in connector.raised], [28])
                self.assertIn("Out of stack space", connector.raised.pop().description)
            self.assertIn(connector.deepest, range(15, 65))
            done.append(True)

        connector = Circling()
        lotto = lotto_on(archive())
        lotto.ActiveConnection = connector
        done: list[bool] = []
        connector.raised.clear()
        ask()
        thread = threading.Thread(target=ask)
        thread.start()
        thread.join()
        self.assertEqual(done, [True, True])

    def test_names_have_no_case(self) -> None:
        class Lower:
            def __init__(self, inner: RecordingConnector) -> None:
                self.inner = inner

            def connectionstate(self) -> int:
                return 1

            def openrecordset(self, rs: Any, sql: str) -> bool:
                return self.inner.OpenRecordset(rs, sql)

            def CLOSERECORDSET(self, rs: Any) -> None:
                self.inner.CloseRecordset(rs)

        self.assertEqual(lotto_on(Lower(RecordingConnector())).GetMaxDateStorico(), "02/01/2026")

    def test_members_that_are_made_up(self) -> None:
        class Forwarding:
            def __init__(self, inner: Any) -> None:
                self._inner = inner

            def __getattr__(self, name: str) -> Any:
                return getattr(self._inner, name)

        self.assertEqual(lotto_on(Forwarding(RecordingConnector())).GetMaxDateStorico(), "02/01/2026")
        self.assertEqual(lotto_on(Forwarding(archive())).GetMaxDateStorico(), "02/01/2026")


class Lifetime(InFolder):
    def test_objects_live_as_long_as_the_library_holds_them(self) -> None:
        before = len(_host_objects._live)
        connector = RecordingConnector()
        lotto = lotto_on(connector)
        gone = weakref.ref(connector)
        del connector
        gc.collect()
        self.assertIsNotNone(gone())
        self.assertEqual(len(_host_objects._live), before + 1)
        lotto.LoadLottoEstr("5", 1)
        self.assertEqual(len(_host_objects._live), before + 1)
        del lotto
        self.assertIsNone(gone())
        self.assertEqual(len(_host_objects._live), before)

    def test_an_argument_is_let_go_after_the_call(self) -> None:
        class Thing:
            pass

        thing = Thing()
        self.raises(438, lambda: setattr(Dispatch("Vestara.cLotto"), "DbType", thing))
        gone = weakref.ref(thing)
        del thing
        gc.collect()
        self.assertIsNone(gone())

    def test_references_do_not_grow(self) -> None:
        lotto, connector = lotto_on(archive()), RecordingConnector()
        lotto.ActiveConnection = connector
        lotto.LoadLottoEstr("5", 1)
        before = sys.getrefcount(connector)
        for _ in range(50):
            lotto.LoadLottoEstr("5", 1)
        self.assertEqual(sys.getrefcount(connector), before)


class Members(InFolder):
    def test_kinds_of_members(self) -> None:
        class Host:
            plain = 5
            Fields = {"a": "first"}

            def __init__(self) -> None:
                self.own = "own"

            @property
            def computed(self) -> str:
                return "computed"

            def method(self, a: Any = "default", b: Any = "second") -> tuple[Any, Any]:
                return a, b

            def handed(self, plain: Any, back: ByRef) -> str:
                back.value = plain + "!"
                return "done"

        host = Host()
        for name, kind, arguments, named, expected in (
            ("PLAIN", _abi.GET, [], (), 5),
            ("Own", _abi.GET, [], (), "own"),
            ("Computed", _abi.GET, [], (), "computed"),
            ("Method", _abi.GET, [], (), ("default", "second")),
            ("Method", _abi.METHOD, [1, Missing], (), (1, "second")),
            ("Method", _abi.METHOD, [1, 2], ("b", "a"), (2, 1)),
            ("Method", _abi.METHOD, [1, 2], ("b",), (1, 2)),
            ("Fields", _abi.GET, ["a"], (), "first"),
        ):
            with self.subTest(name=name, arguments=arguments):
                member = _host_members.id_of(host, name)
                assert member is not None
                self.assertEqual(_host_members.call(host, member, kind, arguments, named), expected)
        self.assertIsNone(_host_members.id_of(host, "nope"))

        arguments = ["text", None]
        handed = _host_members.id_of(host, "handed")
        assert handed is not None
        self.assertEqual(_host_members.call(host, handed, _abi.METHOD, arguments, ()), "done")
        self.assertEqual(arguments[1].value, "text!")

        own = _host_members.id_of(host, "OWN")
        assert own is not None
        _host_members.call(host, own, _abi.PUT, ["new"], ())
        self.assertEqual(host.own, "new")
        self.raises(450, lambda: _host_members.call(host, own, _abi.PUT, [1, 2], ()))

    def test_collections_stand_in_for_item_and_count(self) -> None:
        host = {"a": 1}
        for name, arguments, expected in (("Item", ["a"], 1), ("Count", [], 1)):
            member = _host_members.id_of(host, name)
            assert member is not None
            self.assertEqual(_host_members.call(host, member, _abi.GET, arguments, ()), expected)

    def test_the_default_member(self) -> None:
        class Valued:
            Value = 7

        class Itemised:
            def Item(self, key: str) -> str:
                return key * 2

        self.assertEqual(_host_members.call(Valued(), 0, _abi.GET, [], ()), 7)
        self.assertEqual(_host_members.call(Itemised(), 0, _abi.GET, ["x"], ()), "xx")
        self.raises(438, lambda: _host_members.call(object(), 0, _abi.GET, [], ()))

    def test_an_object_stands_for_its_value(self) -> None:
        class Two:
            Value = 2

        lotto = lotto_on(archive())
        lotto.LoadLottoEstr("5,12", Two())
        self.assertEqual(lotto.ContaSortiteTrovate, 3)

    def test_arguments_handed_back_are_those_of_the_library_s_connector(self) -> None:
        rows = type(Dispatch("Dorvane.DbConnector"))._description.rows
        handed_back = {
            row["name"].lower(): tuple(i for i, parameter in enumerate(row["parameters"]) if parameter["writes_back"])
            for row in rows
        }
        self.assertEqual({name: places for name, places in handed_back.items() if places}, _host_members.HANDED_BACK)

    def test_bytes_are_no_result(self) -> None:
        class Bytes:
            ConnectionState = b"1"

        self.assertIn("TypeError", self.raises(440, lambda: lotto_on(Bytes())).description)

    def test_what_has_no_state_is_no_connector(self) -> None:
        class Stranger:
            def OpenRecordset(self, rs: Any, sql: str) -> bool:
                return False

        self.raises(13, lambda: lotto_on(Stranger()))

    def test_a_value_that_failed_leaves_nothing_behind(self) -> None:
        before = len(_host_objects._live)
        self.assertRaises(TypeError, Dispatch("Vestara.cLotto").LoadLottoEstr, object(), b"")
        self.assertEqual(len(_host_objects._live), before)
        value = _abi.Value()
        write(value, object())
        _abi.clear(_abi.reference(value))
        self.assertEqual(len(_host_objects._live), before)


def walked(rows: Any) -> list[tuple[Any, Any]]:
    """The rows as a script reads them."""
    found = []
    rows.MoveFirst()
    while not rows.EOF:
        found.append((rows.Fields.Item("dtEstr").Value, rows.Fields.Item("concorsoNumero").Value))
        rows.MoveNext()
    return found

