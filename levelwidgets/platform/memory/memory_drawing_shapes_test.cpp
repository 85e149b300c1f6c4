#include <gtest/gtest.h>

#include <limits>

#include <levelwidgets/platform/memory/memory_drawing_testing.h>

namespace levelwidgets::memory {
namespace {

using Rows = std::vector<std::string>;

class MemoryDrawingShapes : public ::testing::Test {
 protected:
  void UsePen(int style, int width, std::uint32_t color) {
    drawing.SelectObject(dc, drawing.CreatePen(style, width, {color}));
  }
  void UseBrush(std::uint32_t color) { drawing.SelectObject(dc, drawing.CreateSolidBrush({color})); }
  void UseStock(int index) { drawing.SelectObject(dc, drawing.GetStockObject(index)); }

  MemoryDrawing drawing{WithoutFonts()};
  Canvas canvas{8, 6};
  DcHandle dc = drawing.CreateWindowDC(&canvas);
};

TEST_F(MemoryDrawingShapes, RectangleExcludesRightAndBottom) {
  UsePen(kPsSolid, 1, kRed);
  UseBrush(kGreen);
  EXPECT_TRUE(drawing.Rectangle(dc, {1, 1, 6, 5}));
  EXPECT_EQ(canvas.Rows(), (Rows{"........", ".rrrrr..", ".rgggr..", ".rgggr..", ".rrrrr..", "........"}));
}

TEST_F(MemoryDrawingShapes, RectangleWithNullBrushIsAFrame) {
  UseStock(kNullBrush);
  drawing.Rectangle(dc, {0, 0, 8, 6});
  EXPECT_EQ(canvas.Rows(), (Rows{"########", "#......#", "#......#", "#......#", "#......#", "########"}));
}

TEST_F(MemoryDrawingShapes, RectangleWithNullPenIsOnePixelSmaller) {
  UseStock(kNullPen);
  UseBrush(kGreen);
  drawing.Rectangle(dc, {1, 1, 6, 5});
  EXPECT_EQ(canvas.Rows(), (Rows{"........", ".gggg...", ".gggg...", ".gggg...", "........", "........"}));
}

TEST_F(MemoryDrawingShapes, RectangleWithoutAreaDrawsNothing) {
  EXPECT_TRUE(drawing.Rectangle(dc, {3, 3, 3, 5}));
  EXPECT_TRUE(drawing.Rectangle(dc, {3, 3, 5, 3}));
  EXPECT_EQ(canvas.Ink(), (PixelRect{8, 6, 0, 0}));
}

TEST_F(MemoryDrawingShapes, RectangleOfTwoPixelsIsAllFrameAndOneOfASinglePixelNothing) {
  UseBrush(kGreen);
  drawing.Rectangle(dc, {0, 0, 1, 1});
  drawing.Rectangle(dc, {2, 0, 4, 3});
  EXPECT_EQ(canvas.Rows(), (Rows{"..##....", "..##....", "..##....", "........", "........", "........"}));
}

TEST_F(MemoryDrawingShapes, RectangleGivenTheWrongWayRoundIsPutInOrder) {
  drawing.Rectangle(dc, {6, 5, 1, 1});
  Rows inverted = canvas.Rows();
  canvas.store.pixels.assign(48, kWhite);
  drawing.Rectangle(dc, {1, 1, 6, 5});
  EXPECT_EQ(inverted, canvas.Rows());
}

TEST_F(MemoryDrawingShapes, WidePenRunsAlongTheMiddleOfTheFrame) {
  UsePen(kPsSolid, 2, kRed);
  UseStock(kNullBrush);
  drawing.Rectangle(dc, {1, 1, 8, 6});
  EXPECT_EQ(canvas.Rows(), (Rows{"rrrrrrrr", "rrrrrrrr", "rr....rr", "rr....rr", "rrrrrrrr", "rrrrrrrr"}));
}

TEST_F(MemoryDrawingShapes, DottedFrameShowsTheBackgroundColourOnlyInOpaqueMode) {
  UsePen(kPsDot, 1, kRed);
  UseStock(kNullBrush);
  drawing.SetBkColor(dc, {kBlue});
  drawing.Rectangle(dc, {0, 0, 8, 6});
  EXPECT_EQ(canvas.Rows(), (Rows{"rr...rrr", "r.......", "........", "........", ".......r", "rrr...rr"}));
  drawing.SetBkMode(dc, kOpaque);
  drawing.Rectangle(dc, {0, 0, 8, 6});
  EXPECT_EQ(canvas.Rows().front(), "rrbbbrrr");
}

TEST_F(MemoryDrawingShapes, FillRectHasNoOutline) {
  const ObjectHandle brush = drawing.CreateSolidBrush({kBlue});
  EXPECT_TRUE(drawing.FillRect(dc, {1, 2, 4, 4}, brush));
  EXPECT_EQ(canvas.Rows(), (Rows{"........", "........", ".bbb....", ".bbb....", "........", "........"}));
  EXPECT_TRUE(drawing.FillRect(dc, {0, 0, 8, 6}, drawing.GetStockObject(kNullBrush)));
  EXPECT_EQ(canvas.Ink(), (PixelRect{1, 2, 4, 4}));
  EXPECT_FALSE(drawing.FillRect(dc, {0, 0, 8, 6}, drawing.GetStockObject(kBlackPen)));
}

TEST_F(MemoryDrawingShapes, UntranslatableColourIsDrawnBlack) {
  drawing.FillRect(dc, {0, 0, 8, 6}, drawing.GetStockObject(kWhiteBrush));
  drawing.FillRect(dc, {0, 0, 2, 1}, drawing.CreateSolidBrush(kInvalidColorRef));
  EXPECT_EQ(canvas.Rows().front(), "##......");
}

TEST_F(MemoryDrawingShapes, LineToLeavesItsEndOutAndContinuesThere) {
  EXPECT_TRUE(drawing.MoveTo(dc, {1, 1}));
  EXPECT_TRUE(drawing.LineTo(dc, {5, 1}));
  EXPECT_EQ(canvas.Rows()[1], ".####...");
  EXPECT_TRUE(drawing.LineTo(dc, {5, 4}));
  EXPECT_EQ(canvas.Rows(), (Rows{"........", ".#####..", ".....#..", ".....#..", "........", "........"}));
}

TEST_F(MemoryDrawingShapes, SlantedLineRoundsHalvesUp) {
  drawing.MoveTo(dc, {7, 4});
  drawing.LineTo(dc, {-1, 0});
  EXPECT_EQ(canvas.Rows(), (Rows{"#.......", ".##.....", "...##...", ".....##.", ".......#", "........"}));
}

TEST_F(MemoryDrawingShapes, NullPenDrawsNoLine) {
  UseStock(kNullPen);
  drawing.LineTo(dc, {8, 0});
  EXPECT_EQ(canvas.Ink(), (PixelRect{8, 6, 0, 0}));
  UseStock(kBlackPen);
  drawing.LineTo(dc, {8, 2});
  EXPECT_EQ(canvas.Rows()[1], "........") << "the null pen moved the position all the same";
}

TEST_F(MemoryDrawingShapes, WideLineIsCentredAndLinesAreClippedAnywhere) {
  UsePen(kPsSolid, 3, kRed);
  drawing.MoveTo(dc, {-100000000, 2});
  drawing.LineTo(dc, {100000000, 2});
  EXPECT_EQ(canvas.Rows(), (Rows{"........", "rrrrrrrr", "rrrrrrrr", "rrrrrrrr", "........", "........"}));
}

TEST_F(MemoryDrawingShapes, FocusFrameInvertsOddPositions) {
  EXPECT_TRUE(drawing.DrawFocusRect(dc, {1, 1, 7, 5}));
  EXPECT_EQ(canvas.Rows(), (Rows{"........", "..#.#.#.", ".#......", "......#.", ".#.#.#..", "........"}));
}

TEST_F(MemoryDrawingShapes, FocusFramesWithCornersOfBothKindsCountFromTheTopRightOne) {
  drawing.DrawFocusRect(dc, {1, 1, 7, 6});
  EXPECT_EQ(canvas.Rows(), (Rows{"........", "..#.#.#.", ".#......", "......#.", ".#......", "..#.#.#."}));
}

TEST_F(MemoryDrawingShapes, FocusFrameDrawnTwiceRestores) {
  drawing.FillRect(dc, {2, 0, 5, 6}, drawing.CreateSolidBrush({0x123456}));
  const std::vector<std::uint32_t> before = canvas.store.pixels;
  for (const PixelRect& rect :
       {PixelRect{0, 0, 8, 6}, {1, 1, 3, 5}, {4, 2, 5, 3}, {6, 5, 1, 1}, {3, 3, 3, 3}}) {
    drawing.DrawFocusRect(dc, rect);
    drawing.DrawFocusRect(dc, rect);
    EXPECT_EQ(canvas.store.pixels, before);
  }
}

TEST_F(MemoryDrawingShapes, NothingIsDrawnInTheHolesOfTheClip) {
  canvas.Clip({{0, 0, 8, 2}, {0, 2, 2, 4}, {6, 2, 8, 4}});
  drawing.FillRect(dc, {1, 1, 100, 100}, drawing.CreateSolidBrush({kGreen}));
  EXPECT_EQ(canvas.Rows(), (Rows{"........", ".ggggggg", ".g....gg", ".g....gg", "........", "........"}));
  drawing.MoveTo(dc, {0, 3});
  drawing.LineTo(dc, {8, 3});
  EXPECT_EQ(canvas.Rows()[3], "##....##");
}

TEST_F(MemoryDrawingShapes, CoordinatesCountFromTheTargetsOrigin) {
  canvas.SetOrigin({3, 2});
  canvas.Clip({{3, 2, 7, 5}});
  drawing.FillRect(dc, {-5, -5, 1, 1}, drawing.CreateSolidBrush({kGreen}));
  EXPECT_EQ(canvas.Ink(), (PixelRect{3, 2, 4, 3}));
  EXPECT_EQ(drawing.GetPixel(dc, {0, 0}), (ColorRef{kGreen}));
  EXPECT_EQ(drawing.GetPixel(dc, {-1, 0}), kInvalidColorRef);
  EXPECT_EQ(drawing.GetPixel(dc, {4, 0}), kInvalidColorRef);
}

TEST_F(MemoryDrawingShapes, AHiddenWindowDrawsNothing) {
  canvas.Hide();
  EXPECT_TRUE(drawing.Rectangle(dc, {0, 0, 8, 6}));
  EXPECT_EQ(canvas.Ink(), (PixelRect{8, 6, 0, 0}));
  EXPECT_EQ(drawing.GetPixel(dc, {0, 0}), kInvalidColorRef);
}

TEST_F(MemoryDrawingShapes, BitBltCopiesFromAMemoryContext) {
  const DcHandle memory = drawing.CreateCompatibleDC(dc);
  drawing.SelectObject(memory, drawing.CreateCompatibleBitmap(dc, {4, 3}));
  drawing.FillRect(memory, {1, 1, 4, 3}, drawing.CreateSolidBrush({kRed}));
  EXPECT_TRUE(drawing.BitBlt(dc, {2, 1, 8, 6}, memory, {0, 0}, kSrcCopy));
  EXPECT_EQ(canvas.Rows(), (Rows{"........", "..####..", "..#rrr..", "..#rrr..", "........", "........"}))
      << "what the source does not have is left as it is";
  EXPECT_FALSE(drawing.BitBlt(dc, {0, 0, 1, 1}, memory, {0, 0}, 0x00BB0226));
}

TEST_F(MemoryDrawingShapes, BitBltWithinOneStoreSurvivesOverlap) {
  for (const PixelPoint shift : {PixelPoint{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {2, 1}, {-2, -1}}) {
    for (std::uint32_t i = 0; i < 48; ++i) canvas.store.pixels[i] = i + 1;
    const std::vector<std::uint32_t> before = canvas.store.pixels;
    const PixelRect rect{2, 1, 6, 5};
    drawing.BitBlt(dc, rect, dc, {2 + shift.x, 1 + shift.y}, kSrcCopy);
    for (int y = 0; y < 6; ++y) {
      for (int x = 0; x < 8; ++x) {
        const bool inside = rect.Contains({x, y});
        const int from = inside ? (y + shift.y) * 8 + x + shift.x : y * 8 + x;
        ASSERT_EQ(canvas.store.Row(y)[x], before[static_cast<std::size_t>(from)]) << x << "," << y;
      }
    }
  }
}

TEST_F(MemoryDrawingShapes, BitBltOverlapsAcrossClipRectanglesToo) {
  canvas.Clip({{0, 0, 8, 3}, {0, 3, 8, 6}});
  for (std::uint32_t i = 0; i < 48; ++i) canvas.store.pixels[i] = i + 1;
  drawing.BitBlt(dc, {0, 1, 8, 6}, dc, {0, 0}, kSrcCopy);
  for (int y = 1; y < 6; ++y) EXPECT_EQ(canvas.store.Row(y)[0], static_cast<std::uint32_t>((y - 1) * 8 + 1));
}

TEST_F(MemoryDrawingShapes, AnyCoordinatesAreAllowed) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  drawing.FillRect(dc, {kLeast, kLeast, kMost, kMost}, drawing.CreateSolidBrush({kGreen}));
  EXPECT_EQ(canvas.Rows(), Rows(6, "gggggggg"));
  UseStock(kNullBrush);
  drawing.Rectangle(dc, {kLeast, 1, 3, kMost});
  EXPECT_EQ(canvas.Rows(), (Rows{"gggggggg", "###ggggg", "gg#ggggg", "gg#ggggg", "gg#ggggg", "gg#ggggg"}));
  drawing.DrawFocusRect(dc, {kLeast, kLeast, kMost, kMost});
  drawing.MoveTo(dc, {kMost, kMost});
  drawing.LineTo(dc, {kMost, kLeast});
  EXPECT_FALSE(drawing.BitBlt(dc, {kLeast, 0, kMost, 6}, dc, {0, 0}, kSrcCopy));
  PixelRect rect{kLeast, 0, kMost, 6};
  drawing.DrawTextA(dc, "HHHHHHH", rect, kDtSingleLine | kDtCenter | kDtVCenter);
  EXPECT_EQ(drawing.GetPixel(dc, {kMost, kLeast}), kInvalidColorRef);
}

TEST_F(MemoryDrawingShapes, UnknownHandlesDrawNothing) {
  const DcHandle none{12345};
  EXPECT_FALSE(drawing.Rectangle(none, {0, 0, 5, 5}));
  EXPECT_FALSE(drawing.FillRect(none, {0, 0, 5, 5}, drawing.GetStockObject(kBlackBrush)));
  EXPECT_FALSE(drawing.FillRect(dc, {0, 0, 5, 5}, ObjectHandle{99999}));
  EXPECT_FALSE(drawing.MoveTo(none, {}));
  EXPECT_FALSE(drawing.LineTo(none, {}));
  EXPECT_FALSE(drawing.DrawFocusRect(none, {0, 0, 5, 5}));
  EXPECT_FALSE(drawing.BitBlt(dc, {0, 0, 5, 5}, none, {}, kSrcCopy));
  EXPECT_EQ(drawing.GetPixel(none, {}), kInvalidColorRef);
  EXPECT_EQ(canvas.Ink(), (PixelRect{8, 6, 0, 0}));
}

}  // namespace
}  // namespace levelwidgets::memory
