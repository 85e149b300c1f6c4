// The desktop as a whole: platform and driver together.
#include <levelwidgets/platform/memory/desktop_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;

TEST_F(DesktopTest, StartsOnAFixedDay) {
  EXPECT_EQ(desktop.Clock().Now(), kStandardNow);
  desktop.SetNow(Date{100.5});
  EXPECT_EQ(desktop.Clock().Now(), Date{100.5});
}

TEST_F(DesktopTest, TheScreenIsAsTheOptionsSay) {
  Desktop oblong({.screen = {800, 600}, .dpi_x = 96, .dpi_y = 144});
  EXPECT_EQ(oblong.Screen().Size(), (PixelSize{800, 600}));
  EXPECT_EQ(oblong.Screen().TwipsPerPixelX(), 15.0F);
  EXPECT_EQ(oblong.Screen().TwipsPerPixelY(), 10.0F);
  EXPECT_EQ(oblong.Capture({0, 0, 800, 600}).size, (PixelSize{800, 600}));
  EXPECT_EQ(oblong.PixelAt({800, 0}), kInvalidColorRef);
}

TEST_F(DesktopTest, TheScreenHandsOutWholeTwipsToThePixel) {
  const std::map<int, float> twips_at = {{72, 20}, {96, 15}, {120, 12}, {144, 10}, {168, 9},  {192, 8},
                                         {216, 7}, {240, 6}, {264, 6},  {576, 3},  {1500, 1}, {5000, 1}};
  for (const auto& [dpi, twips] : twips_at) {
    Desktop one({.dpi_x = dpi, .dpi_y = 96});
    EXPECT_EQ(one.Screen().TwipsPerPixelX(), twips) << dpi;
    EXPECT_EQ(one.Screen().TwipsPerPixelY(), 15.0F) << dpi;
  }
}

TEST_F(DesktopTest, TheCodePageIsThatOfTheLocaleUnlessItIsGiven) {
  const std::map<std::string, int> code_pages = {
      {"en-US", 1252}, {"sv-SE", 1252}, {"JA-jp", 932}, {"xx", 1252}};
  for (const auto& [locale, number] : code_pages) {
    Desktop one({.locale = locale});
    EXPECT_EQ(one.Drawing().CodePage().Number(), number) << locale;
  }
  Desktop japanese({.locale = "ja-JP", .code_page = 1252});
  EXPECT_EQ(japanese.Conversions().ToCodePage("\u65E5"), "?");
  Desktop english({.code_page = 932});
  EXPECT_EQ(english.Conversions().ToCodePage("\u65E5"), "\x93\xFA");
}

TEST_F(DesktopTest, AllWindowsShareOneClipboard) {
  EXPECT_EQ(desktop.Clipboard(), "");
  desktop.SetClipboard("text");
  EXPECT_EQ(desktop.Clipboard(), "text");
}

TEST_F(DesktopTest, InputDoesAllThatItMakesPending) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  client.On(kWmLButtonDown, [&](WindowHandle window, WParam, LParam) -> LResult {
    windows.InvalidateRect(window);
    windows.PostMessageA(window, kWmChar, 'x', 0);
    desktop.Clock().Post([&] { log.push_back("posted"); });
    return 0;
  });
  desktop.MovePointer({10, 10});
  Begin();
  desktop.Press(kLeftButton);
  EXPECT_THAT(Take(), ElementsAre("form LButtonDown 1 10,10", "form Char 120", "posted", "form Paint"));
  EXPECT_TRUE(windows.PendingPaint(form).Empty());
}

TEST_F(DesktopTest, AdvancePaintsBetweenTicks) {
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  desktop.Clock().SetTimer(100, [&] {
    log.push_back("tick");
    windows.InvalidateRect(form);
  });
  Begin();
  desktop.Advance(250);
  EXPECT_THAT(Take(), ElementsAre("tick", "form Paint", "tick", "form Paint"));
  EXPECT_EQ(desktop.LiveTimers(), 1u);
}

TEST_F(DesktopTest, ATextCountsWhatLives) {
  EXPECT_EQ(desktop.LiveCounts(), "0 windows, 0 timers, 0 objects");
  MakeTop("form", {0, 0, 100, 100});
  MakeTop("other", {0, 0, 100, 100});
  desktop.Clock().SetTimer(100, [] {});
  desktop.Drawing().CreateSolidBrush({0});
  desktop.Drawing().CreateSolidBrush({0});
  desktop.Drawing().CreateSolidBrush({0});
  EXPECT_EQ(desktop.LiveCounts(), "2 windows, 1 timers, 3 objects");
}

