// The primary selection of X11 and Wayland: what is selected can be inserted elsewhere with the middle
// button.
#pragma once

#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets::presenter {

class PrimarySelection {
 public:
  explicit PrimarySelection(memory::Desktop& desktop) : desktop_(desktop) {}

  // Other programs get what has been selected in the edit box with the focus since the last time; nothing of
  // a password, and nothing while a button of the mouse is held.
  void Offer();
  // Inserts the selection, whose ever it is, where the pointer is in an edit box that can be written to.
  void Insert();

 private:
  struct Selected {
    WindowHandle window;
    int first = 0;
    int end = 0;

    friend bool operator==(const Selected&, const Selected&) = default;
  };

  bool IsEditBox(WindowHandle window);
  Selected Find();
  std::string TextOf(const Selected& selected);
  void PlaceCaretAtPointer(WindowHandle window);

  memory::Desktop& desktop_;
  Selected offered_;
};

}  // namespace levelwidgets::presenter
