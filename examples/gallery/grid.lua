local lw = require "levelwidgets"
local sheet = require("sheet")
sheet.dress(form)

for _, label in ipairs{ lblSum, lblEvents } do
  label.BackColorMouseOver, label.ForeColorMouseOver = label.BackColor, label.ForeColor
  label.MouseUnderline = false
end

-- --- Order lines -----------------------------------------------------------------------------------------

local article, pieces, price, sum, number, wanted, note = 1, 2, 3, 4, 5, 6, 7

local articles = {
  { "Screw M4 x 20", 0.035 }, { "Nut M4", 0.02 }, { "Washer M4", 0.0125 }, { "Hinge, brass", 4.9 },
  { "Door handle", 31.75 }, { "Lock, three keys", 24.5 },
}
local prices = {}
for i, of in ipairs(articles) do
  grdLines.Columns[article].ValueList:Add(of[1])
  prices[of[1]] = { of[2], 1000 + i }
end

local function amount(row)
  local count, of = grdLines.RowData[row][pieces], grdLines.RowData[row][price]
  return lw.is_numeric(count) and lw.is_numeric(of) and lw.to_number(count) * lw.to_number(of) or 0
end

local function add_up()
  local total = 0
  for row = 1, grdLines.RowCount do
    local line = amount(row)
    grdLines.RowData[row][sum] = line ~= 0 and line or ""
    total = total + line
  end
  lblSum.Caption = "All lines: " .. lw.format(total, "#,##0.00")
end

local function take_article(row, name)
  local of = prices[name]
  grdLines.RowData[row][price] = of and of[1] or ""
  grdLines.RowData[row][number] = of and of[2] or ""
end

local lines = {
  { "Screw M4 x 20", 1200, "2024-05-31", "" }, { "Nut M4", 1200, "2024-05-31", "" },
  { "Hinge, brass", 16, "2024-06-14", "as in May" }, { "Door handle", 8, "2024-06-14", "" },
}
for row, line in ipairs(lines) do
  local cells = grdLines.RowData[row]
  cells[article], cells[pieces], cells[wanted], cells[note] = line[1], line[2], line[3], line[4]
  take_article(row, line[1])
end
add_up()

function grdLines_BeforeCellEdit(e)
  if e.ColumnIndex ~= pieces then return end
  e.Cancel = not (lw.is_numeric(e.NewValue) and lw.to_number(e.NewValue) >= 1)
  if e.Cancel then lblEvents.Caption = "Refused: " .. e.NewValue .. " pieces" end
end

function grdLines_AfterCellEdit(e)
  local text = grdLines.RowData[e.RowIndex][e.ColumnIndex]
  if e.ColumnIndex == article then take_article(e.RowIndex, text) end
  lblEvents.Caption = "Row " .. e.RowIndex .. ": " .. grdLines.Columns[e.ColumnIndex].Caption .. " = " .. text
  add_up()
end

-- --- A million rows --------------------------------------------------------------------------------------

grdMany.RowCount = 1000000

-- Rows without texts cost next to nothing.
local function fill_rows_in_view()
  local top = grdMany.TopIndex
  for row = top, math.min(top + 12, grdMany.RowCount) do
    local cells = grdMany.RowData[row]
    if cells[1] == "" then
      cells[1], cells[2], cells[3], cells[4] = row, row * row, row % 2 == 0 and "even" or "odd", #tostring(row * row)
    end
  end
end

fill_rows_in_view()
lw.timer{ ms = 50, on = fill_rows_in_view }

function grdMany_RowColChange(e)
  lblEvents.Caption = "Row " .. lw.format(grdMany.RowIndex, "#,##0") .. ", before " .. lw.format(e.LastRow, "#,##0")
end

function form_Load()
  grdLines:SetFocus()
end
