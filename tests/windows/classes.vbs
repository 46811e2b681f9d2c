' Every class by its name, with and without a version.
Sub T_Classes()
  Dim name
  For Each name In Array("Vestara.cLotto", "Vestara.cEstrazione", "Vestara.cStatistiche", "Vestara.cSistemi", _
      "Vestara.cFrequenza", "Vestara.cTabAnalytics", "Vestara.cDistanze", "Vestara.cDistanze2", _
      "Vestara.Study", "Dorvane.DbConnector")
    Same name, IsObject(CreateObject(name)), True
    Same name & ".1", IsObject(CreateObject(name & ".1")), True
  Next
End Sub

Sub T_Failures()
  Dim lotto, x
  Set lotto = CreateObject("vestara.clotto")
  On Error Resume Next
  Set x = CreateObject("Vestara.cNessuno")
  Same "no such class", Err.Number <> 0, True
  Err.Clear
  Set x = lotto.ActiveConnection
  Same "source", Err.Source, "Vestara.cLotto"
  Same "description", Err.Description, "Object variable or With block variable not set"
  Fails "the connector is not handed out", 91
  lotto.Nope
  Fails "no such member", 438
  lotto.DelEstrazione
  Fails "an argument is missing", 449
  lotto.DelEstrazione 1, 2, 3
  Fails "too many arguments", 450
  lotto.DbType = 70000
  Fails "overflow", 6
  lotto.DbType = "many"
  Fails "no number", 13
  lotto.DbType = Null
  Fails "Null", 94
  Set lotto.Statistiche = CreateObject("Vestara.cEstrazione")
  Fails "another class", 13
  lotto.Ambate = 1
  Fails "read-only", 450
End Sub

Sub T_NamedFailureValues()
  Dim lotto, rows
  Set lotto = CreateObject("Vestara.cLotto")
  Same "count", lotto.ContaEstrazioniStorico(), CLng(-1)
  Same "bound", lotto.GetMaxDateStorico(), Empty
  Set rows = lotto.LoadLottoEstr("5", 1)
  Same "rows", rows, Nothing
  Same "import", lotto.UpdateTblStorico(), False
  Same "delete", lotto.DeleteRicerchePersonalizzate(1), False
End Sub

Sub T_Properties()
  Dim lotto, none
  Set lotto = CreateObject("Vestara.cLotto")
  Same "default", lotto.DbType, CInt(2)
  lotto.dbtype = 1
  Same "no case", lotto.DBTYPE, CInt(1)
  lotto.FileUpdate = "C:/storico.txt"
  Same "text", lotto.FileUpdate, "C:/storico.txt"
  lotto.FileUpdate = "caff" & Chr(232) & " " & Chr(128)
  Same "text beyond ASCII", lotto.FileUpdate, "caff" & Chr(232) & " " & Chr(128)
  lotto.StatisticsIsActive = True
  Same "Boolean", lotto.StatisticsIsActive, True
  Set none = lotto.Statistiche
  Same "no object yet", none, Nothing
End Sub

On Error Resume Next
T_Classes : Ended "T_Classes"
T_Failures : Ended "T_Failures"
T_NamedFailureValues : Ended "T_NamedFailureValues"
T_Properties : Ended "T_Properties"
