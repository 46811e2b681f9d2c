' Record sets and collections, as scripts walk them.
Sub T_Walk()
  Dim rows, text
  Set rows = SmallArchive().GetRecordset("SELECT s.ruota,s.estr1,s.dtEstr FROM storico s ORDER BY id")
  Do Until rows.EOF
    text = text & rows.Fields("ruota").Value & rows("ESTR1") & " "
    rows.MoveNext
  Loop
  Same "walked", text, "FI15 MI63 FI5 NA12 BA5 "
  rows.MoveFirst
  rows.Move 2
  Same "moved", rows.Fields.Item(1).Value, CLng(5)
  Same "qualified", rows("s.ruota").Value, "FI"
  Same "date", rows("dtEstr").Value, DateSerial(1871, 1, 14)
  Same "state", rows.State, CLng(1)
  rows.Close
  On Error Resume Next
  text = rows.EOF
  Fails "closed", 3704
End Sub

Sub T_ForEach()
  Dim rows, field, text
  Set rows = SmallArchive().GetRecordset("SELECT concorsoNumero,ruota FROM storico ORDER BY id")
  For Each field In rows.Fields
    text = text & field.Name & "=" & field & ";"
  Next
  Same "fields", text, "concorsoNumero=1;ruota=FI;"
  On Error Resume Next
  text = rows.Fields("nessuna").Value
  Fails "no such field", 3265
  text = rows.Fields(7).Value
  Fails "no such place", 3265
End Sub

Sub T_Collection()
  Dim statistics, lines, line, text
  Set statistics = CreateObject("Vestara.cStatistiche")
  statistics.EstrNumeriString = "1,2,3"
  statistics.EstrCombinazione = 2
  For Each line In statistics.CombinazioniSempliciString()
    text = text & line & ";"
  Next
  Same "items", text, "1,2;1,3;2,3;"
  Set lines = statistics.CombinazioniSempliciString()
  Same "count", lines.Count, CLng(3)
  Same "by place", lines(2), "1,3"
End Sub

Sub T_GetRows()
  Dim rows, all
  Set rows = SmallArchive().GetRecordset("SELECT ruota,estr1 FROM storico ORDER BY id")
  all = rows.GetRows(2)
  Same "fields", CLng(UBound(all, 1)), CLng(1)
  Same "rows", CLng(UBound(all, 2)), CLng(1)
  Same "cell", all(0, 1), "MI"
  Same "cell", all(1, 0), CLng(15)
  Same "behind them", rows("estr1").Value, CLng(5)
End Sub

Sub T_ByReference()
  Dim connector, rows
  Set connector = SmallArchive()
  Same "opened", connector.OpenRecordset(rows, "SELECT count(*) AS n FROM storico"), True
  Same "value", rows("n").Value, CLng(5)
  connector.CloseRecordset rows
  Same "emptied", rows, Nothing
  Same "refused", connector.OpenRecordset(rows, "SELECT nothing FROM nowhere"), False
  Same "why", InStr(connector.LastError, "nowhere") > 0, True
End Sub

On Error Resume Next
T_Walk : Ended "T_Walk"
T_ForEach : Ended "T_ForEach"
T_Collection : Ended "T_Collection"
T_GetRows : Ended "T_GetRows"
T_ByReference : Ended "T_ByReference"
