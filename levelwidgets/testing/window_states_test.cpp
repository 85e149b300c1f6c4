// Minimised, maximised and restored windows, the system menu, other programs, the pointer's shape and paints
// of a part: the same in memory and on Windows.
#include <levelwidgets/testing/plain_windows.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WindowStatesTest : public PlainWindowsTest {
 protected:
  WindowStatesTest() {
    client.On(kWmSize, [this](WindowHandle, WParam kind, LParam) {
      sizes.push_back(kind);
      return 0;
    });
  }

  bool Has(std::uint32_t style) {
    return (static_cast<std::uint32_t>(windows.GetWindowLongA(form, kGwlStyle)) & style) != 0;
  }
  PixelRect OuterRect() {
    PixelRect rect;
    windows.GetWindowRect(form, rect);
    return rect;
  }
  PixelRect Client() {
    PixelRect rect;
    windows.GetClientRect(form, rect);
    return rect;
  }

  std::vector<WParam> sizes;
  WindowHandle form = MakeTop({100, 100, 400, 300}, kFormStyle);
};

TEST_F(WindowStatesTest, AMinimisedWindowHasNoClientAreaAndComesBackToItsPlace) {
  const PixelRect before = OuterRect();
  const PixelRect client_before = Client();
  sizes.clear();
  driver->SystemCommand(form, kScMinimize);
  EXPECT_TRUE(Has(kWsMinimize));
  EXPECT_EQ(Client(), PixelRect{});
  driver->SystemCommand(form, kScRestore);
  EXPECT_FALSE(Has(kWsMinimize));
  EXPECT_EQ(OuterRect(), before);
  EXPECT_EQ(Client(), client_before);
  EXPECT_THAT(sizes, ElementsAre(kSizeMinimized, kSizeRestored));
}

TEST_F(WindowStatesTest, AMaximisedWindowCoversItsMonitorUntilItIsRestored) {
  const PixelRect before = OuterRect();
  const PixelRect work_area = driver->GetPlatform().Screen().Monitors().front().work_area;
  sizes.clear();
  driver->SystemCommand(form, kScMaximize);
  EXPECT_TRUE(Has(kWsMaximize));
  const PixelRect covered = Intersect(OuterRect(), work_area);
  EXPECT_EQ(covered, work_area);
  driver->SystemCommand(form, kScRestore);
  EXPECT_FALSE(Has(kWsMaximize));
  EXPECT_EQ(OuterRect(), before);
  EXPECT_THAT(sizes, ElementsAre(kSizeMaximized, kSizeRestored));
}

TEST_F(WindowStatesTest, AMaximisedWindowThatWasMinimisedIsMaximisedAgain) {
  const PixelRect before = OuterRect();
  driver->SystemCommand(form, kScMaximize);
  const PixelRect maximised = OuterRect();
  driver->SystemCommand(form, kScMinimize);
  EXPECT_FALSE(Has(kWsMaximize));
  driver->SystemCommand(form, kScRestore);
  EXPECT_TRUE(Has(kWsMaximize));
  EXPECT_EQ(OuterRect(), maximised);
  driver->SystemCommand(form, kScRestore);
  EXPECT_EQ(OuterRect(), before);
}

TEST_F(WindowStatesTest, AProgramMinimisesAndRestoresItsWindowItself) {
  const PixelRect before = OuterRect();
  windows.ShowWindow(form, kSwMinimize);
  driver->Settle();
  EXPECT_TRUE(Has(kWsMinimize));
  EXPECT_TRUE(windows.IsWindowVisible(form));
  windows.ShowWindow(form, kSwRestore);
  driver->Settle();
  EXPECT_EQ(OuterRect(), before);
  EXPECT_EQ(windows.GetActiveWindow(), form);
}

TEST_F(WindowStatesTest, TheSystemMenuAndAltF4AskAWindowToClose) {
  int asked = 0;
  client.On(kWmClose, [&](WindowHandle, WParam, LParam) {
    ++asked;
    return 0;
  });
  driver->SystemCommand(form, kScClose);
  EXPECT_EQ(asked, 1);
  windows.SetFocus(form);
  driver->Key(kKeyF4, kAltMask);
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(windows.IsWindow(form));
}

