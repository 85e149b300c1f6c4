// Life, attributes and messages.
#include <stdexcept>

#include <malloc.h>

#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MemoryWindowsTest : public DesktopTest {};

TEST_F(MemoryWindowsTest, CreatingAShownTopLevelWindowSendsMessagesAndActivatesIt) {
  MakeTop("form", {10, 20, 110, 80});
  EXPECT_THAT(Take(), ElementsAre("new Create", "new Size 100,60", "new Move 10,20", "new ShowWindow 1",
                                  "new Activate 1 none", "new SetFocus none"));
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
}

TEST_F(MemoryWindowsTest, CreatingAChildActivatesNothing) {
  const WindowHandle form = MakeTop("form", {10, 20, 110, 80});
  Begin();
  const WindowHandle child = MakeChild("child", form, {5, 6, 25, 16});
  EXPECT_THAT(Take(), ElementsAre("new Create", "new Size 20,10", "new Move 5,6", "new ShowWindow 1"));
  EXPECT_EQ(windows.GetFocus(), form);
  EXPECT_EQ(windows.GetParent(child), form);
}

TEST_F(MemoryWindowsTest, AChildNeedsAParentThatExists) {
  EXPECT_FALSE(MakeChild("child", {}, {0, 0, 10, 10}));
  EXPECT_FALSE(MakeChild("child", {4711}, {0, 0, 10, 10}));
  EXPECT_FALSE(Make("popup", &client, {4711}, {0, 0, 10, 10}, kPopup));
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

TEST_F(MemoryWindowsTest, MinusOneFromCreateRefusesTheWindow) {
  client.On(kWmCreate, [](WindowHandle, WParam, LParam) { return -1; });
  EXPECT_FALSE(MakeTop("form", {0, 0, 10, 10}));
  EXPECT_THAT(Take(), ElementsAre("new Create", "new Destroy"));
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

TEST_F(MemoryWindowsTest, AWindowDestroyedWhileItIsMadeIsNotReturned) {
  client.On(kWmSize, [&](WindowHandle window, WParam, LParam) { return windows.DestroyWindow(window); });
  EXPECT_FALSE(MakeTop("form", {0, 0, 10, 10}));
}

TEST_F(MemoryWindowsTest, UnknownWindowsAreRefusedEverywhere) {
  const WindowHandle none{4711};
  PixelRect rect;
  PixelPoint point;
  EXPECT_FALSE(windows.IsWindow(none));
  EXPECT_FALSE(windows.DestroyWindow(none));
  EXPECT_FALSE(windows.SetParent(none, {}));
  EXPECT_FALSE(windows.GetParent(none));
  EXPECT_FALSE(windows.SetWindowPos(none, {}, {}, 0));
  EXPECT_FALSE(windows.GetWindowRect(none, rect));
  EXPECT_FALSE(windows.GetClientRect(none, rect));
  EXPECT_FALSE(windows.ClientToScreen(none, point));
  EXPECT_FALSE(windows.ScreenToClient(none, point));
  EXPECT_EQ(windows.SetWindowLongA(none, kGwlUserData, 1), 0);
  EXPECT_EQ(windows.GetWindowLongA(none, kGwlStyle), 0);
  EXPECT_FALSE(windows.SetWindowTextA(none, "x"));
  EXPECT_EQ(windows.GetWindowTextA(none), "");
  EXPECT_FALSE(windows.ShowWindow(none, kSwShow));
  EXPECT_FALSE(windows.IsWindowVisible(none));
  EXPECT_FALSE(windows.EnableWindow(none, true));
  EXPECT_FALSE(windows.IsWindowEnabled(none));
  EXPECT_FALSE(windows.SetFocus(none));
  EXPECT_FALSE(windows.SetActiveWindow(none));
  EXPECT_FALSE(windows.SetCapture(none));
  EXPECT_EQ(windows.SendMessageA(none, kWmChar, 0, 0), 0);
  EXPECT_FALSE(windows.PostMessageA(none, kWmChar, 0, 0));
  EXPECT_EQ(windows.CallWindowProcA(1, none, kWmChar, 0, 0), 0);
  EXPECT_EQ(windows.DefWindowProcA(none, kWmClose, 0, 0), 0);
  EXPECT_FALSE(windows.GetDC(none));
  EXPECT_FALSE(windows.ReleaseDC(none, {}));
  EXPECT_FALSE(windows.InvalidateRect(none));
  EXPECT_FALSE(windows.UpdateWindow(none));
  EXPECT_FALSE(windows.BeginPaint(none));
  EXPECT_FALSE(windows.EndPaint(none));
}

// --- Destruction -----------------------------------------------------------------------------

TEST_F(MemoryWindowsTest, DestroyNotifiesTheWindowThenItsChildren) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  const WindowHandle first = MakeChild("first", form, {0, 0, 50, 50});
  MakeChild("inner", first, {0, 0, 10, 10});
  MakeChild("second", form, {50, 0, 90, 50});
  Begin();
  EXPECT_TRUE(windows.DestroyWindow(form));
  EXPECT_THAT(Take(), ElementsAre("form Destroy", "first Destroy", "inner Destroy", "second Destroy"));
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

TEST_F(MemoryWindowsTest, DestroyMovesFocusAndCaptureAwayFirst) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  windows.SetFocus(child);
  windows.SetCapture(child);
  Begin();
  windows.DestroyWindow(child);
  EXPECT_THAT(Take(), ElementsAre("child ShowWindow 0", "child KillFocus form", "form SetFocus child",
                                  "child Destroy"));
  EXPECT_EQ(windows.GetFocus(), form);
  EXPECT_FALSE(windows.GetCapture());
}

TEST_F(MemoryWindowsTest, DestroyingTheActiveWindowActivatesTheNext) {
  MakeTop("lower", {0, 0, 100, 100});
  const WindowHandle upper = MakeTop("upper", {50, 0, 150, 100});
  Begin();
  windows.DestroyWindow(upper);
  EXPECT_THAT(Take(), ElementsAre("upper Activate 0 lower", "lower Activate 1 upper", "upper KillFocus lower",
                                  "lower SetFocus upper", "upper Destroy"));
}

TEST_F(MemoryWindowsTest, OwnedWindowsGoWithTheirOwner) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  const WindowHandle popup = Make("popup", &client, child, {0, 0, 10, 10}, kWsPopup);
  EXPECT_EQ(windows.GetParent(popup), form);
  Begin();
  windows.DestroyWindow(form);
  EXPECT_THAT(Take(), ElementsAre("popup Destroy", "form Destroy", "child Destroy"));
}

