// The commands of the program, one file each. Not for use outside this folder.
#pragma once

#include <functional>
#include <memory>

#include <CLI/CLI.hpp>

#include <levelwidgets/host/form_file/form_file.h>

namespace levelwidgets {

// Each adds its command to `program`. The command leaves its exit status in `status` when it has run, or
// throws what is to be reported on standard error.
void AddShowCommand(CLI::App& program, int& status);
void AddCheckCommand(CLI::App& program, int& status);
void AddDescribeCommand(CLI::App& program, int& status);
#ifndef _WIN32
void AddRunCommand(CLI::App& program, int& status);
void AddRenderCommand(CLI::App& program, int& status);
void AddMonkeyCommand(CLI::App& program, int& status);
#endif

// The exit status of `body`, during which an interrupt (Ctrl+C) ends the script that runs: that is then
// reported on standard error, and the status is 130.
int RunInterruptibly(const std::function<int()>& body);

// The option --trust, which leaves in `trusted` whether it is given.
void AddTrustOption(CLI::App& command, bool& trusted);

#ifndef _WIN32
// The option --palette, which leaves one of the names of palettes in `palette`.
void AddPaletteOption(CLI::App& command, std::string& palette);
#endif

// On standard error, a line each.
void PrintDiagnostics(const std::vector<Diagnostic>& diagnostics);

}  // namespace levelwidgets
