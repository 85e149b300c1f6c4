// What all types with members by name have in common.
#include <levelwidgets/frame/known_members.h>
#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/members/indexed.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {
constexpr char kMethods[] = "methods";

bool TakesNil(const MemberType& type) {
  return type.kind == TypeKind::kAny || type.type == VariantType::kObject;
}
}  // namespace

void SetScriptMethods(lua_State* L, const luaL_Reg* methods) {
  lua_newtable(L);
  luaL_setfuncs(L, methods, 0);
  lua_setfield(L, -2, kMethods);
}

void AddScriptMethods(lua_State* L, const luaL_Reg* methods) {
  lua_getfield(L, -1, kMethods);
  luaL_setfuncs(L, methods, 0);
  lua_pop(L, 1);
}

bool PushScriptMethod(lua_State* L, int object, std::string_view name) {
  luaL_getmetafield(L, object, kMethods);
  lua_pushlstring(L, name.data(), name.size());
  const bool found = lua_rawget(L, -2) != LUA_TNIL;
  lua_remove(L, -2);
  if (!found) lua_pop(L, 1);
  return found;
}

std::vector<std::string_view> ScriptMethodNames(lua_State* L, int object) {
  std::vector<std::string_view> names;
  luaL_getmetafield(L, object, kMethods);
  lua_pushnil(L);
  while (lua_next(L, -2) != 0) {
    names.push_back(lua_tostring(L, -2));
    lua_pop(L, 1);
  }
  lua_pop(L, 1);
  std::ranges::sort(names);  // the table's order is another on each run
  return names;
}

void PushProperty(lua_State* L, const Object& object, const PropertyInfo& property) {
  if (property.Indexed()) {
    PushIndexed(L, 1, property);
  } else {
    PushVariant(L, property.get(object), property.type);
  }
}

void AssignProperty(lua_State* L, Object& object, const PropertyInfo& property, int value) {
  // Most often the value of a variable that nobody has set.
  if (lua_isnil(L, value) && !property.ReadOnly() && !TakesNil(property.type)) {
    throw Error(kTypeMismatch, object.Class().QualifiedName(),
                std::string(object.Class().Name()) + "." + std::string(property.name) +
                    " cannot be nil; lw.null is Null");
  }
  SetKnown(object, property, ToVariant(L, value, property.type), TextsOf(L));
}

void RefuseEvent(const ClassInfo& info, std::string_view name) {
  if (!info.FindEvent(name)) return;
  throw Error(kNoSuchMember, info.QualifiedName(),
              std::string(info.Name()) + "." + std::string(name) + " is an event: listen to it by :on(\"" +
                  std::string(name) + "\", function) or a handler of its name");
}

}  // namespace levelwidgets
