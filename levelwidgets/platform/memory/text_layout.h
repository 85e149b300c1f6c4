// DrawTextA's lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/platform/memory/font_cache.h>
#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::memory {

struct TextLine {
  std::string_view bytes;
  int width = 0;
  int mark = -1;  // where the character begins that an "&" underlines; the last one where there are several
};

// Keeps its memory between texts.
class TextLayout {
 public:
  // `format` of DrawTextA; a line is broken at `width` pixels with kDtWordBreak. The lines are valid
  // until the next call.
  const std::vector<TextLine>& Break(std::string_view utf8, const text::CodePage& code_page, Font& font,
                                     int width, std::uint32_t format);

 private:
  void TakePrefixes();
  void AddLine(std::size_t start, std::size_t end, Font& font);
  void Wrap(std::size_t start, std::size_t end, Font& font, int width);

  std::string bytes_;
  std::vector<std::size_t> marks_;  // ascending
  std::vector<TextLine> lines_;
};

}  // namespace levelwidgets::memory
