// Where an edit box shows its text: pure geometry, in client pixels.
#pragma once

#include <cstddef>

#include <levelwidgets/platform/memory/edit/edit_buffer.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets::memory {

enum class EditAlignment { kLeft, kCenter, kRight };

// What decides where a text is, besides the text.
struct EditFormat {
  PixelRect rect{0, 0, 1, 1};  // whole lines, at least one
  int line_height = 1;
  EditAlignment alignment = EditAlignment::kLeft;
  bool multi_line = false;
};

// A single line is scrolled by characters, many lines by lines and pixels.
class EditView {
 public:
  explicit EditView(EditBuffer& buffer) : buffer_(buffer) {}

  const EditFormat& Format() const { return format_; }
  void SetFormat(const EditFormat& format) { format_ = format; }

  int VisibleLines() const { return std::max(1, format_.rect.height() / format_.line_height); }
  // The line at the top; of a single line the first character shown.
  int FirstVisible() const { return format_.multi_line ? top_line_ : first_char_; }
  int TopLine() const { return top_line_; }
  int LeftPixel() const { return left_pixel_; }

  // Where the line starts, left of the rectangle when it is scrolled.
  int LeftOf(std::size_t line);
  int TopOf(std::size_t line) const;
  PixelPoint PointOf(std::size_t offset, bool after_wrap);
  PixelPoint CaretPoint();

  struct Hit {
    std::size_t offset = 0;
    bool after_wrap = false;
  };
  Hit At(PixelPoint point);
  // The place on `line` nearest to `x`.
  Hit OnLine(std::size_t line, int x);

  // By that many lines, up to the last one at the top; for `whole_pages` only until the last page is
  // shown. Returns by how many it was.
  int ScrollLines(int lines, bool whole_pages);
  // By that many pixels of many lines, while there is text to show. Returns by how many it was.
  int ScrollPixels(int pixels);
  // So that the caret can be seen. Returns whether anything was scrolled.
  bool ScrollToCaret(bool horizontally);
  // Back to the start.
  void Reset() { top_line_ = first_char_ = left_pixel_ = 0; }
  // After the text or the rectangle has changed.
  void KeepInside();
  // Of the widest line.
  int TextWidth();

 private:
  int LineCount() const { return static_cast<int>(buffer_.Lines().Count()); }
  int LastPageTop() const { return std::max(0, LineCount() - VisibleLines()); }
  bool ScrollSingleLine();
  bool ScrollManyLines(bool horizontally);

  EditBuffer& buffer_;
  EditFormat format_;
  int top_line_ = 0;
  int left_pixel_ = 0;
  int first_char_ = 0;
};

}  // namespace levelwidgets::memory
