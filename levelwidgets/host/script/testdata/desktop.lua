local expect = require "expect"

local d = lw.desktop{ width=1024, height=768, dpi=96, locale="en-US", today="2024-05-15T10:30:00" }  -- before the first form
expect.equal(lw.to_date("12/31"), lw.date(2024, 12, 31))  -- of this year
expect.equal(lw.color(0x8000000D), 0x00D77800)  -- of the light palette
-- An exclamation mark keeps the last characters, which not every system's own conversions do.
expect.equal(lw.format("abcdefgh", "!@@@@"), "efgh")

local cmdOK_is_at = function(f) return f:add("FlatButton", "cmdOK", { Left=120, Top=150, Width=1200, Height=375 }) end
local f = lw.form{ Name="frm", Caption="Title", Width=6000, Height=4000 }
local cmdOK = cmdOK_is_at(f)
f:show()

local log = {}
local function record(event, ...)
  local names = { ... }
  cmdOK:on(event, function(e)
    local parts = { event }
    for _, name in ipairs(names) do parts[#parts + 1] = tostring(e[name]) end
    log[#log + 1] = table.concat(parts, " ")
  end)
end
local function taken()
  local list = log
  log = {}
  return list
end
record("Click")
record("MouseDown", "Button", "Shift", "X", "Y")
record("MouseUp", "Button", "Shift", "X", "Y")
record("KeyDown", "KeyCode", "Shift")
record("KeyPress", "KeyAscii")
record("KeyUp", "KeyCode", "Shift")

-- Places.
local left, top, right, bottom = d:rect(cmdOK)
expect.list({ right - left, bottom - top }, { 80, 25 })
local form_left, form_top, form_right, form_bottom = d:rect(f)
expect.equal(form_left < left and form_top < top and right < form_right and bottom < form_bottom, true)

-- The pointer, in screen pixels and in twips inside a control.
d:move(left + 2, top + 3)
d:press(1)
d:release(1)
d:move_to(cmdOK, 60, 75)
d:press(2)
d:release(2)
d:press(4)
d:release(4)
expect.list(taken(), { "MouseDown 1 0 30.0 45.0", "MouseUp 1 0 30.0 45.0", "Click", "MouseDown 2 0 60.0 75.0",
                       "MouseUp 2 0 60.0 75.0", "MouseDown 4 0 60.0 75.0", "MouseUp 4 0 60.0 75.0" })
d:advance(1000)
d:click(left + 4, top + 4)
expect.list(taken(), { "MouseDown 1 0 60.0 60.0", "MouseUp 1 0 60.0 60.0", "Click" })
d:advance(1000)
local label = f:add("FlatLabel", "lbl", { Left=120, Top=900 })
-- After a click the button holds the pointer until the second move outside it.
d:move(0, 0)
d:move(0, 1)
local doubles = 0
label:on("DblClick", function() doubles = doubles + 1 end)
local x, y = d:rect(label)
d:doubleclick(x + 5, y + 5)
expect.equal(doubles, 1)
expect.fails(5, "A button is 1 (left), 2 (right) or 4 (middle)", function() d:press(3) end)

-- Keys.
cmdOK:SetFocus()
d:key(65, 0)
d:keydown(66, 1)
d:keyup(66, 1)
d:type("x")
expect.list(taken(), { "KeyDown 65 0", "KeyPress 97", "KeyUp 65 0", "KeyDown 16 1", "KeyDown 66 1", "KeyPress 66",
                       "KeyUp 66 1", "KeyUp 16 0", "KeyDown 88 0", "KeyPress 120", "KeyUp 88 0" })

-- Windows and who has what.
expect.equal(d:focus(), cmdOK.hWnd)
expect.equal(d:active(), f.hWnd)
local windows = d:windows()
expect.equal(#windows, 1)
d:trace(true)
d:windows()
expect.equal(#d:calls(), 0)
d:trace(false)
local w = windows[1]
expect.list({ w.handle, w.title, w.left, w.top, w.width, w.height, w.active },
            { f.hWnd, "Title", form_left, form_top, form_right - form_left, form_bottom - form_top, true })
d:move(0, 0)
expect.equal(d:capture(), 0)
d:move_to(cmdOK, 60, 75)
expect.equal(d:capture(), cmdOK.hWnd)

-- Pixels, and time: the button is left by its capture, the label by its timer.
expect.equal(d:pixel(left + 10, top + 1), cmdOK.BackColorMouseOver)
d:move(0, 0)
expect.equal(d:pixel(left + 10, top + 1), 0x00CDD9DD)
expect.equal(d:pixel(-1, 0), nil)
label.BackColorMouseOver = 0x00112233
d:move(x + 5, y + 5)
expect.equal(d:pixel(x, y), 0x00112233)
d:move(0, 0)
expect.equal(d:pixel(x, y), 0x00112233)
d:advance(100)
expect.equal(d:pixel(x, y), 0)

-- Pictures.
local path = os.tmpname()
d:screenshot(path)
d:screenshot(path, left, top, right - left, bottom - top)
local file = assert(io.open(path, "rb"))
expect.equal(file:read(8), "\x89PNG\r\n\x1a\n")
file:close()
os.remove(path)
expect.fails(5, 'The picture "/nowhere/x.png" cannot be written: No such file or directory',
             function() d:screenshot("/nowhere/x.png") end)
for _, size in ipairs{ { 16385, 5 }, { 5, -1 }, { 1 << 40, 5 } } do
  expect.fails(5, "A screenshot is of x, y, width, height: the last two up to 16384 pixels",
               function() d:screenshot("x.png", 0, 0, size[1], size[2]) end)
end
expect.fails(5, 'The picture "x.png" cannot be written: it has no pixels', function() d:screenshot("x.png", 0, 0, 0, 5) end)

-- Objects are counted; a desktop is made once, before the first form.
expect.equal(d:objects() > 0, true)
expect.fails(5, "There is a desktop already: it is made once, before the first form", function() lw.desktop{} end)
expect.fails(438, 'Desktop has no member "clik"; did you mean "click"?', function() d:clik(1, 1) end)
expect.fails(438, 'Desktop has no member "widht"; did you mean "width"?', function() lw.desktop{ widht=1 } end)
expect.fails(5, 'The desktop\'s today is written as "2024-05-15T10:30:00"', function() lw.desktop{ today="15.5.2024" } end)
expect.fails(5, "The desktop's width and height are between 1 and 16384 pixels", function() lw.desktop{ width=0 } end)
expect.fails(5, "The desktop's dpi is between 24 and 960", function() lw.desktop{ dpi=1 } end)
