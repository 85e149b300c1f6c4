-- Values that scripts give to properties and methods are converted by the desktop's locale.
local expect = require "expect"

local list = lw.new("ksxValueList")                -- needs no desktop yet
list:Add("Kilogram")
-- Options of the desktop itself come before its locale.
expect.fails(13, 'Desktop.width cannot be "640": Type mismatch', function() lw.desktop{ width="640" } end)
local d = lw.desktop{ locale="de-DE" }
local f = lw.form{ Name="frm", Caption=12.5, Width="3.000" }
expect.equal(f.Caption, "12,5")
expect.equal(f.Width, 3000.0)
local box = f:add("FlatTextBox", "box", { Text=0.5 })
local scr = f:add("FlatScroll", "scr")

-- Texts of numbers, dates and booleans.
expect.equal(box.Text, "0,5")
box.Text = 12.5
expect.equal(box.Text, "12,5")
expect.equal(lw.to_number(box.Text), 12.5)
box.Text = lw.date(2024, 5, 31)
expect.equal(box.Text, "31.05.2024")
expect.equal(lw.to_date(box.Text), lw.date(2024, 5, 31))
box.Text = 0.00001
expect.equal(box.Text, "0,00001")
box.Text = true
expect.equal(box.Text, "True")
list:Add(2.25)
expect.equal(list[2].Description, "2,25")

-- Numbers, booleans and lengths of texts.
box.Enabled = "FALSE"
expect.equal(box.Enabled, false)
box.Enabled = "#TRUE#"
expect.equal(box.Enabled, true)
scr.Max = "1.000"
expect.equal(scr.Max, 1000)
scr.LargeChange = "&H10"
expect.equal(scr.LargeChange, 16)
scr.SmallChange = "2,5"
expect.equal(scr.SmallChange, 2)
scr.Width = "1.200,5"
expect.equal(scr.Width, 1200.5)
box.Font.Size = "9,75"
expect.equal(box.Font.Size, 9.75)
expect.fails(13, 'FlatScroll.Max is of type Long; "viel" does not convert to it: Type mismatch',
             function() scr.Max = "viel" end)
expect.fails(6, 'FlatScroll.Max is of type Long; "1E400" does not convert to it: Overflow',
             function() scr.Max = "1E400" end)

-- What handlers make of by-reference arguments.
f:show()
box:on("KeyPress", function(e) e.KeyAscii = "66,4" end)
box:SetFocus()
box.Text = ""
d:type("a")
expect.equal(box.Text, "B")

