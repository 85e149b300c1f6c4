-- levelwidgets run examples/order/order_test.lua
local desktop = lw.desktop{}
local form = lw.load("order.form.toml")
form:show()
desktop:move_to(form.cmdSave, 600, 200)
desktop:click()
assert(form.cmdSave.Caption == "Saved 1", form.cmdSave.Caption)
