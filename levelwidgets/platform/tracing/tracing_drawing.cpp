#include <levelwidgets/platform/tracing/parts.h>

namespace levelwidgets::tracing {
namespace {

class TracingDrawing final : public DrawingApi {
 public:
  TracingDrawing(DrawingApi& target, CallLog& log) : target_(target), log_(log) {}

  bool Rectangle(DcHandle dc, PixelRect rect) override {
    return log_.Pass("Rectangle", target_, &DrawingApi::Rectangle, dc, rect);
  }
  bool FillRect(DcHandle dc, PixelRect rect, ObjectHandle brush) override {
    return log_.Pass("FillRect", target_, &DrawingApi::FillRect, dc, rect, brush);
  }
  bool MoveTo(DcHandle dc, PixelPoint point) override {
    return log_.Pass("MoveTo", target_, &DrawingApi::MoveTo, dc, point);
  }
  bool LineTo(DcHandle dc, PixelPoint point) override {
    return log_.Pass("LineTo", target_, &DrawingApi::LineTo, dc, point);
  }
  bool DrawFocusRect(DcHandle dc, PixelRect rect) override {
    return log_.Pass("DrawFocusRect", target_, &DrawingApi::DrawFocusRect, dc, rect);
  }
  int DrawTextA(DcHandle dc, std::string_view text, PixelRect& rect, std::uint32_t format) override {
    constexpr int kWholeText = -1;
    log_.Record("DrawTextA", dc, text, kWholeText, rect, format);
    return target_.DrawTextA(dc, text, rect, format);
  }
  bool BitBlt(DcHandle target, PixelRect rect, DcHandle source, PixelPoint source_origin,
              std::uint32_t raster_operation) override {
    log_.Record("BitBlt", target, rect.left, rect.top, rect.width(), rect.height(), source, source_origin,
                raster_operation);
    return target_.BitBlt(target, rect, source, source_origin, raster_operation);
  }
  ColorRef GetPixel(DcHandle dc, PixelPoint point) override {
    return log_.Pass("GetPixel", target_, &DrawingApi::GetPixel, dc, point);
  }

  ObjectHandle CreateSolidBrush(ColorRef color) override {
    return log_.Pass("CreateSolidBrush", target_, &DrawingApi::CreateSolidBrush, color);
  }
  ObjectHandle CreatePen(int style, int width, ColorRef color) override {
    return log_.Pass("CreatePen", target_, &DrawingApi::CreatePen, style, width, color);
  }
  ObjectHandle CreateFontA(const FontRequest& font) override {
    log_.Record("CreateFontA", font.height, font.width, font.escapement, font.orientation, font.weight,
                font.italic, font.underline, font.strikethrough, font.charset, font.output_precision,
                font.clip_precision, font.quality, font.pitch_and_family, font.face_name);
    return target_.CreateFontA(font);
  }
  ObjectHandle CreateCompatibleBitmap(DcHandle dc, PixelSize size) override {
    return log_.Pass("CreateCompatibleBitmap", target_, &DrawingApi::CreateCompatibleBitmap, dc, size);
  }
  ObjectHandle GetStockObject(int index) override {
    return log_.Pass("GetStockObject", target_, &DrawingApi::GetStockObject, index);
  }
  ObjectHandle SelectObject(DcHandle dc, ObjectHandle object) override {
    return log_.Pass("SelectObject", target_, &DrawingApi::SelectObject, dc, object);
  }
  bool DeleteObject(ObjectHandle object) override {
    return log_.Pass("DeleteObject", target_, &DrawingApi::DeleteObject, object);
  }

  DcHandle CreateCompatibleDC(DcHandle dc) override {
    return log_.Pass("CreateCompatibleDC", target_, &DrawingApi::CreateCompatibleDC, dc);
  }
  bool DeleteDC(DcHandle dc) override { return log_.Pass("DeleteDC", target_, &DrawingApi::DeleteDC, dc); }
  int GetDeviceCaps(DcHandle dc, int index) override {
    return log_.Pass("GetDeviceCaps", target_, &DrawingApi::GetDeviceCaps, dc, index);
  }

  ColorRef SetTextColor(DcHandle dc, ColorRef color) override {
    return log_.Pass("SetTextColor", target_, &DrawingApi::SetTextColor, dc, color);
  }
  ColorRef SetBkColor(DcHandle dc, ColorRef color) override {
    return log_.Pass("SetBkColor", target_, &DrawingApi::SetBkColor, dc, color);
  }
  int SetBkMode(DcHandle dc, int mode) override {
    return log_.Pass("SetBkMode", target_, &DrawingApi::SetBkMode, dc, mode);
  }

  bool GetTextExtentPoint32A(DcHandle dc, std::string_view text, PixelSize& size) override {
    log_.Record("GetTextExtentPoint32A", dc, text, text.size());
    return target_.GetTextExtentPoint32A(dc, text, size);
  }
  bool GetTextMetricsA(DcHandle dc, TextMetrics& metrics) override {
    log_.Record("GetTextMetricsA", dc);
    return target_.GetTextMetricsA(dc, metrics);
  }

  bool OleTranslateColor(Color color, std::uint32_t palette, ColorRef& result) override {
    log_.Record("OleTranslateColor", color, palette);
    return target_.OleTranslateColor(color, palette, result);
  }
  ColorRef GetSysColor(int index) override {
    return log_.Pass("GetSysColor", target_, &DrawingApi::GetSysColor, index);
  }
  int MulDiv(int value, int numerator, int denominator) override {
    return log_.Pass("MulDiv", target_, &DrawingApi::MulDiv, value, numerator, denominator);
  }

 private:
  DrawingApi& target_;
  CallLog& log_;
};

}  // namespace

std::unique_ptr<DrawingApi> Trace(DrawingApi& target, CallLog& log) {
  return std::make_unique<TracingDrawing>(target, log);
}

}  // namespace levelwidgets::tracing
