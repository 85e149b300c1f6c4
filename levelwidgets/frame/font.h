// The container's font object: shared, mutable, with a notice of every change.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/frame/object.h>
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
class Font : public Object {
 public:
  static const ClassInfo& Table();
  Font() = default;
  explicit Font(FontDescription description) : description_(std::move(description)) {}

  const FontDescription& Description() const { return description_; }
  // Notifies every observer when the description differs from the present one.
  void SetDescription(const FontDescription& description);

  // --- Properties -------------------------------------------------------------------------------
  // Each setter notifies the observers when it changes something.

  const std::string& Name() const { return description_.name; }
  void SetName(std::string name);
  // In points. One that is not more than 0, or no number, raises 380.
  double Size() const { return description_.size; }
  void SetSize(double size);
  bool Bold() const { return description_.bold; }
  void SetBold(bool bold);
  bool Italic() const { return description_.italic; }
  void SetItalic(bool italic);
  bool Underline() const { return description_.underline; }
  void SetUnderline(bool underline);
  bool Strikethrough() const { return description_.strikethrough; }
  void SetStrikethrough(bool strikethrough);
  // As CreateFontA takes it.
  std::int16_t Charset() const { return static_cast<std::int16_t>(description_.charset); }
  void SetCharset(std::int16_t charset);

  const ClassInfo& Class() const override { return Table(); }

  // --- Observers --------------------------------------------------------------------------------

  // Observers are called in the order added, after the change. The token ends the observation.
  using Token = std::uint32_t;
  Token Observe(std::function<void()> observer);
  void Forget(Token token);

 private:
  // The description with one part of it changed.
  template <typename Part>
  void Change(Part FontDescription::*part, Part value);

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