TEST_F(MemoryWindowsTest, DestroyInsideDestroyIsRefused) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  client.On(kWmDestroy, [&](WindowHandle window, WParam, LParam) -> LResult {
    EXPECT_FALSE(windows.DestroyWindow(window));
    EXPECT_FALSE(MakeChild("late", window, {0, 0, 1, 1}));
    return 0;
  });
  Begin();
  EXPECT_TRUE(windows.DestroyWindow(form));
  EXPECT_THAT(Take(), ElementsAre("form Destroy"));
  EXPECT_FALSE(windows.DestroyWindow(form));
}

TEST_F(MemoryWindowsTest, AChildsDestructionMayDestroyItsParent) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  MakeChild("sibling", form, {50, 0, 60, 50});
  client.On(kWmDestroy, [&](WindowHandle window, WParam, LParam) -> LResult {
    if (window == child) windows.DestroyWindow(form);
    return 0;
  });
  Begin();
  EXPECT_TRUE(windows.DestroyWindow(child));
  EXPECT_THAT(Take(), ElementsAre("child ShowWindow 0", "child Destroy", "form Destroy", "sibling Destroy"));
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

TEST_F(MemoryWindowsTest, AnyMessageMayDestroyItsWindow) {
  const std::uint32_t messages[] = {
      kWmShowWindow, kWmSize,  kWmMove,          kWmActivate,       kWmSetFocus,   kWmKillFocus,
      kWmEnable,     kWmPaint, kWmMouseActivate, kWmLButtonDown,    kWmLButtonUp,  kWmMouseMove,
      kWmKeyDown,    kWmKeyUp, kWmChar,          kWmCaptureChanged, kWmCancelMode, kWmClose};
  for (const std::uint32_t message : messages) {
    int destroyed = 0;
    const WindowHandle other = Make("other", nullptr, {}, {200, 0, 300, 100}, kPopup);
    const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kWsPopup);
    client.On(message, [&](WindowHandle window, WParam, LParam) -> LResult {
      destroyed += windows.DestroyWindow(window);
      return 0;
    });
    windows.ShowWindow(form, kSwShow);
    windows.SetWindowPos(form, {}, {5, 5, 90, 90}, kSwpNoZOrder);
    desktop.MovePointer({10, 10});
    windows.SetActiveWindow(other);
    desktop.Click({20, 20});
    windows.SetCapture(form);
    windows.ReleaseCapture();
    desktop.Type("x");
    windows.SetFocus(other);
    windows.EnableWindow(form, false);
    windows.SendMessageA(form, kWmClose, 0, 0);
    desktop.Settle();
    EXPECT_EQ(destroyed, 1) << message;
    EXPECT_FALSE(windows.IsWindow(form)) << message;
    windows.DestroyWindow(other);
    client.Off(message);
  }
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

