// Lines of text as pixels.
#pragma once

#include <cstdint>
#include <string_view>

#include <levelwidgets/platform/memory/font_cache.h>
#include <levelwidgets/platform/memory/target.h>

namespace levelwidgets::memory {

// Mixes the glyphs of `bytes` into the part of the target inside `limit`; `at` is the top left corner of
// the line. Rules (underline, strikethrough) are not drawn.
void PaintGlyphs(const DrawingTarget& target, const PixelRect& limit, Font& font, std::string_view bytes,
                 PixelPoint at, std::uint32_t color);

// The underline and strikethrough that the font asks for, `width` pixels wide.
void PaintRules(const DrawingTarget& target, const PixelRect& limit, Font& font, PixelPoint at, int width,
                std::uint32_t color);

}  // namespace levelwidgets::memory
