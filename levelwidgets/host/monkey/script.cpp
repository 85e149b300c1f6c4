#include <levelwidgets/host/monkey/script.h>

#include <algorithm>
#include <sstream>

#include <levelwidgets/controls/registry.h>

namespace levelwidgets::monkey {

namespace {

constexpr char kControl[] = R"(
local function control(name)
  for _, one in ipairs(f:controls()) do
    if one.Name == name then return one end
  end
end
)";

constexpr char kMoveToPanel[] = R"(
local function move_to_panel(control, x, y)
  local _, _, _, _, panel = d:rect(control)
  if not panel then return end
  d:move(panel.left + (panel.right - panel.left) * x // 1000, panel.top + (panel.bottom - panel.top) * y // 1000)
end
)";

constexpr char kOnce[] = R"(
local function once(control, event, act)
  local done = false
  control:on(event, function()
    if not done then done = true; act() end
  end)
end
)";

constexpr char kCheck[] = R"(
local function check(name, control, other)
  local broken = d:check(f, name, control, other)
  if broken then error(broken, 0) end
end
)";

constexpr char kWatch[] = R"(
local late
local function watch(control, event)
  control:on(event, function()
    if not pcall(function() return control.Name end) then late = event .. " came after the removal" end
  end)
end
)";

std::string Comment(const std::string& text) {
  std::string lines;
  for (const char c : text) {
    if (lines.empty() || lines.back() == '\n') lines += "-- ";
    lines += c;
  }
  return lines + "\n";
}

// `f` is the form, `g` another one that it shares the desktop with.
std::string Opening(const std::string& form) {
  return "local lw = require \"levelwidgets\"\n"
         "local d = lw.desktop{ width = 1024, height = 768 }\n"
         "local f = lw.load(" +
         ToLua(Variant(form)) +
         ")\n"
         "local g = lw.form{ Name = \"frmOther\", Caption = \"Other\", Width = 3000, Height = 1500 }\n"
         "g:add(\"" +
         std::string(ControlClasses().front()->Name()) +
         "\", \"ctlOther\")\n"
         "local finished = false\n"
         "for _, form in ipairs{ f, g } do\n"
         "  form:on(\"Unload\", function(e) e.Cancel = not finished end)\n"
         "end\n";
}

// Which of the functions the lines need.
std::string Functions(const std::string& lines) {
  std::string functions;
  if (lines.find("control(\"") != std::string::npos) functions += kControl;
  if (lines.find("move_to_panel(") != std::string::npos) functions += kMoveToPanel;
  if (lines.find("once(") != std::string::npos) functions += kOnce;
  if (lines.find("check(\"") != std::string::npos) functions += kCheck;
  if (lines.find("watch(") != std::string::npos) functions += kWatch;
  return functions;
}

// The assertion of what no line of its own asserts.
std::string Ending(const std::string& name) {
  if (name == "crash" || name == "hang") return "-- Here is the " + name + ".\n";
  std::string text = "d:advance(0)\n";
  if (name == "nothing left") {
    text +=
        "finished = true\n"
        "for _, one in ipairs(f:controls()) do f:remove(one.Name) end\n"
        "d:advance(0)\n"
        "local left = d:close_all()\nif left then error(\"nothing left: there are \" .. left, 0) end\n";
  } else if (name == "handler" || name == "error") {
    // Only what a handler raises has come by way of a script.
    text += "for _, one in ipairs(lw.errors()) do\n  if one.traceback " +
            std::string(name == "handler" ? "~=" : "==") + " \"\" then error(\"" + name +
            ": \" .. one.message, 0) end\nend\n";
  } else if (name == "removed") {
    text += "if late then error(\"removed: \" .. late, 0) end\n";
  } else {
    text += "local broken = d:check(f)\nif broken then error(broken, 0) end\n";
  }
  return text;
}

// Of "removed: ctlName raised Click after ...": the control and the event. Empty for other failures.
std::pair<std::string, std::string> LateEvent(const std::string& broken) {
  std::istringstream words(broken);
  std::string name, control, raised, event;
  words >> name >> control >> raised >> event;
  return name == "removed:" && raised == "raised" ? std::pair(control, event)
                                                  : std::pair<std::string, std::string>();
}

// What each event does, seen by letting them happen once more in this process.
std::vector<Outcome> Outcomes(const std::vector<Event>& events, const StageFactory& stage) {
  std::vector<Outcome> outcomes;
  Session session(stage());
  for (const Event& event : events) outcomes.push_back(session.Perform(event));
  return outcomes;
}

std::string OneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  std::ranges::replace(text, '\r', ' ');
  return text;
}

// `settled`: what an event makes pending is done before the next one, as it was in the run.
std::string LineOf(const Event& event, const Outcome& outcome, bool may_fail, bool settled) {
  const bool refused = !outcome.refused.empty();
  std::string line = ToLua(event);
  if (refused || may_fail) line = "pcall(function() " + line + " end)";
  if (outcome.repainted) {
    line += "; d:repaint()";
  } else if (settled && event.kind >= EventKind::kSet) {
    line += "; d:advance(0)";
  }
  return line + (refused ? "  -- " + OneLine(outcome.refused) : "") + "\n";
}

}  // namespace

std::string ScriptOf(const Failure& failure, const ScriptFacts& facts, const StageFactory& stage,
                     bool settled) {
  const std::string name = NameOf(failure.broken);
  const bool ends_process = name == "crash" || name == "hang";
  const auto outcomes =
      ends_process ? std::vector<Outcome>(failure.events.size()) : Outcomes(failure.events, stage);
  const auto [late_control, late_event] = LateEvent(failure.broken);
  const auto watch = [&, control = late_control, event = late_event] {
    return "watch(f." + control + ", \"" + event + "\")\n";
  };
  const auto adds_late = [&, control = late_control](const Event& event) {
    return event.kind == EventKind::kAdd && event.control == control;
  };
  std::string lines = "g:show()\nf:show()\n\n";
  if (!late_control.empty() && std::ranges::none_of(failure.events, adds_late)) lines += watch();
  for (std::size_t i = 0; i < failure.events.size(); ++i) {
    lines += LineOf(failure.events[i], outcomes[i], ends_process, settled);
    if (adds_late(failure.events[i])) lines += watch();
  }
  return "-- What `levelwidgets monkey` broke; `levelwidgets run` shows it again.\n" +
         Comment(failure.broken) + "-- Seed " + std::to_string(facts.seed) + ", event " +
         std::to_string(facts.events) + "; shrunk from " + std::to_string(failure.events_before_shrinking) +
         " events to " + std::to_string(failure.events.size()) + ".\n" + Opening(facts.form) +
         Functions(lines) + "\n" + lines + "\n" + Ending(name);
}

}  // namespace levelwidgets::monkey
