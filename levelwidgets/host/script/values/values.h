// Values of properties and arguments as scripts have them.
#pragma once

#include <string>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// Makes the types of Null and dates known; once per state.
void OpenValues(lua_State* L);

// How scripts have objects, which is the business of what knows their members.
struct ObjectValues {
  void (*push)(lua_State* L, const ObjectRef& object);
  // Null when the value at `index` is no object.
  ObjectRef (*at)(lua_State* L, int index);
};
// Once per state, before the first object; `values` outlives it.
void SetObjectValues(lua_State* L, const ObjectValues& values);

void PushText(lua_State* L, std::string_view text);
// Of the table on top of the stack.
void SetField(lua_State* L, const char* field, lua_Integer value);

// Empty is nil; whole numbers are integers, others floats; colours and handles of `type` are never negative.
void PushVariant(lua_State* L, const Variant& value, const MemberType& type = {});

// The value at `index`; a table describes a font. A colour may be written as 0x80000012. Raises 13 for what
// is no value of a property (a function).
Variant ToVariant(lua_State* L, int index, const MemberType& type = {});
Variant VariantOfWhole(lua_Integer number, const MemberType& type);

// The whole number at `index`; raises 6 for one that no property or argument can have (beyond 32 bits).
std::int32_t IntegerAt(lua_State* L, int index);
// `otherwise` where there is none.
std::int32_t OptionalIntegerAt(lua_State* L, int index, std::int32_t otherwise);

// The path at `index`; raises 5 for one with a NUL character, at which the system would cut it off.
std::string PathAt(lua_State* L, int index);

// lw.date(year, month, day [, hour, minute, second]). Raises 5 for a day or time that does not exist.
int NewDate(lua_State* L);

}  // namespace levelwidgets
