' What a script in VBScript does with the controls: one line for each thing tried, and "end" when it came to its end.
Option Explicit

Sub Check(what, expected, actual)
  If TypeName(expected) = TypeName(actual) Then
    If expected = actual Then
      WScript.Echo "ok " & what
      Exit Sub
    End If
  End If
  WScript.Echo "FAILED " & what & ": expected " & TypeName(expected) & " " & expected & ", is " & TypeName(actual) & " " & actual
End Sub

' After a statement that has to fail.
Sub CheckError(what, number, source, description)
  If Err.Number = number And Err.Source = source And Err.Description = description Then
    WScript.Echo "ok " & what
  Else
    WScript.Echo "FAILED " & what & ": expected " & number & ", " & source & ", " & description & "; is " & _
      Err.Number & ", " & Err.Source & ", " & Err.Description
  End If
  Err.Clear
End Sub

Sub CheckErrorNumber(what, number)
  Check what, CLng(number), Err.Number
  Err.Clear
End Sub

Dim name
For Each name In Array("FlatButton", "FlatLabel", "FlatTabStrip", "FlatScroll", "FlatTextBox", "FlatDropDown", "FlatCalculator", "FlatCalendar", "FlatGrid")
  Check name & " is created by its name", True, IsObject(CreateObject("LevelWidgets." & name))
Next

' --- Properties ---

Dim button, scroll, strip, edit
Set button = CreateObject("LevelWidgets.FlatButton")
Set scroll = CreateObject("LevelWidgets.FlatScroll")
Set strip = CreateObject("LevelWidgets.FlatTabStrip")
Set edit = CreateObject("LevelWidgets.FlatTextBox")

button.Caption = "&Go"
Check "A string is read as it was written", "&Go", button.Caption
BUTTON.cApTiOn = "Other"
Check "Names may be written in any case", "Other", button.CAPTION
button.Enabled = False
Check "A boolean is read as it was written", False, button.Enabled
button.BackColor = RGB(1, 2, 3)
Check "A colour is read as it was written", CLng(&H30201), button.BackColor
button.BackColor = &H8000000F
Check "A system colour is read as it was written", CLng(&H8000000F), button.BackColor
scroll.Value = "42"
Check "A number may be written as text", CLng(42), scroll.Value
scroll.Max = 500.4
Check "A number is rounded to the property's type", CLng(500), scroll.Max
strip.TabWidth = 720.5
Check "A single is a single", CSng(720.5), strip.TabWidth
Check "An integer is an integer", CInt(1), strip.TabCount
edit.Text = "words"
Check "The default member stands for the control", "words!", edit & "!"

' --- Fonts ---

Dim font
Set font = button.Font
font.Name = "Tahoma"
font.Size = 12
font.Bold = True
Check "A font is shared: its name", "Tahoma", button.Font.Name
Check "A font is shared: its size", 12, CInt(button.Font.Size)
Check "A font is shared: its weight", True, button.Font.Bold
Set edit.Font = font
Check "A font is set as an object", True, edit.Font.Bold

' --- Collections, arguments and indices ---

Dim grid, columns, column, captions, row, found, list, item
Set grid = CreateObject("LevelWidgets.FlatGrid")
Set columns = grid.Columns
columns.Add "Article", 1500
columns.Add "Price", 1200, , 1, , True, "0.00", "price"
Set column = columns.Add("Note")
Check "Arguments are left out at the end", CLng(0), column.Width
Check "Arguments are left out in the middle", CLng(0), columns(2).HeaderAlignment
Check "Arguments after a missing one arrive", CLng(1), columns(2).Alignment
Check "The default member takes a position", "Article", grid.Columns(1).Caption
Check "The default member takes a key", "Price", grid.Columns("price").Caption
Check "Item takes a position", "Note", columns.Item(3).Caption
Check "Count", CLng(3), columns.Count
captions = ""
For Each item In grid.Columns
  captions = captions & item.Caption & ","
Next
Check "For Each", "Article,Price,Note,", captions

