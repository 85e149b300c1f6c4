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
  TextBox& ActiveEdit() const { return *txt_; }

 protected:
  // `edit` is the edit box that is active at first; it may be a member that is yet to be made.
  EditControl(std::shared_ptr<ControlSite> site, SurfaceLook look, TextBox& edit)
      : Control(std::move(site), std::move(look)), txt_(&edit) {}

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

  WindowHandle FocusWindow() const override { return txt_->hWnd(); }

  // The one that is shown.
  TextBox* txt_;
};

}  // namespace levelwidgets
