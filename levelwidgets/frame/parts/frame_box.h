// A frame around the parts of a control that belong together.
#pragma once

#include <string>
#include <string_view>

#include <levelwidgets/frame/parts/picture_box.h>

namespace levelwidgets {

// Draws the frame on a surface that has been cleared: a line of one pixel in the system's shadow colour
// around it, and the caption set into its top line in the surface's colours and font. Where there is no
// caption the line is at the top edge; "&" underlines the next character and is no access key.
void PaintFrame(const Surface& surface, std::string_view caption);

// A panel with such a frame, which holds parts.
class FrameBox : public PictureBox {
 public:
  explicit FrameBox(PartHost& owner);
  // Inside another one. Without this, FrameBox(frame) would mean a copy.
  explicit FrameBox(FrameBox& owner) : FrameBox(static_cast<PartHost&>(owner)) {}

  const std::string& Caption() const { return caption_; }
  // Repaints with the next paint.
  void SetCaption(std::string caption);

 private:
  std::string caption_;
};

}  // namespace levelwidgets
