-- Timers, forms and messages that are answered first, spans of dates.
local expect = require "expect"
local steps = require "steps"
local d = lw.desktop{}
local f, b = steps.form_with_button()

-- A timer ticks until it is stopped.
local timer, ticks = steps.counting_timer(20)
d:advance(300)
expect.equal(ticks() > 0, true)
steps.stop(d, timer, ticks)

-- An error in it is reported.
local failing
failing = lw.timer{ ms=20, on=function() failing:stop() error("late") end }
d:advance(300)
expect.equal(#lw.errors(), 1)
expect.equal(lw.errors()[1].event, "Timer")
expect.equal(lw.errors()[1].message:match("questions.lua:%d+: late$") ~= nil, true)

-- A modal form: the other one takes no input until it is closed; then the function is called.
local clicks, closed = 0, 0
function cmdOK_Click() clicks = clicks + 1 end
local modal = lw.form{ Name="modal", Width=3000, Height=2000 }
local inner = modal:add("FlatButton", "cmdClose", { Left=120, Top=120, Width=1200, Height=375 })
function cmdClose_Click() modal:close() end
local rect = { d:rect(b) }
modal:show_modal(function() closed = closed + 1 end)
modal.Left = 0
modal.Top = 0
d:click(rect[1] + 5, rect[2] + 5)
expect.equal(clicks, 0)
expect.equal(closed, 0)
steps.click(d, inner)
expect.equal(closed, 1)
expect.equal(d:active(), f.hWnd)
d:advance(600)
steps.click(d, b)
expect.equal(clicks, 1)

-- Hiding it ends it, too.
local again = lw.form{ Name="again", Width=3000, Height=2000 }
again:show_modal(function() closed = closed + 1 end)
again:hide()
d:advance(0)
expect.equal(closed, 2)
again:close()
d:advance(0)
expect.equal(closed, 2)

-- A message.
local answer
local m = lw.message{ text="Store it & close?\nThere is no way back.", style=32, buttons={ "&Yes", "&No" },
                      title="Store", on_closed=function(button) answer = button end }
expect.equal(m.Caption, "Store")
expect.equal(m.lblSign.Caption, "?")
expect.equal(m.lbl1.Caption, "Store it && close?")
expect.equal(m.lbl2.Caption, "There is no way back.")
expect.equal(m.cmd1.Default, true)
expect.equal(m.cmd2.Cancel, false)
d:key(78, 4)
expect.equal(answer, 2)
lw.message{ text="Read this", on_closed=function(button) answer = button end }
d:key(27, 0)
expect.equal(answer, 1)
m = lw.message{ text="", on_closed=function(button) answer = button end }
m:close()
d:advance(0)
expect.equal(answer, 0)
lw.message{ text="x" }:close()
expect.fails(5, "A message needs a button to answer it with", function() lw.message{ text="x", buttons={} } end)
expect.fails(5, "A message's style is 0, 16 (critical), 32 (question), 48 (warning) or 64 (information)",
  function() lw.message{ text="x", style=3 } end)
expect.fails(438, 'Message has no member "txt"; did you mean "text"?', function() lw.message{ txt="x" } end)

-- Sets of buttons, by number, by name, by their captions: the keys are those of the system's messages. Whoever drives the
-- desktop reads what the message says.
local text = "Store it?\n" .. ("long "):rep(60) .. "end"
local function ask(buttons)
  answer = nil
  return lw.message{ text=text, style=16, buttons=buttons, on_closed=function(button) answer = button end }
end
m = ask(4)
expect.equal(m.cmd1.Caption, "&Yes")
expect.equal(d:windows()[1].handle, m.hWnd)
expect.equal(d:windows()[1].title, "LevelWidgets")
expect.equal(d:windows()[1].text, text)
expect.equal(d:windows()[2].text, "")
d:key(27)
d:close(m)
expect.equal(answer, nil)
d:key(39)
d:key(13)
expect.equal(answer, 2)
for name, last in pairs{ OK=1, OKCancel=2, YesNoCancel=3 } do
  m = ask(name)
  expect.equal(m["cmd" .. last].Cancel, true)
  d:key(27)
  expect.equal(answer, last)
end
ask("YesNo")
d:type("n")
expect.equal(answer, 2)
m = ask{ "Yes", "No" }
local left, top, right, bottom = d:rect(m.cmd2)
d:key(27)
d:click((left + right) // 2, (top + bottom) // 2)
expect.equal(answer, 2)
for _, wrong in ipairs{ 2, "Ok", 2.5 } do
  expect.fails(5, "A message's buttons are a list of captions, or OK (0), OKCancel (1), YesNoCancel (3) or YesNo (4)",
    function() ask(wrong) end)
end
expect.fails(13, "Message.buttons takes a list", function() ask(true) end)
expect.equal(#d:windows(), 1)

-- Long words and many lines fit on the screen.
m = lw.message{ text=("word "):rep(100) .. ("x"):rep(300) .. ("\n"):rep(100) .. "end" }
expect.equal(m.Width < 8000, true)
expect.equal(m.Height < 12000, true)
expect.equal(m.lbl40.Caption, "...")
m:close()
d:advance(0)

-- Spans of dates.
local function day(...) return lw.date(...) end
expect.equal(lw.date_add("m", 1, day(2024, 1, 31)), day(2024, 2, 29))
expect.equal(lw.date_add("n", -90, day(2024, 3, 1, 0, 30)), day(2024, 2, 29, 23, 0))
expect.fails(5, "Invalid procedure call or argument", function() lw.date_add("x", 1, day(2024, 1, 31)) end)
for _, case in ipairs{ { "yyyy", 1 }, { "q", 1 }, { "m", 1 }, { "d", 1 }, { "y", 1 }, { "w", 0 }, { "ww", 0 }, { "h", 1 },
                       { "n", 1 }, { "s", 1 } } do
  expect.equal(lw.date_diff(case[1], day(2024, 12, 31, 23, 59, 59), day(2025, 1, 1)), case[2])
  expect.equal(lw.date_diff(case[1], day(2025, 1, 1), day(2024, 12, 31, 23, 59, 59)), -case[2])
end
expect.equal(lw.date_diff("ww", day(2024, 6, 1), day(2024, 6, 2)), 1)
expect.equal(lw.date_diff("ww", day(2024, 6, 1), day(2024, 6, 2), 2), 0)
expect.equal(lw.date_diff("ww", day(2024, 6, 2), day(2024, 6, 3), 2), 1)
expect.equal(lw.date_diff("w", day(2024, 6, 1), day(2024, 6, 14)), 1)
expect.equal(lw.date_diff("w", day(2024, 6, 1), day(2024, 6, 15)), 2)
expect.equal(lw.date_diff("h", day(1899, 12, 29, 23), day(1899, 12, 30, 1)), 2)
expect.fails(5, "Invalid procedure call or argument", function() lw.date_diff("x", day(2024, 1, 1), day(2024, 1, 2)) end)
return 1
