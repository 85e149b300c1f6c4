// What a script says of the desktop that it makes.
#pragma once

#include <levelwidgets/host/script/forms/options.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// The settings in the table at `index`; the defaults without one. Raises 5, saying what would be right.
DesktopSettings DesktopSettingsAt(lua_State* L, int index);

}  // namespace levelwidgets
