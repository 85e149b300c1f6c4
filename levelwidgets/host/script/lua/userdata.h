// C++ values inside scripts.
#pragma once

#include <new>
#include <type_traits>
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

// As CheckUserdata, in a metamethod that DefineType has been given for `type`: faster, without a look-up.
template <typename T>
T& CheckOwn(lua_State* L, int index, const char* type) {
  void* const value = lua_touserdata(L, index);
  if (value && lua_getmetatable(L, index) != 0) {
    const bool is_own = lua_rawequal(L, -1, lua_upvalueindex(1)) != 0;
    lua_pop(L, 1);
    if (is_own) return *static_cast<T*>(value);
  }
  return CheckUserdata<T>(L, index, type);
}

// What other finalizers still reach of it is no value of the type any more, and holds nothing.
template <typename T>
int DestroyUserdata(lua_State* L) {
  T* const value = static_cast<T*>(lua_touserdata(L, 1));
  value->~T();
  if constexpr (std::is_default_constructible_v<T>) new (value) T();
  lua_pushnil(L);
  lua_setmetatable(L, 1);
  return 0;
}

// Leaves the new type's metatable on the stack, which is also the first upvalue of the metamethods. Scripts
// cannot reach it.
template <typename T>
void DefineType(lua_State* L, const char* type, const luaL_Reg* metamethods) {
  luaL_newmetatable(L, type);
  lua_pushvalue(L, -1);
  luaL_setfuncs(L, metamethods, 1);
  if constexpr (!std::is_trivially_destructible_v<T>) {
    lua_pushcfunction(L, DestroyUserdata<T>);
    lua_setfield(L, -2, "__gc");
  }
  lua_pushboolean(L, 0);
  lua_setfield(L, -2, "__metatable");
}

}  // namespace levelwidgets
