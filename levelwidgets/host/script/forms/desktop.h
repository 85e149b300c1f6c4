// The desktop as scripts have it.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Makes the type of desktops known; once per state.
void OpenDesktop(lua_State* L);

// The desktop at index 1 of the stack; an error of the script for anything else.
ScriptDesktop& CheckScriptDesktop(lua_State* L);

// lw.desktop{ width=1024, height=768, dpi=96, locale="en-US", today="2024-05-15T10:30:00" }
// Raises 5 when there is a desktop already (a form makes one), or for a value without sense. A desktop that
// the run was given is returned for an empty table at any time.
int NewDesktop(lua_State* L);

}  // namespace levelwidgets
