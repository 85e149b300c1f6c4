// The face of a machine without fonts.
#pragma once

#include <memory>

#include <levelwidgets/platform/memory/font_glyphs.h>

namespace levelwidgets::memory {

// Five by seven dots, in whole multiples; a character beyond ASCII is a box, that of two bytes
// one as wide as two.
std::unique_ptr<GlyphSource> BuiltInFace(const FontRequest& request);

// The arrows "3" left, "4" right, "5" up and "6" down of the symbol font, every other character a box.
std::unique_ptr<GlyphSource> BuiltInArrows(const FontRequest& request);

}  // namespace levelwidgets::memory
