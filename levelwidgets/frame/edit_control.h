// What the controls around an edit box have in common.
#pragma once

#include <levelwidgets/frame/control.h>
#include <levelwidgets/frame/parts/edit_events.h>
#include <levelwidgets/frame/parts/text_box.h>

namespace levelwidgets {

// Its events are those of its edit box, and the edit box has the focus for it.
class EditControl : public Control, public EditEvents {
 public:
  // The edit box that is shown; for tests and for whoever composes the control further.
  virtual TextBox& ActiveEdit() const = 0;

 protected:
  using Control::Control;

  // To be called once for each edit box of the control.
  void Relay(TextBox& edit) {
    RelayExceptCharacters(edit);
    edit.KeyPress.RelayTo(KeyPress);
  }
  // For a control that has its own part in what is typed.
  void RelayExceptCharacters(TextBox& edit) {
    edit.RelayInputTo(*this);
    edit.Change += [this] { OnEditChange(); };
  }
  virtual void OnEditChange() { Change.Raise(); }

  WindowHandle FocusWindow() const override { return ActiveEdit().hWnd(); }
};

}  // namespace levelwidgets
