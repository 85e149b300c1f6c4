-- The first form makes a desktop of the usual size.
local expect = require "expect"
local f = lw.form{ Width=6000, Height=4500 }
f:show()
expect.fails(5, "There is a desktop already: it is made once, before the first form",
             function() lw.desktop{ width=100, height=100 } end)
