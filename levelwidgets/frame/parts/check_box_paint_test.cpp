// CheckBox: what it draws in each state, on each resolution and in each palette.
#include <levelwidgets/frame/parts/check_box_fixture.h>
#include <levelwidgets/platform/system_colors.h>
#include <levelwidgets/testing/contrast.h>
#include <levelwidgets/testing/looks.h>
#include <levelwidgets/testing/other_screen.h>
#include <levelwidgets/testing/trace_text.h>

namespace levelwidgets::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr PixelPoint kLine{0, 2};  // the left top corner of the box
constexpr PixelPoint kMark{5, 10};

std::string Written(const std::string& call, const PixelRect& rect) {
  return call + " " + std::to_string(rect.left) + " " + std::to_string(rect.top) + " " +
         std::to_string(rect.right) + " " + std::to_string(rect.bottom);
}

class CheckBoxPaintTest : public CheckBoxTest {
 protected:
  // Without the call that measures the caption.
  Journal Painted() {
    CheckBox& box = Box();
    Driver().Settle();
    Journal calls = DrawingCallsOf(box, [&] { box.OnPaint(); });
    std::erase_if(calls, [](const std::string& call) { return call.ends_with(" 1056"); });
    return calls;
  }
  std::string TextColor(Color color) { return "SetTextColor " + std::to_string(Concrete(color).value); }
  // Where a caption that has room is.
  PixelRect TextRect() {
    PixelRect extent;
    Drawing().DrawTextA(Box().GetSurface().hDC(), Box().Caption(), extent, kDtSingleLine | kDtCalcRect);
    const int top = (kHeight - extent.height()) / 2;
    return {19, top, 19 + extent.width(), top + extent.height()};
  }
  std::string Text() { return Written("DrawTextA " + Box().Caption() + " -1", TextRect()) + " 32"; }
  // "x top-bottom" of each column of the mark, the bottom excluded.
  Journal Mark() {
    CheckBox& box = Box();
    Journal columns;
    for (const TracedCall& call : CallsNamed({"MoveTo", "LineTo"}, [&] { box.OnPaint(); })) {
      const std::string x = ArgumentText(call.arguments[1]), y = ArgumentText(call.arguments[2]);
      if (call.name == "MoveTo") {
        columns.push_back(x + " " + y);
      } else {
        EXPECT_EQ(columns.back().substr(0, columns.back().find(' ')), x);
        columns.back() += "-" + y;
      }
    }
    return columns;
  }
};

// --- States --------------------------------------------------------------------------------------------

TEST_F(CheckBoxPaintTest, APaintClearsThenDrawsTheBoxInTheMiddleThenTheCaption) {
  EXPECT_THAT(Painted(),
              ElementsAre("FillRect 0 0 80 17", "Rectangle 0 2 13 15", TextColor(kButtonText), Text()));
  EXPECT_THAT(Mark(), IsEmpty());
}

TEST_F(CheckBoxPaintTest, TheMarkGoesDownAndUpThreePixelsThick) {
  Box().SetValue(CheckBox::kChecked);
  EXPECT_THAT(Mark(), ElementsAre("3 7-10", "4 8-11", "5 9-12", "6 8-11", "7 7-10", "8 6-9", "9 5-8"));
}

TEST_F(CheckBoxPaintTest, TheFocusIsADottedFrameAroundTheCaption) {
  Box().OnEnterFocus();
  const PixelRect text = TextRect();
  const PixelRect frame{17, std::max(0, text.top - 1), text.right + 2, std::min(kHeight, text.bottom + 1)};
  EXPECT_THAT(Painted(), ElementsAre("FillRect 0 0 80 17", "Rectangle 0 2 13 15",
                                     Written("DrawFocusRect", frame), TextColor(kButtonText), Text()));
}

TEST_F(CheckBoxPaintTest, WithoutACaptionTheFocusIsInTheBox) {
  Box().SetCaption("");
  Box().OnEnterFocus();
  EXPECT_THAT(Painted(), Contains("DrawFocusRect 2 4 11 13"));
}

