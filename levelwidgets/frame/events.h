// The standard events, in the sets that controls and parts have of them.
#pragma once

#include <cstdint>

#include <levelwidgets/frame/event.h>
#include <levelwidgets/frame/input.h>

namespace levelwidgets {

struct ClickEvents {
  Event<> Click;
};

struct DblClickEvents {
  Event<> DblClick;
};

struct KeyEvents {
  Event<std::int16_t, std::int16_t> KeyDown;  // code, shift
  Event<std::int16_t&> KeyPress;              // the character, which a listener may change
  Event<std::int16_t, std::int16_t> KeyUp;
};

using PointerEvent = Event<std::int16_t, std::int16_t, Twips, Twips>;  // button, shift, x, y

struct PointerEvents {
  PointerEvent MouseDown;
  PointerEvent MouseMove;
  PointerEvent MouseUp;
};

inline void Raise(const PointerEvent& event, const PointerInput& input) {
  event.Raise(input.button, input.shift, input.at.x, input.at.y);
}

}  // namespace levelwidgets
