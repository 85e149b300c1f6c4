require("sheet").dress(form)

local changes = 0

local function show()
  lblLive.Caption = scrLive.Value .. ", " .. changes
end

function scrLive_Change()
  changes = changes + 1
  show()
end

lblLive.BackColor, lblLive.BackColorMouseOver = form.BackColor, form.BackColor
lblLive.ForeColorMouseOver, lblLive.MouseUnderline = lblLive.ForeColor, false
show()
