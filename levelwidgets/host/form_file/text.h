// The text of a form file.
#pragma once

#include <levelwidgets/host/form_file/document.h>

namespace levelwidgets {

// A text of its own.
std::string NewFormText(const FormState& form);
// The original with what differs from the form that was loaded from it: values are changed in place, keys and
// controls added and removed; everything else stays byte for byte.
std::string EditedFormText(const FormDocument& original, const FormState& form);

}  // namespace levelwidgets
