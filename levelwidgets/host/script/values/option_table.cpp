#include <levelwidgets/host/script/values/option_table.h>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

std::vector<std::string> KeysOfTable(lua_State* L, int index, std::string_view owner) {
  std::vector<std::string> keys;
  const int table = lua_absindex(L, index);
  lua_pushnil(L);
  while (lua_next(L, table) != 0) {
    if (lua_type(L, -2) != LUA_TSTRING) {
      throw Error(kTypeMismatch, "LevelWidgets." + std::string(owner),
                  std::string(owner) + " takes a table of names and values, not a list");
    }
    keys.emplace_back(lua_tostring(L, -2));
    lua_pop(L, 1);
  }
  std::ranges::sort(keys);
  return keys;
}

OptionTable::OptionTable(lua_State* L, int index, std::string_view owner, std::vector<std::string_view> names,
                         TextConversions texts)
    : lua_(L),
      table_(lua_isnoneornil(L, index) ? 0 : lua_absindex(L, index)),
      owner_(owner),
      texts_(std::move(texts)) {
  if (table_ == 0) return;
  luaL_checktype(L, table_, LUA_TTABLE);
  for (const std::string& key : KeysOfTable(L, table_, owner)) {
    if (std::ranges::find(names, key) == names.end()) RaiseNoSuchMember(owner, key, names);
  }
}

bool OptionTable::Has(std::string_view name) const {
  if (table_ == 0) return false;
  lua_pushlstring(lua_, name.data(), name.size());
  const bool has = lua_rawget(lua_, table_) != LUA_TNIL;
  lua_pop(lua_, 1);
  return has;
}

Variant OptionTable::Value(std::string_view name, const MemberType& type) const {
  if (table_ == 0) return {};
  lua_pushlstring(lua_, name.data(), name.size());
  lua_rawget(lua_, table_);
  Variant value = ToVariant(lua_, -1, type);
  lua_pop(lua_, 1);
  return value;
}

std::vector<Variant> OptionTable::List(std::string_view name, const MemberType& type) const {
  lua_pushlstring(lua_, name.data(), name.size());
  if (lua_rawget(lua_, table_) != LUA_TTABLE) {
    throw Error(kTypeMismatch, "LevelWidgets." + owner_, owner_ + "." + std::string(name) + " takes a list");
  }
  std::vector<Variant> values;
  for (lua_Integer i = 1; lua_rawgeti(lua_, -1, i) != LUA_TNIL; ++i) {
    values.push_back(ToVariant(lua_, -1, type));
    lua_pop(lua_, 1);
  }
  lua_pop(lua_, 2);
  return values;
}

Variant OptionTable::Converted(std::string_view name, VariantType type) const {
  const Variant value = Value(name);
  if (value.IsEmpty()) return value;
  try {
    return ConvertTo(type, value, texts_);
  } catch (const Error& error) {
    throw Error(
        error.Number(), "LevelWidgets." + owner_,
        owner_ + "." + std::string(name) + " cannot be " + Describe(value) + ": " + error.Description());
  }
}

std::string OptionTable::Text(std::string_view name, std::string otherwise) const {
  const Variant value = Converted(name, VariantType::kString);
  return value.IsEmpty() ? otherwise : ToText(value);
}

std::int32_t OptionTable::Whole(std::string_view name, std::int32_t otherwise) const {
  const Variant value = Converted(name, VariantType::kInt32);
  return value.IsEmpty() ? otherwise : ToInt32(value);
}

Twips OptionTable::Length(std::string_view name, Twips otherwise) const {
  const Variant value = Converted(name, VariantType::kSingle);
  return value.IsEmpty() ? otherwise : Twips(ToSingle(value));
}

bool OptionTable::Truth(std::string_view name, bool otherwise) const {
  const Variant value = Converted(name, VariantType::kBoolean);
  return value.IsEmpty() ? otherwise : ToBoolean(value);
}

}  // namespace levelwidgets
