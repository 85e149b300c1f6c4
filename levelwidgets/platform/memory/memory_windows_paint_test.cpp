// Invalid areas, paints and what is drawn where.
#include <chrono>
#include <stdexcept>

#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr ColorRef kRed{0x0000FF};
constexpr ColorRef kBlue{0xFF0000};
constexpr ColorRef kGreen{0x00FF00};

class WindowPaintTest : public DesktopTest {
 protected:
  // Fills the whole client area at each paint.
  void PaintWith(Recorder& recorder, ColorRef color) {
    recorder.On(kWmPaint, [this, color](WindowHandle window, WParam, LParam) -> LResult {
      Fill(windows.BeginPaint(window), {0, 0, 2000, 2000}, color);
      windows.EndPaint(window);
      return 0;
    });
  }
  void Fill(DcHandle dc, PixelRect rect, ColorRef color) {
    const ObjectHandle brush = desktop.Drawing().CreateSolidBrush(color);
    desktop.Drawing().FillRect(dc, rect, brush);
    desktop.Drawing().DeleteObject(brush);
  }
  Region Rect(int left, int top, int right, int bottom) {
    return Region(PixelRect{left, top, right, bottom});
  }
  void Hide(WindowHandle window) { windows.ShowWindow(window, kSwHide); }

  WindowHandle form = MakeTop("form", {100, 100, 300, 200});
};

// --- Invalid areas ---------------------------------------------------------------------------

TEST_F(WindowPaintTest, InvalidateTakesTheWholeClientArea) {
  Begin();
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
  windows.InvalidateRect(form);
  EXPECT_EQ(windows.PendingPaint(form), Rect(0, 0, 200, 100));
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
}

TEST_F(WindowPaintTest, HidingUncoversTheParentAndTheSiblingsBehind) {
  const WindowHandle front = MakeChild("front", form, {10, 10, 60, 60});
  const WindowHandle behind = MakeChild("behind", form, {40, 40, 90, 90});
  const WindowHandle beside = MakeChild("beside", form, {100, 10, 150, 60});
  Begin();
  Hide(front);
  Region uncovered = Rect(10, 10, 60, 60);
  uncovered.Subtract(PixelRect{40, 40, 60, 60});
  EXPECT_EQ(windows.PendingPaint(form), uncovered);
  EXPECT_EQ(windows.PendingPaint(behind), Rect(0, 0, 20, 20));
  EXPECT_TRUE(windows.PendingPaint(beside).Empty());
  Take();
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint", "behind Paint"));
}

TEST_F(WindowPaintTest, SiblingsInFrontAreNotTouchedByWhatIsBehindThem) {
  const WindowHandle front = MakeChild("front", form, {10, 10, 60, 60});
  const WindowHandle behind = MakeChild("behind", form, {10, 10, 60, 60});
  Begin();
  Hide(behind);
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
  EXPECT_TRUE(windows.PendingPaint(front).Empty());
}

TEST_F(WindowPaintTest, MovingInvalidatesWhatTheWindowLeavesAndNothingOfItself) {
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  const WindowHandle inner = MakeChild("inner", child, {5, 5, 10, 10});
  Begin();
  windows.SetWindowPos(child, {}, {20, 0, 70, 50}, kSwpNoZOrder);
  EXPECT_EQ(windows.PendingPaint(form), Rect(0, 0, 20, 50));
  EXPECT_TRUE(windows.PendingPaint(inner).Empty());
  EXPECT_TRUE(windows.PendingPaint(child).Empty());
}

TEST_F(WindowPaintTest, WhatWaitsForItsPaintGoesWithTheWindow) {
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  Begin();
  windows.InvalidateRect(child, {5, 6, 10, 12});
  windows.SetWindowPos(child, {}, {20, 0, 70, 50}, kSwpNoZOrder);
  EXPECT_EQ(windows.PendingPaint(child), Rect(5, 6, 10, 12));
}