column.Width = 900
grid.RowCount = 4
grid.RowData(2, 1) = "Bolt"
grid.RowData(2, 2) = 1.5
Check "An indexed property", "Bolt", grid.RowData(2, 1)
Check "A number becomes text", "1.5", grid.RowData(2, 2)
grid.RowHeight = 225
grid.ShowColumnHeaders = False
found = 0
row = grid.HitTest(600, 300, found)
Check "A method returns a value", CLng(2), row
Check "A method fills an argument by reference", 2, CInt(found)
strip.TabCount = 1
strip.TabCaption(1) = "First"
Check "An indexed property with one index", "First", strip.TabCaption(1)

Set list = CreateObject("LevelWidgets.ksxValueList")
list.Add "kg"
list.Add "m"
Set columns(3).ValueList = list
captions = ""
For Each item In grid.Columns(3).ValueList
  captions = captions & item.Description & ","
Next
Check "A list made by the script", "kg,m,", captions
Set grid = Nothing
Check "A collection outlives its control", CLng(3), columns.Count

' --- Values of any type ---

Dim calendar, drop
Set calendar = CreateObject("LevelWidgets.FlatCalendar")
calendar.Value = DateSerial(2024, 5, 31)
Check "A date", DateSerial(2024, 5, 31), calendar.Value
calendar.Value = Null
Check "Null", True, IsNull(calendar.Value)
calendar.Value = ""
Check "An empty string", "", calendar.Value
Set drop = CreateObject("LevelWidgets.FlatDropDown")
drop.AddItem "kg"
name = "m"
drop.AddItem name
drop.ListIndex = 9
Check "An item of a list is not beyond its end", CInt(2), drop.ListIndex

' --- Errors ---

On Error Resume Next
scroll.Value = 900
CheckError "A refused value", -2147220502, "LevelWidgets.FlatScroll", "Invalid Value"
Check "A refused value changes nothing", CLng(42), scroll.Value
strip.SelectedTab = 7
CheckError "A refused tab", -2147220503, "LevelWidgets.FlatTabStrip", "Invalid TabIndex"
strip.TabCount = -1
CheckError "A refused count", -2147220503, "LevelWidgets.FlatTabStrip", "Invalid TabCount"
name = strip.TabCaption(9)
CheckError "A refused index", -2147220503, "LevelWidgets.FlatTabStrip", "Invalid TabIndex"
Set grid = CreateObject("LevelWidgets.FlatGrid")
grid.Columns.Add "A"
grid.RowCount = 2
name = grid.RowData(3, 1)
CheckError "A refused row", -2147220501, "LevelWidgets.FlatGrid", "Invalid Row"
name = grid.RowData(1, 2)
CheckError "A refused column", -2147220500, "LevelWidgets.FlatGrid", "Invalid Column"
grid.RowIndex = 3
CheckError "A refused selection", -2147220500, "LevelWidgets.FlatGrid", "Invalid RowIndex"
grid.RowCount = -1
CheckError "A refused row count", -2147220499, "LevelWidgets.FlatGrid", "Invalid RowCount"
calendar.Value = "no date"
CheckErrorNumber "No date", 13
name = grid.Columns(9).Caption
CheckErrorNumber "No such position", 9
scroll.Value = "many"
CheckErrorNumber "Not a number", 13
scroll.Value = 3000000000
CheckErrorNumber "Too great a number", 6
scroll.Colour = 1
CheckErrorNumber "No such member", 438
name = scroll.Colour
CheckErrorNumber "No such member to read", 438
scroll.hWnd = 1
Check "A read-only property is not written", True, Err.Number <> 0
Err.Clear
grid.Columns.Add
Check "A missing argument", True, Err.Number <> 0
Err.Clear
grid.RowData(1) = "x"
Check "A missing index", True, Err.Number <> 0
Err.Clear
button.Font = 3
Check "A font that is none", True, Err.Number <> 0
Err.Clear
Set grid = CreateObject("LevelWidgets.FlatNothing")
CheckErrorNumber "No such class", 429
WScript.Echo "end"
