// The module `lw`.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Makes the library known, as the global `lw` and to `require "levelwidgets"`, with the types of its values;
// once per state.
void OpenLevelWidgets(lua_State* L);
void PushModule(lua_State* L);

}  // namespace levelwidgets
