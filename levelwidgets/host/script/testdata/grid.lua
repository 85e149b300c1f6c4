-- A grid as scripts have it: cells, columns and their lists, events, what is refused.
local expect = require "expect"
local d = lw.desktop{}

local f = lw.form{ Name="frm", Width=9000, Height=6000 }
local grid = f:add("FlatGrid", "grdLines", { Left=0, Top=0, Width=4500, Height=1500 })
expect.equal(tostring(grid), "FlatGrid grdLines")
expect.equal(tostring(grid.Columns), "FlatColumns")
expect.equal(grid.Columns, grid.Columns)

-- Columns: by number, by key, one after the other.
local article = grid.Columns:Add("Article", 1500, 0, 0, 4, true, "", "article")
local pieces = grid.Columns:Add("Pieces", 900, 1, 1, 2, true, "#,##0")
grid.Columns:Add("Note")
expect.equal(tostring(article), "FlatColumn")
expect.equal(grid.Columns.Count, 3)
expect.equal(grid.Columns[1], article)
expect.equal(grid.Columns.Item[2], pieces)
expect.fails(438, 'FlatColumns has no member "article"', function() return grid.Columns.article end)
expect.equal(grid.Columns.Item["article"], article)
expect.equal(pieces.Format, "#,##0")
local captions = {}
for column in grid.Columns:each() do captions[#captions + 1] = column.Caption end
expect.list(captions, { "Article", "Pieces", "Note" })
pieces.Caption = "Quantity"
expect.equal(grid.Columns[2].Caption, "Quantity")

-- The list of a column.
expect.equal(tostring(grid.Columns[2].ValueList), "ksxValueList")
expect.equal(grid.Columns[2].ValueList.Count, 0)
grid.Columns[1].ValueList:Add("Screw")
grid.Columns[1].ValueList:Add("Nut")
expect.equal(article.ValueList.Count, 2)
expect.equal(article.ValueList[2].Description, "Nut")
local list = lw.new("ksxValueList")
list:Add("Washer")
article.ValueList = list
expect.equal(grid.Columns[1].ValueList, list)

-- Cells, which are texts.
grid.RowCount = 5
grid.RowData[3][1] = "Screw"
grid.RowData[3][2] = 17.5
grid.RowData[5][3] = "last"
expect.equal(grid.RowData[3][1], "Screw")
expect.equal(grid.RowData[3][2], "17.5")
expect.equal(grid.RowData[5][3], "last")
expect.equal(grid.RowData[1][1], "")
expect.equal(grid.RowData["3"]["1"], "Screw")
expect.equal(grid.RowData[3.0][1.0], "Screw")

-- A row can be kept, and stays that row.
local third, fifth = grid.RowData[3], grid.RowData[5]
expect.equal(third[1], "Screw")
expect.equal(fifth[3], "last")
third[1] = "Nut"
expect.equal(grid.RowData[3][1], "Nut")
expect.equal(grid.RowData[4][1], "")
expect.equal(third[1], "Nut")
expect.equal(grid.RowData[3], grid.RowData[3])
for row = 1, 5 do for column = 1, 3 do grid.RowData[row][column] = row .. "/" .. column end end
for column = 1, 3 do for row = 1, 5 do expect.equal(grid.RowData[row][column], row .. "/" .. column) end end
expect.equal(third[2], "3/2")

-- The number of rows changes under a kept row.
grid.RowCount = 2
expect.fails(-2147220501, "Invalid Row", function() return third[2] end)
grid.RowCount = 5
expect.equal(third[2], "")

-- What is refused: where, and why.
local err = expect.fails(-2147220501, "Invalid Row", function() return grid.RowData[0][1] end)
expect.equal(err.source, "LevelWidgets.FlatGrid")
expect.equal(tostring(err):match("grid.lua:%d+: Invalid Row %(error %-2147220501, LevelWidgets.FlatGrid%)$") ~= nil, true)
expect.fails(-2147220501, "Invalid Row", function() grid.RowData[6][1] = "x" end)
expect.fails(-2147220500, "Invalid Column", function() return grid.RowData[1][0] end)
expect.fails(-2147220500, "Invalid Column", function() grid.RowData[1][4] = "x" end)
expect.fails(-2147220501, "Invalid Row", function() return grid.RowData[0][0] end)
expect.fails(450, "FlatGrid.RowData takes 2 indices, not 1", function() grid.RowData[1] = "x" end)
expect.fails(450, "FlatGrid.RowData needs its indices: Row, Column", function() grid.RowData = "x" end)
expect.fails(13, 'FlatGrid.RowData\'s Row is of type Long; "x" does not convert to it: Type mismatch',
             function() return grid.RowData.x[1] end)
expect.fails(13, 'FlatGrid.RowData\'s Column is of type Long; Null does not convert to it: Type mismatch',
             function() return grid.RowData[1][lw.null] end)
expect.fails(13, "Type mismatch", function() return grid.RowData[print] end)
expect.fails(6, "FlatGrid.RowData's Row is of type Long; 3000000000 does not convert to it: Overflow",
             function() return grid.RowData[3000000000][1] end)
expect.fails(13, "FlatGrid.RowData is of type String; Null does not convert to it: Type mismatch",
             function() grid.RowData[1][1] = lw.null end)
expect.fails(9, "Subscript out of range", function() return grid.Columns[4] end)
expect.fails(5, "Invalid procedure call or argument", function() return grid.Columns.Item["piecse"] end)
expect.fails(383, "FlatGrid.Columns is read-only", function() grid.Columns = nil end)
expect.fails(438, 'FlatColumn has no member "Widht"; did you mean "Width"?', function() article.Widht = 1 end)
expect.fails(-2147220499, "Invalid RowCount", function() grid.RowCount = -1 end)
expect.fails(-2147220500, "Invalid RowIndex", function() grid.RowIndex = 6 end)

-- Row and column under a point. The column is the method's second result.
f:show()
local row, column = grid:HitTest(100, 100)
expect.equal(row, 0)
expect.equal(column, 1)
row, column = grid:HitTest(1600, 300)
expect.equal(row, 1)
expect.equal(column, 2)
expect.equal(select("#", grid:HitTest(0, 0)), 2)
row, column = grid:HitTest(1600, 1400)
expect.equal(row, -1)
expect.fails(450, "FlatGrid.HitTest needs the argument Y", function() grid:HitTest(1) end)

-- Events.
local changes = {}
function grdLines_RowColChange(e) changes[#changes + 1] = e.LastRow .. "/" .. e.LastColumn end
local headers = {}
grid:on("ColumnHeaderClick", function(e) headers[#headers + 1] = e.ColumnIndex end)
d:move_to(grid, 1600, 300)
d:click()
expect.equal(grid.RowIndex, 1)
d:move_to(grid, 100, 700)
d:click()
expect.equal(grid.RowIndex, 3)
expect.list(changes, { "1/1" })
d:move_to(grid, 1600, 100)
d:click()
expect.list(headers, { 2 })
local columns_changed = 0
grid.Columns:on("ColumnInfoChanged", function() columns_changed = columns_changed + 1 end)
article.Caption = article.Caption
expect.equal(columns_changed, 1)

-- Columns that are taken away take the texts along.
grid.RowData[1][1] = "x"
grid.Columns:Remove("article")
expect.equal(grid.RowData[1][1], "")
expect.equal(grid.Columns.Count, 2)
article.Caption = "still here"
expect.equal(article.Caption, "still here")
grid.Columns:Clear()
expect.fails(-2147220500, "Invalid Column", function() return grid.RowData[1][1] end)

-- A grid that is no longer on a form.
local cells = grid.RowData
grid.Columns:Add("Only")
local columns = grid.Columns
f:remove("grdLines")
expect.fails(5, "grdLines is on no form any more", function() return cells[1][1] end)
expect.fails(5, "grdLines is on no form any more", function() third[1] = "x" end)
expect.fails(5, "grdLines is on no form any more", function() return grid.RowData end)
expect.equal(columns[1].Caption, "Only")
