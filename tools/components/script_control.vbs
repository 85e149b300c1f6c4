' Scripts that the script control runs, with the controls as names of theirs.
Option Explicit

Sub Check(what, expected, actual)
  If expected = actual Then
    WScript.Echo "ok " & what
  Else
    WScript.Echo "FAILED " & what & ": expected " & expected & ", is " & actual
  End If
End Sub

Dim engine, language, scroll, grid
For Each language In Array("VBScript", "JScript")
  Set scroll = CreateObject("LevelWidgets.FlatScroll")
  Set grid = CreateObject("LevelWidgets.FlatGrid")
  grid.Columns.Add "Article"
  grid.RowCount = 2

  Set engine = CreateObject("MSScriptControl.ScriptControl")
  engine.Language = language
  engine.AddObject "bar", scroll
  engine.AddObject "lines", grid
  If language = "VBScript" Then
    engine.AddCode "Function Half(total) : bar.Value = total / 2 : Half = bar.Value : End Function"
    engine.AddCode "Sub Fill(text) : lines.RowData(1, 1) = text : End Sub"
  Else
    engine.AddCode "function Half(total) { bar.Value = total / 2; return bar.Value; }"
    engine.AddCode "function Fill(text) { lines.RowData(1, 1) = text; }"
  End If
  Check language & " evaluates a property", 100, engine.Eval("bar.Max")
  Check language & " runs a function", 40, engine.Run("Half", 80)
  Check language & " has changed the control", 40, scroll.Value
  engine.Run "Fill", "Bolt"
  Check language & " writes an indexed property", "Bolt", grid.RowData(1, 1)

  On Error Resume Next
  engine.Run "Half", 1800
  Check language & " fails with the control's number", -2147220502, engine.Error.Number
  Check language & " fails with the control's description", "Invalid Value", engine.Error.Description
  Check language & " has the control's source", "LevelWidgets.FlatScroll", engine.Error.Source
  Err.Clear
  On Error Goto 0
  Check language & " has not changed the control", 40, scroll.Value
Next
WScript.Echo "end"
