// The container's font object: shared, mutable, with a notice of every change.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/platform/drawing.h>

namespace levelwidgets {

// What a font is, as a value.
struct FontDescription {
  std::string name = "Tahoma";
  double size = 8.25;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  int charset = kAnsiCharset;

  friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

// Assigning a Font to a property shares the object, so a change through one owner shows in all.
class Font {
 public:
  Font() = default;
  explicit Font(FontDescription description) : description_(std::move(description)) {}
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  const FontDescription& Description() const { return description_; }
  // Notifies every observer when the description differs from the present one.
  void SetDescription(const FontDescription& description);

  bool Underline() const { return description_.underline; }
  void SetUnderline(bool underline);

  // Observers are called in the order added, after the change. The token ends the observation.
  using Token = std::uint32_t;
  Token Observe(std::function<void()> observer);
  void Forget(Token token);

 private:
  struct Observer {
    Token token;
    std::function<void()> call;
  };
  FontDescription description_;
  std::vector<Observer> observers_;
  Token last_token_ = 0;
};

using FontRef = std::shared_ptr<Font>;

inline FontRef MakeFont(FontDescription description = {}) {
  return std::make_shared<Font>(std::move(description));
}

// The CreateFontA arguments of `font` on a display of `pixels_per_inch`: the size in points becomes a
// character height (negative) in pixels, rounded half away from zero.
FontRequest RequestFor(const FontDescription& font, int pixels_per_inch);

}  // namespace levelwidgets
