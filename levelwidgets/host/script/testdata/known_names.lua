-- What a name stands for is looked up once; it stays right whatever becomes of the values.
local expect = require "expect"
lw.desktop{}

local f = lw.form{ Name="frm" }
local label = f:add("FlatLabel", "lblText")
local button = f:add("FlatButton", "cmdOK", { Caption="OK" })
local other = f:add("FlatButton", "cmdOther", { Caption="Other" })

-- The same name of each control is its own; of each class, too.
for _ = 1, 3 do
  expect.equal(button.Caption, "OK")
  expect.equal(other.Caption, "Other")
  expect.equal(button.Name, "cmdOK")
  expect.equal(other.Name, "cmdOther")
  label.Caption = "Label"
  button.Caption = "OK"
  expect.equal(label.Caption, "Label")
end

-- An unknown name stays unknown, read or assigned, before and after known ones.
for _ = 1, 2 do
  expect.fails(438, 'FlatButton has no member "MouseUnderline"', function() return button.MouseUnderline end)
  expect.fails(438, 'FlatButton has no member "MouseUnderline"', function() button.MouseUnderline = 1 end)
  expect.equal(label.MouseUnderline, true)
end

-- A read-only property and a method that have been read before are still refused.
expect.equal(math.type(button.hWnd), "integer")
expect.fails(383, "FlatButton.hWnd is read-only", function() button.hWnd = 1 end)
expect.equal(type(label.Refresh), "function")
expect.fails(383, "FlatLabel.Refresh is a method", function() label.Refresh = 1 end)
expect.equal(type(label.Move), "function")
expect.fails(383, "FlatLabel.Move is a method", function() label.Move = 1 end)
expect.fails(13, "FlatLabel.Caption cannot be nil; lw.null is Null", function() label.Caption = nil end)
expect.fails(383, "FlatButton.hWnd is read-only", function() button.hWnd = nil end)

-- A method is one function for all controls of a class, and works with another class where that has it.
expect.equal(button.SetFocus, other.SetFocus)
local move_to_back, refresh = button.ZOrder, label.Refresh
move_to_back(label, 1)
expect.fails(438, 'FlatButton has no member "Refresh"', function() refresh(button) end)
expect.fails(438, 'FlatButton has no member "Refresh"', function() refresh(button) end)
refresh(label)
local list, item = lw.new("ksxValueList"), lw.new("ksxValueListItem")
local add = list.Add
expect.equal(tostring(add(list, "kg")), "ksxValueListItem")
expect.fails(438, 'ksxValueListItem has no member "Add"', function() add(item, "kg") end)

-- Indexed properties are kept; each control has its own.
local tabs, more = f:add("FlatTabStrip", "tabMain"), f:add("FlatTabStrip", "tabMore")
expect.equal(tabs.TabCaption, tabs.TabCaption)
expect.equal(tabs.TabCaption ~= more.TabCaption, true)
tabs.TabCount, more.TabCount = 2, 2
tabs.TabCaption[2], more.TabCaption[2] = "Lines", "More"
expect.equal(tabs.TabCaption[2], "Lines")
expect.equal(more.TabCaption[2], "More")
expect.equal(tabs.TabCaption["2"], "Lines")

-- Of a control that is no longer on a form, nothing is left.
local captions = tabs.TabCaption
f:remove("tabMain")
expect.fails(5, "tabMain is on no form any more", function() return tabs.TabCaption end)
expect.fails(5, "tabMain is on no form any more", function() return captions[2] end)
expect.fails(5, "tabMain is on no form any more", function() captions[2] = "x" end)
local refresh_tabs = tabs ~= nil and f:add("FlatTabStrip", "tabMain")
expect.equal(refresh_tabs.TabCaption ~= captions, true)
expect.fails(5, "tabMain is on no form any more", function() return captions[2] end)
f:remove("lblText")
expect.fails(5, "lblText is on no form any more", function() return label.Caption end)
expect.fails(5, "lblText is on no form any more", function() refresh(label) end)

-- Kept values keep no control: what nobody uses goes.
local weak = setmetatable({ button, other.Caption and list.Item }, { __mode = "v" })
expect.equal(weak[2], list.Item)
button, other, list, item, add, move_to_back = nil, nil, nil, nil, nil, nil
f:remove("cmdOK")
collectgarbage()
collectgarbage()
expect.equal(weak[1], nil)
expect.equal(weak[2], nil)
