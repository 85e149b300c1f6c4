local count = 0
function cmdSave_Click()
  count = count + 1
  cmdSave.Caption = "Saved " .. count
end