// A panel that watches the active window closes when another program takes over.
TEST_F(DesktopTest, AWatchedPopupClosesWithinOneInterval) {
  MakeTop("form", {0, 0, 100, 100});
  const WindowHandle popup = MakeTop("popup", {10, 50, 60, 200});
  desktop.Clock().SetTimer(100, [&] {
    if (windows.GetActiveWindow() != popup) windows.ShowWindow(popup, kSwHide);
  });
  desktop.Advance(1000);
  EXPECT_TRUE(windows.IsWindowVisible(popup));
  desktop.Click({900, 700});
  EXPECT_TRUE(windows.IsWindowVisible(popup));
  desktop.Advance(100);
  EXPECT_FALSE(windows.IsWindowVisible(popup));
}

TEST_F(DesktopTest, TopLevelWindowsAreListedFrontToBack) {
  MakeTop("a", {0, 0, 100, 100});
  const WindowHandle b = MakeTop("b", {10, 10, 50, 50});
  MakeTop("hidden", {0, 0, 1, 1}, kWsPopup);
  const auto list = desktop.TopLevelWindows();
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].handle, b);
  EXPECT_EQ(list[0].title, "b");
  EXPECT_EQ(list[0].rect, (PixelRect{10, 10, 50, 50}));
  EXPECT_TRUE(list[0].active);
  EXPECT_FALSE(list[1].active);
  EXPECT_EQ(desktop.LiveWindows(), 3u);
}

class OutwardPlatform : public Platform {
 public:
  explicit OutwardPlatform(Desktop& desktop, WindowApi& windows) : desktop_(desktop), windows_(windows) {}
  DrawingApi& Drawing() override { return desktop_.Drawing(); }
  WindowApi& Windows() override { return windows_; }
  ClockApi& Clock() override { return desktop_.Clock(); }
  ScreenApi& Screen() override { return desktop_.Screen(); }
  ConversionApi& Conversions() override { return desktop_.Conversions(); }

 private:
  Desktop& desktop_;
  WindowApi& windows_;
};

WindowApi* handed_out;

LResult NotingProc(WindowApi& api, WindowHandle, std::uint32_t, WParam, LParam) {
  handed_out = &api;
  return 0;
}

TEST_F(DesktopTest, AWrappingPlatformIsHandedToWindowProcedures) {
  Desktop elsewhere;
  OutwardPlatform wrapper(desktop, elsewhere.Windows());
  desktop.SetOutwardPlatform(&wrapper);
  EXPECT_EQ(&desktop.GetPlatform(), &wrapper);
  const WindowHandle form = MakeTop("form", {0, 0, 100, 100});
  windows.SetWindowLongA(form, kGwlWndProc, reinterpret_cast<std::intptr_t>(&NotingProc));
  windows.SendMessageA(form, kWmCommand, 0, 0);
  EXPECT_EQ(handed_out, &elsewhere.Windows());
  desktop.SetOutwardPlatform(nullptr);
  EXPECT_EQ(&desktop.GetPlatform(), static_cast<Platform*>(&desktop));
  windows.SendMessageA(form, kWmCommand, 0, 0);
  EXPECT_EQ(handed_out, &windows);
}

TEST_F(DesktopTest, ConversionsFollowTheLocaleTheDateAndTheCodePage) {
  DesktopOptions options;
  options.locale = "de-DE";
  Desktop german(options);
  ConversionApi& conversions = german.Conversions();
  EXPECT_EQ(conversions.LocaleName(), "de-DE");
  EXPECT_EQ(conversions.Format(1234.5, "#,##0.00").value, "1.234,50");
  german.SetNow({36526});  // 1 January 2000
  EXPECT_EQ(conversions.Format(std::string_view("3.4."), "").value, "3.4.");
  EXPECT_EQ(conversions.Year(conversions.ToDate(std::string_view("3 April")).value).value, 2000);
  EXPECT_EQ(conversions.UpperCase("\u00E9\u0431"), "\u00C9\u0431")
      << "no Cyrillic capitals in code page 1252";
  EXPECT_EQ(desktop.Conversions().LocaleName(), "en-US");
}

}  // namespace
}  // namespace levelwidgets::memory
