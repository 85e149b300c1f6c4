// The libraries of tables and strings in a sandbox: their functions that could run for ages in one step, on
// arguments that cost nothing, are held to a size.
#include <levelwidgets/host/script/sandbox/functions.h>
#include <levelwidgets/host/script/sandbox/sandbox.h>

namespace levelwidgets {

namespace {

// Elements that one call moves. More do not fit into the memory of a sandbox.
constexpr lua_Integer kMostMoved = 100'000'000;

// table.move(from, first, last, place [, to])
int Move(lua_State* L) {
  const lua_Integer first = luaL_checkinteger(L, 2);
  const lua_Integer last = luaL_checkinteger(L, 3);
  const bool fits = last < first || (first > 0 ? last - first < kMostMoved : last < first + kMostMoved);
  luaL_argcheck(L, fits, 3, "too many elements to move");
  return CallOriginal(L);
}

// A length may be whatever a metamethod says.
int ShiftElements(lua_State* L) {
  luaL_argcheck(L, !lua_istable(L, 1) || luaL_len(L, 1) < kMostMoved, 1, "too many elements to move");
  return CallOriginal(L);
}

// Any number of empty texts is an empty text.
int Repeat(lua_State* L) {
  std::size_t length = 0;
  std::size_t separator_length = 0;
  luaL_checklstring(L, 1, &length);
  luaL_checkinteger(L, 2);
  luaL_optlstring(L, 3, "", &separator_length);
  if (length + separator_length > 0) return CallOriginal(L);
  lua_pushliteral(L, "");
  return 1;
}

}  // namespace

void ConfineTables(lua_State* L) {
  lua_getglobal(L, LUA_TABLIBNAME);
  ReplaceFunction(L, "move", Move);
  ReplaceFunction(L, "insert", ShiftElements);
  ReplaceFunction(L, "remove", ShiftElements);
  lua_pop(L, 1);
}

void ConfineStrings(lua_State* L) {
  lua_getglobal(L, LUA_STRLIBNAME);
  ReplaceFunction(L, "rep", Repeat);
  lua_pushnil(L);
  lua_setfield(L, -2, "dump");
  lua_pop(L, 1);
}

}  // namespace levelwidgets
