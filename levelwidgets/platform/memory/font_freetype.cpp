#include <levelwidgets/platform/memory/font_freetype.h>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <map>

namespace levelwidgets::memory {

// The library and its files, which the class of the header holds.
struct Library {
  Library() {
    if (FT_Init_FreeType(&handle) != 0) handle = nullptr;
  }
  ~Library() {
    if (handle) FT_Done_FreeType(handle);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  FT_Library handle = nullptr;
};

// A font file that is open; all its sizes share it.
struct Face {
  Face(std::shared_ptr<Library> its_library, const FontFile& file) : library(std::move(its_library)) {
    if (!library->handle || FT_New_Face(library->handle, file.path.c_str(), file.index, &handle) != 0) {
      handle = nullptr;
    }
  }
  ~Face() {
    if (handle) FT_Done_Face(handle);
  }
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  std::shared_ptr<Library> library;
  FT_Face handle = nullptr;
};

namespace {

constexpr int kLargestSize = 1000;  // pixels per em
constexpr FT_Pos kOnePixel = 64;

// The extents of a line in font units, as the system takes them.
struct LineUnits {
  int ascent = 0;
  int descent = 0;
  int external_leading = 0;
  int average_width = 0;
};

LineUnits UnitsOf(FT_Face face) {
  LineUnits units{face->ascender, -face->descender, 0, face->max_advance_width / 2};
  const int gap = face->height - face->ascender + face->descender;
  units.external_leading = std::max(0, gap);
  const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  if (!os2 || os2->usWinAscent + os2->usWinDescent == 0) return units;
  const int line = os2->usWinAscent + os2->usWinDescent;
  units.external_leading = std::max(0, gap - (line - (face->ascender - face->descender)));
  units.ascent = os2->usWinAscent;
  units.descent = os2->usWinDescent;
  if (os2->xAvgCharWidth > 0) units.average_width = os2->xAvgCharWidth;
  return units;
}

int Scaled(int units, int size, int units_per_em) {
  return static_cast<int>(std::lround(static_cast<double>(units) * size / units_per_em));
}

// Pixels per em for a height in the meaning of CreateFontA: a cell height is that of the largest font that is
// not higher.
int EmSize(int height, const LineUnits& units, int units_per_em) {
  if (height < 0) return std::min(-std::max(height, -kLargestSize), kLargestSize);
  const int cell = height == 0 ? kDefaultCellHeight : std::min(height, kLargestSize);
  const int line = std::max(1, units.ascent + units.descent);
  int size =
      std::clamp(static_cast<int>(static_cast<double>(cell) * units_per_em / line) + 1, 1, kLargestSize);
  const auto line_height = [&] {
    return Scaled(units.ascent, size, units_per_em) + Scaled(units.descent, size, units_per_em);
  };
  while (size > 1 && line_height() > cell) --size;
  return size;
}

// Whether the upright of an "l" is as thick as its file says by calling itself bold: there are fonts with
// bold widths and bold bitmaps around ordinary outlines.
bool HasBoldOutlines(FT_Face face) {
  if (!(face->style_flags & FT_STYLE_FLAG_BOLD)) return false;
  if (FT_Load_Char(face, 'l', FT_LOAD_NO_SCALE) != 0) return true;
  return face->glyph->metrics.width * 8 > face->units_per_EM;
}

class FreeTypeFace final : public GlyphSource {
 public:
  FreeTypeFace(std::shared_ptr<Face> face, const FontRequest& request, double aspect,
               const text::CodePage& code_page)
      : face_(std::move(face)), code_page_(code_page) {
    FT_Face ft = face_->handle;
    units_ = UnitsOf(ft);
    size_y_ = EmSize(request.height, units_, ft->units_per_EM);
    const double wish = request.width == 0 ? size_y_ * aspect
                                           : std::abs(static_cast<double>(request.width)) * ft->units_per_EM /
                                                 units_.average_width;
    size_x_ = static_cast<int>(std::clamp(std::round(wish), 1.0, static_cast<double>(kLargestSize)));
    thicken_ = IsBold(request.weight) && !HasBoldOutlines(ft);
    widen_ = thicken_ && !(ft->style_flags & FT_STYLE_FLAG_BOLD) ? 1 : 0;
    slant_ = request.italic && !(ft->style_flags & FT_STYLE_FLAG_ITALIC);
    symbol_ = FT_Select_Charmap(ft, FT_ENCODING_MS_SYMBOL) == 0;
    if (!symbol_) FT_Select_Charmap(ft, FT_ENCODING_UNICODE);
  }

  FaceMetrics Metrics() override {
    FT_Face ft = face_->handle;
    const int em = ft->units_per_EM;
    FaceMetrics metrics;
    TextMetrics& text = metrics.text;
    text.ascent = Scaled(units_.ascent, size_y_, em);
    text.descent = Scaled(units_.descent, size_y_, em);
    text.height = text.ascent + text.descent;
    text.internal_leading = std::max(0, text.height - size_y_);
    text.external_leading = Scaled(units_.external_leading, size_y_, em);
    text.average_char_width = std::max(1, Scaled(units_.average_width, size_x_, em)) + widen_;
    text.max_char_width = Scaled(static_cast<int>(ft->bbox.xMax - ft->bbox.xMin), size_x_, em);
    metrics.rule_height = std::max(1, Scaled(ft->underline_thickness, size_y_, em));
    const int below = Scaled(-ft->underline_position - ft->underline_thickness / 2, size_y_, em);
    metrics.underline_top =
        std::max(0, std::min(text.ascent + std::max(1, below), text.height - metrics.rule_height));
    metrics.strikethrough_top = text.ascent - StrikethroughHeight();
    return metrics;
  }

