#include <levelwidgets/frame/control.h>

namespace levelwidgets {

Control::Control(std::shared_ptr<ControlSite> site, SurfaceLook look)
    : SurfaceWindow(site->GetPlatform(), site->ParentWindow(), std::move(look)), site_(std::move(site)) {}

Control::~Control() = default;

std::shared_ptr<void> Control::Reference() const {
  if (auto container = site_->ContainerReference()) return container;
  return std::const_pointer_cast<Control>(weak_from_this().lock());
}

void Control::Start(const PropertyBag* saved, TwipPoint position, TwipSize size) {
  const auto keep = Reference();
  GetSurface().Move(position, size);
  OnInitialize();
  if (saved) {
    OnReadProperties(*saved);
  } else {
    OnInitProperties();
  }
  started_ = true;
  OnResize();
}

void Control::Move(TwipPoint position, TwipSize size) {
  const auto keep = Reference();
  if (GetSurface().Move(position, size)) OnResize();
}

void Control::Detached() {
  const auto keep = Reference();
  Show(false);
  EndParts();
}

// The system takes the focus only from the window that is hidden, not from one inside it.
void Control::Show(bool visible) {
  const auto keep = Reference();
  WindowApi& windows = GetSurface().Windows();
  GetSurface().SetVisible(visible);
  if (visible || !Holds(windows.GetFocus())) return;
  // A panel that is open has the focus while its form is hidden, too.
  const WindowHandle parent = windows.GetParent(GetSurface().hWnd());
  windows.SetFocus(windows.IsWindowVisible(parent) ? parent : WindowHandle{});
}

// The system takes the focus only from the window that is disabled, not from one inside it.
void Control::Enable(bool enabled) {
  WindowApi& windows = GetSurface().Windows();
  GetSurface().SetEnabled(enabled);
  if (!enabled && Holds(windows.GetFocus())) windows.SetFocus({});
}

void Control::Finish(std::string_view name, Then then) {
  const auto keep = Reference();  // a listener may drop the container's before the repaint
  if (then == Then::kRepaint || then == Then::kRepaintThenNotify) OnPaint();
  if (then != Then::kRepaint) PropertyChanged(name);
  if (then == Then::kNotifyThenRepaint) OnPaint();
}

bool Control::TakeKey(KeyMessage& key) {
  if (!GetSurface().Enabled()) {
    // It hears no key, whatever window has got it; its container does.
    site_->TakeKey(key);
    return true;
  }
  if (site_->WasOffered(key)) {
    used_key_ = {};  // by whoever stopped it then
    return site_->TakeKey(key);
  }
  if (used_key_.Takes(key)) return true;
  const KeyMessage pressed = key;
  const bool used = OnKeyPreview(key) || site_->TakeKey(key) || (key.code == 0 && pressed.code != 0);
  if (used && pressed.kind == KeyMessage::Kind::kDown) used_key_.Use(pressed.code);
  return used;
}

void Control::PartFocus(bool has_focus, WindowHandle other) {
  if (has_focus == focused_ || (!has_focus && Holds(other))) return;
  const auto settle = [weak = weak_from_this()] {
    if (const auto control = weak.lock()) control->SettleFocus();
  };
  if (has_focus || !site_->HandsFocusOn(other, settle)) ChangeFocused(has_focus, other);
}

// The container has handed the focus on, maybe back to this control.
void Control::SettleFocus() {
  const WindowHandle now = GetSurface().Windows().GetFocus();
  if (focused_ && !Holds(now) && site_->UserMode()) ChangeFocused(false, now);
}

void Control::ChangeFocused(bool has_focus, WindowHandle other) {
  const auto keep = Reference();
  focused_ = has_focus;
  if (has_focus) {
    OnEnterFocus();
  } else {
    OnExitFocus();
  }
  site_->FocusChanged(has_focus, other);
}

void Control::OnReadProperties(const PropertyBag& bag) { ReadPersisted(*this, *site_, bag); }

void Control::OnWriteProperties(PropertyBag& bag) const { WritePersisted(*this, *site_, bag); }

}  // namespace levelwidgets
