// Controls that draw themselves in a context that is not their window's.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/composed_control.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

class PrintedControlTest : public DesktopTest {
 protected:
  static constexpr PixelSize kPixels{80, 25};

  void SetUp() override {
    DesktopTest::SetUp();
    target_ = Drawing().CreateCompatibleDC(Windows().GetDC(TheForm().hWnd()));
    bitmap_ = Drawing().CreateCompatibleBitmap(Windows().GetDC(TheForm().hWnd()), kPixels);
    Drawing().SelectObject(target_, bitmap_);
  }
  void TearDown() override {
    Drawing().DeleteDC(target_);
    Drawing().DeleteObject(bitmap_);
    DesktopTest::TearDown();
  }

  void Print(WindowHandle window) { Windows().SendMessageA(window, kWmPrintClient, target_.value, 4); }
  // The pixels that differ from those on the screen.
  std::vector<std::string> Differences(const Control& control) {
    Driver().Settle();
    const PixelPoint place = ScreenPoint(control, PixelPoint{0, 0});
    const Picture shown =
        Driver().Capture({place.x, place.y, place.x + kPixels.width, place.y + kPixels.height});
    std::vector<std::string> differences;
    for (int y = 0; y < kPixels.height; ++y) {
      for (int x = 0; x < kPixels.width; ++x) {
        if (Drawing().GetPixel(target_, {x, y}) == shown.At({x, y})) continue;
        differences.push_back(std::to_string(x) + ", " + std::to_string(y));
      }
    }
    return differences;
  }

  DcHandle target_;
  ObjectHandle bitmap_;
};

TEST_F(PrintedControlTest, APrintedControlHasThePixelsThatItHasOnTheScreen) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetBackColor(Color(0x0000C0FF));
  button.SetForeColor(Color(0x00FF0000));
  Driver().Settle();
  Print(button.hWnd());
  EXPECT_THAT(Differences(button), ::testing::IsEmpty());
}

TEST_F(PrintedControlTest, AHiddenControlCanBePrinted) {
  auto& button = AddNew<FlatButton>("cmdSave");
  Hosted(button).SetVisible(false);
  Print(button.hWnd());
  Hosted(button).SetVisible(true);
  Driver().Settle();
  EXPECT_THAT(Differences(button), ::testing::IsEmpty());
}

TEST_F(PrintedControlTest, AControlDrawsOnItsWindowAgainOnceItHasBeenPrinted) {
  auto& button = AddNew<FlatButton>("cmdSave");
  Print(button.hWnd());
  button.SetForeColor(Color(0x000000FF));
  button.SetBackColor(Color(0x0000FF00));
  Driver().Settle();
  EXPECT_EQ(PixelAt(button, PixelPoint{3, 3}), ColorRef{0x0000FF00});
  EXPECT_NE(Drawing().GetPixel(target_, {3, 3}), ColorRef{0x0000FF00});
}

TEST_F(PrintedControlTest, AColourThatChangesWhileAPanelIsPrintedIsThatOfItsWindowAfterwards) {
  auto& composed = AddNew<Composed>("composed", {}, {Twips(4500), Twips(1500)});
  composed.picPanel.Paint += [&] {
    if (composed.picPanel.ForeColor() != Color(0x000000FF)) composed.picPanel.SetForeColor(Color(0x000000FF));
    Surface& surface = composed.picPanel.GetSurface();
    surface.Drawing().Rectangle(surface.hDC(), {2, 2, 10, 10});
  };
  Print(composed.picPanel.hWnd());
  EXPECT_EQ(Drawing().GetPixel(target_, {2, 2}), ColorRef{0x000000FF});
  Driver().Settle();
  PixelPoint corner{2, 2};
  Windows().ClientToScreen(composed.picPanel.hWnd(), corner);
  EXPECT_EQ(Driver().PixelAt(corner), ColorRef{0x000000FF});
}

TEST_F(PrintedControlTest, AControlThatIsRemovedWhileItIsPrintedLeavesNothingBehind) {
  auto& composed = AddNew<Composed>("composed", {}, {Twips(4500), Twips(1500)});
  const WindowHandle panel = composed.picPanel.hWnd();
  composed.picPanel.Paint += [&] { TheForm().Remove("composed"); };
  Print(panel);
  EXPECT_FALSE(Windows().IsWindow(panel));
}

}  // namespace
}  // namespace levelwidgets::testing
