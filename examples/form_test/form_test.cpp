// Tests of a form, on the desktop in memory or on Windows. A test that leaves a window, a timer or a drawing
// object behind fails.
#include <gtest/gtest.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

using namespace levelwidgets;

class SaveTest : public levelwidgets::testing::DesktopTest {};

TEST_F(SaveTest, EachClickSavesOnce) {
  auto& button = AddNew<FlatButton>("cmdSave");
  int saved = 0;
  button.Click += [&] { ++saved; };
  Driver().Click(Hosted(button).ScreenCentre());
  EXPECT_EQ(saved, 1);
}

TEST_F(SaveTest, TheButtonShowsThePointerOverIt) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetBackColorMouseOver(Color(0x00D9E5E9));
  Driver().MovePointer(Hosted(button).ScreenCentre());
  EXPECT_EQ(PixelAt(button, {3, 3}), ColorRef{0x00D9E5E9});
}
