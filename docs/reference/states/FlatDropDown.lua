-- The pictures of FlatDropDown.
local function fill(box, count)
  for _, item in ipairs{ "kg", "g", "l", "ml", "m", "cm", "pcs", "boxes", "pallets", "hours" } do
    if count > 0 then box:AddItem(item) end
    count = count - 1
  end
end

-- Opens the list with the highlight on `item`.
local function open(count, item)
  return function(box, desktop)
    fill(box, count)
    box:SetFocus()
    desktop:key(115)
    box.ListIndex = item
  end
end

local unit = { Text = "kg" }

return {
  size = { 1800, 315 },
  { name = "normal", caption = "Loaded: an edit box and the button of its list", properties = unit },
  { name = "open", caption = "F4, Alt+Down or the button open the list; `ListIndex = 2`", properties = unit, act = open(5, 2) },
  { name = "scrolled", caption = "More than eight items: a bar; the last item is highlighted", properties = unit, act = open(10, 10) },
  { name = "none", caption = "Home takes the highlight away", properties = unit,
    act = function(box, desktop) open(5, 2)(box, desktop) desktop:key(36) end },
  { name = "wide", caption = "`DropDownWidth = 1200`: a narrower list ends where the control ends",
    properties = { Text = "kg", DropDownWidth = 1200 }, act = open(5, 1) },
  { name = "completed", caption = "`AutoComplete = true`, after typing \"p\": the rest is selected", properties = { AutoComplete = true },
    act = function(box, desktop) fill(box, 10) box:SetFocus() desktop:type("p") end },
  { name = "hovered", caption = "The pointer over the button: `DropDownBackColorMouseOver`",
    properties = { Text = "kg", DropDownBackColorMouseOver = 0x00FFFFFF },
    act = function(box, desktop) desktop:move_to(box, 1700, 150) end },
  { name = "pushed", caption = "Pressed and dragged: `DropDownBackColorPushed`", properties = unit,
    act = function(box, desktop)
      desktop:move_to(box, 1700, 150)
      desktop:press()
      desktop:move_to(box, 1700, 200)
    end },
  { name = "style", caption = "`Style = 1`: only the list changes the text", properties = { Text = "kg", Style = 1 } },
  { name = "style-focused", caption = "`Style = 1` with the focus", properties = { Text = "kg", Style = 1 },
    act = function(box) box:SetFocus() end },
  { name = "right", caption = "`Alignment = 1`", properties = { Text = "12", Alignment = 1 } },
  { name = "disabled", caption = "`Enabled = false`", properties = { Text = "kg", Enabled = false } },
  { name = "colors", caption = "Colours and a font of its own; the list has the font, too",
    properties = { Text = "kg", Font = lw.font{ Name = "Tahoma", Size = 10, Bold = true }, BackColor = 0x00DCF2FC, ForeColor = 0x00204060,
      DropDownBackColor = 0x0070C0F0 },
    act = open(3, 1) },
}
