// What a form's own script sees.
#pragma once

#include <levelwidgets/host/script/script_state.h>

namespace levelwidgets {

// Has `require` look for modules in the folder of the script file at `path` before all others.
void SearchModulesBeside(lua_State* L, const std::string& path);

// The file at `path` beside the script that is running, or in the current folder when there is none beside
// it.
std::string PathBesideCaller(lua_State* L, const std::string& path);

// Gives the form the globals of its script: every control under its name, `form`, `lw`, and the program's
// globals behind them.
void MakeEnvironment(ScriptState& state, const std::shared_ptr<ScriptForm>& form);

// Runs the script file at `path` in the form's environment. Raises ScriptFailure.
void RunFormScript(ScriptState& state, const ScriptForm& form, const std::string& path);

}  // namespace levelwidgets
