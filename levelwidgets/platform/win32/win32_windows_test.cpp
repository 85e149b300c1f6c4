#include <stdexcept>

#include <gtest/gtest.h>

#include <levelwidgets/platform/win32/test_desktop.h>

namespace levelwidgets::win32 {
namespace {

class Win32WindowsTest : public ::testing::Test, protected TestDesktop {};

TEST_F(Win32WindowsTest, OwnContextIsAlwaysTheSameAndKeepsItsState) {
  const WindowHandle form = MakeForm(client);
  const DcHandle dc = windows.GetDC(form);
  ASSERT_TRUE(dc);
  EXPECT_EQ(drawing.SetBkMode(dc, kTransparent), kTransparent) << "transparent from the start";
  EXPECT_EQ(drawing.SetTextColor(dc, ColorRef{0x112233}), ColorRef{0}) << "black text from the start";
  const ObjectHandle brush = drawing.CreateSolidBrush(ColorRef{0xABCDEF});
  const ObjectHandle former = drawing.SelectObject(dc, brush);
  windows.ReleaseDC(form, dc);

  windows.SetWindowPos(form, {}, {100, 100, 500, 350}, kSwpNoZOrder);
  driver.Settle();
  EXPECT_EQ(windows.GetDC(form), dc);
  EXPECT_EQ(windows.BeginPaint(form), dc);
  EXPECT_TRUE(windows.EndPaint(form));
  EXPECT_EQ(drawing.SetTextColor(dc, ColorRef{0}), ColorRef{0x112233});
  EXPECT_EQ(drawing.SelectObject(dc, former), brush);
  EXPECT_TRUE(drawing.DeleteObject(brush));
}

TEST_F(Win32WindowsTest, ContextSurvivesTheMoveToTheDesktop) {
  const WindowHandle form = MakeForm(client);
  const WindowHandle panel = MakeChild(form, client, {10, 10, 60, 60});
  const DcHandle dc = windows.GetDC(panel);
  drawing.SetTextColor(dc, ColorRef{0x445566});
  windows.SetWindowLongA(panel, kGwlExStyle, kWsExToolWindow);
  EXPECT_EQ(windows.SetParent(panel, {}), form);
  windows.SetWindowLongA(panel, kGwlStyle, kWsPopup | kWsBorder);
  windows.SetWindowPos(panel, {kHwndTopMost}, {}, kSwpNoSize | kSwpNoRedraw);
  EXPECT_FALSE(windows.SetParent(panel, {})) << "the desktop is no window of the seam";
  EXPECT_EQ(windows.GetDC(panel), dc);
  EXPECT_EQ(drawing.SetTextColor(dc, ColorRef{0}), ColorRef{0x445566});
}

TEST_F(Win32WindowsTest, BackgroundIsNeverErased) {
  const WindowHandle form = MakeForm(client);
  driver.Settle();
  windows.InvalidateRect(form);
  windows.UpdateWindow(form);
  EXPECT_EQ(client.Count(kWmEraseBackground), 0u);
  EXPECT_GE(client.Count(kWmPaint), 1u);
}

TEST_F(Win32WindowsTest, AChangedSizeInvalidatesTheWholeWindow) {
  const WindowHandle form = MakeForm(client);
  driver.Settle();
  const std::size_t before = client.Count(kWmPaint);
  windows.SetWindowPos(form, {}, {100, 100, 350, 300}, kSwpNoZOrder);  // narrower: nothing comes into view
  windows.UpdateWindow(form);
  EXPECT_GT(client.Count(kWmPaint), before);
}

TEST_F(Win32WindowsTest, DestructionNotifiesTheWindowThenItsChildrenAndThenNobody) {
  const WindowHandle form = MakeForm(client);
  const WindowHandle child = MakeChild(form, client, {0, 0, 10, 10});
  client.messages.clear();
  EXPECT_TRUE(windows.DestroyWindow(form));
  EXPECT_EQ(client.Order({kWmDestroy}), (std::vector<std::uint32_t>{kWmDestroy, kWmDestroy}));
  std::vector<WindowHandle> destroyed;
  bool form_is_gone = false;
  for (const Message& message : client.messages) {
    EXPECT_FALSE(form_is_gone && message.window == form) << "message " << message.number;
    if (message.number != kWmDestroy) continue;
    destroyed.push_back(message.window);
    form_is_gone = form_is_gone || message.window == form;
  }
  EXPECT_EQ(destroyed, (std::vector<WindowHandle>{form, child}));
  EXPECT_FALSE(windows.IsWindow(child));
}

TEST_F(Win32WindowsTest, AChildNeedsAParent) {
  EXPECT_FALSE(windows.CreateWindowExA({.style = kWsChild, .rect = {0, 0, 5, 5}, .client = &client}));
  EXPECT_FALSE(windows.CreateWindowExA(
      {.style = kWsChild, .rect = {0, 0, 5, 5}, .parent = {0x7654321}, .client = &client}));
}

TEST_F(Win32WindowsTest, UnknownWindowsAreRefused) {
  const WindowHandle unknown{0x7654321};
  PixelRect rect;
  for (const WindowHandle window : {WindowHandle{}, unknown}) {
    EXPECT_FALSE(windows.DestroyWindow(window));
    EXPECT_FALSE(windows.GetDC(window));
    EXPECT_FALSE(windows.InvalidateRect(window));
    EXPECT_FALSE(windows.UpdateWindow(window));
    EXPECT_FALSE(windows.BeginPaint(window));
    EXPECT_FALSE(windows.EndPaint(window));
    EXPECT_FALSE(windows.GetClientRect(window, rect));
    EXPECT_FALSE(windows.PostMessageA(window, kWmSize, 0, 0));
    EXPECT_EQ(windows.SendMessageA(window, kWmSize, 0, 0), 0);
    EXPECT_EQ(windows.SetWindowLongA(window, kGwlUserData, 1), 0);
    EXPECT_EQ(windows.SetWindowLongA(window, kGwlWndProc, 1), 0);
  }
}

TEST_F(Win32WindowsTest, TitlesPassThroughTheCodePage) {
  const WindowHandle form = MakeForm(client);
  EXPECT_EQ(windows.GetWindowTextA(form), "Form");
  EXPECT_TRUE(windows.SetWindowTextA(form, "\xC3\xA4 \xE4\xB8\xAD"));
  EXPECT_EQ(windows.GetWindowTextA(form), "\xC3\xA4 ?");
}

TEST_F(Win32WindowsTest, UserDataAndStylesAreKept) {
  const WindowHandle form = MakeForm(client);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlUserData, 77), 0);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlUserData, 78), 77);
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlUserData), 78);
  EXPECT_EQ(static_cast<std::uint32_t>(windows.GetWindowLongA(form, kGwlStyle)) & kWsPopup, kWsPopup);
  EXPECT_EQ(windows.GetWindowLongA(form, 1000), 0);
}

