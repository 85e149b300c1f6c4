// What a form's own script sees.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Has `require` look for modules in the folder of the script file at `path` before all others.
void SearchModulesBeside(lua_State* L, const std::string& path);

// The file at `path` beside the script that is running, or in the current folder when there is none beside
// it.
std::string PathBesideCaller(lua_State* L, const std::string& path);

// Gives the form in the file at `form_path` a realm for its script and the globals there: every control under
// its name, `form` and `lw`. In the program's realm the program's globals are behind them; a sandbox is one
// of the form's own. Raises ScriptFailure.
void MakeEnvironment(ScriptState& state, const std::shared_ptr<ScriptForm>& form, const ScriptRealm& opener,
                     const std::string& form_path);

// Runs the script file at `path` in the form's environment. Raises ScriptFailure.
void RunFormScript(const ScriptForm& form, const std::string& path);

}  // namespace levelwidgets
