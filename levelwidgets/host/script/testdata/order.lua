cmdSave.Caption = "&Store"                 -- properties under their own names
assert(cmdSave.BackColor == 0x00CDD9DD)
assert(form.cmdSave == cmdSave)
assert(require "levelwidgets" == lw)

function form_Load() cmdSave.Tag = "loaded" end
function cmdSave_Click() cmdSave.Tag = "clicked" end
cmdSave:on("MouseMove", function(e) cmdSave.ToolTipText = e.X .. ", " .. e.Y end)

local ok, err = pcall(function() cmdSave.Captoin = 900 end)
assert(not ok and err.number == 438 and err.source == "LevelWidgets.FlatButton")
