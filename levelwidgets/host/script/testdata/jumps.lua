-- A pointer that scripts set down at once clicks one button after another.
local expect = require "expect"
local d = lw.desktop{}
local f = lw.form{ Name="frm", Width=6000, Height=3000 }
local clicked = {}
local function button(name, left)
  local cmd = f:add("FlatButton", name, { Left=left, Top=300, Width=1200, Height=375 })
  cmd:on("Click", function() clicked[#clicked + 1] = name end)
  return cmd
end
local one, two = button("one", 300), button("two", 3000)
f:show()

for _ = 1, 3 do
  d:move_to(one, 300, 100)
  d:click()
  d:move_to(two, 300, 100)
  d:click()
end
expect.list(clicked, { "one", "two", "one", "two", "one", "two" })

local function middle(control)
  local left, top, right, bottom = d:rect(control)
  return (left + right) // 2, (top + bottom) // 2
end
clicked = {}
for _ = 1, 2 do
  d:click(middle(one))
  d:click(middle(two))
end
expect.list(clicked, { "one", "two", "one", "two" })

clicked = {}
d:move(middle(one))
d:press(1)
d:release(1)
d:advance(1000)
d:doubleclick(middle(two))
expect.list({ clicked[1], clicked[2] }, { "one", "two" })
