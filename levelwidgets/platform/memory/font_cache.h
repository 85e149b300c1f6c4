// The fonts in use and those used lately, each once for all who describe it alike.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <levelwidgets/platform/memory/font_freetype.h>
#include <levelwidgets/platform/memory/font_glyphs.h>
#include <levelwidgets/platform/memory/font_search.h>
#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::memory {

struct Glyph {
  const std::uint8_t* coverage = nullptr;
  int advance = 0;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool ready = false;
};

// A font and its glyphs by the codes of its code page. Reads its file when it is first asked for a measure or
// a glyph.
class Font {
 public:
  Font(const FontRequest& request, class FontCache& cache);

  const FontRequest& Request() const { return request_; }
  const text::CodePage& CodePage() const { return code_page_; }
  const FaceMetrics& Metrics() {
    if (!source_) Load();
    return metrics_;
  }
  const Glyph& At(text::CharacterCode code) {
    const Glyph& glyph = code < glyphs_.size() ? glyphs_[code] : pairs_[code];
    return glyph.ready ? glyph : Render(code);
  }
  int Width(std::string_view bytes) {
    int width = 0;
    while (!bytes.empty()) width += At(code_page_.TakeCode(bytes)).advance;
    return width;
  }

 private:
  void Load();
  const Glyph& Render(text::CharacterCode code);
  GlyphSource& SourceOf(text::CharacterCode code);

  FontRequest request_;
  FontCache& cache_;
  const text::CodePage& code_page_;
  std::unique_ptr<GlyphSource> source_;
  std::vector<std::unique_ptr<GlyphSource>> substitutes_;  // for characters that the face lacks
  FaceMetrics metrics_;
  std::array<Glyph, 256> glyphs_{};
  std::unordered_map<text::CharacterCode, Glyph> pairs_;
  std::vector<std::vector<std::uint8_t>> pictures_;
};

class FontCache {
 public:
  // Fonts that nobody uses any more but that are kept for the next to describe them.
  static constexpr std::size_t kKept = 16;

  // `system_code_page` must outlive it.
  FontCache(FontSources sources, double aspect, const text::CodePage& system_code_page);

  std::shared_ptr<Font> Get(const FontRequest& request);
  // For tests: how many fonts there are, used or kept.
  std::size_t Size() const { return fonts_.size(); }

  // Never null.
  std::unique_ptr<GlyphSource> Open(const FontRequest& request);
  // Another face that has the character; null when none is installed.
  std::unique_ptr<GlyphSource> OpenSubstitute(const FontRequest& request, char32_t character);
  const text::CodePage& CodePageOf(const FontRequest& request);

 private:
  void DropUnused();

  FontSearch search_;
  FontLibrary library_;
  double aspect_;
  const text::CodePage& system_code_page_;
  std::map<int, text::CodePage> code_pages_;  // the others
  std::vector<std::shared_ptr<Font>> fonts_;  // the one asked for last at the end
};

}  // namespace levelwidgets::memory
