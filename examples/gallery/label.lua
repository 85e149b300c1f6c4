local sheet = require("sheet")
sheet.dress(form)
-- Whatever the desktop's colours: what is not set is equal.
if sheet.is_dark() then lblDefaults.ForeColorMouseOver = lblDefaults.BackColorMouseOver end

-- The looks that the pointer brings about, held still.
local function show_mouse_over(label)
  label.BackColor = label.BackColorMouseOver
  label.ForeColor = label.ForeColorMouseOver
  label.Font.Underline = label.MouseUnderline
  label:Refresh()
end
show_mouse_over(lblMouseOver)
show_mouse_over(lblPlainOver)
show_mouse_over(lblDefaults)
show_mouse_over(lblNewOver)

lblPushed.BackColor = lblPushed.BackColorPushed
lblPushed.ForeColor = lblPushed.ForeColorPushed
