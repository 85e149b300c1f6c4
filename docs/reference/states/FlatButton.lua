-- The pictures of FlatButton. Of each: the name of its file, the caption, what the control is loaded with, and
-- what a person does.
return {
  size = { 1500, 450 },
  properties = { Caption = "&Save" },
  { name = "normal", caption = "Normal: `BackColor`, a frame of one pixel in `ForeColor`" },
  { name = "hovered", caption = "Under the pointer: `BackColorMouseOver`",
    act = function(button, desktop) desktop:move_to(button, 750, 225) end },
  { name = "pressed", caption = "Held down: `BackColorPushed`, here a darker one",
    properties = { BackColorPushed = 0x00A9B9BF },
    act = function(button, desktop) desktop:move_to(button, 750, 225) desktop:press() end },
  { name = "focused", caption = "With the focus: a dotted frame inside",
    act = function(button) button:SetFocus() end },
  { name = "default", caption = "`Default = true`: a frame of two pixels, Enter clicks it",
    placement = { Default = true } },
  { name = "disabled", caption = "`Enabled = false`: the caption in `ForeColorDisabled`",
    properties = { Enabled = false } },
  { name = "new", caption = "As placed: the name for a caption", new = true },
  { name = "clipped", caption = "A caption that is too wide is clipped at both ends",
    properties = { Caption = "Save and go on to the next one" } },
  { name = "font", caption = "A `Font` and colours of its own",
    properties = { Font = lw.font{ Name = "Tahoma", Size = 12, Bold = true }, BackColor = 0x00A0602C, ForeColor = 0x00FFFFFF } },
}
