local expect = require "expect"
local d = lw.desktop{}
local f = lw.form{ Name="frm" }
local b = f:add("FlatButton", "cmdOK", { Left=0, Top=0, Width=1200, Height=375, Caption="&OK" })
f:show()

expect.equal(#d:calls(), 0)
d:trace(true)
b.BackColor = 0x00112233
local calls = d:calls()
local names = {}
for i, call in ipairs(calls) do names[i] = call.name end
local frame, text
for _, call in ipairs(calls) do
  if call.name == "Rectangle" then frame = call end
  if call.name == "DrawTextA" then text = call end
end
expect.equal(math.type(frame[1]), "integer")
expect.list({ frame[2], frame[3], frame[4], frame[5] }, { 0, 0, 80, 25 })
local words = {}
for _, argument in ipairs(text) do if type(argument) == "string" then words[#words + 1] = argument end end
expect.list(words, { "&OK" })
expect.equal(text[#text], 37)

-- Taken once; asking the desktop is no call of the controls.
expect.equal(#d:calls(), 0)
d:rect(b)
d:focus()
expect.equal(#d:calls(), 0)
b.BackColor = 1
d:trace(false)
b.BackColor = 2
expect.equal(#d:calls(), #calls)
