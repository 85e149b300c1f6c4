#include <levelwidgets/activex/control/in_place.h>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::activex {

namespace {

HWND WindowOf(Control& control) { return win32::ToNative<HWND>(control.GetSurface().hWnd()); }

// Keys that a dialog would take for moving among its controls, and controls move by.
bool MovesInside(const MSG& message) {
  return message.message == WM_KEYDOWN && message.wParam >= VK_PRIOR && message.wParam <= VK_DOWN;
}

UINT MessageOf(const KeyMessage& key) {
  const bool alt = (key.shift & kAltMask) != 0;
  switch (key.kind) {
    case KeyMessage::Kind::kDown: return alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
    case KeyMessage::Kind::kUp: return alt ? WM_SYSKEYUP : WM_KEYUP;
    default: return alt ? WM_SYSCHAR : WM_CHAR;
  }
}

}  // namespace

WindowHandle InPlace::ParentWindow() const {
  return site_ ? parent_ : component_.GetRuntime().ParkingWindow();
}

// --- In and out ----------------------------------------------------------------------------------

bool InPlace::IsAround(WindowHandle window) const {
  return site_ && window &&
         ::GetAncestor(win32::ToNative<HWND>(parent_), GA_ROOT) == win32::ToNative<HWND>(window);
}

HRESULT InPlace::Activate() {
  if (hidden_ && site_) {
    hidden_ = false;
    ShowControl();
    return S_OK;
  }
  if (site_) return S_OK;
  const auto site = As<IOleInPlaceSite>(component_.GetContainer().ClientSite());
  if (!site) return OLEOBJ_E_INVALIDVERB;
  if (site->CanInPlaceActivate() != S_OK) return E_FAIL;
  const HRESULT entered = Enter(*site.Get());
  if (FAILED(entered)) return entered;
  ShowControl();
  if (const auto client = component_.GetContainer().ClientSite()) client->ShowObject();
  return S_OK;
}

HRESULT InPlace::Enter(IOleInPlaceSite& site) {
  const auto control = component_.SharedControl();
  HRESULT result = site.OnInPlaceActivate();
  if (FAILED(result)) return result;
  HWND parent = nullptr;
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  RECT position = {};
  RECT clip = {};
  result = site.GetWindow(&parent);
  if (SUCCEEDED(result) && !::IsWindow(parent)) result = E_UNEXPECTED;
  if (SUCCEEDED(result)) {
    result = site.GetWindowContext(frame_.Receive(), document_.Receive(), &position, &clip, &info);
  }
  if (FAILED(result)) {
    frame_ = nullptr;
    document_ = nullptr;
    site.OnInPlaceDeactivate();
    return result;
  }
  site_ = &site;
  parent_ = win32::FromNative<WindowHandle>(parent);
  position_ = position;
  clip_ = clip;
  hidden_ = false;
  // Its window may have ended with a former container's.
  if (!WindowOf(*control)) {
    const PropertyBag saved = component_.Saved();
    component_.Renew(&saved);
  }
  component_.GetRuntime().GetPlatform().Windows().SetParent(component_.GetControl().GetSurface().hWnd(),
                                                            parent_);
  return S_OK;
}

HRESULT InPlace::ActivateUserInterface() {
  const HRESULT activated = Activate();
  if (FAILED(activated) || !site_) return activated;
  const auto control = component_.SharedControl();
  const bool focused = Holds(::GetFocus());
  if (!ui_active_) {
    ui_active_ = true;
    const auto site = site_;
    site->OnUIActivate();
    // The container may have had enough.
    if (const auto frame = frame_; frame && ui_active_)
      frame->SetActiveObject(&component_.ActiveObject(), nullptr);
    if (const auto document = document_; document && ui_active_) {
      document->SetActiveObject(&component_.ActiveObject(), nullptr);
    }
    if (const auto frame = frame_; frame && ui_active_) frame->SetBorderSpace(nullptr);
  }
  if (!focused && site_ && !hidden_ && ::IsWindowVisible(WindowOf(*control))) {
    component_.GetRuntime().GetPlatform().Windows().SetFocus(control->GetSurface().hWnd());
  }
  return S_OK;
}

HRESULT InPlace::DeactivateUserInterface() {
  if (!ui_active_) return S_OK;
  ui_active_ = false;
  if (const auto frame = frame_) frame->SetActiveObject(nullptr, nullptr);
  if (const auto document = document_) document->SetActiveObject(nullptr, nullptr);
  if (const auto site = site_) site->OnUIDeactivate(FALSE);
  return S_OK;
}

