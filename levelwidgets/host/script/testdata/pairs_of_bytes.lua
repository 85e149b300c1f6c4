-- Characters of two bytes: typing completes from a list, and places count characters.
local expect = require "expect"

local desktop = lw.desktop{ locale = "ja-JP" }
local orders = lw.form{ Name = "frmOrders", Width = 6000, Height = 4500 }
local article = orders:add("FlatDropDown", "article", { Left = 600, Top = 600, Properties = { AutoComplete = true } })
article:AddItem("日本語")
article:AddItem("xyz")
orders:show()
article:SetFocus()
desktop:type("日")
expect.equal(article.Text, "日本語")
expect.equal(article.SelStart, 1)
expect.equal(article.SelLength, 2)
desktop:type("本x")
expect.equal(article.Text, "日本x")
article.Text = ""
desktop:type("x日")
expect.equal(article.Text, "x日")

-- Places in a text count its characters.
article.AutoComplete = false
article.Text = "a日本語b"
article.SelStart = 2
article.SelLength = 2
expect.equal(article.SelStart, 2)
expect.equal(article.SelLength, 2)
expect.equal(article.SelText, "本語")
desktop:type("x")
expect.equal(article.Text, "a日xb")
expect.equal(article.SelStart, 3)
