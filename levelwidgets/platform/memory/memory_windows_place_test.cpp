// Place, order, parents and visibility.
#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WindowPlaceTest : public DesktopTest {
 protected:
  PixelRect RectOf(WindowHandle window) {
    PixelRect rect;
    EXPECT_TRUE(windows.GetWindowRect(window, rect));
    return rect;
  }
  PixelSize ClientOf(WindowHandle window) {
    PixelRect rect;
    EXPECT_TRUE(windows.GetClientRect(window, rect));
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.top, 0);
    return {rect.width(), rect.height()};
  }
  std::vector<std::string> Order() {
    std::vector<std::string> titles;
    for (const TopLevelWindow& window : desktop.TopLevelWindows()) titles.push_back(window.title);
    return titles;
  }
};

TEST_F(WindowPlaceTest, AChildsRectangleIsOfTheParentsClientArea) {
  const WindowHandle form = MakeTop("form", {100, 50, 300, 250}, kPopup | kWsBorder);
  const WindowHandle child = MakeChild("child", form, {10, 20, 40, 60});
  EXPECT_EQ(RectOf(child), (PixelRect{111, 71, 141, 111}));
  EXPECT_EQ(ClientOf(form), (PixelSize{198, 198}));
  PixelPoint point{3, 4};
  windows.ClientToScreen(child, point);
  EXPECT_EQ(point, (PixelPoint{114, 75}));
  windows.ScreenToClient(form, point);
  EXPECT_EQ(point, (PixelPoint{13, 24}));
}

TEST_F(WindowPlaceTest, AWindowSmallerThanItsFrameHasNoClientArea) {
  const WindowHandle form = MakeTop("form", {0, 0, 1, 1}, kPopup | kWsBorder);
  EXPECT_EQ(ClientOf(form), (PixelSize{0, 0}));
  const WindowHandle inverted = MakeTop("inverted", {50, 50, 20, 20});
  EXPECT_EQ(RectOf(inverted), (PixelRect{50, 50, 50, 50}));
}

TEST_F(WindowPlaceTest, AdjustWindowRectGivesTheOuterRectangle) {
  for (const std::uint32_t style : {kWsPopup | kWsCaption | kWsSysMenu, kWsPopup | kWsBorder, kWsPopup, 0u}) {
    const PixelRect outer = windows.AdjustWindowRectEx({50, 60, 180, 130}, style, 0);
    const WindowHandle form = MakeTop("form", outer, style);
    EXPECT_EQ(ClientOf(form), (PixelSize{130, 70})) << style;
    PixelPoint corner;
    windows.ClientToScreen(form, corner);
    EXPECT_EQ(corner, (PixelPoint{50, 60})) << style;
  }
  EXPECT_EQ(windows.AdjustWindowRectEx({0, 0, 10, 10}, kWsPopup, 0), (PixelRect{0, 0, 10, 10}));
  EXPECT_EQ(windows.AdjustWindowRectEx({0, 0, 10, 10}, kWsPopup | kWsBorder, 0), (PixelRect{-1, -1, 11, 11}));
}

TEST_F(WindowPlaceTest, MoveAndSizeMessagesComeOnlyWithAChange) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  const WindowHandle child = MakeChild("child", form, {0, 0, 20, 20});
  Begin();
  windows.SetWindowPos(child, {}, {5, 6, 45, 36}, kSwpNoZOrder);
  EXPECT_THAT(Take(), ElementsAre("child Move 5,6", "child Size 40,30"));
  windows.SetWindowPos(child, {}, {5, 6, 45, 36}, kSwpNoZOrder);
  windows.SetWindowPos(child, {}, {9, 9, 99, 99}, kSwpNoZOrder | kSwpNoMove | kSwpNoSize);
  EXPECT_THAT(Take(), IsEmpty());
  windows.SetWindowPos(child, {}, {1, 2, 99, 99}, kSwpNoZOrder | kSwpNoSize);
  EXPECT_THAT(Take(), ElementsAre("child Move 1,2"));
  EXPECT_EQ(RectOf(child), (PixelRect{1, 2, 41, 32}));
  windows.SetWindowPos(child, {}, {7, 7, 17, 17}, kSwpNoZOrder | kSwpNoMove);
  EXPECT_EQ(RectOf(child), (PixelRect{1, 2, 11, 12}));
}

