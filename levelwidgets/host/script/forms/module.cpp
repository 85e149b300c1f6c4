#include <levelwidgets/host/script/forms/module.h>

#include <limits>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/host/script/forms/desktop.h>
#include <levelwidgets/host/script/forms/desktop_windows.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/forms/pages.h>
#include <levelwidgets/host/script/forms/placement.h>
#include <levelwidgets/host/script/forms/questions.h>
#include <levelwidgets/host/script/forms/timers.h>
#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/members/indexed.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/fonts.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kModule[] = "levelwidgets";

// lw.new(class): an object of one of the classes that users may make
int NewObject(lua_State* L) {
  const std::string name = luaL_checkstring(L, 1);
  const ClassInfo* info = FindObjectClass(name);
  if (info && info->Creatable()) {
    PushObject(L, info->CreateObject());
    return 1;
  }
  std::string list;
  for (const ClassInfo* known : ObjectClasses()) {
    if (known->Creatable()) list += (list.empty() ? "" : ", ") + std::string(known->Name());
  }
  throw Error(kInvalidCall, "LevelWidgets", "lw.new makes no \"" + name + "\"; it makes: " + list);
}

// lw.errors(): the errors in handlers so far; a sandbox sees those of its own
int ListErrors(lua_State* L) {
  const ScriptRealm& realm = RealmOf(L);
  const auto errors = realm.IsSandbox() ? realm.Run().HandlerErrorsIn(realm) : realm.Run().HandlerErrors();
  lua_newtable(L);
  lua_Integer place = 0;
  for (const HandlerError& error : errors) {
    lua_newtable(L);
    for (const auto& [key, text] : {std::pair{"form", error.form},
                                    {"control", error.control},
                                    {"event", error.event},
                                    {"message", error.message},
                                    {"traceback", error.traceback}}) {
      lua_pushstring(L, text.c_str());
      lua_setfield(L, -2, key);
    }
    lua_rawseti(L, -2, ++place);
  }
  return 1;
}

// lw.color(color): what is drawn for a colour property's value, 0x00BBGGRR; that of a system colour is the
// desktop's.
int ConcreteColor(lua_State* L) {
  const lua_Integer bits = luaL_checkinteger(L, 1);
  const Color color(static_cast<std::uint32_t>(bits));
  const ColorRef concrete = TranslateColor(StateOf(L).FormPlatform().Drawing(), color);
  if (bits < std::numeric_limits<std::int32_t>::min() || bits > std::numeric_limits<std::uint32_t>::max() ||
      concrete == kInvalidColorRef) {
    throw Error(kInvalidCall, "LevelWidgets",
                "A colour is 0x00BBGGRR, or 0x80000000 and the number of a system colour");
  }
  lua_pushinteger(L, concrete.value);
  return 1;
}

constexpr luaL_Reg kFunctions[] = {{"color", Guarded<ConcreteColor>},
                                   {"date", Guarded<NewDate>},
                                   {"desktop", Guarded<NewDesktop>},
                                   {"errors", Guarded<ListErrors>},
                                   {"font", Guarded<NewFont>},
                                   {"form", Guarded<NewForm>},
                                   {"load", Guarded<LoadFormFile>},
                                   {"message", Guarded<NewMessage>},
                                   {"new", Guarded<NewObject>},
                                   {"open_file", Guarded<AskForFileToOpen>},
                                   {"page", Guarded<NewPage>},
                                   {"place_drop_down", Guarded<PlaceDropDownForScript>},
                                   {"place_panel", Guarded<PlacePanelForScript>},
                                   {"properties", Guarded<ShowPropertiesForScript>},
                                   {"save_file", Guarded<AskForFileToSave>},
                                   {"screen", Guarded<ScreenInTwips>},
                                   {"timer", Guarded<NewTimer>},
                                   {nullptr, nullptr}};

int RefuseUnknown(lua_State* L) {
  std::vector<std::string_view> names{"null"};
  for (const luaL_Reg* functions : {kFunctions, kConversionFunctions}) {
    for (; functions->name; ++functions) names.push_back(functions->name);
  }
  RaiseNoSuchMember("lw", luaL_checkstring(L, 2), names);
}

int LoadModule(lua_State* L) {
  PushModule(L);
  return 1;
}

void OpenModule(lua_State* L) {
  luaL_newlib(L, kFunctions);
  luaL_setfuncs(L, kConversionFunctions, 0);
  PushVariant(L, Null{});
  lua_setfield(L, -2, "null");
  lua_createtable(L, 0, 2);
  for (const char* event : {"__index", "__newindex"}) {
    lua_pushcfunction(L, Guarded<RefuseUnknown>);
    lua_setfield(L, -2, event);
  }
  lua_setmetatable(L, -2);
  lua_pushvalue(L, -1);
  lua_setfield(L, LUA_REGISTRYINDEX, kModule);
  lua_setglobal(L, "lw");

  luaL_getsubtable(L, LUA_REGISTRYINDEX, LUA_PRELOAD_TABLE);
  lua_pushcfunction(L, LoadModule);
  lua_setfield(L, -2, kModule);
  lua_pop(L, 1);
}

}  // namespace

void OpenLevelWidgets(lua_State* L) {
  OpenErrors(L);
  OpenValues(L);
  OpenFonts(L);
  OpenObjects(L);
  OpenIndexed(L);
  OpenForms(L);
  OpenTimers(L);
  OpenPages(L);
  OpenDesktop(L);
  OpenModule(L);
}

void PushModule(lua_State* L) { lua_getfield(L, LUA_REGISTRYINDEX, kModule); }

}  // namespace levelwidgets
