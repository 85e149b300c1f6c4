// The menu of an edit box.
#include <levelwidgets/platform/memory/edit/edit_box.h>

namespace levelwidgets::memory {

void EditBox::OpenMenu(PixelPoint at) {
  WindowApi& windows = host_.Windows();
  // A listener of the press may have hidden it, and a hidden window would take the focus.
  if (!windows.IsWindowVisible(window_)) return;
  if (!focused_) windows.SetFocus(window_);
  if (!window_) return;
  const Selection& selected = buffer_.Selected();
  const bool writable = !Has(kEsReadOnly);
  const bool can_copy = !selected.Empty() && password_ == 0;
  const bool all = !selected.Empty() && selected.Start() == 0 && selected.End() == buffer_.Size();
  const std::optional<std::string> clipboard = host_.ClipboardBytes();
  std::vector<EditMenu::Item> items{
      {EditCommand::kUndo, "&Undo", writable && buffer_.History().CanUndo()},
      {EditCommand::kCut, "Cu&t", writable && can_copy, true},
      {EditCommand::kCopy, "&Copy", can_copy},
      {EditCommand::kPaste, "&Paste", writable && clipboard && !clipboard->empty()},
      {EditCommand::kDelete, "&Delete", writable && !selected.Empty()},
      {EditCommand::kSelectAll, "Select &All", buffer_.Size() > 0 && !all, true},
  };
  PixelPoint corner = at;
  windows.ClientToScreen(window_, corner);
  menu_ = std::make_unique<EditMenu>(host_, window_, corner, std::move(items),
                                     [this](EditCommand command) { Run(command); });
}

void EditBox::Run(EditCommand command) {
  switch (command) {
    case EditCommand::kUndo: Undo(); break;
    case EditCommand::kCut: Cut(); break;
    case EditCommand::kCopy: Copy(); break;
    case EditCommand::kPaste: Paste(); break;
    case EditCommand::kDelete: Erase(EditRun::kNone); break;
    case EditCommand::kSelectAll: Select({0, buffer_.Size()}); break;
  }
}

}  // namespace levelwidgets::memory
