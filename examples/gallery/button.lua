require("sheet").dress(form)

-- The looks that the pointer brings about, held still.
cmdMouseOver.BackColor = cmdMouseOver.BackColorMouseOver
cmdPushed.BackColor = cmdPushed.BackColorPushed
cmdPushedOwn.BackColor = cmdPushedOwn.BackColorPushed

function form_Load()
  cmdFocused:SetFocus()
end
