// What the keyboard does on a form before, or instead of, the control that has the focus.
#include <algorithm>

#include <levelwidgets/frame/access_key.h>
#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

std::vector<HostedControl*> Form::TabOrder() const {
  std::vector<HostedControl*> order;
  for (const auto& control : controls_) order.push_back(control.get());
  std::ranges::stable_sort(order, {}, &HostedControl::TabIndex);
  return order;
}

// Whether a listener has used the key.
bool Form::PreviewKey(KeyMessage& key) {
  if (!KeyPreview() || key.code == 0) return false;
  switch (key.kind) {
    case KeyMessage::Kind::kDown: KeyDown.Raise(key.code, key.shift); break;
    case KeyMessage::Kind::kCharacter: KeyPress.Raise(key.code); break;
    case KeyMessage::Kind::kUp: KeyUp.Raise(key.code, key.shift); break;
  }
  return key.code == 0 || Closed();
}

bool Form::TakeKey(KeyMessage& key) {
  if (used_key_.Takes(key)) return true;
  const std::int16_t pressed = key.code;
  if (PreviewKey(key)) {
    if (key.kind == KeyMessage::Kind::kDown) used_key_.Use(pressed);
    return true;
  }
  const bool alt = (key.shift & kAltMask) != 0;
  const bool ctrl = (key.shift & kCtrlMask) != 0;
  if (key.kind == KeyMessage::Kind::kCharacter) return alt && !ctrl && PressAccessKey(key.code);
  if (key.kind == KeyMessage::Kind::kUp) return false;
  if (alt || ctrl) return false;
  bool used = false;
  if (key.code == kKeyTab) {
    used = MoveFocus((key.shift & kShiftMask) == 0);
  } else if (key.code == kKeyEnter) {
    used = ForwardTo(&HostedControl::Default, key.code);
  } else if (key.code == kKeyEscape) {
    used = ForwardTo(&HostedControl::Cancel, key.code);
  }
  if (used) used_key_.Use(key.code);
  return used;
}

// Keys reach the form itself while no control has the focus.
bool Form::KeyMessageToForm(std::uint32_t message, WParam wparam) {
  KeyMessage key{KeyMessage::Kind::kDown, static_cast<std::int16_t>(wparam), 0};
  switch (message) {
    case kWmKeyDown:
    case kWmSysKeyDown: break;
    case kWmChar:
    case kWmSysChar: key.kind = KeyMessage::Kind::kCharacter; break;
    case kWmKeyUp:
    case kWmSysKeyUp: key.kind = KeyMessage::Kind::kUp; break;
    default: return false;
  }
  key.shift = ShiftState(platform_.Windows());
  return TakeKey(key);
}

// From the control with the focus, or from where one stood that was removed with it: those behind it first,
// then the others. The control itself is the last.
std::vector<HostedControl*> Form::TabOrderFromFocus(bool forward) const {
  std::vector<HostedControl*> order = TabOrder();
  const auto present = std::ranges::find(order, ActiveControl().get());
  auto begin = order.begin() + std::min(std::ssize(order), vacant_place_);
  if (present != order.end()) begin = forward ? present + 1 : present;
  std::rotate(order.begin(), begin, order.end());
  if (!forward) std::ranges::reverse(order);
  return order;
}

bool Form::MayLeaveFor(const HostedControl& next) {
  const auto active = ActiveControl();
  // In the midst of the question the listener does as it likes.
  if (validating_ || !active || active.get() == &next || next.Cancel() || !active->CanTakeInput())
    return true;
  const auto keep = shared_from_this();
  bool cancel = false;
  validating_ = true;
  try {
    active->Validate.Raise(cancel);
  } catch (...) {
    validating_ = false;
    throw;
  }
  validating_ = false;
  return !cancel && !Closed();
}

bool Form::MoveFocus(bool forward) {
  for (HostedControl* control : TabOrderFromFocus(forward)) {
    if (control->TabStop() && control->CanTakeInput()) {
      control->SetFocus();
      return true;
    }
  }
  return false;
}

