// FlatTabStrip: what it draws, in which order, and what can be seen of it.
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/trace_text.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// 4500 by 3000 twips at 15 twips per pixel.
constexpr int kWidth = 300;
constexpr int kHeight = 200;

constexpr ColorRef kSelected{0x00EFF7F7};
constexpr ColorRef kInactive{0x00CEDBDE};
constexpr ColorRef kBorder{0x008C969C};

std::string Number(int number) { return std::to_string(number); }

class FlatTabStripPaintTest : public DesktopTest {
 protected:
  // Three tabs, "One" to "Three", of 96 pixels.
  FlatTabStrip& Strip() {
    if (!strip_) {
      TheForm().SetBackColor(Color(0x00F2F7F9));
      AddNew<FlatTabStrip>("tabFirst", {Twips(0), Twips(3900)});  // takes the focus
      strip_ = &AddNew<FlatTabStrip>("tabMain", {Twips(600), Twips(300)}, {Twips(4500), Twips(3000)});
      strip_->SetTabCount(3);
      strip_->SetTabCaption(1, "One");
      strip_->SetTabCaption(2, "Two");
      strip_->SetTabCaption(3, "Three");
      Driver().Settle();
    }
    return *strip_;
  }

  // A line of the surface's font and four pixels.
  int Band() {
    PixelRect rect{0, 0, kWidth, kHeight};
    return Drawing().DrawTextA(Strip().GetSurface().hDC(), "abcABC", rect, kDtCenter | kDtCalcRect) + 4;
  }

  // Drawing calls without their handles; those on the control's own context are marked "to the surface".
  template <typename Action>
  Journal CallsOf(Action action) {
    static constexpr std::string_view kNames[] = {
        "SetTextColor", "FillRect",           "Rectangle",
        "SetBkColor",   "DrawTextA",          "DrawFocusRect",
        "BitBlt",       "CreateCompatibleDC", "CreateCompatibleBitmap",
        "CreateFontA"};
    const std::int64_t surface = Strip().GetSurface().hDC().value;
    Tracer().Start();
    Tracer().TakeCalls();
    action();
    Journal journal;
    for (const TracedCall& call : Tracer().TakeCalls()) {
      if (std::ranges::find(kNames, call.name) == std::end(kNames)) continue;
      std::string entry = call.name;
      const bool has_context = call.name != "CreateFontA";
      // The brush of a fill and the source of a copy are handles, too.
      const std::size_t count = call.arguments.size() - (call.name == "FillRect" ? 1 : 0);
      for (std::size_t i = has_context ? 1 : 0; i < count; ++i) {
        if (call.name == "BitBlt" && i == 5) continue;
        entry += " " + ArgumentText(call.arguments[i]);
      }
      if (has_context && call.arguments[0] == TraceArgument(surface)) entry += " to the surface";
      journal.push_back(entry);
    }
    return journal;
  }
  Journal Painted() {
    return CallsOf([&] { Strip().OnPaint(); });
  }

  std::string TextColor() { return "SetTextColor " + std::to_string(Concrete(Strip().ForeColor()).value); }
  static std::string BackColor(ColorRef color) { return "SetBkColor " + std::to_string(color.value); }
  static std::string Rect(const char* call, PixelRect rect) {
    return std::string(call) + " " + Number(rect.left) + " " + Number(rect.top) + " " + Number(rect.right) +
           " " + Number(rect.bottom);
  }
  static std::string Caption(const std::string& text, PixelRect rect) {
    return Rect(("DrawTextA " + text + " -1").c_str(), rect) + " 37";
  }

 private:
  FlatTabStrip* strip_ = nullptr;
};

constexpr char kCopy[] = "BitBlt 0 0 300 200 0 0 13369376 to the surface";

// --- Sequences -----------------------------------------------------------------------------------------

TEST_F(FlatTabStripPaintTest, DrawsFrameAndTabsOffTheScreenAndCopiesOnce) {
  Strip().SetSelectedTab(2);
  const int band = Band();
  EXPECT_THAT(Painted(),
              ElementsAre(TextColor(), "FillRect 0 0 300 200", Rect("Rectangle", {0, band - 1, 300, 200}),
                          Rect("Rectangle", {0, 0, 96, band}), BackColor(kInactive),
                          Rect("FillRect", {1, 1, 95, band - 1}), Caption("One", {1, 1, 95, band - 1}),
                          Rect("Rectangle", {101, 0, 197, band}), BackColor(kSelected),
                          Rect("FillRect", {102, 1, 196, band}), Caption("Two", {102, 1, 196, band}),
                          Rect("Rectangle", {202, 0, 298, band}), BackColor(kInactive),
                          Rect("FillRect", {203, 1, 297, band - 1}),
                          Caption("Three", {203, 1, 297, band - 1}), kCopy));
}

