#include <tools/levelwidgets/command_line.h>
#include <tools/levelwidgets/standard_streams.h>

int main(int argc, char** argv) {
  levelwidgets::GuardStandardStreams();
  return levelwidgets::RunCommandLine({argv + 1, argv + argc});
}
