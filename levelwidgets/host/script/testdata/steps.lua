-- Steps that several of the test scripts take.
local lw = require "levelwidgets"
local expect = require "expect"
local steps = {}

-- A shown form with one button.
function steps.form_with_button()
  local form = lw.form{ Name="frm", Width=6000, Height=4000 }
  local button = form:add("FlatButton", "cmdOK", { Left=120, Top=120, Width=1200, Height=375 })
  form:show()
  return form, button
end

function steps.click(desktop, control)
  desktop:move_to(control, 150, 150)
  desktop:click()
end

-- A timer, of `form` where one is given, and a function that says how often it has ticked.
function steps.counting_timer(ms, form)
  local ticks = 0
  local timer = lw.timer{ ms=ms, form=form, on=function() ticks = ticks + 1 end }
  return timer, function() return ticks end
end

-- Once stopped, and stopped again, it ticks no more.
function steps.stop(desktop, timer, ticks)
  local seen = ticks()
  timer:stop()
  timer:stop()
  desktop:advance(500)
  expect.equal(ticks(), seen)
end

return steps
