-- The pictures of FlatTabStrip.
local function select(tab)
  return function(tabs) tabs.SelectedTab = tab end
end

return {
  size = { 3600, 1050 },
  properties = { TabCount = 3, TabWidth = 1050, TabCaption1 = "Order", TabCaption2 = "Lines", TabCaption3 = "Notes" },
  { name = "selected", caption = "A tab is selected: it is open to the page, in `TabColor`", act = select(1) },
  { name = "second", caption = "Another one: `SelectedTab = 2`", act = select(2) },
  { name = "none", caption = "None selected, as after loading: all in `InactiveTabColor`" },
  { name = "bottom", caption = "Below the page: `Orientation = 1`", properties = { Orientation = 1 }, act = select(1) },
  { name = "focused", caption = "With the focus: a dotted frame around the caption",
    act = function(tabs) tabs.SelectedTab = 2 tabs:SetFocus() end },
  { name = "hovered", caption = "Under the pointer: as before",
    act = function(tabs, desktop) tabs.SelectedTab = 1 desktop:move_to(tabs, 1500, 100) end },
  { name = "clicked", caption = "A tab clicked: it is selected and has the focus",
    act = function(tabs, desktop) tabs.SelectedTab = 1 desktop:move_to(tabs, 1500, 100) desktop:click() end },
  { name = "disabled", caption = "`Enabled = false`: looks the same, takes no input", properties = { Enabled = false }, act = select(1) },
  { name = "narrow", caption = "Captions are clipped; what goes beyond the edge is not drawn",
    properties = { TabCount = 5, TabWidth = 900, TabCaption1 = "Order of the day", TabCaption4 = "Files", TabCaption5 = "Log" }, act = select(4) },
  { name = "colors", caption = "A font and colours of its own",
    properties = { Font = lw.font{ Name = "Tahoma", Size = 10, Bold = true }, BackColor = 0x00A0602C, ForeColor = 0x00602000,
      TabColor = 0x00FFFFFF, InactiveTabColor = 0x00E0C8B0, BorderColor = 0x00602000 },
    act = select(1) },
  { name = "new", caption = "As placed", new = true },
}
