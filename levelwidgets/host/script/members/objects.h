// Controls and other objects as scripts have them: members by name, from the class tables.
#pragma once

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/form/hosted_control.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// Makes the types of controls and objects known; once per state.
void OpenObjects(lua_State* L);

// The same control is the same value each time.
void PushControl(lua_State* L, const std::shared_ptr<HostedControl>& control);
// The control at `index`; an error of the script for anything else. Raises 5 when it is no longer on a form.
std::shared_ptr<HostedControl> CheckControl(lua_State* L, int index);
// Null when the value at `index` is no control. The control may have been removed.
const std::shared_ptr<HostedControl>* ControlAt(lua_State* L, int index);
// Raises 5 when it is no longer on a form.
const std::shared_ptr<Control>& ControlOf(const HostedControl& hosted);

// nil for null.
void PushObject(lua_State* L, const ObjectRef& object);
// Null when the value at `index` is no object, or a control.
const ObjectRef* ObjectValueAt(lua_State* L, int index);
// Null when the value at `index` is no object; raises 5 for a removed control.
ObjectRef ObjectAt(lua_State* L, int index);

// --- For types with members by name ----------------------------------------------------------------

// The function that is the method `name` of the script type in the list at the metatable's field "methods";
// false, with nothing pushed, when there is none.
bool PushScriptMethod(lua_State* L, int object, std::string_view name);
// Leaves the type's methods in the field "methods" of the metatable on top of the stack.
void SetScriptMethods(lua_State* L, const luaL_Reg* methods);
// Adds to those that it has.
void AddScriptMethods(lua_State* L, const luaL_Reg* methods);
// The names of those methods.
std::vector<std::string_view> ScriptMethodNames(lua_State* L, int object);

// Pushes the property, of the class of `object`, whose value is at index 1.
void PushProperty(lua_State* L, const Object& object, const PropertyInfo& property);
// Assigns the value at `value` to it.
void AssignProperty(lua_State* L, Object& object, const PropertyInfo& property, int value);
// Raises 438 for an event read as if it were a value.
void RefuseEvent(const ClassInfo& info, std::string_view name);

}  // namespace levelwidgets
