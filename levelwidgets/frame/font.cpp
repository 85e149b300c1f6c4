#include <cmath>

#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/font.h>

namespace levelwidgets {

// What has a default may be missing where a font is written.
const ClassInfo& Font::Table() {
  using Row = table::Row<Font>;
  static constexpr auto data = ClassTable(
      ObjectClass("Font", "How text looks; shared by all that it was assigned to."),
      table::Properties(
          Row::Property<&Font::Name, &Font::SetName>(1, "Name", kNoDefault, "Name of the typeface."),
          Row::Property<&Font::Size, &Font::SetSize>(2, "Size", kNoDefault, "Size in points, more than 0.",
                                                     {.flags = MemberFlags::kPoints}),
          Row::Property<&Font::Bold, &Font::SetBold>(3, "Bold", Always(false), "Whether it is bold."),
          Row::Property<&Font::Italic, &Font::SetItalic>(4, "Italic", Always(false), "Whether it is italic."),
          Row::Property<&Font::Underline, &Font::SetUnderline>(5, "Underline", Always(false),
                                                               "Whether text is underlined."),
          Row::Property<&Font::Strikethrough, &Font::SetStrikethrough>(6, "Strikethrough", Always(false),
                                                                       "Whether text is struck through."),
          Row::Property<&Font::Charset, &Font::SetCharset>(7, "Charset", Always(std::int16_t{kAnsiCharset}),
                                                           "Number of the character set; 2 is symbols.")));
  static constexpr ClassInfo info(data);
  return info;
}

void Font::SetDescription(const FontDescription& description) {
  if (description == description_) return;
  description_ = description;
  // A copy: an observer may forget itself or others.
  const std::vector<Observer> observers = observers_;
  for (const Observer& observer : observers) observer.call();
}

template <typename Part>
void Font::Change(Part FontDescription::*part, Part value) {
  FontDescription changed = description_;
  changed.*part = std::move(value);
  SetDescription(changed);
}

void Font::SetName(std::string name) { Change(&FontDescription::name, std::move(name)); }
void Font::SetSize(double size) {
  if (!std::isfinite(size) || size <= 0) {
    throw Error(kInvalidPropertyValue, "LevelWidgets.Font",
                "Font.Size cannot be " + Describe(Variant(size)) + ": a size is more than 0 points");
  }
  Change(&FontDescription::size, size);
}
void Font::SetBold(bool bold) { Change(&FontDescription::bold, bold); }
void Font::SetItalic(bool italic) { Change(&FontDescription::italic, italic); }
void Font::SetUnderline(bool underline) { Change(&FontDescription::underline, underline); }
void Font::SetStrikethrough(bool strikethrough) { Change(&FontDescription::strikethrough, strikethrough); }
void Font::SetCharset(std::int16_t charset) { Change(&FontDescription::charset, int{charset}); }

Font::Token Font::Observe(std::function<void()> observer) {
  observers_.push_back({++last_token_, std::move(observer)});
  return last_token_;
}

void Font::Forget(Token token) {
  std::erase_if(observers_, [token](const Observer& o) { return o.token == token; });
}

FontRequest RequestFor(const FontDescription& font, int pixels_per_inch) {
  FontRequest request;
  request.height = -static_cast<int>(std::lround(font.size * pixels_per_inch / 72.0));
  request.weight = font.bold ? kFontWeightBold : kFontWeightNormal;
  request.italic = font.italic;
  request.underline = font.underline;
  request.strikethrough = font.strikethrough;
  request.charset = font.charset;
  request.face_name = font.name;
  return request;
}

}  // namespace levelwidgets
