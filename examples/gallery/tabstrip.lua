require("sheet").dress(form)

-- The controls on a page begin with the page's name: orderLabel1, orderButton2.
local pages = { "order", "lines", "notes" }

function tabOrder_TabChange(e)
  for _, control in ipairs(form:controls()) do
    for page, name in ipairs(pages) do
      if control.Name:match("^" .. name .. "%u") then control.Visible = page == e.NewTab end
    end
  end
end

for _, control in ipairs(form:controls()) do
  if control.Name:match("^%l+Label%d$") then
    control.BackColor, control.BackColorMouseOver = tabOrder.TabColor, tabOrder.TabColor
    control.ForeColorMouseOver = control.ForeColor
  end
end

tabOrder.SelectedTab = 1
tabBottom.SelectedTab = 2
tabMany.SelectedTab = 7
tabFocused.SelectedTab = 2
tabNoCaption.SelectedTab = 2
tabLong.SelectedTab = 2
tabFont.SelectedTab = 1
tabDisabled.SelectedTab = 1

function form_Load()
  tabFocused:SetFocus()
end
