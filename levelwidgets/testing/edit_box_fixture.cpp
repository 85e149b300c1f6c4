#include <levelwidgets/testing/edit_box_fixture.h>

#include <exception>

#ifdef _WIN32
#include <windows.h>
#endif

namespace levelwidgets::testing {

bool RunsOnWine() {
#ifdef _WIN32
  return ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
#else
  return false;
#endif
}

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
    const char* expected = row.wine && RunsOnWine() ? row.wine : row.result;
    EXPECT_EQ(ResultOf(row), expected) << row.name << ": " << row.text << " " << row.script;
  }
}

}  // namespace levelwidgets::testing
