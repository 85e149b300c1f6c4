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
  Event<std::int16_t&, std::int16_t&> KeyUp;
  Event<std::int16_t&, std::int16_t&, Twips&, Twips&> MouseDown;
  Event<std::int16_t&, std::int16_t&, Twips&, Twips&> MouseMove;
  Event<std::int16_t&, std::int16_t&, Twips&, Twips&> MouseUp;

  // Raises each of `target`'s events when the one of this is raised, except Change and KeyPress, at which
  // controls have something to do themselves. `target` must outlive this.
  void RelayInputTo(EditEvents& target) {
    Click.RelayTo(target.Click);
    DblClick.RelayTo(target.DblClick);
    KeyDown.RelayTo(target.KeyDown);
    KeyUp.RelayTo(target.KeyUp);
    MouseDown.RelayTo(target.MouseDown);
    MouseMove.RelayTo(target.MouseMove);
    MouseUp.RelayTo(target.MouseUp);
  }
};

}  // namespace levelwidgets
