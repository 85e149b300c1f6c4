local expect = require "expect"

local f = lw.form{ Name="frm", Caption="F", Width=6000, Height=4000 }
local b = f:add("FlatButton", "cmdOK", { Left=120, Top=120, Width=1200, Height=375, Caption="&OK" })

expect.equal(f.Name, "frm")
expect.equal(f.Caption, "F")
expect.equal(f.Width, 6000.0)
expect.equal(f.Design, false)
expect.equal(b.Name, "cmdOK")
expect.equal(b.Left, 120.0)
expect.equal(b.Height, 375.0)
expect.equal(b.Caption, "&OK")

-- A new instance, as a designer places it.
local new = f:add("FlatButton", "cmdNew")
expect.equal(new.Caption, "cmdNew")
expect.equal(new.Width, 1215.0)
local label = f:add("LevelWidgets.FlatLabel", "lblNew", {})
expect.equal(label.Caption, "lblNew")
expect.equal(label.BackColor, 0)
expect.equal(label.ForeColor, 0x00FFFFFF)

-- An instance loaded from a bag, possibly empty.
local loaded = f:add("FlatLabel", "lblLoaded", { Properties={} })
expect.equal(loaded.Caption, "")
expect.equal(loaded.BackColor, 0x00CEDBDE)
local bag = f:add("FlatLabel", "lblBag", { Left=15, Properties={ Caption="Text", Alignment=2 }, ForeColor=0xFF })
expect.equal(bag.Caption, "Text")
expect.equal(bag.Alignment, 2)
expect.equal(bag.Left, 15.0)
expect.equal(bag.ForeColor, 0xFF)

-- A control is a member of its form, always the same value.
expect.equal(f.cmdOK, b)
expect.list((function()
  local names = {}
  for _, control in ipairs(f:controls()) do names[#names + 1] = control.Name end
  return names
end)(), { "cmdOK", "cmdNew", "lblNew", "lblLoaded", "lblBag" })

-- The bag that it would save, in the order written.
local written = {}
for _, property in ipairs(bag:properties()) do written[#written + 1] = property.Name .. "=" .. tostring(property.Value) end
expect.list(written, { "Alignment=2", "ForeColor=255", "Caption=Text" })
expect.equal(#loaded:properties(), 0)
expect.list((function()
  local names = {}
  for _, property in ipairs(label:properties()) do names[#names + 1] = property.Name end
  return names
end)(), { "BackColor", "ForeColor", "Caption", "BackColorMouseOver", "BackColorPushed", "ForeColorMouseOver",
          "ForeColorPushed" })

-- Properties are set in the order of the class, whatever the order of the table.
local changed = {}
f:on("PropertyChanged", function(e) changed[#changed + 1] = e.Control .. "." .. e.Name end)
f:add("FlatButton", "cmdOrder", { ForeColorDisabled=1, Caption="C", Enabled=false, BackColor=2, Tag="t", ForeColor=3 })
expect.list(changed, { "cmdOrder.BackColor", "cmdOrder.ForeColor", "cmdOrder.Enabled", "cmdOrder.Caption",
                       "cmdOrder.ForeColorDisabled" })
expect.equal(f.cmdOrder.Tag, "t")

-- What the container adds.
b.Left = 240
b:Move(300, 315, 900, 450)
expect.list({ b.Left, b.Top, b.Width, b.Height }, { 300.0, 315.0, 900.0, 450.0 })
b:Move(60)
expect.list({ b.Left, b.Top, b.Width, b.Height }, { 60.0, 315.0, 900.0, 450.0 })
b.Default, b.Cancel, b.TabIndex, b.TabStop, b.ToolTipText = true, true, 3, false, "tip"
expect.list({ b.Default, b.Cancel, b.TabIndex, b.TabStop, b.ToolTipText, b.Visible },
            { true, true, 3, false, "tip", true })
b:ZOrder(1)
b:ZOrder()
expect.fails(5, "ZOrder takes 0 (front) or 1 (back)", function() b:ZOrder(2) end)

-- What is refused, with nothing added.
local count = #f:controls()
local _, unknown = pcall(function() f:add("FlatButon", "x") end)
expect.equal(unknown.number, 5)
expect.equal(unknown.description:match('^There is no control class "FlatButon"; did you mean "FlatButton"%? ' ..
                                       'The classes: FlatButton, .*FlatLabel') ~= nil, true)
local _, far = pcall(function() f:add("Quite another", "x") end)
expect.equal(far.description:match('^There is no control class "Quite another"%. The classes: FlatButton') ~= nil, true)
expect.fails(457, 'The form has a control named "cmdOK" already', function() f:add("FlatButton", "cmdOK") end)
expect.fails(5, "A control needs a name", function() f:add("FlatButton", "") end)
expect.fails(438, 'FlatButton has no member "Captoin"; did you mean "Caption"?',
             function() f:add("FlatButton", "x", { Captoin="C" }) end)
expect.fails(438, 'FlatButton has no member "hWnd"', function() f:add("FlatButton", "x", { hWnd=1 }) end)
expect.fails(438, 'FlatButton has no member "TabIndx"; did you mean "TabIndex"?',
             function() f:add("FlatButton", "x", { TabIndx=1 }) end)
expect.fails(438, 'FlatLabel has no member "Captio"; did you mean "Caption"?',
             function() f:add("FlatLabel", "x", { Properties={ Captio="C" } }) end)
expect.fails(13, 'FlatLabel.Alignment is of type ksxAlignmentConstants; "left" does not convert to it: Type mismatch',
             function() f:add("FlatLabel", "x", { Alignment="left" }) end)
expect.fails(13, "FlatButton takes a table of names and values, not a list",
             function() f:add("FlatButton", "x", { "Caption" }) end)
expect.fails(5, "The size of x cannot be negative: Width and Height are lengths in twips",
             function() f:add("FlatButton", "x", { Width=-1 }) end)
expect.equal(#f:controls(), count)

expect.fails(438, 'Form has no member "Captoin"; did you mean "Caption"?', function() lw.form{ Captoin="F" } end)
expect.fails(13, 'Form.Width cannot be "wide": Type mismatch', function() lw.form{ Width="wide" } end)
