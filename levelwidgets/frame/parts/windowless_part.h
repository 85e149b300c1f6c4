// A part of a panel that is no window.
#pragma once

#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/surface.h>

namespace levelwidgets {

class PictureBox;

// Painted by its panel in the order in which the parts were made, and hit in the reverse order. The press of
// a button keeps the pointer with the part until all buttons are up.
class WindowlessPart {
 public:
  explicit WindowlessPart(PictureBox& panel);
  WindowlessPart(const WindowlessPart&) = delete;
  WindowlessPart& operator=(const WindowlessPart&) = delete;
  virtual ~WindowlessPart();

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  // --- For the panel ----------------------------------------------------------------------------

  virtual void Paint(Surface& surface) = 0;
  // Whether the pointer is over the part there, in twips of the panel.
  virtual bool Contains(TwipPoint /*at*/) const { return false; }
  // What positions of its pointer events are relative to.
  virtual TwipPoint Origin() const { return {}; }
  virtual void OnClick() {}
  virtual void OnDblClick() {}
  virtual void OnMouseDown(const PointerInput&) {}
  virtual void OnMouseMove(const PointerInput&) {}
  virtual void OnMouseUp(const PointerInput&) {}

 protected:
  PictureBox& Panel() const { return panel_; }
  // The panel paints the part anew with its next paint.
  void Changed() const;
  PixelPoint ToPixel(TwipPoint at) const;

 private:
  PictureBox& panel_;
  bool visible_ = true;
};

}  // namespace levelwidgets
