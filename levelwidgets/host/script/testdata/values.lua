local expect = require "expect"

local f = lw.form{ Name="frm", Font=lw.font{ Name="Tahoma", Size=10, Bold=true }, BackColor=0x80000005 }
local b = f:add("FlatButton", "b")

-- Null and dates.
expect.equal(tostring(lw.null), "Null")
expect.equal(lw.null, lw.null)
local date = lw.date(2024, 5, 31)
expect.equal(tostring(date), "2024-05-31")
expect.list({ date.year, date.month, date.day, date.hour }, { 2024, 5, 31, 0 })
local time = lw.date(2024, 5, 31, 10, 30, 5)
expect.equal(tostring(time), "2024-05-31T10:30:05")
expect.list({ time.hour, time.minute, time.second }, { 10, 30, 5 })
expect.equal(lw.date(2024, 5, 31), date)
expect.equal(date < time, true)
expect.equal(date <= lw.date(2024, 5, 31), true)
expect.equal(lw.date(1800, 1, 1, 6) < lw.date(1800, 1, 1, 18), true)
expect.fails(5, "There is no such day or time", function() lw.date(2023, 2, 29) end)
expect.fails(5, "There is no such day or time", function() lw.date(2023, 2, 28, 24) end)
expect.fails(438, 'Date has no member "dya"; did you mean "day"?', function() return date.dya end)

-- Colours are never negative, so that they are as they are written.
expect.equal(b.ForeColor, 0x80000012)
expect.equal(f.BackColor, 0x80000005)
b.BackColor = 0x8000000D
expect.equal(b.BackColor, 0x8000000D)
b.BackColor = -2147483635
expect.equal(b.BackColor, 0x8000000D)
expect.fails(6, "FlatButton.BackColor is of type Color; 4294967296 does not convert to it: Overflow",
             function() b.BackColor = 0x100000000 end)

-- Conversions on assignment.
b.Caption = 12
expect.equal(b.Caption, "12")
b.Caption = 1.5
expect.equal(b.Caption, "1.5")
b.Enabled = 0
expect.equal(b.Enabled, false)
b.Enabled = "True"
expect.equal(b.Enabled, true)
expect.fails(13, "FlatButton.Caption is of type String; Null does not convert to it: Type mismatch",
             function() b.Caption = lw.null end)
expect.fails(13, "Type mismatch", function() b.Caption = print end)
b.Caption = "Grün\0x"
expect.equal(b.Caption, "Grün\0x")

-- Fonts: the form's is the controls' default, a copy each; a control's own is shared and can be changed.
expect.equal(tostring(b.Font), "Tahoma 10")
expect.equal(b.Font.Bold, true)
b.Font.Bold = false
expect.equal(b.Font.Bold, false)
expect.equal(f.Font.Bold, true)
local font = lw.font{ Name="Tahoma", Size=8.25, Italic=true, Charset=2 }
b.Font = font
font.Underline = true
expect.equal(b.Font.Underline, true)
expect.equal(b.Font, lw.font{ Name="Tahoma", Size=8.25, Italic=true, Underline=true, Charset=2 })
expect.equal(b.Font ~= lw.font{ Name="Tahoma", Size=8.25 }, true)
b.Font = { Name="Tahoma", Size=12 }
expect.equal(b.Font.Size, 12.0)
expect.fails(438, 'Font has no member "Sise"; did you mean "Size"?', function() lw.font{ Sise=8 } end)
expect.fails(380, 'Font.Size cannot be 0: a size is more than 0 points', function() font.Size = 0 end)
expect.fails(13, 'Font.Size is of type Double; "big" does not convert to it: Type mismatch', function() font.Size = "big" end)
expect.fails(13, "FlatButton.Font is of type Font; 3 does not convert to it: Type mismatch",
             function() b.Font = 3 end)

-- Classes that scripts create.
expect.fails(5, 'lw.new makes no "FlatColumn"; it makes: ksxValueList, ksxValueListItem',
             function() lw.new("FlatColumn") end)

-- Colours as they are drawn; those of the system are the desktop's.
expect.equal(lw.color(0x00804A1C), 0x00804A1C)
expect.equal(lw.color(0x8000000D), lw.color(-0x7FFFFFF3))
for _, bits in ipairs{ 0x80000099, 0x100000000, -0x80000001 } do
  expect.fails(5, "A colour is 0x00BBGGRR, or 0x80000000 and the number of a system colour",
               function() lw.color(bits) end)
end
