local sheet = require("sheet")
sheet.dress(form)

-- In front of a light desktop the form has soft blues, otherwise the desktop's own colours.
local blues = {
  BackColor = 0x00EADFD2, BackColorMouseOver = 0x00F6EEE6, BackColorPushed = 0x00D0BCA4, ForeColor = 0x00804A1C,
  ButtonColor = 0x00EADFD2, ButtonColorMouseOver = 0x00FFFFFF, ButtonColorPushed = 0x00D0BCA4,
  ScrollBackColor = 0x00FAF4EE, ScrollButtonColor = 0x00EADFD2, ScrollMouseOverColor = 0x00FFFFFF, ScrollPushedColor = 0x00D0BCA4,
  DropDownBackColor = 0x00EADFD2, DropDownBackColorMouseOver = 0x00F6EEE6, DropDownBackColorPushed = 0x00D0BCA4,
  CalcBackColor = 0x00F6EEE6, CalcBorderColor = 0x00A0602C, CalcForeColor = 0x00602000, CalcDigitColor = 0x00FFFFFF,
  CalcFunctionColor = 0x00EADFD2, CalcClearColor = 0x00E8CDB0,
  CalBackColor = 0x00FFFFFF, CalForeColor = 0x00303030, CalDisabledColor = 0x00A0A0A0, CalBorderColor = 0x00D0BCA4,
  CalHeaderBackColor = 0x00EADFD2, CalMouseOverColor = 0x00F6EEE6, CalSelectBackColor = 0x00E8CDB0, CalTodayBackColor = 0x00B0E0F0,
  TabColor = 0x00FFFFFF, InactiveTabColor = 0x00EADFD2, BorderColor = 0x00A89070,
}
local fields = { txt = true, scr = true, cbo = true, calc = true, cal = true }
local frames = 0x00A08868

if not sheet.is_dark() then
  for _, control in ipairs(form:controls()) do
    local kind = control.Name:match("^%l+")
    for name, color in pairs(blues) do
      if control.Name ~= "cmdSave" then pcall(function() control[name] = color end) end
    end
    if fields[kind] then control.BackColor = 0x00FAF4EE end
    if fields[kind] and kind ~= "scr" then control.ForeColor = 0x00202020 end
    if kind == "tab" then control.BackColor, control.ForeColor = form.BackColor, 0x00404040 end
  end
end

-- Labels that explain do not react to the pointer; the link does.
local text, link = 0x00404040, 0x00A0602C
if sheet.is_dark() then
  text, link, frames = 0x80000012, 0x8000001A, 0x80000006
  for _, box in ipairs{ txtCustomer, calcAmount, calDelivery, cboUnit, txtNotes } do box.BackColor = 0x8000000F end
  -- The frame of the default button, in its ForeColor, is seen on the form as well.
  cmdSave.BackColor, cmdSave.BackColorMouseOver, cmdSave.BackColorPushed = 0x00804A1C, 0x00A0602C, 0x00603410
  cmdSave.ForeColor = 0x80000012
end
for _, label in ipairs(form:controls()) do
  if label.Name:match("^l%l%l%u") then
    label.BackColor, label.BackColorMouseOver, label.BackColorPushed = tabOrder.TabColor, tabOrder.TabColor, tabOrder.TabColor
    label.ForeColor, label.ForeColorMouseOver, label.ForeColorPushed = text, text, text
    label.MouseUnderline = false
  end
end
lnkHistory.ForeColor, lnkHistory.ForeColorMouseOver, lnkHistory.MouseUnderline = link, link, true

sheet.frame_boxes(form, frames)
tabOrder:ZOrder(1)  -- behind the frames
tabOrder.SelectedTab = 1

function tabOrder_TabChange(e)
  for _, control in ipairs(form:controls()) do
    if control.Name ~= "tabOrder" and control.Name ~= "cmdSave" and control.Name ~= "cmdCancel" then
      control.Visible = e.NewTab == 1
    end
  end
end

for _, unit in ipairs{ "pieces", "boxes", "pallets", "kg" } do cboUnit:AddItem(unit) end

function lnkHistory_Click()
  tabOrder.SelectedTab = 3
end

function scrPieces_Change()
  lblCount.Caption = tostring(scrPieces.Value)
end

function form_Load()
  txtCustomer:SetFocus()
end
