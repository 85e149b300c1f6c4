// What goes by the desktop's code page: keys come as its bytes.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

constexpr char kCapitalZhe[] = "\xD0\x96";
constexpr char kSmallZhe[] = "\xD0\xB6";
constexpr char kSmallAUmlaut[] = "\xC3\xA4";

class FormCodePageTest : public DesktopTest {
 protected:
  std::shared_ptr<DesktopDriver> MakeDriver() override {
    const auto cyrillic = TestDriverWithCodePage(1251);
    only_one_ = !cyrillic;
    return cyrillic ? cyrillic : TestDriver();
  }
  void SetUp() override {
    DesktopTest::SetUp();
    if (only_one_) GTEST_SKIP() << "the system has one code page";
  }
  std::vector<std::string> PasswordMessages() {
    std::vector<std::string> messages;
    for (const TracedCall& call : Tracer().TakeCalls()) {
      const std::string text = call.ToString();
      if (text.starts_with("SendMessageA") && text.find(", 204, ") != std::string::npos)
        messages.push_back(text);
    }
    return messages;
  }

 private:
  bool only_one_ = false;
};

TEST_F(FormCodePageTest, AnAccessKeyIsACharacterOfTheCodePageInEitherCase) {
  FlatButton& button = AddNew<FlatButton>("cmd");
  button.SetCaption(std::string("&") + kCapitalZhe);
  int clicks = 0;
  button.Click += [&] { ++clicks; };
  const auto takes = [&](std::int16_t character) {
    KeyMessage key{KeyMessage::Kind::kCharacter, character, kAltMask};
    return Hosted(button).TakeKey(key);
  };
  EXPECT_TRUE(takes(0xC6));
  EXPECT_TRUE(takes(0xE6));
  EXPECT_FALSE(takes(0xD6));
  EXPECT_EQ(clicks, 2);
}

TEST_F(FormCodePageTest, APasswordCharacterIsOneOfTheCodePage) {
  FlatTextBox& box = AddNew<FlatTextBox>("txt");
  Tracer().Start();
  Tracer().TakeCalls();
  box.SetPasswordChar(kSmallZhe);
  const std::vector<std::string> messages = PasswordMessages();
  ASSERT_FALSE(messages.empty());
  EXPECT_NE(messages.front().find(", 204, 230, "), std::string::npos) << messages.front();
  EXPECT_EQ(box.PasswordChar(), kSmallZhe);
  EXPECT_EQ(ErrorOf([&] { box.SetPasswordChar(kSmallAUmlaut); }), kInvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { box.SetPasswordChar("ab"); }), kInvalidPropertyValue);
  EXPECT_EQ(box.PasswordChar(), kSmallZhe);
}

}  // namespace
}  // namespace levelwidgets::testing
