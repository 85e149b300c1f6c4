// The fixture of tests that run the built program as a person does. Not for use outside this folder.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace levelwidgets {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

inline std::string TextOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

class ProgramTest : public ::testing::Test {
 protected:
  void SetUp() override { std::filesystem::create_directories(folder_); }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  // The program under test, beside the program of the tests.
  static std::filesystem::path Program() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "levelwidgets";  // runtime path
  }

  // In the test's own folder, where its files are.
  Outcome Run(const std::string& arguments, const std::string& redirections = "") {
    return RunWith("", arguments, redirections);
  }
  // `environment` stands before the program's name, as `env -u DISPLAY`.
  Outcome RunWith(const std::string& environment, const std::string& arguments,
                  const std::string& redirections = "") {
    return RunShell(environment + " '" + Program().string() + "' " + arguments, redirections);
  }
  Outcome RunShell(const std::string& line, const std::string& redirections = "") {
    const std::string command =
        "cd '" + folder_.string() + "' && " + line + " >out.txt 2>err.txt </dev/null " + redirections;
    const int ended = std::system(command.c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, TextOf(folder_ / "out.txt"),
            TextOf(folder_ / "err.txt")};
  }

  void File(const std::string& name, const std::string& text) { std::ofstream(folder_ / name) << text; }
  bool Exists(const std::string& name) { return std::filesystem::exists(folder_ / name); }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

}  // namespace levelwidgets
