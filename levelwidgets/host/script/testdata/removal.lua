local expect = require "expect"
local d = lw.desktop{}
local before = d:objects()
local f = lw.form{ Name="frm", Width=6000, Height=4000 }
local stock = d:objects()
local function add()
  return f:add("FlatButton", "cmdOK", { Left=120, Top=120, Width=1200, Height=375 })
end

-- A handler removes the sender, from each of its events on the way of a click.
f:show()
for _, event in ipairs{ "MouseMove", "MouseDown", "MouseUp", "Click" } do
  local b = add()
  local raised = 0
  b:on(event, function() raised = raised + 1; f:remove("cmdOK") end)
  d:move(0, 0)
  d:move_to(b, 150, 150)
  d:click()
  expect.equal(raised, 1)
  expect.equal(#f:controls(), 0)
  expect.fails(5, "cmdOK is on no form any more", function() return b.Caption end)
  expect.fails(5, "cmdOK is on no form any more", function() b.Left = 1 end)
  expect.fails(5, "cmdOK is on no form any more", function() b:SetFocus() end)
  expect.fails(5, "cmdOK is on no form any more", function() d:rect(b) end)
  expect.equal(tostring(b), "FlatButton cmdOK")
end
collectgarbage()
expect.equal(d:objects(), stock)

-- While it sets a property, too.
local b = add()
f:on("PropertyChanged", function(e) if e.Control == "cmdOK" then f:remove("cmdOK") end end)
b.Caption = "gone"
expect.equal(#f:controls(), 0)
expect.fails(5, 'frm has no control named "cmdOK"', function() f:remove("cmdOK") end)

-- A handler closes the form.
local g = lw.form{ Name="frmOther", Width=3000, Height=3000 }
local c = g:add("FlatButton", "cmdClose", { Left=0, Top=0, Width=1200, Height=375 })
function cmdClose_Click() expect.equal(g:close(), true) end
g:show()
d:move_to(c, 150, 150)
d:click()
expect.equal(#d:windows(), 1)
expect.fails(5, "frmOther is closed", function() g:show() end)
expect.fails(5, "frmOther is closed", function() return g.Caption end)
expect.fails(5, "frmOther is closed", function() d:rect(g) end)
expect.fails(5, "cmdClose is on no form any more", function() return c.Caption end)

-- A form that no variable holds stays open until it is closed.
lw.form{ Name="frmKept" }:show()
collectgarbage()
expect.equal(#d:windows(), 2)

-- Everything drawn with is given back.
f:close()
f, g, b, c = nil, nil, nil, nil
collectgarbage()
collectgarbage()
expect.equal(d:objects(), before)
