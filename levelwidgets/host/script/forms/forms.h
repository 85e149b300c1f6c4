// Forms as scripts have them, built by hand or loaded.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Makes the type of forms known; once per state.
void OpenForms(lua_State* L);

void PushForm(lua_State* L, const std::shared_ptr<ScriptForm>& form);
// The form at `index`; an error of the script for anything else. Raises 5 when it is closed.
std::shared_ptr<ScriptForm> CheckForm(lua_State* L, int index);
// Null when the value at `index` is no form.
const std::shared_ptr<ScriptForm>* FormAt(lua_State* L, int index);

// Loads the form file at `path`, runs its script and raises Load: for a script in `opener`, or whoever has
// the run. Raises an Error with every diagnostic of the file, or ScriptFailure.
std::shared_ptr<ScriptForm> LoadScriptForm(ScriptRealm& opener, const std::string& path);

// A form built by hand is complete when it is shown first: Load comes then.
void RaiseLoadOnce(ScriptForm& form);

// lw.form{ Name=..., Caption=..., Width=..., Height=..., Font=..., BackColor=..., KeyPreview=..., Design=...
// }
int NewForm(lua_State* L);
// lw.load(path): beside the calling script, or else in the current folder; in a sandbox, in its folder only
int LoadFormFile(lua_State* L);
// form:add(class, name [, values])
int AddControl(lua_State* L);

}  // namespace levelwidgets
