// The entry of every test program.
#include <gmock/gmock.h>

#include <levelwidgets/testing/source_dir.h>

const char* levelwidgets::SourceDir() { return LEVELWIDGETS_SOURCE_DIR; }
const char* levelwidgets::BuildDir() { return LEVELWIDGETS_BUILD_DIR; }

#ifdef __SANITIZE_ADDRESS__
// SDL's connection to the message bus leaves a buffer of the bus's library behind.
extern "C" const char* __lsan_default_suppressions() { return "leak:libdbus-1"; }
#endif

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
