#include <cmath>

#include <levelwidgets/frame/font.h>

namespace levelwidgets {

void Font::SetDescription(const FontDescription& description) {
  if (description == description_) return;
  description_ = description;
  // A copy: an observer may forget itself or others.
  const std::vector<Observer> observers = observers_;
  for (const Observer& observer : observers) observer.call();
}

void Font::SetUnderline(bool underline) {
  FontDescription changed = description_;
  changed.underline = underline;
  SetDescription(changed);
}

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
