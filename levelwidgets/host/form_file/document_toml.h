// TOML of any kind, by the TOML library.
#pragma once

#include <string>
#include <variant>

#include <levelwidgets/host/form_file/document.h>

namespace levelwidgets {

// The first error ends it.
std::variant<FormNode, FormSyntaxError> ParseToml(const std::string& text);

}  // namespace levelwidgets
