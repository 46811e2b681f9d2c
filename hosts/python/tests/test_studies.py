"""Gaps between hits and the statistics of a search."""

from __future__ import annotations

from datetime import date

from vestara import ByRef, Dispatch, Empty

from .support import InFolder, archive, lotto_on


class Studies(InFolder):
    def test_gaps(self) -> None:
        gaps = Dispatch("Vestara.cDistanze")
        gaps.ActiveConnection = archive()
        everything = ByRef(False)
        gaps.LoadDistanze("5,12", 2, bTutteLeEstrazioni=everything, bSortASC=True)
        self.assertEqual((gaps.ISSortASC, gaps.ItemCount, everything.value), (True, 3, False))
        items = [(gaps.Distance(i), gaps.Ruota(i), gaps.DateDiff(i)) for i in (1, 2, 3)]
        days = (date(2026, 1, 2) - date(1871, 1, 14)).days
        self.assertEqual(items, [(1, "FI", "##"), (0, "NA", 0), (0, "BA", days)])
        self.assertEqual((gaps.DatePrec(1), gaps.DatePrec(3)), ("########", "14/01/1871"))
        self.assertEqual(gaps.DateLast(3).date(), date(2026, 1, 2))
        self.assertEqual((gaps.GetMaxDistance, gaps.GetMaxDistanceDays), (1, days))
        self.raises(9, lambda: gaps.Distance(4))
        for given, expected in ((5, True), (1, True), ("True", True), (0, False), (Empty, False), (False, False)):
            direction = ByRef(given)
            gaps.LoadDistanze("5", 1, bSortASC=direction)
            self.assertIs(direction.value, expected)
        gaps.LoadDistanze("", 2, bTutteLeEstrazioni=everything)
        self.assertEqual((everything.value, gaps.ItemCount, gaps.Distance(1)), (True, 1, 3))

    def test_statistics_of_its_own(self) -> None:
        statistics = Dispatch("Vestara.cStatistiche")
        statistics.EstrNumeriString = "5,12,33"
        statistics.EstrCombinazione = 2
        self.assertEqual(statistics.EstrNumeriGiocatiQta, 3)
        pairs = statistics.CombinazioniSempliciString()
        self.assertEqual([pairs.Item(i) for i in range(1, pairs.Count + 1)], ["5,12", "5,33", "12,33"])
        self.assertEqual(statistics.CalcolaCombSemplici(90, 5), 43949268)
        self.assertAlmostEqual(statistics.CalcolaPercTeorica(1, 1, 1), 100 / 18, places=12)
        self.assertEqual(statistics.Distanze.ItemCount, 0)

    def test_statistics_of_a_search(self) -> None:
        connector = archive()
        lotto = lotto_on(connector)
        self.assertIsNone(lotto.Statistiche)
        lotto.StatisticsIsActive = True
        lotto.LoadLottoEstr("5,12", 2)
        statistics = lotto.Statistiche
        self.assertEqual((statistics.EstrContaSortiteTrovate, statistics.EstrAmbi), (3, 3))
        self.assertEqual(statistics.EstrContaTutteLeEstrazioniNelleDate, 3)
        self.assertAlmostEqual(statistics.EstrCalcolaPercEffettiva(), 200 / 3)
        self.assertEqual((statistics.Distanze.ItemCount, statistics.Distanze.ISSortASC), (4, False))
