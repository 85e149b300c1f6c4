// Presses on the frames of windows: moving, resizing, and the boxes in the caption.
#include <levelwidgets/platform/memory/memory_input.h>

#include <algorithm>

namespace levelwidgets::memory {

namespace {

bool IsBox(FramePart part) {
  return part == FramePart::kCloseBox || part == FramePart::kMaximizeBox || part == FramePart::kMinimizeBox;
}

}  // namespace

int MemoryInput::FrameShape(const PointerHit& hit) {
  if (!hit.top_level || hit.disabled) return kIdcArrow;
  const FrameEdges edges = windows_.EdgesAt(hit.top_level, windows_.Input().pointer);
  const bool across = edges.left || edges.right;
  const bool down = edges.top || edges.bottom;
  if (across && down) return edges.left == edges.top ? kIdcSizeNwSe : kIdcSizeNeSw;
  if (across) return kIdcSizeWe;
  return down ? kIdcSizeNs : kIdcArrow;
}

void MemoryInput::PressFrame(const PointerHit& hit) {
  const PixelPoint pointer = windows_.Input().pointer;
  const FramePart part = windows_.FrameAt(hit.top_level, pointer);
  const FrameEdges edges = windows_.EdgesAt(hit.top_level, pointer);
  PixelRect rect;
  if (part == FramePart::kNone || !windows_.GetWindowRect(hit.top_level, rect)) return;
  if (part == FramePart::kBorder && !edges.Any()) return;
  if (part == FramePart::kCaption && IsSecondPress(kLeftButton, hit.top_level)) {
    windows_.DoubleClickCaption(hit.top_level);
    return;
  }
  grab_ = {hit.top_level, part, edges, pointer, rect};
}

void MemoryInput::DragFrame() {
  if (IsBox(grab_.part)) return;
  const PixelPoint pointer = windows_.Input().pointer;
  const int dx = pointer.x - grab_.from.x;
  const int dy = pointer.y - grab_.from.y;
  PixelRect rect = grab_.rect;
  std::uint32_t flags = kSwpNoZOrder | kSwpNoActivate;
  if (grab_.part == FramePart::kCaption) {
    if (!windows_.CanBeMoved(grab_.window)) return;
    rect = rect.Offset(dx, dy);
    flags |= kSwpNoSize;
  } else {
    // An edge that is dragged over the opposite one stays there.
    if (grab_.edges.left) rect.left = std::min(rect.left + dx, rect.right);
    if (grab_.edges.top) rect.top = std::min(rect.top + dy, rect.bottom);
    if (grab_.edges.right) rect.right = std::max(rect.right + dx, rect.left);
    if (grab_.edges.bottom) rect.bottom = std::max(rect.bottom + dy, rect.top);
  }
  windows_.SetWindowPos(grab_.window, {}, rect, flags);
}

void MemoryInput::ReleaseFrame() {
  const FrameGrab grab = grab_;
  grab_ = {};
  if (!IsBox(grab.part) || windows_.FrameAt(grab.window, windows_.Input().pointer) != grab.part) return;
  const bool maximized = (windows_.GetWindowLongA(grab.window, kGwlStyle) & kWsMaximize) != 0;
  WParam command = kScClose;
  if (grab.part == FramePart::kMinimizeBox) command = kScMinimize;
  if (grab.part == FramePart::kMaximizeBox) command = maximized ? kScRestore : kScMaximize;
  windows_.SendMessageA(grab.window, kWmSysCommand, command, LParamOfPoint(windows_.Input().pointer));
}

}  // namespace levelwidgets::memory