TEST_F(WindowPlaceTest, SetWindowPosShowsAndHidesWithoutShowWindow) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  Begin();
  windows.SetWindowPos(form, {}, {}, kSwpNoMove | kSwpNoSize | kSwpShowWindow);
  EXPECT_TRUE(windows.IsWindowVisible(form));
  EXPECT_THAT(Take(), ElementsAre("form Activate 1 none", "form SetFocus none"));
  windows.SetWindowPos(form, {}, {}, kSwpNoMove | kSwpNoSize | kSwpHideWindow);
  EXPECT_THAT(Take(), ElementsAre("form Activate 0 none", "form KillFocus none"));
  EXPECT_FALSE(windows.IsWindowVisible(form));
  windows.SetWindowPos(form, {}, {}, kSwpNoMove | kSwpNoSize | kSwpShowWindow | kSwpNoActivate);
  EXPECT_FALSE(windows.GetActiveWindow());
}

TEST_F(WindowPlaceTest, TheOrderFollowsSetWindowPos) {
  const std::uint32_t only_order = kSwpNoMove | kSwpNoSize | kSwpNoActivate;
  const WindowHandle a = MakeTop("a", {0, 0, 10, 10});
  const WindowHandle b = MakeTop("b", {0, 0, 10, 10});
  const WindowHandle c = MakeTop("c", {0, 0, 10, 10});
  EXPECT_THAT(Order(), ElementsAre("c", "b", "a"));
  windows.SetWindowPos(a, {kHwndTop}, {}, only_order);
  EXPECT_THAT(Order(), ElementsAre("a", "c", "b"));
  windows.SetWindowPos(a, {kHwndBottom}, {}, only_order);
  EXPECT_THAT(Order(), ElementsAre("c", "b", "a"));
  windows.SetWindowPos(a, c, {}, only_order);
  EXPECT_THAT(Order(), ElementsAre("c", "a", "b"));
  windows.SetWindowPos(b, {kHwndTopMost}, {}, only_order);
  windows.SetWindowPos(a, {kHwndTop}, {}, only_order);
  EXPECT_THAT(Order(), ElementsAre("b", "a", "c"));
  windows.SetWindowPos(b, {kHwndBottom}, {}, only_order);
  EXPECT_THAT(Order(), ElementsAre("a", "c", "b"));
  EXPECT_EQ(windows.GetWindowLongA(b, kGwlExStyle), 0);
  EXPECT_FALSE(windows.SetWindowPos(a, {4711}, {}, only_order));
}

TEST_F(WindowPlaceTest, OwnedWindowsStayInFrontOfTheirOwner) {
  const WindowHandle form = MakeTop("form", {0, 0, 10, 10});
  Make("tool", &client, form, {0, 0, 10, 10}, kPopup);
  const WindowHandle other = MakeTop("other", {0, 0, 10, 10});
  EXPECT_THAT(Order(), ElementsAre("other", "tool", "form"));
  windows.SetActiveWindow(form);
  EXPECT_THAT(Order(), ElementsAre("tool", "form", "other"));
  windows.SetActiveWindow(other);
  EXPECT_THAT(Order(), ElementsAre("other", "tool", "form"));
}

