#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>

#include <algorithm>
#include <cmath>

#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

namespace {

constexpr int kBandMargin = 4;         // pixels that the band is higher than a line
constexpr int kOutputPrecision = 4;    // of CreateFontA: prefer fonts with outlines
constexpr double kMostPoints = 32767;  // larger fonts are drawn with this size

// CreateFontA's arguments. A positive height is that of the whole cell, so that the captions are smaller than
// the surface's own text of the same size.
FontRequest CaptionFont(const FontDescription& font, DrawingApi& drawing, DcHandle dc) {
  const double points = std::isnan(font.size) ? 0 : std::clamp(font.size, -kMostPoints, kMostPoints);
  FontRequest request;
  request.height = drawing.MulDiv(RoundToWhole(points), drawing.GetDeviceCaps(dc, kLogPixelsY), 72);
  request.weight = font.bold ? kFontWeightBold : kFontWeightNormal;
  request.italic = font.italic;
  request.underline = font.underline;
  request.strikethrough = font.strikethrough;
  request.charset = font.charset;
  request.output_precision = kOutputPrecision;
  request.face_name = font.name;
  return request;
}

}  // namespace

void FlatTabStrip::OnResize() {
  Surface& surface = GetSurface();
  surface_ = surface.ClientPixels();
  off_screen_.Reset();
  if (!surface.hDC()) return;
  off_screen_ = MemoryContext(surface.Drawing(), surface.hDC(), {surface_.right, surface_.bottom});
  surface.Drawing().SelectObject(off_screen_.Handle(), font_.Handle());
  OnPaint();
}

void FlatTabStrip::RebuildFont() {
  Surface& surface = GetSurface();
  DrawingApi& drawing = surface.Drawing();
  const DcHandle dc = surface.hDC();
  if (!dc) return;
  // Draws, and is painted over: the height of the surface's font, not of the captions'.
  PixelRect sample = surface_;
  const int line_height = drawing.DrawTextA(dc, "abcABC", sample, kDtCenter);
  band_height_ = std::clamp(line_height, 0, kFarthestPixel) + kBandMargin;

  drawing.SelectObject(off_screen_.Handle(), drawing.GetStockObject(kSystemFont));
  font_.Reset();
  const FontDescription font = GetFont() ? GetFont()->Description() : FontDescription{};
  font_ = DrawingObject(drawing, drawing.CreateFontA(CaptionFont(font, drawing, dc)));
  drawing.SelectObject(off_screen_.Handle(), font_.Handle());
}

DrawingObject FlatTabStrip::BrushOf(Color color) const {
  DrawingApi& drawing = GetSurface().Drawing();
  return {drawing, drawing.CreateSolidBrush(TranslateColor(drawing, color))};
}

DrawingObject FlatTabStrip::BorderPen() const {
  DrawingApi& drawing = GetSurface().Drawing();
  return {drawing, drawing.CreatePen(kPsSolid, 1, TranslateColor(drawing, border_color_))};
}

TabStripLayout FlatTabStrip::Layout() const {
  ScreenApi& screen = GetSurface().GetPlatform().Screen();
  return TabStripLayout({.surface = surface_,
                         .band_height = band_height_,
                         .tab_width = PixelsWithinReach(tab_width_, screen.TwipsPerPixelX()),
                         .tabs_at_bottom = orientation_ != ksxTabOrientationTop});
}

void FlatTabStrip::OnPaint() {
  const DcHandle dc = off_screen_.Handle();
  if (!dc) return;
  DrawingApi& drawing = GetSurface().Drawing();
  const TabStripLayout layout = Layout();
  drawing.SetTextColor(dc, TranslateColor(drawing, ForeColor()));
  drawing.FillRect(dc, surface_, back_brush_.Handle());
  {
    const Selection pen(drawing, dc, pen_.Handle());
    const Selection brush(drawing, dc, selected_brush_.Handle());
    drawing.Rectangle(dc, layout.Frame());
    for (int tab = 1; tab <= tab_count_ && layout.CanSee(tab); ++tab) DrawTab(layout, tab);
  }
  drawing.BitBlt(GetSurface().hDC(), surface_, dc, {0, 0}, kSrcCopy);
}

void FlatTabStrip::DrawTab(const TabStripLayout& layout, int tab) {
  DrawingApi& drawing = GetSurface().Drawing();
  const DcHandle dc = off_screen_.Handle();
  const bool selected = tab == selected_tab_;
  drawing.Rectangle(dc, layout.Tab(tab));
  const PixelRect interior = layout.Interior(tab, selected);
  // The text's background is opaque: the glyphs stand on this colour.
  drawing.SetBkColor(dc, TranslateColor(drawing, selected ? tab_color_ : inactive_tab_color_));
  drawing.FillRect(dc, interior, (selected ? selected_brush_ : inactive_brush_).Handle());
  const std::string& caption = captions_[static_cast<std::size_t>(tab) - 1];
  PixelRect text = interior;
  drawing.DrawTextA(dc, caption, text, kDtSingleLine | kDtVCenter | kDtCenter);
  if (selected && has_focus_ && !caption.empty()) DrawFocus(interior, caption);
}

void FlatTabStrip::DrawFocus(PixelRect interior, const std::string& caption) {
  DrawingApi& drawing = GetSurface().Drawing();
  PixelSize extent;
  drawing.GetTextExtentPoint32A(off_screen_.Handle(), caption, extent);
  drawing.DrawFocusRect(off_screen_.Handle(), TabStripLayout::FocusFrame(interior, extent.width));
}

}  // namespace levelwidgets
