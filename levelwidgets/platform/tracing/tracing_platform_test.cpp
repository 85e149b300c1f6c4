#include <levelwidgets/platform/tracing/tracing_platform.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A call that a test looks at: what it answers, and how often it came.
template <typename Result, typename... Arguments>
struct Watched {
  Result operator()(Arguments... arguments) {
    ++calls;
    return answer ? answer(arguments...) : Result();
  }

  std::function<Result(Arguments...)> answer;
  int calls = 0;
};

// A platform that does nothing except what a test says. Mocks of all these calls take a minute to compile.
class FakeDrawing : public DrawingApi {
 public:
  bool Rectangle(DcHandle dc, PixelRect rect) override { return rectangle(dc, rect); }
  bool FillRect(DcHandle, PixelRect, ObjectHandle) override { return {}; }
  bool MoveTo(DcHandle, PixelPoint) override { return {}; }
  bool LineTo(DcHandle, PixelPoint) override { return {}; }
  bool DrawFocusRect(DcHandle, PixelRect) override { return {}; }
  int DrawTextA(DcHandle dc, std::string_view text, PixelRect& rect, std::uint32_t format) override {
    return draw_text(dc, text, rect, format);
  }
  bool BitBlt(DcHandle, PixelRect, DcHandle, PixelPoint, std::uint32_t) override { return {}; }
  ColorRef GetPixel(DcHandle, PixelPoint) override { return {}; }
  ObjectHandle CreateSolidBrush(ColorRef) override { return {}; }
  ObjectHandle CreatePen(int, int, ColorRef) override { return {}; }
  ObjectHandle CreateFontA(const FontRequest&) override { return {}; }
  ObjectHandle CreateCompatibleBitmap(DcHandle, PixelSize) override { return {}; }
  ObjectHandle GetStockObject(int) override { return {}; }
  ObjectHandle SelectObject(DcHandle, ObjectHandle) override { return {}; }
  bool DeleteObject(ObjectHandle) override { return {}; }
  DcHandle CreateCompatibleDC(DcHandle) override { return {}; }
  bool DeleteDC(DcHandle) override { return {}; }
  int GetDeviceCaps(DcHandle, int) override { return {}; }
  ColorRef SetTextColor(DcHandle, ColorRef) override { return {}; }
  ColorRef SetBkColor(DcHandle, ColorRef) override { return {}; }
  int SetBkMode(DcHandle, int) override { return {}; }
  bool GetTextExtentPoint32A(DcHandle, std::string_view, PixelSize&) override { return {}; }
  bool GetTextMetricsA(DcHandle, TextMetrics&) override { return {}; }
  bool OleTranslateColor(Color, std::uint32_t, ColorRef&) override { return {}; }
  ColorRef GetSysColor(int) override { return {}; }
  int MulDiv(int, int, int) override { return {}; }

  Watched<bool, DcHandle, PixelRect> rectangle;
  Watched<int, DcHandle, std::string_view, PixelRect&, std::uint32_t> draw_text;
};

