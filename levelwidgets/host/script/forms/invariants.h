// What scripts ask of a desktop in memory beyond what a person does: whether all is well with it.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Adds d:check, d:repaint, d:close_all and d:throw to the type of desktops, whose metatable is on top of the
// stack. In a build without a desktop in memory there are none.
void AddInvariantMethods(lua_State* L);

}  // namespace levelwidgets
