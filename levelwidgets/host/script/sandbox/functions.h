// Putting functions of a sandbox in front of the library's own.
#pragma once

#include <lua.hpp>

namespace levelwidgets {

// Replaces the function `name` of the table on top of the stack by `function`, which has it as upvalue 1.
inline void ReplaceFunction(lua_State* L, const char* name, lua_CFunction function) {
  lua_getfield(L, -1, name);
  lua_pushcclosure(L, function, 1);
  lua_setfield(L, -2, name);
}

// Calls upvalue 1 with all arguments, and returns what it returns.
inline int CallOriginal(lua_State* L) {
  lua_pushvalue(L, lua_upvalueindex(1));
  lua_insert(L, 1);
  lua_call(L, lua_gettop(L) - 1, LUA_MULTRET);
  return lua_gettop(L);
}

}  // namespace levelwidgets