TEST_F(MemoryWindowsTest, NothingIsSentToTheClientOfADestroyedWindow) {
  auto gone = std::make_unique<Recorder>(desktop, log);
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  const WindowHandle child = Make("child", gone.get(), form, {0, 0, 50, 50}, kChild);
  windows.SetFocus(child);
  windows.SetCapture(child);
  windows.PostMessageA(child, kWmChar, 'x', 0);
  windows.DestroyWindow(child);
  gone.reset();
  Take();
  desktop.MovePointer({10, 10});
  desktop.Click({20, 20});
  desktop.Type("x");
  for (const std::string& line : Take()) EXPECT_EQ(line.substr(0, 4), "form");
}

TEST_F(MemoryWindowsTest, AnExceptionFromDestroyLeavesNoWindowBehind) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  const WindowHandle child = MakeChild("child", form, {0, 0, 50, 50});
  windows.SetFocus(child);
  client.On(kWmDestroy, [](WindowHandle, WParam, LParam) -> LResult { throw std::runtime_error("end"); });
  EXPECT_THROW(windows.DestroyWindow(child), std::runtime_error);
  EXPECT_FALSE(windows.IsWindow(child));
  EXPECT_TRUE(windows.IsWindow(form));
  EXPECT_EQ(windows.GetFocus(), form);
}

// --- Attributes ------------------------------------------------------------------------------

TEST_F(MemoryWindowsTest, StylesAreStoredAsGiven) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kPopup);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlExStyle, 128), 0);
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlExStyle), 128);
  const auto style = static_cast<std::int32_t>(kWsPopup | kWsBorder);
  windows.SetWindowLongA(form, kGwlStyle, style);
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlStyle), style);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlUserData, 77), 0);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlUserData, 78), 77);
  EXPECT_EQ(windows.SetWindowLongA(form, 5, 1), 0);
}

TEST_F(MemoryWindowsTest, TheVisibleBitOfTheStyleShowsAndHides) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100}, kPopup);
  windows.SetWindowLongA(form, kGwlStyle, static_cast<std::int32_t>(kWsPopup));
  EXPECT_FALSE(windows.IsWindowVisible(form));
  Begin();
  windows.SetWindowLongA(form, kGwlStyle, static_cast<std::int32_t>(kPopup));
  EXPECT_TRUE(windows.IsWindowVisible(form));
  desktop.Settle();
  EXPECT_THAT(Take(), ElementsAre("form Paint"));
}

TEST_F(MemoryWindowsTest, TheTopMostBitChangesOnlyBySetWindowPos) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  windows.SetWindowPos(form, {kHwndTopMost}, {}, kSwpNoMove | kSwpNoSize);
  windows.SetWindowLongA(form, kGwlExStyle, 128);
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlExStyle), 128 | 8);
  windows.SetWindowPos(form, {kHwndNoTopMost}, {}, kSwpNoMove | kSwpNoSize);
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlExStyle), 128);
}

TEST_F(MemoryWindowsTest, TitlesAreUtf8) {
  const WindowHandle form = MakeTop("caf\xC3\xA9", {0, 0, 100, 100});
  EXPECT_EQ(windows.GetWindowTextA(form), "caf\xC3\xA9");
  windows.SetWindowTextA(form, "\xE6\x97\xA5");
  EXPECT_EQ(windows.GetWindowTextA(form), "\xE6\x97\xA5");
}

// --- Messages --------------------------------------------------------------------------------

std::vector<std::uint32_t>* proc_messages;
std::intptr_t former_proc;
WindowApi* proc_api;

LResult CountingProc(WindowApi& api, WindowHandle window, std::uint32_t message, WParam wparam,
                     LParam lparam) {
  proc_messages->push_back(message);
  proc_api = &api;
  return api.CallWindowProcA(former_proc, window, message, wparam, lparam);
}

