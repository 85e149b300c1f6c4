// What a part of a control asks of that which holds it: the control itself, or a panel of it.
#pragma once

#include <cstdint>
#include <memory>

#include <levelwidgets/platform/window.h>

namespace levelwidgets {

class ControlSite;
class Surface;
struct KeyMessage;

// A part that has a window of its own: an edit box, a panel, a whole control.
class WindowPart {
 public:
  virtual ~WindowPart() = default;
  // Null while it has none.
  virtual WindowHandle hWnd() const = 0;
  // Whether `window` is the part's, or that of a part inside it. Windows that were moved to the desktop
  // count.
  virtual bool Holds(WindowHandle window) const { return window && window == hWnd(); }
  // A message that the part's window has sent to the host's: kWmCommand or a colour request. True when
  // handled.
  virtual bool OnParentMessage(std::uint32_t /*message*/, WParam /*wparam*/, LResult& /*result*/) {
    return false;
  }
  // The host leaves the screen for good. What the part has outside the host's window goes, too.
  virtual void OnHostGone() {}
};

class PartHost {
 public:
  virtual ~PartHost() = default;
  // The window that holds the parts. Its font and colours are the parts' ambient ones.
  virtual Surface& GetSurface() = 0;
  // Of the control that the parts belong to.
  virtual ControlSite& Site() const = 0;
  // The same, for what goes on after the control may have gone.
  virtual std::shared_ptr<ControlSite> SharedSite() const = 0;
  // Keeps the outermost control alive while code of a part runs. Null before the control is alive and when it
  // is being destroyed: a part then raises no events.
  virtual std::shared_ptr<void> Reference() const = 0;
  virtual void AddPart(WindowPart& part) = 0;
  virtual void RemovePart(WindowPart& part) = 0;
  // The window of a part has got the focus from `other`, or loses it to `other`; null when that is no window
  // of this program.
  virtual void PartFocus(bool has_focus, WindowHandle other) = 0;
  // A key on its way to a part: the control previews it, then its container. Either may change it; true when
  // one of them has used it. The part gets what nobody has used.
  virtual bool TakeKey(KeyMessage& key) = 0;
};

}  // namespace levelwidgets
