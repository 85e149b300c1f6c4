local lw = require "levelwidgets"
local sheet = require("sheet")
sheet.dress(form)
sheet.frame_boxes(form)

-- A week after the first date, as soon as there is one.
function calPlain_Change()
  if lw.is_date(calPlain.Value) then calNext.Value = lw.date_add("ww", 1, lw.to_date(calPlain.Value)) end
end

function form_Load()
  calPlain_Change()
  calPlain:SetFocus()
end
