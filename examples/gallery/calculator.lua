local lw = require "levelwidgets"
local sheet = require("sheet")
sheet.dress(form)
sheet.frame_boxes(form)

-- The sum follows when a keypad has closed.
local function add_up()
  local first, second = lw.to_number(calcPlain.Text), lw.to_number(calcFormat.Text)
  calcSum.Text = tostring(first + second)
end

local function add_numbers()
  if lw.is_numeric(calcPlain.Text) and lw.is_numeric(calcFormat.Text) then add_up() end
end

calcPlain:on("CalcUp", add_numbers)
calcFormat:on("CalcUp", add_numbers)

function form_Load()
  add_numbers()
  calcPlain:SetFocus()
end
