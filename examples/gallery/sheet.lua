-- What the sheets of the gallery have in common.
local lw = require "levelwidgets"
local sheet = {}

-- On a desktop with light texts the defaults of the classes, which are light, give way to its colours.
local system = { scroll_bar = 0x80000000, window = 0x80000005, window_frame = 0x80000006, face = 0x8000000F,
                 grey = 0x80000011, text = 0x80000012, highlight = 0x80000014, dark = 0x80000015, hot = 0x8000001A }
local of_the_desktop = {
  { "BackColor", system.face }, { "BackColorMouseOver", system.highlight },
  { "BackColorPushed", system.face, given = system.dark },
  { "ForeColor", system.text }, { "ForeColorMouseOver", system.hot }, { "ForeColorPushed", system.text },
  { "ForeColorDisabled", system.grey },
  { "ButtonColor", system.face }, { "ButtonColorMouseOver", system.highlight }, { "ButtonColorPushed", system.face },
  { "TabColor", system.window }, { "InactiveTabColor", system.face }, { "BorderColor", system.window_frame },
  { "ScrollBackColor", system.scroll_bar }, { "ScrollButtonColor", system.face },
  { "ScrollMouseOverColor", system.highlight }, { "ScrollPushedColor", system.face },
  { "CalcBackColor", system.window }, { "CalcBorderColor", system.window_frame }, { "CalcForeColor", system.text },
  { "BackColorHeader", system.face }, { "BackColorSelected", system.highlight },
  { "BackColorRowOdd", system.window }, { "BackColorRowEven", system.face },
  { "CalcDigitColor", system.face }, { "CalcFunctionColor", system.dark }, { "CalcClearColor", system.window },
}

-- The extents of labels and of bars would not be seen in the colour of the form. By a property that only they have:
local of_a_class = {
  MouseUnderline = { BackColor = system.window, BackColorPushed = system.dark },
  LargeChange = { BackColor = system.scroll_bar },
}

local function has(object, member)
  return (pcall(function() return object[member] end))
end

-- Whether the desktop has light texts.
function sheet.is_dark()
  local text = lw.color(system.text)
  local red, green, blue = text & 0xFF, text >> 8 & 0xFF, text >> 16
  return 2 * red + 5 * green + blue > 4 * 255
end

-- A control that was given a background is in colours of its own and stays as it is.
local function follow_desktop(form)
  for _, control in ipairs(form:controls()) do
    local given = {}
    for _, property in ipairs(control:properties()) do given[property.Name] = true end
    if not given.BackColor and not given.ScrollBackColor then
      for _, color in ipairs(of_the_desktop) do
        local name = color[1]
        if has(control, name) and control[name] < 0x80000000 then
          control[name] = given[name] and color.given or color[2]
        end
      end
      for member, colors in pairs(of_a_class) do
        if has(control, member) then
          for name, color in pairs(colors) do control[name] = color end
        end
      end
    end
  end
  form.BackColor = system.face  -- last: what was taken from it is not given
end

-- Call it before all else. The headings (head01...) and explanations (txt01...) are labels that do not react to
-- the pointer.
function sheet.dress(form)
  local colors = { head = 0x00804A1C, txt = 0x00404040 }
  if sheet.is_dark() then
    follow_desktop(form)
    colors = { head = system.hot, txt = system.text }
  end
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

-- A box with a text draws no frame: a label behind it, wider by a pixel on each side, is one. `color` is that of the
-- frames; the one that the desktop has for the frames of windows is in line with its other colours.
function sheet.frame_boxes(form, color)
  color = color or system.window_frame
  local x, y = lw.screen().TwipsPerPixelX, lw.screen().TwipsPerPixelY
  for _, box in ipairs(form:controls()) do
    if has(box, "PasswordChar") or has(box, "DropDownBackColor") then
      local frame = form:add("FlatLabel", "frame_" .. box.Name, {
        Left = box.Left - x, Top = box.Top - y, Width = box.Width + 2 * x, Height = box.Height + 2 * y, TabStop = false,
        Properties = { BackColor = color, BackColorMouseOver = color, BackColorPushed = color },
      })
      frame:ZOrder(1)
    end
  end
end

return sheet
