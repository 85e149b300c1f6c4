// Dates as the settings of scripts write them.
#pragma once

#include <optional>
#include <string_view>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// "2024-05-31", "2024-05-31T10:30:00" (a space may stand for the T).
std::optional<Date> DateOfIsoText(std::string_view text);

}  // namespace levelwidgets
