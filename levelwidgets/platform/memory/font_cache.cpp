#include <levelwidgets/platform/memory/font_cache.h>

#include <algorithm>

#include <levelwidgets/platform/memory/font_builtin.h>

namespace levelwidgets::memory {

void Font::Load() {
  source_ = cache_.Open(request_);
  metrics_ = source_->Metrics();
}

const Glyph& Font::Render(std::uint8_t byte) {
  if (!source_) Load();
  GlyphImage image = source_->Render(byte);
  pictures_.push_back(std::move(image.coverage));
  glyphs_[byte] = {
      pictures_.back().data(), image.advance, image.left, image.top, image.width, image.height, true};
  return glyphs_[byte];
}

FontCache::FontCache(FontSources sources, double aspect, int system_code_page)
    : search_(std::move(sources)), aspect_(aspect), system_code_page_(system_code_page) {}

std::shared_ptr<Font> FontCache::Get(const FontRequest& request) {
  const auto found = std::find_if(fonts_.begin(), fonts_.end(),
                                  [&](const auto& font) { return font->Request() == request; });
  if (found != fonts_.end()) {
    std::rotate(found, found + 1, fonts_.end());
    return fonts_.back();
  }
  DropUnused();
  return fonts_.emplace_back(std::make_shared<Font>(request, *this));
}

void FontCache::DropUnused() {
  auto unused = [](const std::shared_ptr<Font>& font) { return font.use_count() == 1; };
  auto count = static_cast<std::size_t>(std::count_if(fonts_.begin(), fonts_.end(), unused));
  while (count-- >= kKept) fonts_.erase(std::find_if(fonts_.begin(), fonts_.end(), unused));
}

const text::CodePage& FontCache::CodePageOf(const FontRequest& request) {
  const int number = text::CodePageOfCharset(request.charset, system_code_page_);
  return code_pages_.try_emplace(number, number).first->second;
}

std::unique_ptr<GlyphSource> FontCache::Open(const FontRequest& request) {
  const bool symbol = request.charset == kSymbolCharset || IsSymbolFace(request.face_name);
  // Whatever the face, a wish for symbols is answered by a symbol font.
  const std::string face = symbol && !IsSymbolFace(request.face_name) ? "Marlett" : request.face_name;
  const FontStyle style{IsBold(request.weight), request.italic};
  for (const std::string& name : {face, std::string(symbol ? face : "Tahoma")}) {
    auto source = library_.Open(search_.Find(name, style), request, aspect_, CodePageOf(request));
    if (source) return source;
  }
  return symbol ? BuiltInArrows(request) : BuiltInFace(request);
}

}  // namespace levelwidgets::memory