TEST_F(CheckBoxPaintTest, ALongCaptionEndsWithItsFocusFrameAtTheRightEdge) {
  Box().SetCaption("Much longer than there is room for");
  Box().OnEnterFocus();
  PixelRect text = TextRect();
  text.right = kWidth;
  const PixelRect frame{17, std::max(0, text.top - 1), kWidth, std::min(kHeight, text.bottom + 1)};
  const Journal painted = Painted();
  EXPECT_THAT(painted, Contains(Written("DrawFocusRect", frame)));
  EXPECT_THAT(painted, Contains(Written("DrawTextA Much longer than there is room for -1", text) + " 32"));
}

TEST_F(CheckBoxPaintTest, ACheckedBoxShowsItsLineItsFillAndItsMark) {
  Box().SetValue(CheckBox::kChecked);
  EXPECT_EQ(PixelAt(Box(), kLine), Concrete(kWindowFrame));
  EXPECT_EQ(PixelAt(Box(), {12, 14}), Concrete(kWindowFrame));
  EXPECT_EQ(PixelAt(Box(), kFill), Concrete(kWindowBack));
  EXPECT_EQ(PixelAt(Box(), kMark), Concrete(kWindowText));
  EXPECT_EQ(PixelAt(Box(), {13, 8}), Concrete(kButtonFace));
  Box().SetValue(CheckBox::kUnchecked);
  EXPECT_EQ(PixelAt(Box(), kMark), Concrete(kWindowBack));
}

TEST_F(CheckBoxPaintTest, ADisabledBoxIsGreyOnItsBackground) {
  Box().SetValue(CheckBox::kChecked);
  Box().SetBackColor(Color(0x00D0E0F0));
  Box().SetEnabled(false);
  EXPECT_EQ(PixelAt(Box(), kLine), Concrete(kGrayText));
  EXPECT_EQ(PixelAt(Box(), kFill), ColorRef{0x00D0E0F0});
  EXPECT_EQ(PixelAt(Box(), kMark), Concrete(kGrayText));
  EXPECT_THAT(Painted(), Contains(TextColor(kGrayText)));
}

TEST_F(CheckBoxPaintTest, ADisabledBoxDoesNotShowThePointer) {
  MoveTo(5, 5);
  Box().SetEnabled(false);
  EXPECT_EQ(FillOf(Box()), Concrete(kButtonFace));
}

TEST_F(CheckBoxPaintTest, ThePointerMixesAFifthOfTheHighlightInAndAPressTwo) {
  const auto mixed = [this](std::uint32_t share) {
    const std::uint32_t back = Concrete(kWindowBack).value, highlight = Concrete(kHighlight).value;
    ColorRef result{};
    for (const int shift : {0, 8, 16}) {
      const std::uint32_t channel =
          ((back >> shift & 0xFF) * (5 - share) + (highlight >> shift & 0xFF) * share) / 5;
      result.value |= channel << shift;
    }
    return result;
  };
  MoveTo(5, 5);
  EXPECT_EQ(FillOf(Box()), mixed(1));
  Driver().Press(kLeftButton);
  EXPECT_EQ(FillOf(Box()), mixed(2));
}

TEST_F(CheckBoxPaintTest, TheColoursOfTheCaptionAreItsOwn) {
  Box().SetBackColor(Color(0x00203040));
  Box().SetForeColor(Color(0x00A0B0C0));
  EXPECT_EQ(PixelAt(Box(), {15, 8}), ColorRef{0x00203040});
  EXPECT_THAT(Painted(), Contains("SetTextColor " + std::to_string(0x00A0B0C0)));
  EXPECT_EQ(PixelAt(Box(), kFill), Concrete(kWindowBack));
}

TEST_F(CheckBoxPaintTest, ABoxThatIsHigherThanTheControlIsCutAtBothEdges) {
  Hosted(Box()).SetHeight(Twips(105));
  EXPECT_THAT(Painted(), Contains("Rectangle 0 -3 13 10"));
}

