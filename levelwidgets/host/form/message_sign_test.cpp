#include <levelwidgets/host/form/message_sign.h>

#include <levelwidgets/frame/paint.h>
#include <levelwidgets/host/form/message_fixture.h>
#include <levelwidgets/testing/contrast.h>

namespace levelwidgets {

namespace {

constexpr MessageStyle kStyles[] = {MessageStyle::kCritical, MessageStyle::kQuestion, MessageStyle::kWarning,
                                    MessageStyle::kInformation};

TEST(MessageSignTest, EverySignCanBeToldFromLightAndDarkForms) {
  for (const MessageStyle style : kStyles) {
    for (const std::uint32_t back : {0xFFFFFFu, 0xF0F0F0u, 0xC8D0D4u, 0x2D2D2Du, 0x000000u}) {
      const auto sign = SignOf(style, ColorRef{back});
      ASSERT_TRUE(sign);
      const ColorRef color{static_cast<std::uint32_t>(sign->color.value)};
      EXPECT_GE(Contrast(color, ColorRef{back}), 3.0) << sign->text << " on " << back;
    }
  }
}

TEST(MessageSignTest, APlainMessageHasNone) { EXPECT_FALSE(SignOf(MessageStyle::kPlain, ColorRef{0})); }

using MessageSignsTest = testing::MessageTest;

TEST_F(MessageSignsTest, EachStyleShowsItsSign) {
  std::string signs;
  for (const MessageStyle style : kStyles) {
    Ask({.text = "Read this", .style = style});
    const auto& label = dynamic_cast<FlatLabel&>(*message_->Find("lblSign")->GetControl());
    signs += label.Caption();
    EXPECT_EQ(label.ForeColor(), SignOf(style, Concrete(message_->BackColor()))->color);
  }
  EXPECT_EQ(signs, "x?!i");
  Ask({.text = "Read this"});
  EXPECT_EQ(message_->Find("lblSign"), nullptr);
}

}  // namespace

}  // namespace levelwidgets
