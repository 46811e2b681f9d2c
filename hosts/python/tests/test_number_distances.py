"""Distances between the appearances of numbers and pairs."""

from __future__ import annotations

from typing import Any

from vestara import ByRef, Dispatch, Missing

from .support import InFolder, RecordingConnector, archive

DRAWS = (
    (1, "2026-01-02", "BA", 1, 2, 3, 4, 5),
    (1, "2026-01-02", "NA", 1, 6, 7, 8, 9),
    (2, "2026-01-06", "BA", 10, 11, 12, 13, 14),
    (3, "2026-01-09", "BA", 2, 1, 15, 16, 17),
    (4, "2026-01-13", "BA", 1, 18, 19, 20, 21),
)


def distances_on(connector: Any) -> Any:
    distances = Dispatch("Vestara.cDistanze2")
    distances.ActiveConnection = connector
    return distances


class NumberDistances(InFolder):
    def test_lists_are_sequences(self) -> None:
        distances = distances_on(archive(DRAWS))
        self.assertIs(distances.LoadDistanze1("BA", bSortASC=True), True)
        self.assertIs(distances.LoadDistanze1Tutte(Missing, None, bSortASC=True), True)
        self.assertIs(distances.LoadDistanze2Ambi("BA,NA"), True)
        self.assertIs(distances.LoadDistanze2AmbiTutte(dtDa="2026-01-06"), True)
        for found, expected in (
            (distances.GetDistanzeSingleNumber(1, 1), (0, 2, 1)),
            (distances.GetDistanzeSingleNumber(1, -1), (1, 0, 2, 1)),
            (distances.GetDistanzeAmbi(1, 2, ruotaEnum=1), (1, 2)),
            (distances.GetDistanzeAmbi(1, 2, -1), (2,)),
            (distances.GetDistanzeAmbi(2, 1, 1), ()),
            (distances.GetDistanzeSingleNumber(1), ()),
        ):
            self.assertEqual(found, expected)
            self.assertIs(type(found), tuple)
        self.assertEqual(distances.ItemCount(1, 1), 3)
        self.raises(9, lambda: distances.ItemCount(1, 12))

    def test_means_write_back(self) -> None:
        distances = distances_on(archive(DRAWS))
        distances.LoadDistanze1("")
        least, most = ByRef(0.0), ByRef(0)
        self.assertEqual(distances.GetDistanzeAVG1(1, "ba", least, most), 1.5)
        self.assertEqual((least.value, most.value), (1.0, 2.0))
        self.assertEqual(distances.GetDistanzeAVG1(90, 1, least, most), -1.0)
        self.assertEqual(distances.GetDistanzeAVG1(5, 1, valMax=most), 0.0)
        self.assertEqual((least.value, most.value), (1.0, 2.0))
        self.assertIn("cDistance2.GetDistanzeAVG1()", self.log.read_text(encoding="cp1252"))

    def test_deviation(self) -> None:
        distances = distances_on(archive(DRAWS))
        self.assertEqual(distances.StandardDeviation([2, 4], False), 1.0)
        self.assertEqual(distances.StandardDeviation((7, 7, 7)), 0.1)
        distances.LoadDistanze1("")
        self.assertEqual(distances.StandardDeviation(distances.GetDistanzeSingleNumber(1, 1)), 1.0)

    def test_a_connector_in_python(self) -> None:
        connector = RecordingConnector(DRAWS)
        distances = distances_on(connector)
        self.assertTrue(distances.LoadDistanze1Tutte(bEscludiRN=True))
        self.assertEqual(distances.GetDistanzeSingleNumber(1, -1), (1, 1, 2, 0))
        self.assertEqual((len(connector.statements), connector.held), (2, []))
        with self.assertRaises(AttributeError):
            distances.Nope
        self.raises(450, lambda: distances.ActiveConnection)
