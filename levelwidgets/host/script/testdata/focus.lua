-- The container's events, the form's keys, anchors and the control with the focus.
local expect = require "expect"
local d = lw.desktop{}
local f = lw.form{ Name="frm", Width=6000, Height=4000, KeyPreview=true }
local a = f:add("FlatTextBox", "txtA", { Left=120, Top=120, Width=1200, Height=375 })
local b = f:add("FlatTextBox", "txtB", { Left=120, Top=720, Width=1200, Height=375, Anchor="left right" })
local log = {}
local function note(text) return function() log[#log + 1] = text end end

function txtA_GotFocus() log[#log + 1] = "got a" end
function txtA_LostFocus() log[#log + 1] = "lost a" end
b:on("GotFocus", note "got b")
local valid = true
function txtA_Validate(e) log[#log + 1] = "validate a" e.Cancel = not valid end
expect.equal(f.ActiveControl, nil)
f:show()
expect.equal(f.ActiveControl, a)
expect.list(log, { "got a" })
log = {}

valid = false
d:key(9, 0)
expect.equal(f.ActiveControl, a)
expect.list(log, { "validate a" })
valid = true
d:key(9, 0)
expect.list(log, { "validate a", "validate a", "lost a", "got b" })
expect.equal(f.ActiveControl.Name, "txtB")
expect.fails(383, "Form.ActiveControl is read-only", function() f.ActiveControl = a end)
expect.fails(438, 'Placement.GotFocus is an event: listen to it by :on("GotFocus", function) or a handler of its name',
  function() return b.GotFocus end)

-- Keys come to the form first, which may change or take them.
expect.equal(f.KeyPreview, true)
function frm_KeyPress(e) if e.KeyAscii == 97 then e.KeyAscii = 98 end end
function frm_KeyDown(e) if e.KeyCode == 88 then e.KeyCode = 0 end end
d:type("axc")
expect.equal(b.Text, "bc")
f.KeyPreview = false
d:type("ax")
expect.equal(b.Text, "bcax")

-- Anchors.
expect.equal(b.Anchor, "left right")
expect.equal(a.Anchor, "")
f.Width = 9000
expect.equal(b.Width, 4200.0)
expect.equal(a.Width, 1200.0)
expect.fails(5, '"middle" is no edge: Anchor is made of left, top, right and bottom', function() a.Anchor = "middle" end)
expect.equal(a.Anchor, "")
expect.equal(f:text():find('Anchor = "left right"', 1, true) ~= nil, true)
expect.equal(f:text():find("KeyPreview", 1, true), nil)
f.KeyPreview = true
expect.equal(f:text():find("KeyPreview = true", 1, true) ~= nil, true)
expect.equal(#lw.errors(), 0)
