// The frame that the desktop in memory puts around windows: a caption with title and boxes, or a
// one-pixel border.
#pragma once

#include <levelwidgets/platform/memory/memory_drawing.h>
#include <levelwidgets/platform/memory/window_tree.h>

namespace levelwidgets::memory {

enum class FramePart { kNone, kBorder, kCaption, kCloseBox, kMaximizeBox, kMinimizeBox };

// The edges of a window that a press on its border drags.
struct FrameEdges {
  bool left = false;
  bool top = false;
  bool right = false;
  bool bottom = false;

  bool Any() const { return left || top || right || bottom; }
};

// The styles that a window is created with: one that is neither child nor popup has a caption, and
// whatever is no child is clipped by its neighbours.
std::uint32_t CompletedStyle(std::uint32_t style);

class WindowFrame {
 public:
  WindowFrame(MemoryDrawing& drawing, PixelSize dots_per_inch);

  // What a caption or border of `style` takes; whole pixels of the screen's resolution.
  FrameWidths Widths(std::uint32_t style) const;
  // `point` is relative to the window's outer corner; kNone is the client area.
  FramePart HitTest(const Window& window, PixelPoint point) const;
  // None where `point` is not on the border of a window that can be resized.
  FrameEdges EdgesAt(const Window& window, PixelPoint point) const;
  // Draws all of it into the window's store.
  void Draw(WindowTree& tree, Window& window, bool active);

 private:
  PixelRect Caption(const Window& window) const;
  // Empty for one that the window does not have.
  PixelRect Box(const Window& window, FramePart box) const;
  void Fill(DcHandle dc, const PixelRect& rect, int system_color);
  void DrawBorder(DcHandle dc, const Window& window);
  void DrawCaption(DcHandle dc, const Window& window, bool active);
  void DrawTitle(DcHandle dc, std::string_view text, PixelRect place);
  void DrawBoxes(DcHandle dc, const Window& window, ColorRef color);
  void DrawSign(DcHandle dc, FramePart part, const PixelRect& box, bool maximized);

  MemoryDrawing& drawing_;
  int caption_height_;
  int box_width_;
  int title_height_;  // of its letters' cells
  int title_margin_;
};

}  // namespace levelwidgets::memory
