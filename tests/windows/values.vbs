' Values of every type that scripts have, through a property that keeps what it is given.
Sub T_Kinds()
  Dim statistics, value
  Set statistics = CreateObject("Vestara.cStatistiche")
  For Each value In Array(True, CByte(200), CInt(-7), CLng(70000), CSng(1.5), CDbl(0.1), "text", "", Null, _
      DateSerial(1871, 1, 7), DateSerial(1899, 12, 29) + TimeSerial(6, 0, 0))
    statistics.DataDa = value
    If VarType(value) = 17 Then value = CInt(value)
    Same "kept", statistics.DataDa, value
  Next
  statistics.DataDa = CCur(1.25)
  Same "currency", statistics.DataDa, CDbl(1.25)
End Sub

Sub T_Rounding()
  Dim statistics
  Set statistics = CreateObject("Vestara.cStatistiche")
  statistics.EstrAmbi = 2.5
  Same "halves to even", statistics.EstrAmbi, CLng(2)
  statistics.EstrAmbi = "3.5"
  Same "from text", statistics.EstrAmbi, CLng(4)
  statistics.EstrAmbi = True
  Same "from a Boolean", statistics.EstrAmbi, CLng(-1)
End Sub

Sub T_Arrays()
  Dim distances, numbers, nested(2)
  Set distances = CreateObject("Vestara.cDistanze2")
  numbers = Array(2, 4, 4, 4, 5, 5, 7, 9)
  Same "of values", distances.StandardDeviation(numbers, False), CDbl(2)
  nested(0) = 1 : nested(1) = 2 : nested(2) = "3"
  Same "declared", distances.StandardDeviation(nested), CDbl(1)
End Sub

Sub T_Identity()
  Dim connector, frequencies, distances
  Set connector = SmallArchive()
  Set frequencies = CreateObject("Vestara.cFrequenza")
  Set frequencies.ActiveConnection = connector
  Same "the connector itself", frequencies.ActiveConnection Is connector, True
  Set frequencies.ActiveConnection = Nothing
  Same "nothing", frequencies.ActiveConnection, Nothing
End Sub

On Error Resume Next
T_Kinds : Ended "T_Kinds"
T_Rounding : Ended "T_Rounding"
T_Arrays : Ended "T_Arrays"
T_Identity : Ended "T_Identity"