TEST_F(WindowPlaceTest, AnOwnedWindowTakesItsOwnerAndTheOthersToTheFront) {
  const WindowHandle form = MakeTop("form", {0, 0, 10, 10});
  const WindowHandle tool = Make("tool", &client, form, {0, 0, 10, 10}, kPopup);
  Make("menu", &client, tool, {0, 0, 10, 10}, kPopup);
  Make("beside", &client, form, {0, 0, 10, 10}, kPopup);
  const WindowHandle other = MakeTop("other", {0, 0, 10, 10});
  EXPECT_THAT(Order(), ElementsAre("other", "beside", "menu", "tool", "form"));
  windows.SetActiveWindow(tool);
  EXPECT_THAT(Order(), ElementsAre("menu", "tool", "beside", "form", "other"));
  windows.SetActiveWindow(other);
  EXPECT_THAT(Order(), ElementsAre("other", "menu", "tool", "beside", "form"));
}

TEST_F(WindowPlaceTest, ATopMostOwnerMakesWhatItOwnsTopMost) {
  const WindowHandle form = MakeTop("form", {0, 0, 10, 10});
  const WindowHandle tool = Make("tool", &client, form, {0, 0, 10, 10}, kPopup);
  const WindowHandle menu = Make("menu", &client, tool, {0, 0, 10, 10}, kPopup);
  const auto place = [&](WindowHandle window, std::uint32_t after) {
    windows.SetWindowPos(window, {after}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
    std::string top_most;
    for (const WindowHandle each : {form, tool, menu}) {
      top_most += (windows.GetWindowLongA(each, kGwlExStyle) & kWsExTopMost) != 0 ? '1' : '0';
    }
    return top_most;
  };
  EXPECT_EQ(place(tool, kHwndTopMost), "011");
  EXPECT_EQ(place(tool, kHwndNoTopMost), "000");
  EXPECT_EQ(place(form, kHwndTopMost), "111");
  EXPECT_EQ(place(menu, kHwndNoTopMost), "000");  // an ordinary window cannot be owned by a top-most one
}

TEST_F(WindowPlaceTest, OnlyAWindowWithACaptionOrABorderForSizingHasLimits) {
  const auto size_of = [&](std::uint32_t style, PixelSize size) {
    const WindowHandle made = MakeTop("made", {0, 0, size.width, size.height}, style);
    const WindowHandle sized = MakeTop("sized", {0, 0, 200, 200}, style);
    windows.SetWindowPos(sized, {}, {0, 0, size.width, size.height},
                         kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
    EXPECT_EQ(RectOf(made), RectOf(sized));
    const PixelRect rect = RectOf(sized);
    return PixelSize{rect.width(), rect.height()};
  };
  EXPECT_EQ(size_of(kWsPopup, {3, 4}), (PixelSize{3, 4}));
  EXPECT_EQ(size_of(kWsPopup | kWsCaption, {3000, 4}), (PixelSize{3000, 4}));
  EXPECT_EQ(size_of(0, {3, 4}), (PixelSize{112, 24}));
  EXPECT_EQ(size_of(kWsPopup | kWsThickFrame, {3, 4}), (PixelSize{112, 24}));
  EXPECT_EQ(size_of(0, {3000, 4000}), (PixelSize{1026, 792}));
  EXPECT_EQ(size_of(0, {300, 400}), (PixelSize{300, 400}));
}

// The calls by which controls lift a panel out of a form.
TEST_F(WindowPlaceTest, AChildBecomesATopMostPopup) {
  const WindowHandle form = MakeTop("form", {200, 200, 400, 400});
  const WindowHandle panel = MakeChild("panel", form, {10, 20, 60, 90}, kWsChild | kWsClipChildren);
  const WindowHandle inner = MakeChild("inner", panel, {1, 1, 9, 9});
  for (int opening = 0; opening < 2; ++opening) {
    windows.SetWindowLongA(panel, kGwlExStyle, 128);
    EXPECT_EQ(windows.SetParent(panel, {}), opening == 0 ? form : WindowHandle{});
    windows.SetWindowLongA(panel, kGwlStyle, static_cast<std::int32_t>(0x80800000u));
    EXPECT_TRUE(windows.SetWindowPos(panel, {kHwndTopMost}, {0, 0, 0, 0}, 9));
    EXPECT_EQ(RectOf(panel), (PixelRect{0, 0, 50, 70}));
    EXPECT_EQ(ClientOf(panel), (PixelSize{48, 68}));
    EXPECT_FALSE(windows.IsWindowVisible(panel));
    EXPECT_FALSE(windows.GetParent(panel));
    EXPECT_EQ(windows.GetActiveWindow(), panel);  // though it is hidden
    windows.SetWindowPos(panel, {}, {300, 350, 0, 0}, kSwpNoSize | kSwpNoZOrder | kSwpNoActivate);
    windows.ShowWindow(panel, kSwShow);
    windows.SetWindowPos(panel, {kHwndTop}, {}, kSwpNoMove | kSwpNoSize);
    windows.SetFocus(panel);
    EXPECT_EQ(windows.GetActiveWindow(), panel);
    EXPECT_EQ(windows.GetFocus(), panel);
    EXPECT_THAT(Order(), ElementsAre("panel", "form"));
    EXPECT_EQ(RectOf(inner), (PixelRect{302, 352, 310, 360}));
    windows.ShowWindow(panel, kSwHide);
    EXPECT_EQ(windows.GetActiveWindow(), form);
    EXPECT_EQ(windows.GetFocus(), form);
  }
}

TEST_F(WindowPlaceTest, SetParentKeepsTheNumbersAndGoesBack) {
  const WindowHandle form = MakeTop("form", {200, 200, 400, 400});
  const WindowHandle child = MakeChild("child", form, {10, 20, 60, 90});
  Begin();
  EXPECT_EQ(windows.SetParent(child, {}), form);
  EXPECT_EQ(RectOf(child), (PixelRect{10, 20, 60, 90}));
  EXPECT_FALSE(windows.SetParent(child, form));
  EXPECT_EQ(RectOf(child), (PixelRect{210, 220, 260, 290}));
  EXPECT_EQ(windows.GetParent(child), form);
  EXPECT_FALSE(windows.SetParent(form, child));
  EXPECT_FALSE(windows.SetParent(form, form));
  EXPECT_FALSE(windows.GetParent(form));
}

TEST_F(WindowPlaceTest, ShowingSendsOneMessageAndActivates) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  Begin();
  EXPECT_FALSE(windows.ShowWindow(form, kSwShowNoActivate));
  EXPECT_THAT(Take(), ElementsAre("form ShowWindow 1"));
  EXPECT_TRUE(windows.ShowWindow(form, kSwShow));
  EXPECT_THAT(Take(), ElementsAre("form Activate 1 none", "form SetFocus none"));
  EXPECT_TRUE(windows.ShowWindow(form, kSwHide));
  EXPECT_THAT(Take(), ElementsAre("form ShowWindow 0", "form Activate 0 none", "form KillFocus none"));
  EXPECT_FALSE(windows.ShowWindow(form, kSwHide));
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(WindowPlaceTest, AWindowIsVisibleOnlyWithAllItsAncestors) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  const WindowHandle child = MakeChild("child", form, {0, 0, 10, 10});
  EXPECT_FALSE(windows.IsWindowVisible(child));
  windows.ShowWindow(form, kSwShowNoActivate);
  EXPECT_TRUE(windows.IsWindowVisible(child));
}

TEST_F(WindowPlaceTest, ShowingAfterABorderStyleShrinksTheClientArea) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  windows.SetWindowLongA(form, kGwlStyle, static_cast<std::int32_t>(kWsPopup | kWsBorder));
  Begin();
  windows.ShowWindow(form, kSwShowNoActivate);
  EXPECT_THAT(Take(), ElementsAre("form ShowWindow 1", "form Move 1,1", "form Size 98,98"));
}

}  // namespace
}  // namespace levelwidgets::memory
