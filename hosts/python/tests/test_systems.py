"""Betting systems: number sets, random numbers, combinations, the catalogue."""

from __future__ import annotations

from typing import Any

from vestara import ByRef, Dispatch, Empty

from .support import InFolder, archive


class Systems(InFolder):
    def setUp(self) -> None:
        super().setUp()
        self.systems = Dispatch("Vestara.cSistemi")

    def test_number_sets(self) -> None:
        self.assertEqual(self.systems.SysGemelli2Str(), "11,22,33,44,55,66,77,88")
        self.assertEqual(self.systems.SysCadenze2Str(70), "70,80,90")
        self.assertEqual(self.systems.SysDecine2Str(90), "1,2,3,4,5,6,7,8,9,90")
        self.assertEqual(self.systems.SysDecine2Str(32757), "")
        self.assertIn("cSistemi.SysDecine2Str()", self.log.read_text("cp1252"))
        self.raises(6, lambda: self.systems.SysFigure2Str(40000))

    def test_random_numbers_come_back_in_the_variable(self) -> None:
        for before in ([], Empty, (1, 2, 3), ["a"]):
            with self.subTest(before=before):
                series = ByRef(before)
                self.systems.GetRndNumber(series, 90, 1, 90, False)
                self.assertIs(type(series.value), list if isinstance(before, list) else tuple)
                self.assertEqual(sorted(series.value), list(range(1, 91)))
        self.systems.GetRndNumber(series, 3, 7, 7, True)
        self.assertEqual(list(series.value), [7, 7, 7])
        self.raises(9, lambda: self.systems.GetRndNumber(series, 0, 1, 90, False))
        self.assertEqual(list(series.value), [7, 7, 7])

    def test_sort(self) -> None:
        for given, expected in (
            ([5, 3, 9, 3], [3, 3, 5, 9]),
            (("10", 9, "1"), ["1", 9, "10"]),
            ([7], [7]),
        ):
            numbers = ByRef(given)
            self.systems.ArrNumbersSort(numbers)
            self.assertEqual(list(numbers.value), expected)
        words = ByRef([3, 2, "word", 1])
        self.raises(13, lambda: self.systems.ArrNumbersSort(words))
        self.assertEqual(list(words.value), [2, 3, "word", 1], "what was exchanged before stays")

    def test_combinations(self) -> None:
        count = ByRef(0)
        lines = self.systems.CombinazioniIntegraliString("5,7,9,11", 3, nCombi=count)
        self.assertEqual(lines.split("\r\n"), ["5,7,9", "5,7,11", "5,9,11", "7,9,11"])
        self.assertEqual(count.value, 4)
        self.assertEqual(self.systems.ContaCombinazioniIntegrali(90, 5), 43949268)
        converted = ByRef("")
        self.assertEqual(self.systems.GetSisNumsConvert("1,2\r\n1,3", "10,20,30", converted), ("10,20", "10,30"))
        self.assertEqual(converted.value, "10,20\r\n10,30")

    def test_a_system_is_saved_and_read_back(self) -> None:
        self.systems.ActiveConnection = archive()
        key, lines = ByRef(0), ByRef("  1,2\r\n1,3\r\n")
        self.assertTrue(self.systems.SalvaSistema(key, lines, "l'ambo", "in \\ due", "10,20,30", 3, 20, 40, 2))
        self.assertEqual((key.value, lines.value), (1, "1,2\r\n1,3"))
        found = self.systems.GetSistemiLista(titolo="l'ambo")
        self.assertEqual(self.fields(found, "titolo", "descrizione", "nGiocate"), [("l'ambo", "in \\ due", 40)])
        text = ByRef("")
        stored = self.systems.GetSistemaCombi(1, "10,20,30", text)
        self.assertEqual(text.value, "10,20\r\n10,30")
        self.assertEqual(self.fields(stored, "combinazione"), [("1,2",), ("1,3",)])
        self.assertTrue(self.systems.DelSistemaDetail(1))
        self.assertTrue(self.systems.GetSistemaCombi(1).EOF)
        self.assertTrue(self.systems.DelSistema(1))
        self.assertTrue(self.systems.GetSistemiLista().EOF)
        self.assertFalse(self.log.exists())

    @staticmethod
    def fields(rows: Any, *names: str) -> list[tuple[Any, ...]]:
        result = []
        while not rows.EOF:
            result.append(tuple(rows.Fields(name).Value for name in names))
            rows.MoveNext()
        return result
