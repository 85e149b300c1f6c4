// Where the panels of controls open, for scripts to ask.
#pragma once

#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// lw.place_drop_down{ owner={ left, top, right, bottom }, panel={ width, height }, screen={ width, height },
// twips={ x, y } }: left and top of a list, twips. The owner is in pixels, the panel and the screen are in
// twips; without screen or twips those of the screen where forms are shown. Raises 5 for what is no such
// table.
int PlaceDropDownForScript(lua_State* L);

// The same of a keypad or a month view. monitor={ left, top, width, height }, in pixels, takes the place of
// the screen.
int PlacePanelForScript(lua_State* L);

}  // namespace levelwidgets
