local expect = require "expect"
local d = lw.desktop{}
local f = lw.form{ Name="frm", Width=6000, Height=4000 }
local b = f:add("FlatButton", "cmdOK", { Left=120, Top=120, Width=1200, Height=375 })
f:show()
d:move_to(b, 150, 150)

local reached = 0
function cmdOK_Click() local nothing; reached = reached + 1; return nothing.field end
b:on("Click", function() reached = reached + 1 end)
d:click()
d:advance(510)  -- for no double click
d:click()
d:advance(510)
-- The form goes on, and so do the other listeners.
expect.equal(reached, 4)
expect.equal(#lw.errors(), 2)
local first = lw.errors()[1]
expect.equal(first.form, "frm")
expect.equal(first.control, "cmdOK")
expect.equal(first.event, "Click")
expect.equal(first.message:match("handler_errors.lua:%d+: .*$"):gsub(":%d+:", ":N:"),
             "handler_errors.lua:N: attempt to index a nil value (local 'nothing')")
expect.equal(first.traceback:match("^stack traceback:\n") ~= nil, true)
expect.equal(first.traceback:match("in function 'cmdOK_Click'") ~= nil, true)
cmdOK_Click = nil

-- An error of the library is told with its place.
b:on("MouseDown", function() b.hWnd = 1 end)
d:press(1)
expect.equal(lw.errors()[3].message:match("handler_errors.lua:%d+: FlatButton.hWnd is read%-only %(error 383, LevelWidgets.FlatButton%)$") ~= nil, true)
d:release(1)

-- What does not convert back is reported, and the argument stays.
b:on("KeyPress", function(e) e.KeyAscii = "x" end)
local seen
b:on("KeyPress", function(e) seen = e.KeyAscii end)
b:SetFocus()
d:type("a")
expect.equal(seen, 97)
expect.equal(lw.errors()[4].message,
             'e.KeyAscii is of type Integer; "x" does not convert to it: Type mismatch (error 13, LevelWidgets)')

-- Of the form itself.
f:on("Resize", function() error("too small", 0) end)
f.Width = 3000
expect.equal(lw.errors()[5].control, "")
expect.equal(lw.errors()[5].message, "too small")

-- A handler cannot be left by a yield.
b:on("KeyUp", function() coroutine.yield() end)
coroutine.wrap(function() d:key(65) end)()
expect.equal(lw.errors()[7].message:match("attempt to yield across a C%-call boundary") ~= nil, true)
return 7  -- errors in handlers, as counted by who runs this
