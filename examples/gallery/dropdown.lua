local sheet = require("sheet")
sheet.dress(form)
sheet.frame_boxes(form)

local lists = {
  cboUnit = { "kg", "g", "l", "m", "pcs" },
  cboCity = { "Amsterdam", "Athens", "Berlin", "Bern", "Brussels", "Budapest", "Copenhagen", "Dublin", "Helsinki", "Lisbon",
              "Ljubljana", "London", "Madrid", "Oslo", "Paris", "Prague", "Rome", "Stockholm", "Vienna", "Warsaw" },
  cboCountry = { "Namibia", "Nepal", "Netherlands", "New Zealand", "Nigeria", "Norway" },
  cboWide = { "Hamburg, at the fish market", "Hamburg, at the main station", "Hamburg, in the old warehouses" },
  cboNarrow = { "6", "12", "24", "48" },
  cboOff = { "Not now", "Later" },
  cboStyle = { "Standard", "Express", "Collected by the customer" },
  cboColors = { "Amber", "Honey", "Straw" },
  cboFont = { "Large", "Larger", "Largest" },
}

for name, items in pairs(lists) do
  for _, item in ipairs(items) do form[name]:AddItem(item) end
end

-- What was chosen or typed last.
for _, box in ipairs(form:controls()) do
  if lists[box.Name] then
    box:on("Change", function() lblEvents.Caption = box.Name .. ".Text = \"" .. box.Text .. "\"" end)
  end
end

lblEvents.BackColorMouseOver, lblEvents.ForeColorMouseOver = lblEvents.BackColor, lblEvents.ForeColor
lblEvents.MouseUnderline = false

function form_Load()
  cboUnit:SetFocus()
end
