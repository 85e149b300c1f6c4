// The plain edit box of the desktop in memory: what answers the messages of a window of class "EDIT".
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/platform/memory/edit/edit_buffer.h>
#include <levelwidgets/platform/memory/edit/edit_caret.h>
#include <levelwidgets/platform/memory/edit/edit_host.h>
#include <levelwidgets/platform/memory/edit/edit_menu.h>
#include <levelwidgets/platform/memory/edit/edit_view.h>
#include <levelwidgets/platform/memory/edit/words.h>
#include <levelwidgets/platform/wheel.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::memory {

// Does what the operating system's edit box does, except that it undoes and redoes many steps (kEmUndo goes
// one back each time, Ctrl+Y one forward), drags by words after a double click, selects the line at a third
// click and erases the word by Ctrl+Backspace. Its menu waits for nobody: what is raised by the release that
// opens it is raised at once. Whether it has many lines is settled when it is made; its other styles count
// from the next message on.
class EditBox final : public WindowClient {
 public:
  // `host` must outlive it.
  explicit EditBox(EditHost& host) : host_(host), caret_(host) {}
  ~EditBox() override { StopDragTimer(); }
  EditBox(const EditBox&) = delete;
  EditBox& operator=(const EditBox&) = delete;

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 private:
  // A change of the text by the user: what it is in the history, and whether the limits hold for it.
  struct Change {
    bool can_undo = true;
    EditRun run = EditRun::kNone;
    bool limited = true;
  };
  // What the pointer selects by.
  enum class DragUnit { kCharacter, kWord, kLine };

  // Life and state (edit_box.cpp)
  LResult Create(WindowHandle window);
  void Destroy();
  void ReadStyle();
  bool Has(std::uint32_t style) const { return (style_ & style) != 0; }
  void SetStyle(std::uint32_t style, bool on);
  LResult OnWindowMessage(std::uint32_t message, WParam wparam, LParam lparam);
  LResult OnInputMessage(std::uint32_t message, WParam wparam, LParam lparam);
  void SetFont(ObjectHandle font);
  void Notify(std::uint32_t code);
  void Focused();
  void Unfocused();

  // Messages of edit boxes (edit_box_messages.cpp)
  LResult OnEditMessage(std::uint32_t message, WParam wparam, LParam lparam);
  LResult OnLineMessage(std::uint32_t message, WParam wparam, LParam lparam);
  LResult OnFormatMessage(std::uint32_t message, WParam wparam, LParam lparam);
  LResult GetSelection(WParam start, LParam end) const;
  void SetSelection(std::int32_t start, std::int32_t end);
  LResult LineFromChar(std::int32_t offset) const;
  LResult LineIndexOf(std::int32_t line) const;
  LResult LineLength(std::int32_t offset) const;
  LResult CopyLine(std::size_t line, char* buffer) const;
  LResult PosFromChar(std::size_t offset);
  LResult CharFromPos(PixelPoint point);
  LResult CopyText(std::size_t room, char* buffer) const;

  // The text (edit_box_text.cpp)
  void SetText(std::string_view bytes);
  void Replace(std::string_view bytes, Change change);
  void Shorten(std::string& bytes, std::size_t most);
  bool TakeWhatFits(std::string& bytes);
  std::size_t FittingWidth(std::string_view bytes);
  void SetCase(std::string& bytes);
  void Erase(EditRun run);
  bool Undo();
  bool Redo();
  bool Restore(std::optional<LineChange> change);
  bool Copy();
  void Cut();
  void Paste();

  // Selection, scrolling, layout (edit_box_view.cpp)
  void Select(Selection selection);
  void MoveTo(std::size_t offset, bool extend, bool after_wrap = false);
  void ScrollToCaret();
  LResult Scroll(WParam action);
  bool ScrollBy(int pixels, int lines, bool whole_pages);
  void SetRect(PixelRect rect);
  void SetMargins(WParam which, LParam widths);
  void Reformat(bool measure_changed = false);
  PixelRect InsideBorder(int line_height) const;
  PixelRect ClientRect();
  void PlaceCaret();
  void Invalidate();
  void InvalidateLines(std::size_t first, std::size_t last);
  void InvalidateSelection(const Selection& selection);
  void InvalidateChange(const LineChange& change);
  bool ShowsSelection() const { return focused_ || Has(kEsNoHideSel); }

  // Keys (edit_box_keys.cpp)
  bool IsDown(int key) { return host_.Windows().GetKeyState(key) < 0; }
  void KeyDown(int key);
  bool MoveByKey(int key, bool extend, bool ctrl);
  void DeleteKey(bool shift, bool ctrl);
  void InsertKey(bool shift, bool ctrl);
  void Character(char byte);
  void Enter(const std::string& character);
  void ControlCharacter(char byte);
  void EnterKey();
  void Backspace();
  void EraseWord();
  std::size_t WordStart(std::size_t offset) const;
  std::size_t WordEnd(std::size_t offset) const;
  std::size_t Previous(std::size_t offset) const;
  std::size_t Next(std::size_t offset) const;
  void MoveByLines(int lines, bool extend);
  void MoveToEdge(bool end, bool extend, bool ctrl);

  // Pointer (edit_box_mouse.cpp)
  void Press(PixelPoint point, bool extend);
  void DoubleClick(PixelPoint point);
  bool IsThirdPress(PixelPoint point);
  void BeginDrag(PixelPoint point);
  void SelectUnit(DragUnit unit);
  WordRange RangeAround(std::size_t offset) const;
  void Drag(PixelPoint point);
  void DragOn();
  void DragTo(EditView::Hit hit);
  void StopDrag();
  void StopDragTimer();
  void Wheel(int delta);

  // The menu (edit_box_menu.cpp)
  void OpenMenu(PixelPoint at);
  void Run(EditCommand command);

  // Painting (edit_box_paint.cpp)
  void Paint();
  ObjectHandle AskColors(DcHandle dc);
  void PaintLines(DcHandle dc, const PixelRect& area, ObjectHandle brush);
  void PaintLine(DcHandle dc, std::size_t line, const PixelRect& area, ObjectHandle brush);
  std::size_t RunEnd(std::size_t from, std::size_t end) const;
  std::string TextOfRun(std::size_t from, std::size_t to) const;
  void PaintRun(DcHandle dc, std::size_t from, std::size_t to, PixelRect place);
  void PaintBorder(DcHandle dc);

  EditHost& host_;
  WindowHandle window_;
  EditBuffer buffer_;
  EditView view_{buffer_};
  EditCaret caret_;

  std::uint32_t style_ = 0;
  bool multi_line_ = false;
  char first_of_pair_ = 0;  // that has come by itself; 0 for none
  bool flat_border_ = false;
  char password_ = 0;
  std::size_t limit_ = 0;
  ObjectHandle font_;
  TextMetrics metrics_;
  PixelRect outer_;  // the rectangle that was asked for, margins included
  int left_margin_ = 0;
  int right_margin_ = 0;

  bool focused_ = false;
  bool modified_ = false;
  bool dragging_ = false;
  PixelPoint drag_point_;
  TimerHandle drag_timer_;
  DragUnit drag_unit_ = DragUnit::kCharacter;
  WordRange drag_anchor_;  // stays selected while the pointer selects by more than characters
  struct {
    PixelPoint at;
    std::uint64_t time = 0;
    bool any = false;
  } double_click_;
  WheelNotches wheel_;
  std::unique_ptr<EditMenu> menu_;
};

}  // namespace levelwidgets::memory
