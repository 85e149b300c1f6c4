// The fixture of tests that run one table of scripts on the edit boxes of any desktop.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>

#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/edit_box_script.h>

namespace levelwidgets::testing {

struct EditBoxRow {
  const char* name;
  EditBoxKind kind;
  const char* text;
  const char* script;
  const char* result;
  // What Wine gives where it differs from what Windows is documented to do, or from what we promise
  // beyond it.
  const char* wine = nullptr;
};

// False on every desktop but Wine's.
bool RunsOnWine();

class EditBoxTest : public DesktopTest, public WindowClient {
 protected:
  void SetUp() override;
  void TearDown() override;
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

  WindowApi& Api() { return Driver().GetPlatform().Windows(); }
  std::string ResultOf(const EditBoxRow& row);
  void Check(std::span<const EditBoxRow> rows);

  WindowHandle parent_;
  EditBoxScript* script_ = nullptr;  // is told of notifications
};

}  // namespace levelwidgets::testing
