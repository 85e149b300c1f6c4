// What names stand for, looked up once for each class and kept.
#pragma once

#include <concepts>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// The user values that a value with members by name has.
inline constexpr int kKnownNames = 1;    // what the names of its class stand for, as far as they were used
inline constexpr int kKnownIndexed = 2;  // its indexed properties, as far as they were used
inline constexpr int kMemberUserValues = 2;

// Gives the value on top of the stack the names of `info`, which all values of its type and class share.
void ShareKnownNames(lua_State* L, const ClassInfo& info);

// Pushes what the text at index 2 stands for of the value at index 1: what `look_up` pushes for it the first
// time, unless that raises an error.
template <std::invocable LookUp>
void PushKnownName(lua_State* L, LookUp look_up) {
  lua_getiuservalue(L, 1, kKnownNames);
  lua_pushvalue(L, 2);
  if (lua_rawget(L, -2) != LUA_TNIL) return;
  lua_pop(L, 1);
  look_up();
  lua_pushvalue(L, 2);
  lua_pushvalue(L, -2);
  lua_rawset(L, -4);
}

// Names stand for properties and for functions, which are methods.
void PushRow(lua_State* L, const PropertyInfo& property);
// The property on top of the stack; null for a function.
inline const PropertyInfo* RowAt(lua_State* L) {
  return static_cast<const PropertyInfo*>(lua_touserdata(L, -1));
}

// Pushes `function` as the method of the class `info`, for MethodOf.
void PushMethod(lua_State* L, lua_CFunction function, const ClassInfo& info, const MethodInfo& method);
// The method that the running function is in the class `info`: a script may call it with a value of another
// class than the one that it was asked for. Null when that has no method of the name.
template <std::invocable<std::string_view> LookUp>
const MethodInfo* MethodOf(lua_State* L, const ClassInfo& info, LookUp look_up) {
  if (lua_touserdata(L, lua_upvalueindex(2)) == &info) {
    return static_cast<const MethodInfo*>(lua_touserdata(L, lua_upvalueindex(3)));
  }
  return look_up(lua_tostring(L, lua_upvalueindex(1)));
}

// Whether `row` is one of the `rows` of a table.
template <typename Info>
bool IsAmong(std::span<const Info> rows, const Info& row) {
  return !std::less<>()(&row, rows.data()) && std::less<>()(&row, rows.data() + rows.size());
}

}  // namespace levelwidgets
