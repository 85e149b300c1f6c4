-- The pictures of FlatGrid.
local rows = {
  { "Screw M4", "1200", "0.035", "2024-05-31" },
  { "Nut M4", "1200", "0.02", "2024-05-31" },
  { "Washer", "2500", "0.0125", "2024-06-14" },
  { "Hinge, brass", "16", "4.9", "2024-07-01" },
  { "Door handle", "8", "31.75", "" },
}

local function fill(grid)
  grid.RowCount = #rows
  for r, row in ipairs(rows) do
    for c, text in ipairs(row) do grid.RowData[r][c] = text end
  end
end

-- Fills the grid and gives it the focus with `row` selected.
local function focus(row)
  return function(grid)
    fill(grid)
    grid:SetFocus()
    grid.RowIndex = row
  end
end

-- Opens the editor of the third row in `column`, and its panel.
local function edit(column, with_panel)
  return function(grid, desktop)
    focus(3)(grid)
    for _ = 2, column do desktop:key(39) end
    desktop:key(113)
    if with_panel then desktop:key(115) end
  end
end

local function values(grid)
  for _, row in ipairs(rows) do grid.Columns[1].ValueList:Add(row[1]) end
end

local edits = { AllowEdits = true }

local columns = {
  RowHeight = 270, ColumnCount = 4,
  Column1Caption = "Article", Column1Width = 1605, Column1HeaderAlignment = 0, Column1EditType = 4,
  Column2Caption = "Pieces", Column2Width = 840, Column2Alignment = 1, Column2EditType = 2, Column2Format = "#,##0",
  Column3Caption = "Price", Column3Width = 840, Column3Alignment = 1, Column3EditType = 2, Column3Format = "0.00",
  Column4Caption = "Wanted on", Column4Width = 1200, Column4Alignment = 2, Column4EditType = 3, Column4Format = "d mmm yyyy",
}

return {
  size = { 4500, 1905 },
  properties = columns,
  { name = "normal", caption = "Columns with an `Alignment` and a `Format` each; no focus", act = fill },
  { name = "focused", caption = "With the focus: the selected row", act = focus(3) },
  { name = "selection", caption = "`HideSelection = false`: the selected row without the focus", properties = { HideSelection = false },
    act = function(grid) fill(grid) grid.RowIndex = 3 end },
  { name = "cell", caption = "`ShowCellFocus = true`: a frame in the current cell, here in the second column", properties = { ShowCellFocus = true },
    act = function(grid, desktop) focus(3)(grid) desktop:key(39) end },
  { name = "editor", caption = "`AllowEdits = true`, F2 in a column of `ksxEditText`", properties = { AllowEdits = true, Column3EditType = 1 },
    act = edit(3) },
  { name = "calculator", caption = "The same in a column of `ksxEditCalculator`, with its keypad", properties = edits, act = edit(2, true) },
  { name = "calendar", caption = "The same in a column of `ksxEditCalendar`, with its month view", properties = edits, act = edit(4, true) },
  { name = "dropdown", caption = "The same in a column of `ksxEditDropDown`, with the column's `ValueList`", properties = edits,
    act = function(grid, desktop) values(grid) edit(1, true)(grid, desktop) end },
  { name = "no-header", caption = "`ShowColumnHeaders = false`", properties = { ShowColumnHeaders = false }, act = fill },
  { name = "no-lines", caption = "`ShowGridLines = false`", properties = { ShowGridLines = false }, act = fill },
  { name = "hidden", caption = "`Column2Visible = false`: the next columns move up", properties = { Column2Visible = false }, act = fill },
  { name = "scrolled", caption = "More rows than fit, the last page, and columns wider than the grid: the bars",
    properties = { Column1Width = 3000 },
    act = function(grid)
      fill(grid)
      grid.RowCount = 100
      for r = 90, 100 do grid.RowData[r][1] = "Article " .. r end
      grid:SetFocus()
      grid.RowIndex = 100
      grid.RowIndex = 98
    end },
  { name = "empty", caption = "Rows without texts; what is below the last row is drawn as empty rows", properties = { RowCount = 3 } },
  { name = "disabled", caption = "`Enabled = false`: it takes no input and looks the same", properties = { Enabled = false }, act = fill },
  { name = "colors", caption = "Colours and a font of its own",
    properties = { Font = lw.font{ Name = "Tahoma", Size = 10 }, RowHeight = 315, BackColorHeader = 0x0070C0F0, BackColorSelected = 0x00A0D8F8,
      BackColorRowOdd = 0x00F4FAFF, BackColorRowEven = 0x00DCF2FC, BorderColor = 0x00609CC8 },
    act = focus(2) },
}