// --- Window procedures -----------------------------------------------------------------------

constexpr std::uint32_t kTestMessage = 0x0401;
std::intptr_t former_procedure = 0;
std::intptr_t former_of_second = 0;

LResult AddTen(WindowApi& windows, WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  const LResult result = windows.CallWindowProcA(former_procedure, window, message, wparam, lparam);
  return message == kTestMessage ? result + 10 : result;
}

LResult AddHundred(WindowApi& windows, WindowHandle window, std::uint32_t message, WParam wparam,
                   LParam lparam) {
  const LResult result = windows.CallWindowProcA(former_of_second, window, message, wparam, lparam);
  return message == kTestMessage ? result + 100 : result;
}

LResult Refuse(WindowApi& windows, WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (message == kTestMessage) throw std::runtime_error("refused");
  return windows.CallWindowProcA(former_procedure, window, message, wparam, lparam);
}

// Two for each other message, so that a test can see what reaches it.
class AnsweringClient : public WindowClient {
 public:
  explicit AnsweringClient(WindowApi& windows) : windows_(windows) {}
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return message == kTestMessage ? 2 : windows_.DefWindowProcA(window, message, wparam, lparam);
  }

 private:
  WindowApi& windows_;
};

class Win32SubclassTest : public ::testing::Test, protected TestDesktop {
 protected:
  std::intptr_t Install(WindowHandle window, WindowProc procedure) {
    return windows.SetWindowLongA(window, kGwlWndProc, reinterpret_cast<std::intptr_t>(procedure));
  }
  LResult Ask(WindowHandle window) { return windows.SendMessageA(window, kTestMessage, 0, 0); }

