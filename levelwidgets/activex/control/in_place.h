// Where a control is in its container.
#pragma once

#include <optional>
#include <string>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/frame/control_site.h>

namespace levelwidgets::activex {

class Component;

// In-place activation: the control's window moves from the parking window into the container's and back.
// Every call of the container may end the activation, or the component.
class InPlace {
 public:
  explicit InPlace(Component& component) : component_(component) {}

  bool Active() const { return static_cast<bool>(site_); }
  // The one in which the control's window is.
  WindowHandle ParentWindow() const;

  // Whether `window` is the top-level window that the container is in.
  bool IsAround(WindowHandle window) const;

  // What the container refuses or fails with ends in its result, and nothing has changed.
  HRESULT Activate();
  // The same, and gives the control the focus.
  HRESULT ActivateUserInterface();
  HRESULT DeactivateUserInterface();
  HRESULT Deactivate();
  HRESULT Hide();
  // Without a word to the container.
  void Abandon();

  // In pixels of the container's window. The container shows only what is inside `clip`.
  HRESULT SetRects(const RECT& position, const RECT& clip);
  // The control gets the size and place that it has in the container.
  void ShowControl();

  // --- What the control reports -----------------------------------------------------------------

  void FocusChanged(bool has_focus);
  // True when the container has used the key, or when it is to be told first that nobody has.
  bool TakeKey(KeyMessage& key);
  bool WasOffered(const KeyMessage& key) const;
  // As IOleInPlaceActiveObject::TranslateAccelerator: the message goes its way through the control as far as
  // the container. When nobody has used it, the container sends it to its window, and it goes the rest.
  HRESULT TranslateMessage(MSG& message);
  // Whether these are others than before.
  bool NoteAccessKeys(const std::string& keys);

 private:
  HRESULT Enter(IOleInPlaceSite& site);
  bool Holds(HWND window) const;

  Component& component_;
  ComPtr<IOleInPlaceSite> site_;  // while active
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  WindowHandle parent_;
  RECT position_ = {};
  RECT clip_ = {};
  bool ui_active_ = false;
  bool hidden_ = false;
  MSG* message_ = nullptr;             // the one that the container offers
  std::optional<KeyMessage> offered_;  // the last one that nobody has used
  std::string access_keys_;
};

}  // namespace levelwidgets::activex