TEST_F(WindowPaintTest, AMovedWindowIsPaintedWhereItWasCovered) {
  const WindowHandle cover = MakeChild("cover", form, {40, 0, 60, 50});
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  Begin();
  windows.SetWindowPos(child, {}, {60, 0, 110, 50}, kSwpNoZOrder);
  EXPECT_EQ(windows.PendingPaint(child), Rect(40, 0, 50, 50));
  EXPECT_TRUE(windows.PendingPaint(cover).Empty());
}

TEST_F(WindowPaintTest, AWindowThatMovesPartlyOutOfItsParentLeavesNoPixelsThere) {
  Recorder red(desktop, log);
  PaintWith(client, kBlue);
  PaintWith(red, kRed);
  const WindowHandle panel = MakeChild("panel", form, {0, 0, 100, 50});
  const WindowHandle inner = Make("inner", &red, panel, {10, 10, 40, 40}, kChild);
  Begin();
  windows.SetWindowPos(inner, {}, {85, 10, 115, 40}, kSwpNoZOrder);
  desktop.Settle();
  EXPECT_EQ(desktop.PixelAt({190, 120}), kRed);
  EXPECT_EQ(desktop.PixelAt({205, 120}), kBlue);
}

TEST_F(WindowPaintTest, MovingATopLevelWindowPaintsNothing) {
  Begin();
  windows.SetWindowPos(form, {}, {5, 5, 0, 0}, kSwpNoZOrder | kSwpNoSize);
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
}

TEST_F(WindowPaintTest, ResizingInvalidatesAsAWhole) {
  Begin();
  windows.SetWindowPos(form, {}, {0, 0, 201, 100}, kSwpNoZOrder | kSwpNoMove);
  EXPECT_EQ(windows.PendingPaint(form), Rect(0, 0, 201, 100));
}

TEST_F(WindowPaintTest, NoRedrawInvalidatesNothing) {
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  Begin();
  windows.SetWindowPos(child, {}, {20, 0, 90, 50}, kSwpNoZOrder | kSwpNoRedraw);
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
  EXPECT_TRUE(windows.PendingPaint(child).Empty());
}

TEST_F(WindowPaintTest, RaisingInvalidatesOnlyWhatWasCovered) {
  const WindowHandle front = MakeChild("front", form, {10, 10, 60, 60});
  const WindowHandle behind = MakeChild("behind", form, {40, 40, 90, 90});
  Begin();
  windows.SetWindowPos(behind, {kHwndTop}, {}, kSwpNoMove | kSwpNoSize);
  EXPECT_EQ(windows.PendingPaint(behind), Rect(0, 0, 20, 20));
  EXPECT_TRUE(windows.PendingPaint(front).Empty());
  desktop.Settle();
  windows.SetWindowPos(behind, {kHwndBottom}, {}, kSwpNoMove | kSwpNoSize);
  EXPECT_EQ(windows.PendingPaint(front), Rect(30, 30, 50, 50));
  EXPECT_TRUE(windows.PendingPaint(behind).Empty());
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
}

TEST_F(WindowPaintTest, DestroyingAWindowInvalidatesWhatItCovered) {
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  Begin();
  windows.DestroyWindow(child);
  EXPECT_EQ(windows.PendingPaint(form), Rect(0, 0, 50, 50));
}

TEST_F(WindowPaintTest, WhatIsHiddenOrCoveredNeedsNoPaint) {
  const WindowHandle front = MakeChild("front", form, {0, 0, 60, 60});
  const WindowHandle covered = MakeChild("covered", form, {10, 10, 20, 20});
  const WindowHandle hidden = MakeChild("hidden", form, {100, 0, 120, 20}, kWsChild);
  Begin();
  windows.InvalidateRect(covered);
  windows.InvalidateRect(hidden);
  desktop.Settle();
  EXPECT_THAT(Take(), IsEmpty());
  Hide(front);
  Take();
  windows.ShowWindow(hidden, kSwShow);
  Take();
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint", "covered Paint", "hidden Paint"));
}

