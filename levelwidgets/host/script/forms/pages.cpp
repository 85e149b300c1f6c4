#include <levelwidgets/host/script/forms/pages.h>

#include <levelwidgets/host/property_frame/hosted_target.h>
#include <levelwidgets/host/property_frame/property_frame.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>
#include <levelwidgets/pages/object_target.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

namespace {

constexpr char kPageType[] = "page";
using PageRef = std::shared_ptr<PropertyPage>;

PageRef CheckPage(lua_State* L) { return CheckUserdata<PageRef>(L, 1, kPageType); }

// --- What is selected --------------------------------------------------------------------------------

PageTargetRef TargetAt(lua_State* L, int index) {
  if (const auto* control = ControlAt(L, index)) return std::make_shared<HostedTarget>(*control);
  if (const ObjectRef* object = ObjectValueAt(L, index))
    return std::make_shared<ObjectTarget>(*object, TextsOf(L));
  throw Error(kInvalidCall, "LevelWidgets",
              std::string("Controls are selected, not a ") + luaL_typename(L, index));
}

// Calls `take` with the index of each value in the list at `index`.
template <typename Take>
void ForEachIn(lua_State* L, int index, Take take) {
  luaL_checktype(L, index, LUA_TTABLE);
  const auto count = static_cast<lua_Integer>(lua_rawlen(L, index));
  for (lua_Integer i = 1; i <= count; ++i) {
    lua_rawgeti(L, index, i);
    take(lua_gettop(L));
    lua_pop(L, 1);
  }
}

std::vector<PageTargetRef> TargetsIn(lua_State* L, int index) {
  std::vector<PageTargetRef> targets;
  ForEachIn(L, index, [&](int at) { targets.push_back(TargetAt(L, at)); });
  return targets;
}

// --- Members -----------------------------------------------------------------------------------------

// page:apply()
int Apply(lua_State* L) {
  CheckPage(L)->ApplyChanges();
  return 0;
}

// page:select{ control, ... }
int Select(lua_State* L) {
  CheckPage(L)->SelectionChanged(TargetsIn(L, 2));
  return 0;
}

// page:leave(field)
int Leave(lua_State* L) {
  const auto refusal = CheckPage(L)->Leave(luaL_checkstring(L, 2));
  refusal ? PushText(L, *refusal) : lua_pushnil(L);
  return 1;
}

constexpr char kChanged[] = "changed";

[[noreturn]] void RaiseNoSuchPageMember(lua_State* L, const PropertyPage& page, std::string_view name) {
  std::vector<std::string_view> names = ScriptMethodNames(L, 1);
  names.emplace_back(kChanged);
  for (const FieldInfo& field : page.Info().fields) names.push_back(field.name);
  RaiseNoSuchMember(page.Info().name, name, names);
}

int ReadPage(lua_State* L) {
  const PropertyPage& page = *CheckOwn<PageRef>(L, 1, kPageType);
  const std::string_view name = luaL_checkstring(L, 2);
  if (PushScriptMethod(L, 1, name)) return 1;
  if (name == kChanged) {
    lua_pushboolean(L, page.Changed() ? 1 : 0);
  } else if (const auto field = page.Find(name)) {
    PushObject(L, field);
  } else {
    RaiseNoSuchPageMember(L, page, name);
  }
  return 1;
}

int WritePage(lua_State* L) {
  const PropertyPage& page = *CheckOwn<PageRef>(L, 1, kPageType);
  const std::string_view name = luaL_checkstring(L, 2);
  if (name != kChanged && !page.Find(name)) RaiseNoSuchPageMember(L, page, name);
  throw Error(kPropertyIsReadOnly, "LevelWidgets." + std::string(page.Info().name),
              std::string(page.Info().name) + "." + std::string(name) + " is read-only");
}

int PageToText(lua_State* L) {
  PushText(L, CheckPage(L)->Info().name);
  return 1;
}

constexpr luaL_Reg kPageMetamethods[] = {{"__index", Guarded<ReadPage>},
                                         {"__newindex", Guarded<WritePage>},
                                         {"__tostring", Guarded<PageToText>},
                                         {nullptr, nullptr}};
constexpr luaL_Reg kPageMethods[] = {
    {"apply", Guarded<Apply>}, {"leave", Guarded<Leave>}, {"select", Guarded<Select>}, {nullptr, nullptr}};

}  // namespace

void OpenPages(lua_State* L) {
  DefineType<PageRef>(L, kPageType, kPageMetamethods);
  SetScriptMethods(L, kPageMethods);
  lua_pop(L, 1);
}

int NewPage(lua_State* L) {
  const PageInfo& info = PageNamed(luaL_checkstring(L, 1));
  const PageRef page = PropertyPage::Create(info, StateOf(L).FormPlatform().Conversions());
  if (!lua_isnoneornil(L, 2)) page->SelectionChanged(TargetsIn(L, 2));
  PushUserdata(L, kPageType, page);
  return 1;
}

int ShowPropertiesForScript(lua_State* L) {
  std::vector<std::shared_ptr<HostedControl>> controls;
  if (ControlAt(L, 1)) {
    controls.push_back(CheckControl(L, 1));
  } else {
    ForEachIn(L, 1, [&](int at) { controls.push_back(CheckControl(L, at)); });
  }
  const auto frame = PropertyFrame::Show(controls);
  PushForm(L, StateOf(L).Keep(frame->GetForm(), nullptr, RealmOf(L)));
  return 1;
}

}  // namespace levelwidgets
