#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/memory_drawing_testing.h>

namespace levelwidgets::memory {
namespace {

using Rows = std::vector<std::string>;

constexpr int kLine = 10;  // the font's line, of which 2 are descent
constexpr int kAdvance = 6;

class MemoryDrawingText : public ::testing::Test {
 protected:
  MemoryDrawingText() { UseFont(RequestOf("", kLine)); }

  void UseFont(const FontRequest& request) { drawing.SelectObject(dc, drawing.CreateFontA(request)); }
  int Draw(std::string_view text, PixelRect rect, std::uint32_t format) {
    return drawing.DrawTextA(dc, text, rect, format);
  }
  PixelRect Measure(std::string_view text, std::uint32_t format, PixelRect rect = {10, 20, 60, 30}) {
    height = drawing.DrawTextA(dc, text, rect, format | kDtCalcRect);
    return rect;
  }
  // Where "HH" lands: the letters fill rows 1 to 7 of the line and end one pixel before their width.
  PixelRect InkOf(PixelRect rect, std::uint32_t format) {
    canvas.store.pixels.assign(canvas.store.pixels.size(), kWhite);
    height = Draw("HH", rect, format);
    return canvas.Ink();
  }

  MemoryDrawing drawing{WithoutFonts()};
  Canvas canvas{60, 40};
  DcHandle dc = drawing.CreateWindowDC(&canvas);
  int height = 0;  // returned by the last DrawTextA
};

TEST_F(MemoryDrawingText, LetterIsDrawnInTheTextColour) {
  Canvas small(7, 10);
  const DcHandle other = drawing.CreateWindowDC(&small);
  drawing.SelectObject(other, drawing.CreateFontA(RequestOf("", kLine)));
  drawing.SetTextColor(other, {kRed});
  PixelRect rect{0, 0, 7, 10};
  EXPECT_EQ(drawing.DrawTextA(other, "F", rect, 0), kLine);
  EXPECT_EQ(small.Rows(), (Rows{".......", "rrrrr..", "r......", "r......", "rrrr...", "r......", "r......",
                                "r......", ".......", "......."}));
}

TEST_F(MemoryDrawingText, AlignsHorizontally) {
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtLeft), (PixelRect{10, 11, 21, 18}));
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtCenter), (PixelRect{24, 11, 35, 18}));
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtRight), (PixelRect{38, 11, 49, 18}));
}

TEST_F(MemoryDrawingText, AlignsVerticallyOnlyInOneLine) {
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtSingleLine | kDtVCenter), (PixelRect{10, 16, 21, 23}));
  EXPECT_EQ(height, 15) << "from the rectangle's top to the text's bottom";
  EXPECT_EQ(InkOf({10, 10, 50, 31}, kDtSingleLine | kDtVCenter), (PixelRect{10, 16, 21, 23}));
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtSingleLine | kDtBottom), (PixelRect{10, 21, 21, 28}));
  EXPECT_EQ(height, 20);
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtVCenter), (PixelRect{10, 11, 21, 18}));
  EXPECT_EQ(InkOf({10, 10, 50, 30}, kDtBottom), (PixelRect{10, 11, 21, 18}));
  EXPECT_EQ(height, kLine);
}

TEST_F(MemoryDrawingText, IsClippedToTheRectangleUnlessNoClip) {
  EXPECT_EQ(InkOf({10, 10, 14, 16}, kDtSingleLine), (PixelRect{10, 11, 14, 16}));
  EXPECT_EQ(InkOf({10, 10, 14, 16}, kDtSingleLine | kDtNoClip), (PixelRect{10, 11, 21, 18}));
  EXPECT_EQ(InkOf({10, 10, 14, 16}, kDtSingleLine | kDtNoClip | kDtCenter | kDtVCenter),
            (PixelRect{6, 9, 17, 16}));
  canvas.Clip({{0, 0, 12, 40}, {18, 0, 60, 40}});
  InkOf({10, 10, 50, 30}, 0);
  EXPECT_EQ(canvas.Rows()[14].substr(8, 16), "..##......###...")
      << "the bar of the letters is seen left and right of the hole";
}

TEST_F(MemoryDrawingText, LineBreaksCountOnlyWithoutSingleLine) {
  EXPECT_EQ(Measure("H\nHH", 0), (PixelRect{10, 20, 22, 40}));
  EXPECT_EQ(height, 20);
  EXPECT_EQ(Measure("H\r\nH", 0).bottom, 40);
  EXPECT_EQ(Measure("H\n\rH", 0).bottom, 40);
  EXPECT_EQ(Measure("H\rH", 0).bottom, 40);
  EXPECT_EQ(Measure("H\n\nH", 0).bottom, 50);
  EXPECT_EQ(Measure("\nH", 0).bottom, 40);
  EXPECT_EQ(Measure("H\n", 0).bottom, 30) << "a last break opens no line";
  EXPECT_EQ(Measure("H\nH", kDtSingleLine), (PixelRect{10, 20, 28, 30})) << "the break is a character";
}

