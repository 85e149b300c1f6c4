// The way from C++ into scripts.
#pragma once

#include <functional>
#include <memory>

#include <levelwidgets/host/script/lua/error.h>

namespace levelwidgets {

// Runs `body` in `realm` with room on the stack. Whatever goes wrong in it, in C++, in the script or because
// memory is lacking, is in `failure`, and the result is false.
bool EnterRealm(const std::shared_ptr<ScriptRealm>& realm, CallFailure& failure,
                const std::function<void(lua_State*)>& body);

}  // namespace levelwidgets
