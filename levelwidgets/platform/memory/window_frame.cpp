#include <levelwidgets/platform/memory/window_frame.h>

namespace levelwidgets::memory {

namespace {

constexpr int kCaptionHeight = 22;  // at 96 dots per inch, without the border above
constexpr int kTitleHeight = 16;
constexpr int kTitleMargin = 6;

bool HasCaption(std::uint32_t style) { return (style & kWsCaption) == kWsCaption; }
bool HasBorder(std::uint32_t style) { return (style & kWsBorder) != 0; }
bool HasCloseBox(std::uint32_t style) { return HasCaption(style) && (style & kWsSysMenu) != 0; }

// From the right.
struct BoxStyle {
  FramePart part;
  std::uint32_t style;
};
constexpr BoxStyle kBoxes[] = {{FramePart::kCloseBox, kWsSysMenu},
                               {FramePart::kMaximizeBox, kWsMaximizeBox},
                               {FramePart::kMinimizeBox, kWsMinimizeBox}};

// How far from a corner the border drags both its edges.
constexpr int kCornerReach = 16;

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

WindowFrame::WindowFrame(MemoryDrawing& drawing, PixelSize dots_per_inch)
    : drawing_(drawing),
      caption_height_(drawing.MulDiv(kCaptionHeight, dots_per_inch.height, 96)),
      box_width_(drawing.MulDiv(kCaptionHeight, dots_per_inch.width, 96)),
      title_height_(drawing.MulDiv(kTitleHeight, dots_per_inch.height, 96)),
      title_margin_(drawing.MulDiv(kTitleMargin, dots_per_inch.width, 96)) {}

FrameWidths WindowFrame::Widths(std::uint32_t style) const {
  if (HasCaption(style)) return {1, 1 + caption_height_, 1, 1};
  if (HasBorder(style)) return {1, 1, 1, 1};
  return {};
}

PixelRect WindowFrame::Caption(const Window& window) const {
  if (!HasCaption(window.style)) return {};
  return {window.frame.left, 1, window.rect.width() - window.frame.right, window.frame.top};
}

PixelRect WindowFrame::Box(const Window& window, FramePart box) const {
  const PixelRect caption = Caption(window);
  int right = caption.right;
  for (const BoxStyle& other : kBoxes) {
    const bool there = HasCloseBox(window.style) && window.Has(other.style);
    if (other.part == box)
      return there ? PixelRect{right - box_width_, caption.top, right, caption.bottom} : PixelRect{};
    if (there) right -= box_width_;
  }
  return {};
}

FramePart WindowFrame::HitTest(const Window& window, PixelPoint point) const {
  const PixelSize size = WindowTree::ClientSize(window);
  const PixelRect client{0, 0, size.width, size.height};
  if (client.Offset(window.frame.left, window.frame.top).Contains(point)) return FramePart::kNone;
  for (const BoxStyle& box : kBoxes) {
    if (Box(window, box.part).Contains(point)) return box.part;
  }
  return Caption(window).Contains(point) ? FramePart::kCaption : FramePart::kBorder;
}

FrameEdges WindowFrame::EdgesAt(const Window& window, PixelPoint point) const {
  if (!window.Has(kWsThickFrame) || window.Has(kWsMaximize)) return {};
  if (HitTest(window, point) != FramePart::kBorder) return {};
  const auto reaches = [&](int reach) {
    return FrameEdges{point.x < reach, point.y < reach, point.x >= window.rect.width() - reach,
                      point.y >= window.rect.height() - reach};
  };
  const FrameEdges on = reaches(1);
  const FrameEdges near = reaches(kCornerReach);
  const bool across = on.left || on.right;
  const bool down = on.top || on.bottom;
  return {on.left || (down && near.left), on.top || (across && near.top), on.right || (down && near.right),
          on.bottom || (across && near.bottom)};
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
  DrawBoxes(dc, window, color);
  for (const BoxStyle& box : kBoxes) {
    if (const PixelRect place = Box(window, box.part); !place.empty()) title.right = place.left;
  }
  title.left += title_margin_;
  drawing_.SetTextColor(dc, color);
  if (!title.empty()) DrawTitle(dc, window.title, title);
}

// In the system's font, as large as the resolution wants it.
void WindowFrame::DrawTitle(DcHandle dc, std::string_view text, PixelRect place) {
  FontRequest request;
  request.height = title_height_;
  request.weight = kFontWeightBold;
  request.face_name = "System";
  const ObjectHandle font = drawing_.CreateFontA(request);
  const ObjectHandle font_before = drawing_.SelectObject(dc, font);
  drawing_.DrawTextA(dc, text, place, kDtSingleLine | kDtVCenter | kDtNoPrefix);
  drawing_.SelectObject(dc, font_before);
  drawing_.DeleteObject(font);
}

// A cross of two strokes, an open square (two of them once the window is maximised), a line.
void WindowFrame::DrawBoxes(DcHandle dc, const Window& window, ColorRef color) {
  const ObjectHandle pen = drawing_.CreatePen(kPsSolid, 1, color);
  const ObjectHandle pen_before = drawing_.SelectObject(dc, pen);
  const ObjectHandle brush_before = drawing_.SelectObject(dc, drawing_.GetStockObject(kNullBrush));
  for (const BoxStyle& box : kBoxes) {
    const PixelRect place = Box(window, box.part);
    if (!place.empty()) DrawSign(dc, box.part, place, window.Has(kWsMaximize));
  }
  drawing_.SelectObject(dc, brush_before);
  drawing_.SelectObject(dc, pen_before);
  drawing_.DeleteObject(pen);
}

void WindowFrame::DrawSign(DcHandle dc, FramePart part, const PixelRect& box, bool maximized) {
  const int arm = box.height() / 5;
  const PixelPoint middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  const PixelRect square{middle.x - arm, middle.y - arm, middle.x + arm + 1, middle.y + arm + 1};
  if (part == FramePart::kMinimizeBox) {
    drawing_.MoveTo(dc, {square.left, square.bottom - 1});
    drawing_.LineTo(dc, {square.right, square.bottom - 1});
  } else if (part == FramePart::kMaximizeBox) {
    if (maximized) drawing_.Rectangle(dc, square.Offset(arm / 2, -arm / 2));
    drawing_.Rectangle(dc, square);
  } else {
    drawing_.MoveTo(dc, {square.left, square.top});
    drawing_.LineTo(dc, {square.right, square.bottom});
    drawing_.MoveTo(dc, {square.left, square.bottom - 1});
    drawing_.LineTo(dc, {square.right, square.top - 1});
  }
}

}  // namespace levelwidgets::memory
