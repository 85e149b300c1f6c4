#include <levelwidgets/testing/edit_box_fixture.h>

#include <exception>

#ifdef _WIN32
#include <windows.h>
#endif

namespace levelwidgets::testing {

#ifdef _WIN32

bool RunsOnWine() { return ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr; }

bool RunsOnWindows() { return !RunsOnWine(); }

#else

bool RunsOnWine() { return false; }

bool RunsOnWindows() { return false; }

#endif

namespace {

const char* ExpectedOf(const EditBoxRow& row) {
  if (RunsOnWine() && row.oddity.on_wine) return row.oddity.on_wine;
  if (RunsOnWindows() && row.oddity.on_windows) return row.oddity.on_windows;
  return row.result;
}

}  // namespace

void EditBoxTest::SetUp() {
  DesktopTest::SetUp();
  parent_ = Api().CreateWindowExA({"", "edit boxes", kWsPopup | kWsVisible, 0, {50, 50, 550, 350}, {}, this});
  Api().SetActiveWindow(parent_);
  Driver().Settle();
}

void EditBoxTest::TearDown() {
  Api().DestroyWindow(parent_);
  DesktopTest::TearDown();
}

LResult EditBoxTest::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (message == kWmCommand && script_) script_->Told(wparam);
  return Api().DefWindowProcA(window, message, wparam, lparam);
}

// What went wrong instead, when a script cannot be run.
std::string EditBoxTest::ResultOf(const EditBoxRow& row) {
  EditBoxScript script(Driver(), parent_, row.kind, row.text);
  script_ = &script;
  std::string result;
  try {
    result = script.Run(row.script);
  } catch (const std::exception& error) {
    result = error.what();
  }
  script_ = nullptr;
  return result;
}

void EditBoxTest::Check(std::span<const EditBoxRow> rows) {
  for (const EditBoxRow& row : rows) {
    EXPECT_EQ(ResultOf(row), ExpectedOf(row)) << row.name << ": " << row.text << " " << row.script;
  }
}

}  // namespace levelwidgets::testing
