// The entry of every test program.
#include <gmock/gmock.h>

#include <levelwidgets/testing/source_dir.h>

const char* levelwidgets::SourceDir() { return LEVELWIDGETS_SOURCE_DIR; }
const char* levelwidgets::BuildDir() { return LEVELWIDGETS_BUILD_DIR; }

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
