#include <levelwidgets/platform/tracing/tracing_platform.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace levelwidgets {
namespace {

using ::testing::_;
using ::testing::DoAll;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Return;
using ::testing::SetArgReferee;

class FakeDrawing : public DrawingApi {
 public:
  MOCK_METHOD(bool, Rectangle, (DcHandle, PixelRect), (override));
  MOCK_METHOD(bool, FillRect, (DcHandle, PixelRect, ObjectHandle), (override));
  MOCK_METHOD(bool, MoveTo, (DcHandle, PixelPoint), (override));
  MOCK_METHOD(bool, LineTo, (DcHandle, PixelPoint), (override));
  MOCK_METHOD(bool, DrawFocusRect, (DcHandle, PixelRect), (override));
  MOCK_METHOD(int, DrawTextA, (DcHandle, std::string_view, PixelRect&, std::uint32_t), (override));
  MOCK_METHOD(bool, BitBlt, (DcHandle, PixelRect, DcHandle, PixelPoint, std::uint32_t), (override));
  MOCK_METHOD(ColorRef, GetPixel, (DcHandle, PixelPoint), (override));
  MOCK_METHOD(ObjectHandle, CreateSolidBrush, (ColorRef), (override));
  MOCK_METHOD(ObjectHandle, CreatePen, (int, int, ColorRef), (override));
  MOCK_METHOD(ObjectHandle, CreateFontA, (const FontRequest&), (override));
  MOCK_METHOD(ObjectHandle, CreateCompatibleBitmap, (DcHandle, PixelSize), (override));
  MOCK_METHOD(ObjectHandle, GetStockObject, (int), (override));
  MOCK_METHOD(ObjectHandle, SelectObject, (DcHandle, ObjectHandle), (override));
  MOCK_METHOD(bool, DeleteObject, (ObjectHandle), (override));
  MOCK_METHOD(DcHandle, CreateCompatibleDC, (DcHandle), (override));
  MOCK_METHOD(bool, DeleteDC, (DcHandle), (override));
  MOCK_METHOD(int, GetDeviceCaps, (DcHandle, int), (override));
  MOCK_METHOD(ColorRef, SetTextColor, (DcHandle, ColorRef), (override));
  MOCK_METHOD(ColorRef, SetBkColor, (DcHandle, ColorRef), (override));
  MOCK_METHOD(int, SetBkMode, (DcHandle, int), (override));
  MOCK_METHOD(bool, GetTextExtentPoint32A, (DcHandle, std::string_view, PixelSize&), (override));
  MOCK_METHOD(bool, GetTextMetricsA, (DcHandle, TextMetrics&), (override));
  MOCK_METHOD(bool, OleTranslateColor, (Color, std::uint32_t, ColorRef&), (override));
  MOCK_METHOD(ColorRef, GetSysColor, (int), (override));
  MOCK_METHOD(int, MulDiv, (int, int, int), (override));
};

class FakeWindows : public WindowApi {
 public:
  MOCK_METHOD(WindowHandle, CreateWindowExA, (const WindowRequest&), (override));
  MOCK_METHOD(bool, DestroyWindow, (WindowHandle), (override));
  MOCK_METHOD(bool, IsWindow, (WindowHandle), (override));
  MOCK_METHOD(WindowHandle, SetParent, (WindowHandle, WindowHandle), (override));
  MOCK_METHOD(WindowHandle, GetParent, (WindowHandle), (override));
  MOCK_METHOD(bool, SetWindowPos, (WindowHandle, WindowHandle, PixelRect, std::uint32_t), (override));
  MOCK_METHOD(bool, GetWindowRect, (WindowHandle, PixelRect&), (override));
  MOCK_METHOD(bool, GetClientRect, (WindowHandle, PixelRect&), (override));
  MOCK_METHOD(bool, ClientToScreen, (WindowHandle, PixelPoint&), (override));
  MOCK_METHOD(bool, ScreenToClient, (WindowHandle, PixelPoint&), (override));
  MOCK_METHOD(PixelRect, AdjustWindowRectEx, (PixelRect, std::uint32_t, std::uint32_t), (override));
  MOCK_METHOD(std::intptr_t, SetWindowLongA, (WindowHandle, int, std::intptr_t), (override));
  MOCK_METHOD(std::intptr_t, GetWindowLongA, (WindowHandle, int), (override));
  MOCK_METHOD(bool, SetWindowTextA, (WindowHandle, std::string_view), (override));
  MOCK_METHOD(std::string, GetWindowTextA, (WindowHandle), (override));
  MOCK_METHOD(bool, ShowWindow, (WindowHandle, int), (override));
  MOCK_METHOD(bool, IsWindowVisible, (WindowHandle), (override));
  MOCK_METHOD(bool, EnableWindow, (WindowHandle, bool), (override));
  MOCK_METHOD(bool, IsWindowEnabled, (WindowHandle), (override));
  MOCK_METHOD(WindowHandle, SetFocus, (WindowHandle), (override));
  MOCK_METHOD(WindowHandle, GetFocus, (), (override));
  MOCK_METHOD(WindowHandle, SetActiveWindow, (WindowHandle), (override));
  MOCK_METHOD(WindowHandle, GetActiveWindow, (), (override));
  MOCK_METHOD(WindowHandle, SetCapture, (WindowHandle), (override));
  MOCK_METHOD(bool, ReleaseCapture, (), (override));
  MOCK_METHOD(WindowHandle, GetCapture, (), (override));
  MOCK_METHOD(bool, GetCursorPos, (PixelPoint&), (override));
  MOCK_METHOD(int, SetCursor, (int), (override));
  MOCK_METHOD(std::int16_t, GetKeyState, (int), (override));
  MOCK_METHOD(std::int16_t, GetAsyncKeyState, (int), (override));
  MOCK_METHOD(LResult, SendMessageA, (WindowHandle, std::uint32_t, WParam, LParam), (override));
  MOCK_METHOD(bool, PostMessageA, (WindowHandle, std::uint32_t, WParam, LParam), (override));
  MOCK_METHOD(LResult, CallWindowProcA, (std::intptr_t, WindowHandle, std::uint32_t, WParam, LParam),
              (override));
  MOCK_METHOD(LResult, DefWindowProcA, (WindowHandle, std::uint32_t, WParam, LParam), (override));
  MOCK_METHOD(DcHandle, GetDC, (WindowHandle), (override));
  MOCK_METHOD(bool, ReleaseDC, (WindowHandle, DcHandle), (override));
  MOCK_METHOD(bool, InvalidateRect, (WindowHandle), (override));
  MOCK_METHOD(bool, InvalidateRect, (WindowHandle, const PixelRect&), (override));
  MOCK_METHOD(bool, UpdateWindow, (WindowHandle), (override));
  MOCK_METHOD(DcHandle, BeginPaint, (WindowHandle, PixelRect&), (override));
  MOCK_METHOD(bool, EndPaint, (WindowHandle), (override));
};

class FakeClock : public ClockApi {
 public:
  MOCK_METHOD(TimerHandle, SetTimer, (std::uint32_t, std::function<void()>), (override));
  MOCK_METHOD(bool, KillTimer, (TimerHandle), (override));
  MOCK_METHOD(std::size_t, LiveTimers, (), (const, override));
  MOCK_METHOD(std::uint64_t, GetTickCount, (), (override));
  MOCK_METHOD(Date, Now, (), (override));
  MOCK_METHOD(void, Post, (std::function<void()>), (override));
  MOCK_METHOD(int, Run, (), (override));
  MOCK_METHOD(void, Quit, (int), (override));
  MOCK_METHOD(void, DoEvents, (), (override));
};

class FakeScreen : public ScreenApi {
 public:
  MOCK_METHOD(PixelSize, Size, (), (override));
  MOCK_METHOD(float, Width, (), (override));
  MOCK_METHOD(float, Height, (), (override));
  MOCK_METHOD(std::vector<Monitor>, Monitors, (), (override));
  MOCK_METHOD(float, TwipsPerPixelX, (), (override));
  MOCK_METHOD(float, TwipsPerPixelY, (), (override));
  MOCK_METHOD(PixelSize, DotsPerInch, (), (override));
};

class FakeConversions : public ConversionApi {
 public:
  MOCK_METHOD(std::string, LocaleName, (), (override));
  MOCK_METHOD(Converted<double>, ToDouble, (const ConversionValue&), (override));
  MOCK_METHOD(Converted<Date>, ToDate, (const ConversionValue&), (override));
  MOCK_METHOD(Converted<std::string>, ToText, (const ConversionValue&), (override));
  MOCK_METHOD(Converted<bool>, ToBoolean, (const ConversionValue&), (override));
  MOCK_METHOD(bool, IsNumeric, (const ConversionValue&), (override));
  MOCK_METHOD(bool, IsDate, (const ConversionValue&), (override));
  MOCK_METHOD(Converted<std::string>, Format, (const ConversionValue&, std::string_view, int, int),
              (override));
  MOCK_METHOD(Converted<Date>, DateAdd, (std::string_view, double, Date), (override));
  MOCK_METHOD(Converted<DateParts>, SplitDate, (Date), (override));
  MOCK_METHOD(Converted<int>, Weekday, (Date, int), (override));
  MOCK_METHOD(Converted<std::string>, MonthName, (int, bool), (override));
  MOCK_METHOD(Converted<std::string>, WeekdayName, (int, bool, int), (override));
  MOCK_METHOD(std::string, UpperCase, (std::string_view), (override));
  MOCK_METHOD(std::string, ToCodePage, (std::string_view), (override));
  MOCK_METHOD(std::string, FromCodePage, (std::string_view), (override));
  MOCK_METHOD(bool, IsDBCSLeadByte, (char), (override));
};

class FakePlatform : public Platform {
 public:
  DrawingApi& Drawing() override { return drawing; }
  WindowApi& Windows() override { return windows; }
  ClockApi& Clock() override { return clock; }
  ScreenApi& Screen() override { return screen; }
  ConversionApi& Conversions() override { return conversions; }

