// What a font gives to drawing: measures and the pictures of its characters.
#pragma once

#include <cstdint>
#include <vector>

#include <levelwidgets/platform/drawing.h>
#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::memory {

// Pixels; tops are counted from the top of the line.
struct FaceMetrics {
  TextMetrics text;
  int underline_top = 0;
  int strikethrough_top = 0;
  int rule_height = 1;  // of both
};

struct GlyphImage {
  int advance = 0;
  int left = 0;  // of the picture, from the pen's position
  int top = 0;   // from the top of the line
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;  // row by row, 255 covered
};

// One font at one size.
class GlyphSource {
 public:
  virtual ~GlyphSource() = default;
  virtual FaceMetrics Metrics() = 0;
  // Whether it has a picture of that character, and not only the box for those that it lacks.
  virtual bool Has(text::CharacterCode) { return true; }
  // `code` is one of the font's code page.
  virtual GlyphImage Render(text::CharacterCode code) = 0;
};

// Whether a weight asks for a bold face.
constexpr bool IsBold(int weight) { return weight > 550; }

// A cell height when none is given, whatever the resolution.
inline constexpr int kDefaultCellHeight = 16;

}  // namespace levelwidgets::memory
