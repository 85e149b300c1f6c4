#include <gtest/gtest.h>

#include <levelwidgets/platform/win32/test_desktop.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::win32 {
namespace {

constexpr ColorRef kRed{0x0000FF};
constexpr ColorRef kBlue{0xFF0000};
constexpr ColorRef kWhite{0xFFFFFF};

class Win32DrawingTest : public ::testing::Test, protected TestDesktop {
 protected:
  Win32DrawingTest() {
    const DcHandle screen_compatible{};
    dc = drawing.CreateCompatibleDC(screen_compatible);
    const WindowHandle form = MakeForm(client);
    bitmap = drawing.CreateCompatibleBitmap(windows.GetDC(form), {40, 30});
    former = drawing.SelectObject(dc, bitmap);
    brush = drawing.CreateSolidBrush(kWhite);
    drawing.FillRect(dc, {0, 0, 40, 30}, brush);
  }
  ~Win32DrawingTest() override {
    drawing.SelectObject(dc, former);
    drawing.DeleteDC(dc);
    drawing.DeleteObject(bitmap);
    drawing.DeleteObject(brush);
  }

  ColorRef At(int x, int y) { return drawing.GetPixel(dc, {x, y}); }

  DcHandle dc;
  ObjectHandle bitmap;
  ObjectHandle former;
  ObjectHandle brush;
};

TEST_F(Win32DrawingTest, FillExcludesRightAndBottom) {
  const ObjectHandle red = drawing.CreateSolidBrush(kRed);
  EXPECT_TRUE(drawing.FillRect(dc, {2, 3, 10, 8}, red));
  EXPECT_TRUE(drawing.DeleteObject(red));
  EXPECT_EQ(At(2, 3), kRed);
  EXPECT_EQ(At(9, 7), kRed);
  EXPECT_EQ(At(10, 7), kWhite);
  EXPECT_EQ(At(9, 8), kWhite);
}

TEST_F(Win32DrawingTest, RectangleWithTheNullBrushDrawsTheFrameOnly) {
  const ObjectHandle pen = drawing.CreatePen(kPsSolid, 1, kBlue);
  const ObjectHandle former_pen = drawing.SelectObject(dc, pen);
  drawing.SelectObject(dc, drawing.GetStockObject(kNullBrush));
  EXPECT_TRUE(drawing.Rectangle(dc, {2, 2, 12, 10}));
  EXPECT_EQ(drawing.SelectObject(dc, former_pen), pen);
  EXPECT_TRUE(drawing.DeleteObject(pen));
  EXPECT_EQ(At(2, 2), kBlue);
  EXPECT_EQ(At(11, 9), kBlue);
  EXPECT_EQ(At(3, 3), kWhite);
  EXPECT_EQ(At(12, 9), kWhite);
}

TEST_F(Win32DrawingTest, LineLeavesItsEndOutAndMovesThere) {
  EXPECT_TRUE(drawing.MoveTo(dc, {1, 1}));
  EXPECT_TRUE(drawing.LineTo(dc, {5, 1}));
  EXPECT_EQ(At(4, 1), ColorRef{0});
  EXPECT_EQ(At(5, 1), kWhite);
  EXPECT_TRUE(drawing.LineTo(dc, {5, 4}));
  EXPECT_EQ(At(5, 1), ColorRef{0});
}

TEST_F(Win32DrawingTest, FocusRectDrawnTwiceRestoresThePicture) {
  EXPECT_TRUE(drawing.DrawFocusRect(dc, {4, 4, 20, 20}));
  int changed = 0;
  for (int x = 4; x < 20; ++x) changed += At(x, 4) != kWhite;
  EXPECT_EQ(changed, 8);
  EXPECT_TRUE(drawing.DrawFocusRect(dc, {4, 4, 20, 20}));
  for (int x = 4; x < 20; ++x) EXPECT_EQ(At(x, 4), kWhite);
}

TEST_F(Win32DrawingTest, BitBltCopiesBetweenContexts) {
  const DcHandle source = drawing.CreateCompatibleDC(dc);
  const ObjectHandle picture = drawing.CreateCompatibleBitmap(dc, {4, 4});
  const ObjectHandle red = drawing.CreateSolidBrush(kRed);
  const ObjectHandle former_bitmap = drawing.SelectObject(source, picture);
  drawing.FillRect(source, {1, 1, 2, 2}, red);
  EXPECT_TRUE(drawing.BitBlt(dc, {10, 10, 12, 12}, source, {1, 1}, kSrcCopy));
  EXPECT_EQ(At(10, 10), kRed);
  EXPECT_EQ(At(11, 11), ColorRef{0});
  EXPECT_EQ(At(12, 12), kWhite);
  drawing.SelectObject(source, former_bitmap);
  EXPECT_TRUE(drawing.DeleteDC(source));
  EXPECT_TRUE(drawing.DeleteObject(picture));
  EXPECT_TRUE(drawing.DeleteObject(red));
}

TEST_F(Win32DrawingTest, CalculatedTextRectHasTheExtentOfTheText) {
  PixelSize extent;
  ASSERT_TRUE(drawing.GetTextExtentPoint32A(dc, "Level", extent));
  PixelRect rect{5, 6, 7, 8};
  EXPECT_EQ(drawing.DrawTextA(dc, "Level", rect, kDtCalcRect | kDtSingleLine), extent.height);
  EXPECT_EQ(rect, (PixelRect{5, 6, 5 + extent.width, 6 + extent.height}));
}

TEST_F(Win32DrawingTest, TextIsMeasuredInTheCodePage) {
  PixelSize replaced;
  PixelSize question_marks;
  ASSERT_TRUE(drawing.GetTextExtentPoint32A(dc, "\xE4\xB8\xAD\xE6\x96\x87", replaced));
  ASSERT_TRUE(drawing.GetTextExtentPoint32A(dc, "??", question_marks));
  EXPECT_EQ(replaced, question_marks);
}

TEST_F(Win32DrawingTest, MetricsOfALineAddUp) {
  TextMetrics metrics;
  ASSERT_TRUE(drawing.GetTextMetricsA(dc, metrics));
  EXPECT_GT(metrics.ascent, metrics.descent);
  EXPECT_EQ(metrics.height, metrics.ascent + metrics.descent);
  EXPECT_GT(metrics.average_char_width, 0);
}

TEST_F(Win32DrawingTest, AFontOfTheSymbolSetIsTheSymbolFont) {
  const ObjectHandle arrows =
      drawing.CreateFontA({.height = -16, .charset = kSymbolCharset, .face_name = "Marlett"});
  const ObjectHandle former_font = drawing.SelectObject(dc, arrows);
  PixelSize arrow;
  ASSERT_TRUE(drawing.GetTextExtentPoint32A(dc, "5", arrow));
  EXPECT_EQ(arrow.width, 16);  // its glyphs are as wide as they are high
  EXPECT_EQ(drawing.SelectObject(dc, former_font), arrows);
  EXPECT_TRUE(drawing.DeleteObject(arrows));
}

TEST_F(Win32DrawingTest, ColorsAndModeReturnWhatTheyReplace) {
  EXPECT_EQ(drawing.SetTextColor(dc, kRed), ColorRef{0});
  EXPECT_EQ(drawing.SetTextColor(dc, kBlue), kRed);
  EXPECT_EQ(drawing.SetBkColor(dc, kRed), kWhite);
  EXPECT_EQ(drawing.SetBkMode(dc, kTransparent), kOpaque);
  EXPECT_EQ(drawing.SetBkMode(dc, kOpaque), kTransparent);
}

TEST_F(Win32DrawingTest, TranslatesSystemColorsAndRefusesUnknownOnes) {
  ColorRef result{7};
  EXPECT_TRUE(drawing.OleTranslateColor(Color(0x8000000F), 0, result));
  EXPECT_EQ(result, drawing.GetSysColor(kColorButtonFace));
  EXPECT_TRUE(drawing.OleTranslateColor(Color(0x00123456), 0, result));
  EXPECT_EQ(result, ColorRef{0x123456});
  EXPECT_FALSE(drawing.OleTranslateColor(Color(0x80000100), 0, result));
  EXPECT_FALSE(drawing.OleTranslateColor(Color(0x05000000), 0, result));
  EXPECT_EQ(result, ColorRef{0x123456});
}

TEST_F(Win32DrawingTest, PaletteColorsAreLeftAsTheyAreAndDrawAsTheDisplaysOwn) {
  const auto drawn = [&](std::uint32_t bits) {
    ColorRef result{7};
    EXPECT_TRUE(drawing.OleTranslateColor(Color(bits), 0, result)) << bits;
    EXPECT_EQ(result, ColorRef{bits});
    const ObjectHandle own = drawing.CreateSolidBrush(result);
    drawing.FillRect(dc, {0, 0, 1, 1}, own);
    drawing.DeleteObject(own);
    return drawing.GetPixel(dc, {0, 0}).value;
  };
  EXPECT_EQ(drawn(0x02ABCDEF), 0xABCDEFu);
  EXPECT_EQ(drawn(0x0100000D), 0x0000FFu);
  EXPECT_EQ(drawn(0x01000009), 0xF0CAA6u);
  EXPECT_EQ(drawn(0x01000013), 0xFFFFFFu);
  EXPECT_EQ(drawn(0x01000014), 0x000000u);
}

TEST_F(Win32DrawingTest, MulDivRoundsHalfAwayFromZero) {
  EXPECT_EQ(drawing.MulDiv(1, 1, 2), 1);
  EXPECT_EQ(drawing.MulDiv(-1, 1, 2), -1);
  EXPECT_EQ(drawing.MulDiv(1, 1, 0), -1);
}

TEST_F(Win32DrawingTest, UnknownHandlesAreRefused) {
  const DcHandle unknown{0x12345};
  PixelSize extent;
  EXPECT_FALSE(drawing.Rectangle(unknown, {0, 0, 5, 5}));
  EXPECT_FALSE(drawing.GetTextExtentPoint32A(unknown, "x", extent));
  EXPECT_EQ(drawing.GetPixel(unknown, {0, 0}), kInvalidColorRef);
  EXPECT_FALSE(drawing.SelectObject(unknown, brush));
  EXPECT_FALSE(drawing.DeleteObject(ObjectHandle{0x12345}));
}

TEST(Win32Text, ACharacterOutsideTheCodePageBecomesAQuestionMark) {
  EXPECT_EQ(ToCodePage("plain"), "plain");
  EXPECT_EQ(ToCodePage("\xE4\xB8\xAD"), "?");
  EXPECT_EQ(ToCodePage("a\xE2\x86\x92z"), "a?z");
}

TEST(Win32Text, ACharacterIsNotReplacedByASimilarOne) {
  EXPECT_EQ(ToCodePage("\xC4\x81"), "?");  // a with macron, which a best fit would make a plain a
}

TEST(Win32Text, TextOfTheCodePageComesBack) {
  const std::string umlaut_and_euro = "\xC3\xA4\xE2\x82\xAC";
  EXPECT_EQ(ToCodePage(umlaut_and_euro), "\xE4\x80");
  EXPECT_EQ(FromCodePage(ToCodePage(umlaut_and_euro)), umlaut_and_euro);
}

}  // namespace
}  // namespace levelwidgets::win32
