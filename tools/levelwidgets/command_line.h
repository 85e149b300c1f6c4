// The program `levelwidgets`.
#pragma once

#include <string>
#include <vector>

namespace levelwidgets {

// Does what the arguments (without the program's name) ask for; the exit status: 0, 1 for a failure that was
// reported on standard error, 2 for wrong arguments or a command that cannot be done here.
int RunCommandLine(std::vector<std::string> arguments);

}  // namespace levelwidgets
