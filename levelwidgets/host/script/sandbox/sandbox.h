// What a form's script has of Lua when nobody vouches for it.
#pragma once

#include <string_view>

#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

// Fills a sandbox that is new: the libraries of string, table, math, utf8 and coroutine, print, os.date,
// os.time and os.clock, `require` for modules in the form's folder, and the library itself: `open_library`
// makes it known and leaves its module on the stack. Nothing in it reaches files elsewhere, processes, native
// code or bytecode, and nothing holds up a script that is stopped.
void OpenSandbox(lua_State* L, void (*open_library)(lua_State* L));

// Raises 70 when L is in a sandbox: `name`, as the script calls it, is not for it, because a script there
// `does_not` ("writes no files").
void RefuseInSandbox(lua_State* L, std::string_view name, std::string_view does_not);

// Parts of OpenSandbox. Each replaces functions of a library that is open already.
void ConfineBase(lua_State* L);        // load, xpcall, setmetatable, collectgarbage; no dofile, loadfile
void ConfineCoroutines(lua_State* L);  // resume, wrap, close
void ConfineTables(lua_State* L);      // move, insert, remove
void ConfineStrings(lua_State* L);     // rep; no dump

}  // namespace levelwidgets
