-- The pictures of FlatTextBox.
local one, many = { 1800, 300 }, { 2700, 1050 }
local long = "Line 1 of a text\r\nLine 2 of a text\r\nLine 3 of a text\r\nLine 4 of a text\r\nLine 5 of a text\r\nLine 6 of a text"

return {
  { name = "plain", caption = "One line", size = one, properties = { Text = "Tahoma" } },
  { name = "focused", caption = "With the focus: the caret", size = one, properties = { Text = "Tahoma" },
    act = function(box) box:SetFocus() end },
  { name = "selected", caption = "With the focus and a selection", size = one, properties = { Text = "17.50" },
    act = function(box, desktop) box:SetFocus() desktop:key(36) desktop:key(35, 1) end },
  { name = "password", caption = "`PasswordChar = \"*\"`", size = one, properties = { Text = "secret", PasswordChar = "*" } },
  { name = "right", caption = "`Alignment = ksxRight`", size = one, properties = { Text = "1,250.00", Alignment = 1 } },
  { name = "center", caption = "`Alignment = ksxCenter`", size = one, properties = { Text = "Centred", Alignment = 2 } },
  { name = "disabled", caption = "`Enabled = false`", size = one, properties = { Text = "Not now", Enabled = false } },
  { name = "many", caption = "`MultiLine = true`: the bar follows the text", size = many, properties = { MultiLine = true, Text = long } },
  { name = "many-scrolled", caption = "Scrolled to the end of the text", size = many, properties = { MultiLine = true, Text = long },
    act = function(box, desktop) box:SetFocus() desktop:key(35, 2) end },
  { name = "many-fits", caption = "All lines fit: grey arrows", size = many,
    properties = { MultiLine = true, Text = "Everything fits." } },
  { name = "many-selected", caption = "A selection over lines", size = many, properties = { MultiLine = true, Text = long },
    act = function(box, desktop) box:SetFocus() desktop:key(36, 2) desktop:key(40, 1) desktop:key(40, 1) end },
  { name = "many-hovered", caption = "The pointer over a button of the bar: `ScrollMouseOverColor`", size = many,
    properties = { MultiLine = true, Text = long, ScrollMouseOverColor = 0x00FFFFFF },
    act = function(box, desktop) desktop:move_to(box, 2580, 930) end },
  { name = "many-colors", caption = "Colours of its own", size = many,
    properties = { MultiLine = true, Text = long, BackColor = 0x00DCF2FC, ForeColor = 0x00204060, ScrollBackColor = 0x00B0D8F0,
      ScrollButtonColor = 0x00DCF2FC } },
}
