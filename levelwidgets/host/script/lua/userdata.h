// C++ values inside scripts.
#pragma once

#include <new>
#include <utility>

#include <levelwidgets/host/script/lua/error.h>

namespace levelwidgets {

// Pushes `value` as one of the script type `type`, which DefineType has made known.
template <typename T>
void PushUserdata(lua_State* L, const char* type, T value, int user_values = 0) {
  void* room = lua_newuserdatauv(L, sizeof(T), user_values);
  new (room) T(std::move(value));
  luaL_setmetatable(L, type);
}

// The value at `index`; an error of the script when it is not of `type`.
template <typename T>
T& CheckUserdata(lua_State* L, int index, const char* type) {
  return *static_cast<T*>(luaL_checkudata(L, index, type));
}

// Null when the value at `index` is not of `type`.
template <typename T>
T* TestUserdata(lua_State* L, int index, const char* type) {
  return static_cast<T*>(luaL_testudata(L, index, type));
}

template <typename T>
int DestroyUserdata(lua_State* L) {
  static_cast<T*>(lua_touserdata(L, 1))->~T();
  return 0;
}

// Leaves the new type's metatable on the stack. Scripts cannot reach it.
template <typename T>
void DefineType(lua_State* L, const char* type, const luaL_Reg* metamethods) {
  luaL_newmetatable(L, type);
  luaL_setfuncs(L, metamethods, 0);
  lua_pushcfunction(L, DestroyUserdata<T>);
  lua_setfield(L, -2, "__gc");
  lua_pushboolean(L, 0);
  lua_setfield(L, -2, "__metatable");
}

}  // namespace levelwidgets
