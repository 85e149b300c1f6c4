// Handlers that nobody will ever call.
#pragma once

#include <memory>

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Reports each function of the form's script whose name is nearly that of a handler, such as form_Lod or
// cmdSvae_Click, with the name that was meant.
void WarnOfLostHandlers(const std::shared_ptr<ScriptForm>& form);

}  // namespace levelwidgets
