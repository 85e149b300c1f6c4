// What the tests of forms that nobody vouches for have in common.
#pragma once

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {

class SandboxTest : public testing::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override {
    host_.reset();
    std::filesystem::remove_all(folder_);
    DesktopTest::TearDown();
  }

  // A host with other options, and what was reported to the one before.
  void Restart(ScriptOptions options) {
    host_.reset();
    options.desktop = SharedDriver();
    options.report = [this](const std::string& text) { reports_ += text + "\n"; };
    host_ = std::make_unique<ScriptHost>(std::move(options));
  }
  ScriptHost& Host() {
    if (!host_) Restart({});
    return *host_;
  }

  // Where links are not for everybody, the test is skipped.
  void Link(const std::filesystem::path& target, const std::string& name) const {
    std::error_code error;
    if (std::filesystem::is_directory(target, error)) {
      std::filesystem::create_directory_symlink(target, PathTo(name), error);
    } else {
      std::filesystem::create_symlink(target, PathTo(name), error);
    }
    if (error) GTEST_SKIP() << "no symbolic links here: " << error.message();
  }

  std::string PathTo(const std::string& name) const { return (folder_ / name).generic_string(); }
  // A file in the folder of the forms, or below.
  std::string File(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories((folder_ / name).parent_path());
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return PathTo(name);
  }

  // A form with a button cmdOK and the script; its file is `name`.form.toml.
  std::string FormFile(const std::string& name, const std::string& script) const {
    File(name + ".lua", script);
    return File(name + ".form.toml", "[form]\nName = \"frm\"\nScript = \"" +
                                         std::filesystem::path(name).filename().string() +
                                         ".lua\"\n\n[[control]]\nClass = \"FlatButton\"\nName = \"cmdOK\"\n");
  }
  std::shared_ptr<Form> Load(const std::string& script, const std::string& name = "form") {
    return Host().LoadForm(FormFile(name, script));
  }
  // Why the form with the script cannot be loaded; "" when it can.
  std::string FailureOf(const std::string& script) {
    try {
      Load(script);
    } catch (const std::exception& failure) {
      return failure.what();
    }
    return "";
  }
  // The same for the user's own program.
  std::string FailureOfProgram(const std::string& text) {
    try {
      Host().RunText(text, "program.lua");
    } catch (const ScriptFailure& failure) {
      return failure.what();
    }
    return "";
  }

  std::string reports_;

 private:
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("levelwidgets_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  std::unique_ptr<ScriptHost> host_;
};

}  // namespace levelwidgets
