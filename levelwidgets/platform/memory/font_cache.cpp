#include <levelwidgets/platform/memory/font_cache.h>

#include <algorithm>

#include <levelwidgets/platform/memory/font_builtin.h>

namespace levelwidgets::memory {

Font::Font(const FontRequest& request, FontCache& cache)
    : request_(request), cache_(cache), code_page_(cache.CodePageOf(request)) {}

void Font::Load() {
  source_ = cache_.Open(request_);
  metrics_ = source_->Metrics();
}

const Glyph& Font::Render(text::CharacterCode code) {
  if (!source_) Load();
  GlyphSource& source = SourceOf(code);
  GlyphImage image = source.Render(code);
  // On the line of this face.
  image.top += metrics_.text.ascent - source.Metrics().text.ascent;
  pictures_.push_back(std::move(image.coverage));
  Glyph& glyph = code < glyphs_.size() ? glyphs_[code] : pairs_[code];
  glyph = {pictures_.back().data(), image.advance, image.left, image.top, image.width, image.height, true};
  return glyph;
}

// Symbols and control characters are not looked for elsewhere.
GlyphSource& Font::SourceOf(text::CharacterCode code) {
  constexpr char32_t kFirst = 0xA0;
  const char32_t character = code_page_.Unicode(code);
  const bool symbol = request_.charset == kSymbolCharset || IsSymbolFace(request_.face_name);
  if (character < kFirst || symbol || source_->Has(code)) return *source_;
  for (const auto& substitute : substitutes_) {
    if (substitute->Has(code)) return *substitute;
  }
  auto found = cache_.OpenSubstitute(request_, character);
  if (!found || !found->Has(code)) return *source_;
  return *substitutes_.emplace_back(std::move(found));
}

FontCache::FontCache(FontSources sources, double aspect, const text::CodePage& system_code_page)
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
  const int number = text::CodePageOfCharset(request.charset, system_code_page_.Number());
  if (number == system_code_page_.Number()) return system_code_page_;
  return code_pages_.try_emplace(number, number).first->second;
}

std::unique_ptr<GlyphSource> FontCache::OpenSubstitute(const FontRequest& request, char32_t character) {
  const FontFile file = search_.FindWith(character, {IsBold(request.weight), request.italic});
  return library_.Open(file, request, aspect_, CodePageOf(request));
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
