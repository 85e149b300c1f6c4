#include <levelwidgets/platform/win32/win32_drawing.h>

#include <windows.h>

#include <olectl.h>

#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::win32 {
namespace {

HDC Native(DcHandle dc) { return ToNative<HDC>(dc); }
HGDIOBJ Native(ObjectHandle object) { return ToNative<HGDIOBJ>(object); }
ObjectHandle Object(void* native) { return FromNative<ObjectHandle>(native); }

}  // namespace

bool Win32Drawing::Rectangle(DcHandle dc, PixelRect rect) {
  return ::Rectangle(Native(dc), rect.left, rect.top, rect.right, rect.bottom) != FALSE;
}

bool Win32Drawing::FillRect(DcHandle dc, PixelRect rect, ObjectHandle brush) {
  const RECT native = ToNative<RECT>(rect);
  return ::FillRect(Native(dc), &native, static_cast<HBRUSH>(Native(brush))) != 0;
}

bool Win32Drawing::MoveTo(DcHandle dc, PixelPoint point) {
  return ::MoveToEx(Native(dc), point.x, point.y, nullptr) != FALSE;
}

bool Win32Drawing::LineTo(DcHandle dc, PixelPoint point) {
  return ::LineTo(Native(dc), point.x, point.y) != FALSE;
}

bool Win32Drawing::DrawFocusRect(DcHandle dc, PixelRect rect) {
  const RECT native = ToNative<RECT>(rect);
  return ::DrawFocusRect(Native(dc), &native) != FALSE;
}

int Win32Drawing::DrawTextA(DcHandle dc, std::string_view text, PixelRect& rect, std::uint32_t format) {
  RECT native = ToNative<RECT>(rect);
  const int height = ::DrawTextA(Native(dc), ToCodePage(text).c_str(), -1, &native, format);
  rect = FromNativeRect(native);
  return height;
}

bool Win32Drawing::BitBlt(DcHandle target, PixelRect rect, DcHandle source, PixelPoint source_origin,
                          std::uint32_t raster_operation) {
  return ::BitBlt(Native(target), rect.left, rect.top, rect.width(), rect.height(), Native(source),
                  source_origin.x, source_origin.y, raster_operation) != FALSE;
}

ColorRef Win32Drawing::GetPixel(DcHandle dc, PixelPoint point) {
  return {::GetPixel(Native(dc), point.x, point.y)};
}

ObjectHandle Win32Drawing::CreateSolidBrush(ColorRef color) {
  return Object(::CreateSolidBrush(color.value));
}

ObjectHandle Win32Drawing::CreatePen(int style, int width, ColorRef color) {
  return Object(::CreatePen(style, width, color.value));
}

ObjectHandle Win32Drawing::CreateFontA(const FontRequest& request) {
  const auto bits = [](int value) { return static_cast<DWORD>(value); };
  return Object(::CreateFontA(request.height, request.width, request.escapement, request.orientation,
                              request.weight, request.italic, request.underline, request.strikethrough,
                              bits(request.charset), bits(request.output_precision),
                              bits(request.clip_precision), bits(request.quality),
                              bits(request.pitch_and_family), ToCodePage(request.face_name).c_str()));
}

ObjectHandle Win32Drawing::CreateCompatibleBitmap(DcHandle dc, PixelSize size) {
  return Object(::CreateCompatibleBitmap(Native(dc), size.width, size.height));
}

ObjectHandle Win32Drawing::GetStockObject(int index) { return Object(::GetStockObject(index)); }

ObjectHandle Win32Drawing::SelectObject(DcHandle dc, ObjectHandle object) {
  return Object(::SelectObject(Native(dc), Native(object)));
}

bool Win32Drawing::DeleteObject(ObjectHandle object) { return ::DeleteObject(Native(object)) != FALSE; }

DcHandle Win32Drawing::CreateCompatibleDC(DcHandle dc) {
  return FromNative<DcHandle>(::CreateCompatibleDC(Native(dc)));
}

bool Win32Drawing::DeleteDC(DcHandle dc) { return ::DeleteDC(Native(dc)) != FALSE; }

int Win32Drawing::GetDeviceCaps(DcHandle dc, int index) { return ::GetDeviceCaps(Native(dc), index); }

ColorRef Win32Drawing::SetTextColor(DcHandle dc, ColorRef color) {
  return {::SetTextColor(Native(dc), color.value)};
}

ColorRef Win32Drawing::SetBkColor(DcHandle dc, ColorRef color) {
  return {::SetBkColor(Native(dc), color.value)};
}

int Win32Drawing::SetBkMode(DcHandle dc, int mode) { return ::SetBkMode(Native(dc), mode); }

bool Win32Drawing::GetTextExtentPoint32A(DcHandle dc, std::string_view text, PixelSize& size) {
  const std::string converted = ToCodePage(text);
  SIZE native = {};
  if (!::GetTextExtentPoint32A(Native(dc), converted.data(), static_cast<int>(converted.size()), &native))
    return false;
  size = {static_cast<int>(native.cx), static_cast<int>(native.cy)};
  return true;
}

bool Win32Drawing::GetTextMetricsA(DcHandle dc, TextMetrics& metrics) {
  TEXTMETRICA native = {};
  if (!::GetTextMetricsA(Native(dc), &native)) return false;
  metrics = {.height = static_cast<int>(native.tmHeight),
             .ascent = static_cast<int>(native.tmAscent),
             .descent = static_cast<int>(native.tmDescent),
             .internal_leading = static_cast<int>(native.tmInternalLeading),
             .external_leading = static_cast<int>(native.tmExternalLeading),
             .average_char_width = static_cast<int>(native.tmAveCharWidth),
             .max_char_width = static_cast<int>(native.tmMaxCharWidth)};
  return true;
}

bool Win32Drawing::OleTranslateColor(Color color, std::uint32_t palette, ColorRef& result) {
  // Wine looks at the low byte of the index only.
  constexpr std::uint32_t kSystemColor = 0x80000000u;
  if ((color.bits() & kSystemColor) != 0 && color.bits() - kSystemColor >= kSystemColorCount) return false;
  COLORREF native = 0;
  if (FAILED(::OleTranslateColor(color.bits(), ToNative<HPALETTE>(ObjectHandle{palette}), &native)))
    return false;
  result = {native};
  return true;
}

ColorRef Win32Drawing::GetSysColor(int index) { return {::GetSysColor(index)}; }

int Win32Drawing::MulDiv(int value, int numerator, int denominator) {
  return ::MulDiv(value, numerator, denominator);
}

}  // namespace levelwidgets::win32
