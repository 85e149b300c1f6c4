local lw = require "levelwidgets"

local article, pieces, price, sum, wanted = 1, 2, 3, 4, 5

local articles = {
  { "Screw M4 x 20", 0.035 }, { "Nut M4", 0.02 }, { "Hinge, brass", 4.9 }, { "Door handle", 31.75 },
}
local prices = {}
for _, known in ipairs(articles) do
  grdLines.Columns[article].ValueList:Add(known[1]) -- what the column's editor lists
  prices[known[1]] = known[2]
end

for _, label in ipairs{ lblOrdered, lblState, lblTotal } do
  label.BackColor, label.BackColorMouseOver = form.BackColor, form.BackColor
  label.ForeColorMouseOver, label.MouseUnderline = label.ForeColor, false
end

-- --- Approval --------------------------------------------------------------------------------------------

-- For each column that can be edited: the text to store, or nothing and why not.
local approve = {
  [article] = function(text)
    if prices[text] then return text end
    return nil, '"' .. text .. '" is no article'
  end,
  [pieces] = function(text)
    local count = lw.is_numeric(text) and lw.to_number(text) or 0
    if count > 0 and count % 1 == 0 then return string.format("%.0f", count) end
    return nil, 'Pieces are a whole number above 0; "' .. text .. '" is not'
  end,
  [wanted] = function(text)
    if not lw.is_date(text) then return nil, '"' .. text .. '" is no date' end
    local day = lw.format(lw.to_date(text), "yyyy-mm-dd")
    if not lw.is_date(calOrdered.Value) then return day end
    local ordered = lw.format(lw.to_date(calOrdered.Value), "yyyy-mm-dd")
    if day >= ordered then return day end
    return nil, day .. " is before the day of the order, " .. ordered
  end,
}

-- The editor's text comes in NewValue; what is in it afterwards is stored, unless it is refused.
function grdLines_BeforeCellEdit(e)
  local text, why = approve[e.ColumnIndex](e.NewValue)
  e.NewValue = text or e.NewValue
  e.Cancel = not text
  lblState.Caption = why or ""
end

-- --- Sums ------------------------------------------------------------------------------------------------

local function calculate(row)
  local cells = grdLines.RowData[row]
  local each = prices[cells[article]]
  cells[price] = each or ""
  cells[sum] = each and cells[pieces] ~= "" and each * lw.to_number(cells[pieces]) or ""
end

local function add_up()
  local total = 0
  for row = 1, grdLines.RowCount do
    local text = grdLines.RowData[row][sum]
    if text ~= "" then total = total + lw.to_number(text) end
  end
  lblTotal.Caption = lw.format(total, "#,##0.00")
end

function grdLines_AfterCellEdit(e)
  calculate(e.RowIndex)
  add_up()
end

-- --- Lines and file --------------------------------------------------------------------------------------

function cmdAdd_Click()
  local rows = grdLines.RowCount + 1
  grdLines.RowCount = rows
  grdLines:SetFocus()
  grdLines.RowIndex = rows
end

-- The order as text: a line for each, with a tab between its cells. Nothing, and why, while a line lacks something.
local function text_of_order()
  local lines = {}
  for row = 1, grdLines.RowCount do
    local cells = grdLines.RowData[row]
    local texts = { cells[article], cells[pieces], cells[price], cells[sum], cells[wanted] }
    if table.concat(texts) ~= "" then
      for _, column in ipairs{ article, pieces, wanted } do
        if texts[column] == "" then return nil, "Line " .. row .. " has no " .. grdLines.Columns[column].Caption end
      end
      lines[#lines + 1] = table.concat(texts, "\t")
    end
  end
  if #lines == 0 then return nil, "There is nothing to save" end
  return table.concat(lines, "\n") .. "\n"
end

local function write(path, text)
  local file, why = io.open(path, "w")
  local written = file and file:write(text)
  local closed = file and file:close()
  lblState.Caption = written and closed and "Saved" or "Not saved: " .. (why or "the disk is full")
end

function cmdSave_Click()
  local text, why = text_of_order()
  if text and not io then why = "Not saved: files are written by forms that are trusted (show --trust)" end
  if why then
    lblState.Caption = why
    return
  end
  lw.save_file{
    folder = ".", name = "order.txt", filter = { "*.txt" }, -- beside this script
    on_closed = function(path) if path then write(path, text) end end,
  }
end

function form_Load()
  grdLines:SetFocus()
end
