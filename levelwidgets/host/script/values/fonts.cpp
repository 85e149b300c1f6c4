#include <levelwidgets/host/script/values/fonts.h>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/form_file/values.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kFontType[] = "font";

const FontField& FindField(std::string_view name) {
  std::vector<std::string_view> names;
  for (const FontField& field : FontFields()) {
    if (field.name == name) return field;
    names.push_back(field.name);
  }
  RaiseNoSuchMember("Font", name, names);
}

void SetField(lua_State* L, FontDescription& font, std::string_view name, int value) {
  const FontField& field = FindField(name);
  const Variant given = ToVariant(L, value);
  try {
    field.set(font, ConvertTo(field.type.type, given, TextsOf(L)));
  } catch (const Error& error) {
    throw Error(error.Number(), "LevelWidgets.Font",
                "Font." + std::string(name) + " cannot be " + Describe(given) + ": " + error.Description());
  }
}

int ReadFont(lua_State* L) {
  const FontRef& font = CheckUserdata<FontRef>(L, 1, kFontType);
  PushVariant(L, FindField(luaL_checkstring(L, 2)).get(font->Description()));
  return 1;
}

// All who share the font see the change.
int WriteFont(lua_State* L) {
  const FontRef font = CheckUserdata<FontRef>(L, 1, kFontType);
  FontDescription changed = font->Description();
  SetField(L, changed, luaL_checkstring(L, 2), 3);
  font->SetDescription(changed);
  return 0;
}

// Equal when they look the same.
int FontsEqual(lua_State* L) {
  const FontRef* a = FontAt(L, 1);
  const FontRef* b = FontAt(L, 2);
  lua_pushboolean(L, a && b && (*a)->Description() == (*b)->Description());
  return 1;
}

int FontToText(lua_State* L) {
  lua_pushstring(L, Describe(Variant(CheckUserdata<FontRef>(L, 1, kFontType))).c_str());
  return 1;
}

constexpr luaL_Reg kMetamethods[] = {{"__index", Guarded<ReadFont>},
                                     {"__newindex", Guarded<WriteFont>},
                                     {"__eq", Guarded<FontsEqual>},
                                     {"__tostring", Guarded<FontToText>},
                                     {nullptr, nullptr}};

}  // namespace

void OpenFonts(lua_State* L) {
  DefineType<FontRef>(L, kFontType, kMetamethods);
  lua_pop(L, 1);
}

void PushFont(lua_State* L, FontRef font) { PushUserdata(L, kFontType, std::move(font)); }

const FontRef* FontAt(lua_State* L, int index) { return TestUserdata<FontRef>(L, index, kFontType); }

FontDescription FontOfTable(lua_State* L, int index) {
  FontDescription font;
  const int table = lua_absindex(L, index);
  lua_pushnil(L);
  while (lua_next(L, table) != 0) {
    if (lua_type(L, -2) != LUA_TSTRING) {
      throw Error(kTypeMismatch, "LevelWidgets.Font", "A list describes no font");
    }
    SetField(L, font, lua_tostring(L, -2), lua_gettop(L));
    lua_pop(L, 1);
  }
  return font;
}

int NewFont(lua_State* L) {
  luaL_checktype(L, 1, LUA_TTABLE);
  PushFont(L, MakeFont(FontOfTable(L, 1)));
  return 1;
}

}  // namespace levelwidgets
