Option Explicit
' What every VBScript test begins with: Same compares, Fails demands an error, Run traps what a test does not expect.
Dim Checks, Failures, Folder
Checks = 0
Failures = 0
Folder = Replace(WScript.Arguments(WScript.Arguments.Count - 1), "\", "/")

Function Shown(value)
  If IsObject(value) Then
    If value Is Nothing Then
      Shown = "Nothing"
    Else
      Shown = "an object"
    End If
  ElseIf IsArray(value) Then
    Shown = "an array"
  ElseIf IsNull(value) Then
    Shown = "Null"
  ElseIf IsEmpty(value) Then
    Shown = "Empty"
  Else
    Shown = TypeName(value) & " " & CStr(value)
  End If
End Function

Sub Same(what, found, expected)
  Checks = Checks + 1
  If Shown(found) <> Shown(expected) Then
    Failures = Failures + 1
    WScript.Echo "FAILED " & what & ": " & Shown(found) & ", expected " & Shown(expected)
  End If
End Sub

' Called right after the statement that must fail, under On Error Resume Next.
Sub Fails(what, number)
  Dim found
  found = Err.Number
  Err.Clear
  Same what, CLng(found), CLng(number)
End Sub

Sub Ended(name)
  If Err.Number <> 0 Then
    Failures = Failures + 1
    WScript.Echo "FAILED " & name & " broke off: " & Err.Number & " " & Err.Description
    Err.Clear
  End If
End Sub

Function NewArchive()
  Dim connector
  Set connector = CreateObject("Dorvane.DbConnector")
  Same "open", connector.Open("sqlite::memory:"), True
  Same "schema", connector.CreateSchema(), True
  Set NewArchive = connector
End Function

Function Insert(rows)
  Insert = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES" & rows
End Function

Function SmallArchive()
  Dim connector
  Set connector = NewArchive()
  Same "insert", connector.ExecuteSql(Insert("(1,'1871-01-07','FI',15,71,18,64,81),(1,'1871-01-07','MI',63,69,56,9,55)," & _
    "(2,'1871-01-14','FI',5,12,33,40,41),(2,'1871-01-14','NA',12,5,77,90,1),(1,'2026-01-02','BA',5,6,12,33,8)")), True
  Set SmallArchive = connector
End Function

Function LottoOn(connector)
  Dim lotto
  Set lotto = CreateObject("Vestara.cLotto")
  Set lotto.ActiveConnection = connector
  Set LottoOn = lotto
End Function
