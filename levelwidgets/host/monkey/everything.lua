-- One list is longer than what it shows at once, the other is not.
for i = 1, 40 do cbo1:AddItem("Item " .. i) end
for _, unit in ipairs{ "kg", "m", "piece" } do cbo2:AddItem(unit) end
calc1.Text = "12.5"
cal1.Value = lw.date(2024, 2, 29)
txt2.Text = string.rep("line\r\n", 20)
for _, item in ipairs{ "Bolt", "Nut", "Screw" } do grdLines.Columns[1].ValueList:Add(item) end
