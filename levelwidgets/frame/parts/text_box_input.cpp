// What the edit box hears and reports.
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/frame/parts/text_box.h>

namespace levelwidgets {

namespace {

// What listeners make of the arguments has no effect: the edit box has acted.
void RaisePointer(const Event<std::int16_t&, std::int16_t&, Twips&, Twips&>& event, PointerInput input) {
  event.Raise(input.button, input.shift, input.at.x, input.at.y);
}

}  // namespace

LResult TextBox::Pass(std::uint32_t message, WParam wparam, LParam lparam) {
  // A listener may have taken the window away.
  return window_ ? subclass_->Pass(message, wparam, lparam) : 0;
}

LResult TextBox::OnMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  if (message == kWmDestroy) {
    window_ = {};
    return subclass_->Pass(message, wparam, lparam);
  }
  const auto keep = owner_.Reference();
  if (!keep) return Pass(message, wparam, lparam);
  const PointerAction action = PointerActionOf(message);
  const auto key = KeyMessageOf(Windows(), message, wparam);
  if (!owner_.Site().UserMode()) {
    // The form's designer has the input; everything else stays with the edit box.
    return action != PointerAction::kNone || key ? 0 : Pass(message, wparam, lparam);
  }
  if (message == kWmCaptureChanged) click_.CaptureLost(Windows());
  if (message == kWmSetFocus || message == kWmKillFocus) {
    const LResult result = Pass(message, wparam, lparam);
    owner_.PartFocus(message == kWmSetFocus, {static_cast<std::uint32_t>(wparam)});
    return result;
  }
  if (const InputKind kind = InputKindOf(message); kind != InputKind::kNone) {
    owner_.Site().InputArrived(kind);
  }
  // An edit box of one line has nothing to scroll: some systems pass the wheel on to what holds it, some do
  // not.
  if (message == kWmMouseWheel && !multi_line_) {
    return Windows().SendMessageA(owner_.GetSurface().hWnd(), message, wparam, lparam);
  }
  if (action != PointerAction::kNone) return PointerMessage(action, message, wparam, lparam);
  if (key) return KeyPressed(*key, message, wparam, lparam);
  return Pass(message, wparam, lparam);
}

LResult TextBox::PointerMessage(PointerAction action, std::uint32_t message, WParam wparam, LParam lparam) {
  const PointerInput input = PointerInputOf(owner_.GetSurface().GetPlatform(), message, wparam, lparam);
  PixelRect client;
  Windows().GetClientRect(window_, client);
  const bool clicked = action == PointerAction::kRelease && click_.Release(message, lparam, client);
  const LResult result = Pass(message, wparam, lparam);
  switch (action) {
    case PointerAction::kMove: RaisePointer(MouseMove, input); break;
    case PointerAction::kDoubleClick: DblClick.Raise(); break;
    case PointerAction::kPress:
      click_.Press(message);
      RaisePointer(MouseDown, input);
      break;
    default:
      RaisePointer(MouseUp, input);
      if (clicked && window_) Click.Raise();
  }
  return result;
}

LResult TextBox::KeyPressed(KeyMessage key, std::uint32_t message, WParam wparam, LParam lparam) {
  const std::int16_t pressed = key.code;
  if (owner_.TakeKey(key)) return 0;
  switch (key.kind) {
    case KeyMessage::Kind::kDown: KeyDown.Raise(key.code, key.shift); break;
    case KeyMessage::Kind::kUp: KeyUp.Raise(key.code, key.shift); break;
    case KeyMessage::Kind::kCharacter:
      if (message == kWmChar) KeyPress.Raise(key.code);
      break;
  }
  if (key.code == 0 && pressed != 0) return 0;
  return Pass(message,
              key.code == pressed ? wparam : static_cast<WParam>(static_cast<std::uint16_t>(key.code)),
              lparam);
}

bool TextBox::OnParentMessage(std::uint32_t message, WParam wparam, LResult& result) {
  if (message == kWmCommand) {
    const auto notice = static_cast<std::uint32_t>(wparam >> 16 & 0xFFFF);
    if (notice == kEnChange && !setting_text_) Change.Raise();
    result = 0;
    return true;
  }
  result = ColorBrush(DcHandle{static_cast<std::uint32_t>(wparam)});
  return true;
}

// The edit box fills its background with the brush that it is given.
LResult TextBox::ColorBrush(DcHandle dc) {
  DrawingApi& drawing = owner_.GetSurface().Drawing();
  const ColorRef back = TranslateColor(drawing, back_color_);
  drawing.SetTextColor(dc, TranslateColor(drawing, fore_color_));
  drawing.SetBkColor(dc, back);
  brush_ = DrawingObject(drawing, drawing.CreateSolidBrush(back));
  return static_cast<LResult>(brush_.Handle().value);
}

}  // namespace levelwidgets
