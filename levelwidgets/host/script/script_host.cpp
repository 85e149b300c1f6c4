#include <levelwidgets/host/script/script_host.h>

#include <cstdio>
#include <limits>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/script/forms/environment.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/forms/module.h>
#include <levelwidgets/host/script/forms/state.h>
#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/lua/interrupt.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/sandbox/folder.h>
#include <levelwidgets/platform/text/printable.h>

namespace levelwidgets {

namespace {

void ReportToStandardError(const std::string& text) {
  std::fflush(stdout);  // in the order in which it happened
  std::fprintf(stderr, "%s\n", text::PrintableLines(text).c_str());
}

void SetArguments(lua_State* L, const std::string& program, const std::vector<std::string>& arguments) {
  lua_newtable(L);
  lua_pushstring(L, program.c_str());
  lua_rawseti(L, -2, 0);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    lua_pushstring(L, arguments[i].c_str());
    lua_rawseti(L, -2, static_cast<lua_Integer>(i) + 1);
  }
  lua_setglobal(L, "arg");
}

// The exit status that the value on top of the stack stands for.
int StatusAt(lua_State* L) {
  if (lua_isboolean(L, -1)) return lua_toboolean(L, -1) ? 0 : 1;
  if (!lua_isinteger(L, -1)) return 0;
  return static_cast<int>(lua_tointeger(L, -1) & 0xFF);
}

// Runs the function on top of the stack, or raises the message there if loading it ended with `loaded`.
int RunLoaded(lua_State* L, int loaded, const std::vector<std::string>& arguments) {
  const int bottom = lua_gettop(L) - 1;
  if (loaded != LUA_OK) {
    const std::string text = lua_tostring(L, -1);
    lua_settop(L, bottom);
    throw ScriptFailure(text);
  }
  luaL_checkstack(L, static_cast<int>(arguments.size()) + 10, "too many arguments");
  for (const std::string& argument : arguments) lua_pushstring(L, argument.c_str());
  CallFailure failure;
  const ScriptNesting nesting(StateOf(L));
  const InterruptibleScript interruptible;
  if (!CallReporting(L, static_cast<int>(arguments.size()), 1, failure)) {
    lua_settop(L, bottom);
    RaiseFailure(failure);
  }
  const int status = StatusAt(L);
  lua_settop(L, bottom);
  return status;
}

}  // namespace

ScriptHost::ScriptHost(Report report) : ScriptHost(ScriptOptions{.report = std::move(report)}) {}

ScriptHost::ScriptHost(Platform& platform, Report report)
    : ScriptHost(ScriptOptions{.report = std::move(report), .platform = &platform}) {}

ScriptHost::ScriptHost(std::shared_ptr<DesktopDriver> desktop, Report report)
    : ScriptHost(ScriptOptions{.report = std::move(report), .desktop = std::move(desktop)}) {}

ScriptHost::ScriptHost(ScriptOptions options) {
  if (!options.report) options.report = ReportToStandardError;
  state_ = std::make_unique<ScriptState>(std::move(options));
  lua_State* L = state_->Program()->Running();
  luaL_openlibs(L);
  OpenLevelWidgets(L);
}

ScriptHost::~ScriptHost() = default;

int ScriptHost::RunFile(const std::string& path, const std::vector<std::string>& arguments) {
  lua_State* L = state_->Program()->Running();
  SearchModulesBeside(L, path);
  SetArguments(L, path, arguments);
  return RunLoaded(L, luaL_loadfile(L, path.c_str()), arguments);
}

int ScriptHost::RunText(const std::string& text, const std::string& name) {
  lua_State* L = state_->Program()->Running();
  return RunLoaded(L, luaL_loadbuffer(L, text.data(), text.size(), ("@" + name).c_str()), {});
}

void ScriptHost::SetGlobal(const std::string& name, const ObjectRef& object) {
  lua_State* L = state_->Program()->Running();
  PushObject(L, object);
  lua_setglobal(L, name.c_str());
}

std::string ScriptHost::SyntaxError(const std::string& form_path, const std::string& path, bool trusted) {
  try {
    if (!trusted) RequireScriptInFolder(PathOf(form_path).parent_path(), path);
  } catch (const ScriptFailure& failure) {
    return failure.what();
  }
  const std::unique_ptr<lua_State, void (*)(lua_State*)> L(luaL_newstate(), lua_close);
  return luaL_loadfilex(L.get(), path.c_str(), "t") == LUA_OK ? "" : lua_tostring(L.get(), -1);
}

std::shared_ptr<Form> ScriptHost::LoadForm(const std::string& path) {
  return LoadScriptForm(*state_->Program(), path)->form;
}

void ScriptHost::MakeDesktop(const DesktopSettings& settings) { state_->MakeDesktop(settings); }

DesktopDriver& ScriptHost::Desktop() { return *state_->Desktop().driver; }

const std::vector<HandlerError>& ScriptHost::HandlerErrors() const { return state_->HandlerErrors(); }

bool ScriptHost::OutOfTime() const { return state_->Limits().OutOfTime(); }

}  // namespace levelwidgets
