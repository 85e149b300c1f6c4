-- Questions for files, in the folder of this script.
local expect = require "expect"
local steps = require "steps"
local d = lw.desktop{}
local _, b = steps.form_with_button()
local clicks = 0
function cmdOK_Click() clicks = clicks + 1 end

local answers = {}
local function answered(...)
  answers[#answers + 1] = select("#", ...) == 1 and (... or "none") or "not one argument"
end
local function name_of(path) return path:match("[^/\\]+$") end

-- A person types a name; meanwhile the other form takes no input.
local q = lw.open_file{ folder=".", filter={ "*.form.toml" }, on_closed=answered }
expect.equal(q.Caption, "Open")
expect.equal(q.lbl2.Caption, " broken.form.toml")
expect.equal(q.lbl3.Caption, " failing.form.toml")
local left, top = d:rect(q)
q.Left = 0
q.Top = 0
steps.click(d, b)
expect.equal(clicks, 0)
q:show()
d:type("order.form.toml")
d:key(13)
expect.equal(#answers, 1)
expect.equal(name_of(answers[1]), "order.form.toml")
expect.equal(lw.load(answers[1]).Name, "frmOrder")
steps.click(d, b)
expect.equal(clicks, 1)

-- A script answers in a person's place.
q = lw.open_file{ folder=".", name="members.lua", title="Which script?", on_closed=answered }
expect.equal(q.Caption, "Which script?")
expect.equal(q.txtName.Text, "members.lua")
q.txtName.Text = "expect.lua"
d:key(79, 4)
expect.equal(name_of(answers[2]), "expect.lua")

-- None is an answer, too.
lw.open_file{ on_closed=answered }
d:key(27)
expect.equal(answers[3], "none")
lw.open_file{}
d:key(27)
expect.equal(#answers, 3)

-- To save, a name may be new; an old one is asked about.
q = lw.save_file{ folder=".", name="new.form.toml", on_closed=answered }
expect.equal(q.Caption, "Save as")
d:key(13)
expect.equal(name_of(answers[4]), "new.form.toml")
q = lw.save_file{ folder=".", name="expect.lua", on_closed=answered }
d:key(13)
d:key(75, 4)
expect.equal(#answers, 4)
d:key(13)
d:key(82, 4)
expect.equal(name_of(answers[5]), "expect.lua")

-- An error in the function is reported.
lw.open_file{ title="Failing", on_closed=function() error("late") end }
d:key(27)
expect.equal(lw.errors()[1].form, "Failing")
expect.equal(lw.errors()[1].event, "on_closed")

expect.fails(438, 'FileQuestion has no member "filters"; did you mean "filter"?',
  function() lw.open_file{ filters={ "*" } } end)
expect.fails(13, "on_closed takes a function", function() lw.open_file{ on_closed=1 } end)
return 1