class FakeWindows : public WindowApi {
 public:
  WindowHandle CreateWindowExA(const WindowRequest&) override { return {}; }
  bool DestroyWindow(WindowHandle) override { return {}; }
  bool IsWindow(WindowHandle) override { return {}; }
  WindowHandle SetParent(WindowHandle, WindowHandle) override { return {}; }
  WindowHandle GetParent(WindowHandle) override { return {}; }
  bool SetWindowPos(WindowHandle, WindowHandle, PixelRect, std::uint32_t) override { return {}; }
  bool GetWindowRect(WindowHandle, PixelRect&) override { return {}; }
  bool GetClientRect(WindowHandle, PixelRect&) override { return {}; }
  bool ClientToScreen(WindowHandle, PixelPoint&) override { return {}; }
  bool ScreenToClient(WindowHandle, PixelPoint&) override { return {}; }
  PixelRect AdjustWindowRectEx(PixelRect, std::uint32_t, std::uint32_t) override { return {}; }
  std::intptr_t SetWindowLongA(WindowHandle, int, std::intptr_t) override { return {}; }
  std::intptr_t GetWindowLongA(WindowHandle, int) override { return {}; }
  bool SetWindowTextA(WindowHandle, std::string_view) override { return {}; }
  std::string GetWindowTextA(WindowHandle) override { return {}; }
  bool ShowWindow(WindowHandle, int) override { return {}; }
  bool IsWindowVisible(WindowHandle) override { return {}; }
  bool EnableWindow(WindowHandle, bool) override { return {}; }
  bool IsWindowEnabled(WindowHandle) override { return {}; }
  WindowHandle SetFocus(WindowHandle) override { return {}; }
  WindowHandle GetFocus() override { return get_focus(); }
  WindowHandle SetActiveWindow(WindowHandle) override { return {}; }
  WindowHandle GetActiveWindow() override { return {}; }
  WindowHandle SetCapture(WindowHandle) override { return {}; }
  bool ReleaseCapture() override { return {}; }
  WindowHandle GetCapture() override { return {}; }
  bool GetCursorPos(PixelPoint& point) override { return get_cursor_pos(point); }
  int SetCursor(int) override { return {}; }
  std::int16_t GetKeyState(int) override { return {}; }
  std::int16_t GetAsyncKeyState(int) override { return {}; }
  LResult SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return send_message(window, message, wparam, lparam);
  }
  bool PostMessageA(WindowHandle, std::uint32_t, WParam, LParam) override { return {}; }
  LResult CallWindowProcA(std::intptr_t, WindowHandle, std::uint32_t, WParam, LParam) override { return {}; }
  LResult DefWindowProcA(WindowHandle, std::uint32_t, WParam, LParam) override { return {}; }
  DcHandle GetDC(WindowHandle) override { return {}; }
  bool ReleaseDC(WindowHandle, DcHandle) override { return {}; }
  bool InvalidateRect(WindowHandle) override { return {}; }
  bool InvalidateRect(WindowHandle, const PixelRect&) override { return {}; }
  bool UpdateWindow(WindowHandle) override { return {}; }
  DcHandle BeginPaint(WindowHandle, PixelRect&) override { return {}; }
  bool EndPaint(WindowHandle) override { return {}; }

  Watched<WindowHandle> get_focus;
  Watched<bool, PixelPoint&> get_cursor_pos;
  Watched<LResult, WindowHandle, std::uint32_t, WParam, LParam> send_message;
};

class FakeClock : public ClockApi {
 public:
  TimerHandle SetTimer(std::uint32_t milliseconds, std::function<void()> tick) override {
    return set_timer(milliseconds, std::move(tick));
  }
  bool KillTimer(TimerHandle) override { return {}; }
  std::size_t LiveTimers() const override { return {}; }
  std::uint64_t GetTickCount() override { return get_tick_count(); }
  Date Now() override { return {}; }
  void Post(std::function<void()>) override {}
  int Run() override { return {}; }
  void Quit(int) override {}
  void DoEvents() override {}

  Watched<TimerHandle, std::uint32_t, std::function<void()>> set_timer;
  Watched<std::uint64_t> get_tick_count;
};

class FakeScreen : public ScreenApi {
 public:
  PixelSize Size() override { return {}; }
  float Width() override { return {}; }
  float Height() override { return {}; }
  std::vector<Monitor> Monitors() override { return {}; }
  float TwipsPerPixelX() override { return twips_per_pixel_x(); }
  float TwipsPerPixelY() override { return {}; }
  PixelSize DotsPerInch() override { return {}; }

  Watched<float> twips_per_pixel_x;
};