TEST_F(FlatTabStripPaintTest, TabsAtTheBottomHangFromTheFrame) {
  FlatTabStrip& strip = Strip();
  strip.SetTabCount(2);
  strip.SetSelectedTab(1);
  strip.SetOrientation(ksxTabOrientationBottom);
  const int top = kHeight - Band();
  EXPECT_THAT(Painted(),
              ElementsAre(TextColor(), "FillRect 0 0 300 200", Rect("Rectangle", {0, 0, 300, top + 1}),
                          Rect("Rectangle", {0, top, 96, 200}), BackColor(kSelected),
                          Rect("FillRect", {1, top, 95, 199}), Caption("One", {1, top, 95, 199}),
                          Rect("Rectangle", {101, top, 197, 200}), BackColor(kInactive),
                          Rect("FillRect", {102, top + 1, 196, 199}),
                          Caption("Two", {102, top + 1, 196, 199}), kCopy));
}

TEST_F(FlatTabStripPaintTest, AnyOrientationButZeroIsTheBottom) {
  Strip().SetOrientation(static_cast<ksxTabOrientationConstants>(-7));
  EXPECT_EQ(Painted().at(2), Rect("Rectangle", {0, 0, 300, kHeight - Band() + 1}));
}

TEST_F(FlatTabStripPaintTest, TheFocusFrameSurroundsTheSelectedTabsCaption) {
  FlatTabStrip& strip = Strip();
  strip.SetTabCount(1);
  strip.SetTabCaption(1, "&One");
  strip.SetSelectedTab(1);
  strip.OnEnterFocus();
  const Journal calls = Painted();
  ASSERT_EQ(calls.size(), 9u);
  const std::string& frame = calls[7];
  // The ampersand, though not drawn, is measured.
  int left = 0, top = 0, right = 0, bottom = 0;
  ASSERT_EQ(std::sscanf(frame.c_str(), "DrawFocusRect %d %d %d %d", &left, &top, &right, &bottom), 4)
      << frame;
  EXPECT_EQ(top, 2);
  EXPECT_EQ(bottom, Band());
  EXPECT_NEAR(left + right, 96, 1);
  strip.SetTabCaption(1, "One");
  EXPECT_NE(Painted().at(7), frame) << "narrower";
}

TEST_F(FlatTabStripPaintTest, ThereIsNoFocusFrameWithoutFocusSelectionOrCaption) {
  FlatTabStrip& strip = Strip();
  const auto has_frame = [this] {
    for (const std::string& call : Painted()) {
      if (call.starts_with("DrawFocusRect")) return true;
    }
    return false;
  };
  strip.OnEnterFocus();
  EXPECT_FALSE(has_frame()) << "nothing is selected";
  strip.SetSelectedTab(2);
  EXPECT_TRUE(has_frame());
  strip.SetTabCaption(2, "");
  EXPECT_FALSE(has_frame()) << "an empty caption";
  strip.SetTabCaption(2, "Two");
  strip.OnExitFocus();
  EXPECT_FALSE(has_frame()) << "no focus";
}

TEST_F(FlatTabStripPaintTest, AnEmptyCaptionIsStillDrawn) {
  Strip().SetTabCount(1);
  Strip().SetTabCaption(1, "");
  EXPECT_EQ(Painted().at(6), Caption("", {1, 1, 95, Band() - 1}));
}

TEST_F(FlatTabStripPaintTest, TheSecondTabBeginsAtPixel101) {
  EXPECT_EQ(Painted().at(7), Rect("Rectangle", {101, 0, 197, Band()}));
}

TEST_F(FlatTabStripPaintTest, OnlyTabsThatCanBeSeenAreDrawn) {
  FlatTabStrip& strip = Strip();
  strip.SetTabCount(30000);
  // The fourth would begin at 303.
  EXPECT_EQ(Painted().size(), 3u + 3 * 4 + 1);
  strip.SetTabWidth(Twips(-1440));
  EXPECT_EQ(Painted().size(), 3u + 1 * 4 + 1);
  strip.SetTabCount(0);
  EXPECT_THAT(Painted(), ElementsAre(TextColor(), "FillRect 0 0 300 200",
                                     Rect("Rectangle", {0, Band() - 1, 300, 200}), kCopy));
}

TEST_F(FlatTabStripPaintTest, ATabThatIsPartlyVisibleIsDrawnAsAWhole) {
  Strip().SetTabWidth(Twips(3000));
  EXPECT_EQ(Painted().at(7), Rect("Rectangle", {205, 0, 405, Band()}));
}

