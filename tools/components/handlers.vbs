Sub bar_Change
  seen.Caption = seen.Caption & "bar " & bar.Value & ";"
  ' Refused: it is greater than the greatest.
  If bar.Value = 13 Then bar.Value = 900
End Sub

Sub strip_TabChange(previous, selected)
  seen.Caption = seen.Caption & "strip " & previous & " " & selected & ";"
End Sub

Sub words_KeyPress(key)
  seen.Caption = seen.Caption & "key " & key & ";"
  key = key - 32
End Sub

bar.Value = 5
strip.TabCount = 3
strip.SelectedTab = 2