  bool Has(text::CharacterCode code) override { return GlyphIndex(code) != 0; }

  GlyphImage Render(text::CharacterCode code) override {
    FT_Face ft = face_->handle;
    GlyphImage image;
    FT_Set_Pixel_Sizes(ft, static_cast<FT_UInt>(size_x_), static_cast<FT_UInt>(size_y_));
    if (FT_Load_Glyph(ft, GlyphIndex(code), LoadFlags()) != 0) return image;
    FT_GlyphSlot slot = ft->glyph;
    image.advance = static_cast<int>((slot->linearHoriAdvance + 0x8000) >> 16) + widen_;
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return image;
    Shape(slot->outline);
    if (FT_Render_Glyph(slot, symbol_ ? FT_RENDER_MODE_MONO : FT_RENDER_MODE_NORMAL) == 0) Take(*slot, image);
    return image;
  }

 private:
  FT_UInt GlyphIndex(text::CharacterCode code) const {
    constexpr FT_ULong kSymbols = 0xF000;
    if (!symbol_) return FT_Get_Char_Index(face_->handle, code_page_.Unicode(code));
    const FT_UInt index = FT_Get_Char_Index(face_->handle, kSymbols + code);
    return index ? index : FT_Get_Char_Index(face_->handle, code);
  }

  // Grey edges blur small symbols, which are drawn in whole pixels therefore.
  FT_Int32 LoadFlags() const {
    return FT_LOAD_NO_BITMAP | (symbol_ ? FT_LOAD_TARGET_MONO : FT_LOAD_TARGET_LIGHT);
  }

  int StrikethroughHeight() const {
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_->handle, FT_SFNT_OS2));
    const int units = os2 && os2->yStrikeoutPosition > 0 ? os2->yStrikeoutPosition : units_.ascent / 3;
    return Scaled(units, size_y_, face_->handle->units_per_EM);
  }

  void Shape(FT_Outline& outline) const {
    if (thicken_) FT_Outline_EmboldenXY(&outline, kOnePixel * size_x_ / 16, 0);
    if (slant_) {
      const FT_Matrix shear{0x10000, 0x366A, 0, 0x10000};  // 12 degrees
      FT_Outline_Transform(&outline, &shear);
    }
  }

  void Take(const FT_GlyphSlotRec_& slot, GlyphImage& image) const {
    const FT_Bitmap& bitmap = slot.bitmap;
    image.left = slot.bitmap_left;
    image.top = Scaled(units_.ascent, size_y_, face_->handle->units_per_EM) - slot.bitmap_top;
    image.width = static_cast<int>(bitmap.width);
    image.height = static_cast<int>(bitmap.rows);
    image.coverage.reserve(bitmap.width * bitmap.rows);
    for (int y = 0; y < image.height; ++y) {
      const unsigned char* row = bitmap.buffer + y * bitmap.pitch;
      for (int x = 0; x < image.width; ++x) {
        const bool dot = bitmap.pixel_mode == FT_PIXEL_MODE_MONO && (row[x / 8] << x % 8 & 0x80);
        image.coverage.push_back(bitmap.pixel_mode == FT_PIXEL_MODE_MONO ? (dot ? 255 : 0) : row[x]);
      }
    }
  }

  std::shared_ptr<Face> face_;
  const text::CodePage& code_page_;
  LineUnits units_;
  int size_x_ = 1;  // pixels per em
  int size_y_ = 1;
  bool thicken_ = false;
  int widen_ = 0;  // pixels more for each character of a face without bold widths
  bool slant_ = false;
  bool symbol_ = false;
};

}  // namespace

struct FontLibrary::Faces {
  std::shared_ptr<Library> library;
  std::map<std::pair<std::string, int>, std::weak_ptr<Face>> open;
};

FontLibrary::FontLibrary() : faces_(std::make_unique<Faces>()) {}

FontLibrary::~FontLibrary() = default;

std::unique_ptr<GlyphSource> FontLibrary::Open(const FontFile& file, const FontRequest& request,
                                               double aspect, const text::CodePage& code_page) {
  if (file.path.empty()) return nullptr;
  if (!faces_->library) faces_->library = std::make_shared<Library>();
  std::weak_ptr<Face>& known = faces_->open[{file.path, file.index}];
  std::shared_ptr<Face> face = known.lock();
  if (!face) {
    face = std::make_shared<Face>(faces_->library, file);
    known = face;
  }
  if (!face->handle || !FT_IS_SCALABLE(face->handle) || face->handle->units_per_EM == 0) return nullptr;
  return std::make_unique<FreeTypeFace>(std::move(face), request, aspect, code_page);
}

}  // namespace levelwidgets::memory
