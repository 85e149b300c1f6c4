// The one interface through which a control talks to its container.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/font.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// A key message on its way to a control.
struct KeyMessage {
  enum class Kind { kDown, kUp, kCharacter };
  Kind kind = Kind::kDown;
  std::int16_t code = 0;   // key code, or the character
  std::int16_t shift = 0;  // kShiftMask, kCtrlMask, kAltMask
};

// Remembers the key down that somebody has used, so that the characters which the key types go with it.
class UsedKey {
 public:
  void Use(std::int16_t code) { code_ = code; }
  // To be asked about each key message in turn: whether it is such a character.
  bool Takes(const KeyMessage& key) {
    if (key.kind == KeyMessage::Kind::kCharacter) return code_ != 0;
    if (key.kind == KeyMessage::Kind::kDown || key.code == code_) code_ = 0;
    return false;
  }

 private:
  std::int16_t code_ = 0;  // 0: none
};

// What a person does at a control, as far as its container has to know.
enum class InputKind { kNone, kPointerMove, kPress, kKey };

class ControlSite {
 public:
  virtual ~ControlSite() = default;

  virtual Platform& GetPlatform() = 0;
  // The window in which the control's window is created.
  virtual WindowHandle ParentWindow() = 0;

  // What keeps the container alive while code of the control runs; null when it sees to that itself.
  virtual std::shared_ptr<void> ContainerReference() { return nullptr; }
  // Whether a press gives the control the focus.
  virtual bool FocusByPress() { return true; }

  // --- Ambient properties -----------------------------------------------------------------------

  // False at design time: the control then gets no input.
  virtual bool UserMode() = 0;
  // Whether the container shows this control as its default button. May raise 438: a container need not have
  // it.
  virtual bool DisplayAsDefault() = 0;
  virtual std::string DisplayName() = 0;
  // A fresh copy each time, so that what one control does to it never reaches another.
  virtual FontRef AmbientFont() = 0;
  virtual Color AmbientBackColor() = 0;
  virtual Color AmbientForeColor() = 0;

  // --- Notices ----------------------------------------------------------------------------------

  // A persisted property changed.
  virtual void PropertyChanged(std::string_view name) = 0;
  // The control, with its parts as one, has got the focus from `other` or lost it to `other`; null when that
  // is no window of this program.
  virtual void FocusChanged(bool has_focus, WindowHandle other) = 0;
  // The control is losing the focus to `other`. True when that is a window of the container which only hands
  // it on, as a form's does when the form becomes active: the control has not been left yet, and the
  // container calls `settle` when it has handed on.
  virtual bool HandsFocusOn(WindowHandle /*other*/, std::function<void()> /*settle*/) { return false; }
  // Offers a key to the container before the control acts on it. The container may change it; true when it
  // has used it.
  virtual bool TakeKey(KeyMessage& key) = 0;
  // Whether the control and the container have been offered this key before, while it was on its way to its
  // window: a container may get keys before windows do. Then nobody previews it again, and TakeKey leaves it
  // to the part.
  virtual bool WasOffered(const KeyMessage& /*key*/) { return false; }
  // Before a press comes to the control or to a part of it: false when the container keeps the focus where it
  // is, and the press is lost.
  virtual bool AcceptsPress() { return true; }
  // Input has come to the control or to a part of it, which has not seen it yet.
  virtual void InputArrived(InputKind) {}
  // The control's own code raised `error` while it handled the message or the tick that `event` names. True
  // when the container reports it; otherwise it goes to whoever made the message or the tick happen.
  virtual bool TakeError(std::string_view /*event*/, const Error& /*error*/) { return false; }
};

}  // namespace levelwidgets
