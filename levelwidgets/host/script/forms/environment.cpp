#include <levelwidgets/host/script/forms/environment.h>

#include <filesystem>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/forms/module.h>
#include <levelwidgets/host/script/lua/entry.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/sandbox/folder.h>
#include <levelwidgets/host/script/sandbox/sandbox.h>

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

namespace {

void SetControls(lua_State* L, const ScriptForm& form) {
  for (const auto& control : form.form->Controls()) {
    PushControl(L, control);
    lua_setfield(L, -2, control->Name().c_str());
  }
}

void SetFormAndModule(lua_State* L, const std::shared_ptr<ScriptForm>& form) {
  PushForm(L, form);
  lua_setfield(L, -2, "form");
  PushModule(L);
  lua_setfield(L, -2, "lw");
}

// Leaves the globals of a script in the program's realm on the stack.
void PushProgramEnvironment(lua_State* L) {
  lua_newtable(L);
  lua_createtable(L, 0, 1);
  lua_pushglobaltable(L);
  lua_setfield(L, -2, "__index");
  lua_setmetatable(L, -2);
}

void OpenAndPushModule(lua_State* L) {
  OpenLevelWidgets(L);
  PushModule(L);
}

std::shared_ptr<ScriptRealm> RealmForScript(ScriptState& state, const ScriptRealm& opener,
                                            const std::string& form_path) {
  if (!opener.IsSandbox() && state.TrustsForms()) return state.Program();
  return std::make_shared<ScriptRealm>(state, PathOf(form_path).parent_path());
}

}  // namespace

void MakeEnvironment(ScriptState& state, const std::shared_ptr<ScriptForm>& form, const ScriptRealm& opener,
                     const std::string& form_path) {
  form->realm = RealmForScript(state, opener, form_path);
  CallFailure failure;
  const bool made = EnterRealm(form->realm, failure, [&](lua_State* L) {
    if (form->realm->IsSandbox()) {
      OpenSandbox(L, OpenAndPushModule);
      lua_pushglobaltable(L);
    } else {
      PushProgramEnvironment(L);
    }
    SetControls(L, *form);
    SetFormAndModule(L, form);
    form->environment = form->realm->TakeRef(L);
  });
  if (!made) RaiseFailure(failure);
}

void RunFormScript(const ScriptForm& form, const std::string& path) {
  CallFailure failure;
  const auto realm = form.realm;
  if (realm->IsSandbox()) RequireScriptInFolder(realm->Folder(), path);
  bool succeeded = false;
  const bool entered = EnterRealm(realm, failure, [&](lua_State* L) {
    if (!realm->IsSandbox()) SearchModulesBeside(L, path);
    // Text only: bytecode is not checked before it runs.
    if (luaL_loadfilex(L, path.c_str(), "t") != LUA_OK) {
      failure.message = lua_tostring(L, -1);
      return;
    }
    form.environment.Push(L);
    lua_setupvalue(L, -2, 1);
    succeeded = CallReporting(L, 0, 0, failure);
  });
  if (entered && succeeded) return;
  if (failure.message.starts_with(kNoMemory)) failure.message = path + ": " + failure.message;
  RaiseFailure(failure);
}

}  // namespace levelwidgets
