#include <levelwidgets/platform/memory/text_paint.h>

#include <levelwidgets/platform/memory/raster.h>

namespace levelwidgets::memory {

namespace {

template <typename Row>
void PaintGlyph(const PixelRect& part, Row row, int stride, const Glyph& glyph, PixelPoint at,
                std::uint32_t color) {
  const PixelRect picture{at.x, at.y, at.x + glyph.width, at.y + glyph.height};
  const PixelRect seen = Intersect(picture, part);
  if (seen.empty()) return;
  const std::uint8_t* coverage = glyph.coverage + (seen.top - at.y) * glyph.width + (seen.left - at.x);
  BlendArea(row(seen.top) + seen.left, stride, coverage, glyph.width, {seen.width(), seen.height()}, color);
}

}  // namespace

void PaintGlyphs(const DrawingTarget& target, const PixelRect& limit, Font& font, std::string_view bytes,
                 PixelPoint at, std::uint32_t color) {
  ForEachPart(target, limit, [&](const PixelRect& part, auto row) {
    int x = at.x;
    for (std::string_view rest = bytes; !rest.empty();) {
      if (x > part.right + font.Metrics().text.height) break;  // further left no glyph reaches
      const Glyph& glyph = font.At(font.CodePage().TakeCode(rest));
      PaintGlyph(part, row, target.store->size.width, glyph, {x + glyph.left, at.y + glyph.top}, color);
      x += glyph.advance;
    }
  });
}

void PaintRules(const DrawingTarget& target, const PixelRect& limit, Font& font, PixelPoint at, int width,
                std::uint32_t color) {
  const FaceMetrics& metrics = font.Metrics();
  auto rule = [&](int top) {
    const PixelRect rect{at.x, at.y + top, at.x + width, at.y + top + metrics.rule_height};
    FillArea(target, Intersect(rect, limit), color);
  };
  if (font.Request().underline) rule(metrics.underline_top);
  if (font.Request().strikethrough) rule(metrics.strikethrough_top);
}

}  // namespace levelwidgets::memory