class FakeConversions : public ConversionApi {
 public:
  std::string LocaleName() override { return {}; }
  Converted<double> ToDouble(const ConversionValue&) override { return {}; }
  Converted<Date> ToDate(const ConversionValue&) override { return {}; }
  Converted<std::string> ToText(const ConversionValue&) override { return {}; }
  Converted<bool> ToBoolean(const ConversionValue&) override { return {}; }
  bool IsNumeric(const ConversionValue&) override { return {}; }
  bool IsDate(const ConversionValue&) override { return {}; }
  Converted<std::string> Format(const ConversionValue& value, std::string_view text, int first_day,
                                int first_week) override {
    return format(value, text, first_day, first_week);
  }
  Converted<Date> DateAdd(std::string_view, double, Date) override { return {}; }
  Converted<DateParts> SplitDate(Date) override { return {}; }
  Converted<int> Weekday(Date, int) override { return {}; }
  Converted<std::string> MonthName(int, bool) override { return {}; }
  Converted<std::string> WeekdayName(int, bool, int) override { return {}; }
  std::string UpperCase(std::string_view) override { return {}; }
  std::string ToCodePage(std::string_view) override { return {}; }
  std::string FromCodePage(std::string_view) override { return {}; }
  bool IsDBCSLeadByte(char) override { return {}; }

  Watched<Converted<std::string>, const ConversionValue&, std::string_view, int, int> format;
};

class FakePlatform : public Platform {
 public:
  DrawingApi& Drawing() override { return drawing; }
  WindowApi& Windows() override { return windows; }
  ClockApi& Clock() override { return clock; }
  ScreenApi& Screen() override { return screen; }
  ConversionApi& Conversions() override { return conversions; }

  FakeDrawing drawing;
  FakeWindows windows;
  FakeClock clock;
  FakeScreen screen;
  FakeConversions conversions;
};

class TracingPlatformTest : public ::testing::Test {
 protected:
  TracingPlatformTest() { tracer.Start(); }

  std::vector<std::string> TakeLines() {
    std::vector<std::string> lines;
    for (const TracedCall& call : tracer.TakeCalls()) lines.push_back(call.ToString());
    return lines;
  }

  FakePlatform fake;
  TracingPlatform tracer{fake};
  const DcHandle dc{3};
  const WindowHandle window{7};
};

TEST_F(TracingPlatformTest, ConversionsAreRecordedWithTheirValues) {
  fake.conversions.format.answer = [](const ConversionValue& value, std::string_view format, int first_day,
                                      int first_week) {
    EXPECT_EQ(value, ConversionValue(1.5));
    EXPECT_EQ(format, "0.00");
    EXPECT_EQ(first_day, kSunday);
    EXPECT_EQ(first_week, kWeekOfJanuary1);
    return Converted<std::string>("1.50");
  };
  ConversionApi& conversions = tracer.Conversions();
  EXPECT_EQ(conversions.Format(1.5, "0.00").value, "1.50");
  EXPECT_EQ(fake.conversions.format.calls, 1);
  conversions.IsDate(std::string_view("today"));
  conversions.ToText(NullValue{});
  conversions.DateAdd("m", 1, Date{2.5});
  EXPECT_EQ(TakeLines(), (std::vector<std::string>{"Format(1.5, \"0.00\", 1, 1)", "IsDate(\"today\")",
                                                   "ToText(\"Null\")", "DateAdd(\"m\", 1, 2.5)"}));
}

