#include <levelwidgets/host/script/forms/handler_names.h>

#include <algorithm>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/script/lua/entry.h>

namespace levelwidgets {

namespace {

struct NamedFunction {
  std::string name;
  std::string place;  // file:line
};

// Those of the script's globals, in the order of their names.
std::vector<NamedFunction> FunctionsOf(lua_State* L, const ScriptForm& form) {
  std::vector<NamedFunction> functions;
  form.environment.Push(L);
  lua_pushnil(L);
  while (lua_next(L, -2) != 0) {
    if (lua_type(L, -2) == LUA_TSTRING && lua_isfunction(L, -1) && !lua_iscfunction(L, -1)) {
      lua_Debug defined{};
      lua_pushvalue(L, -1);
      lua_getinfo(L, ">S", &defined);
      functions.push_back(
          {lua_tostring(L, -2), std::string(defined.short_src) + ":" + std::to_string(defined.linedefined)});
    }
    lua_pop(L, 1);
  }
  lua_pop(L, 1);
  std::ranges::sort(functions, {}, &NamedFunction::name);
  return functions;
}

void AddEvents(const ClassInfo& info, std::vector<std::string_view>& names) {
  for (const EventInfo& event : info.Events()) names.push_back(event.name);
}

bool Contains(const std::vector<std::string_view>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

// The events of what scripts name `who`; none when it is neither the form nor a control.
std::vector<std::string_view> EventsOf(const Form& form, std::string_view who) {
  std::vector<std::string_view> names;
  if (who == "form" || who == form.Name()) {
    AddEvents(Form::Table(), names);
  } else if (const auto control = form.Find(who)) {
    AddEvents(control->ControlClass(), names);
    AddEvents(HostedControl::Table(), names);
  }
  return names;
}

bool IsEventOfSome(std::string_view name) {
  std::vector<std::string_view> names;
  for (const ClassInfo* info : ControlClasses()) AddEvents(*info, names);
  AddEvents(HostedControl::Table(), names);
  AddEvents(Form::Table(), names);
  return Contains(names, name);
}

// The handler that was meant by `name`; "" when it is one, or like none.
std::string Meant(const Form& form, std::string_view name) {
  const std::size_t bar = name.rfind('_');
  if (bar == std::string_view::npos || bar == 0) return "";
  const std::string_view who = name.substr(0, bar);
  const std::string_view event = name.substr(bar + 1);
  const std::vector<std::string_view> events = EventsOf(form, who);
  if (!events.empty()) {
    const std::string_view nearest = Contains(events, event) ? "" : NearestName(event, events);
    return nearest.empty() ? "" : std::string(who) + "_" + std::string(nearest);
  }
  if (!IsEventOfSome(event)) return "";
  std::vector<std::string_view> owners{"form", form.Name()};
  for (const auto& control : form.Controls()) owners.push_back(control->Name());
  const std::string_view nearest = NearestName(who, owners);
  return nearest.empty() ? "" : std::string(nearest) + "_" + std::string(event);
}

}  // namespace

void WarnOfLostHandlers(const std::shared_ptr<ScriptForm>& form) {
  const auto realm = form->realm;
  if (!realm || !form->environment || form->form->Closed()) return;
  std::string text;
  CallFailure failure;
  EnterRealm(realm, failure, [&](lua_State* L) {
    for (const NamedFunction& function : FunctionsOf(L, *form)) {
      const std::string meant = Meant(*form->form, function.name);
      if (meant.empty()) continue;
      text += (text.empty() ? "" : "\n") + function.place + ": warning: no event calls " + function.name +
              "; did you mean \"" + meant + "\"?";
    }
  });
  if (!text.empty()) realm->Run().Report(text);
}

}  // namespace levelwidgets
