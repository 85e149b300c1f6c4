// Which pixels the drawing operations set where the eye expects others: the same in memory and on Windows.
#include <levelwidgets/testing/plain_windows.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using Rows = std::vector<std::string>;

constexpr ColorRef kWhite{0xFFFFFF};
constexpr ColorRef kRed{0x0000FF};
constexpr ColorRef kGreen{0x00FF00};

// Draws on a white bitmap of 16 by 10 pixels.
class DrawingPixelsTest : public PlainWindowsTest {
 protected:
  static constexpr PixelSize kSize{16, 10};

  void SetUp() override {
    window_ = MakeTop({100, 100, 200, 200});
    dc = drawing.CreateCompatibleDC(windows.GetDC(window_));
    bitmap_ = drawing.CreateCompatibleBitmap(windows.GetDC(window_), kSize);
    drawing.SelectObject(dc, bitmap_);
    Clear();
  }

  void TearDown() override {
    drawing.DeleteDC(dc);
    drawing.DeleteObject(bitmap_);
    for (const ObjectHandle object : used_) drawing.DeleteObject(object);
    PlainWindowsTest::TearDown();
  }

  void Clear() {
    drawing.FillRect(dc, {0, 0, kSize.width, kSize.height}, drawing.GetStockObject(kWhiteBrush));
  }
  ObjectHandle Brush(ColorRef color) { return used_.emplace_back(drawing.CreateSolidBrush(color)); }
  void UseBrush(ColorRef color) { drawing.SelectObject(dc, Brush(color)); }
  void UsePen(int style, int width, ColorRef color) {
    drawing.SelectObject(dc, used_.emplace_back(drawing.CreatePen(style, width, color)));
  }
  void UseFont(const char* face, int height) {
    FontRequest request;
    request.face_name = face;
    request.height = height;
    drawing.SelectObject(dc, used_.emplace_back(drawing.CreateFontA(request)));
  }
  TextMetrics Metrics() {
    TextMetrics metrics;
    drawing.GetTextMetricsA(dc, metrics);
    return metrics;
  }

  // "." white, "#" black, r and g the pure colours, "?" any other.
  Rows Picture(const PixelRect& part = {0, 0, kSize.width, kSize.height}) {
    Rows rows;
    for (int y = part.top; y < part.bottom; ++y) {
      std::string& row = rows.emplace_back();
      for (int x = part.left; x < part.right; ++x) row += NameOf(drawing.GetPixel(dc, {x, y}));
    }
    return rows;
  }

  DrawingApi& drawing = driver->GetPlatform().Drawing();
  DcHandle dc;

 private:
  static char NameOf(ColorRef color) {
    if (color == kWhite) return '.';
    if (color == kRed) return 'r';
    if (color == kGreen) return 'g';
    return color == ColorRef{0} ? '#' : '?';
  }

  WindowHandle window_;
  ObjectHandle bitmap_;
  std::vector<ObjectHandle> used_;
};

// --- Rectangles and pens -------------------------------------------------------------------------

TEST_F(DrawingPixelsTest, ARectangleOfOnePixelDrawsNothing) {
  UseBrush(kGreen);
  drawing.Rectangle(dc, {0, 0, 1, 1});
  drawing.Rectangle(dc, {2, 0, 4, 1});
  drawing.Rectangle(dc, {5, 0, 6, 2});
  drawing.Rectangle(dc, {7, 0, 9, 2});
  EXPECT_THAT(Picture({0, 0, 10, 3}), ElementsAre("..##.#.##.", ".....#.##.", ".........."));
}

TEST_F(DrawingPixelsTest, ADottedRectangleOfOnePixelDrawsNothingAndAThinOneIsDotted) {
  drawing.SetBkMode(dc, kTransparent);
  UsePen(kPsDot, 1, kRed);
  drawing.Rectangle(dc, {0, 0, 1, 1});
  drawing.Rectangle(dc, {2, 0, 3, 9});
  EXPECT_THAT(Picture({0, 0, 4, 10}),
              ElementsAre("..r.", "..r.", "..r.", "..r.", "..r.", "....", "..r.", "..r.", "..r.", "...."));
}

