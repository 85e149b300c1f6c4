// The base library and coroutines in a sandbox.
#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/sandbox/functions.h>
#include <levelwidgets/host/script/sandbox/sandbox.h>

namespace levelwidgets {

namespace {

// Text only: bytecode is not checked before it runs.
int LoadText(lua_State* L) {
  if (lua_gettop(L) < 3) lua_settop(L, 3);
  luaL_argcheck(L, !lua_isstring(L, 3) || std::string_view(lua_tostring(L, 3)) != "b", 3,
                "a form's script loads no bytecode");
  lua_pushliteral(L, "t");
  lua_replace(L, 3);
  return CallOriginal(L);
}

// A collection's own calls cannot be interrupted.
int SetMetatable(lua_State* L) {
  luaL_checktype(L, 1, LUA_TTABLE);
  luaL_argexpected(L, lua_isnil(L, 2) || lua_istable(L, 2), 2, "nil or table");
  lua_settop(L, 2);
  if (luaL_getmetafield(L, 1, "__metatable") != LUA_TNIL) {
    return luaL_error(L, "cannot change a protected metatable");
  }
  if (lua_istable(L, 2)) {
    lua_pushliteral(L, "__gc");
    luaL_argcheck(L, lua_rawget(L, 2) == LUA_TNIL, 2, "a form's script has no __gc");
    lua_pop(L, 1);
  }
  lua_setmetatable(L, 1);
  return 1;
}

int CollectGarbage(lua_State* L) {
  static const char* const kOptions[] = {"collect", "count", nullptr};
  if (luaL_checkoption(L, 1, "collect", kOptions) == 0) {
    lua_gc(L, LUA_GCCOLLECT);
    lua_pushinteger(L, 0);
  } else {
    lua_pushnumber(L, lua_gc(L, LUA_GCCOUNT) + lua_gc(L, LUA_GCCOUNTB) / 1024.0);
  }
  return 1;
}

// print(...), as a terminal shows it safely and as far as the limits allow.
int Print(lua_State* L) {
  const int count = lua_gettop(L);
  std::string line;
  for (int i = 1; i <= count; ++i) {
    std::size_t length = 0;
    const char* text = luaL_tolstring(L, i, &length);
    line += i > 1 ? "\t" : "";
    if (line.size() < kMostPrinted) line.append(text, std::min(length, kMostPrinted));
    lua_pop(L, 1);
  }
  if (const auto shown = RealmOf(L).Run().Limits().Shown(line)) {
    std::fwrite(shown->data(), 1, shown->size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
  }
  return 0;
}

// --- xpcall ----------------------------------------------------------------------------------------

// Upvalue 1 is the script's own message handler. When a script is stopped its steps are not counted there.
int HandleMessage(lua_State* L) {
  if (RealmOf(L).Stopped()) return 1;
  lua_pushvalue(L, lua_upvalueindex(1));
  lua_insert(L, 1);
  lua_call(L, 1, 1);
  return 1;
}

// From index `context` + 1 on there are `true` and the results.
int EndCall(lua_State* L, int status, lua_KContext context) {
  if (status != LUA_OK && status != LUA_YIELD) {
    lua_pushboolean(L, 0);
    lua_pushvalue(L, -2);
    return 2;
  }
  return lua_gettop(L) - static_cast<int>(context);
}

// xpcall(function, handler, ...)
int CallWithHandler(lua_State* L) {
  luaL_checktype(L, 2, LUA_TFUNCTION);
  const int arguments = lua_gettop(L) - 2;
  lua_pushvalue(L, 2);
  lua_pushcclosure(L, HandleMessage, 1);
  lua_replace(L, 2);
  lua_pushboolean(L, 1);
  lua_pushvalue(L, 1);
  lua_rotate(L, 3, 2);  // below the arguments
  constexpr lua_KContext kBelowResults = 2;
  return EndCall(L, lua_pcallk(L, arguments, LUA_MULTRET, 2, kBelowResults, EndCall), kBelowResults);
}

// --- Coroutines ------------------------------------------------------------------------------------

// A coroutine that was stopped counts no steps any more: its code must not run again, not even to close what
// it has open.
int CallUnlessStopped(lua_State* L) {
  RaiseIfStopped(L);
  const int results = CallOriginal(L);
  RaiseIfStopped(L);
  return results;
}

// Upvalues: 1 the coroutine, 2 coroutine.resume, 3 coroutine.close.
int ResumeWrapped(lua_State* L) {
  RaiseIfStopped(L);
  lua_State* coroutine = lua_tothread(L, lua_upvalueindex(1));
  lua_pushvalue(L, lua_upvalueindex(2));
  lua_pushvalue(L, lua_upvalueindex(1));
  lua_rotate(L, 1, 2);
  lua_call(L, lua_gettop(L) - 1, LUA_MULTRET);
  if (lua_toboolean(L, 1)) return lua_gettop(L) - 1;
  RaiseIfStopped(L);
  const int status = lua_status(coroutine);
  if (status != LUA_OK && status != LUA_YIELD) {
    lua_pushvalue(L, lua_upvalueindex(3));
    lua_pushvalue(L, lua_upvalueindex(1));
    lua_call(L, 1, 2);
  }
  if (status != LUA_ERRMEM && lua_type(L, -1) == LUA_TSTRING) {
    luaL_where(L, 1);
    lua_insert(L, -2);
    lua_concat(L, 2);
  }
  return lua_error(L);
}

// coroutine.wrap(function)
int WrapCoroutine(lua_State* L) {
  luaL_checktype(L, 1, LUA_TFUNCTION);
  lua_State* coroutine = lua_newthread(L);
  lua_pushvalue(L, 1);
  lua_xmove(L, coroutine, 1);
  lua_pushvalue(L, lua_upvalueindex(1));
  lua_pushvalue(L, lua_upvalueindex(2));
  lua_pushcclosure(L, ResumeWrapped, 3);
  return 1;
}

}  // namespace

void ConfineBase(lua_State* L) {
  lua_pushglobaltable(L);
  for (const char* name : {"dofile", "loadfile"}) {
    lua_pushnil(L);
    lua_setfield(L, -2, name);
  }
  ReplaceFunction(L, "load", LoadText);
  static constexpr luaL_Reg kOwn[] = {{"collectgarbage", CollectGarbage},
                                      {"print", Guarded<Print, false>},
                                      {"setmetatable", SetMetatable},
                                      {"xpcall", CallWithHandler},
                                      {nullptr, nullptr}};
  luaL_setfuncs(L, kOwn, 0);
  lua_pop(L, 1);
}

void ConfineCoroutines(lua_State* L) {
  lua_getglobal(L, LUA_COLIBNAME);
  lua_getfield(L, -1, "resume");
  lua_getfield(L, -2, "close");
  lua_pushcclosure(L, WrapCoroutine, 2);
  lua_setfield(L, -2, "wrap");
  ReplaceFunction(L, "close", CallUnlessStopped);
  ReplaceFunction(L, "resume", CallUnlessStopped);
  lua_pop(L, 1);
}

}  // namespace levelwidgets
