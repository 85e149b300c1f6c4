// What the desktop's code page lacks of the texts of a form file.
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {
namespace {

constexpr char kHeader[] = "[form]\nName = \"frm\"\n";
constexpr char kBox[] =
    "\n[[control]]\nClass = \"FlatTextBox\"\nName = \"box\"\n"
    "Properties = { Text = \"4 kg \u65E5\u672C\", MaxLength = 20 }\n";

class LostText : public testing::DesktopTest {
 protected:
  LoadedForm Load(const std::string& text) { return LoadFormText(Tracer(), text, "f"); }
  std::string Told(const std::string& text) {
    std::string told;
    const LoadedForm loaded = Load(text);
    for (const Diagnostic& diagnostic : loaded.diagnostics) told += diagnostic.ToString() + "\n";
    EXPECT_TRUE(loaded.form);
    return told;
  }
};

constexpr char kInstead[] = ", which the desktop's code page lacks: \"?\" is shown instead\n";

TEST_F(LostText, IsAWarningWithTheCharactersAndThePlaceOfTheFirst) {
  EXPECT_EQ(Told(std::string(kHeader) + kBox),
            std::string("f:7:29: warning: Text has \"\u65E5\" (U+65E5) and \"\u672C\" (U+672C)") + kInstead);
  EXPECT_EQ(Told("[form]\nCaption = \"\u20AC \u00E9 \u2192 \u2192\"\n"),
            std::string("f:2:16: warning: Caption has \"\u2192\" (U+2192)") + kInstead);
}

TEST_F(LostText, ThatIsWrittenAsAnEscapeIsToldAtTheStartOfItsText) {
  EXPECT_EQ(Told("[form]\nCaption = \"ab \\u65E5\"\n"),
            std::string("f:2:11: warning: Caption has \"\u65E5\" (U+65E5)") + kInstead);
}

TEST_F(LostText, OfManyCharactersTheFirstFiveAreNamed) {
  EXPECT_EQ(Told("[form]\nCaption = \"\u0430\u0431\u0432\u0433\u0434\u0435\u0436\u0430\"\n"),
            std::string("f:2:12: warning: Caption has \"\u0430\" (U+0430), \"\u0431\" (U+0431), \"\u0432\" "
                        "(U+0432), \"\u0433\" (U+0433), \"\u0434\" (U+0434) and 2 more") +
                kInstead);
}

TEST_F(LostText, IsLookedForInEverythingThatIsShown) {
  const std::string told = Told(
      std::string(kHeader) +
      "Font = { Name = \"\u660E\u671D\", Size = 9 }\n"
      "\n[[control]]\nClass = \"FlatTabStrip\"\nName = \"tab\"\nToolTipText = \"\u2713\"\nTag = \"\u2713\"\n"
      "Properties = { TabCount = 1, TabCaption1 = \"\u2713\" }\n");
  EXPECT_EQ(told, std::string("f:3:18: warning: Font.Name has \"\u660E\" (U+660E) and \"\u671D\" (U+671D)") +
                      kInstead + "f:8:16: warning: ToolTipText has \"\u2713\" (U+2713)" + kInstead +
                      "f:10:45: warning: TabCaption1 has \"\u2713\" (U+2713)" + kInstead)
      << "except in the tag, which is not shown";
}

TEST_F(LostText, IsNotLookedForInAPropertyThatNoClassHas) {
  const std::string told = Told(std::string(kHeader) +
                                "\n[[control]]\nClass = \"FlatLabel\"\nName = \"lbl\"\n"
                                "Properties = { Legend = \"\u2713\" }\n");
  EXPECT_EQ(told, "f:7:16: warning: FlatLabel has no property \"Legend\" to load\n");
}

TEST_F(LostText, StaysInTheFileWhenNobodyChangesIt) {
  const std::string text = std::string(kHeader) + kBox +
                           "\n[[control]]\nClass = \"FlatTabStrip\"\nName = \"tab\"\n"
                           "Properties = { TabCount = 1, TabCaption1 = \"\u2713\" }\n";
  const LoadedForm loaded = Load(text);
  ASSERT_TRUE(loaded.form);
  loaded.form->Show();
  EXPECT_EQ(FormText(*loaded.form, loaded.document.get()), text);
}

TEST_F(LostText, StaysInTheFileWhenSomethingElseIsChanged) {
  const LoadedForm loaded = Load(std::string(kHeader) + kBox);
  ASSERT_TRUE(loaded.form);
  HostedControl& box = *loaded.form->Controls().front();
  box.SetLeft(Twips(150));
  dynamic_cast<FlatTextBox&>(*box.GetControl()).SetAlignment(ksxRight);  // makes its edit box anew
  const std::string saved = FormText(*loaded.form, loaded.document.get());
  EXPECT_NE(saved.find("Text = \"4 kg \u65E5\u672C\", MaxLength = 20, Alignment = 1"), std::string::npos)
      << saved;
  EXPECT_NE(saved.find("Left = 150"), std::string::npos) << saved;
}

TEST_F(LostText, IsSavedAsItIsShownOnceItIsChanged) {
  const LoadedForm loaded = Load(std::string(kHeader) + kBox);
  ASSERT_TRUE(loaded.form);
  auto& box = dynamic_cast<FlatTextBox&>(*loaded.form->Controls().front()->GetControl());
  box.SetText(box.Text() + " net");
  const std::string saved = FormText(*loaded.form, loaded.document.get());
  EXPECT_NE(saved.find("Text = \"4 kg ?\? net\""), std::string::npos) << saved;
}

}  // namespace
}  // namespace levelwidgets
