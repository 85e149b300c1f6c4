// Registers the library that this code is part of: what the system calls in it besides asking for classes.
#pragma once

#include <levelwidgets/activex/registration/system_registry.h>

namespace levelwidgets {

// Each returns 0, or the system's error as a negative number of the component interface (an HRESULT).
long RegisterModule(RegistrationScope scope);
long UnregisterModule(RegistrationScope scope);
// `command_line` is "user" in any letter case for the user who runs this, "machine" or nothing for all; the
// system's number for an invalid argument is returned for anything else. May be null.
long InstallModule(bool install, const wchar_t* command_line);

}  // namespace levelwidgets
