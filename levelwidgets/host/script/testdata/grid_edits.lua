-- The editing of a grid's cells, with handlers in scripts: values that they change, refuse, or do wrong with.
local expect = require "expect"
local d = lw.desktop{}
local enter, escape, right, down, edit = 13, 27, 39, 40, 113

local f = lw.form{ Name="frm", Width=9000, Height=6000 }
local grid = f:add("FlatGrid", "grdLines", { Left=0, Top=0, Width=6000, Height=2400 })
grid.Columns:Add("Text", 1500, 0, 0, 1, true)
grid.Columns:Add("Pieces", 1500, 0, 0, 2, true)
grid.Columns:Add("Day", 1500, 0, 0, 3, true)
grid.Columns:Add("Unit", 1500, 0, 0, 4, true)
for _, unit in ipairs{ "kg", "m", "pcs" } do grid.Columns[4].ValueList:Add(unit) end
grid.RowCount = 3
grid.RowHeight = 315
grid.AllowEdits = true
local other = f:add("FlatButton", "cmdOther", { Left=0, Top=4000 })
f:show()
grid:SetFocus()

local log, answer = {}, nil
function grdLines_BeforeCellEdit(e)
  log[#log + 1] = ("before %d/%d %s %s"):format(e.RowIndex, e.ColumnIndex, e.NewValue, e.Cancel)
  if answer then answer(e) end
end
function grdLines_AfterCellEdit(e) log[#log + 1] = ("after %d/%d"):format(e.RowIndex, e.ColumnIndex) end
function grdLines_AfterRowEdit(e) log[#log + 1] = "row " .. e.RowIndex end
local function expect_log(expected)
  expect.list(log, expected)
  log = {}
end

local function type_in(text)
  d:key(edit)
  d:type(text)
  d:key(enter)
end

-- As it is typed.
type_in("screw")
expect_log{ "before 1/1 screw false", "after 1/1" }
expect.equal(grid.RowData[1][1], "screw")

-- Changed by the handler.
answer = function(e) e.NewValue = e.NewValue:upper() end
type_in("nut")
expect_log{ "before 1/1 nut false", "after 1/1" }
expect.equal(grid.RowData[1][1], "NUT")

-- A value that is no text becomes one.
answer = function(e) e.NewValue = 12.5 end
type_in("x")
expect.equal(grid.RowData[1][1], "12.5")
log = {}

-- Refused: the cell and the selection stay, with every arrow, until Escape.
answer = function(e) e.Cancel = true end
type_in("nail")
d:key(down)
expect_log{ "before 1/1 nail false", "before 1/1 12.5 false" }
expect.equal(grid.RowData[1][1], "12.5")
expect.equal(grid.RowIndex, 1)
d:key(escape)
expect_log{}

-- What the handler returns does not matter, and what it writes elsewhere in the table neither.
answer = function(e)
  e.RowIndex, e.Other = 99, true
  return true
end
grid:SetFocus()
type_in("a")
expect_log{ "before 1/1 a false", "after 1/1" }
expect.equal(grid.RowData[1][1], "a")

-- The other editors hand over what they show.
answer = nil
d:key(right)
expect_log{ "row 1" }
type_in("17.5")
d:key(right)
type_in("5/31/2024")
d:key(right)
type_in("pcs")
expect.equal(grid.RowData[1][2], "17.5")
expect.equal(grid.RowData[1][3], "5/31/2024")
expect.equal(grid.RowData[1][4], "pcs")
log = {}

-- Escape and the loss of the focus store nothing.
d:key(edit)
d:type("kg")
d:key(escape)
d:key(edit)
d:type("m")
other:SetFocus()
expect.equal(grid.RowData[1][4], "pcs")
expect_log{}
grid:SetFocus()

-- A handler that fails is reported and refuses nothing; one that leaves a wrong value is, too.
answer = function() error("no") end
type_in("kg")
expect.equal(grid.RowData[1][4], "kg")
answer = function(e) e.Cancel = "perhaps" end
type_in("m")
expect.equal(grid.RowData[1][4], "m")
local errors = lw.errors()
expect.equal(#errors, 2)
expect.equal(errors[1].control .. " " .. errors[1].event, "grdLines BeforeCellEdit")
expect.equal(errors[1].message:match("grid_edits.lua:%d+: no$") ~= nil, true)
expect.equal(errors[2].message:match('e.Cancel is of type Boolean; "perhaps" does not convert to it') ~= nil, true)

-- A handler that removes the grid, or the columns.
answer = function() grid.Columns:Clear() end
type_in("pcs")
expect.equal(grid.Columns.Count, 0)
grid.Columns:Add("Again", 1500, 0, 0, 1, true)
grid:SetFocus()
answer = function() f:remove("grdLines") end
type_in("last")
expect.fails(5, "grdLines is on no form any more", function() return grid.RowCount end)
return 2
