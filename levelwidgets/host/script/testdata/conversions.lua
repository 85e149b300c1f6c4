local expect = require "expect"

-- Formats.
expect.equal(lw.format(1234.5, "0.00"), "1234.50")
expect.equal(lw.format(1234.5, "Standard"), "1,234.50")
expect.equal(lw.format(0.256, "Percent"), "25.60%")
expect.equal(lw.format(true, "Yes/No"), "Yes")
expect.equal(lw.format(lw.date(2024, 5, 31), "dd mmm yyyy"), "31 May 2024")
expect.equal(lw.format(lw.date(2024, 5, 31, 14, 5, 9), "h:nn:ss"), "14:05:09")
expect.equal(lw.format("kg", "0.00"), "kg")
expect.equal(lw.format("kg", ">"), "KG")
expect.equal(lw.format(lw.null, "0.00"), "")
expect.equal(lw.format(12.5), "12.5")
expect.equal(lw.format(lw.date(2024, 1, 1), "ww", 2, 2), "1")

-- Numbers.
expect.equal(lw.is_numeric("1,250.00"), true)
expect.equal(lw.is_numeric("kg"), false)
expect.equal(lw.is_numeric(lw.date(2024, 5, 31)), false)
expect.equal(lw.to_number("(1,250.50)"), -1250.5)
expect.equal(lw.to_number("&HFF"), 255.0)
expect.equal(math.type(lw.to_number("7")), "float")

-- Dates.
expect.equal(lw.is_date("31 May 2024"), true)
expect.equal(lw.is_date("May 45 2024"), false)
expect.equal(lw.is_date(12), false)
expect.equal(lw.to_date("5/31/2024"), lw.date(2024, 5, 31))
expect.equal(lw.month_name(5), "May")
expect.equal(lw.month_name(9, true), "Sep")
expect.equal(lw.weekday(lw.date(2024, 5, 31)), 6)
expect.equal(lw.weekday(lw.date(2024, 5, 31), 2), 5)

-- What is refused, by the numbers of the automation layer.
expect.fails(13, "Type mismatch", function() lw.to_number("kg") end)
expect.fails(6, "Overflow", function() lw.to_number("1e400") end)
expect.fails(13, "Type mismatch", function() lw.to_date("not a day") end)
expect.fails(5, "Invalid procedure call or argument", function() lw.month_name(13) end)
expect.fails(6, "Overflow", function() lw.month_name(4294967297) end)
expect.fails(6, "Overflow", function() lw.format(1, "0", 4294967297) end)
expect.fails(6, "Overflow", function() lw.weekday(lw.date(2024, 5, 31), 4294967298) end)
expect.fails(6, "Overflow", function() lw.date(4294969320, 5, 31) end)

-- By the number, not by the text of a date.
expect.equal(lw.format(lw.date(2024, 5, 31, 12), "General Number"), "45443.5")
expect.equal(lw.format(lw.date(2024, 5, 31, 12), "standard"), "45,443.50")
expect.equal(lw.format("abcdefgh", "@@@@"), "abcdefgh")
expect.fails(438, 'lw has no member "fromat"; did you mean "format"?', function() return lw.fromat end)