  ::testing::NiceMock<FakeDrawing> drawing;
  ::testing::NiceMock<FakeWindows> windows;
  ::testing::NiceMock<FakeClock> clock;
  ::testing::NiceMock<FakeScreen> screen;
  ::testing::NiceMock<FakeConversions> conversions;
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
  EXPECT_CALL(fake.conversions,
              Format(ConversionValue(1.5), std::string_view("0.00"), kSunday, kWeekOfJanuary1))
      .WillOnce(Return(Converted<std::string>("1.50")));
  ConversionApi& conversions = tracer.Conversions();
  EXPECT_EQ(conversions.Format(1.5, "0.00").value, "1.50");
  conversions.IsDate(std::string_view("today"));
  conversions.ToText(NullValue{});
  conversions.DateAdd("m", 1, Date{2.5});
  EXPECT_EQ(TakeLines(), (std::vector<std::string>{"Format(1.5, \"0.00\", 1, 1)", "IsDate(\"today\")",
                                                   "ToText(\"Null\")", "DateAdd(\"m\", 1, 2.5)"}));
}

TEST_F(TracingPlatformTest, PassesArgumentsAndResultsThrough) {
  EXPECT_CALL(fake.drawing, Rectangle(dc, PixelRect{0, 1, 80, 25})).WillOnce(Return(true));
  EXPECT_CALL(fake.windows, SendMessageA(window, kWmSetText, WParam{1}, LParam{-2})).WillOnce(Return(42));
  EXPECT_CALL(fake.clock, GetTickCount()).WillOnce(Return(1234u));
  EXPECT_CALL(fake.screen, TwipsPerPixelX()).WillOnce(Return(15.0f));

  EXPECT_TRUE(tracer.Drawing().Rectangle(dc, {0, 1, 80, 25}));
  EXPECT_EQ(tracer.Windows().SendMessageA(window, kWmSetText, 1, -2), 42);
  EXPECT_EQ(tracer.Clock().GetTickCount(), 1234u);
  EXPECT_EQ(tracer.Screen().TwipsPerPixelX(), 15.0f);
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
  EXPECT_CALL(fake.windows, GetFocus()).Times(3).WillRepeatedly(Return(window));
  other.Windows().GetFocus();
  other.Start();
  EXPECT_TRUE(other.active());
  other.Windows().GetFocus();
  other.Stop();
  EXPECT_EQ(other.Windows().GetFocus(), window);
  EXPECT_THAT(Names(other.TakeCalls()), ElementsAre("GetFocus"));
}

TEST_F(TracingPlatformTest, TextIsRecordedWithItsCountAndTheRectangleItWasGiven) {
  EXPECT_CALL(fake.drawing, DrawTextA(dc, "a\"b", _, kDtCalcRect))
      .WillOnce(DoAll(SetArgReferee<2>(PixelRect{0, 0, 8, 13}), Return(13)));
  PixelRect rect{1, 2, 3, 4};
  EXPECT_EQ(tracer.Drawing().DrawTextA(dc, "a\"b", rect, kDtCalcRect), 13);
  EXPECT_EQ(rect, (PixelRect{0, 0, 8, 13}));
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
  EXPECT_CALL(fake.windows, SendMessageA).WillOnce([this](auto, auto, auto, auto) {
    tracer.Drawing().LineTo(dc, {5, 6});
    return LResult{0};
  });
  tracer.Windows().SendMessageA(window, kWmPaint, 0, 0);
  tracer.Windows().EndPaint(window);
  EXPECT_THAT(TakeLines(), ElementsAre("SendMessageA(7, 15, 0, 0)", "LineTo(3, 5, 6)", "EndPaint(7)"));
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
  EXPECT_CALL(fake.clock, SetTimer(100, _))
      .WillOnce(DoAll(::testing::SaveArg<1>(&given), Return(TimerHandle{5})));
  bool ticked = false;
  EXPECT_EQ(tracer.Clock().SetTimer(100, [&ticked] { ticked = true; }), TimerHandle{5});
  given();
  EXPECT_TRUE(ticked);
  EXPECT_THAT(TakeLines(), ElementsAre("SetTimer(100)"));
}

TEST_F(TracingPlatformTest, ResultsThroughReferencesReachTheCaller) {
  EXPECT_CALL(fake.windows, GetCursorPos).WillOnce(DoAll(SetArgReferee<0>(PixelPoint{8, 9}), Return(true)));
  PixelPoint point;
  EXPECT_TRUE(tracer.Windows().GetCursorPos(point));
  EXPECT_EQ(point, (PixelPoint{8, 9}));
  EXPECT_THAT(TakeLines(), ElementsAre("GetCursorPos()"));
}

}  // namespace
}  // namespace levelwidgets
