// The fixture of tests that run one table of scripts on the edit boxes of any desktop.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>

#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/edit_box_script.h>

namespace levelwidgets::testing {

// What comes out elsewhere than on the desktop in memory, where that is not the same.
struct EditBoxOddity {
  const char* on_wine = nullptr;
  const char* on_windows = nullptr;
};

// Wine differs from what Windows is documented to do, or where nothing is documented from us.
constexpr EditBoxOddity Wine(const char* result) { return {result, nullptr}; }
// We promise more than the operating system's edit box does.
constexpr EditBoxOddity System(const char* result) { return {result, result}; }

struct EditBoxRow {
  const char* name;
  EditBoxKind kind;
  const char* text;
  const char* script;
  const char* result;
  EditBoxOddity oddity = {};
};

// Both false on the desktop in memory.
bool RunsOnWine();
bool RunsOnWindows();

class EditBoxTest : public DesktopTest, public WindowClient {
 protected:
  void SetUp() override;
  void TearDown() override;
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

  WindowApi& Api() { return Driver().GetPlatform().Windows(); }
  std::string ResultOf(const EditBoxRow& row);
  void Check(std::span<const EditBoxRow> rows);

  WindowHandle parent_;
  EditBoxScript* script_ = nullptr;  // gets the notifications
};

}  // namespace levelwidgets::testing
