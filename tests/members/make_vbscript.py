"""Writes the cases as a VBScript that prints every answer: make_vbscript.py cases.txt update-file"""

from __future__ import annotations

import datetime
import pathlib
import sys
from typing import Any

import cases

COMMON = r'''Option Explicit
Dim Answer

Function Shown(value)
  Dim i, j, width, text
  If IsObject(value) Then
    If value Is Nothing Then
      Shown = "none"
    Else
      Shown = "object"
    End If
  ElseIf IsArray(value) Then
    width = Dimensions(value)
    For i = LBound(value) To UBound(value)
      If i > LBound(value) Then text = text & ";"
      If width = 1 Then
        text = text & Shown(value(i))
      Else
        text = text & "["
        For j = LBound(value, 2) To UBound(value, 2)
          If j > LBound(value, 2) Then text = text & ";"
          text = text & Shown(value(i, j))
        Next
        text = text & "]"
      End If
    Next
    Shown = "[" & text & "]"
  ElseIf IsNull(value) Or IsEmpty(value) Then
    Shown = "none"
  ElseIf VarType(value) = vbBoolean Then
    If value Then
      Shown = "True"
    Else
      Shown = "False"
    End If
  ElseIf VarType(value) = vbDate Then
    Shown = "d " & Year(value) & "-" & Two(Month(value)) & "-" & Two(Day(value)) & " " & Two(Hour(value)) & ":" & _
      Two(Minute(value)) & ":" & Two(Second(value))
  ElseIf VarType(value) = vbString Then
    Shown = "t " & Replace(Replace(Replace(value, "\", "\\"), vbCr, "\r"), vbLf, "\n")
  Else
    Shown = "n " & CStr(CDbl(value))
  End If
End Function

Function Dimensions(value)
  Dim x
  Dimensions = 2
  On Error Resume Next
  x = UBound(value, 2)
  If Err.Number <> 0 Then Dimensions = 1
  Err.Clear
End Function

Function Two(number)
  Two = Right("0" & number, 2)
End Function

' True when the call worked; otherwise its error is the answer.
Function Worked(number, result)
  Dim code
  code = Err.Number
  Err.Clear
  Worked = (code = 0)
  If Worked Then
    WScript.Echo number & " " & Shown(result)
  Else
    WScript.Echo number & " error " & code
  End If
End Function

Sub Variable(number, name, value)
  WScript.Echo number & " " & name & " " & Shown(value)
End Sub

Sub Walk(number, rows)
  Dim i, text, fields
  If rows Is Nothing Then
    WScript.Echo number & " none"
    Exit Sub
  End If
  Do Until rows.EOF
    text = ""
    Set fields = rows.Fields
    For i = 0 To fields.Count - 1
      If i > 0 Then text = text & " "
      text = text & fields.Item(i).Name & "=" & Shown(fields.Item(i).Value)
    Next
    WScript.Echo number & " " & text
    rows.MoveNext
  Loop
End Sub

Sub Items(number, list)
  Dim item, value
  For Each item In list
    value = item
    WScript.Echo number & " " & Shown(value)
  Next
End Sub

On Error Resume Next
'''


class Writer:
    def __init__(self, update_file: str) -> None:
        self.update_file = update_file

    def value(self, argument: Any) -> str:
        if isinstance(argument, cases.Variable):
            return "v_" + argument.name
        if isinstance(argument, cases.Omitted):
            return ""
        if isinstance(argument, cases.FilePath):
            argument = self.update_file
        if isinstance(argument, cases.Unassigned):
            return "Empty"
        if isinstance(argument, str):
            return '"' + argument.replace('"', '""').replace("\r\n", '" & vbCrLf & "') + '"'
        if isinstance(argument, datetime.date):
            return f"DateSerial({argument.year}, {argument.month}, {argument.day})"
        if isinstance(argument, list):
            return f"Array({', '.join(map(self.value, argument))})"
        return str(argument)

    def called(self, step: cases.Step) -> str:
        arguments = ", ".join(map(self.value, step.arguments))
        return f"v_{step.object}.{step.member}" + (f"({arguments})" if arguments else "")

    def lines(self, number: int, step: cases.Step) -> list[str]:
        if step.kind == "new":
            return [f'Set v_{step.target} = CreateObject("{step.member}")']
        if step.kind == "assign":
            return [f"v_{step.target} = {self.value(step.arguments[0])}"]
        if step.kind in ("walk", "items"):
            return [f"{step.kind.capitalize()} {number}, v_{step.object}"]
        if step.kind in ("let", "set"):
            word = "Set " if step.kind == "set" else ""
            return [f"{word}v_{step.object}.{step.member} = {self.value(step.arguments[0])}",
                    f"Worked {number}, Empty"]
        result = f"v_{step.target}" if step.target else "Answer"
        before = [] if step.target else ["Answer = Empty"]
        word = "Set " if step.of_object else ""
        call = f"{word}{result} = {self.called(step)}"
        if not step.compared:
            return [*before, call, "Err.Clear"]
        shown = [f'  Variable {number}, "{argument.name}", v_{argument.name}' for argument in step.arguments
                 if isinstance(argument, cases.Variable)]
        return [*before, call, f"If Worked({number}, {result}) Then", *shown, "End If"]


def main() -> int:
    steps = cases.steps(pathlib.Path(sys.argv[1]))
    writer = Writer(sys.argv[2])
    print(COMMON)
    for name in sorted({step.target for step in steps if step.target}):
        print(f"Dim v_{name}")
    for number, step in enumerate(steps, 1):
        print("\n".join(writer.lines(number, step)))
    print('WScript.Echo "all cases done"')
    return 0


if __name__ == "__main__":
    sys.exit(main())
