// The module `lw`.
#pragma once

#include <levelwidgets/host/script/script_state.h>

namespace levelwidgets {

// Makes it known to `require "levelwidgets"` and as the global `lw`; once per state.
void OpenModule(lua_State* L);
void PushModule(lua_State* L);

}  // namespace levelwidgets
