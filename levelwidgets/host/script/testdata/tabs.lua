-- Indexed properties, on the control that has one.
local expect = require "expect"

local f = lw.form{ Name="frm" }
local tab = f:add("FlatTabStrip", "tab", { TabCaption={ "One", "Two" }, SelectedTab=2, TabCount=3, TabWidth=900 })

expect.equal(tab.TabCaption[1], "One")
expect.equal(tab.TabCaption[2], "Two")
expect.equal(tab.TabCaption[3], "")
expect.equal(tab.SelectedTab, 2)
tab.TabCaption[2] = "Lines"
expect.equal(tab.TabCaption[2], "Lines")
tab.TabCaption["3"] = 17
expect.equal(tab.TabCaption[3.0], "17")
local captions = tab.TabCaption
captions[1] = "kept"
expect.equal(tab.TabCaption[1], "kept")

local err = expect.fails(-2147220503, "Invalid TabIndex", function() return tab.TabCaption[4] end)
expect.equal(err.source, "LevelWidgets.FlatTabStrip")
expect.fails(-2147220503, "Invalid TabIndex", function() tab.TabCaption[0] = "x" end)
expect.fails(13, "FlatTabStrip.TabCaption's Index is of type Integer; \"x\" does not convert to it: Type mismatch",
             function() return tab.TabCaption.x end)
expect.fails(450, "FlatTabStrip.TabCaption needs its indices: Index", function() tab.TabCaption = "x" end)
expect.fails(13, "FlatTabStrip.TabCaption takes a list",
             function() f:add("FlatTabStrip", "tabWrong", { TabCaption="x" }) end)
expect.equal(pcall(function() return f.tabWrong end), false)

-- Events with their own arguments.
local changes = {}
tab:on("TabChange", function(e) changes[#changes + 1] = e.PreviousTab .. ">" .. e.NewTab end)
tab.SelectedTab = 1
tab.SelectedTab = 3
expect.list(changes, { "2>1", "1>3" })

-- Saved, and loaded from a bag, under the name and the index.
local written = {}
for _, property in ipairs(tab:properties()) do written[#written + 1] = property.Name .. "=" .. tostring(property.Value) end
expect.list(written, { "TabWidth=900.0", "TabCount=3", "TabCaption1=kept", "TabCaption2=Lines", "TabCaption3=17" })
local loaded = f:add("FlatTabStrip", "tabLoaded", { Properties={ TabCount=2, TabCaption2="Two" } })
expect.equal(loaded.TabCaption[1], "Tab 1")
expect.equal(loaded.TabCaption[2], "Two")
expect.fails(438, 'FlatTabStrip has no member "TabCaptoin2"; did you mean "TabCaption"?',
             function() f:add("FlatTabStrip", "tabWrong", { Properties={ TabCaptoin2="x" } }) end)

-- What is kept of a removed control's property is of no use, and no harm.
f:remove("tab")
expect.fails(5, "tab is on no form any more", function() return captions[1] end)
expect.fails(5, "tab is on no form any more", function() captions[1] = "x" end)