TEST_F(TracingPlatformTest, PassesArgumentsAndResultsThrough) {
  fake.drawing.rectangle.answer = [this](DcHandle given, PixelRect rect) {
    EXPECT_EQ(given, dc);
    EXPECT_EQ(rect, (PixelRect{0, 1, 80, 25}));
    return true;
  };
  fake.windows.send_message.answer = [this](WindowHandle given, std::uint32_t message, WParam wparam,
                                            LParam lparam) {
    EXPECT_EQ(given, window);
    EXPECT_EQ(message, kWmSetText);
    EXPECT_EQ(wparam, WParam{1});
    EXPECT_EQ(lparam, LParam{-2});
    return LResult{42};
  };
  fake.clock.get_tick_count.answer = [] { return 1234u; };
  fake.screen.twips_per_pixel_x.answer = [] { return 15.0f; };

  EXPECT_TRUE(tracer.Drawing().Rectangle(dc, {0, 1, 80, 25}));
  EXPECT_EQ(tracer.Windows().SendMessageA(window, kWmSetText, 1, -2), 42);
  EXPECT_EQ(tracer.Clock().GetTickCount(), 1234u);
  EXPECT_EQ(tracer.Screen().TwipsPerPixelX(), 15.0f);
  EXPECT_EQ(fake.drawing.rectangle.calls, 1);
  EXPECT_EQ(fake.windows.send_message.calls, 1);
  EXPECT_EQ(fake.clock.get_tick_count.calls, 1);
  EXPECT_EQ(fake.screen.twips_per_pixel_x.calls, 1);
}

TEST_F(TracingPlatformTest, RecordsTheCallsOfAllPartsInOrder) {
  tracer.Drawing().Rectangle(dc, {0, 1, 80, 25});
  tracer.Windows().SetCapture(window);
  tracer.Clock().KillTimer({9});
  tracer.Screen().Size();
  EXPECT_THAT(TakeLines(),
              ElementsAre("Rectangle(3, 0, 1, 80, 25)", "SetCapture(7)", "KillTimer(9)", "Size()"));
}

TEST_F(TracingPlatformTest, HandsOutEachCallOnce) {
  tracer.Windows().ReleaseCapture();
  EXPECT_THAT(Names(tracer.TakeCalls()), ElementsAre("ReleaseCapture"));
  EXPECT_THAT(tracer.TakeCalls(), IsEmpty());
}

TEST_F(TracingPlatformTest, RecordsNothingBeforeStartAndAfterStop) {
  TracingPlatform other(fake);
  EXPECT_FALSE(other.active());
  fake.windows.get_focus.answer = [this] { return window; };
  other.Windows().GetFocus();
  other.Start();
  EXPECT_TRUE(other.active());
  other.Windows().GetFocus();
  other.Stop();
  EXPECT_EQ(other.Windows().GetFocus(), window);
  EXPECT_THAT(Names(other.TakeCalls()), ElementsAre("GetFocus"));
  EXPECT_EQ(fake.windows.get_focus.calls, 3);
}

TEST_F(TracingPlatformTest, TextIsRecordedWithItsCountAndTheRectangleItWasGiven) {
  fake.drawing.draw_text.answer = [this](DcHandle given, std::string_view text, PixelRect& rect,
                                         std::uint32_t format) {
    EXPECT_EQ(given, dc);
    EXPECT_EQ(text, "a\"b");
    EXPECT_EQ(format, kDtCalcRect);
    rect = {0, 0, 8, 13};
    return 13;
  };
  PixelRect rect{1, 2, 3, 4};
  EXPECT_EQ(tracer.Drawing().DrawTextA(dc, "a\"b", rect, kDtCalcRect), 13);
  EXPECT_EQ(rect, (PixelRect{0, 0, 8, 13}));
  EXPECT_EQ(fake.drawing.draw_text.calls, 1);
  const TracedCall expected{"DrawTextA",
                            {std::int64_t{3}, "a\"b", std::int64_t{-1}, std::int64_t{1}, std::int64_t{2},
                             std::int64_t{3}, std::int64_t{4}, std::int64_t{kDtCalcRect}}};
  EXPECT_THAT(tracer.TakeCalls(), ElementsAre(expected));
}

TEST_F(TracingPlatformTest, ColoursAreUnsignedNumbers) {
  ColorRef result;
  tracer.Drawing().CreateSolidBrush({0x00CDD9DD});
  tracer.Drawing().SetTextColor(dc, kInvalidColorRef);
  tracer.Drawing().OleTranslateColor(Color(0x80000012), 0, result);
  EXPECT_THAT(TakeLines(), ElementsAre("CreateSolidBrush(13490653)", "SetTextColor(3, 4294967295)",
                                       "OleTranslateColor(2147483666, 0)"));
}

