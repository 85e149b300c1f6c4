// What a control asks of the operating system's 2-D drawing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets {

// The arguments of CreateFontA, with its meanings and defaults.
struct FontRequest {
  int height = 0;  // pixels: > 0 the most of a cell, < 0 character height, 0 the platform's default
  int width = 0;
  int escapement = 0;
  int orientation = 0;
  int weight = kFontWeightNormal;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  int charset = kDefaultCharset;
  int output_precision = 0;
  int clip_precision = 0;
  int quality = 0;
  int pitch_and_family = 0;
  std::string face_name;  // UTF-8; a face that is not installed is replaced, never refused

  friend bool operator==(const FontRequest&, const FontRequest&) = default;
};

// GetTextMetricsA, in pixels.
struct TextMetrics {
  int height = 0;  // ascent + descent: the height of a line
  int ascent = 0;
  int descent = 0;
  int internal_leading = 0;
  int external_leading = 0;
  int average_char_width = 0;
  int max_char_width = 0;
};

// Operations of the operating system under their own names. Coordinates are pixels in the context's
// window or bitmap; what falls outside it, or outside the part of the window that can be seen, is not
// drawn. Texts are UTF-8 and are converted to the system's code page first; a character
// outside it becomes "?".
//
// An operation on an unknown or deleted handle draws nothing and returns false, 0 or a null handle;
// none of them throws.
class DrawingApi {
 public:
  virtual ~DrawingApi() = default;

  // --- Drawing -------------------------------------------------------------------------------

  // Outline in the current pen, interior in the current brush; right and bottom are excluded. With the null
  // brush it draws the frame only. A rectangle that is empty, or a single pixel, draws nothing.
  virtual bool Rectangle(DcHandle dc, PixelRect rect) = 0;
  // Fills with `brush` and draws no outline; right and bottom are excluded, also where they come first.
  virtual bool FillRect(DcHandle dc, PixelRect rect, ObjectHandle brush) = 0;
  virtual bool MoveTo(DcHandle dc, PixelPoint point) = 0;
  // From the current position to `point`, which is not drawn but becomes the current position.
  virtual bool LineTo(DcHandle dc, PixelPoint point) = 0;
  // The one-pixel frame, dotted from its top right corner on, by exclusive-or: done twice it is gone.
  virtual bool DrawFocusRect(DcHandle dc, PixelRect rect) = 0;
  // Draws `text` in the context's font and text colour inside `rect`, clipped to it unless kDtNoClip.
  // "&" underlines the next character and "&&" draws one "&", unless kDtNoPrefix. Line breaks count
  // only without kDtSingleLine; kDtVCenter and kDtBottom count only with it. With kDtCalcRect nothing
  // is drawn and `rect` becomes the extent. Returns the distance from the rectangle's top to the bottom of
  // the text in pixels (the height of a line when there is none), 0 on failure.
  virtual int DrawTextA(DcHandle dc, std::string_view text, PixelRect& rect, std::uint32_t format) = 0;
  // `raster_operation` is kSrcCopy. A negative size ends with the corners given, and mirrors nothing.
  virtual bool BitBlt(DcHandle target, PixelRect rect, DcHandle source, PixelPoint source_origin,
                      std::uint32_t raster_operation) = 0;
  // kInvalidColorRef outside the context's clip region.
  virtual ColorRef GetPixel(DcHandle dc, PixelPoint point) = 0;

  // --- Drawing objects -----------------------------------------------------------------------

  virtual ObjectHandle CreateSolidBrush(ColorRef color) = 0;
  virtual ObjectHandle CreatePen(int style, int width, ColorRef color) = 0;
  virtual ObjectHandle CreateFontA(const FontRequest& request) = 0;
  // A bitmap of `size` pixels in the format of `dc`, black.
  virtual ObjectHandle CreateCompatibleBitmap(DcHandle dc, PixelSize size) = 0;
  // Stock objects need no deletion and are not counted as live.
  virtual ObjectHandle GetStockObject(int index) = 0;
  // Returns the object of the same kind that was selected before.
  virtual ObjectHandle SelectObject(DcHandle dc, ObjectHandle object) = 0;
  // Refused (false) for a bitmap that is selected into a context.
  virtual bool DeleteObject(ObjectHandle object) = 0;

  // --- Contexts ------------------------------------------------------------------------------

  // A memory context with a one by one pixel bitmap, opaque background mode and stock objects.
  virtual DcHandle CreateCompatibleDC(DcHandle dc) = 0;
  // Only for contexts made by CreateCompatibleDC.
  virtual bool DeleteDC(DcHandle dc) = 0;
  virtual int GetDeviceCaps(DcHandle dc, int index) = 0;

  // Each returns the value it replaces.
  virtual ColorRef SetTextColor(DcHandle dc, ColorRef color) = 0;
  virtual ColorRef SetBkColor(DcHandle dc, ColorRef color) = 0;
  virtual int SetBkMode(DcHandle dc, int mode) = 0;

  // --- Measures ------------------------------------------------------------------------------

  virtual bool GetTextExtentPoint32A(DcHandle dc, std::string_view text, PixelSize& size) = 0;  // "": 0 by 0
  virtual bool GetTextMetricsA(DcHandle dc, TextMetrics& metrics) = 0;

  // --- Colours -------------------------------------------------------------------------------

  // What `color` draws as, in `result`: a system colour's current value; 0x00BBGGRR as it is, and so is what
  // has 0x01 or 0x02 in its top byte. False, with `result` untouched, for anything else (0x80000100,
  // 0x05000000).
  //
  // Drawing operations need no palette. What has the lowest bit of its top byte is, by its lower 16 bits, one
  // of the 20 colours of every display, black from 20 on (so kInvalidColorRef); 0x02BBGGRR is 0x00BBGGRR.
  virtual bool OleTranslateColor(Color color, std::uint32_t palette, ColorRef& result) = 0;
  virtual ColorRef GetSysColor(int index) = 0;

  // value * numerator / denominator, rounded half away from zero, without overflow in between;
  // -1 when the denominator is 0 or the result does not fit.
  virtual int MulDiv(int value, int numerator, int denominator) = 0;
};

}  // namespace levelwidgets
