// The drawing of the desktop in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/platform/drawing.h>
#include <levelwidgets/platform/memory/font_search.h>
#include <levelwidgets/platform/memory/system_colors.h>
#include <levelwidgets/platform/memory/target.h>
#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::memory {

struct DrawingOptions {
  int dpi_x = 96;
  int dpi_y = 96;
  PixelSize screen{1024, 768};
  int code_page = 1252;  // one that text::CodePage has; 1252 when it is not
  SystemPalette palette = StandardPalette();
  FontSources fonts;
};

// Software drawing with the pixel rules of the original operations. Text is antialiased; its glyphs are
// kept, so that repainting reads no font. Nothing is loaded before the first text is measured or drawn.
//
// Pens wider than one pixel are round and run along the middle of their line; the dash-dot styles are
// drawn as dashes. A character without a glyph is a box, also the line breaks of a single-line text.
class MemoryDrawing final : public DrawingApi {
 public:
  explicit MemoryDrawing(const DrawingOptions& options);
  ~MemoryDrawing() override;
  MemoryDrawing(const MemoryDrawing&) = delete;
  MemoryDrawing& operator=(const MemoryDrawing&) = delete;

  // --- For the desktop -----------------------------------------------------------------------

  // The own context of a window: transparent background mode, black text, stock objects. `source`
  // must outlive it.
  DcHandle CreateWindowDC(TargetSource* source);
  void DestroyWindowDC(DcHandle dc);

  // Drawing objects and memory contexts made and not yet deleted; stock objects and window contexts
  // are not counted.
  std::size_t LiveObjects() const;

  // A palette changed later repaints nothing by itself.
  void SetPalette(const SystemPalette& palette);
  const SystemPalette& Palette() const;

  const text::CodePage& CodePage() const;
  // Between UTF-8 and the system's code page; "?" for what is outside it.
  std::string ToCodePage(std::string_view utf8) const;
  std::string FromCodePage(std::string_view bytes) const;

  // --- DrawingApi ----------------------------------------------------------------------------

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

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace levelwidgets::memory
