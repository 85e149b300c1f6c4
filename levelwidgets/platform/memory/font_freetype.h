// Fonts from files, through FreeType.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/platform/memory/font_glyphs.h>
#include <levelwidgets/platform/memory/font_search.h>
#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::memory {

class FontLibrary {
 public:
  FontLibrary();
  ~FontLibrary();

  // Null for a file that holds no outlines. `aspect` is a pixel's height divided by its width. Text is
  // never rotated: escapement and orientation are ignored.
  std::unique_ptr<GlyphSource> Open(const FontFile& file, const FontRequest& request, double aspect,
                                    const text::CodePage& code_page);

 private:
  struct Faces;
  std::unique_ptr<Faces> faces_;
};

}  // namespace levelwidgets::memory
