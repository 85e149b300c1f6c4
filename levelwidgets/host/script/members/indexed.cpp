#include <levelwidgets/host/script/members/indexed.h>

#include <array>
#include <optional>
#include <stdexcept>

#include <levelwidgets/frame/known_members.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/known_names.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kIndexedType[] = "indexed property";
constexpr std::size_t kMostIndices = 2;

// An indexed property, and the first of two indices where that has been given: grid.RowData, grid.RowData[3].
// Scripts go through millions of cells by it, so there is nothing in it to destroy.
struct IndexedAccess {
  const PropertyInfo* property;
  // What the owner's value holds, one of the two. It holds nothing once it was destroyed.
  const std::shared_ptr<HostedControl>* control;
  const ObjectRef* object;
  std::array<MemberType, kMostIndices> types;
  std::size_t count;                 // of the indices
  bool has_first;                    // of two
  std::optional<lua_Integer> first;  // where it is a whole number; else it is the user value kFirst
};
static_assert(std::is_trivially_destructible_v<IndexedAccess>);

// User values.
constexpr int kOwner = 1;   // the control or object
constexpr int kLatest = 2;  // of one that has no first index: the access made last by one
constexpr int kFirst = 2;   // of one that has

std::optional<lua_Integer> WholeAt(lua_State* L, int index) {
  return lua_isinteger(L, index) ? std::optional(lua_tointeger(L, index)) : std::nullopt;
}

void PushAccess(lua_State* L, int owner, const IndexedAccess& access) {
  PushUserdata(L, kIndexedType, access, 2);
  lua_pushvalue(L, owner);
  lua_setiuservalue(L, -2, kOwner);
}

// Pushes the property of the owner at `owner`, without an index.
void PushWhole(lua_State* L, int owner, const PropertyInfo& property) {
  IndexedAccess access{&property, ControlAt(L, owner), ObjectValueAt(L, owner), {}, property.indices.size(),
                       false,     std::nullopt};
  if (access.count > kMostIndices) throw std::logic_error("scripts take two indices at most");
  for (std::size_t i = 0; i < access.count; ++i) access.types[i] = property.indices[i].type;
  PushAccess(L, owner, access);
}

// Pushes the access at index 1 with the key at index 2 as its first index. Scripts go through a row cell by
// cell: the last one is kept.
void PushWithFirst(lua_State* L, const IndexedAccess& access) {
  const std::optional<lua_Integer> first = WholeAt(L, 2);
  lua_getiuservalue(L, 1, kLatest);
  const auto* latest = static_cast<const IndexedAccess*>(lua_touserdata(L, -1));
  if (latest && first && latest->first == first) return;
  ToVariant(L, 2, access.types[0]);  // refuses what is no value of an index
  IndexedAccess next = access;
  next.has_first = true;
  next.first = first;
  lua_getiuservalue(L, 1, kOwner);
  PushAccess(L, lua_gettop(L), next);
  if (!first) {
    lua_pushvalue(L, 2);
    lua_setiuservalue(L, -2, kFirst);
  }
  lua_pushvalue(L, -1);
  lua_setiuservalue(L, 1, kLatest);
}

// The indices of the access at index 1, whose last one is the key at index 2.
class Indices {
 public:
  Indices(lua_State* L, const IndexedAccess& access) : access_(access) {
    Variant& last = access.has_first ? values_[1] : values_[0];
    last = ToVariant(L, 2, access.types[access.has_first ? 1 : 0]);
    if (!access.has_first) return;
    if (access.first) {
      values_[0] = VariantOfWhole(*access.first, access.types[0]);
    } else {
      lua_getiuservalue(L, 1, kFirst);
      values_[0] = ToVariant(L, -1, access.types[0]);
      lua_pop(L, 1);
    }
  }

  std::span<Variant> Values() { return std::span(values_).first(access_.has_first ? 2 : 1); }
  // Whether they are all of the indices, in their types.
  bool AreRight() const {
    if (access_.count != (access_.has_first ? 2 : 1)) return false;
    return IsOfType(access_.types[0], values_[0]) &&
           (access_.count == 1 || IsOfType(access_.types[1], values_[1]));
  }

 private:
  const IndexedAccess& access_;
  std::array<Variant, kMostIndices> values_;
};

// Raises 5 for one that has been removed, or was destroyed before what still asks for it.
Object& OwnerOf(const IndexedAccess& access) {
  if (access.control && *access.control) return *ControlOf(**access.control);
  if (access.object && *access.object) return **access.object;
  throw Error(kInvalidCall, "LevelWidgets", "The object no longer exists");
}

int ReadIndexed(lua_State* L) {
  const auto& access = CheckOwn<IndexedAccess>(L, 1, kIndexedType);
  if (!access.has_first && access.count > 1) {
    PushWithFirst(L, access);
    return 1;
  }
  const PropertyInfo& property = *access.property;
  Indices at(L, access);
  Object& owner = OwnerOf(access);
  PushVariant(L,
              at.AreRight() ? property.get_at(owner, at.Values())
                            : GetKnownAt(owner, property, at.Values(), TextsOf(L)),
              property.type);
  return 1;
}

// Raises 450 where an index is missing.
int WriteIndexed(lua_State* L) {
  const auto& access = CheckOwn<IndexedAccess>(L, 1, kIndexedType);
  const PropertyInfo& property = *access.property;
  Indices at(L, access);
  Object& owner = OwnerOf(access);
  // A handler may remove it.
  const std::shared_ptr<Control> keep = access.control ? (*access.control)->GetControl() : nullptr;
  Variant value = ToVariant(L, 3, property.type);
  if (property.set_at && at.AreRight() && IsOfType(property.type, value)) {
    property.set_at(owner, at.Values(), value);
  } else {
    SetKnownAt(owner, property, at.Values(), std::move(value), TextsOf(L));
  }
  return 0;
}

constexpr luaL_Reg kIndexedMetamethods[] = {
    {"__index", Guarded<ReadIndexed>}, {"__newindex", Guarded<WriteIndexed>}, {nullptr, nullptr}};

// Pushes the table of the owner's indexed properties; false, with nil pushed, for an owner that keeps none.
bool PushKept(lua_State* L, int owner) {
  const int type = lua_getiuservalue(L, owner, kKnownIndexed);
  if (type != LUA_TNIL) return type == LUA_TTABLE;
  lua_pop(L, 1);
  lua_newtable(L);
  lua_pushvalue(L, -1);
  lua_setiuservalue(L, owner, kKnownIndexed);
  return true;
}

}  // namespace

void OpenIndexed(lua_State* L) {
  DefineType<IndexedAccess>(L, kIndexedType, kIndexedMetamethods);
  lua_pop(L, 1);
}

void PushIndexed(lua_State* L, int owner, const PropertyInfo& property) {
  const int object = lua_absindex(L, owner);
  if (!PushKept(L, object)) {
    PushWhole(L, object, property);
    return;
  }
  if (lua_rawgetp(L, -1, &property) != LUA_TNIL) return;
  lua_pop(L, 1);
  PushWhole(L, object, property);
  lua_pushvalue(L, -1);
  lua_rawsetp(L, -3, &property);
}

}  // namespace levelwidgets
