#include <levelwidgets/host/form/message.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {

namespace {

class MessageTest : public testing::DesktopTest {};

TEST_F(MessageTest, ItsTextsHaveTheSystemsColors) {
  const auto message =
      ShowMessage(Tracer(), {.text = "Read this", .style = MessageStyle::kWarning}, {}, nullptr);
  const auto& text = dynamic_cast<FlatLabel&>(*message->Find("lbl1")->GetControl());
  const auto& sign = dynamic_cast<FlatLabel&>(*message->Find("lblSign")->GetControl());
  EXPECT_EQ(text.ForeColor(), Color(0x80000012u));
  EXPECT_EQ(text.ForeColorMouseOver(), Color(0x80000012u));
  EXPECT_EQ(text.BackColor(), message->BackColor());
  const auto& button = dynamic_cast<FlatButton&>(*message->Find("cmd1")->GetControl());
  EXPECT_EQ(button.BackColor(), Color(0x8000000Fu));
  EXPECT_EQ(button.ForeColor(), Color(0x80000012u));
  EXPECT_EQ(sign.ForeColor(), Color(0x000077C0u));
}

}  // namespace

}  // namespace levelwidgets
