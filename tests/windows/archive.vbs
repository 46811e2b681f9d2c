' An archive from a file, and questions to it.
Sub T_Import()
  Dim files, file, path, connector, lotto
  path = Folder & "/storico.txt"
  Set files = CreateObject("Scripting.FileSystemObject")
  Set file = files.CreateTextFile(path, True)
  file.Write "#1#07/01/1871#FI#15#71#18#64#81*#1#07/01/1871#MI#63#69#56#9#55*#2#14/01/1871#FI#5#12#33#40#41"
  file.Close
  Set connector = NewArchive()
  Set lotto = LottoOn(connector)
  lotto.DbType = 1
  lotto.FileUpdate = path
  Same "import", lotto.UpdateTblStorico(), True
  Same "draws", lotto.ContaEstrazioniStorico(), CLng(2)
  Same "newest", lotto.GetMaxDateStorico(), "14/01/1871"
  Same "oldest", lotto.GetMinDateStorico, "07/01/1871"
  files.DeleteFile path
End Sub

Sub T_Search()
  Dim lotto, rows, all
  Set lotto = LottoOn(SmallArchive())
  lotto.StatisticsIsActive = True
  Set rows = lotto.LoadLottoEstr("5,12,33", 2)
  Same "draws", rows.RecordCount, CLng(2)
  Same "Ambi", lotto.Ambi, CLng(7)
  Same "Terni", lotto.Terni, CLng(2)
  Same "rows", lotto.ContaSortiteTrovate, CLng(3)
  Same "statistics", lotto.Statistiche.EstrNumeriString, "5,12,33"
  Same "the same object", lotto.Statistiche Is lotto.Statistiche, True
  Set rows = lotto.LoadLottoEstr("5,12", 2, "FI", "01/01/1871", "31/12/1871")
  Same "one wheel", rows.RecordCount, CLng(1)
  Set rows = lotto.LoadLottoEstr("5,12", 2, , DateSerial(1900, 1, 1))
  Same "from a date", rows.RecordCount, CLng(1)
  all = False
  Set rows = lotto.LoadLottoEstr("", , , , , all)
  Same "written back", all, True
  Same "all draws", rows.RecordCount, CLng(3)
  all = False
  Set rows = lotto.LoadLottoEstr("5", 1, , , , all)
  Same "left alone", all, False
  Same "on one wheel", lotto.ContaEstrazioniStorico(, , 3), CLng(2)
  Same "in a range", lotto.ContaEstrazioniStorico("01/01/1871", "10/01/1871"), CLng(1)
End Sub

Sub T_WriteBack()
  Dim systems, count, text, numbers, sorted
  Set systems = CreateObject("Vestara.cSistemi")
  count = 0
  text = systems.CombinazioniIntegraliString("1,2,3,4", 2, count)
  Same "combinations", count, CLng(6)
  Same "text", Left(text, 5), "1,2" & vbCrLf
  systems.GetRndNumber numbers, 5, 1, 90, False
  Same "array", IsArray(numbers), True
  Same "bounds", UBound(numbers) - LBound(numbers), CLng(4)
  sorted = Array(33, 5, 12)
  systems.ArrNumbersSort sorted
  Same "sorted", sorted(0) & " " & sorted(1) & " " & sorted(2), "5 12 33"
End Sub

Sub T_Draws()
  Dim lotto, draw, back
  Set lotto = LottoOn(NewArchive())
  Set draw = CreateObject("Vestara.cEstrazione")
  draw.DataEstrazione = DateSerial(2026, 1, 3)
  draw.NumeroConcorso = 2
  Dim wheel, place
  For wheel = 1 To 11
    For place = 2 To 6
      draw.AddNumero wheel, place, CStr(wheel + place * 10)
    Next
  Next
  Same "numbers", draw.GetNumeri(1), "21,31,41,51,61"
  Same "store", lotto.SalvaEstrazione(draw), True
  Set back = lotto.GetEstrazioneDaData("03/01/2026")
  Same "read", back.GetNumeri(11), "31,41,51,61,71"
  Same "none", lotto.GetEstrazioneDaData("04/01/2026"), Nothing
  Same "remove", lotto.DelEstrazione("03/01/2026"), True
  Same "gone", lotto.ContaEstrazioniStorico(), CLng(0)
End Sub

Sub T_SavedSearches()
  Dim lotto, description, numbers, wheels, rows
  Set lotto = LottoOn(NewArchive())
  description = "l'ambo"
  numbers = "5,12"
  wheels = "BA"
  Same "save", lotto.SaveRicerchePersonalizzate(0, description, numbers, 2, wheels), True
  Same "escaped", description, "l''ambo"
  Set rows = lotto.GetRicerchePersonalizzate(-1)
  Same "read", rows.Fields("descRicerca").Value, "l'ambo"
  Same "no date", rows("dtDa").Value, Null
End Sub

On Error Resume Next
T_Import : Ended "T_Import"
T_Search : Ended "T_Search"
T_WriteBack : Ended "T_WriteBack"
T_Draws : Ended "T_Draws"
T_SavedSearches : Ended "T_SavedSearches"
