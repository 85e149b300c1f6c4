local expect = require "expect"

local f = lw.form{ Name="frm" }
local b = f:add("FlatButton", "cmdOK")
local l = f:add("FlatLabel", "lblText")

-- Unknown members name the class and suggest the nearest of the control's and the container's.
local err = expect.fails(438, 'FlatButton has no member "Captoin"; did you mean "Caption"?',
                         function() return b.Captoin end)
expect.equal(err.source, "LevelWidgets.FlatButton")
expect.equal(tostring(err):match("members.lua:%d+: FlatButton has no member") ~= nil, true)
expect.equal(tostring(err):match("%(error 438, LevelWidgets.FlatButton%)$") ~= nil, true)
expect.fails(438, 'FlatButton has no member "TabIndx"; did you mean "TabIndex"?', function() b.TabIndx = 1 end)
expect.fails(438, 'FlatButton has no member "setfocus"; did you mean "SetFocus"?', function() b:setfocus() end)
expect.fails(438, 'FlatButton has no member "propertis"; did you mean "properties"?', function() b:propertis() end)
expect.fails(438, 'FlatButton has no member "Xylophone"', function() return b.Xylophone end)
expect.fails(438, 'Form has no member "Shw"; did you mean "show"?', function() f:Shw() end)
expect.fails(438, 'Form has no member "cmdKO"; did you mean "cmdOK"?', function() return f.cmdKO end)
expect.fails(438, 'lw has no member "fonts"; did you mean "font"?', function() return lw.fonts end)
expect.fails(438, 'lw has no member "Form"; did you mean "form"?', function() lw.Form = 1 end)

-- Read-only.
expect.fails(383, "FlatButton.hWnd is read-only", function() b.hWnd = 1 end)
expect.fails(383, "Placement.Name is read-only", function() b.Name = "x" end)
expect.fails(383, "Form.Design is read-only", function() f.Design = true end)
expect.fails(383, "Form.cmdOK is read-only", function() f.cmdOK = 1 end)
expect.fails(383, "FlatLabel.Refresh is a method", function() l.Refresh = 1 end)

-- Events are no values.
local hint = ' is an event: listen to it by :on("%s", function) or a handler of its name'
expect.fails(438, "FlatButton.Click" .. hint:format("Click"), function() return b.Click end)
expect.fails(438, "FlatButton.Click" .. hint:format("Click"), function() b.Click = print end)
expect.fails(438, "Form.Resize" .. hint:format("Resize"), function() f.Resize = print end)
expect.fails(438, 'FlatButton has no member "Clik"; did you mean "Click"?', function() b:on("Clik", print) end)

-- Methods.
expect.equal(l:Refresh(), nil)
expect.fails(450, "FlatLabel.Refresh takes 0 arguments, not 1", function() l:Refresh(1) end)

-- The same module by require.
expect.equal(require "levelwidgets", lw)
expect.equal(tostring(b), "FlatButton cmdOK")
expect.equal(tostring(f), "Form frm")
