local expect = require "expect"
local d = lw.desktop{}

-- Far enough apart for no double click.
local function click()
  d:advance(510)
  d:click()
end

local log = {}
local function logged(...) log[#log + 1] = table.concat({ ... }, " ") end
local function taken()
  local list = log
  log = {}
  return list
end

local f = lw.form{ Name="frm", Width=6000, Height=4000 }
local b = f:add("FlatButton", "cmdOK", { Left=120, Top=120, Width=1200, Height=375, Caption="&OK" })
local other = f:add("FlatButton", "cmdOther", { Left=120, Top=900 })

-- The form's own events have its name; Load comes before the form is shown the first time.
function frm_Load() logged("load", #d:windows()) end
function frm_Activate() logged("activate") end
function frm_Deactivate() logged("deactivate") end
f:on("Load", function() logged("load too") end)
f:show()
f:hide()
f:show()
expect.list(taken(), { "load 0", "load too", "activate", "deactivate", "activate" })
function frm_Resize() logged("resize", f.Width) end
f.Width = 5400
expect.list(taken(), { "resize 5400.0" })

-- A handler may be defined after the control exists, replaced and taken away.
d:move_to(b, 150, 150)
function cmdOK_Click() logged("click") end
click()
function cmdOK_Click() logged("another") end
click()
cmdOK_Click = nil
click()
expect.list(taken(), { "click", "another" })

-- The arguments by name; the handler by name is called first, then the others in the order added.
function cmdOK_MouseMove(e) logged("by name", e.Button, e.Shift, e.X, e.Y) end
local listening = true
b:on("MouseMove", function(e) if listening then logged("first", e.Button, e.Shift, e.X, e.Y) end end)
b:on("MouseMove", function() if listening then logged("second") end end)
d:move_to(b, 300, 165)
expect.list(taken(), { "by name 0 0 300.0 165.0", "first 0 0 300.0 165.0", "second" })
cmdOK_MouseMove, listening = nil, false

-- By-reference arguments are read back and reach the next listener.
local seen
function cmdOK_KeyPress(e) e.KeyAscii = e.KeyAscii + 1 end
b:on("KeyPress", function(e) seen = e.KeyAscii end)
b:SetFocus()
d:type("a")
expect.equal(seen, 98)

-- A press of the access key and of the default button.
function cmdOK_Click() logged("click") end
function cmdOther_Click() logged("other") end
d:key(79, 4)
other.Default = true
b:SetFocus()
d:key(13, 0)
expect.list(taken(), { "click", "other" })

-- PropertyChanged names the control and the property.
function frm_PropertyChanged(e) logged(e.Control, e.Name) end
b.Caption = "C"
frm_PropertyChanged = nil
expect.list(taken(), { "cmdOK Caption" })

-- Events inside coroutines and inside events.
local routine = coroutine.wrap(function()
  d:move_to(b, 150, 150)
  click()
  coroutine.yield("between")
  click()
end)
expect.equal(routine(), "between")
routine()
expect.list(taken(), { "click", "click" })
function cmdOther_Click() logged("other"); d:move(0, 0); d:move_to(b, 150, 150); click(); logged("done") end
d:move(0, 0)
d:move(0, 1)
d:move_to(other, 150, 150)
click()
expect.list(taken(), { "other", "click", "done" })

-- Unload may be refused.
function frm_Unload(e) logged("unload"); e.Cancel = true end
expect.equal(f:close(), false)
frm_Unload = nil
frm_Deactivate = nil
expect.equal(f:close(), true)
expect.list(taken(), { "unload" })
