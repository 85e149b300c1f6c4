// Messages in native windows.
#include <gtest/gtest.h>

#ifndef _WIN32

#include <tools/levelwidgets/show_fixture.h>

namespace levelwidgets {
namespace {

class ShowMessages : public ShowCommand {
 protected:
  static constexpr ColorRef kMessage{0x00445566};
  static constexpr ColorRef kYes{0x00223311};
  static constexpr ColorRef kNo{0x00556600};

  // A click on the form's button shows the message, whose parts have colours to be found by. `answered` is
  // what its answer does.
  static std::string Script(const std::string& answered) {
    return "form.Left, form.Top = 600, 600\n"
           "local clicks = 0\n"
           "function cmdSave_Click()\n"
           "  clicks = clicks + 1\n"
           "  if clicks > 1 then return state(0x00FFFF00) end\n"
           "  local m = lw.message{ text='Store it?', title='Question', style=32, buttons='YesNo',\n"
           "    on_closed=function(button) " +
           answered +
           " end }\n"
           "  m.Left, m.Top, m.BackColor = 6000, 600, 0x00445566\n"
           "  for name, color in pairs{ cmd1=0x00223311, cmd2=0x00556600 } do\n"
           "    for _, of in ipairs{ '', 'MouseOver', 'Pushed' } do m[name]['BackColor' .. of] = color end\n"
           "  end\n"
           "end\n";
  }
  void ShowMessage(const std::string& answered) {
    Show(Script(answered));
    Click(button_);
    no_ = Screen().WaitFor(kNo);
    yes_ = Screen().WaitFor(kYes);
    ASSERT_FALSE(no_.empty()) << Errors();
    ASSERT_FALSE(yes_.empty());
    Screen().Activate("Question");
  }

  PixelRect yes_;
  PixelRect no_;
};

constexpr char kByNumber[] = "state(button == 2 and kAfter or kLast)";

TEST_F(ShowMessages, APersonAnswersByThePointer) {
  ShowMessage(kByNumber);
  Click(no_);
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  EXPECT_TRUE(Screen().WaitWithout(kMessage));
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowMessages, APersonAnswersByTheKeys) {
  ShowMessage(kByNumber);
  Screen().Do("key Escape key Right key Return");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  EXPECT_TRUE(Screen().WaitWithout(kMessage));
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowMessages, TheFormBehindTakesNoInputUntilTheAnswer) {
  ShowMessage("state(clicks == 1 and kAfter or kLast)");
  Click(button_);
  Click(yes_);
  EXPECT_TRUE(Shows(kAfter)) << Errors();
  Click(button_);
  EXPECT_TRUE(Shows({0x00FFFF00})) << Errors();
  EXPECT_EQ(Errors(), "");
}

TEST_F(ShowMessages, ItsTitleIsThatOfANativeWindowWhichIsNotClosedBetweenYesAndNo) {
  ShowMessage(kByNumber);
  EXPECT_TRUE(Becomes([] { return Screen().TitleOf("Question"); }, std::string("Question")));
  Screen().Do("key alt+F4 key Right key Return");
  EXPECT_TRUE(Shows(kAfter)) << Errors();
}

}  // namespace
}  // namespace levelwidgets

#endif