TEST_F(CheckBoxPaintTest, TheFocusFrameStaysInAControlThatIsLowerThanItsCaption) {
  Hosted(Box()).SetHeight(Twips(105));
  Box().OnEnterFocus();
  EXPECT_THAT(Painted(), Contains(Written("DrawFocusRect", {17, 0, TextRect().right + 2, 7})));
}

TEST_F(CheckBoxPaintTest, AControlOfNoSizePaintsWithoutAnError) {
  Box().SetValue(CheckBox::kChecked);
  Hosted(Box()).Move({}, {});
  EXPECT_THAT(Painted(), Contains("FillRect 0 0 0 0"));
}

TEST_F(CheckBoxPaintTest, APaintLeavesNoDrawingObjectBehind) {
  Box().SetValue(CheckBox::kChecked);
  MoveTo(5, 5);
  Driver().Settle();
  const std::size_t before = Driver().LiveObjects();
  for (int i = 0; i < 5; ++i) Box().OnPaint();
  EXPECT_EQ(Driver().LiveObjects(), before);
}

// --- Resolutions ---------------------------------------------------------------------------------------

struct Resolution {
  PixelSize dots_per_inch;
  PixelRect box;  // in a control of 255 twips
  int text_left;
};

void PrintTo(const Resolution& resolution, std::ostream* out) {
  *out << resolution.dots_per_inch.width << " by " << resolution.dots_per_inch.height;
}

// By the pixels that the screen says it has.
class CheckBoxResolutionTest : public CheckBoxPaintTest, public ::testing::WithParamInterface<Resolution> {
 protected:
  Platform& FormPlatform() override {
    if (!platform_) {
      platform_ = std::make_unique<PlatformWithScreen>(
          Tracer(), OtherScreen(Tracer().Screen().Monitors(), GetParam().dots_per_inch));
    }
    return *platform_;
  }

 private:
  std::unique_ptr<PlatformWithScreen> platform_;
};

TEST_P(CheckBoxResolutionTest, TheBoxIsAsLongOnEveryScreen) {
  EXPECT_THAT(Painted(), Contains(Written("Rectangle", GetParam().box)));
}

TEST_P(CheckBoxResolutionTest, TheCaptionIsAsFarFromTheBoxOnEveryScreen) {
  const std::string start = "DrawTextA &Save -1 " + std::to_string(GetParam().text_left) + " ";
  EXPECT_THAT(Painted(), Contains(::testing::StartsWith(start)));
}

TEST_P(CheckBoxResolutionTest, TheMarkStaysInsideTheLine) {
  Box().SetValue(CheckBox::kChecked);
  const PixelRect inside = GetParam().box.Inset(1);
  const Journal columns = Mark();
  ASSERT_GE(columns.size(), 2u);
  for (const std::string& column : columns) {
    int x = 0, top = 0, bottom = 0;
    ASSERT_EQ(std::sscanf(column.c_str(), "%d %d-%d", &x, &top, &bottom), 3) << column;
    EXPECT_LT(top, bottom) << column;
    EXPECT_TRUE(inside.Contains({x, top})) << column;
    EXPECT_TRUE(inside.Contains({x, bottom - 1})) << column;
  }
}

TEST_P(CheckBoxResolutionTest, ThePointerPressesUpToTheLastPixelAndNotBeyond) {
  const PixelRect client = Box().GetSurface().ClientPixels();
  MoveTo(client.right - 1, client.bottom - 1);
  const ColorRef inside = PixelAt(Box(), {1, GetParam().box.top + 1});
  Driver().Press(kLeftButton);
  const ColorRef pressed = PixelAt(Box(), {1, GetParam().box.top + 1});
  EXPECT_NE(pressed, inside);
  MoveTo(client.right - 1, client.bottom);
  EXPECT_NE(PixelAt(Box(), {1, GetParam().box.top + 1}), pressed);
  MoveTo(client.right, client.bottom - 1);
  EXPECT_NE(PixelAt(Box(), {1, GetParam().box.top + 1}), pressed);
  MoveTo(client.right - 1, client.bottom - 1);
  Driver().Release(kLeftButton);
  EXPECT_EQ(Box().Value(), CheckBox::kChecked);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, CheckBoxResolutionTest,
    ::testing::Values(Resolution{{96, 96}, {0, 2, 13, 15}, 19}, Resolution{{120, 120}, {0, 2, 16, 18}, 23},
                      Resolution{{144, 144}, {0, 3, 19, 22}, 28}, Resolution{{192, 192}, {0, 5, 24, 29}, 35},
                      Resolution{{96, 72}, {0, 1, 13, 10}, 19}, Resolution{{72, 96}, {0, 2, 9, 15}, 13},
                      Resolution{{48, 48}, {0, 1, 6, 7}, 9}));

