// The loop of a program with one form.
#pragma once

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

// Raises Load, shows the form and handles what happens until the form is closed; returns 0, or the status of
// another Quit. On a desktop that nobody sees it returns as soon as nothing can happen any more.
int RunForm(Form& form);

}  // namespace levelwidgets
