-- Timers, to the millisecond.
local expect = require "expect"
local steps = require "steps"
local d = lw.desktop{}

-- A timer ticks until it is stopped, or until its form is closed.
local t, ticks = steps.counting_timer(100)
d:advance(99)
expect.equal(ticks(), 0)
d:advance(1)
expect.equal(ticks(), 1)
d:advance(200)
expect.equal(ticks(), 3)
steps.stop(d, t, ticks)

local second = lw.form{ Name="second", Width=3000, Height=2000 }
local _, of_second = steps.counting_timer(100, second)
second:show()
second:hide()
d:advance(100)
expect.equal(of_second(), 1)
second:close()
d:advance(300)
expect.equal(of_second(), 1)

-- One that stops itself.
local once
local own = 0
once = lw.timer{ ms=100, on=function() own = own + 1 once:stop() end }
d:advance(300)
expect.equal(own, 1)
expect.fails(5, "A timer's ms is a number of milliseconds, 1 or more", function() lw.timer{ ms=0, on=print } end)
expect.fails(13, "A timer needs a function: lw.timer{ ms = 500, on = f }", function() lw.timer{ ms=1 } end)
expect.fails(438, 'Timer has no member "stpo"; did you mean "stop"?', function() t:stpo() end)