TEST_F(FlatTabStripPaintTest, AnUntranslatableColourReachesTheDrawingCallsAsMinusOne) {
  Strip().SetForeColor(Color(0x80000100));
  EXPECT_EQ(Painted().at(0), "SetTextColor 4294967295");
  Strip().SetInactiveTabColor(Color(0x80000100));
  EXPECT_EQ(Painted().at(4), "SetBkColor 4294967295");
}

// --- Resize and Font -----------------------------------------------------------------------------------

TEST_F(FlatTabStripPaintTest, AResizeMakesTheContextAnewAndRepaints) {
  FlatTabStrip& strip = Strip();
  const std::size_t objects = Driver().LiveObjects();
  strip.SetTabCount(0);
  const Journal calls = CallsOf([&] {
    Hosted(strip).Move({Twips(600), Twips(300)}, {Twips(322.5f), Twips(337.5f)});
  });
  ASSERT_GE(calls.size(), 6u);
  EXPECT_EQ(calls[0], "CreateCompatibleDC to the surface");
  // 322.5 rounds to 322, 337.5 to 338; then whole pixels.
  EXPECT_EQ(calls[1], "CreateCompatibleBitmap 21 22 to the surface");
  EXPECT_EQ(calls[2], TextColor());
  EXPECT_EQ(calls[3], "FillRect 0 0 21 22");
  EXPECT_EQ(calls[5], "BitBlt 0 0 21 22 0 0 13369376 to the surface");
  EXPECT_EQ(Driver().LiveObjects(), objects);
}

TEST_F(FlatTabStripPaintTest, ASurfaceOfNoSizePaintsWithoutErrorAndWithoutTabs) {
  Hosted(Strip()).Move({Twips(0), Twips(0)}, {Twips(0), Twips(0)});
  EXPECT_THAT(Painted(),
              ElementsAre(TextColor(), "FillRect 0 0 0 0", Rect("Rectangle", {0, Band() - 1, 0, 0}),
                          "BitBlt 0 0 0 0 0 0 13369376 to the surface"));
}

TEST_F(FlatTabStripPaintTest, FontMeasuresOnTheSurfaceThenCreatesTheCaptionsFontThenRepaints) {
  FlatTabStrip& strip = Strip();
  strip.SetTabCount(0);
  FontDescription font{.name = "Tahoma", .size = 12.5, .bold = true, .italic = true, .underline = true};
  font.strikethrough = true;
  font.charset = 204;
  const std::size_t objects = Driver().LiveObjects();
  const Journal calls = CallsOf([&] { strip.SetFont(MakeFont(font)); });
  ASSERT_EQ(calls.size(), 7u);
  EXPECT_TRUE(calls[0].starts_with("CreateFontA -17 ")) << "the surface's own: " << calls[0];
  EXPECT_EQ(calls[1], "DrawTextA abcABC -1 0 0 300 200 1 to the surface");
  // 12.5 points are 12 as a whole number: a cell of 12 * 96 / 72 pixels.
  EXPECT_EQ(calls[2], "CreateFontA 16 0 0 0 700 1 1 1 204 4 0 0 0 Tahoma");
  EXPECT_EQ(calls[3], TextColor());
  EXPECT_EQ(calls[6], kCopy);
  EXPECT_EQ(Driver().LiveObjects(), objects);
}

TEST_F(FlatTabStripPaintTest, ALargerFontMakesTheBandHigher) {
  FlatTabStrip& strip = Strip();
  const int before = Band();
  strip.SetFont(MakeFont({.name = "Tahoma", .size = 24}));
  EXPECT_GT(Band(), before + 10);
  EXPECT_EQ(Painted().at(2), Rect("Rectangle", {0, Band() - 1, 300, 200}));
}

TEST_F(FlatTabStripPaintTest, AChangeInsideTheFontShowsWithTheNextFontWrite) {
  FlatTabStrip& strip = Strip();
  const FontRef font = MakeFont();
  strip.SetFont(font);
  const Journal before = Painted();
  font->SetDescription({.name = "Tahoma", .size = 24});
  EXPECT_EQ(Painted(), before);
  strip.SetFont(font);
  EXPECT_NE(Painted(), before);
}

TEST_F(FlatTabStripPaintTest, FontsOfAnySizeAreTaken) {
  FlatTabStrip& strip = Strip();
#ifdef _WIN32
  constexpr double kLargest = 200;  // the system takes its time with glyphs that fill memory
#else
  constexpr double kLargest = 1e9;
#endif
  for (const double size : {0.0, 0.4, kLargest}) {
    strip.SetFont(MakeFont({.name = "Tahoma", .size = size}));
    EXPECT_EQ(strip.GetFont()->Description().size, size);
  }
  strip.SetFont(nullptr);
  EXPECT_EQ(Painted().back(), kCopy);
}

