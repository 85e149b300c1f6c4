-- levelwidgets run --trust examples/order_entry/order_entry_test.lua
local desktop = lw.desktop{ today = "2024-05-15T10:30:00" }
local form = lw.load("order_entry.form.toml")
form:show()
local grid, state = form.grdLines, form.lblState
local enter, escape, right, down, home, edit = 13, 27, 39, 40, 36, 113

-- Opens the editor of the current cell, types and presses Enter.
local function type_into_cell(text)
  desktop:key(edit)
  desktop:type(text)
  desktop:key(enter)
end
local function cell(row, column, text)
  local now = grid.RowData[row][column]
  if now ~= text then error(("cell %d, %d is %q instead of %q"):format(row, column, now, text), 2) end
end
local function says(text)
  if state.Caption ~= text then error(("%q instead of %q"):format(state.Caption, text), 2) end
end

-- Only articles that are known. A refused value leaves the editor open with the stored one.
type_into_cell("Nail")
says('"Nail" is no article')
cell(1, 1, "")
desktop:key(escape)
type_into_cell("Door handle")
says("")
cell(1, 1, "Door handle")
cell(1, 3, "31.75")

-- Pieces: whole, above 0.
desktop:key(right)
type_into_cell("0")
says('Pieces are a whole number above 0; "0" is not')
desktop:key(escape)
type_into_cell("8")
cell(1, 2, "8")
cell(1, 4, "254")
assert(form.lblTotal.Caption == "254.00", form.lblTotal.Caption)

-- A day that is not before that of the order.
for _ = 1, 3 do desktop:key(right) end
type_into_cell("5/14/2024")
says("2024-05-14 is before the day of the order, 2024-05-15")
cell(1, 5, "")
desktop:key(escape)
type_into_cell("5/15/2024")
cell(1, 5, "2024-05-15")

-- A line that lacks something is not saved.
grid:SetFocus()
desktop:key(home)
desktop:key(down)
desktop:key(right)
type_into_cell("Nut M4")
cell(2, 1, "Nut M4")
desktop:move_to(form.cmdSave, 600, 200)
desktop:click()
says("Line 2 has no Pieces")
grid:SetFocus()
desktop:key(right)
type_into_cell("1,200")
cell(2, 2, "1200")
cell(2, 4, "24")
for _ = 1, 3 do desktop:key(right) end
type_into_cell("6/1/2024")

-- Another line.
desktop:move_to(form.cmdAdd, 600, 200)
desktop:click()
assert(grid.RowCount == 9 and grid.RowIndex == 9)
cell(1, 1, "Door handle")

-- The file. Without --trust the form writes none, and says so.
desktop:move_to(form.cmdSave, 600, 200)
desktop:click()
if state.Caption == "" then
  desktop:key(enter) -- the name that is proposed
  says("Saved")
  local path = (arg[0]:match("^(.*/)") or "") .. "order.txt"
  local file = assert(io.open(path))
  local text = file:read("a")
  file:close()
  os.remove(path)
  assert(text == "Door handle\t8\t31.75\t254\t2024-05-15\nNut M4\t1200\t0.02\t24\t2024-06-01\n", text)
else
  says("Not saved: files are written by forms that are trusted (show --trust)")
end
