-- The pictures of FlatCalculator.
local function open(calculator, desktop)
  calculator:SetFocus()
  desktop:key(115)
end

return {
  size = { 1800, 315 },
  properties = { Text = "12.5" },
  { name = "plain", caption = "At rest" },
  { name = "focused", caption = "With the focus: the caret", act = function(calculator) calculator:SetFocus() end },
  { name = "right", caption = "`Alignment = ksxRight` and `FormatString = \"#,##0.00\"`",
    properties = { Alignment = 1, FormatString = "#,##0.00", Text = "1250" } },
  { name = "hovered", caption = "The pointer over the drop button: `DropDownBackColorMouseOver`",
    properties = { DropDownBackColorMouseOver = 0x00FFFFFF },
    act = function(calculator, desktop) desktop:move_to(calculator, 1700, 150) end },
  { name = "disabled", caption = "`Enabled = false`", properties = { Enabled = false } },
  { name = "open", caption = "The keypad is open", act = open },
  { name = "typed", caption = "A key is clicked: the edit box is the display",
    act = function(calculator, desktop) open(calculator, desktop) desktop:key(52) desktop:key(50) end },
  { name = "error", caption = "A division by zero shows \"Error\" and closes the keypad",
    act = function(calculator, desktop)
      open(calculator, desktop)
      for _, key in ipairs{ 111, 48, 13 } do desktop:key(key) end
    end },
  { name = "colors", caption = "A keypad in colours of its own",
    properties = { CalcBackColor = 0x00F6EEE6, CalcBorderColor = 0x00A0602C, CalcForeColor = 0x00602000, CalcDigitColor = 0x00FFFFFF,
      CalcFunctionColor = 0x00EADFD2, CalcClearColor = 0x00E8CDB0, DropDownBackColor = 0x00E8CDB0 },
    act = open },
  { name = "new", caption = "As placed", new = true },
}
