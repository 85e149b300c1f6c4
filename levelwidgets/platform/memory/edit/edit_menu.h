// The menu of an edit box: a small window of the desktop in front of all others.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/memory/edit/edit_host.h>

namespace levelwidgets::memory {

enum class EditCommand { kUndo, kCut, kCopy, kPaste, kDelete, kSelectAll };

// Open from when it is made until a choice, Escape, a press elsewhere, another program or its window's end.
// While it is open all input is its own, and neither focus nor activation change.
class EditMenu final : public WindowClient {
 public:
  struct Item {
    EditCommand command;
    std::string_view label;  // "&" marks its letter
    bool enabled = true;
    bool begins_group = false;  // a line above it
  };
  using Choice = std::function<void(EditCommand)>;

  // At `corner` of the screen, moved so that all of it is on the screen. `chosen` is called after the menu
  // has closed and may end it. `host` must outlive it.
  EditMenu(EditHost& host, WindowHandle owner, PixelPoint corner, std::vector<Item> items, Choice chosen);
  ~EditMenu() override { Close(); }
  EditMenu(const EditMenu&) = delete;
  EditMenu& operator=(const EditMenu&) = delete;

  bool IsOpen() const { return static_cast<bool>(window_); }
  void Close();

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  PixelSize Measure();
  PixelRect RowOf(std::size_t item) const;
  std::size_t ItemAt(PixelPoint point) const;
  void Highlight(std::size_t item);
  void Choose(std::size_t item);
  void KeyDown(int key);
  void Character(char byte);
  void Step(int direction);
  void Paint();
  void PaintItem(DcHandle dc, std::size_t item);

  EditHost& host_;
  WindowHandle window_;
  std::vector<Item> items_;
  Choice chosen_;
  std::size_t highlighted_ = kNone;
  int row_height_ = 0;
  int width_ = 0;
};

}  // namespace levelwidgets::memory