TEST_F(MemoryDrawingText, WordBreakBreaksAtSpacesAndNeverInWords) {
  EXPECT_EQ(Measure("HHHH HHHH", kDtWordBreak), (PixelRect{10, 20, 34, 40}));
  EXPECT_EQ(Measure("HHH HHHH", kDtWordBreak), (PixelRect{10, 20, 58, 30})) << "48 of 50 pixels";
  EXPECT_EQ(Measure("HHHHHHHHHH H", kDtWordBreak), (PixelRect{10, 20, 70, 40})) << "a long word stays whole";
  EXPECT_EQ(Measure("HHHH    HHHH  ", kDtWordBreak), (PixelRect{10, 20, 46, 40}));
  EXPECT_EQ(Measure("HHHH HHHH\nH", kDtWordBreak).bottom, 50);
  EXPECT_EQ(Measure("HHHH HHHH", kDtWordBreak | kDtSingleLine), (PixelRect{10, 20, 64, 30}));
  EXPECT_EQ(Measure("HHHH HHHH", 0), (PixelRect{10, 20, 64, 30}));
}

TEST_F(MemoryDrawingText, EachLineIsAlignedByItself) {
  canvas.store.pixels.assign(canvas.store.pixels.size(), kWhite);
  Draw("H\nHHH", {0, 0, 60, 40}, kDtRight);
  EXPECT_EQ(canvas.Rows()[4].substr(40), "..............#####.");
  EXPECT_EQ(canvas.Rows()[14].substr(40), "..#####.#####.#####.");
}

TEST_F(MemoryDrawingText, CalcRectDrawsNothing) {
  EXPECT_EQ(Measure("HH", kDtSingleLine | kDtVCenter | kDtCenter, {10, 20, 60, 80}),
            (PixelRect{10, 20, 22, 55}))
      << "down to the text where it would be drawn";
  EXPECT_EQ(height, 35);
  EXPECT_EQ(canvas.Ink(), (PixelRect{60, 40, 0, 0}));
}

TEST_F(MemoryDrawingText, EmptyTextHasTheHeightOfALine) {
  EXPECT_EQ(Draw("", {10, 10, 50, 30}, 0), kLine);
  EXPECT_EQ(Measure("", 0), (PixelRect{10, 20, 10, 20}));
  EXPECT_EQ(height, kLine);
  EXPECT_EQ(Measure("", kDtSingleLine), (PixelRect{10, 20, 10, 30}));
}

TEST_F(MemoryDrawingText, PrefixUnderlinesTheNextCharacter) {
  Draw("H&H", {0, 0, 60, 40}, kDtSingleLine);
  EXPECT_EQ(canvas.Rows()[9].substr(0, 14), "......######..");
  EXPECT_EQ(canvas.Rows()[8].substr(0, 14), "..............");
}

TEST_F(MemoryDrawingText, PrefixesAreNotDrawn) {
  EXPECT_EQ(Measure("&H&H", 0).width(), 2 * kAdvance);
  EXPECT_EQ(Measure("H&&H", 0).width(), 3 * kAdvance);
  EXPECT_EQ(Measure("H&", 0).width(), 2 * kAdvance) << "a last one prefixes nothing and is drawn";
  EXPECT_EQ(Measure("&H&&", kDtNoPrefix).width(), 4 * kAdvance);
}

TEST_F(MemoryDrawingText, DoubledPrefixUnderlinesNothing) {
  Draw("&&H", {0, 0, 60, 40}, kDtSingleLine);
  EXPECT_EQ(canvas.Rows()[9], std::string(60, '.'));
  Draw("&H", {0, 10, 60, 40}, kDtSingleLine | kDtNoPrefix);
  EXPECT_EQ(canvas.Rows()[19], std::string(60, '.'));
}

TEST_F(MemoryDrawingText, OfSeveralPrefixesTheLastIsUnderlined) {
  Draw("&H&HH", {0, 0, 60, 40}, kDtSingleLine);
  EXPECT_EQ(canvas.Rows()[9].substr(0, 18), "......######......");
}

TEST_F(MemoryDrawingText, OpaqueModeFillsBehindTheLineOnly) {
  drawing.SetBkMode(dc, kOpaque);
  drawing.SetBkColor(dc, {kGreen});
  Draw("H", {10, 10, 50, 30}, 0);
  EXPECT_EQ(canvas.Ink(), (PixelRect{10, 10, 16, 20}));
  EXPECT_EQ(canvas.Rows()[10].substr(8, 10), "..gggggg..");
  EXPECT_EQ(canvas.Rows()[11].substr(8, 10), "..#ggg#g..");
}

