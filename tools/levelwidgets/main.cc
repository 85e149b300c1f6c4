#include <tools/levelwidgets/command_line.h>

int main(int argc, char** argv) { return levelwidgets::RunCommandLine({argv + 1, argv + argc}); }
