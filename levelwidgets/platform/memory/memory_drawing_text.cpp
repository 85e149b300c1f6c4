// Texts and their measures.
#include <algorithm>

#include <levelwidgets/platform/memory/memory_drawing_state.h>
#include <levelwidgets/platform/memory/raster.h>
#include <levelwidgets/platform/memory/text_paint.h>

namespace levelwidgets::memory {

namespace {

int LineLeft(const PixelRect& rect, int width, std::uint32_t format) {
  if (format & kDtCenter) return (rect.left + rect.right - width) / 2;
  if (format & kDtRight) return rect.right - width;
  return rect.left;
}

int FirstTop(const PixelRect& rect, int height, std::uint32_t format) {
  if (!(format & kDtSingleLine)) return rect.top;
  // Each half is rounded on its own: a text of odd height is nearer to the bottom where it cannot be in the
  // middle.
  if (format & kDtVCenter) return rect.top + rect.height() / 2 - height / 2;
  if (format & kDtBottom) return rect.bottom - height;
  return rect.top;
}

void PaintLine(Context& context, const PixelRect& limit, const TextLine& line, PixelPoint at) {
  const DrawingTarget& target = context.Target();
  Font& font = *context.font;
  const TextMetrics& metrics = font.Metrics().text;
  const std::uint32_t color = Drawable(context.text_color);
  if (context.background_mode == kOpaque) {
    FillArea(target, Intersect({at.x, at.y, at.x + line.width, at.y + metrics.height}, limit),
             Drawable(context.background_color));
  }
  PaintGlyphs(target, limit, font, line.bytes, at, color);
  PaintRules(target, limit, font, at, line.width, color);
  if (line.mark < 0) return;
  const auto mark = static_cast<std::size_t>(line.mark);
  const int left = at.x + font.Width(line.bytes.substr(0, mark));
  const int top = at.y + metrics.ascent + 1;
  std::string_view marked = line.bytes.substr(mark);
  const int right = left + font.At(font.CodePage().TakeCode(marked)).advance;
  FillArea(target, Intersect({left, top, right, top + 1}, limit), color);
}

}  // namespace

int MemoryDrawing::DrawTextA(DcHandle dc, std::string_view text, PixelRect& place, std::uint32_t format) {
  Context* context = state_->FindContext(dc);
  if (!context) return 0;
  const PixelRect rect = Reachable(place);
  text = text.substr(0, text.find('\0'));
  Font& font = *context->font;
  const int line_height = font.Metrics().text.height;
  const bool one_line = (format & kDtSingleLine) != 0;
  // Without text there is nothing to place.
  if (text.empty() && one_line) format &= ~(kDtVCenter | kDtBottom);
  if (one_line && !(format & kDtCalcRect) && !context->Target().store) {
    return FirstTop(rect, line_height, format) + line_height - rect.top;  // nothing of it can be seen
  }
  const auto& lines = state_->layout.Break(text, state_->code_page, font, rect.width(), format);
  const int height = static_cast<int>(lines.size()) * line_height;
  if (format & kDtCalcRect) {
    int width = 0;
    for (const TextLine& line : lines) width = std::max(width, line.width);
    // Down to the bottom of the text where it would be drawn.
    const int bottom = FirstTop(rect, height, format) + height;
    place = {rect.left, rect.top, rect.left + width, bottom};
    return lines.empty() ? line_height : bottom - rect.top;
  }
  const int top = FirstTop(rect, height, format);
  const PixelRect limit = format & kDtNoClip ? kNoLimit : rect;
  int y = top;
  for (const TextLine& line : lines) {
    PaintLine(*context, limit, line, {LineLeft(rect, line.width, format), y});
    y += line_height;
  }
  return lines.empty() ? line_height : y - rect.top;
}

bool MemoryDrawing::GetTextExtentPoint32A(DcHandle dc, std::string_view text, PixelSize& size) {
  Context* context = state_->FindContext(dc);
  if (!context) return false;
  state_->bytes.clear();
  state_->code_page.Append(text, state_->bytes);
  if (state_->bytes.empty()) {
    size = {};
    return true;
  }
  size = {context->font->Width(state_->bytes), context->font->Metrics().text.height};
  return true;
}

bool MemoryDrawing::GetTextMetricsA(DcHandle dc, TextMetrics& metrics) {
  Context* context = state_->FindContext(dc);
  if (!context) return false;
  metrics = context->font->Metrics().text;
  return true;
}

}  // namespace levelwidgets::memory
