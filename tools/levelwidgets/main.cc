#include <tools/levelwidgets/command_line.h>
#include <tools/levelwidgets/standard_streams.h>

#ifdef LEVELWIDGETS_SANITIZED
// SDL's connection to the message bus leaves a buffer of the bus's library behind.
extern "C" const char* __lsan_default_suppressions() { return "leak:libdbus-1"; }
#endif

int main(int argc, char** argv) {
  levelwidgets::GuardStandardStreams();
  return levelwidgets::RunCommandLine({argv + 1, argv + argc});
}
