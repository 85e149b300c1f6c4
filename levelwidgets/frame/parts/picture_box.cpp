#include <levelwidgets/frame/parts/picture_box.h>

#include <algorithm>
#include <ranges>

#include <levelwidgets/frame/parts/windowless_part.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

PictureBox::PictureBox(PartHost& owner)
    : SurfaceWindow(owner.GetSurface().GetPlatform(), owner.GetSurface().hWnd(),
                    {.back_color = kButtonFace,
                     .fore_color = kButtonText,
                     .font = owner.GetSurface().GetFont()->Description()}),
      owner_(owner) {
  owner_.AddPart(*this);
}

PictureBox::~PictureBox() { owner_.RemovePart(*this); }

// --- Properties --------------------------------------------------------------------------------------

void PictureBox::SetBackColor(Color color) {
  GetSurface().SetBackColor(color);
  Invalidate();
}

void PictureBox::SetForeColor(Color color) {
  GetSurface().SetForeColor(color);
  Invalidate();
}

void PictureBox::SetFont(FontRef font) {
  GetSurface().SetFont(std::move(font));
  Invalidate();
}

void PictureBox::SetBorder(bool border) {
  border_ = border;
  if (!hWnd()) return;
  WindowApi& windows = GetSurface().Windows();
  const auto style = static_cast<std::uint32_t>(windows.GetWindowLongA(hWnd(), kGwlStyle));
  windows.SetWindowLongA(hWnd(), kGwlStyle,
                         static_cast<std::int32_t>(border ? style | kWsBorder : style & ~kWsBorder));
  windows.SetWindowPos(hWnd(), {}, {},
                       kSwpNoMove | kSwpNoSize | kSwpNoZOrder | kSwpNoActivate | kSwpFrameChanged);
  OnWindowSize();
}

void PictureBox::SetVisible(bool visible) {
  const auto keep = Reference();
  visible_ = visible;
  // Before it is hidden: otherwise the focus of a window on the desktop would go round by the form, and the
  // control would be left.
  WindowApi& windows = GetSurface().Windows();
  const WindowHandle owner = owner_.GetSurface().hWnd();
  if (!visible && Holds(windows.GetFocus()) && windows.IsWindowVisible(owner)) windows.SetFocus(owner);
  GetSurface().SetVisible(visible);
}

// --- Methods -----------------------------------------------------------------------------------------

void PictureBox::Move(TwipPoint position, TwipSize size) {
  const auto keep = Reference();
  position_ = position;
  size_ = {std::max(size.width, Twips()), std::max(size.height, Twips())};
  GetSurface().Move(position_, size_);
  OnWindowSize();
}

void PictureBox::Invalidate() {
  if (hWnd()) GetSurface().Windows().InvalidateRect(hWnd());
}

void PictureBox::SetFocus() {
  if (hWnd()) GetSurface().Windows().SetFocus(hWnd());
}

void PictureBox::BringToFront() {
  if (!hWnd()) return;
  GetSurface().Windows().SetWindowPos(hWnd(), {kHwndTop}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
}

// --- Windowless parts --------------------------------------------------------------------------------

void PictureBox::Remove(WindowlessPart& part) {
  std::erase(drawn_, &part);
  if (target_ == &part) {
    target_ = nullptr;
    released_inside_ = false;
  }
  Invalidate();
}

WindowlessPart* PictureBox::PartAt(TwipPoint at) const {
  const auto hit = std::ranges::find_if(drawn_.rbegin(), drawn_.rend(), [at](const WindowlessPart* part) {
    return part->Visible() && part->Contains(at);
  });
  return hit == drawn_.rend() ? nullptr : *hit;
}

PointerInput PictureBox::Inside(const WindowlessPart& part, PointerInput input) {
  const TwipPoint origin = part.Origin();
  input.at = {input.at.x - origin.x, input.at.y - origin.y};
  return input;
}

// --- Notifications -----------------------------------------------------------------------------------

void PictureBox::OnPaint() {
  if (clears_) GetSurface().Cls();
  Paint.Raise();
  for (WindowlessPart* part : drawn_) {
    if (part->Visible()) part->Paint(GetSurface());
  }
}

void PictureBox::OnWindowSize() {
  GetSurface().FitToClient();
  const TwipSize scale{ScaleWidth(), ScaleHeight()};
  if (scale == scale_told_) return;
  scale_told_ = scale;
  Resize.Raise();
}

void PictureBox::OnMouseDown(const PointerInput& input) {
  if (buttons_down_ == 0) target_ = PartAt(input.at);
  buttons_down_ = static_cast<std::int16_t>(buttons_down_ | input.button);
  if (target_) {
    target_->OnMouseDown(Inside(*target_, input));
  } else {
    Raise(MouseDown, input);
  }
}

void PictureBox::OnMouseMove(const PointerInput& input) {
  buttons_down_ = input.button;
  if (buttons_down_ == 0) target_ = PartAt(input.at);
  if (target_) {
    target_->OnMouseMove(Inside(*target_, input));
  } else {
    Raise(MouseMove, input);
  }
}

void PictureBox::OnMouseUp(const PointerInput& input) {
  buttons_down_ = static_cast<std::int16_t>(buttons_down_ & ~input.button);
  released_inside_ = target_ == PartAt(input.at);
  if (target_) {
    target_->OnMouseUp(Inside(*target_, input));
  } else {
    Raise(MouseUp, input);
  }
}

// After the release that makes it one.
void PictureBox::OnClick() {
  if (!released_inside_) return;
  if (target_) {
    target_->OnClick();
  } else {
    Click.Raise();
  }
}

void PictureBox::OnDblClick() {
  target_ = PartAt(PressPoint());
  buttons_down_ = static_cast<std::int16_t>(buttons_down_ | kLeftButton);
  if (target_) {
    target_->OnDblClick();
  } else {
    DblClick.Raise();
  }
}

void PictureBox::OnHostGone() {
  EndParts();
  WindowApi& windows = GetSurface().Windows();
  // The system takes only what is inside the host's window with it.
  if (hWnd() && windows.GetParent(hWnd()) != owner_.GetSurface().hWnd()) windows.DestroyWindow(hWnd());
}

}  // namespace levelwidgets
