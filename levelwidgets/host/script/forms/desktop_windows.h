// What scripts do to whole windows of their desktop, and other programs.
#pragma once

#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// For the type of desktops, which is on top of the stack.
void AddDesktopWindowMethods(lua_State* L);

// lw.screen(): Width, Height, TwipsPerPixelX and TwipsPerPixelY of the screen where forms are shown, in
// twips of forms.
int ScreenInTwips(lua_State* L);

}  // namespace levelwidgets
