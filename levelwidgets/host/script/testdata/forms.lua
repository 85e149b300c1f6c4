local expect = require "expect"
local d = lw.desktop{}

-- A loaded form: its script has run with every control a global, and Load has come.
local f = lw.load("order.form.toml")
expect.equal(f.Name, "frmOrder")
expect.equal(f.Caption, "Order entry")
expect.equal(f.cmdSave.Caption, "&Store")
expect.equal(f.cmdSave.Tag, "loaded")
expect.equal(rawget(_G, "cmdSave"), nil)
expect.equal(rawget(_G, "cmdSave_Click"), nil)

-- Its handlers are those of its own script.
f:show()
d:move_to(f.cmdSave, 150, 150)
d:click()
expect.equal(f.cmdSave.Tag, "clicked")
expect.equal(f.cmdSave.ToolTipText, "150.0, 150.0")

-- Two of the same file have a script each.
local g = lw.load("order.form.toml")
expect.equal(g.cmdSave.Tag, "loaded")
g:close()

-- Handlers of the program serve where the form's script has none.
local clicks = 0
function cmdOther_Click() clicks = clicks + 1 end
local b = f:add("FlatButton", "cmdOther", { Left=3000, Top=3000 })
d:move(0, 0)
d:move(0, 1)
d:move_to(b, 150, 150)
d:click()
expect.equal(clicks, 1)

-- Saving and loading again.
local path = os.tmpname()
f.Caption = "Changed"
f:save(path)
local file = assert(io.open(path))
expect.equal(file:read("a"), f:text())
file:close()
expect.equal(f:text():match('Caption = "Changed"') ~= nil, true)
expect.equal(f:text():match("# inner size, twips") ~= nil, true)
os.remove(path)

-- Built by hand and saved.
local h = lw.form{ Name="frm", Caption="F" }
h:add("FlatButton", "cmdOK", { Left=120, Caption="&OK" })
expect.equal(h:text():match('Properties = { Caption = "&OK" }') ~= nil, true)

-- Everything wrong is told in one go, and nothing of it is shown.
local windows = #d:windows()
local err = select(2, pcall(lw.load, "broken.form.toml"))
local lines = {}
for line in err.description:gmatch("[^\n]+") do lines[#lines + 1] = line:match("broken.form.toml:(%d+):%d+: ") end
expect.list(lines, { "5", "9", "10" })
expect.equal(err.source, "LevelWidgets.Form")
expect.equal(#d:windows(), windows)

-- An error in the form's script is told with its place, and the form is not there.
local _, message = pcall(lw.load, "failing.form.toml")
expect.equal(message:match("failing.lua:2: not today\nstack traceback:") ~= nil, true)
expect.equal(#d:windows(), windows)
expect.equal(pcall(lw.load, "missing.form.toml"), false)
