#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/memory_drawing_testing.h>

namespace levelwidgets::memory {
namespace {

class MemoryDrawingObjects : public ::testing::Test {
 protected:
  MemoryDrawing drawing{WithoutFonts()};
  Canvas canvas{8, 6};
  DcHandle dc = drawing.CreateWindowDC(&canvas);
};

TEST_F(MemoryDrawingObjects, LiveObjectsAreThoseMadeAndNotDeleted) {
  EXPECT_EQ(drawing.LiveObjects(), 0u);
  const ObjectHandle brush = drawing.CreateSolidBrush({kRed});
  const ObjectHandle pen = drawing.CreatePen(kPsSolid, 1, {kRed});
  const ObjectHandle font = drawing.CreateFontA({});
  const ObjectHandle bitmap = drawing.CreateCompatibleBitmap(dc, {3, 3});
  const DcHandle memory = drawing.CreateCompatibleDC(dc);
  EXPECT_EQ(drawing.LiveObjects(), 5u);
  for (const ObjectHandle object : {brush, pen, font, bitmap}) EXPECT_TRUE(drawing.DeleteObject(object));
  EXPECT_EQ(drawing.LiveObjects(), 1u);
  EXPECT_TRUE(drawing.DeleteDC(memory));
  EXPECT_EQ(drawing.LiveObjects(), 0u);
  EXPECT_FALSE(drawing.DeleteObject(brush));
  EXPECT_FALSE(drawing.DeleteDC(memory));
}

TEST_F(MemoryDrawingObjects, WindowContextsAreNotCountedAndNotDeleted) {
  EXPECT_FALSE(drawing.DeleteDC(dc));
  drawing.DestroyWindowDC(dc);
  EXPECT_EQ(drawing.LiveObjects(), 0u);
  EXPECT_FALSE(drawing.Rectangle(dc, {0, 0, 5, 5}));
}

TEST_F(MemoryDrawingObjects, SelectObjectReturnsTheFormerOfTheSameKind) {
  const ObjectHandle pen = drawing.CreatePen(kPsSolid, 1, {kRed});
  const ObjectHandle brush = drawing.CreateSolidBrush({kRed});
  const ObjectHandle font = drawing.CreateFontA({});
  EXPECT_EQ(drawing.SelectObject(dc, pen), drawing.GetStockObject(kBlackPen));
  EXPECT_EQ(drawing.SelectObject(dc, brush), drawing.GetStockObject(kWhiteBrush));
  EXPECT_EQ(drawing.SelectObject(dc, font), drawing.GetStockObject(kSystemFont));
  EXPECT_EQ(drawing.SelectObject(dc, drawing.GetStockObject(kNullPen)), pen);
  EXPECT_EQ(drawing.SelectObject(dc, drawing.GetStockObject(kNullBrush)), brush);
  EXPECT_EQ(drawing.SelectObject(dc, drawing.GetStockObject(kSystemFont)), font);
  EXPECT_EQ(drawing.SelectObject(dc, ObjectHandle{54321}), ObjectHandle{});
}

TEST_F(MemoryDrawingObjects, EachOfManyObjectsKeepsItsOwnHandle) {
  std::vector<ObjectHandle> brushes;
  for (std::uint32_t color = 0; color < 300; ++color) brushes.push_back(drawing.CreateSolidBrush({color}));
  for (std::uint32_t color = 0; color < 300; ++color) {
    drawing.FillRect(dc, {0, 0, 1, 1}, brushes[color]);
    EXPECT_EQ(drawing.GetPixel(dc, {0, 0}).value, color);
  }
}

TEST_F(MemoryDrawingObjects, ADeletedHandleStaysUnknownWhenItsPlaceIsUsedAgain) {
  const ObjectHandle first = drawing.CreateSolidBrush({kRed});
  drawing.DeleteObject(first);
  const ObjectHandle second = drawing.CreateSolidBrush({kGreen});
  EXPECT_NE(first, second);
  EXPECT_FALSE(drawing.FillRect(dc, {0, 0, 5, 5}, first));
  EXPECT_FALSE(drawing.DeleteObject(first));
  EXPECT_TRUE(drawing.DeleteObject(second));
}

TEST_F(MemoryDrawingObjects, ADeletedSelectedBrushStillFills) {
  const ObjectHandle brush = drawing.CreateSolidBrush({kGreen});
  drawing.SelectObject(dc, brush);
  EXPECT_TRUE(drawing.DeleteObject(brush));
  drawing.Rectangle(dc, {0, 0, 3, 3});
  EXPECT_EQ(canvas.Rows()[1], "#g#.....");
}

TEST_F(MemoryDrawingObjects, StockObjectsAreNeverDeleted) {
  for (const int index :
       {kWhiteBrush, kBlackBrush, kNullBrush, kWhitePen, kBlackPen, kNullPen, kSystemFont}) {
    const ObjectHandle stock = drawing.GetStockObject(index);
    EXPECT_TRUE(stock) << index;
    EXPECT_TRUE(drawing.DeleteObject(stock));
    EXPECT_TRUE(drawing.SelectObject(dc, stock)) << index;
  }
  EXPECT_FALSE(drawing.GetStockObject(-1));
  EXPECT_FALSE(drawing.GetStockObject(9));
  EXPECT_FALSE(drawing.GetStockObject(1000));
}

TEST_F(MemoryDrawingObjects, ASelectedBitmapIsNotDeleted) {
  const DcHandle memory = drawing.CreateCompatibleDC(dc);
  const ObjectHandle bitmap = drawing.CreateCompatibleBitmap(dc, {3, 3});
  const ObjectHandle former = drawing.SelectObject(memory, bitmap);
  EXPECT_TRUE(former);
  EXPECT_FALSE(drawing.DeleteObject(bitmap));
  EXPECT_EQ(drawing.SelectObject(memory, former), bitmap);
  EXPECT_TRUE(drawing.DeleteObject(bitmap));
}

TEST_F(MemoryDrawingObjects, DeletingAContextFreesItsBitmap) {
  const DcHandle memory = drawing.CreateCompatibleDC(dc);
  const ObjectHandle bitmap = drawing.CreateCompatibleBitmap(dc, {3, 3});
  drawing.SelectObject(memory, bitmap);
  drawing.DeleteDC(memory);
  EXPECT_TRUE(drawing.DeleteObject(bitmap));
}

TEST_F(MemoryDrawingObjects, ABitmapIsSelectedIntoOneMemoryContextOnly) {
  const DcHandle one = drawing.CreateCompatibleDC(dc);
  const DcHandle other = drawing.CreateCompatibleDC(dc);
  const ObjectHandle bitmap = drawing.CreateCompatibleBitmap(dc, {3, 3});
  EXPECT_TRUE(drawing.SelectObject(one, bitmap));
  EXPECT_EQ(drawing.SelectObject(one, bitmap), bitmap);
  EXPECT_FALSE(drawing.SelectObject(other, bitmap));
  EXPECT_FALSE(drawing.SelectObject(dc, bitmap)) << "a window's context has no bitmap";
}

TEST_F(MemoryDrawingObjects, ANewMemoryContextHasOnePixelAndOpaqueMode) {
  const DcHandle memory = drawing.CreateCompatibleDC(dc);
  EXPECT_EQ(drawing.GetPixel(memory, {0, 0}), (ColorRef{0}));
  EXPECT_EQ(drawing.GetPixel(memory, {1, 0}), kInvalidColorRef);
  EXPECT_EQ(drawing.SetBkMode(memory, kTransparent), kOpaque);
  EXPECT_EQ(drawing.SetBkColor(memory, {kRed}), (ColorRef{kWhite}));
  EXPECT_EQ(drawing.SetTextColor(memory, {kRed}), (ColorRef{0}));
  EXPECT_FALSE(drawing.CreateCompatibleDC(DcHandle{777}));
  EXPECT_TRUE(drawing.CreateCompatibleDC(DcHandle{})) << "none means the screen";
}

TEST_F(MemoryDrawingObjects, TwoNewMemoryContextsDoNotShareTheirPixel) {
  const DcHandle one = drawing.CreateCompatibleDC(dc);
  const DcHandle other = drawing.CreateCompatibleDC(dc);
  drawing.FillRect(one, {0, 0, 1, 1}, drawing.CreateSolidBrush({kRed}));
  EXPECT_EQ(drawing.GetPixel(one, {0, 0}), (ColorRef{kRed}));
  EXPECT_EQ(drawing.GetPixel(other, {0, 0}), (ColorRef{0}));
}

TEST_F(MemoryDrawingObjects, ABitmapWithoutAreaNeedsNoDeletion) {
  const ObjectHandle bitmap = drawing.CreateCompatibleBitmap(dc, {0, 5});
  EXPECT_TRUE(bitmap);
  EXPECT_EQ(drawing.LiveObjects(), 0u);
  EXPECT_TRUE(drawing.DeleteObject(bitmap));
  EXPECT_FALSE(drawing.CreateCompatibleBitmap(dc, {-1, 5}));
  EXPECT_FALSE(drawing.CreateCompatibleBitmap(dc, {1 << 20, 1 << 20}));
  EXPECT_FALSE(drawing.CreateCompatibleBitmap(DcHandle{777}, {1, 1}));
}

TEST_F(MemoryDrawingObjects, AWindowContextStartsTransparentWithBlackText) {
  EXPECT_EQ(drawing.SetBkMode(dc, kOpaque), kTransparent);
  EXPECT_EQ(drawing.SetBkMode(dc, 17), 0);
  EXPECT_EQ(drawing.SetTextColor(dc, kInvalidColorRef), (ColorRef{0}));
  EXPECT_EQ(drawing.SetTextColor(dc, {0}), kInvalidColorRef);
  EXPECT_EQ(drawing.SetTextColor(DcHandle{777}, {0}), kInvalidColorRef);
}

TEST_F(MemoryDrawingObjects, DeviceCapsAnswerTheOptions) {
  DrawingOptions options = WithoutFonts();
  options.dpi_x = 120;
  options.dpi_y = 144;
  options.screen = {1600, 900};
  MemoryDrawing other(options);
  const DcHandle memory = other.CreateCompatibleDC({});
  EXPECT_EQ(other.GetDeviceCaps(memory, kLogPixelsX), 120);
  EXPECT_EQ(other.GetDeviceCaps(memory, kLogPixelsY), 144);
  EXPECT_EQ(other.GetDeviceCaps(memory, kHorzRes), 1600);
  EXPECT_EQ(other.GetDeviceCaps(memory, kVertRes), 900);
  EXPECT_EQ(other.GetDeviceCaps(memory, kBitsPixel), 32);
  EXPECT_EQ(other.GetDeviceCaps(memory, 9999), 0);
  EXPECT_EQ(other.GetDeviceCaps(DcHandle{777}, kBitsPixel), 0);
}

TEST_F(MemoryDrawingObjects, OleTranslateColorKnowsConcreteAndSystemColours) {
  ColorRef result{0x55};
  EXPECT_TRUE(drawing.OleTranslateColor(Color(0x00ABCDEFu), 0, result));
  EXPECT_EQ(result, (ColorRef{0xABCDEF}));
  EXPECT_TRUE(drawing.OleTranslateColor(Color(0x8000000Fu), 0, result));
  EXPECT_EQ(result, drawing.GetSysColor(kColorButtonFace));
  EXPECT_TRUE(drawing.OleTranslateColor(Color(0x8000001Eu), 0, result));
  result = {0x55};
  for (const std::uint32_t bits :
       {0x80000100u, 0x05000000u, 0x8000001Fu, 0xFFFFFFFFu, 0x03000000u, 0x81000005u}) {
    EXPECT_FALSE(drawing.OleTranslateColor(Color(bits), 0, result)) << bits;
  }
  EXPECT_EQ(result, (ColorRef{0x55}));
}

TEST_F(MemoryDrawingObjects, OleTranslateColorLeavesPaletteColoursAsTheyAre) {
  for (const std::uint32_t bits : {0x01000000u, 0x0100000Du, 0x0100FFFFu, 0x02ABCDEFu}) {
    ColorRef result{0x55};
    EXPECT_TRUE(drawing.OleTranslateColor(Color(bits), 0, result)) << bits;
    EXPECT_EQ(result, ColorRef{bits});
  }
}

TEST_F(MemoryDrawingObjects, PaletteColoursDrawAsTheDisplaysOwn) {
  const auto drawn = [&](std::uint32_t bits) {
    const ObjectHandle brush = drawing.CreateSolidBrush({bits});
    drawing.FillRect(dc, {0, 0, 1, 1}, brush);
    drawing.DeleteObject(brush);
    return drawing.GetPixel(dc, {0, 0}).value;
  };
  EXPECT_EQ(drawn(0x02ABCDEF), 0xABCDEFu);
  EXPECT_EQ(drawn(0x0100000D), 0x0000FFu);  // red
  EXPECT_EQ(drawn(0x01000009), 0xF0CAA6u);
  EXPECT_EQ(drawn(0x01000013), 0xFFFFFFu);
  EXPECT_EQ(drawn(0x01000014), 0x000000u);  // beyond the last one
  EXPECT_EQ(drawn(0x01AB000D), 0x0000FFu);  // the index has 16 bits
}

TEST_F(MemoryDrawingObjects, ThePaletteIsReplacedAsAWhole) {
  SystemPalette palette = StandardPalette();
  EXPECT_EQ(drawing.Palette(), palette);
  palette.Set(kColorButtonFace, {kRed});
  drawing.SetPalette(palette);
  EXPECT_EQ(drawing.GetSysColor(kColorButtonFace), (ColorRef{kRed}));
  EXPECT_EQ(drawing.GetSysColor(-1), (ColorRef{0}));
  EXPECT_EQ(drawing.GetSysColor(31), (ColorRef{0}));
}

TEST_F(MemoryDrawingObjects, MulDivRoundsHalfAwayFromZero) {
  EXPECT_EQ(drawing.MulDiv(8, 96, 72), 11);
  EXPECT_EQ(drawing.MulDiv(5, 1, 2), 3);
  EXPECT_EQ(drawing.MulDiv(-5, 1, 2), -3);
  EXPECT_EQ(drawing.MulDiv(5, 1, -2), -3);
  EXPECT_EQ(drawing.MulDiv(2000000000, 2000000000, 2000000000), 2000000000);
  EXPECT_EQ(drawing.MulDiv(1, 1, 0), -1);
  EXPECT_EQ(drawing.MulDiv(2000000000, 2, 1), -1);
}

}  // namespace
}  // namespace levelwidgets::memory
