// gdi32 and the drawing calls of user32.
#pragma once

#include <levelwidgets/platform/drawing.h>

namespace levelwidgets::win32 {

class Win32Drawing final : public DrawingApi {
 public:
  bool Rectangle(DcHandle dc, PixelRect rect) override;
  bool FillRect(DcHandle dc, PixelRect rect, ObjectHandle brush) override;
  bool MoveTo(DcHandle dc, PixelPoint point) override;
  bool LineTo(DcHandle dc, PixelPoint point) override;
  bool DrawFocusRect(DcHandle dc, PixelRect rect) override;
  int DrawTextA(DcHandle dc, std::string_view text, PixelRect& rect, std::uint32_t format) override;
  bool BitBlt(DcHandle target, PixelRect rect, DcHandle source, PixelPoint source_origin,
              std::uint32_t raster_operation) override;
  ColorRef GetPixel(DcHandle dc, PixelPoint point) override;

  ObjectHandle CreateSolidBrush(ColorRef color) override;
  ObjectHandle CreatePen(int style, int width, ColorRef color) override;
  ObjectHandle CreateFontA(const FontRequest& request) override;
  ObjectHandle CreateCompatibleBitmap(DcHandle dc, PixelSize size) override;
  ObjectHandle GetStockObject(int index) override;
  ObjectHandle SelectObject(DcHandle dc, ObjectHandle object) override;
  bool DeleteObject(ObjectHandle object) override;

  DcHandle CreateCompatibleDC(DcHandle dc) override;
  bool DeleteDC(DcHandle dc) override;
  int GetDeviceCaps(DcHandle dc, int index) override;

  ColorRef SetTextColor(DcHandle dc, ColorRef color) override;
  ColorRef SetBkColor(DcHandle dc, ColorRef color) override;
  int SetBkMode(DcHandle dc, int mode) override;

  bool GetTextExtentPoint32A(DcHandle dc, std::string_view text, PixelSize& size) override;
  bool GetTextMetricsA(DcHandle dc, TextMetrics& metrics) override;

  bool OleTranslateColor(Color color, std::uint32_t palette, ColorRef& result) override;
  ColorRef GetSysColor(int index) override;

  int MulDiv(int value, int numerator, int denominator) override;
};

}  // namespace levelwidgets::win32
