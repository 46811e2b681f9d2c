' A connector that is a class of the script: it writes the statements down and forwards them.
Class Recorder
  Public Inner
  Public Statements
  Public Given
  Public FailAt
  Private Count

  Public Property Get ConnectionState()
    ConnectionState = 1
  End Property

  Private Function Refused(sql)
    Count = Count + 1
    Statements = Statements & sql & vbLf
    Refused = (Count = FailAt)
  End Function

  Public Function OpenRecordset(ByRef rs, sql)
    OpenRecordset = False
    If Refused(sql) Then Exit Function
    Set rs = New Rows
    rs.Open Inner, sql
    Set Given = rs
    OpenRecordset = True
  End Function

  Public Sub CloseRecordset(ByRef rs)
    Set rs = Nothing
  End Sub

  Public Function ExecuteSql(sql)
    ExecuteSql = False
    If Not Refused(sql) Then ExecuteSql = Inner.ExecuteSql(sql)
  End Function

  Public Function GetMaxId(table, column)
    GetMaxId = Inner.GetMaxId(table, column)
  End Function

  Public Function GetRecordset(sql)
    Set GetRecordset = Inner.GetRecordset(sql)
  End Function

  Public Sub BeginTrans()
    Statements = Statements & "begin" & vbLf
    Inner.BeginTrans
  End Sub
  Public Sub CommitTrans()
    Statements = Statements & "commit" & vbLf
    Inner.CommitTrans
  End Sub
  Public Sub RollbackTrans()
    Inner.RollbackTrans
  End Sub
End Class

' Its record sets, with members of the script's own.
Class Rows
  Private Inner
  Public Sub Open(connector, sql)
    Set Inner = connector.GetRecordset(sql)
  End Sub
  Public Property Get EOF()
    EOF = Inner.EOF
  End Property
  Public Property Get BOF()
    BOF = Inner.BOF
  End Property
  Public Property Get Fields()
    Set Fields = Inner.Fields
  End Property
  Public Property Get RecordCount()
    RecordCount = Inner.RecordCount
  End Property
  Public Sub MoveFirst()
    Inner.MoveFirst
  End Sub
  Public Sub MoveNext()
    Inner.MoveNext
  End Sub
  Public Sub Move(count)
    Inner.Move count
  End Sub
  Public Property Get State()
    State = 1
  End Property
End Class

Function NewRecorder()
  Set NewRecorder = New Recorder
  Set NewRecorder.Inner = SmallArchive()
End Function

Sub T_Answers()
  Dim own, theirs, a, b
  Set own = LottoOn(SmallArchive())
  Set theirs = LottoOn(NewRecorder())
  Set a = own.LoadLottoEstr("5,12,33", 2)
  Set b = theirs.LoadLottoEstr("5,12,33", 2)
  Same "rows", b.RecordCount, a.RecordCount
  Same "Ambi", theirs.Ambi, own.Ambi
  Same "value", b.Fields.Item("dtEstr").Value, a.Fields("dtEstr").Value
  Same "count", theirs.ContaEstrazioniStorico(), own.ContaEstrazioniStorico()
  Same "bound", theirs.GetMaxDateStorico(), "02/01/2026"
End Sub

Sub T_Statements()
  Dim recorder, lotto, rows, text
  Set recorder = NewRecorder()
  Set lotto = LottoOn(recorder)
  recorder.Statements = ""
  text = lotto.GetMaxDateStorico()
  Same "text", recorder.Statements, "SELECT max(dtEstr)as dmax FROM Storico" & vbLf
  Set rows = lotto.LoadLottoEstr("5", 1)
  Same "the very object", rows Is recorder.Given, True
  Dim frequencies
  Set frequencies = CreateObject("Vestara.cFrequenza")
  Set frequencies.ActiveConnection = recorder
  Same "the connector itself", frequencies.ActiveConnection Is recorder, True
  frequencies.LoadRitardi
  Same "a delay", frequencies.GetRitNum(5, 1), CLng(0)
End Sub

Sub T_Refused()
  Dim recorder, lotto, rows
  Set recorder = NewRecorder()
  recorder.FailAt = 2
  Set lotto = LottoOn(recorder)
  Set rows = lotto.LoadLottoEstr("5,12", 2)
  Set rows = lotto.LoadLottoEstr("5,12", 2)
  Same "the next call works", rows.RecordCount, CLng(2)
End Sub

Class Broken
  Public Property Get ConnectionState()
    Err.Raise 1000, "Broken", "no state today"
  End Property
End Class

Sub T_Raises()
  Dim lotto
  Set lotto = CreateObject("Vestara.cLotto")
  On Error Resume Next
  Set lotto.ActiveConnection = New Broken
  Fails "its own number", 1000
  Set lotto.ActiveConnection = CreateObject("Vestara.cEstrazione")
  Fails "not a connector", 13
End Sub

On Error Resume Next
T_Answers : Ended "T_Answers"
T_Statements : Ended "T_Statements"
T_Refused : Ended "T_Refused"
T_Raises : Ended "T_Raises"