// --- Pixels --------------------------------------------------------------------------------------------

class FlatTabStripPixelTest : public FlatTabStripPaintTest {
 protected:
  FlatTabStrip& Blank(std::int16_t selected) {
    FlatTabStrip& strip = Strip();
    for (std::int16_t tab = 1; tab <= 3; ++tab) strip.SetTabCaption(tab, "");
    strip.SetSelectedTab(selected);
    return strip;
  }
};

TEST_F(FlatTabStripPixelTest, TheSelectedTabIsOpenToThePage) {
  FlatTabStrip& strip = Blank(2);
  const int line = Band() - 1;
  const ColorRef behind{0x00F2F7F9};
  EXPECT_EQ(PixelAt(strip, {0, 0}), kBorder);
  EXPECT_EQ(PixelAt(strip, {95, 5}), kBorder);
  EXPECT_EQ(PixelAt(strip, {1, 1}), kInactive);
  EXPECT_EQ(PixelAt(strip, {96, 5}), behind);
  EXPECT_EQ(PixelAt(strip, {100, 5}), behind);
  EXPECT_EQ(PixelAt(strip, {101, 5}), kBorder);
  EXPECT_EQ(PixelAt(strip, {102, 1}), kSelected);
  EXPECT_EQ(PixelAt(strip, {50, line}), kBorder) << "closed";
  EXPECT_EQ(PixelAt(strip, {150, line}), kSelected) << "open";
  EXPECT_EQ(PixelAt(strip, {98, line}), kBorder) << "the frame between the tabs";
  EXPECT_EQ(PixelAt(strip, {150, line + 20}), kSelected);
  EXPECT_EQ(PixelAt(strip, {kWidth - 1, kHeight - 1}), kBorder);
  EXPECT_EQ(PixelAt(strip, {kWidth, 50}), Concrete(TheForm().BackColor()));
}

TEST_F(FlatTabStripPixelTest, TabsAtTheBottomAreOpenAtTheirTop) {
  FlatTabStrip& strip = Blank(1);
  strip.SetOrientation(ksxTabOrientationBottom);
  const int line = kHeight - Band();
  EXPECT_EQ(PixelAt(strip, {50, line}), kSelected);
  EXPECT_EQ(PixelAt(strip, {150, line}), kBorder);
  EXPECT_EQ(PixelAt(strip, {150, line + 1}), kInactive);
  EXPECT_EQ(PixelAt(strip, {50, kHeight - 1}), kBorder);
  EXPECT_EQ(PixelAt(strip, {99, kHeight - 1}), ColorRef{0x00F2F7F9});
}

TEST_F(FlatTabStripPixelTest, EachColourShowsAtOnce) {
  FlatTabStrip& strip = Blank(1);
  strip.SetBackColor(Color(0x00000001));
  strip.SetTabColor(Color(0x00000002));
  strip.SetInactiveTabColor(Color(0x00000003));
  strip.SetBorderColor(Color(0x00000004));
  EXPECT_EQ(PixelAt(strip, {98, 5}), ColorRef{1});
  EXPECT_EQ(PixelAt(strip, {50, 5}), ColorRef{2});
  EXPECT_EQ(PixelAt(strip, {150, kHeight / 2}), ColorRef{2}) << "the page";
  EXPECT_EQ(PixelAt(strip, {150, 5}), ColorRef{3});
  EXPECT_EQ(PixelAt(strip, {0, 5}), ColorRef{4});
  strip.SetBackColor(Color(0x8000000D));
  EXPECT_EQ(PixelAt(strip, {98, 5}), Drawing().GetSysColor(kColorHighlight));
}

TEST_F(FlatTabStripPixelTest, ACaptionIsDrawnInForeColorInsideItsTab) {
  FlatTabStrip& strip = Blank(1);
  strip.SetForeColor(Color(0x000000FF));
  strip.SetTabCaption(2, std::string(100, 'W'));
  int red = 0;
  for (int x = 102; x < 196; ++x) red += PixelAt(strip, {x, Band() / 2}).red() > 0xE0 ? 1 : 0;
  EXPECT_GT(red, 10);
  for (int y = 1; y < Band() - 1; ++y) {
    ASSERT_EQ(PixelAt(strip, {98, y}), ColorRef{0x00F2F7F9}) << y;
    ASSERT_EQ(PixelAt(strip, {199, y}), ColorRef{0x00F2F7F9}) << y;
  }
}

}  // namespace
}  // namespace levelwidgets::testing
