// The commands of the program, one file each. Not for use outside this folder.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/form_file/form_file.h>
#include <tools/levelwidgets/command.h>

namespace levelwidgets {

// Each adds its command to `program`.
void AddShowCommand(Program& program);
void AddCheckCommand(Program& program);
void AddDescribeCommand(Program& program);
#ifndef _WIN32
void AddRunCommand(Program& program);
void AddRenderCommand(Program& program);
void AddMonkeyCommand(Program& program);
#endif

// The exit status of `body`, during which Ctrl+C, or another signal to end, ends the script that runs:
// that is then reported on standard error, and the status is that of the signal, 130 for Ctrl+C.
int RunInterruptibly(const std::function<int()>& body);

// The option --trust, which leaves in `trusted` whether it is given.
void AddTrustOption(Command& command, bool& trusted);

#ifndef _WIN32
// The option --palette, which leaves one of the names of palettes in `palette`.
void AddPaletteOption(Command& command, std::string& palette);
// The option --locale, which leaves one of the names of locales in `locale`.
void AddLocaleOption(Command& command, std::string& locale);
#endif

// `text` on standard error, as a terminal shows it safely, after what was printed before.
void PrintError(const std::string& text);

// On standard error, a line each.
void PrintDiagnostics(const std::vector<Diagnostic>& diagnostics);

}  // namespace levelwidgets
