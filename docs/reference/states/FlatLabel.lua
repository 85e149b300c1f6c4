-- The pictures of FlatLabel: a link in the colour of the form, then the colours it has by itself.
local link = {
  Caption = "Show details", BackColor = 0x00ECE6E0, BackColorMouseOver = 0x00ECE6E0, BackColorPushed = 0x00ECE6E0,
  ForeColor = 0x00804A1C, ForeColorMouseOver = 0x00C07A40, ForeColorPushed = 0x00202020,
}

local function with(changes)
  local properties = {}
  for key, value in pairs(link) do properties[key] = value end
  for key, value in pairs(changes) do properties[key] = value end
  return properties
end

local function hover(label, desktop)
  desktop:move_to(label, 300, 120)
  desktop:advance(100)
end

return {
  size = { 1500, 240 },
  { name = "normal", caption = "Normal: `ForeColor` on `BackColor`, here that of the form", properties = link },
  { name = "hovered", caption = "Under the pointer: `ForeColorMouseOver` and underlined, as `MouseUnderline` says",
    properties = link, act = hover },
  { name = "hovered-plain", caption = "Under the pointer, `MouseUnderline = false` and a `BackColorMouseOver`",
    properties = with{ MouseUnderline = false, BackColorMouseOver = 0x00FAF6F2 }, act = hover },
  { name = "pressed", caption = "Held down: `ForeColorPushed` on `BackColorPushed`",
    properties = with{ BackColorPushed = 0x00D8CEC4 },
    act = function(label, desktop) hover(label, desktop) desktop:press() end },
  { name = "disabled", caption = "`Enabled = false`: looks the same, takes no input", properties = with{ Enabled = false } },
  { name = "access-key", caption = "An access key: `Show &details`", properties = with{ Caption = "Show &details" } },
  { name = "right", caption = "`Alignment = ksxRight`", properties = with{ Alignment = 1, BackColor = 0x00FAF6F2 } },
  { name = "center", caption = "`Alignment = ksxCenter`", properties = with{ Alignment = 2, BackColor = 0x00FAF6F2 } },
  { name = "loaded", caption = "Loaded with no colours", properties = { Caption = "Show details" } },
  { name = "loaded-hovered", caption = "Loaded with no colours, under the pointer: text and background are the same then", properties = { Caption = "Show details" },
    act = hover },
  { name = "new", caption = "As placed: the name in white on black", new = true },
}
