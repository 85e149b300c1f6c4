local sheet = require("sheet")
sheet.dress(form)
sheet.frame_boxes(form)

function form_Load()
  txtFocused:SetFocus()
end

-- What is typed into the first box is repeated in the second.
function txtLeft_Change()
  txtRight.Text = txtLeft.Text
end
