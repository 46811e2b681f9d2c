"""A script as hosts write it: import a file, watch it, search, count, walk.

    python hosts_script.py ARCHIVE UPDATE_FILE
"""

import sys

from vestara import Dispatch, WithEvents


class Watcher:
    def OnLoadingStart(self):
        print("start")

    def OnLoadingProgress(self, recPos, recCount):
        print("progress", recPos, recCount)

    def OnLoadingEnd(self):
        print("end")


connector = Dispatch("Dorvane.DbConnector")
if not connector.Open(sys.argv[1]) or not connector.CreateSchema():
    sys.exit(connector.LastError)

lotto = Dispatch("Vestara.cLotto")
lotto.ActiveConnection = connector
events = WithEvents(lotto, Watcher)

lotto.DbType = 1
lotto.FileUpdate = sys.argv[2]
connector.BeginTrans()
imported = lotto.UpdateTblStorico()
connector.CommitTrans() if imported else connector.RollbackTrans()
print("imported", imported)
print("draws", lotto.ContaEstrazioniStorico(), "from", lotto.GetMinDateStorico(), "to", lotto.GetMaxDateStorico())

rs = lotto.LoadLottoEstr("5,12,33", 2, bSortASC=True)
print("rows", rs.RecordCount, "hits", lotto.ContaSortiteTrovate, "ambi", lotto.Ambi, "terni", lotto.Terni)
while not rs.EOF:
    day = rs.Fields("dtEstr").Value
    print("%04d-%02d-%02d" % (day.year, day.month, day.day), rs.Fields("concorsoNumero").Value)
    rs.MoveNext()
rs.Close()

lotto.LoadLottoEstr("5", 1, "RM")
print("on RM", lotto.ContaSortiteTrovate, lotto.Ambate)
connector.Close()
