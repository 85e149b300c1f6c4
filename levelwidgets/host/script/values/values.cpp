#include <levelwidgets/host/script/values/values.h>

#include <limits>

#include <levelwidgets/host/form_file/values_date.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/values/fonts.h>
#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/text/printable.h>

namespace levelwidgets {

namespace {

constexpr char kNullType[] = "null";
constexpr char kDateType[] = "date";

// --- Null ------------------------------------------------------------------------------------------

int NullToText(lua_State* L) {
  lua_pushliteral(L, "Null");
  return 1;
}

// Any two are equal.
int NullsEqual(lua_State* L) {
  lua_pushboolean(L, TestUserdata<Null>(L, 1, kNullType) && TestUserdata<Null>(L, 2, kNullType));
  return 1;
}

constexpr luaL_Reg kNullMembers[] = {
    {"__tostring", NullToText}, {"__eq", Guarded<NullsEqual>}, {nullptr, nullptr}};

// --- Dates -----------------------------------------------------------------------------------------

int DateToText(lua_State* L) {
  lua_pushstring(L, WriteDate(CheckUserdata<Date>(L, 1, kDateType)).c_str());
  return 1;
}

int DatesEqual(lua_State* L) {
  const Date* a = TestUserdata<Date>(L, 1, kDateType);
  const Date* b = TestUserdata<Date>(L, 2, kDateType);
  lua_pushboolean(L, a && b && *a == *b);
  return 1;
}

int DateIsBefore(lua_State* L) {
  lua_pushboolean(
      L, calendar::IsBefore(CheckUserdata<Date>(L, 1, kDateType), CheckUserdata<Date>(L, 2, kDateType)));
  return 1;
}

int DateIsNotAfter(lua_State* L) {
  lua_pushboolean(
      L, !calendar::IsBefore(CheckUserdata<Date>(L, 2, kDateType), CheckUserdata<Date>(L, 1, kDateType)));
  return 1;
}

int ReadDate(lua_State* L) {
  const std::optional<DateParts> parts = calendar::PartsOf(CheckUserdata<Date>(L, 1, kDateType));
  if (!parts) throw Error(kOverflow);
  const std::string_view name = luaL_checkstring(L, 2);
  static constexpr std::string_view kFields[] = {"year", "month", "day", "hour", "minute", "second"};
  const int values[] = {parts->year, parts->month, parts->day, parts->hour, parts->minute, parts->second};
  const auto found = std::ranges::find(kFields, name);
  if (found == std::end(kFields)) RaiseNoSuchMember("Date", name, kFields);
  lua_pushinteger(L, values[found - std::begin(kFields)]);
  return 1;
}

constexpr luaL_Reg kDateMembers[] = {{"__tostring", Guarded<DateToText>}, {"__eq", Guarded<DatesEqual>},
                                     {"__lt", Guarded<DateIsBefore>},     {"__le", Guarded<DateIsNotAfter>},
                                     {"__index", Guarded<ReadDate>},      {nullptr, nullptr}};

// --- Objects ---------------------------------------------------------------------------------------

// Its address is the key of the registry's entry.
constexpr char kObjectValues = 0;

const ObjectValues& Objects(lua_State* L) {
  lua_rawgetp(L, LUA_REGISTRYINDEX, &kObjectValues);
  const auto* values = static_cast<const ObjectValues*>(lua_touserdata(L, -1));
  lua_pop(L, 1);
  return *values;
}

// --- From scripts ----------------------------------------------------------------------------------

Variant NumberAt(lua_State* L, int index, const MemberType& type) {
  if (lua_isinteger(L, index)) return VariantOfWhole(lua_tointeger(L, index), type);
  return static_cast<double>(lua_tonumber(L, index));
}

Variant UserdataAt(lua_State* L, int index) {
  if (TestUserdata<Null>(L, index, kNullType)) return Null{};
  if (const Date* date = TestUserdata<Date>(L, index, kDateType)) return *date;
  if (const FontRef* font = FontAt(L, index)) return *font;
  if (ObjectRef object = Objects(L).at(L, index)) return object;
  throw Error(kTypeMismatch);
}

}  // namespace

void OpenValues(lua_State* L) {
  DefineType<Null>(L, kNullType, kNullMembers);
  DefineType<Date>(L, kDateType, kDateMembers);
  lua_pop(L, 2);
}

void SetObjectValues(lua_State* L, const ObjectValues& values) {
  lua_pushlightuserdata(L, const_cast<ObjectValues*>(&values));
  lua_rawsetp(L, LUA_REGISTRYINDEX, &kObjectValues);
}

void SetField(lua_State* L, const char* field, lua_Integer value) {
  lua_pushinteger(L, value);
  lua_setfield(L, -2, field);
}

void PushText(lua_State* L, std::string_view text) { lua_pushlstring(L, text.data(), text.size()); }

void PushVariant(lua_State* L, const Variant& value, const MemberType& type) {
  switch (value.Type()) {
    case VariantType::kEmpty: lua_pushnil(L); return;
    case VariantType::kNull: PushUserdata(L, kNullType, Null{}); return;
    case VariantType::kBoolean: lua_pushboolean(L, ToBoolean(value)); return;
    case VariantType::kInt16: lua_pushinteger(L, ToInt16(value)); return;
    case VariantType::kInt32: {
      const std::int32_t number = ToInt32(value);
      lua_pushinteger(L, type.IsUnsigned() ? lua_Integer{static_cast<std::uint32_t>(number)} : number);
      return;
    }
    case VariantType::kSingle:
    case VariantType::kDouble: lua_pushnumber(L, ToDouble(value)); return;
    case VariantType::kDate: PushUserdata(L, kDateType, ToDate(value)); return;
    case VariantType::kString: PushText(L, std::get<std::string>(value.Get())); return;
    case VariantType::kFont: PushFont(L, ToFont(value)); return;
    case VariantType::kObject: Objects(L).push(L, std::get<ObjectRef>(value.Get())); return;
  }
}

Variant VariantOfWhole(lua_Integer number, const MemberType& type) {
  if (type.IsUnsigned() && number >= 0 && number <= std::numeric_limits<std::uint32_t>::max()) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
  }
  const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                    number <= std::numeric_limits<std::int32_t>::max();
  return fits ? Variant(static_cast<std::int32_t>(number)) : Variant(static_cast<double>(number));
}

