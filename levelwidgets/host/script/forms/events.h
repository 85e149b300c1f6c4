// How events reach scripts.
#pragma once

#include <levelwidgets/host/form/hosted_control.h>
#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Handlers by name: cmdSave_Click for a control's event; form_Resize or frmOrder_Resize for the form's own.
// They are looked up when the event is raised, in the form's own script first and then among the globals of
// the script that has made or loaded the form.
void ConnectForm(const std::shared_ptr<ScriptForm>& form);
void ConnectControl(const std::shared_ptr<ScriptForm>& form, HostedControl& control);

// form:on(event, function). Raises 438 for an unknown event.
int ListenToForm(lua_State* L);

}  // namespace levelwidgets
