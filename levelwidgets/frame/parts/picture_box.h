// A panel inside a control: it draws what its owner wants, and holds further parts.
#pragma once

#include <vector>

#include <levelwidgets/frame/events.h>
#include <levelwidgets/frame/surface_window.h>

namespace levelwidgets {

class WindowlessPart;

// Hidden and of no size until it is placed and shown. It can hold edit boxes, controls and other panels,
// which have windows of their own, and parts without a window (TextLabel, LineShape), which it paints and
// hit-tests. A frame is a panel that paints nothing of its own.
//
// Its keys and its focus are its owner's, also when its window has been moved to the desktop. Pointer events
// come from where no part is; positions are twips of the panel's inner area. A listener may destroy the
// owner.
class PictureBox : public SurfaceWindow,
                   public WindowPart,
                   public ClickEvents,
                   public DblClickEvents,
                   public KeyEvents,
                   public PointerEvents {
 public:
  // Colours are those of a button's face and text, the font is a copy of the owner's.
  explicit PictureBox(PartHost& owner);
  // Inside another one. Without this, PictureBox(panel) would mean a copy.
  explicit PictureBox(PictureBox& owner) : PictureBox(static_cast<PartHost&>(owner)) {}
  PictureBox(const PictureBox&) = delete;
  PictureBox& operator=(const PictureBox&) = delete;
  ~PictureBox() override;

  // --- Properties -------------------------------------------------------------------------------

  WindowHandle hWnd() const override { return GetSurface().hWnd(); }
  // Setters repaint with the next paint.
  Color BackColor() const { return GetSurface().BackColor(); }
  void SetBackColor(Color color);
  Color ForeColor() const { return GetSurface().ForeColor(); }
  void SetForeColor(Color color);
  const FontRef& GetFont() const { return GetSurface().GetFont(); }
  // Shares the font.
  void SetFont(FontRef font);
  // A border of one pixel around the inner area, which shrinks by it.
  bool Border() const { return border_; }
  void SetBorder(bool border);
  bool Visible() const { return visible_; }
  // Hiding the panel gives the focus, when it is inside, to the owner unless that is hidden.
  void SetVisible(bool visible);
  // Whether a press on the panel gives it the focus; at first it does not.
  bool FocusByPress() const override { return focus_by_press_; }
  void SetFocusByPress(bool takes) { focus_by_press_ = takes; }
  // Whether a paint begins with the background. One whose Paint covers everything is seen to flicker by it.
  void SetClears(bool clears) { clears_ = clears; }
  // In twips of the owner's inner area, or of the screen when the window has been moved to the desktop.
  TwipPoint Position() const { return position_; }
  // With the border.
  TwipSize Size() const { return size_; }
  // Without the border.
  Twips ScaleWidth() const { return GetSurface().ScaleWidth(); }
  Twips ScaleHeight() const { return GetSurface().ScaleHeight(); }

  // --- Methods ----------------------------------------------------------------------------------

  // Negative lengths count as 0.
  void Move(TwipPoint position, TwipSize size);
  // Repaints at once.
  void Refresh() { GetSurface().Refresh(); }
  // Repaints with the next paint.
  void Invalidate();
  void SetFocus();
  void BringToFront();

  // --- Events -----------------------------------------------------------------------------------

  // The background is there, unless the panel does not clear; draw on GetSurface(). The windowless parts come
  // on top.
  Event<> Paint;
  // The inner area has another size.
  Event<> Resize;

  // --- For its parts ----------------------------------------------------------------------------

  ControlSite& Site() const override { return owner_.Site(); }
  std::shared_ptr<ControlSite> SharedSite() const override { return owner_.SharedSite(); }
  std::shared_ptr<void> Reference() const override { return owner_.Reference(); }
  void PartFocus(bool has_focus, WindowHandle other) override { owner_.PartFocus(has_focus, other); }
  bool TakeKey(KeyMessage& key) override { return owner_.TakeKey(key); }
  bool Holds(WindowHandle window) const override { return SurfaceWindow::Holds(window); }

 private:
  friend class WindowlessPart;
  void Add(WindowlessPart& part) { drawn_.push_back(&part); }
  void Remove(WindowlessPart& part);
  // The last one that is shown there; null for the panel itself.
  WindowlessPart* PartAt(TwipPoint at) const;
  static PointerInput Inside(const WindowlessPart& part, PointerInput input);

  void OnPaint() override;
  void OnWindowSize() override;
  void OnClick() override;
  void OnDblClick() override;
  void OnKeyDown(std::int16_t code, std::int16_t shift) override { KeyDown.Raise(code, shift); }
  void OnKeyPress(std::int16_t& key_ascii) override { KeyPress.Raise(key_ascii); }
  void OnKeyUp(std::int16_t code, std::int16_t shift) override { KeyUp.Raise(code, shift); }
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;
  void OnHostGone() override;

  PartHost& owner_;
  std::vector<WindowlessPart*> drawn_;  // in painting order
  bool visible_ = false;
  bool border_ = false;
  bool focus_by_press_ = false;
  bool clears_ = true;
  TwipPoint position_;
  TwipSize size_;
  TwipSize scale_told_;
  // What has the pointer: what is under it or, while a button is down, what was pressed. Null is the panel.
  WindowlessPart* target_ = nullptr;
  std::int16_t buttons_down_ = 0;
  bool released_inside_ = false;  // whether the last release was where the press was
};

}  // namespace levelwidgets
