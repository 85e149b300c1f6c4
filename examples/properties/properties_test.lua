-- levelwidgets run properties_test.lua
-- Does what a person does: chooses a control, edits its properties, adds a column to the grid.
local lw = require "levelwidgets"
local desktop = lw.desktop{}
local form = lw.load("properties.form.toml")
form:show()

local function click(control)
  desktop:move_to(control, 150, 150)
  desktop:click()
  desktop:advance(1000) -- the next click is no double click
end

-- By keys: opens the list and goes so many items down, or up.
local function choose(list, steps)
  list:SetFocus()
  desktop:key(115)
  for _ = 1, math.abs(steps) do desktop:key(steps > 0 and 40 or 38) end
  desktop:key(13)
end

local function titles()
  local list = {}
  for _, window in ipairs(desktop:windows()) do list[#list + 1] = window.title end
  return table.concat(list, ", ")
end

local function open(steps, name)
  choose(form.cboControl, steps)
  assert(form.cboControl.Text == name, form.cboControl.Text)
  click(form.cmdProperties)
  assert(desktop:windows()[1].title == "Properties of " .. name, titles())
end

assert(titles() == "Controls, Order", titles())

-- The first field has the focus: what is typed takes the place of its text.
open(4, "cmdSave")
desktop:key(35, 1) -- Shift+End
desktop:type("Store")
desktop:key(13) -- OK
assert(titles() == "Controls, Order", titles())
assert(form.lblChanged.Caption == "cmdSave.Enabled is as it was new", form.lblChanged.Caption)

-- What a control refuses is a message; the window stays.
open(-3, "scrPieces")
desktop:key(35, 1)
desktop:type("900")
desktop:key(13)
assert(desktop:windows()[1].text == "Invalid Value", desktop:windows()[1].text)
desktop:key(13)
assert(desktop:windows()[1].title == "Properties of scrPieces", titles())
desktop:key(36) -- Home
desktop:key(35, 1)
desktop:type("7")
desktop:key(13)
assert(titles() == "Controls, Order", titles())

-- The page "Columns" works on the grid at once.
open(2, "grdLines")
desktop:key(9, 2) -- Ctrl+Tab
desktop:key(65, 4) -- Alt+A: "&Add Column"
desktop:key(27) -- Cancel
assert(titles() == "Controls, Order", titles())

form:close()
assert(#desktop:windows() == 0, titles())
assert(#lw.errors() == 0, lw.errors()[1] and lw.errors()[1].message)
