// The events of an edit box, as it has them itself and as controls around one pass them on.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/frame/event.h>
#include <levelwidgets/frame/units.h>

namespace levelwidgets {

// Arguments by reference come back to the edit box: a changed KeyCode or KeyAscii is the one it acts on, and
// 0 none.
struct EditEvents {
  Event<> Change;
  Event<> Click;
  Event<> DblClick;
  Event<std::int16_t&, std::int16_t&> KeyDown;
  Event<std::int16_t&> KeyPress;
  Event<std::int16_t, std::int16_t> KeyUp;
  Event<std::int16_t&, std::int16_t&, Twips&, Twips&> MouseDown;
  Event<std::int16_t&, std::int16_t&, Twips&, Twips&> MouseMove;
  Event<std::int16_t&, std::int16_t&, Twips&, Twips&> MouseUp;

  // Raises each of `target`'s events when the one of this is raised, but Change, after which most controls
  // have something to do. `target` must outlive this.
  void RelayInputTo(EditEvents& target) {
    Click += [&target] { target.Click.Raise(); };
    DblClick += [&target] { target.DblClick.Raise(); };
    KeyDown += [&target](std::int16_t& code, std::int16_t& shift) { target.KeyDown.Raise(code, shift); };
    KeyPress += [&target](std::int16_t& key_ascii) { target.KeyPress.Raise(key_ascii); };
    KeyUp += [&target](std::int16_t code, std::int16_t shift) { target.KeyUp.Raise(code, shift); };
    RelayPointer(MouseDown, target.MouseDown);
    RelayPointer(MouseMove, target.MouseMove);
    RelayPointer(MouseUp, target.MouseUp);
  }

 private:
  using PointerEvent = Event<std::int16_t&, std::int16_t&, Twips&, Twips&>;
  static void RelayPointer(PointerEvent& from, PointerEvent& to) {
    from += [&to](std::int16_t& button, std::int16_t& shift, Twips& x, Twips& y) {
      to.Raise(button, shift, x, y);
    };
  }
};

}  // namespace levelwidgets
