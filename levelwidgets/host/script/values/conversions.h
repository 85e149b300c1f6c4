// Conversions and dates of the desktop's locale, for scripts.
#pragma once

#include <lua.hpp>

#include <levelwidgets/frame/text_conversions.h>

namespace levelwidgets {

// What the module has of them, by the names of its functions; a null name ends it:
//
// lw.format(value [, format [, first_day [, first_week]]])   lw.is_numeric(value)   lw.to_number(value)
// lw.is_date(value)   lw.to_date(value)   lw.month_name(month [, abbreviated])   lw.weekday(date [,
// first_day])
//
// Each raises the number of the conversion that fails: 5, 6 or 13. They are the desktop's, which is made by
// the first call when there is none.
extern const luaL_Reg kConversionFunctions[];

// The same for values that members and options take. They are looked for with the first value that needs
// them, so that a script may still make its desktop after its first object.
TextConversions TextsOf(lua_State* L);

}  // namespace levelwidgets
