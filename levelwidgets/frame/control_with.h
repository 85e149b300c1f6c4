// A control with standard events, of which most have some and not all.
#pragma once

#include <concepts>

#include <levelwidgets/frame/control.h>
#include <levelwidgets/frame/events.h>

namespace levelwidgets {

// For controls that show that they have the focus.
struct FocusFlag {
 protected:
  bool has_focus_ = false;
};

// A control with the sets of events that are named (ClickEvents, DblClickEvents, KeyEvents, PointerEvents);
// it raises each when it is notified. With FocusFlag it keeps the flag and repaints when it is entered and
// left.
template <typename... Sets>
class ControlWith : public Control, public Sets... {
  template <typename Set>
  static constexpr bool kHas = (std::same_as<Set, Sets> || ...);

 public:
  void OnClick() override {
    if constexpr (kHas<ClickEvents>) this->Click.Raise();
  }
  void OnDblClick() override {
    if constexpr (kHas<DblClickEvents>) this->DblClick.Raise();
  }
  void OnKeyDown([[maybe_unused]] std::int16_t code, [[maybe_unused]] std::int16_t shift) override {
    if constexpr (kHas<KeyEvents>) this->KeyDown.Raise(code, shift);
  }
  void OnKeyPress([[maybe_unused]] std::int16_t& key_ascii) override {
    if constexpr (kHas<KeyEvents>) this->KeyPress.Raise(key_ascii);
  }
  void OnKeyUp([[maybe_unused]] std::int16_t code, [[maybe_unused]] std::int16_t shift) override {
    if constexpr (kHas<KeyEvents>) this->KeyUp.Raise(code, shift);
  }
  void OnMouseDown([[maybe_unused]] const PointerInput& input) override {
    if constexpr (kHas<PointerEvents>) Raise(this->MouseDown, input);
  }
  void OnMouseMove([[maybe_unused]] const PointerInput& input) override {
    if constexpr (kHas<PointerEvents>) Raise(this->MouseMove, input);
  }
  void OnMouseUp([[maybe_unused]] const PointerInput& input) override {
    if constexpr (kHas<PointerEvents>) Raise(this->MouseUp, input);
  }
  void OnEnterFocus() override { ShowFocus(true); }
  void OnExitFocus() override { ShowFocus(false); }

 protected:
  using Control::Control;

 private:
  void ShowFocus([[maybe_unused]] bool has_focus) {
    if constexpr (kHas<FocusFlag>) {
      this->has_focus_ = has_focus;
      OnPaint();
    }
  }
};

}  // namespace levelwidgets
