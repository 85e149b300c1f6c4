// Errors on their way between the library and scripts.
#pragma once

#include <string>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/lua/realm.h>
#include <levelwidgets/host/script/lua/run.h>

namespace levelwidgets {

// Makes the type of error values known; once per state.
void OpenErrors(lua_State* L);

// Pushes the exception being handled as a script's error value: an Error as a table { number, source,
// description } that prints as one line with its place, anything else as a text.
void PushCurrentException(lua_State* L);

// Before a function of the library runs for a script. In a sandbox: ends a script that is stopped,
// and raises what NoteUse of the limits raises.
void NoteCall(lua_State* L);

// Every function that scripts call is one of these: exceptions of the library become errors of the script.
// Functions that print errors or call scripts do not count as a use of the library.
template <int (*Function)(lua_State*), bool kIsUse = true>
int Guarded(lua_State* L) {
  const RunningThread running(L);
  try {
    if (kIsUse) NoteCall(L);
    return Function(L);
  } catch (const std::exception&) {
    PushCurrentException(L);
  }
  return lua_error(L);
}

// What the interpreter says, without a place.
inline constexpr std::string_view kNoMemory = "not enough memory";

struct CallFailure {
  std::string message;    // with its place in front, where that is known
  std::string traceback;  // "stack traceback:" and a line each
  bool told = false;      // it follows from a failure that has been reported already
};

// Raises a ScriptFailure, or a ScriptInterruption where it is one.
[[noreturn]] void RaiseFailure(const CallFailure& failure);

// Says in `failure` which limit the interpreter's bare "not enough memory" is about.
void ExplainNoMemory(const ScriptRealm& realm, CallFailure& failure);

// Calls the function below its `arguments` on the stack. False when it failed: `failure` then says how.
bool CallReporting(lua_State* L, int arguments, int results, CallFailure& failure);

}  // namespace levelwidgets