HRESULT InPlace::Deactivate() {
  if (!site_) return S_OK;
  DeactivateUserInterface();
  const auto site = site_;
  Abandon();
  if (site) site->OnInPlaceDeactivate();
  return S_OK;
}

HRESULT InPlace::Hide() {
  if (!site_) return S_OK;
  DeactivateUserInterface();
  hidden_ = true;
  ShowControl();
  return S_OK;
}

void InPlace::Abandon() {
  ui_active_ = false;
  if (!site_) return;
  if (component_.HasControl()) {
    const auto control = component_.SharedControl();
    control->Show(false);
    component_.GetRuntime().GetPlatform().Windows().SetParent(control->GetSurface().hWnd(),
                                                              component_.GetRuntime().ParkingWindow());
  }
  site_ = nullptr;
  frame_ = nullptr;
  document_ = nullptr;
  parent_ = {};
}

// --- Place ---------------------------------------------------------------------------------------

HRESULT InPlace::SetRects(const RECT& position, const RECT& clip) {
  if (!site_) return E_UNEXPECTED;
  position_ = position;
  clip_ = clip;
  ShowControl();
  return S_OK;
}

void InPlace::ShowControl() {
  if (!component_.HasControl()) return;
  const auto control = component_.SharedControl();
  ScreenApi& screen = component_.GetRuntime().GetPlatform().Screen();
  const auto twips = [&](LONG x, LONG y) {
    return TwipPoint{ToTwips(static_cast<int>(x), screen.TwipsPerPixelX()),
                     ToTwips(static_cast<int>(y), screen.TwipsPerPixelY())};
  };
  if (!site_) {
    const TwipPoint size = twips(component_.Size().width, component_.Size().height);
    control->Move({}, {size.x, size.y});
    return;
  }
  const TwipPoint size = twips(position_.right - position_.left, position_.bottom - position_.top);
  control->Move(twips(position_.left, position_.top), {size.x, size.y});
  if (!site_) return;  // a handler has ended the activation
  // Only what the container shows of it can be seen and clicked.
  RECT seen = {};
  ::IntersectRect(&seen, &position_, &clip_);
  const bool all = ::IsRectEmpty(&clip_) || ::EqualRect(&seen, &position_);
  ::OffsetRect(&seen, -position_.left, -position_.top);
  ::SetWindowRgn(WindowOf(*control), all ? nullptr : ::CreateRectRgnIndirect(&seen), TRUE);
  control->Show(!hidden_);
}

// --- Focus and keys ------------------------------------------------------------------------------

void InPlace::FocusChanged(bool has_focus) {
  if (!site_) return;
  if (has_focus && !ui_active_) ActivateUserInterface();
  component_.GetContainer().NoteFocus(has_focus);
}

bool InPlace::Holds(HWND window) const {
  return component_.HasControl() && component_.GetControl().Holds(win32::FromNative<WindowHandle>(window));
}

bool InPlace::WasOffered(const KeyMessage& key) const {
  return !message_ && offered_ && offered_->kind == key.kind && offered_->code == key.code;
}

bool InPlace::TakeKey(KeyMessage& key) {
  if (WasOffered(key)) {
    offered_.reset();
    return false;
  }
  if (message_) {
    if (!component_.GetContainer().Translate(*message_)) offered_ = key;
    return true;
  }
  // The container has let the key through to the window without offering it.
  MSG message = {};
  message.hwnd = ::GetFocus();
  message.message = MessageOf(key);
  message.wParam = static_cast<WPARAM>(key.code);
  message.lParam = 1;
  message.time = static_cast<DWORD>(::GetMessageTime());
  return component_.GetContainer().Translate(message);
}

HRESULT InPlace::TranslateMessage(MSG& message) {
  offered_.reset();
  if (!site_ || message_ || !Holds(message.hwnd)) return S_FALSE;
  WindowApi& windows = component_.GetRuntime().GetPlatform().Windows();
  if (!KeyMessageOf(windows, message.message, message.wParam)) return S_FALSE;
  message_ = &message;
  try {
    windows.SendMessageA(win32::FromNative<WindowHandle>(message.hwnd), message.message, message.wParam,
                         message.lParam);
  } catch (...) {
    message_ = nullptr;
    throw;
  }
  message_ = nullptr;
  if (!offered_) return S_OK;
  if (!MovesInside(message)) return S_FALSE;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
  return S_OK;
}

bool InPlace::NoteAccessKeys(const std::string& keys) { return std::exchange(access_keys_, keys) != keys; }

}  // namespace levelwidgets::activex
