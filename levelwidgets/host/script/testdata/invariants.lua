local expect = require "expect"
local d = lw.desktop{ width = 640, height = 480 }
local f = lw.form{ Name = "frm", Width = 6000, Height = 4000 }
local b = f:add("FlatButton", "cmd", { Left = 300, Top = 300 })
local s = f:add("FlatScroll", "scr", { Left = 3000, Top = 300, Height = 2000, Properties = {} })
f:show()

-- What holds always, one of the others, and one of a control.
expect.equal(d:check(f), nil)
expect.equal(d:check(f, "repaint"), nil)
expect.equal(d:check(f, "bag", b), nil)
expect.equal(d:check(f, "hover", b, s), nil)
expect.fails(438, 'Desktop has no member "repait"; did you mean "repaint"?', function() d:check(f, "repait") end)

-- A disabled bar is not painted by itself: its thumb stays.
s.Enabled = false
expect.equal(d:check(f, "repaint"):match("^repaint: screen pixel %d+, %d+ %(FlatScroll scr%)") ~= nil, true)
d:repaint()
expect.equal(d:check(f, "repaint"), nil)

-- An exception that is no error of a script passes through the control, once.
d:throw(b, "Click")
d:move_to(b, 600, 200)
d:press(1)
local ok, err = pcall(function() d:release(1) end)
expect.equal(ok, false)
expect.equal(tostring(err):match("thrown on purpose"), "thrown on purpose")
d:click()
expect.equal(d:check(f), nil)

-- The wheel goes to the focus.
d:wheel(-1)

expect.equal(d:close_all(), nil)
