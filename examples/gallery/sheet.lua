-- What the sheets of the gallery have in common.
local lw = require "levelwidgets"
local sheet = {}

local colors = { head = 0x00804A1C, txt = 0x00404040 }

-- The headings (head01...) and explanations (txt01...) are labels that do not react to the pointer.
function sheet.write_explanations(form)
  for _, label in ipairs(form:controls()) do
    local kind = label.Name:match("^(%l+)%d+$")
    if colors[kind] then
      label.BackColor, label.BackColorMouseOver, label.BackColorPushed = form.BackColor, form.BackColor, form.BackColor
      label.ForeColor, label.ForeColorMouseOver, label.ForeColorPushed = colors[kind], colors[kind], colors[kind]
      label.MouseUnderline = false
      if kind == "head" then label.Font = lw.font{ Name = "Tahoma", Size = 12, Bold = true } end
    end
  end
end

return sheet