TEST_F(WindowStatesTest, AWindowThatClosesByTheSystemMenuIsGone) {
  driver->SystemCommand(form, kScClose);
  EXPECT_FALSE(windows.IsWindow(form));
}

TEST_F(WindowStatesTest, AnotherProgramTakesActivationAndFocusAndGivesThemBack) {
  const WindowHandle other = MakeTop({450, 100, 600, 300}, kFormStyle);
  windows.SetFocus(form);
  driver->Settle();
  std::vector<WParam> changes;
  client.On(kWmActivate, [&](WindowHandle window, WParam how, LParam lparam) {
    if (window == form) changes.push_back(how & 0xFFFF);
    return windows.DefWindowProcA(window, kWmActivate, how, lparam);
  });
  driver->Leave();
  EXPECT_FALSE(windows.GetActiveWindow());
  EXPECT_FALSE(windows.GetFocus());
  EXPECT_THAT(changes, ElementsAre(0));
  driver->Enter();
  EXPECT_EQ(windows.GetActiveWindow(), form);
  EXPECT_EQ(windows.GetFocus(), form);
  EXPECT_THAT(changes, ElementsAre(0, 1));
  driver->Leave();
  windows.DestroyWindow(form);
  driver->Enter();
  EXPECT_EQ(windows.GetActiveWindow(), other);
}

// --- The pointer's shape -----------------------------------------------------------------------

class PointerShapeTest : public PlainWindowsTest {
 protected:
  WindowHandle form = MakeTop({100, 100, 400, 300});
  WindowHandle edit = MakeChild(form, {10, 10, 110, 40}, nullptr, "EDIT");
  PlainClient link_client{windows};
  WindowHandle link = MakeChild(form, {10, 60, 110, 90}, &link_client);
};

TEST_F(PointerShapeTest, ItIsAnIBeamOverAnEditBoxAndAnArrowBesideIt) {
  driver->MovePointer({150, 120});
  EXPECT_EQ(driver->PointerShape(), kIdcIBeam);
  driver->MovePointer({350, 250});
  EXPECT_EQ(driver->PointerShape(), kIdcArrow);
}

TEST_F(PointerShapeTest, AWindowChoosesTheShapeOverItself) {
  link_client.On(kWmSetCursor, [this](WindowHandle, WParam, LParam) {
    windows.SetCursor(kIdcHand);
    return 1;
  });
  driver->MovePointer({150, 170});
  EXPECT_EQ(driver->PointerShape(), kIdcHand);
  driver->MovePointer({150, 120});
  EXPECT_EQ(driver->PointerShape(), kIdcIBeam);
}

TEST_F(PointerShapeTest, AParentChoosesTheShapeOverItsChildrenFirst) {
  client.On(kWmSetCursor, [this](WindowHandle, WParam over, LParam) {
    windows.SetCursor(static_cast<std::uint32_t>(over) == link.value ? kIdcWait : kIdcCross);
    return 1;
  });
  driver->MovePointer({150, 170});
  EXPECT_EQ(driver->PointerShape(), kIdcWait);
  driver->MovePointer({350, 250});
  EXPECT_EQ(driver->PointerShape(), kIdcCross);
}

TEST_F(PointerShapeTest, TheShapeStaysWhileThePointerIsCaptured) {
  link_client.On(kWmSetCursor, [this](WindowHandle, WParam, LParam) {
    windows.SetCursor(kIdcHand);
    return 1;
  });
  driver->MovePointer({150, 170});
  driver->Press(kLeftButton);
  driver->MovePointer({150, 120});
  EXPECT_EQ(driver->PointerShape(), kIdcHand);
  driver->Release(kLeftButton);
  driver->MovePointer({151, 120});
  EXPECT_EQ(driver->PointerShape(), kIdcIBeam);
}

TEST_F(PointerShapeTest, SettingItGivesTheFormerOne) {
  driver->MovePointer({150, 120});
  EXPECT_EQ(windows.SetCursor(kIdcWait), kIdcIBeam);
  EXPECT_EQ(windows.SetCursor(0), kIdcWait);
  EXPECT_EQ(driver->PointerShape(), 0);
  EXPECT_EQ(windows.SetCursor(kIdcArrow), 0);
}

