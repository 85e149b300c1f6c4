-- The form that is edited, in design mode: its controls get no input.
local designed = lw.form{ Name = "frmOrder", Caption = "Order", Left = 5400, Top = 900, Width = 5400, Height = 3600, Design = true }

designed:add("FlatLabel", "lblPieces", { Left = 240, Top = 240, Width = 1200, Height = 240,
  Caption = "Pieces:", BackColor = 0x8000000F, ForeColor = 0x80000012 })
designed:add("FlatScroll", "scrPieces", { Left = 1680, Top = 240, Width = 3480, Height = 255, Orientation = 1, Max = 20 })
designed:add("FlatTabStrip", "tabParts", { Left = 240, Top = 720, Width = 4920, Height = 420, TabCount = 2,
  TabWidth = 1200, TabCaption = { "Lines", "Notes" }, SelectedTab = 1 })
local lines = designed:add("FlatGrid", "grdLines", { Left = 240, Top = 1140, Width = 4920, Height = 1500, RowCount = 3 })
lines.Columns:Add("Article", 2400, 0, 0, 1, true)     -- caption, width, alignments, editor, whether it is visible
lines.Columns:Add("Price", 1200, 1, 1, 2, true)
designed:add("FlatButton", "cmdSave", { Left = 3960, Top = 2940, Width = 1200, Height = 375, Caption = "&Save" })

for _, control in ipairs(designed:controls()) do cboControl:AddItem(control.Name) end
cboControl.ListIndex = 1
cboControl.Text = "lblPieces"

function form_Load() designed:show() end
function form_Unload() designed:close() end

-- What the control would save under that name; nil for what it leaves out.
local function saved(control, name)
  for _, property in ipairs(control:properties()) do
    if property.Name == name then return property.Value end
  end
end

designed:on("PropertyChanged", function(e)
  local value = saved(designed[e.Control], e.Name)
  lblChanged.Caption = e.Control .. "." .. e.Name .. (value ~= nil and " = " .. tostring(value) or " is as it was new")
end)

function cmdProperties_Click() lw.properties(designed[cboControl.Text]) end