TEST_F(DrawingPixelsTest, ThePenOfThreePixelsRoundsTheCornersOfARectangle) {
  UseBrush(kGreen);
  UsePen(kPsSolid, 3, kRed);
  drawing.Rectangle(dc, {2, 2, 10, 8});
  EXPECT_EQ(Picture(), (Rows{"................", "..rrrrrrrr......", ".rrrrrrrrrr.....", ".rrrrrrrrrr.....",
                             ".rrrggggrrr.....", ".rrrggggrrr.....", ".rrrrrrrrrr.....", ".rrrrrrrrrr.....",
                             "..rrrrrrrr......", "................"}));
}

TEST_F(DrawingPixelsTest, ThePenOfTwoPixelsKeepsTheCornersOfARectangle) {
  UseBrush(kGreen);
  UsePen(kPsSolid, 2, kRed);
  drawing.Rectangle(dc, {2, 2, 8, 7});
  EXPECT_THAT(Picture({0, 0, 9, 8}), ElementsAre(".........", ".rrrrrrr.", ".rrrrrrr.", ".rrgggrr.",
                                                 ".rrgggrr.", ".rrrrrrr.", ".rrrrrrr.", "........."));
}

TEST_F(DrawingPixelsTest, APenInsideTheFrameRoundsItsCornersThere) {
  UseBrush(kGreen);
  constexpr int kPsInsideFrame = 6;
  UsePen(kPsInsideFrame, 3, kRed);
  drawing.Rectangle(dc, {1, 1, 10, 9});
  EXPECT_EQ(Picture({0, 0, 11, 10}),
            (Rows{"...........", "..rrrrrrr..", ".rrrrrrrrr.", ".rrrrrrrrr.", ".rrrgggrrr.", ".rrrgggrrr.",
                  ".rrrrrrrrr.", ".rrrrrrrrr.", "..rrrrrrr..", "..........."}));
}

TEST_F(DrawingPixelsTest, AWidePenIsRoundAtBothEndsOfALine) {
  UsePen(kPsSolid, 5, kRed);
  drawing.MoveTo(dc, {4, 4});
  drawing.LineTo(dc, {10, 4});
  EXPECT_EQ(Picture({0, 1, 16, 8}),
            (Rows{"................", "...rrrrrrrrr....", "..rrrrrrrrrrr...", "..rrrrrrrrrrr...",
                  "..rrrrrrrrrrr...", "...rrrrrrrrr....", "................"}));
}

TEST_F(DrawingPixelsTest, AWidePenThatDoesNotMoveLeavesItsShape) {
  UsePen(kPsSolid, 3, kRed);
  drawing.MoveTo(dc, {2, 2});
  drawing.LineTo(dc, {2, 2});
  UsePen(kPsSolid, 4, kRed);
  drawing.MoveTo(dc, {8, 3});
  drawing.LineTo(dc, {8, 3});
  EXPECT_EQ(Picture({0, 0, 11, 6}),
            (Rows{"...........", "..r....rr..", ".rrr..rrrr.", "..r...rrrr.", ".......rr..", "..........."}));
}

// --- Fills and copies ----------------------------------------------------------------------------

TEST_F(DrawingPixelsTest, AnInvertedFillIncludesItsLeftTopAndExcludesItsRightBottom) {
  drawing.FillRect(dc, {6, 4, 2, 1}, Brush(kRed));
  EXPECT_EQ(Picture({0, 0, 8, 6}),
            (Rows{"........", "........", "...rrrr.", "...rrrr.", "...rrrr.", "........"}));
  Clear();
  drawing.FillRect(dc, {6, 1, 2, 4}, Brush(kRed));
  EXPECT_EQ(Picture({0, 0, 8, 5}), (Rows{"........", "...rrrr.", "...rrrr.", "...rrrr.", "........"}));
}

