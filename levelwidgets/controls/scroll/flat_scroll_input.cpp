#include <levelwidgets/controls/scroll/flat_scroll.h>

#include <algorithm>

namespace levelwidgets {

namespace {
constexpr std::int32_t kFirstDelay = 250;      // milliseconds
constexpr std::int32_t kRepeatInterval = 100;  // milliseconds
}  // namespace

// --- Press -------------------------------------------------------------------------------------------------

void FlatScroll::OnMouseDown(const PointerInput& input) {
  if (input.button == kLeftButton) {
    switch (layout_.ZoneAt(layout_.Along(input.at))) {
      case ScrollZone::kThumb: PressThumb(input); return;  // raises no MouseDown
      case ScrollZone::kFirstButton:
        action_ = Action::kStepBack;
        ShowButtonState(ButtonState::kFirstPushed);
        break;
      case ScrollZone::kTrackBefore: action_ = Action::kPageBack; break;
      case ScrollZone::kTrackAfter: action_ = Action::kPageForward; break;
      case ScrollZone::kSecondButton:
        action_ = Action::kStepForward;
        ShowButtonState(ButtonState::kSecondPushed);
        break;
    }
    Repeat(action_);
    // A listener that ran the event loop may have seen the release already.
    if (action_ != Action::kNone) {
      timScroll_.SetInterval(kFirstDelay);
      timScroll_.SetEnabled(true);
    }
  }
  Raise(MouseDown, input);
}

void FlatScroll::PressThumb(const PointerInput& input) {
  action_ = Action::kDragThumb;
  timScroll_.SetEnabled(false);
  // The Y coordinate for both orientations: the first step of a horizontal drag starts from there.
  drag_anchor_ = input.at.y;
  value_at_press_ = value_;
  WindowApi& windows = GetSurface().Windows();
  if (windows.GetCapture() != hWnd()) windows.SetCapture(hWnd());
}

void FlatScroll::Repeat(Action action) {
  switch (action) {
    case Action::kPageBack: SetValue(StepBack(value_, large_change_, range_)); break;
    case Action::kStepBack: SetValue(StepBack(value_, small_change_, range_)); break;
    case Action::kPageForward: SetValue(StepForward(value_, large_change_, range_)); break;
    case Action::kStepForward: SetValue(StepForward(value_, small_change_, range_)); break;
    case Action::kNone:
    case Action::kDragThumb: break;
  }
}

void FlatScroll::Tick() {
  // The bar does not hear of a release after the pointer has left it, or after it has been disabled.
  if (GetSurface().Windows().GetAsyncKeyState(kKeyLeftButton) >= 0) {
    action_ = Action::kNone;
    timScroll_.SetEnabled(false);
    return;
  }
  timScroll_.SetInterval(kRepeatInterval);
  const Twips pointer = PointerAlong();
  switch (action_) {
    case Action::kStepBack: Repeat(action_); break;
    case Action::kPageBack:
      if (pointer < layout_.ThumbPosition()) Repeat(action_);
      break;
    case Action::kPageForward:
    case Action::kStepForward:
      // With the thumb's start, not its end: over the second button it always holds.
      if (layout_.ThumbPosition() < pointer) Repeat(action_);
      break;
    case Action::kNone:
    case Action::kDragThumb: break;
  }
}

Twips FlatScroll::PointerAlong() const {
  const Surface& surface = GetSurface();
  PixelPoint pointer;
  surface.Windows().GetCursorPos(pointer);
  surface.Windows().ScreenToClient(hWnd(), pointer);
  ScreenApi& screen = surface.GetPlatform().Screen();
  return layout_.Along(
      {ToTwips(pointer.x, screen.TwipsPerPixelX()), ToTwips(pointer.y, screen.TwipsPerPixelY())});
}

// --- Move --------------------------------------------------------------------------------------------------

void FlatScroll::OnMouseMove(const PointerInput& input) {
  if (drag_anchor_ < Twips()) {
    Hover(input.at);
  } else if (input.button == kLeftButton) {
    Drag(input);
  }
  Raise(MouseMove, input);
}

void FlatScroll::Drag(const PointerInput& input) {
  if (IsOutside(GetSurface(), input.at)) {
    WriteWhenDifferent(value_at_press_);
    return;
  }
  const Twips along = layout_.Along(input.at);
  const std::int32_t value = layout_.DragValue(along, drag_anchor_, range_);
  drag_anchor_ = along;  // before listeners are notified: one may see the release
  WriteWhenDifferent(value);
}

void FlatScroll::WriteWhenDifferent(std::int32_t value) {
  if (value != value_) SetValue(value);
}

void FlatScroll::ScrollBy(std::int32_t change) {
  if (range_.max < range_.min) return;
  const std::int64_t wanted = std::int64_t{value_} + change;
  WriteWhenDifferent(static_cast<std::int32_t>(std::clamp<std::int64_t>(wanted, range_.min, range_.max)));
}

void FlatScroll::Hover(TwipPoint at) {
  WindowApi& windows = GetSurface().Windows();
  if (IsOutside(GetSurface(), at)) {
    button_state_ = ButtonState::kNone;
    OnPaint();
    windows.ReleaseCapture();
    return;
  }
  const ScrollZone zone = layout_.ZoneAt(layout_.Along(at));
  const ButtonState state = zone == ScrollZone::kFirstButton    ? ButtonState::kFirstMouseOver
                            : zone == ScrollZone::kSecondButton ? ButtonState::kSecondMouseOver
                                                                : ButtonState::kNone;
  if (state != button_state_) ShowButtonState(state);
  if (state != ButtonState::kNone && windows.GetCapture() != hWnd()) windows.SetCapture(hWnd());
}

void FlatScroll::ShowButtonState(ButtonState state) {
  button_state_ = state;
  OnPaint();
}

// --- Release -----------------------------------------------------------------------------------------------

void FlatScroll::OnMouseUp(const PointerInput& input) {
  drag_anchor_ = Twips(-1);
  action_ = Action::kNone;
  timScroll_.SetEnabled(false);
  GetSurface().Windows().ReleaseCapture();
  // The button keeps its pushed look until the pointer moves.
  Raise(MouseUp, input);
}

}  // namespace levelwidgets