class CoarseCheckBoxTest : public CheckBoxResolutionTest {};

TEST_P(CoarseCheckBoxTest, AMarkWithoutRoomForItsPointsIsDrawnNevertheless) {
  Box().SetValue(CheckBox::kChecked);
  EXPECT_THAT(Painted(), Contains(Written("Rectangle", GetParam().box)));
  EXPECT_EQ(Mark().size(), static_cast<std::size_t>(GetParam().box.width() / 2 + 1));
  for (const std::string& column : Mark()) {
    int x = 0, top = 0, bottom = 0;
    ASSERT_EQ(std::sscanf(column.c_str(), "%d %d-%d", &x, &top, &bottom), 3) << column;
    EXPECT_LT(top, bottom) << column;
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, CoarseCheckBoxTest,
                         ::testing::Values(Resolution{{37, 37}, {0, 0, 5, 5}, 7},
                                           Resolution{{10, 10}, {0, 0, 1, 1}, 1}));

// --- Palettes ------------------------------------------------------------------------------------------

class CheckBoxPaletteTest : public CheckBoxPaintTest, public ::testing::WithParamInterface<std::string_view> {
 protected:
  std::shared_ptr<DesktopDriver> MakeDriver() override {
    return TestDriverOf({.palette = std::string(GetParam())});
  }
  // The colours of a user on Windows are that user's: there only differences can be expected.
  static double AtLeast(double contrast) { return GetParam().empty() ? 1.1 : contrast; }
  double MarkOnFill() { return Contrast(PixelAt(Box(), kMark), FillOf(Box())); }
};

TEST_P(CheckBoxPaletteTest, TheMarkCanBeReadInEveryStateAndEachStateLooksDifferent) {
  Box().SetValue(CheckBox::kChecked);
  std::vector<ColorRef> fills{FillOf(Box())};
  EXPECT_GE(MarkOnFill(), AtLeast(4.5));
  MoveTo(6, 6);
  fills.push_back(FillOf(Box()));
  EXPECT_GE(MarkOnFill(), AtLeast(4.5));
  Driver().Press(kLeftButton);
  fills.push_back(FillOf(Box()));
  EXPECT_GE(MarkOnFill(), AtLeast(4.5));
  for (std::size_t i = 0; i < fills.size(); ++i) {
    EXPECT_GE(Contrast(fills[i], fills[(i + 1) % fills.size()]), 1.1) << i;
  }
}

TEST_P(CheckBoxPaletteTest, TheLineAndTheCaptionStandOutFromTheForm) {
  EXPECT_GE(Contrast(PixelAt(Box(), kLine), Concrete(kButtonFace)), AtLeast(3));
  EXPECT_GE(Contrast(Concrete(Box().ForeColor()), PixelAt(Box(), {15, 8})), AtLeast(4.5));
}

TEST_P(CheckBoxPaletteTest, ADisabledCheckBoxCanStillBeReadAndLooksDifferent) {
  Box().SetValue(CheckBox::kChecked);
  const ColorRef line = PixelAt(Box(), kLine);
  Box().SetEnabled(false);
  EXPECT_GE(MarkOnFill(), AtLeast(2.5));
  EXPECT_NE(PixelAt(Box(), kLine), line);
  EXPECT_EQ(FillOf(Box()), Concrete(kButtonFace));
}

INSTANTIATE_TEST_SUITE_P(Palettes, CheckBoxPaletteTest, ::testing::ValuesIn(TestPalettes()));

}  // namespace
}  // namespace levelwidgets::testing
