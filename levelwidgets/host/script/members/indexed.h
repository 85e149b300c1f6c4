// Indexed properties as scripts have them: tab.TabCaption[2], grid.RowData[3][1].
#pragma once

#include <lua.hpp>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

// Makes their type known; once per state.
void OpenIndexed(lua_State* L);

// Pushes the indexed `property` of the control or object that is the value at `owner`, to be indexed.
void PushIndexed(lua_State* L, int owner, const PropertyInfo& property);

}  // namespace levelwidgets