  AnsweringClient answering{windows};
};

TEST_F(Win32SubclassTest, AProcedureReplacesTheClientUntilItIsTakenOff) {
  const WindowHandle form = MakeForm(answering);
  EXPECT_EQ(Ask(form), 2);
  former_procedure = Install(form, &AddTen);
  ASSERT_NE(former_procedure, 0);
  EXPECT_EQ(windows.GetWindowLongA(form, kGwlWndProc), reinterpret_cast<std::intptr_t>(&AddTen));
  EXPECT_EQ(Ask(form), 12);
  EXPECT_EQ(windows.SetWindowLongA(form, kGwlWndProc, former_procedure),
            reinterpret_cast<std::intptr_t>(&AddTen));
  EXPECT_EQ(Ask(form), 2);
}

TEST_F(Win32SubclassTest, LaterProceduresStandInFrontOfEarlierOnes) {
  const WindowHandle form = MakeForm(answering);
  former_procedure = Install(form, &AddTen);
  former_of_second = Install(form, &AddHundred);
  EXPECT_EQ(former_of_second, reinterpret_cast<std::intptr_t>(&AddTen));
  EXPECT_EQ(Ask(form), 112);
  windows.SetWindowLongA(form, kGwlWndProc, former_of_second);
  EXPECT_EQ(Ask(form), 12);
}

TEST_F(Win32SubclassTest, AnExceptionOfAProcedureReachesTheSender) {
  const WindowHandle form = MakeForm(answering);
  former_procedure = Install(form, &Refuse);
  EXPECT_THROW(Ask(form), std::runtime_error);
  EXPECT_TRUE(windows.DestroyWindow(form));
}

TEST_F(Win32SubclassTest, ThePlainEditBoxCanBeSubclassed) {
  const WindowHandle form = MakeForm(client);
  const WindowHandle edit = windows.CreateWindowExA({.class_name = "EDIT",
                                                     .title = "start",
                                                     .style = kWsChild | kWsVisible,
                                                     .rect = {10, 10, 110, 30},
                                                     .parent = form});
  ASSERT_TRUE(edit);
  EXPECT_EQ(windows.GetWindowTextA(edit), "start");
  former_procedure = Install(edit, &AddTen);
  EXPECT_EQ(Ask(edit), 10);
  windows.SetFocus(edit);
  driver.Type("x");
  EXPECT_EQ(windows.GetWindowTextA(edit), "xstart");
  EXPECT_GE(client.Count(kWmCtlColorEdit), 1u);
  EXPECT_EQ(driver.LiveWindows(), 2u);
  EXPECT_TRUE(windows.DestroyWindow(form));
  EXPECT_EQ(driver.LiveWindows(), 0u);
}

TEST_F(Win32SubclassTest, AnEditBoxIsDestroyedWithItsParentWithoutAMessage) {
  const WindowHandle form = MakeForm(client);
  windows.CreateWindowExA({.class_name = "EDIT", .style = kWsChild, .rect = {0, 0, 9, 9}, .parent = form});
  EXPECT_EQ(driver.LiveWindows(), 2u);
  windows.DestroyWindow(form);
  EXPECT_EQ(driver.LiveWindows(), 0u);
}

}  // namespace
}  // namespace levelwidgets::win32
