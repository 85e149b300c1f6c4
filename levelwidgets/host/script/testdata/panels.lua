-- An amount and a date filled in by the pointer and by keys, on a desktop of two monitors.
local expect = require "expect"

local desktop = lw.desktop{ monitors = { { 0, 0, 1024, 768 }, { 1024, 0, 1280, 1024 } }, today = "2024-05-15T10:30:00" }
local f = lw.form{ Name = "frm", Width = 6000, Height = 4500 }
local calc = f:add("FlatCalculator", "calc", { Left = 600, Top = 600, Properties = { FormatString = "#,##0.00", Text = "1250" } })
local cal = f:add("FlatCalendar", "cal", { Left = 600, Top = 1200, Properties = { DateFormat = "yyyy-mm-dd" } })
f:show()

local function panel_of(control)
  local _, _, _, _, panel = desktop:rect(control)
  return panel
end

local f4, tab, enter, escape = 115, 9, 13, 27

-- By keys.
calc:SetFocus()
expect.equal(calc.Text, "1,250.00")
expect.equal(panel_of(calc), nil)
desktop:key(f4)
expect.equal(panel_of(calc).right - panel_of(calc).left, 121)
desktop:key(107)
desktop:type("250")
desktop:key(enter)
expect.equal(panel_of(calc), nil)
expect.equal(calc.Text, "1,500.00")
desktop:key(tab)
desktop:type("5/31/2024")
expect.equal(cal.Value, "5/31/2024")
desktop:key(tab)
expect.equal(cal.Value, lw.date(2024, 5, 31))

-- By the pointer: the day before, a Thursday of the fifth week.
local left, top, right, bottom = desktop:rect(cal)
desktop:click(right - 5, top + 5)
local panel = panel_of(cal)
expect.equal(panel.left, left)
expect.equal(panel.top, bottom)
desktop:click(panel.left + 1 + (240 + 1035 + 130) // 15, panel.top + 1 + (360 + 240 + 4 * 240 + 120) // 15)
expect.equal(panel_of(cal), nil)
expect.equal(cal.Value, lw.date(2024, 5, 30))

-- A panel stays on the monitor that holds most of its control: not pushed back onto the first one, nor begun there.
local outer_left, outer_top = f.Left, f.Top
local function moved(x, y)
  f.Left, f.Top = outer_left, outer_top
  local at_left, at_top = desktop:rect(calc)
  f.Left, f.Top = outer_left + (x - at_left) * 15, outer_top + (y - at_top) * 15
  calc:SetFocus()
  desktop:key(f4)
  local rect = panel_of(calc)
  desktop:key(escape)
  return rect
end
expect.equal(moved(980, 100).left, 1024)
expect.equal(moved(940, 100).left, 1024 - 121)
expect.equal(moved(1500, 900).top, 900 - 153)
expect.equal(moved(1500, 800).top, 800 + 21)
expect.equal(moved(2250, 100).left, 2304 - 121)

-- After a panel has closed the caret blinks in the edit box.
calc.Text = ""
calc:SetFocus()
desktop:key(f4)
desktop:key(escape)
local function edit_pixels()
  local edit_left, edit_top = desktop:rect(calc)
  local colors = {}
  for x = edit_left + 1, edit_left + 40 do colors[#colors + 1] = desktop:pixel(x, edit_top + 10) end
  return table.concat(colors, " ")
end
local blinks, last = 0, edit_pixels()
for _ = 1, 20 do
  desktop:advance(100)
  local now = edit_pixels()
  if now ~= last then blinks = blinks + 1 end
  last = now
end
expect.equal(blinks >= 3, true)
