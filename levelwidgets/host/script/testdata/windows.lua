-- Monitors, oblong pixels, whole windows, other programs and the pointer's shape.
local expect = require "expect"

local monitors_rule = "The desktop's monitors are a list of { left, top, width, height } in pixels: 1 to 16 of them, each " ..
                      "up to 16384 pixels wide, high and away, the first one, the primary, at 0, 0"
for _, monitors in ipairs{ {}, { { 10, 0, 640, 480 } }, { { 0, 0, 640 } }, { { 0, 0, 640, 0 } }, { 5 } } do
  expect.fails(5, monitors_rule, function() lw.desktop{ monitors = monitors } end)
end
expect.fails(5, "The desktop has either a width and a height, or monitors",
             function() lw.desktop{ monitors = { { 0, 0, 640, 480 } }, width = 640 } end)
expect.fails(5, "The desktop's dpi_y is between 24 and 960", function() lw.desktop{ dpi_y = 10 } end)
local d = lw.desktop{ monitors = { { 0, 0, 1024, 768 }, { 1024, -256, 1280, 1024 } }, dpi_x = 96, dpi_y = 72 }

local monitors = d:monitors()
expect.equal(#monitors, 2)
expect.list({ monitors[2].left, monitors[2].top, monitors[2].width, monitors[2].height }, { 1024, -256, 1280, 1024 })
local screen = lw.screen()
expect.list({ screen.TwipsPerPixelX, screen.TwipsPerPixelY }, { 15.0, 20.0 })
expect.list({ screen.Width, screen.Height }, { 1024 * 15.0, 768 * 20.0 })

-- Twips become pixels by another measure down than across.
local f = lw.form{ Name="frm", Caption="Windows", Width=6000, Height=4000 }
local cmd = f:add("FlatButton", "cmd", { Left=150, Top=200, Width=1500, Height=400 })
local txt = f:add("FlatTextBox", "txt", { Left=150, Top=1000, Width=1500, Height=400 })
f:show()
local left, top, right, bottom = d:rect(cmd)
expect.list({ right - left, bottom - top }, { 100, 20 })

-- The pointer's shape.
d:move_to(cmd, 150, 100)
expect.equal(d:pointer_shape(), "arrow")
d:move_to(txt, 150, 100)  -- out of the button, which has the pointer captured and lets it go
expect.equal(d:pointer_shape(), "ibeam")
local form_left, form_top, form_right, form_bottom = d:rect(f)
d:move(form_right - 1, form_bottom - 1)
expect.equal(d:pointer_shape(), "size nwse")

-- An edge is dragged.
local resized = 0
f:on("Resize", function() resized = resized + 1 end)
d:press()
d:move(form_right + 29, form_bottom + 9)
d:release()
expect.equal(resized, 1)
expect.list({ f.Width, f.Height }, { 6000 + 30 * 15.0, 4000 + 10 * 20.0 })

-- The pointer is kept on the monitors, and the second one shows what is there.
d:move(1500, -200)
expect.equal(d:pixel(1500, -200) ~= nil, true)
expect.equal(d:pixel(500, -200), nil)

-- Minimised, maximised and restored.
left, top, right, bottom = d:rect(f)
d:minimize(f)
expect.equal(d:active(), 0)
d:restore(f)
expect.list({ d:rect(f) }, { left, top, right, bottom })
d:maximize(f)
expect.list({ d:rect(f) }, { 0, 0, 1024, 768 })
d:restore(f)
expect.list({ d:rect(f) }, { left, top, right, bottom })

-- Another program.
local events = {}
f:on("Deactivate", function() events[#events + 1] = "Deactivate" end)
f:on("Activate", function() events[#events + 1] = "Activate" end)
d:leave()
expect.equal(d:active(), 0)
d:enter()
expect.equal(d:active() ~= 0, true)
expect.list(events, { "Deactivate", "Activate" })

-- The system menu and Alt+F4 ask first.
local asked = 0
f:on("Unload", function(e)
  asked = asked + 1
  e.Cancel = asked < 3
end)
d:close(f)
d:key(115, 4)
expect.equal(asked, 2)
expect.equal(#d:windows(), 1)
d:close(f)
expect.equal(#d:windows(), 0)
