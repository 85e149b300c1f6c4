// The entry of every test program.
#include <gmock/gmock.h>

#ifdef __linux__
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#endif

#include <levelwidgets/testing/source_dir.h>

const char* levelwidgets::SourceDir() { return LEVELWIDGETS_SOURCE_DIR; }
const char* levelwidgets::BuildDir() { return LEVELWIDGETS_BUILD_DIR; }

#ifdef LEVELWIDGETS_SANITIZED
// SDL's connection to the message bus leaves a buffer of the bus's library behind.
extern "C" const char* __lsan_default_suppressions() { return "leak:libdbus-1"; }
#endif

namespace {

// Runs at the same time do not share their files: programs that a test starts have the folder, too.
class TemporaryFolder {
 public:
#ifdef __linux__
  TemporaryFolder() {
    std::filesystem::create_directories(path_);
    setenv("TMPDIR", path_.c_str(), 1);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

 private:
  const std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("levelwidgets_tests_" + std::to_string(getpid()));
#endif
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  [[maybe_unused]] TemporaryFolder folder;
  return RUN_ALL_TESTS();
}
