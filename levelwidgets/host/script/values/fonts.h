// Fonts as scripts have them: shared objects with the members of the table of Font.
#pragma once

#include <levelwidgets/frame/font.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

void OpenFonts(lua_State* L);

void PushFont(lua_State* L, FontRef font);
// Null when the value at `index` is no font.
const FontRef* FontAt(lua_State* L, int index);

// A new font as the table at `index` describes it: Name, Size, Bold, Italic, Underline, Strikethrough,
// Charset. Raises 438 for any other key, 13 for a value of the wrong type.
FontRef FontOfTable(lua_State* L, int index);

// lw.font{ Name="Tahoma", Size=8.25 }
int NewFont(lua_State* L);

}  // namespace levelwidgets
