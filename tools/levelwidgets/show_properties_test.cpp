// Property pages in native windows.
#include <gtest/gtest.h>

#ifndef _WIN32

#include <tools/levelwidgets/show_fixture.h>

namespace levelwidgets {
namespace {

class ShowProperties : public ShowCommand {
 protected:
  // A click on the form's button shows the properties of its bar. The label tells what Max is when
  // the last property is written.
  void ShowPages() {
    Show(
        "form.Left, form.Top = 600, 600\n"
        "function cmdSave_Click()\n"
        "  frame = lw.properties(scrCount)\n"
        "  frame.Left, frame.Top = 6000, 600\n"
        "end\n"
        "function form_PropertyChanged(e)\n"
        "  if e.Control == 'scrCount' and e.Name == 'Enabled' then state(scrCount.Max == 600 and kAfter or "
        "kLast) end\n"
        "end\n");
    Click(button_);
    Screen().Activate("Properties");
  }
};

TEST_F(ShowProperties, APersonEditsAndAppliesThemByTheKeys) {
  ShowPages();
  Screen().Do("key Tab key Tab key Tab key shift+End type 600");
  Screen().Do("key alt+p");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  EXPECT_TRUE(Becomes([] { return Screen().TitleOf("Properties"); }, std::string("Properties of scrCount")));
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowProperties, WhatTheControlRefusesIsAMessageAndThePersonCorrectsIt) {
  ShowPages();
  Screen().Do("key shift+End type 500");
  Screen().Do("key Tab key Tab key Tab key shift+End type 600");
  Screen().Do("key Return");
  Screen().Activate("LevelWidgets");
  Screen().Do("key Return");
  Screen().Activate("Properties");
  Screen().Do("key shift+Tab key shift+Tab key shift+Tab key Home key shift+End type 50");
  Screen().Do("key Return");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  EXPECT_EQ(Errors(), "");
}

}  // namespace
}  // namespace levelwidgets

#endif