TEST_F(DrawingPixelsTest, ACopyOfNegativeSizeEndsWithTheCornersAndMirrorsNothing) {
  // A diagonal: red where x and y are equal.
  for (int i = 0; i < 5; ++i) drawing.FillRect(dc, {i, i, i + 1, i + 1}, Brush(kRed));
  drawing.BitBlt(dc, {11, 8, 11 - 3, 8 - 3}, dc, {3, 3}, kSrcCopy);
  EXPECT_EQ(Picture({8, 5, 13, 10}), (Rows{".....", ".r...", "..r..", "...r.", "....."}));
}

TEST_F(DrawingPixelsTest, ACopyOfNegativeWidthMovesTheSourceAlong) {
  for (int i = 0; i < 5; ++i) drawing.FillRect(dc, {i, i, i + 1, i + 1}, Brush(kRed));
  drawing.BitBlt(dc, {11, 5, 11 - 3, 5 + 3}, dc, {4, 2}, kSrcCopy);
  // The source is x 2 to 4, y 2 to 4.
  EXPECT_EQ(Picture({8, 4, 13, 9}), (Rows{".....", ".r...", "..r..", "...r.", "....."}));
}

// --- The focus frame -----------------------------------------------------------------------------

TEST_F(DrawingPixelsTest, TheFocusFrameHasADotInItsTopRightCorner) {
  drawing.DrawFocusRect(dc, {1, 1, 9, 7});
  EXPECT_EQ(Picture({0, 0, 10, 8}), (Rows{"..........", "..#.#.#.#.", ".#........", "........#.",
                                          ".#........", "........#.", ".#.#.#.#..", ".........."}));
  Clear();
  drawing.DrawFocusRect(dc, {2, 2, 9, 7});
  EXPECT_EQ(Picture({1, 1, 10, 8}), (Rows{".........", ".#.#.#.#.", ".........", ".#.....#.", ".........",
                                          ".#.#.#.#.", "........."}));
}

TEST_F(DrawingPixelsTest, AThinFocusFrameKeepsOnlyDotsAtItsEnds) {
  drawing.DrawFocusRect(dc, {0, 0, 1, 1});
  drawing.DrawFocusRect(dc, {2, 0, 7, 1});
  drawing.DrawFocusRect(dc, {8, 0, 12, 1});
  drawing.DrawFocusRect(dc, {13, 0, 14, 3});
  EXPECT_THAT(Picture({0, 0, 16, 3}),
              ElementsAre("..#...#....#.#..", "................", ".............#.."));
}

TEST_F(DrawingPixelsTest, DrawingTheFocusFrameTwiceRestoresThePicture) {
  const Rows before = Picture();
  drawing.DrawFocusRect(dc, {1, 1, 9, 7});
  EXPECT_NE(Picture(), before);
  drawing.DrawFocusRect(dc, {9, 7, 1, 1});
  EXPECT_EQ(Picture(), before);
}

// --- Colours -------------------------------------------------------------------------------------

TEST_F(DrawingPixelsTest, TheUntranslatableColourIsBlack) {
  UseBrush(kInvalidColorRef);
  UsePen(kPsSolid, 1, kInvalidColorRef);
  drawing.FillRect(dc, {0, 0, 16, 10}, Brush(kRed));
  drawing.Rectangle(dc, {1, 1, 5, 4});
  EXPECT_THAT(Picture({0, 0, 6, 5}), ElementsAre("rrrrrr", "r####r", "r####r", "r####r", "rrrrrr"));
}

TEST_F(DrawingPixelsTest, TheLowestBitOfTheTopByteMakesAColourAnIndex) {
  drawing.FillRect(dc, {0, 0, 1, 1}, Brush({0x030000FF}));
  drawing.FillRect(dc, {1, 0, 2, 1}, Brush({0x040000FF}));
  drawing.FillRect(dc, {2, 0, 3, 1}, Brush({0x800000FF}));
  drawing.FillRect(dc, {3, 0, 4, 1}, Brush({0x10FF00FF}));
  EXPECT_THAT(Picture({0, 0, 5, 1}), ElementsAre("#rr#."));
}

// --- Text ----------------------------------------------------------------------------------------