TEST_F(WindowPaintTest, OnlyAPartThatCanBeSeenIsPainted) {
  const WindowHandle front = MakeChild("front", form, {60, 10, 90, 60});
  const WindowHandle behind = MakeChild("behind", form, {40, 10, 90, 60});
  Begin();
  auto painted = [&](const PixelRect& part) {
    windows.InvalidateRect(behind, part);
    desktop.Settle();
    return Take();
  };
  const PixelRect covered{20, 0, 50, 50};
  const PixelRect half_covered{19, 49, 21, 50};
  EXPECT_THAT(painted(covered), IsEmpty());
  EXPECT_THAT(painted(half_covered), ElementsAre("behind Paint"));
  // The same before anything is known of what can be seen.
  auto change = [&] {
    windows.SetWindowPos(front, {}, {60, 10, 91, 60}, kSwpNoZOrder | kSwpNoActivate | kSwpNoRedraw);
    windows.SetWindowPos(front, {}, {60, 10, 90, 60}, kSwpNoZOrder | kSwpNoActivate | kSwpNoRedraw);
    desktop.Settle();
    Take();
  };
  change();
  EXPECT_THAT(painted(covered), IsEmpty());
  change();
  EXPECT_THAT(painted(half_covered), ElementsAre("behind Paint"));
}

TEST_F(WindowPaintTest, APartOfAChildIsSeenWhereTheChildIs) {
  MakeChild("front", form, {100, 40, 140, 90});
  const WindowHandle child = MakeChild("child", form, {100, 40, 180, 90});
  Begin();
  windows.InvalidateRect(child);
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("child Paint"));
  windows.InvalidateRect(child, {40, 0, 50, 10});
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("child Paint"));
  windows.InvalidateRect(child, {0, 0, 40, 50});
  desktop.Settle();
  EXPECT_THAT(Take(), IsEmpty()) << "covered";
}

TEST_F(WindowPaintTest, WithoutClipChildrenAChildIsPaintedAfterItsParent) {
  const WindowHandle open = MakeChild("open", form, {0, 0, 80, 80}, kChild & ~kWsClipChildren);
  MakeChild("inner", open, {5, 5, 10, 10});
  Begin();
  windows.InvalidateRect(open);
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("open Paint", "inner Paint"));
  windows.InvalidateRect(form);
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
}

// --- Paints ----------------------------------------------------------------------------------

TEST_F(WindowPaintTest, PaintComesAfterPostedMessagesAndTicks) {
  Begin();
  windows.InvalidateRect(form);
  windows.PostMessageA(form, kWmChar, 'a', 0);
  desktop.Clock().Post([&] { windows.InvalidateRect(form); });
  desktop.Clock().DoEvents();
  EXPECT_THAT(Take(), ElementsAre("form Char 97", "form Paint"));
}

