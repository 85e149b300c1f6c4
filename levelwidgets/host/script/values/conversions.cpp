#include <levelwidgets/host/script/values/conversions.h>

#include <levelwidgets/frame/conversions.h>
#include <levelwidgets/host/script/lua/error.h>
#include <levelwidgets/host/script/values/values.h>
#include <levelwidgets/platform/text/calendar.h>

namespace levelwidgets {

namespace {

ConversionApi& Conversions(lua_State* L) { return RealmOf(L).Run().FormPlatform().Conversions(); }

// Refers to the text of `value`, which must outlive it.
Date DateAt(lua_State* L, int index) {
  const Variant value = ToVariant(L, index);
  return ResultOf(Conversions(L).ToDate(ToConversionValue(value)));
}

int Push(lua_State* L, const Variant& value) {
  PushVariant(L, value);
  return 1;
}

int Format(lua_State* L) {
  const Variant value = ToVariant(L, 1);
  const std::string format = luaL_optstring(L, 2, "");
  return Push(
      L, ResultOf(Conversions(L).Format(ToConversionValue(value), format, OptionalIntegerAt(L, 3, kSunday),
                                        OptionalIntegerAt(L, 4, kWeekOfJanuary1))));
}

int IsNumeric(lua_State* L) {
  const Variant value = ToVariant(L, 1);
  return Push(L, Conversions(L).IsNumeric(ToConversionValue(value)));
}

int ToNumber(lua_State* L) {
  const Variant value = ToVariant(L, 1);
  lua_pushnumber(L, ResultOf(Conversions(L).ToDouble(ToConversionValue(value))));
  return 1;
}

int IsDate(lua_State* L) {
  const Variant value = ToVariant(L, 1);
  return Push(L, Conversions(L).IsDate(ToConversionValue(value)));
}

int ToDate(lua_State* L) { return Push(L, DateAt(L, 1)); }

int MonthName(lua_State* L) {
  const int month = IntegerAt(L, 1);
  return Push(L, ResultOf(Conversions(L).MonthName(month, lua_toboolean(L, 2) != 0)));
}

int Weekday(lua_State* L) {
  return Push(L, ResultOf(Conversions(L).Weekday(DateAt(L, 1), OptionalIntegerAt(L, 2, kSunday))));
}

// lw.date_add(unit, number, date)
int DateAdd(lua_State* L) {
  const std::string unit = luaL_checkstring(L, 1);
  return Push(L, ResultOf(Conversions(L).DateAdd(unit, luaL_checknumber(L, 2), DateAt(L, 3))));
}

// lw.date_diff(unit, from, to [, first_day])
int DateDifference(lua_State* L) {
  const std::string unit = luaL_checkstring(L, 1);
  const auto difference =
      calendar::DifferenceOfDates(unit, DateAt(L, 2), DateAt(L, 3), OptionalIntegerAt(L, 4, kSunday));
  lua_pushinteger(L, ResultOf(difference));
  return 1;
}

}  // namespace

const luaL_Reg kConversionFunctions[] = {
    {"date_add", Guarded<DateAdd>},   {"date_diff", Guarded<DateDifference>},
    {"format", Guarded<Format>},      {"is_numeric", Guarded<IsNumeric>},
    {"to_number", Guarded<ToNumber>}, {"is_date", Guarded<IsDate>},
    {"to_date", Guarded<ToDate>},     {"month_name", Guarded<MonthName>},
    {"weekday", Guarded<Weekday>},    {nullptr, nullptr}};

TextConversions TextsOf(lua_State* L) {
  return TextConversions([L]() -> ConversionApi& { return Conversions(L); });
}

}  // namespace levelwidgets
