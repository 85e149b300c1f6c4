// A language of one line for tests of edit boxes.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/driver.h>

namespace levelwidgets::testing {

// The boxes that scripts run in, in the default font: four lines high, and wide, or two pixels
// wider than a text.
enum class EditBoxKind {
  kSingle,  // scrolls
  kTight,   // one line of five "a", does not scroll
  kNarrow,  // one line of five "a", scrolls
  kMulti,   // scrolls both ways
  kWrap,    // "aaaa bbbb " wide
  kExact,   // "aaaa bbbb" wide
  kFixed,   // many lines, does not scroll
  kRight,   // aligned right, scrolls
  kCenter,
  kPassword,
  kNumber,
  kUpper,
  kLower,
};

// In texts "/" is a line break, "~" a line feed, "^" a carriage return and ">" a tab. A script is made of
// words:
//
//   'ab'          types                       Left S-Left C-Left CS-Left   keys: Left, Right, Up, Down,
//   sel(1,3)      a message                   Home, End, PgUp, PgDn, Del, Ins, BkSp, Enter, letters
//   =scroll(1)    also notes its answer       ?lines   ?line(3)            notes an answer
//   click(2)      the pointer at a character; dbl(2), shiftclick(2), drag(1,4), wheel(-1)
//
// What comes out is the text with "[" and "]" around the selection or "|" at the caret, then all that was
// noted.
class EditBoxScript {
 public:
  // `parent` is a top-level window that does not move.
  EditBoxScript(DesktopDriver& driver, WindowHandle parent, EditBoxKind kind, std::string_view text);
  ~EditBoxScript();
  EditBoxScript(const EditBoxScript&) = delete;
  EditBoxScript& operator=(const EditBoxScript&) = delete;

  WindowHandle Window() const { return window_; }
  std::string Run(std::string_view script);
  // The parent has got kWmCommand.
  void Told(WParam wparam);

  LResult Send(std::uint32_t message, WParam wparam = 0, LParam lparam = 0);
  // Of a text in the box's font.
  int Width(std::string_view text);
  PixelRect Rect();

 private:
  struct Word;
  void Do(const Word& word);
  bool Press(const Word& word);
  bool SendNamed(const Word& word);
  bool UsePointer(const Word& word);
  void Ask(const Word& word);
  std::string State();
  std::string Text();
  std::string LineText(int line);
  PixelPoint ScreenPoint(int offset);

  DesktopDriver& driver_;
  WindowApi& windows_;
  WindowHandle window_;
  std::vector<std::string> notes_;
  std::string told_;
};

}  // namespace levelwidgets::testing