TEST_F(DrawingPixelsTest, TextIsCentredDownwardsByHalvesThatAreEachRoundedDown) {
  UseFont("Tahoma", -11);
  const int text = Metrics().height;
  for (int height = text - 4; height < text + 5; ++height) {
    PixelRect rect{0, 0, 16, height};
    const int bottom = drawing.DrawTextA(dc, "H", rect, kDtSingleLine | kDtVCenter);
    EXPECT_EQ(bottom - text, height / 2 - text / 2) << height;
  }
}

TEST_F(DrawingPixelsTest, NoTextIsAsHighAsALineWhereverItWouldBe) {
  UseFont("Tahoma", -11);
  const int line = Metrics().height;
  for (const std::uint32_t place : {0u, kDtVCenter, kDtBottom}) {
    PixelRect rect{10, 20, 60, 115};
    EXPECT_EQ(drawing.DrawTextA(dc, "", rect, kDtSingleLine | place), line);
    EXPECT_EQ(drawing.DrawTextA(dc, "", rect, kDtSingleLine | kDtCalcRect | place), line);
    EXPECT_EQ(rect, (PixelRect{10, 20, 10, 20 + line}));
  }
  PixelRect lines{10, 20, 60, 115};
  EXPECT_EQ(drawing.DrawTextA(dc, "", lines, kDtCalcRect), line);
  EXPECT_EQ(lines, (PixelRect{10, 20, 10, 20}));
}

TEST_F(DrawingPixelsTest, TheExtentOfTextThatIsPlacedLowerReachesDownToIt) {
  UseFont("Tahoma", -11);
  const int line = Metrics().height;
  PixelRect centred{10, 20, 60, 115};
  EXPECT_EQ(drawing.DrawTextA(dc, "A", centred, kDtSingleLine | kDtVCenter | kDtCalcRect),
            95 / 2 - line / 2 + line);
  EXPECT_EQ(centred.bottom, 20 + 95 / 2 - line / 2 + line);
  PixelRect below{10, 20, 60, 115};
  EXPECT_EQ(drawing.DrawTextA(dc, "A", below, kDtSingleLine | kDtBottom | kDtCalcRect), 95);
  EXPECT_EQ(below.bottom, 115);
}

TEST_F(DrawingPixelsTest, NoTextHasNoExtent) {
  PixelSize size{7, 7};
  EXPECT_TRUE(drawing.GetTextExtentPoint32A(dc, "", size));
  EXPECT_EQ(size, PixelSize{});
}

TEST_F(DrawingPixelsTest, TextThatIsTooWideIsCentredOneMorePixelToTheLeft) {
  UseFont("Tahoma", -11);
  drawing.SetBkMode(dc, kOpaque);
  drawing.SetBkColor(dc, kRed);
  PixelSize size;
  drawing.GetTextExtentPoint32A(dc, "i", size);
  ASSERT_GT(size.width, 2);
  // Its background begins where it begins.
  for (const int less : {1, 3}) {
    Clear();
    PixelRect rect{4, 0, 4 + size.width - less, 10};
    drawing.DrawTextA(dc, "i", rect, kDtSingleLine | kDtCenter | kDtNoClip);
    const std::string row = Picture({0, 0, 16, 1}).front();
    EXPECT_EQ(static_cast<int>(row.find_first_not_of('.')), 4 - (less + 1) / 2) << row;
  }
}

// --- Fonts ---------------------------------------------------------------------------------------

// A font is as high as its file makes it; no text is higher than the cell that was asked for.
TEST_F(DrawingPixelsTest, ACellHeightIsTheMostThatAFontTakes) {
  int last = 0;
  for (int height = 8; height <= 48; ++height) {
    UseFont("Tahoma", height);
    const int cell = Metrics().height;
    EXPECT_LE(cell, height);
    EXPECT_GE(cell, height - 2);
    EXPECT_GE(cell, last);
    last = cell;
    UseFont("Tahoma", -(cell - Metrics().internal_leading));
    EXPECT_EQ(Metrics().height, cell) << "the same font by its character height";
  }
}

}  // namespace
}  // namespace levelwidgets::testing