TEST_F(MemoryWindowsTest, AWindowProcedureStandsBeforeTheClient) {
  std::vector<std::uint32_t> seen;
  proc_messages = &seen;
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  client.On(kWmCommand, [](WindowHandle, WParam wparam, LParam) { return static_cast<LResult>(wparam * 2); });
  former_proc = windows.SetWindowLongA(form, kGwlWndProc, reinterpret_cast<std::intptr_t>(&CountingProc));
  EXPECT_NE(former_proc, 0);
  EXPECT_EQ(windows.SendMessageA(form, kWmCommand, 21, 0), 42);
  EXPECT_THAT(seen, ElementsAre(kWmCommand));
  EXPECT_EQ(proc_api, &windows);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlWndProc, former_proc),
            reinterpret_cast<std::intptr_t>(&CountingProc));
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlWndProc), former_proc);
  EXPECT_EQ(windows.SendMessageA(form, kWmCommand, 1, 0), 2);
  EXPECT_EQ(seen.size(), 1u);
}

TEST_F(MemoryWindowsTest, APostedMessageComesLaterUnlessItsWindowWasDestroyed) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  const WindowHandle child = MakeChild("child", form, {0, 0, 10, 10});
  Begin();
  windows.PostMessageA(child, kWmChar, 'a', 0);
  windows.PostMessageA(form, kWmChar, 'b', 0);
  windows.SetWindowLongA(child, kGwlStyle, static_cast<std::int32_t>(kWsChild));
  EXPECT_THAT(Take(), IsEmpty());
  windows.DestroyWindow(child);
  Take();
  desktop.Clock().DoEvents();
  EXPECT_EQ(Take().front(), "form Char 98");
}

TEST_F(MemoryWindowsTest, CloseDestroysByDefault) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  windows.SendMessageA(form, kWmClose, 0, 0);
  EXPECT_FALSE(windows.IsWindow(form));
}

// --- Built-in classes ------------------------------------------------------------------------

class Echo : public WindowClient {
 public:
  Echo(MemoryWindows& windows, int& live) : windows_(windows), live_(live) { ++live_; }
  ~Echo() override { --live_; }

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message == kWmCommand) {
      windows_.DestroyWindow(window);
      return live_;  // of the object itself: it must still be there
    }
    return windows_.DefWindowProcA(window, message, wparam, lparam);
  }

 private:
  MemoryWindows& windows_;
  int& live_;
};

TEST_F(MemoryWindowsTest, ABuiltInClassAnswersForItsWindows) {
  int live = 0;
  windows.RegisterClass("Echo", [&] { return std::make_unique<Echo>(windows, live); });
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  const WindowHandle echo = windows.CreateWindowExA({"ECHO", "a\xC3\xA9", kChild, 0, {0, 0, 9, 9}, form, {}});
  EXPECT_EQ(live, 1);
  EXPECT_EQ(windows.GetWindowTextA(echo), "a\xC3\xA9");
  windows.SetWindowTextA(echo, "\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(windows.SendMessageA(echo, kWmGetTextLength, 0, 0), 3);
  EXPECT_EQ(windows.GetWindowTextA(echo), "\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(windows.SendMessageA(echo, kWmCommand, 0, 0), 1);
  windows.SendMessageA(form, kWmCommand, 0, 0);
  EXPECT_EQ(live, 0);
}

TEST_F(MemoryWindowsTest, AnUnknownClassMakesNoWindow) {
  EXPECT_FALSE(windows.CreateWindowExA({"nothing", "", kPopup, 0, {}, {}, &client}));
  EXPECT_EQ(desktop.LiveWindows(), 0u);
}

// --- Size ------------------------------------------------------------------------------------

TEST_F(MemoryWindowsTest, AThousandChildrenCostLessThanAKilobyteEach) {
  static_assert(sizeof(Window) < 512);
  const WindowHandle form = MakeTop("form", {0, 0, 800, 600});
  desktop.Settle();
  const auto in_use = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
  const std::size_t before = in_use();
  if (before == 0) GTEST_SKIP() << "the allocator does not count";
  for (int i = 0; i < 1000; ++i) {
    const int x = i % 40 * 20, y = i / 40 * 24;
    windows.CreateWindowExA({"", "", kChild, 0, {x, y, x + 18, y + 22}, form, nullptr});
  }
  desktop.Settle();  // paints them all: their contexts and visible areas are there
  const std::size_t used = in_use() - before;
  RecordProperty("bytes_per_window", static_cast<int>(used / 1000));
  EXPECT_LT(used / 1000, 1024u);
}

}  // namespace
}  // namespace levelwidgets::memory
