#include <levelwidgets/host/script/members/indexed.h>

#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kIndexedType[] = "indexed property";

// An indexed property with the indices given so far. Its object is the value's user value.
struct IndexedAccess {
  const PropertyInfo* property;
  std::vector<Variant> indices;

  bool IsComplete() const { return indices.size() == property->indices.size(); }
};

void PushAccess(lua_State* L, int owner, IndexedAccess access) {
  const int object = lua_absindex(L, owner);
  PushUserdata(L, kIndexedType, std::move(access), 1);
  lua_pushvalue(L, object);
  lua_setiuservalue(L, -2, 1);
}

// The access at index 1 with the key at index 2 as its next index.
IndexedAccess AccessAtKey(lua_State* L) {
  IndexedAccess access = CheckUserdata<IndexedAccess>(L, 1, kIndexedType);
  access.indices.push_back(ToVariant(L, 2, access.property->indices[access.indices.size()].type));
  return access;
}

// Raises 5 for one whose control has been removed.
ObjectRef OwnerOf(lua_State* L) {
  lua_getiuservalue(L, 1, 1);
  const ObjectRef object = ObjectAt(L, -1);
  lua_pop(L, 1);
  return object;
}

int ReadIndexed(lua_State* L) {
  IndexedAccess access = AccessAtKey(L);
  if (access.IsComplete()) {
    PushVariant(L, GetIndexedByName(*OwnerOf(L), access.property->name, access.indices, TextsOf(L)),
                access.property->type);
  } else {
    lua_getiuservalue(L, 1, 1);
    PushAccess(L, -1, std::move(access));
  }
  return 1;
}

int WriteIndexed(lua_State* L) {
  const IndexedAccess access = AccessAtKey(L);
  const ObjectRef object = OwnerOf(L);
  SetIndexedByName(*object, access.property->name, access.indices, ToVariant(L, 3, access.property->type),
                   TextsOf(L));
  return 0;
}

constexpr luaL_Reg kIndexedMetamethods[] = {
    {"__index", Guarded<ReadIndexed>}, {"__newindex", Guarded<WriteIndexed>}, {nullptr, nullptr}};

}  // namespace

void OpenIndexed(lua_State* L) {
  DefineType<IndexedAccess>(L, kIndexedType, kIndexedMetamethods);
  lua_pop(L, 1);
}

void PushIndexed(lua_State* L, int owner, const PropertyInfo& property) {
  PushAccess(L, owner, {&property, {}});
}

}  // namespace levelwidgets
