#include <levelwidgets/host/script/members/known_names.h>

namespace levelwidgets {

namespace {
// Of a type's metatable: the names by class.
constexpr char kNamesOfClasses[] = "names";
}  // namespace

void ShareKnownNames(lua_State* L, const ClassInfo& info) {
  lua_getmetatable(L, -1);
  luaL_getsubtable(L, -1, kNamesOfClasses);
  if (lua_rawgetp(L, -1, &info) == LUA_TNIL) {
    lua_pop(L, 1);
    lua_newtable(L);
    lua_pushvalue(L, -1);
    lua_rawsetp(L, -3, &info);
  }
  lua_setiuservalue(L, -4, kKnownNames);
  lua_pop(L, 2);
}

void PushRow(lua_State* L, const PropertyInfo& property) {
  lua_pushlightuserdata(L, const_cast<PropertyInfo*>(&property));
}

void PushMethod(lua_State* L, lua_CFunction function, const ClassInfo& info, const MethodInfo& method) {
  lua_pushlstring(L, method.name.data(), method.name.size());
  lua_pushlightuserdata(L, const_cast<ClassInfo*>(&info));
  lua_pushlightuserdata(L, const_cast<MethodInfo*>(&method));
  lua_pushcclosure(L, function, 3);
}

}  // namespace levelwidgets
