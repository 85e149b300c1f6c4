// The fonts in use and those used lately, each once for all who describe it alike.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
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

// A font and its glyphs by byte. Reads its file when it is first asked for a measure or a glyph.
class Font {
 public:
  Font(const FontRequest& request, class FontCache& cache) : request_(request), cache_(cache) {}

  const FontRequest& Request() const { return request_; }
  const FaceMetrics& Metrics() {
    if (!source_) Load();
    return metrics_;
  }
  const Glyph& At(std::uint8_t byte) {
    const Glyph& glyph = glyphs_[byte];
    return glyph.ready ? glyph : Render(byte);
  }
  int Width(std::string_view bytes) {
    int width = 0;
    for (const char byte : bytes) width += At(static_cast<std::uint8_t>(byte)).advance;
    return width;
  }

 private:
  void Load();
  const Glyph& Render(std::uint8_t byte);

  FontRequest request_;
  FontCache& cache_;
  std::unique_ptr<GlyphSource> source_;
  FaceMetrics metrics_;
  std::array<Glyph, 256> glyphs_{};
  std::vector<std::vector<std::uint8_t>> pictures_;
};

class FontCache {
 public:
  // Fonts that nobody uses any more but that are kept for the next to describe them.
  static constexpr std::size_t kKept = 16;

  FontCache(FontSources sources, double aspect, int system_code_page);

  std::shared_ptr<Font> Get(const FontRequest& request);
  // For tests: how many fonts there are, used or kept.
  std::size_t Size() const { return fonts_.size(); }

  // Never null.
  std::unique_ptr<GlyphSource> Open(const FontRequest& request);

 private:
  void DropUnused();
  const text::CodePage& CodePageOf(const FontRequest& request);

  FontSearch search_;
  FontLibrary library_;
  double aspect_;
  int system_code_page_;
  std::map<int, text::CodePage> code_pages_;
  std::vector<std::shared_ptr<Font>> fonts_;  // the one asked for last at the end
};

}  // namespace levelwidgets::memory
