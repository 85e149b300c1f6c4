#include <levelwidgets/host/script/forms/invariants.h>

#include <levelwidgets/host/monkey/session.h>
#include <levelwidgets/host/script/forms/desktop.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/members/objects.h>

namespace levelwidgets {

namespace {

memory::Desktop& CheckMemoryDesktop(lua_State* L) {
  auto* desktop = dynamic_cast<memory::Desktop*>(CheckScriptDesktop(L).driver.get());
  if (desktop) return *desktop;
  throw Error(kInvalidCall, "LevelWidgets.Desktop", "Only of a desktop in memory it is known");
}

// d:check(form [, name [, control [, other]]]): what is broken of the invariants that hold always, or of the
// one named; nil for nothing
int CheckInvariants(lua_State* L) {
  memory::Desktop& desktop = CheckMemoryDesktop(L);
  const auto form = CheckForm(L, 2);
  monkey::Subject subject{desktop, *form->form};
  if (!lua_isnoneornil(L, 4)) subject.control = CheckControl(L, 4);
  if (!lua_isnoneornil(L, 5)) subject.other = CheckControl(L, 5);
  std::string broken;
  if (lua_isnoneornil(L, 3)) {
    broken = monkey::CheckAlways(subject);
  } else if (const monkey::Invariant* invariant = monkey::FindInvariant(luaL_checkstring(L, 3))) {
    broken = monkey::Check(*invariant, subject);
  } else {
    std::vector<std::string_view> names;
    for (const monkey::Invariant& known : monkey::Invariants()) names.push_back(known.name);
    RaiseNoSuchMember("Desktop", lua_tostring(L, 3), names);
  }
  if (broken.empty()) return 0;
  lua_pushstring(L, broken.c_str());
  return 1;
}

// d:repaint(): all that is shown, again
int Repaint(lua_State* L) {
  monkey::PaintEverything(CheckMemoryDesktop(L));
  return 0;
}

// d:close_all(): closes every form; what is left of drawing objects, windows and timers, nil for nothing
int CloseAll(lua_State* L) {
  const std::string left = monkey::CloseEverything(CheckMemoryDesktop(L));
  if (left.empty()) return 0;
  lua_pushstring(L, left.c_str());
  return 1;
}

// d:throw(control, event): the next listener of the event fails, and not as a handler of a script does: what
// it throws passes through the control
int ThrowInEvent(lua_State* L) {
  CheckMemoryDesktop(L);
  monkey::ThrowOnce(*CheckControl(L, 2)->GetControl(), luaL_checkstring(L, 3));
  return 0;
}

constexpr luaL_Reg kInvariantMethods[] = {{"check", Guarded<CheckInvariants>},
                                          {"close_all", Guarded<CloseAll>},
                                          {"repaint", Guarded<Repaint>},
                                          {"throw", Guarded<ThrowInEvent>},
                                          {nullptr, nullptr}};

}  // namespace

void AddInvariantMethods(lua_State* L) { AddScriptMethods(L, kInvariantMethods); }

}  // namespace levelwidgets
