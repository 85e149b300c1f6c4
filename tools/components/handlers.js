function bar_Change() {
  seen.Caption = seen.Caption + "bar " + bar.Value + ";";
  // Refused: it is greater than the greatest.
  if (bar.Value == 13) bar.Value = 900;
}

function strip_TabChange(previous, selected) {
  seen.Caption = seen.Caption + "strip " + previous + " " + selected + ";";
}

function words_KeyPress(key) {
  seen.Caption = seen.Caption + "key " + key + ";";
}

bar.Value = 5;
strip.TabCount = 3;
strip.SelectedTab = 2;
