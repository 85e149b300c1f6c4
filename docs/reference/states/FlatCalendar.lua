-- The pictures of FlatCalendar. Today is 15 May 2024.
local function open(calendar, desktop)
  calendar:SetFocus()
  desktop:key(115)
end

-- A point of the open month view, twips from its left top corner.
local function click(desktop, x, y)
  local windows = desktop:windows()
  local panel = windows[1]
  desktop:click(panel.left + x // 15, panel.top + y // 15)
end

return {
  size = { 1800, 315 },
  properties = { Value = lw.date(2024, 5, 31) },
  { name = "plain", caption = "At rest" },
  { name = "focused", caption = "With the focus: the caret", act = function(calendar) calendar:SetFocus() end },
  { name = "format", caption = "`DateFormat = \"dd.mm.yyyy\"`", properties = { DateFormat = "dd.mm.yyyy" } },
  { name = "hovered", caption = "The pointer over the drop button: `DropDownBackColorMouseOver`",
    properties = { DropDownBackColorMouseOver = 0x00FFFFFF },
    act = function(calendar, desktop) desktop:move_to(calendar, 1700, 150) end },
  { name = "disabled", caption = "`Enabled = false`", properties = { Enabled = false } },
  { name = "open", caption = "The month view: today in `CalTodayBackColor`, the value in `CalSelectBackColor`", act = open },
  { name = "months", caption = "After a click on the header: the months of the year",
    act = function(calendar, desktop) open(calendar, desktop) click(desktop, 1200, 210) desktop:move(0, 0) desktop:advance(200) end },
  { name = "months-hovered", caption = "A month under the pointer: `CalMouseOverColor`",
    act = function(calendar, desktop)
      open(calendar, desktop)
      click(desktop, 1200, 210)
      local panel = desktop:windows()[1]
      desktop:move(panel.left + 900 // 15, panel.top + 900 // 15)
    end },
  { name = "colors", caption = "A month view in colours of its own",
    properties = { CalBackColor = 0x00FFFFFF, CalForeColor = 0x00303030, CalDisabledColor = 0x00A0A0A0, CalBorderColor = 0x00D0BCA4,
      CalHeaderBackColor = 0x00EADFD2, CalMouseOverColor = 0x00F6EEE6, CalSelectBackColor = 0x00E8CDB0, CalTodayBackColor = 0x00B0E0F0,
      DropDownBackColor = 0x00E8CDB0 },
    act = open },
  { name = "new", caption = "As placed", new = true },
}
