// Failed calls of the system.
#pragma once

#include <cerrno>
#include <system_error>

namespace levelwidgets {

// Raises what the system has left in errno.
[[noreturn]] inline void ThrowErrno() { throw std::system_error(errno, std::generic_category()); }

}  // namespace levelwidgets
