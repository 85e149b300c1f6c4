-- Writes the reference and draws its pictures, all on a desktop in memory:
--
--   levelwidgets run docs/reference/generate.lua PROGRAM FOLDER
--
-- PROGRAM describes the classes, FOLDER gets reference/ and pictures/. tools/update_docs runs it.
local lw = require "levelwidgets"

local program, folder = ...
assert(program and folder, "usage: levelwidgets run docs/reference/generate.lua PROGRAM FOLDER")

local margin = 120 -- twips around a control in its picture
local desktop = lw.desktop{ locale = "en-US", today = "2024-05-15T10:30:00" }

local function write(path, text)
  local file = assert(io.open(folder .. "/" .. path, "w"))
  assert(file:write(text))
  assert(file:close())
end

local function describe(arguments)
  local pipe = assert(io.popen("'" .. program .. "' describe " .. arguments))
  local text = pipe:read("a")
  assert(pipe:close(), "describe " .. arguments .. " failed")
  return text
end

-- --- Pictures ----------------------------------------------------------------------------------------

local function union(a, b)
  return { math.min(a[1], b[1]), math.min(a[2], b[2]), math.max(a[3], b[3]), math.max(a[4], b[4]) }
end

-- The control with what it has opened, and a margin around them.
local function area_of(form, control)
  local area = { desktop:rect(control) }
  for _, window in ipairs(desktop:windows()) do
    if window.handle ~= form.hWnd then
      area = union(area, { window.left, window.top, window.left + window.width, window.top + window.height })
    end
  end
  local around = margin // 15
  return area[1] - around, area[2] - around, area[3] - area[1] + 2 * around, area[4] - area[2] + 2 * around
end

local function draw_state(class, state, sheet)
  desktop:move(0, 0)
  local form = lw.form{ Name = "frmState", Width = 9000, Height = 6000, BackColor = 0x00ECE6E0 }
  form:add("FlatButton", "cmdElsewhere", { Left = 7500, Top = 5400, TabIndex = 0 }) -- has the focus at first
  local size = state.size or sheet.size or {}
  local keys = { Left = 600, Top = 600, Width = size[1], Height = size[2], TabIndex = 1 }
  for key, value in pairs(state.placement or {}) do keys[key] = value end
  if not state.new then
    keys.Properties = {}
    for _, properties in ipairs{ sheet.properties or {}, state.properties or {} } do
      for key, value in pairs(properties) do keys.Properties[key] = value end
    end
  end
  local control = form:add(class, "Control1", keys)
  form:show()
  if state.act then state.act(control, desktop) end
  local picture = "pictures/" .. class .. "-" .. state.name .. ".png"
  desktop:screenshot(folder .. "/reference/" .. picture, area_of(form, control))
  desktop:release()
  form:close()
  return "| ![" .. state.caption:gsub("[`|]", "") .. "](" .. picture .. ") | " .. state.caption .. " |\n"
end

local here = arg[0]:match("^(.*/)") or "./"

-- The states of a control without a file of its own.
local fallback = {
  { name = "loaded", caption = "As loaded without properties" },
  { name = "disabled", caption = "Disabled", properties = { Enabled = false } },
}

local function looks_of(class)
  local load = loadfile(here .. "states/" .. class .. ".lua")
  local sheet = load and load() or fallback
  local text = "\n## Looks\n\n| | |\n|---|---|\n"
  for _, state in ipairs(sheet) do text = text .. draw_state(class, state, sheet) end
  return text
end

local function render(subject, picture, palette)
  local command = "'%s' render %s -o '%s/%s.png' --palette %s"
  assert(os.execute(command:format(program, subject, folder, picture, palette)))
end

-- A form file as it is shown first.
local function draw_form(form, picture, palette)
  render("'" .. here .. "../../examples/" .. form .. ".form.toml'", "pictures/" .. picture, palette)
end

-- A property page in every palette.
local function looks_of_page(page)
  local text = "\n## Looks\n"
  for _, palettes in ipairs{ { "light", "classic" }, { "dark", "high-contrast" } } do
    local names, pictures = "|", "|"
    for _, palette in ipairs(palettes) do
      local picture = "pictures/" .. page .. "-" .. palette
      render("--page " .. page, "reference/" .. picture, palette)
      names = names .. " " .. palette .. " |"
      pictures = pictures .. " ![" .. page .. ", " .. palette .. "](" .. picture .. ".png) |"
    end
    text = text .. "\n" .. names .. "\n|---|---|\n" .. pictures .. "\n"
  end
  return text
end

-- --- Pages -------------------------------------------------------------------------------------------

-- Writes a class's page; its line in the index, and whether it is a control.
local function write_page(class)
  local page = describe(class .. " --markdown")
  local help = page:match("\n\n([^\n]*)")
  local line = "| [" .. class .. "](" .. class .. ".md) | " .. help .. " |"
  local is_control = page:find("(Placement.md)", 1, true) ~= nil
  if is_control then
    local about, members = page:match("^(.-\n)(\n## .*)$")
    local looks = looks_of(class)
    page = about .. looks .. members
    line = line .. " " .. looks:match("!%b[]%b()") .. " |"
  end
  write("reference/" .. class .. ".md", page)
  return line .. "\n", is_control
end

-- The same of a property page; its line in the index.
local function write_property_page(name)
  local about, fields = describe(name .. " --markdown"):match("^(.-\n)(\n## .*)$")
  write("reference/" .. name .. ".md", about .. looks_of_page(name) .. fields)
  return "| [" .. name .. "](" .. name .. ".md) | " .. about:match("\n\n(.-%.) ") .. " |\n"
end

local controls, others, property_pages = "", "", ""
for class in ("\n" .. describe("--markdown")):gmatch("\n# (%w+)\n") do
  local line, is_control = write_page(class)
  if is_control then controls = controls .. line else others = others .. line end
end

for page in ("\n" .. describe("--pages --markdown")):gmatch("\n# (%w+)\n") do
  property_pages = property_pages .. write_property_page(page)
end

write("reference/README.md", "# Reference\n\n"
  .. "A page for each class, from the same tables as `levelwidgets describe`; the pictures are drawn by the\n"
  .. "library. [form.schema.json](form.schema.json) is a JSON Schema of form files, for editors.\n\n"
  .. "An Integer is a whole number of 16 bits, a Long one of 32, a Single a number with a fraction; lengths are\n"
  .. "twips. A Color is `0x00BBGGRR`, or `0x80000000` plus the number of a system colour. Where a default has\n"
  .. "parts, *new* is what a newly placed control has, *loaded* what one of a form file has where nothing was\n"
  .. "saved, and *not saved* the value that is left out of the file. *Ambient* values are the form's.\n\n"
  .. "## Controls\n\n| | | |\n|---|---|---|\n" .. controls
  .. "\n## Property pages\n\n| | |\n|---|---|\n" .. property_pages
  .. "\n## Other classes\n\n| | |\n|---|---|\n" .. others)
write("reference/form.schema.json", describe("--schema"))

draw_form("gallery/overview", "gallery", "light")
draw_form("gallery/overview", "gallery-dark", "dark")
draw_form("order/order", "order", "light")