TEST_F(MemoryDrawingText, CharactersOutsideTheCodePageBecomeQuestionMarks) {
  EXPECT_EQ(drawing.ToCodePage("a\xE2\x82\xAC\xD0\x96z"), "a\x80?z");
  EXPECT_EQ(drawing.FromCodePage("a\x80z"), "a\xE2\x82\xACz");
  EXPECT_EQ(Measure("\xD0\x96", 0).width(), kAdvance);
  Draw("\xD0\x96", {0, 0, 60, 40}, 0);
  const Rows drawn = canvas.Rows();
  canvas.store.pixels.assign(canvas.store.pixels.size(), kWhite);
  Draw("?", {0, 0, 60, 40}, 0);
  EXPECT_EQ(drawn, canvas.Rows());
}

TEST_F(MemoryDrawingText, TextEndsAtAZeroCharacter) {
  EXPECT_EQ(Measure(std::string_view("HH\0HH", 5), 0).width(), 2 * kAdvance);
}

TEST_F(MemoryDrawingText, UnderlinedAndStruckFontsDrawRulesOfTheTextsWidth) {
  FontRequest request = RequestOf("", kLine);
  request.underline = true;
  UseFont(request);
  Draw("  ", {10, 10, 50, 30}, 0);
  EXPECT_EQ(canvas.Ink(), (PixelRect{10, 19, 22, 20}));
  canvas.store.pixels.assign(canvas.store.pixels.size(), kWhite);
  request.underline = false;
  request.strikethrough = true;
  UseFont(request);
  Draw("  ", {10, 10, 50, 30}, 0);
  EXPECT_EQ(canvas.Ink(), (PixelRect{10, 16, 22, 17}));
}

TEST_F(MemoryDrawingText, ExtentIsOneLineWithPrefixesAndBreaksAsCharacters) {
  PixelSize size;
  EXPECT_TRUE(drawing.GetTextExtentPoint32A(dc, "&H\nH", size));
  EXPECT_EQ(size, (PixelSize{4 * kAdvance, kLine}));
  EXPECT_TRUE(drawing.GetTextExtentPoint32A(dc, "", size));
  EXPECT_EQ(size, (PixelSize{0, 0}));
}

TEST_F(MemoryDrawingText, UnknownContextsMeasureAndDrawNothing) {
  const DcHandle none{777};
  PixelRect rect{1, 2, 3, 4};
  PixelSize size{5, 6};
  TextMetrics metrics;
  EXPECT_EQ(drawing.DrawTextA(none, "H", rect, kDtCalcRect), 0);
  EXPECT_FALSE(drawing.GetTextExtentPoint32A(none, "H", size));
  EXPECT_FALSE(drawing.GetTextMetricsA(none, metrics));
  EXPECT_EQ(rect, (PixelRect{1, 2, 3, 4}));
  EXPECT_EQ(size, (PixelSize{5, 6}));
}

TEST_F(MemoryDrawingText, ADeletedSelectedFontStillDraws) {
  const ObjectHandle font = drawing.CreateFontA(RequestOf("", 20));
  drawing.SelectObject(dc, font);
  EXPECT_TRUE(drawing.DeleteObject(font));
  EXPECT_EQ(Measure("H", 0).bottom, 40);
}

TEST_F(MemoryDrawingText, WithoutFontsArrowsAreTriangles) {
  FontRequest request = RequestOf("Marlett", 12);
  request.charset = kSymbolCharset;
  UseFont(request);
  Draw("6", {0, 0, 12, 12}, 0);
  const Rows rows = canvas.Rows();
  EXPECT_EQ(canvas.Ink().width(), 7);
  EXPECT_EQ(rows[4].substr(0, 12), "..#######...");
  EXPECT_EQ(rows[7].substr(0, 12), ".....#......");
}

// Without fonts it is a box.
TEST(MemoryDrawingPairs, ACharacterOfTwoBytesIsOneAsWideAsTwoOthers) {
  DrawingOptions options = WithoutFonts();
  options.code_page = 932;
  MemoryDrawing drawing{options};
  Canvas canvas{60, 40};
  const DcHandle dc = drawing.CreateWindowDC(&canvas);
  drawing.SelectObject(dc, drawing.CreateFontA(RequestOf("", kLine)));
  PixelSize size;
  drawing.GetTextExtentPoint32A(dc, "\u65E5", size);
  EXPECT_EQ(size, (PixelSize{2 * kAdvance, kLine}));
  drawing.GetTextExtentPoint32A(dc, "a\u65E5b", size);
  EXPECT_EQ(size.width, 4 * kAdvance);
  PixelRect rect{0, 0, 60, 40};
  drawing.DrawTextA(dc, "\u65E5", rect, kDtSingleLine);
  EXPECT_EQ(canvas.Ink(), (PixelRect{0, 1, 2 * kAdvance - 1, 8})) << "one box";
  canvas.store.pixels.assign(canvas.store.pixels.size(), kWhite);
  drawing.DrawTextA(dc, "&\u65E5", rect, kDtSingleLine);
  EXPECT_EQ(canvas.Ink(), (PixelRect{0, 1, 2 * kAdvance, 10})) << "with a line below all of it";
  drawing.DestroyWindowDC(dc);
}

}  // namespace
}  // namespace levelwidgets::memory
