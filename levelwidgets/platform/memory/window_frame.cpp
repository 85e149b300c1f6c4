#include <levelwidgets/platform/memory/window_frame.h>

namespace levelwidgets::memory {

namespace {

constexpr int kCaptionHeight = 22;  // at 96 dots per inch, without the border above
constexpr int kTitleMargin = 6;

bool HasCaption(std::uint32_t style) { return (style & kWsCaption) == kWsCaption; }
bool HasBorder(std::uint32_t style) { return (style & kWsBorder) != 0; }
bool HasCloseBox(std::uint32_t style) { return HasCaption(style) && (style & kWsSysMenu) != 0; }

// What the frame is drawn on: the outer rectangle without the client area.
class FrameTarget final : public TargetSource {
 public:
  FrameTarget(WindowTree& tree, Window& window) : region_(tree.VisibleOuter(window)) {
    const PixelPoint client = tree.StoreOrigin(window);
    const PixelSize size = WindowTree::ClientSize(window);
    region_.Subtract(PixelRect{0, 0, size.width, size.height}.Offset(client.x, client.y));
    target_.origin = {client.x - window.frame.left, client.y - window.frame.top};
    target_.store = tree.Root(window).store.get();
    target_.clip = region_.Rects();
  }
  const DrawingTarget& Target() override { return target_; }

 private:
  Region region_;
  DrawingTarget target_;
};

}  // namespace

std::uint32_t CompletedStyle(std::uint32_t style) {
  if ((style & kWsChild) != 0 && (style & kWsPopup) == 0) return style;
  if ((style & kWsPopup) == 0) style |= kWsCaption;
  return style | kWsClipSiblings;
}

WindowFrame::WindowFrame(MemoryDrawing& drawing, int dpi_x, int dpi_y)
    : drawing_(drawing),
      caption_height_(drawing.MulDiv(kCaptionHeight, dpi_y, 96)),
      close_box_width_(drawing.MulDiv(kCaptionHeight, dpi_x, 96)) {}

FrameWidths WindowFrame::Widths(std::uint32_t style) const {
  if (HasCaption(style)) return {1, 1 + caption_height_, 1, 1};
  if (HasBorder(style)) return {1, 1, 1, 1};
  return {};
}

PixelRect WindowFrame::Caption(const Window& window) const {
  if (!HasCaption(window.style)) return {};
  return {window.frame.left, 1, window.rect.width() - window.frame.right, window.frame.top};
}

PixelRect WindowFrame::CloseBox(const Window& window) const {
  if (!HasCloseBox(window.style)) return {};
  PixelRect box = Caption(window);
  box.left = box.right - close_box_width_;
  return box;
}

FramePart WindowFrame::HitTest(const Window& window, PixelPoint point) const {
  const PixelSize size = WindowTree::ClientSize(window);
  const PixelRect client{0, 0, size.width, size.height};
  if (client.Offset(window.frame.left, window.frame.top).Contains(point)) return FramePart::kNone;
  if (CloseBox(window).Contains(point)) return FramePart::kCloseBox;
  return Caption(window).Contains(point) ? FramePart::kCaption : FramePart::kBorder;
}

void WindowFrame::Draw(WindowTree& tree, Window& window, bool active) {
  FrameTarget target(tree, window);
  const DcHandle dc = drawing_.CreateWindowDC(&target);
  DrawBorder(dc, window);
  if (HasCaption(window.style)) DrawCaption(dc, window, active);
  drawing_.DestroyWindowDC(dc);
}

void WindowFrame::Fill(DcHandle dc, const PixelRect& rect, int system_color) {
  const ObjectHandle brush = drawing_.CreateSolidBrush(drawing_.GetSysColor(system_color));
  drawing_.FillRect(dc, rect, brush);
  drawing_.DeleteObject(brush);
}

void WindowFrame::DrawBorder(DcHandle dc, const Window& window) {
  Fill(dc, {0, 0, window.rect.width(), window.rect.height()}, kColorWindowFrame);
}

void WindowFrame::DrawCaption(DcHandle dc, const Window& window, bool active) {
  PixelRect title = Caption(window);
  Fill(dc, title, active ? kColorHighlight : kColorButtonFace);
  const ColorRef color = drawing_.GetSysColor(active ? kColorHighlightText : kColorGrayText);
  if (const PixelRect box = CloseBox(window); !box.empty()) {
    DrawCloseBox(dc, box, color);
    title.right = box.left;
  }
  title.left += kTitleMargin;
  drawing_.SetTextColor(dc, color);
  if (!title.empty()) {
    drawing_.DrawTextA(dc, window.title, title, kDtSingleLine | kDtVCenter | kDtNoPrefix);
  }
}

// A cross of two strokes.
void WindowFrame::DrawCloseBox(DcHandle dc, const PixelRect& box, ColorRef color) {
  const int arm = box.height() / 5;
  const PixelPoint middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  const ObjectHandle pen = drawing_.CreatePen(kPsSolid, 1, color);
  const ObjectHandle before = drawing_.SelectObject(dc, pen);
  drawing_.MoveTo(dc, {middle.x - arm, middle.y - arm});
  drawing_.LineTo(dc, {middle.x + arm + 1, middle.y + arm + 1});
  drawing_.MoveTo(dc, {middle.x - arm, middle.y + arm});
  drawing_.LineTo(dc, {middle.x + arm + 1, middle.y - arm - 1});
  drawing_.SelectObject(dc, before);
  drawing_.DeleteObject(pen);
}

}  // namespace levelwidgets::memory
