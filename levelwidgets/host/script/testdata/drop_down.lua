-- A list that drops down, and where panels open.
local expect = require "expect"

local f = lw.form{ Name="frm", Caption="Drop-down", Width=6000, Height=4000, Left=1500, Top=1500 }
local cbo = f:add("FlatDropDown", "cbo", { Left=600, Top=600, Properties={ DDListCount=7, Style=0 } })
f:show()
for i = 1, 9 do cbo:AddItem("Item " .. i) end
local d = lw.desktop{}

-- The panel is a window of its own, and the fifth value of rect.
expect.equal(select("#", d:rect(cbo)), 4)
cbo:SetFocus()
local before = #d:windows()
d:key(115)
local left, top, right, bottom, panel = d:rect(cbo)
expect.list({ panel.left, panel.top, panel.right - panel.left }, { left, bottom, 192 })
expect.equal(#d:windows(), before + 1)
local window = d:windows()[1]
expect.list({ window.left, window.top, window.active }, { panel.left, panel.top, true })
expect.equal(select("#", d:rect(f)), 4)

d:key(40)
d:key(40)
d:key(13)
expect.equal(cbo.Text, "Item 2")
expect.equal(cbo.ListIndex, 2)
expect.equal(select("#", d:rect(cbo)), 4)

-- The number of items is saved, and not loaded.
local saved = cbo:properties()
expect.equal(saved[#saved].Name, "DDListCount")
expect.equal(saved[#saved].Value, 9)
expect.fails(9, "Subscript out of range", function() cbo:RemoveItem(10) end)
cbo:Clear()
expect.equal(cbo.ListIndex, 2)

-- Where panels open.
local square = { owner = { 100, 200, 180, 221 }, panel = { 2880, 1560 }, screen = { 15360, 11520 }, twips = { 15, 15 } }
expect.list({ lw.place_drop_down(square) }, { 1500.0, 3315.0 })
expect.list({ lw.place_panel(square) }, { 1500.0, 3315.0 })
square.owner = { 300, 700, 380, 721 }
expect.list({ lw.place_drop_down(square) }, { 4500.0, 8940.0 })
expect.list({ lw.place_panel(square) }, { 5700.0 - 2880.0, 8940.0 })
expect.list({ lw.place_panel{ owner = { 1000, 200, 1100, 221 }, panel = { 1815, 2295 }, monitor = { 1024, 0, 1280, 1024 },
                              twips = { 15, 15 } } }, { 15360.0, 3315.0 })
-- On the screen of the forms where nothing else is said.
expect.equal(select("#", lw.place_drop_down{ owner = { 0, 0, 10, 10 }, panel = { 10, 10 } }), 2)

expect.fails(5, "lw.place_drop_down needs owner = { left, top, right, bottom: pixels }",
             function() lw.place_drop_down{ panel = { 1, 1 } } end)
expect.fails(5, "lw.place_panel: panel is { width, height: twips }",
             function() lw.place_panel{ owner = { 0, 0, 1, 1 }, panel = { 1, -1 } } end)
expect.fails(5, "lw.place_panel: twips is { x, y: twips of a pixel }",
             function() lw.place_panel{ owner = { 0, 0, 1, 1 }, panel = { 1, 1 }, twips = { 0, 15 } } end)
expect.fails(5, "lw.place_panel: panel is { width, height: twips }",
             function() lw.place_panel{ owner = { 0, 0, 1, 1 }, panel = { "wide", 1 } } end)