Variant ToVariant(lua_State* L, int index, const MemberType& type) {
  switch (lua_type(L, index)) {
    case LUA_TNONE:
    case LUA_TNIL: return {};
    case LUA_TBOOLEAN: return lua_toboolean(L, index) != 0;
    case LUA_TNUMBER: return NumberAt(L, index, type);
    case LUA_TSTRING: {
      std::size_t length = 0;
      const char* text = lua_tolstring(L, index, &length);
      return std::string(text, length);
    }
    case LUA_TTABLE: return FontOfTable(L, index);
    case LUA_TUSERDATA: return UserdataAt(L, index);
    default: throw Error(kTypeMismatch);
  }
}

std::int32_t IntegerAt(lua_State* L, int index) {
  const lua_Integer number = luaL_checkinteger(L, index);
  if (number < std::numeric_limits<std::int32_t>::min() ||
      number > std::numeric_limits<std::int32_t>::max()) {
    throw Error(kOverflow);
  }
  return static_cast<std::int32_t>(number);
}

std::int32_t OptionalIntegerAt(lua_State* L, int index, std::int32_t otherwise) {
  return lua_isnoneornil(L, index) ? otherwise : IntegerAt(L, index);
}

std::string PathAt(lua_State* L, int index) {
  std::size_t length = 0;
  const char* const text = luaL_checklstring(L, index, &length);
  std::string path(text, length);
  if (path.find('\0') == std::string::npos) return path;
  throw Error(kInvalidCall, "LevelWidgets",
              "\"" + text::Printable(path) + "\" is no path: it has a NUL character");
}

int NewDate(lua_State* L) {
  const auto needed = [L](int index) { return IntegerAt(L, index); };
  const auto optional = [L](int index) { return OptionalIntegerAt(L, index, 0); };
  const auto date =
      calendar::DateOf(DateParts{needed(1), needed(2), needed(3), optional(4), optional(5), optional(6)});
  if (!date) throw Error(kInvalidCall, "LevelWidgets.Date", "There is no such day or time");
  PushUserdata(L, kDateType, *date);
  return 1;
}

}  // namespace levelwidgets
