// Property pages of controls, as models and as windows.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Makes the type of pages known; once per state.
void OpenPages(lua_State* L);

// lw.page(name, { control, ... }): the page, with the controls selected. Its fields are its members;
// page.changed, page:apply(), page:select{ ... }, and page:leave(field), which returns the text by which the
// field refuses, nil when it may be left. Raises 5 for an unknown page.
int NewPage(lua_State* L);

// lw.properties(control) or lw.properties{ control, ... }: shows the window with the pages of the first one's
// class and returns its form.
int ShowPropertiesForScript(lua_State* L);

}  // namespace levelwidgets
