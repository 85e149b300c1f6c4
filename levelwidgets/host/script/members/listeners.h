// Functions of scripts as listeners.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// Whose event it is, in reports.
struct EventSource {
  std::string form;
  std::string control;  // "" for the form itself
};

// Pushes the function that `push` finds in the realm, if there is one, and calls it for the event. Returns
// whether there was one. Errors are reported here: they are no business of the control.
bool CallFound(const std::shared_ptr<ScriptRealm>& realm, const EventSource& source, RaisedEvent& raised,
               const std::function<bool(lua_State*)>& push);

// Listens by the function at index 3 to the event named at index 2.
int Listen(lua_State* L, Object& object, EventSource source);

// control:on(event, function) and, for the objects that are no controls, object:on. Raises 438 for an unknown
// event.
int ListenToControl(lua_State* L);
int ListenToObject(lua_State* L);

}  // namespace levelwidgets
