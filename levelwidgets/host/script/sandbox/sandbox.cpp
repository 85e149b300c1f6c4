#include <levelwidgets/host/script/sandbox/sandbox.h>

#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/sandbox/folder.h>

namespace levelwidgets {

namespace {

constexpr std::int32_t kPermissionDenied = 70;

constexpr char kLoaded[] = LUA_LOADED_TABLE;

constexpr luaL_Reg kLibraries[] = {{LUA_GNAME, luaopen_base},       {LUA_COLIBNAME, luaopen_coroutine},
                                   {LUA_TABLIBNAME, luaopen_table}, {LUA_STRLIBNAME, luaopen_string},
                                   {LUA_MATHLIBNAME, luaopen_math}, {LUA_UTF8LIBNAME, luaopen_utf8}};

// The part of `os` that tells the time.
void AddTime(lua_State* L) {
  lua_pushcfunction(L, luaopen_os);
  lua_call(L, 0, 1);
  lua_createtable(L, 0, 3);
  for (const char* name : {"clock", "date", "time"}) {
    lua_getfield(L, -2, name);
    lua_setfield(L, -2, name);
  }
  luaL_getsubtable(L, LUA_REGISTRYINDEX, kLoaded);
  lua_pushvalue(L, -2);
  lua_setfield(L, -2, "os");
  lua_pop(L, 1);
  lua_setglobal(L, "os");
  lua_pop(L, 1);
}

int Require(lua_State* L) {
  std::size_t length = 0;
  const char* const text = luaL_checklstring(L, 1, &length);
  const std::string name(text, length);
  lua_settop(L, 1);
  luaL_getsubtable(L, LUA_REGISTRYINDEX, kLoaded);
  lua_getfield(L, 2, name.c_str());
  if (lua_toboolean(L, 3)) return 1;
  const auto file = ModuleInFolder(RealmOf(L).Folder(), name);
  if (!file) {
    return luaL_error(L,
                      "there is no module '%s' in the form's own folder, which is all that its script sees",
                      name.c_str());
  }
  if (luaL_loadfilex(L, file->c_str(), "t") != LUA_OK) return lua_error(L);
  lua_pushvalue(L, 1);
  lua_pushstring(L, file->c_str());
  lua_call(L, 2, 1);
  if (lua_isnil(L, -1)) {
    lua_pop(L, 1);
    lua_pushboolean(L, 1);
  }
  if (lua_getfield(L, 2, name.c_str()) == LUA_TNIL) {  // it may have set a value itself
    lua_pushvalue(L, -2);
    lua_setfield(L, 2, name.c_str());
    lua_pop(L, 1);
  }
  lua_pushstring(L, file->c_str());
  return 2;
}

// `require`, and of `package` what shows the modules that are loaded. Takes the library's module off the
// stack.
void AddRequire(lua_State* L) {
  lua_createtable(L, 0, 1);
  luaL_getsubtable(L, LUA_REGISTRYINDEX, kLoaded);
  lua_rotate(L, -3, -1);
  lua_setfield(L, -2, "levelwidgets");
  lua_setfield(L, -2, "loaded");
  lua_setglobal(L, "package");
  lua_pushcfunction(L, Guarded<Require>);
  lua_setglobal(L, "require");
}

}  // namespace

void OpenSandbox(lua_State* L, void (*open_library)(lua_State* L)) {
  for (const auto& [name, open] : kLibraries) {
    luaL_requiref(L, name, open, 1);
    lua_pop(L, 1);
  }
  ConfineBase(L);
  ConfineCoroutines(L);
  ConfineTables(L);
  ConfineStrings(L);
  AddTime(L);
  open_library(L);
  AddRequire(L);
}

void RefuseInSandbox(lua_State* L, std::string_view name, std::string_view does_not) {
  if (!RealmOf(L).IsSandbox()) return;
  throw Error(kPermissionDenied, "LevelWidgets",
              std::string(name) + ": a form's script " + std::string(does_not) +
                  "; --trust lifts this for a form that you trust");
}

}  // namespace levelwidgets