TEST_F(TracingPlatformTest, ArgumentsStandInTheOperatingSystemsOrder) {
  tracer.Drawing().BitBlt(dc, {10, 20, 40, 60}, {4}, {5, 6}, kSrcCopy);
  tracer.Drawing().CreateFontA({.height = 12,
                                .weight = 700,
                                .italic = true,
                                .charset = 2,
                                .output_precision = 4,
                                .face_name = "Marlett"});
  tracer.Windows().SetWindowPos(window, {kHwndTopMost}, {1, 2, 4, 6}, 9);
  tracer.Windows().CreateWindowExA(
      {.title = "t", .style = 1, .ex_style = 2, .rect = {1, 2, 4, 6}, .parent = window});
  EXPECT_THAT(TakeLines(), ElementsAre("BitBlt(3, 10, 20, 30, 40, 4, 5, 6, 13369376)",
                                       "CreateFontA(12, 0, 0, 0, 700, 1, 0, 0, 2, 4, 0, 0, 0, \"Marlett\")",
                                       "SetWindowPos(7, -1, 1, 2, 3, 4, 9)",
                                       "CreateWindowExA(2, \"\", \"t\", 1, 1, 2, 3, 4, 7)"));
}

TEST_F(TracingPlatformTest, AnInnerCallStandsAfterTheOneItHappensIn) {
  fake.windows.send_message.answer = [this](auto, auto, auto, auto) {
    tracer.Drawing().LineTo(dc, {5, 6});
    return LResult{0};
  };
  tracer.Windows().SendMessageA(window, kWmPaint, 0, 0);
  tracer.Windows().EndPaint(window);
  EXPECT_THAT(TakeLines(), ElementsAre("SendMessageA(7, 15, 0, 0)", "LineTo(3, 5, 6)", "EndPaint(7)"));
  EXPECT_EQ(fake.windows.send_message.calls, 1);
}

TEST_F(TracingPlatformTest, ANoteStandsAmongTheCallsWhileActive) {
  tracer.Windows().GetFocus();
  tracer.Note("Click", {std::string("x"), 1.5});
  tracer.Windows().GetCapture();
  tracer.Stop();
  tracer.Note("Late");
  EXPECT_THAT(TakeLines(), ElementsAre("GetFocus()", "Click(\"x\", 1.5)", "GetCapture()"));
}

TEST_F(TracingPlatformTest, CallbacksArePassedOnAndNotRecorded) {
  std::function<void()> given;
  fake.clock.set_timer.answer = [&given](std::uint32_t milliseconds, std::function<void()> tick) {
    EXPECT_EQ(milliseconds, 100u);
    given = std::move(tick);
    return TimerHandle{5};
  };
  bool ticked = false;
  EXPECT_EQ(tracer.Clock().SetTimer(100, [&ticked] { ticked = true; }), TimerHandle{5});
  given();
  EXPECT_TRUE(ticked);
  EXPECT_THAT(TakeLines(), ElementsAre("SetTimer(100)"));
  EXPECT_EQ(fake.clock.set_timer.calls, 1);
}

TEST_F(TracingPlatformTest, ResultsThroughReferencesReachTheCaller) {
  fake.windows.get_cursor_pos.answer = [](PixelPoint& at) {
    at = {8, 9};
    return true;
  };
  PixelPoint point;
  EXPECT_TRUE(tracer.Windows().GetCursorPos(point));
  EXPECT_EQ(point, (PixelPoint{8, 9}));
  EXPECT_THAT(TakeLines(), ElementsAre("GetCursorPos()"));
  EXPECT_EQ(fake.windows.get_cursor_pos.calls, 1);
}

}  // namespace
}  // namespace levelwidgets
