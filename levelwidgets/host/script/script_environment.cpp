#include <levelwidgets/host/script/script_environment.h>

#include <filesystem>

#include <levelwidgets/host/script/script_error.h>
#include <levelwidgets/host/script/script_forms.h>
#include <levelwidgets/host/script/script_module.h>
#include <levelwidgets/host/script/script_objects.h>

namespace levelwidgets {

void SearchModulesBeside(lua_State* L, const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const std::string pattern = (folder.empty() ? "." : folder) + "/?.lua;";
  lua_getglobal(L, "package");
  lua_getfield(L, -1, "path");
  const std::string present = lua_tostring(L, -1);
  lua_pop(L, 1);
  lua_pushstring(L, (present.starts_with(pattern) ? present : pattern + present).c_str());
  lua_setfield(L, -2, "path");
  lua_pop(L, 1);
}

std::string PathBesideCaller(lua_State* L, const std::string& path) {
  lua_Debug caller{};
  // Not pcall and the like.
  for (int level = 1; lua_getstack(L, level, &caller) != 0; ++level) {
    lua_getinfo(L, "S", &caller);
    if (caller.source[0] == '@') break;
  }
  if (!caller.source || caller.source[0] != '@') return path;
  const std::filesystem::path beside = std::filesystem::path(caller.source + 1).parent_path() / path;
  std::error_code missing;
  return std::filesystem::exists(beside, missing) ? beside.string() : path;
}

void MakeEnvironment(ScriptState& state, const std::shared_ptr<ScriptForm>& form) {
  lua_State* L = state.Running();
  lua_newtable(L);
  for (const auto& control : form->form->Controls()) {
    PushControl(L, control);
    lua_setfield(L, -2, control->Name().c_str());
  }
  PushForm(L, form);
  lua_setfield(L, -2, "form");
  PushModule(L);
  lua_setfield(L, -2, "lw");

  lua_createtable(L, 0, 1);
  lua_pushglobaltable(L);
  lua_setfield(L, -2, "__index");
  lua_setmetatable(L, -2);
  form->environment = state.TakeRef(L);
}

void RunFormScript(ScriptState& state, const ScriptForm& form, const std::string& path) {
  lua_State* L = state.Running();
  SearchModulesBeside(L, path);
  // Text only: bytecode is not checked before it runs.
  if (luaL_loadfilex(L, path.c_str(), "t") != LUA_OK) {
    const std::string text = lua_tostring(L, -1);
    lua_pop(L, 1);
    throw ScriptFailure(text);
  }
  form.environment.Push(L);
  lua_setupvalue(L, -2, 1);
  CallFailure failure;
  if (!CallReporting(L, 0, 0, failure)) throw ScriptFailure(failure.message + "\n" + failure.traceback);
}

}  // namespace levelwidgets
