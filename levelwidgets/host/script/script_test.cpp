// Runs the test scripts in testdata on the desktop of the tests. A script fails by an error; it returns how
// many errors in handlers it provokes.
#include <gtest/gtest.h>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

class Script : public testing::DesktopTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(Script, EndsWithoutAFailedCheck) {
  std::string reports;
  ScriptHost host(SharedDriver(), [&](const std::string& text) { reports += text + "\n"; });
  const std::string path =
      std::string(SourceDir()) + "/levelwidgets/host/script/testdata/" + GetParam() + ".lua";
  try {
    const int expected_handler_errors = host.RunFile(path);
    EXPECT_EQ(host.HandlerErrors().size(), static_cast<std::size_t>(expected_handler_errors)) << reports;
  } catch (const ScriptFailure& failure) {
    ADD_FAILURE() << failure.what() << "\n" << reports;
  }
}

INSTANTIATE_TEST_SUITE_P(Files, Script,
                         ::testing::Values("building", "collections", "conversions", "drop_down", "events",
                                           "file_questions", "focus", "forms", "grid", "grid_edits", "pages",
                                           "handler_errors", "known_names", "members", "questions", "removal",
                                           "tabs", "trace", "values"),
                         [](const auto& script) { return std::string(script.param); });

}  // namespace
}  // namespace levelwidgets
