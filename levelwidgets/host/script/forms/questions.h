// Forms, messages and questions for files that somebody has to answer first.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// form:show_modal([on_closed]): the other forms of the run take no input until it is closed or hidden; the
// function is called then.
int ShowFormModal(lua_State* L);

// lw.message{ text=... [, title=..., style=..., buttons={...}, on_closed=function] }: shows it and returns
// its form. `style` is 0 or the system's number of a sign: 16 critical, 32 question, 48 warning, 64
// information. The function gets the number of the button that was pressed, 0 for none.
int NewMessage(lua_State* L);

// lw.open_file{ [title=..., folder=..., name=..., filter={...}, on_closed=function] }: asks for a file, and
// returns the question's form, nothing where the system asks. The function gets the file's path, nil for
// none. In a sandbox only files in the form's folder count, and the path begins there.
int AskForFileToOpen(lua_State* L);
// lw.save_file: the same for a file to write. A sandbox refuses.
int AskForFileToSave(lua_State* L);

}  // namespace levelwidgets
