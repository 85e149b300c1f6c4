#include <levelwidgets/host/script/values/fonts.h>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kFontType[] = "font";

// All who share the font see the change.
void SetPart(lua_State* L, Font& font, std::string_view name, int value) {
  const PropertyInfo* part = Font::Table().FindProperty(name);
  SetByName(font, name, ToVariant(L, value, part ? part->type : MemberType{}), TextsOf(L));
}

int ReadFont(lua_State* L) {
  PushVariant(L, GetByName(*CheckUserdata<FontRef>(L, 1, kFontType), luaL_checkstring(L, 2)));
  return 1;
}

int WriteFont(lua_State* L) {
  SetPart(L, *CheckUserdata<FontRef>(L, 1, kFontType), luaL_checkstring(L, 2), 3);
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

FontRef FontOfTable(lua_State* L, int index) {
  FontRef font = MakeFont();
  const int table = lua_absindex(L, index);
  lua_pushnil(L);
  while (lua_next(L, table) != 0) {
    if (lua_type(L, -2) != LUA_TSTRING) {
      throw Error(kTypeMismatch, "LevelWidgets.Font", "A list describes no font");
    }
    SetPart(L, *font, lua_tostring(L, -2), lua_gettop(L));
    lua_pop(L, 1);
  }
  return font;
}

int NewFont(lua_State* L) {
  luaL_checktype(L, 1, LUA_TTABLE);
  PushFont(L, FontOfTable(L, 1));
  return 1;
}

}  // namespace levelwidgets