TEST_F(WindowPaintTest, UpdateWindowPaintsAtOnceAndOnlyWhatIsInvalid) {
  MakeChild("child", form, {0, 0, 50, 50});
  Begin();
  EXPECT_TRUE(windows.UpdateWindow(form));
  EXPECT_THAT(Take(), IsEmpty());
  windows.InvalidateRect(form);
  windows.UpdateWindow(form);
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
  desktop.Settle();
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(WindowPaintTest, APaintComesAgainUntilItIsBegun) {
  int left = 3;
  Begin();
  client.On(kWmPaint, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (--left == 0) {
      windows.BeginPaint(window);
      windows.EndPaint(window);
    }
    return 0;
  });
  windows.InvalidateRect(form);
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint", "form Paint", "form Paint"));
  desktop.Settle();
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(WindowPaintTest, AClassThatNeverBeginsItsPaintsIsNamed) {
  Begin();
  client.On(kWmPaint, [](WindowHandle, WParam, LParam) { return 0; });
  windows.InvalidateRect(form);
  try {
    desktop.Settle();
    FAIL() << "nothing was raised";
  } catch (const std::logic_error& error) {
    EXPECT_STREQ(error.what(),
                 "A window of the class levelwidgets::memory::Recorder answers its paint messages without "
                 "BeginPaint, so that they come again for ever");
  }
  EXPECT_THAT(Take(), SizeIs(100));
  desktop.Settle();  // once is enough
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(WindowPaintTest, UpdateWindowAsksOnceWhateverTheAnswerIs) {
  Begin();
  client.On(kWmPaint, [](WindowHandle, WParam, LParam) { return 0; });
  windows.InvalidateRect(form);
  windows.UpdateWindow(form);
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
  client.Off(kWmPaint);
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
}

TEST_F(WindowPaintTest, PaintsComeFromTheOutsideInAndFromTheFrontForFewAndForManyWindows) {
  for (const int count : {3, 20}) {
    const WindowHandle top = MakeTop("top", {0, 0, 300, 100});
    std::vector<WindowHandle> all{top};
    Log expected{"top Paint"};
    for (int i = 0; i < count; ++i) {
      const std::string name = "c" + std::to_string(i);
      all.push_back(MakeChild(name, top, {i * 10, 0, i * 10 + 10, 50}));
      expected.push_back(name + " Paint");
      all.push_back(MakeChild(name + " inside", all.back(), {2, 2, 8, 20}));
      expected.push_back(name + " inside Paint");
    }
    Begin();
    for (auto window = all.rbegin(); window != all.rend(); ++window)
      windows.InvalidateRect(*window, {0, 0, 1, 1});
    windows.InvalidateRect(all.front(), {0, 60, 1, 61});
    desktop.Settle();
    EXPECT_EQ(Take(), expected);
    windows.DestroyWindow(top);
  }
}

TEST_F(WindowPaintTest, APaintThatInvalidatesDoesNotHang) {
  client.On(kWmPaint, [&](WindowHandle window, WParam, LParam) -> LResult {
    windows.BeginPaint(window);
    windows.InvalidateRect(window);
    windows.EndPaint(window);
    return 0;
  });
  Begin();
  windows.InvalidateRect(form);
  desktop.Settle();
  EXPECT_GT(Take().size(), 1u);
  client.Off(kWmPaint);
}

// There is an end to it when windows wait for a paint again and again, and each round counts once.
TEST_F(WindowPaintTest, AllOfVeryManyWindowsArePaintedAgainAsOftenAsAFewWouldBe) {
  constexpr int kCount = 1200;
  constexpr int kRounds = 4;
  std::vector<WindowHandle> all;
  for (int i = 0; i < kCount; ++i) {
    const PixelPoint at{i % 200, i / 200 * 10};
    all.push_back(MakeChild("child", form, {at.x, at.y, at.x + 1, at.y + 10}));
  }
  Begin();
  const auto invalidate_all = [&] {
    for (const WindowHandle window : all) windows.InvalidateRect(window);
  };
  int paints = 0;
  client.On(kWmPaint, [&](WindowHandle window, WParam, LParam) -> LResult {
    windows.BeginPaint(window);
    windows.EndPaint(window);
    if (++paints % kCount == 0 && paints < kRounds * kCount) invalidate_all();
    return 0;
  });
  invalidate_all();
  desktop.Settle();
  EXPECT_EQ(paints, kRounds * kCount);
  client.Off(kWmPaint);
}

TEST_F(WindowPaintTest, AnExceptionFromAPaintLeavesTheOthersWaiting) {
  MakeChild("child", form, {0, 0, 50, 50});
  Begin();
  windows.InvalidateRect(form);
  windows.InvalidateRect(MakeChild("late", form, {60, 0, 70, 10}));
  client.On(kWmPaint, [&](WindowHandle window, WParam, LParam) -> LResult {
    windows.BeginPaint(window);
    throw std::runtime_error("paint");
  });
  Take();
  EXPECT_THROW(desktop.Settle(), std::runtime_error);
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
  client.Off(kWmPaint);
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("late Paint"));
  Fill(windows.GetDC(form), {100, 0, 110, 10}, kRed);  // no longer limited to the paint
  EXPECT_EQ(desktop.PixelAt({200, 100}), kRed);
}

TEST_F(WindowPaintTest, AWindowHasOneContext) {
  const DcHandle dc = windows.GetDC(form);
  EXPECT_TRUE(dc);
  EXPECT_EQ(windows.BeginPaint(form), dc);
  EXPECT_TRUE(windows.EndPaint(form));
  EXPECT_FALSE(windows.EndPaint(form));
  EXPECT_TRUE(windows.ReleaseDC(form, dc));
  EXPECT_EQ(windows.GetDC(form), dc);
  EXPECT_FALSE(windows.ReleaseDC(form, {}));
}

TEST_F(WindowPaintTest, TheContextEndsWithItsWindow) {
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  const DcHandle dc = windows.GetDC(child);
  windows.DestroyWindow(child);
  EXPECT_EQ(desktop.Drawing().GetPixel(dc, {1, 1}), kInvalidColorRef);
  EXPECT_FALSE(desktop.Drawing().MoveTo(dc, {1, 1}));
}

// --- Pixels ----------------------------------------------------------------------------------

TEST_F(WindowPaintTest, WindowsShowInTheirOrderOnTheDesktop) {
  Recorder blue(desktop, log), red(desktop, log);
  PaintWith(blue, kBlue);
  PaintWith(red, kRed);
  PaintWith(client, kGreen);
  Make("blue", &blue, form, {10, 10, 60, 60}, kChild);
  const WindowHandle top = Make("red", &red, {}, {120, 120, 500, 500}, kPopup);
  const ColorRef background = desktop.Drawing().GetSysColor(1);
  EXPECT_EQ(desktop.PixelAt({99, 100}), background);
  EXPECT_EQ(desktop.PixelAt({100, 100}), kGreen);
  EXPECT_EQ(desktop.PixelAt({110, 110}), kBlue);
  EXPECT_EQ(desktop.PixelAt({119, 119}), kBlue);
  EXPECT_EQ(desktop.PixelAt({120, 120}), kRed);
  windows.SetActiveWindow(form);
  EXPECT_EQ(desktop.PixelAt({120, 120}), kBlue);
  EXPECT_EQ(desktop.PixelAt({160, 160}), kGreen);
  EXPECT_EQ(desktop.PixelAt({300, 200}), kRed);
  windows.DestroyWindow(top);
  EXPECT_EQ(desktop.PixelAt({300, 200}), background);
}

TEST_F(WindowPaintTest, AChildDrawsOnlyWhereItCanBeSeen) {
  PaintWith(client, kGreen);
  const WindowHandle front = MakeChild("front", form, {40, 0, 60, 20});
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  desktop.Settle();
  Fill(windows.GetDC(child), {-100, -100, 500, 500}, kRed);
  EXPECT_EQ(desktop.PixelAt({139, 110}), kRed);
  EXPECT_EQ(desktop.PixelAt({140, 110}), kGreen);
  EXPECT_EQ(desktop.PixelAt({140, 120}), kRed);
  EXPECT_EQ(desktop.PixelAt({149, 149}), kRed);
  EXPECT_EQ(desktop.PixelAt({150, 149}), kGreen);
  // The visible part follows the tree without another GetDC.
  windows.SetWindowPos(front, {}, {150, 0, 170, 20}, kSwpNoZOrder);
  desktop.Settle();
  Fill(windows.GetDC(child), {0, 0, 50, 50}, kBlue);
  EXPECT_EQ(desktop.PixelAt({145, 110}), kBlue);
}

TEST_F(WindowPaintTest, APaintDrawsOnlyTheInvalidPart) {
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  PaintWith(client, kGreen);
  desktop.Settle();
  PaintWith(client, kRed);
  Hide(child);
  EXPECT_EQ(desktop.PixelAt({149, 149}), kRed);
  EXPECT_EQ(desktop.PixelAt({150, 149}), kGreen);
  // Outside a paint nothing is limited.
  Fill(windows.GetDC(form), {0, 0, 500, 500}, kBlue);
  EXPECT_EQ(desktop.PixelAt({150, 149}), kBlue);
}

TEST_F(WindowPaintTest, AHiddenWindowDrawsNothing) {
  Hide(form);
  Fill(windows.GetDC(form), {0, 0, 500, 500}, kBlue);
  windows.ShowWindow(form, kSwShow);
  EXPECT_EQ(desktop.PixelAt({110, 110}), ColorRef{});
}

TEST_F(WindowPaintTest, CaptureIsBlackOutsideTheScreen) {
  const Picture picture = desktop.Capture({-2, -1, 3, 2});
  EXPECT_EQ(picture.size, (PixelSize{5, 3}));
  EXPECT_EQ(picture.At({1, 1}), ColorRef{});
  EXPECT_EQ(picture.At({2, 0}), ColorRef{});
  EXPECT_EQ(picture.At({2, 1}), desktop.Drawing().GetSysColor(1));
  EXPECT_EQ(desktop.PixelAt({-1, 0}), kInvalidColorRef);
  EXPECT_EQ(desktop.PixelAt({1024, 0}), kInvalidColorRef);
}

TEST_F(WindowPaintTest, AWindowPartlyOffTheScreenIsClipped) {
  PaintWith(client, kGreen);
  windows.SetWindowPos(form, {}, {-50, 700, 0, 0}, kSwpNoSize | kSwpNoZOrder);
  EXPECT_EQ(desktop.PixelAt({0, 767}), kGreen);
  EXPECT_EQ(desktop.PixelAt({149, 700}), kGreen);
  EXPECT_FALSE(desktop.PixelAt({150, 700}) == kGreen);
}

TEST_F(WindowPaintTest, ABorderIsOnePixelOutsideTheClientArea) {
  Recorder red(desktop, log);
  PaintWith(red, kRed);
  Make("popup", &red, {}, {400, 100, 440, 140}, kPopup | kWsBorder);
  const ColorRef border = desktop.Drawing().GetSysColor(kColorWindowFrame);
  EXPECT_EQ(desktop.PixelAt({400, 100}), border);
  EXPECT_EQ(desktop.PixelAt({439, 139}), border);
  EXPECT_EQ(desktop.PixelAt({401, 101}), kRed);
  EXPECT_EQ(desktop.PixelAt({438, 138}), kRed);
}

TEST_F(WindowPaintTest, TheCaptionShowsWhichWindowIsActive) {
  const WindowHandle framed = MakeTop("", {400, 100, 600, 300}, kPopup | kWsCaption | kWsSysMenu);
  const ColorRef active = desktop.Drawing().GetSysColor(kColorHighlight);
  const ColorRef inactive = desktop.Drawing().GetSysColor(kColorButtonFace);
  EXPECT_EQ(desktop.PixelAt({403, 103}), active);
  windows.SetActiveWindow(form);
  EXPECT_EQ(desktop.PixelAt({403, 103}), inactive);
  const Picture untitled = desktop.Capture({400, 100, 600, 123});
  windows.SetWindowTextA(framed, "Title");
  EXPECT_FALSE(desktop.Capture({400, 100, 600, 123}) == untitled);
  EXPECT_EQ(desktop.LiveObjects(), 0u);
}

// --- Cost ------------------------------------------------------------------------------------

TEST_F(WindowPaintTest, MovingOneOfAThousandSiblingsPaintsOnlyWhatItTouches) {
  const WindowHandle large = MakeTop("large", {0, 0, 1000, 700});
  std::vector<WindowHandle> children;
  for (int i = 0; i < 1000; ++i) {
    const int x = i % 40 * 24, y = i / 40 * 26;
    children.push_back(MakeChild("c", large, {x, y, x + 20, y + 22}));
  }
  Begin();
  windows.SetWindowPos(children[999], {}, {958, 620, 978, 642}, kSwpNoZOrder);
  Take();
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("large Paint"));
  const Window* untouched = windows.Tree().Find(children[5]);
  const std::uint64_t seen = untouched->seen_at;
  windows.SetWindowPos(children[999], {}, {959, 620, 979, 642}, kSwpNoZOrder);
  desktop.Settle();
  EXPECT_EQ(untouched->seen_at, seen);  // not asked again what can be seen of it
}

}  // namespace
}  // namespace levelwidgets::memory