// A key message carries a character as a byte of the system's code page.
bool Form::PressAccessKey(std::int16_t character) {
  const char byte = static_cast<char>(character);
  const std::string pressed = platform_.Conversions().FromCodePage({&byte, 1});
  for (HostedControl* control : TabOrderFromFocus(true)) {
    if (!control->CanTakeInput()) continue;
    if (!IsAccessKey(control->GetControl()->GetSurface().AccessKeys(), pressed)) continue;
    const auto pressed_one = control->shared_from_this();
    if (!MayLeaveFor(*control) || !control->CanTakeInput()) return true;
    const auto instance = control->GetControl();
    control->TakeFocus();
    instance->OnAccessKeyPress(character);
    return true;
  }
  return false;
}

bool Form::ForwardTo(bool (HostedControl::*role)() const, std::int16_t key_ascii) {
  const auto found = std::ranges::find_if(controls_, [role](const auto& c) { return ((*c).*role)(); });
  if (found == controls_.end() || !(*found)->CanTakeInput()) return false;
  const auto button = *found;
  if (!MayLeaveFor(*button)) return true;
  if (const auto instance = button->GetControl()) instance->OnAccessKeyPress(key_ascii);
  return true;
}

// By now a listener may have given it to another one, or removed the control.
bool Form::FocusCame(HostedControl& control) {
  SettleFocus();
  if (!control.GetControl() || !control.GetControl()->Holds(platform_.Windows().GetFocus())) return false;
  active_control_ = control.weak_from_this();
  vacant_place_ = 0;
  return true;
}

// A control that can take no input any more hands the focus to the next one, unless another has it already.
void Form::FocusWent(const HostedControl& control) {
  WindowApi& windows = platform_.Windows();
  const WindowHandle now = windows.GetFocus();
  if (now && now != window_) return;
  if (control.CanTakeInput() || !window_ || !IsIn(windows.GetActiveWindow())) return;
  if (MoveFocus(true)) return;
  active_control_.reset();
  windows.SetFocus(window_);
}

bool Form::IsIn(WindowHandle outer) const {
  WindowApi& windows = platform_.Windows();
  WindowHandle window = window_;
  while (window && window != outer) window = options_.parent ? windows.GetParent(window) : WindowHandle{};
  return static_cast<bool>(window);
}

// A child stands in the order of the Tab key of a window that holds other windows, too.
bool Form::ComesByTab() const { return options_.parent && platform_.Windows().GetKeyState(kKeyTab) < 0; }

// The form's window got the focus: it belongs to the control that had it, or to the next in the order.
void Form::FocusFirst() {
  if (Design()) return;
  if (ComesByTab()) {
    // From the end that the key comes to.
    active_control_.reset();
    vacant_place_ = 0;
    MoveFocus((ShiftState(platform_.Windows()) & kShiftMask) == 0);
    return;
  }
  if (const auto control = ActiveControl(); control && control->CanTakeInput()) {
    control->SetFocus();
    return;
  }
  SettleFocus();
  // A control that has been left may have handed it on.
  if (!window_ || platform_.Windows().GetFocus() != window_) return;
  if (!MoveFocus(true)) active_control_.reset();
}

// The form has handed the focus on: controls that it did not come back to have been left.
void Form::SettleFocus() {
  for (const auto& settle : std::exchange(leaving_, {})) settle();
}

// A window that the form is a child of hands the focus on by itself when it becomes active, as when a panel
// is closed.
bool Form::HandsFocusOn(WindowHandle other, std::function<void()> settle) {
  if (!other || !IsIn(other)) return false;
  leaving_.push_back(std::move(settle));
  if (other == window_) return true;
  platform_.Clock().Post([weak = weak_from_this()] {
    if (const auto form = weak.lock()) form->SettleFocus();
  });
  return true;
}

}  // namespace levelwidgets
