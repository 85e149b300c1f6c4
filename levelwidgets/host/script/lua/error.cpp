#include <levelwidgets/host/script/lua/error.h>

#include <levelwidgets/host/script/lua/interrupt.h>

namespace levelwidgets {

namespace {

constexpr char kErrorType[] = "error";

std::string FieldText(lua_State* L, int table, const char* field) {
  lua_getfield(L, table, field);
  std::string text = luaL_tolstring(L, -1, nullptr);
  lua_pop(L, 2);
  return text;
}

int ErrorToText(lua_State* L) {
  const std::string text = FieldText(L, 1, "where") + FieldText(L, 1, "description") + " (error " +
                           FieldText(L, 1, "number") + ", " + FieldText(L, 1, "source") + ")";
  lua_pushlstring(L, text.data(), text.size());
  return 1;
}

void PushError(lua_State* L, const Error& error) {
  lua_newtable(L);
  lua_pushinteger(L, error.Number());
  lua_setfield(L, -2, "number");
  lua_pushstring(L, error.Source().c_str());
  lua_setfield(L, -2, "source");
  lua_pushstring(L, error.Description().c_str());
  lua_setfield(L, -2, "description");
  luaL_where(L, 1);
  lua_setfield(L, -2, "where");
  luaL_setmetatable(L, kErrorType);
}

// Upvalue 1 is the CallFailure to fill.
int DescribeFailure(lua_State* L) {
  auto& failure = *static_cast<CallFailure*>(lua_touserdata(L, lua_upvalueindex(1)));
  failure.message = luaL_tolstring(L, 1, nullptr);
  luaL_traceback(L, L, nullptr, 1);
  failure.traceback = lua_tostring(L, -1);
  lua_settop(L, 1);
  return 1;
}

}  // namespace

void OpenErrors(lua_State* L) {
  luaL_newmetatable(L, kErrorType);
  lua_pushcfunction(L, (Guarded<ErrorToText, false>));
  lua_setfield(L, -2, "__tostring");
  lua_pop(L, 1);
}

void PushCurrentException(lua_State* L) {
  try {
    throw;
  } catch (const Error& error) {
    PushError(L, error);
  } catch (const std::exception& error) {
    luaL_where(L, 1);
    lua_pushstring(L, error.what());
    lua_concat(L, 2);
  }
}

void NoteCall(lua_State* L) {
  const ScriptRealm& realm = RealmOf(L);
  if (!realm.IsSandbox()) return;
  RaiseIfStopped(L);
  std::size_t bytes = 0;
  for (int i = 1; i <= lua_gettop(L); ++i) {
    if (lua_type(L, i) == LUA_TSTRING) bytes += static_cast<std::size_t>(lua_rawlen(L, i));
  }
  realm.Run().Limits().NoteUse(bytes);
}

void RaiseFailure(const CallFailure& failure) {
  const std::string text =
      failure.traceback.empty() ? failure.message : failure.message + "\n" + failure.traceback;
  if (ScriptInterrupted()) throw ScriptInterruption(text);
  throw ScriptFailure(text);
}

void ExplainNoMemory(const ScriptRealm& realm, CallFailure& failure) {
  if (!realm.IsSandbox() || !failure.message.ends_with(kNoMemory)) return;
  failure.message += ": " + realm.Run().Limits().MemoryText();
}

bool CallReporting(lua_State* L, int arguments, int results, CallFailure& failure) {
  const int function = lua_gettop(L) - arguments;
  lua_pushlightuserdata(L, &failure);
  lua_pushcclosure(L, DescribeFailure, 1);
  lua_insert(L, function);
  const int status = lua_pcall(L, arguments, results, function);
  lua_remove(L, function);
  if (status == LUA_OK) return true;
  // An error inside the description itself, or out of memory.
  if (failure.message.empty()) failure.message = luaL_tolstring(L, -1, nullptr);
  lua_settop(L, function - 1);
  ExplainNoMemory(RealmOf(L), failure);
  return false;
}

}  // namespace levelwidgets
