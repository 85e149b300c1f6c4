-- Property pages as models and as windows.
local expect = require "expect"
local d = lw.desktop{}
local form = lw.form{ Name="frm", Width=6000, Height=4000, Design=true }
local scrQty = form:add("FlatScroll", "scrQty")
local scrOther = form:add("FlatScroll", "scrOther")

-- The fields show the first control; they are members by their names.
local p = lw.page("ppFlatScroll", { form.scrQty, form.scrOther })
expect.equal(tostring(p), "ppFlatScroll")
expect.equal(p.txtMax.Text, "100")
expect.equal(p.chkEnabled.Value, 1)
expect.equal(p.chkEnabled.Caption, "Enabled")
expect.equal(p.txtMax.Name, "txtMax")
expect.equal(p.changed, false)

-- An edit marks the page, applying writes it to the first control only.
p.txtMax.Text = "500"
p.chkEnabled.Value = 0
expect.equal(p.changed, true)
expect.equal(scrQty.Max, 100)
p:apply()
expect.equal(p.changed, false)
expect.equal(scrQty.Max, 500)
expect.equal(scrQty.Enabled, false)
expect.equal(scrOther.Max, 100)

-- Another selection.
p:select{ scrOther }
expect.equal(p.txtMax.Text, "100")
p:select{}
expect.equal(p.txtMax.Text, "")

-- What a control refuses is an error, what was written before stays.
p:select{ scrQty }
p.txtValue.Text = "7"
p.txtSmallChange.Text = "few"
p.txtMax.Text = "600"
local ok, err = pcall(function() p:apply() end)
expect.equal(ok, false)
expect.equal(err.number, 13)
expect.equal(scrQty.Value, 7)
expect.equal(scrQty.Max, 500)

-- Lists by position from 0; refusals of fields that are left.
local grid = form:add("FlatGrid", "grd")
grid.Columns:Add("A", 1000)
local columns = lw.page("LevelWidgets.ppFlatGridColumns", { grid })
expect.equal(columns.lblCount.Caption, "Column Count: 1")
expect.equal(columns.cmbColumn.ListIndex, -1)
columns.cmbColumn.ListIndex = 0
expect.equal(columns.cmbColumn.Text, "Column 1")
expect.equal(columns.cmbColumn.ListCount, 1)
expect.equal(columns.cmbColumn.List[0], "Column 1")
expect.equal(columns.txtWidth.Text, "1000")
columns.txtWidth.Text = "wide"
expect.equal(columns:leave("txtWidth"), "Invalid Width")
columns.txtWidth.Text = "1200"
expect.equal(columns:leave("txtWidth"), nil)
expect.equal(columns.cmdAction.Count, 4)
expect.equal(columns.cmdAction[0].Caption, "&Add Column")
columns.cmdAction[0]:Click()
expect.equal(grid.Columns.Count, 2)
expect.equal(columns.Frame1.Caption, "Column Settings")

-- Any object with such members will do: a column has a caption, but is not enabled.
expect.fails(438, 'FlatColumn has no member "Enabled"',
  function() lw.page("ppFlatButton", { grid.Columns[1] }) end)

-- Mistakes.
expect.fails(5, 'There is no property page "ppFlatScrol"; did you mean "ppFlatScroll"?',
  function() lw.page("ppFlatScrol", {}) end)
expect.fails(438, 'ppFlatScroll has no member "txtMux"; did you mean "txtMax"?', function() print(p.txtMux) end)
expect.fails(438, 'ppFlatScroll has no member "aply"; did you mean "apply"?', function() p:aply() end)
expect.fails(383, "ppFlatScroll.txtMax is read-only", function() p.txtMax = "5" end)
expect.fails(383, "ppFlatScroll.changed is read-only", function() p.changed = true end)
expect.fails(438, 'ppFlatScroll has no member "other"', function() p.other = 1 end)
expect.fails(380, "Value is 0 or 1, not 2", function() p.chkEnabled.Value = 2 end)
expect.fails(5, "Controls are selected, not a string", function() p:select{ "scrQty" } end)

-- The window: its controls have the names of the fields.
local window = lw.properties(scrQty)
expect.equal(window.Caption, "Properties of scrQty")
expect.equal(window.txtMax.Text, "500")
window.txtMax.Text = "800"
expect.equal(window.cmdApply.Enabled, true)
window.cmdOK:SetFocus()
d:key(13)
expect.equal(scrQty.Max, 800)
expect.equal(#d:windows(), 0)
window = lw.properties{ scrOther, scrQty }
expect.equal(window.Caption, "Properties of scrOther and 1 more")
d:key(27)
expect.equal(#d:windows(), 0)
expect.fails(5, "There is no control to show the properties of", function() lw.properties{} end)

-- A control that has been removed.
form:remove("scrQty")
expect.fails(5, "scrQty no longer exists", function() p:apply() end)
return 0
