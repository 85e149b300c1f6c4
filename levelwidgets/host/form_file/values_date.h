// Dates as form files write them.
#pragma once

#include <cstdint>
#include <string>

#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// The part of a day that has passed, 0 to below 1.
double TimeFraction(int hour, int minute, int second, std::uint32_t nanosecond);

// 2024-05-31, or 2024-05-31T10:30:00 where the time is not midnight, with as many digits of a second as it
// needs. Raises 6 (overflow) outside the years 1 to 9999.
std::string WriteDate(Date date);

}  // namespace levelwidgets
