// The check of the includes' direction, run on lines that offend and on lines that do not, by the table of
// this build.
#include <fstream>

#include <levelwidgets/testing/child_process.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {

namespace {

struct Verdict {
  int status = -1;
  std::string text;
};

class IncludeDirectionTest : public ::testing::Test {
 protected:
  IncludeDirectionTest() { std::filesystem::create_directories(folder_); }
  ~IncludeDirectionTest() override { std::filesystem::remove_all(folder_); }

  // What the check says of line 7 of `file`, which includes `target`.
  Verdict Check(const std::string& file, const std::string& target) {
    std::ofstream(folder_ / "lines") << "levelwidgets/" << file << ":7:#include <levelwidgets/" << target
                                     << ">\n";
    const std::string command = "awk -f '" + std::string(SourceDir()) + "/tools/include_direction.awk' '" +
                                BuildDir() + "/folders.tsv' lines >said";
    ChildProcess check({"sh", "-c", command}, {.folder = folder_});
    const auto status = check.Ended();
    std::ifstream said(folder_ / "said");
    return {status.value_or(-1), {std::istreambuf_iterator<char>(said), {}}};
  }

  void ExpectRefused(const std::string& file, const std::string& target, const std::string& reason) {
    const Verdict verdict = Check(file, target);
    EXPECT_EQ(verdict.status, 1) << file << " includes " << target;
    EXPECT_EQ(verdict.text, "levelwidgets/" + file + ":7: " + reason + ": levelwidgets/" + target + "\n");
  }
  void ExpectAllowed(const std::string& file, const std::string& target) {
    const Verdict verdict = Check(file, target);
    EXPECT_EQ(verdict.status, 0) << file << " includes " << target;
    EXPECT_EQ(verdict.text, "");
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                  (std::string("levelwidgets_includes_") +
                                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

std::string DoesNotBuildOn(const std::string& folder, const std::string& other) {
  return "levelwidgets/" + folder + " does not build on levelwidgets/" + other;
}

TEST_F(IncludeDirectionTest, FormsDoNotIncludeScripts) {
  ExpectRefused("host/form/form.cpp", "host/script/script_host.h",
                DoesNotBuildOn("host/form", "host/script"));
}

TEST_F(IncludeDirectionTest, FormsDoNotIncludeTheMonkey) {
  ExpectRefused("host/form/form.h", "host/monkey/run.h", DoesNotBuildOn("host/form", "host/monkey"));
}

TEST_F(IncludeDirectionTest, FormsDoNotIncludeTheDesktopInMemory) {
  ExpectRefused("host/form/form.cpp", "platform/memory/desktop.h",
                DoesNotBuildOn("host/form", "platform/memory"));
}

TEST_F(IncludeDirectionTest, ThePlatformsContractDoesNotIncludeConversions) {
  ExpectRefused("platform/driver.cpp", "platform/conversions/conversions.h",
                DoesNotBuildOn("platform", "platform/conversions"));
}

TEST_F(IncludeDirectionTest, TheFrameDoesNotIncludeTheConversionsOfTheDesktopInMemory) {
  ExpectRefused("frame/variant.cpp", "platform/conversions/conversions.h",
                DoesNotBuildOn("frame", "platform/conversions"));
  ExpectRefused("frame/variant_test.cpp", "platform/conversions/conversions.h",
                "levelwidgets/frame's tests do not build on levelwidgets/platform/conversions");
}

TEST_F(IncludeDirectionTest, TheEditBoxDoesNotIncludeTheDesktopThatHoldsIt) {
  ExpectRefused("platform/memory/edit/edit_box.cpp", "platform/memory/desktop.h",
                DoesNotBuildOn("platform/memory/edit", "platform/memory"));
}

TEST_F(IncludeDirectionTest, ARoomOfTheScriptsDoesNotIncludeARoomThatBuildsOnIt) {
  ExpectRefused("host/script/values/values.cpp", "host/script/members/objects.h",
                DoesNotBuildOn("host/script/values", "host/script/members"));
}

TEST_F(IncludeDirectionTest, AControlDoesNotIncludeAPrivateHeaderOfOneThatItBuildsOn) {
  ExpectRefused("controls/textbox/flat_text_box.cpp", "controls/scroll/flat_scroll_layout.h",
                "a private header of another control");
}

TEST_F(IncludeDirectionTest, AFileInNoFolderOfTheBuildIsReported) {
  ExpectRefused("platfrom/window.cpp", "platform/window.h",
                "levelwidgets/platfrom/window.cpp is in no folder of the build");
}

TEST_F(IncludeDirectionTest, AFolderIncludesWhatItBuildsOnThroughOthers) {
  ExpectAllowed("host/form/form.cpp", "frame/control.h");
  ExpectAllowed("host/form/form.cpp", "platform/window.h");
  ExpectAllowed("controls/textbox/flat_text_box.cpp", "controls/scroll/flat_scroll.h");
  ExpectAllowed("platform/memory/desktop.cpp", "platform/memory/edit/edit_box.h");
}

TEST_F(IncludeDirectionTest, OnlyTestsIncludeWhatTestsShare) {
  ExpectAllowed("controls/button/flat_button_test.cpp", "testing/desktop_fixture.h");
  ExpectRefused("controls/button/flat_button.cpp", "testing/desktop_fixture.h",
                DoesNotBuildOn("controls/button", "testing"));
}

TEST_F(IncludeDirectionTest, TheTestsOfTheFrameAndOfControlsDoNotIncludeTheDesktopInMemory) {
  for (const std::string folder : {"frame", "controls/button"}) {
    ExpectRefused(folder + "/some_test.cpp", "platform/memory/desktop.h",
                  "levelwidgets/" + folder + "'s tests do not build on levelwidgets/platform/memory");
  }
}

TEST_F(IncludeDirectionTest, TheTableHasFoldersThatThisSystemCannotBuild) {
  ExpectAllowed("platform/win32/win32_platform.cpp", "platform/platform.h");
  ExpectRefused("platform/win32/win32_platform.cpp", "platform/memory/desktop.h",
                DoesNotBuildOn("platform/win32", "platform/memory"));
}

}  // namespace

}  // namespace levelwidgets
