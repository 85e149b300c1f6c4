#include <gtest/gtest.h>

#include <levelwidgets/platform/win32/test_desktop.h>

namespace levelwidgets::win32 {
namespace {

class Win32DriverTest : public ::testing::Test, protected TestDesktop {};

constexpr ColorRef kOrange{0x0080FF};

// Fills its window.
class PaintedClient : public WindowClient {
 public:
  PaintedClient(Platform& platform, ColorRef color) : platform_(platform), color_(color) {}

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message != kWmPaint) return platform_.Windows().DefWindowProcA(window, message, wparam, lparam);
    const DcHandle dc = platform_.Windows().BeginPaint(window);
    const ObjectHandle brush = platform_.Drawing().CreateSolidBrush(color_);
    PixelRect rect;
    platform_.Windows().GetClientRect(window, rect);
    platform_.Drawing().FillRect(dc, rect, brush);
    platform_.Drawing().DeleteObject(brush);
    platform_.Windows().EndPaint(window);
    return 0;
  }

 private:
  Platform& platform_;
  ColorRef color_;
};

TEST_F(Win32DriverTest, SeesWhatIsPaintedOnTheScreen) {
  PaintedClient painted(platform, kOrange);
  const WindowHandle form = MakeForm(painted);
  driver.Settle();
  EXPECT_EQ(driver.PixelAt({100, 100}), kOrange);
  EXPECT_EQ(driver.PixelAt({399, 299}), kOrange);
  EXPECT_NE(driver.PixelAt({400, 299}), kOrange);
  EXPECT_EQ(driver.PixelAt({-1, 5}), kInvalidColorRef);
  windows.DestroyWindow(form);
}

TEST_F(Win32DriverTest, SeesWhatIsDrawnOutsideAPaint) {
  PaintedClient painted(platform, kOrange);
  const WindowHandle form = MakeForm(painted);
  driver.Settle();
  const ObjectHandle brush = drawing.CreateSolidBrush(ColorRef{0x123456});
  drawing.FillRect(windows.GetDC(form), {10, 10, 20, 20}, brush);
  drawing.DeleteObject(brush);
  EXPECT_EQ(driver.PixelAt({110, 110}), ColorRef{0x123456});
  EXPECT_EQ(driver.PixelAt({120, 110}), kOrange);
  windows.DestroyWindow(form);
}

TEST_F(Win32DriverTest, ACaptureIsBlackOutsideTheScreen) {
  PaintedClient painted(platform, kOrange);
  const WindowHandle form = MakeForm(painted, {0, 0, 50, 50});
  const Picture picture = driver.Capture({-3, -2, 5, 5});
  EXPECT_EQ(picture.size, (PixelSize{8, 7}));
  EXPECT_EQ(picture.At({2, 2}), ColorRef{0});
  EXPECT_EQ(picture.At({3, 1}), ColorRef{0});
  EXPECT_EQ(picture.At({3, 2}), kOrange);
  EXPECT_EQ(picture.At({7, 6}), kOrange);
  windows.DestroyWindow(form);
}

TEST_F(Win32DriverTest, ListsVisibleTopLevelWindowsFrontToBack) {
  const WindowHandle back = MakeForm(client);
  const WindowHandle front = MakeForm(client, {200, 200, 300, 260});
  const WindowHandle hidden =
      windows.CreateWindowExA({.style = kWsPopup, .rect = {0, 0, 9, 9}, .client = &client});
  MakeChild(front, client, {0, 0, 5, 5});
  windows.SetWindowTextA(front, "Front \xC3\xA4");
  windows.SetActiveWindow(front);
  driver.Settle();
  const auto listed = driver.TopLevelWindows();
  ASSERT_EQ(listed.size(), 2u);
  EXPECT_EQ(listed[0].handle, front);
  EXPECT_EQ(listed[0].title, "Front \xC3\xA4");
  EXPECT_EQ(listed[0].rect, (PixelRect{200, 200, 300, 260}));
  EXPECT_TRUE(listed[0].active);
  EXPECT_EQ(listed[1].handle, back);
  EXPECT_FALSE(listed[1].active);
  EXPECT_EQ(driver.LiveWindows(), 4u);
  windows.DestroyWindow(hidden);
  EXPECT_EQ(driver.LiveWindows(), 3u);
}

TEST_F(Win32DriverTest, CountsEveryKindOfObjectThatIsNotDeleted) {
  const std::size_t before = driver.LiveObjects();
  const DcHandle dc = drawing.CreateCompatibleDC({});
  EXPECT_EQ(driver.LiveObjects(), before + 1);
  const ObjectHandle objects[] = {drawing.CreateSolidBrush(kOrange), drawing.CreatePen(kPsSolid, 1, kOrange),
                                  drawing.CreateFontA({.height = -12, .face_name = "Tahoma"}),
                                  drawing.CreateCompatibleBitmap(dc, {5, 5})};
  EXPECT_EQ(driver.LiveObjects(), before + 5);
  for (const ObjectHandle object : objects) {
    ASSERT_TRUE(object);
    EXPECT_TRUE(drawing.DeleteObject(object));
  }
  EXPECT_TRUE(drawing.DeleteDC(dc));
  EXPECT_EQ(driver.LiveObjects(), before);
}

TEST_F(Win32DriverTest, FindsOneForgottenBrushInAPaintedAndUsedForm) {
  PaintedClient painted(platform, kOrange);
  const std::size_t before = driver.LiveObjects();
  const WindowHandle form = MakeForm(painted);
  driver.Click({150, 150});
  driver.Type("abc");
  driver.PixelAt({150, 150});
  const ObjectHandle forgotten = drawing.CreateSolidBrush(kOrange);
  windows.DestroyWindow(form);
  EXPECT_EQ(driver.LiveObjects(), before + 1);
  EXPECT_TRUE(drawing.DeleteObject(forgotten));
  EXPECT_EQ(driver.LiveObjects(), before);
}

TEST_F(Win32DriverTest, StockObjectsAreNotCounted) {
  const std::size_t before = driver.LiveObjects();
  EXPECT_TRUE(drawing.GetStockObject(kNullBrush));
  EXPECT_TRUE(drawing.GetStockObject(kSystemFont));
  EXPECT_EQ(driver.LiveObjects(), before);
}

TEST_F(Win32DriverTest, APlatformDestroysItsWindowsWithoutMessages) {
  std::size_t told = 0;
  {
    Win32Platform other;
    other.Windows().CreateWindowExA({.style = kWsPopup, .rect = {0, 0, 9, 9}, .client = &client});
    client.on_message = [&](const Message&) { ++told; };
  }
  EXPECT_EQ(told, 0u);
  EXPECT_TRUE(driver.TopLevelWindows().empty());
}

}  // namespace
}  // namespace levelwidgets::win32
