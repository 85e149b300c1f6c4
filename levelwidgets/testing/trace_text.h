// The arguments of recorded calls, for journals.
#pragma once

#include <string>

#include <levelwidgets/platform/tracing/traced_call.h>

namespace levelwidgets::testing {

// A whole number or a text as it is; "?" for a fraction, which no drawing call takes.
inline std::string ArgumentText(const TraceArgument& argument) {
  if (const auto* number = std::get_if<std::int64_t>(&argument)) return std::to_string(*number);
  const auto* text = std::get_if<std::string>(&argument);
  return text ? *text : "?";
}

}  // namespace levelwidgets::testing