// --- Paints of a part ----------------------------------------------------------------------------

class PaintPartTest : public PlainWindowsTest {
 protected:
  PaintPartTest() {
    client.On(kWmPaint, [this](WindowHandle painted, WParam, LParam) {
      PixelRect part;
      windows.BeginPaint(painted, part);
      parts.push_back(part);
      windows.EndPaint(painted);
      return 0;
    });
    MakeTop({100, 100, 400, 300});
    window = MakeTop({100, 100, 300, 200});
    driver->Settle();
    parts.clear();
  }

  std::vector<PixelRect> parts;
  WindowHandle window;
};

TEST_F(PaintPartTest, AnInvalidPartIsPaintedAlone) {
  EXPECT_TRUE(windows.InvalidateRect(window, {10, 20, 40, 50}));
  driver->Settle();
  EXPECT_THAT(parts, ElementsAre(PixelRect{10, 20, 40, 50}));
}

TEST_F(PaintPartTest, SeveralPartsArePaintedOnceInTheRectangleAroundThem) {
  windows.InvalidateRect(window, {10, 20, 40, 50});
  windows.InvalidateRect(window, {100, 60, 120, 70});
  driver->Settle();
  EXPECT_THAT(parts, ElementsAre(PixelRect{10, 20, 120, 70}));
}

TEST_F(PaintPartTest, WhatIsOutsideTheWindowIsNotPainted) {
  windows.InvalidateRect(window, {190, 90, 300, 300});
  driver->Settle();
  EXPECT_THAT(parts, ElementsAre(PixelRect{190, 90, 200, 100}));
  parts.clear();
  windows.InvalidateRect(window, {500, 500, 600, 600});
  driver->Settle();
  EXPECT_THAT(parts, IsEmpty());
}

TEST_F(PaintPartTest, AWholeWindowIsPaintedAsAWhole) {
  windows.InvalidateRect(window);
  windows.UpdateWindow(window);
  EXPECT_THAT(parts, ElementsAre(PixelRect{0, 0, 200, 100}));
}

TEST_F(PaintPartTest, WithoutAnInvalidPartNothingIsToBePainted) {
  PixelRect part{1, 2, 3, 4};
  windows.BeginPaint(window, part);
  windows.EndPaint(window);
  EXPECT_EQ(part, PixelRect{});
}

TEST_F(PaintPartTest, NobodyCanInvalidateAWindowThatDoesNotExist) {
  EXPECT_FALSE(windows.InvalidateRect(WindowHandle{12345}, {0, 0, 10, 10}));
}

// --- The screen ----------------------------------------------------------------------------------

TEST(ScreenTest, ThePrimaryMonitorIsTheFirstAndItsSizeIsTheScreens) {
  const std::shared_ptr<DesktopDriver> driver = TestDriver();
  ScreenApi& screen = driver->GetPlatform().Screen();
  const std::vector<Monitor> monitors = screen.Monitors();
  ASSERT_FALSE(monitors.empty());
  const PixelSize size = screen.Size();
  EXPECT_EQ(monitors.front().area, (PixelRect{0, 0, size.width, size.height}));
  for (const Monitor& monitor : monitors) {
    EXPECT_EQ(Intersect(monitor.work_area, monitor.area), monitor.work_area);
    EXPECT_FALSE(monitor.work_area.empty());
  }
}

TEST(ScreenTest, ItsSizeInTwipsIsTheSizeInPixelsTimesTwipsPerPixel) {
  const std::shared_ptr<DesktopDriver> driver = TestDriver();
  ScreenApi& screen = driver->GetPlatform().Screen();
  EXPECT_EQ(screen.Width(), static_cast<float>(screen.Size().width) * screen.TwipsPerPixelX());
  EXPECT_EQ(screen.Height(), static_cast<float>(screen.Size().height) * screen.TwipsPerPixelY());
}

}  // namespace
}  // namespace levelwidgets::testing
