-- The pictures of FlatScroll.
local vertical, horizontal = { 240, 2100 }, { 2700, 240 }

local function at(x, y)
  return function(bar, desktop) desktop:move_to(bar, x, y) end
end

local function held(x, y)
  return function(bar, desktop)
    desktop:move_to(bar, x, y)
    desktop:press()
  end
end

return {
  properties = { Min = 0, Max = 20, Value = 8, LargeChange = 5, Orientation = 1 },
  { name = "vertical", caption = "Vertical", size = vertical, properties = { Orientation = 0 } },
  { name = "horizontal", caption = "Horizontal: `Orientation = 1`", size = horizontal },
  { name = "at-min", caption = "`Value = Min`", size = horizontal, properties = { Value = 0 } },
  { name = "at-max", caption = "`Value = Max`", size = horizontal, properties = { Value = 20 } },
  { name = "hovered-less", caption = "The pointer over the first button: `ButtonColorMouseOver`, here a lighter one",
    size = horizontal, properties = { ButtonColorMouseOver = 0x00FFFFFF }, act = at(120, 120) },
  { name = "hovered-more", caption = "The pointer over the second button",
    size = horizontal, properties = { ButtonColorMouseOver = 0x00FFFFFF }, act = at(2580, 120) },
  { name = "hovered-thumb", caption = "The pointer over the thumb: as before", size = horizontal, act = at(1130, 120) },
  { name = "pressed-less", caption = "The first button held down: `ButtonColorPushed`, here a darker one",
    size = horizontal, properties = { ButtonColorPushed = 0x00A9B9BF }, act = held(120, 120) },
  { name = "pressed-more", caption = "The second button held down",
    size = horizontal, properties = { ButtonColorPushed = 0x00A9B9BF }, act = held(2580, 120) },
  { name = "pressed-track", caption = "The track clicked: `Value` went on by `LargeChange`", size = horizontal,
    act = held(2200, 120) },
  { name = "dragged", caption = "The thumb dragged: `Value` follows the pointer", size = horizontal,
    act = function(bar, desktop) held(1130, 120)(bar, desktop) desktop:move_to(bar, 1210, 120) end },
  { name = "disabled", caption = "`Enabled = false`: no thumb", size = horizontal, properties = { Enabled = false } },
  { name = "disabled-vertical", caption = "`Enabled = false`, vertical", size = vertical, properties = { Enabled = false, Orientation = 0 } },
  { name = "short", caption = "Too short for a thumb", size = { 240, 585 }, properties = { Orientation = 0 } },
  { name = "colors", caption = "Colours of its own", size = horizontal,
    properties = { BackColor = 0x00D8B898, ForeColor = 0x00804A1C, ButtonColor = 0x00F6E8DC } },
}
