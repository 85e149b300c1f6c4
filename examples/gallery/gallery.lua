local lw = require "levelwidgets"
require("sheet").dress(form)

-- A button named cmd_label opens label.form.toml; its sheet stays open until it is closed.
for _, control in ipairs(form:controls()) do
  local sheet = control.Name:match("^cmd_(%l+)$")
  if sheet then
    control:on("Click", function() lw.load(sheet .. ".form.toml"):show() end)
  end
end
