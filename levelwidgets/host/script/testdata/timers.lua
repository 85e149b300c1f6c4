-- Timers, to the millisecond.
local expect = require "expect"
local d = lw.desktop{}

-- A timer ticks until it is stopped, or until its form is closed.
local ticks = 0
local t = lw.timer{ ms=100, on=function() ticks = ticks + 1 end }
d:advance(99)
expect.equal(ticks, 0)
d:advance(1)
expect.equal(ticks, 1)
d:advance(200)
expect.equal(ticks, 3)
t:stop()
t:stop()
d:advance(500)
expect.equal(ticks, 3)

local second = lw.form{ Name="second", Width=3000, Height=2000 }
local of_second, hidden = 0, 0
lw.timer{ ms=100, form=second, on=function() of_second = of_second + 1 end }
second:show()
second:hide()
d:advance(100)
expect.equal(of_second, 1)
second:close()
d:advance(300)
expect.equal(of_second, 1)

-- One that stops itself.
local once
local own = 0
once = lw.timer{ ms=100, on=function() own = own + 1 once:stop() end }
d:advance(300)
expect.equal(own, 1)
expect.fails(5, "A timer's ms is a number of milliseconds, 1 or more", function() lw.timer{ ms=0, on=print } end)
expect.fails(13, "A timer needs a function: lw.timer{ ms = 500, on = f }", function() lw.timer{ ms=1 } end)
expect.fails(438, 'Timer has no member "stpo"; did you mean "stop"?', function() t:stpo() end)
