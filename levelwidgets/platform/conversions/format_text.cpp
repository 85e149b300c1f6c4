#include <levelwidgets/platform/conversions/format.h>
#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::conversions {
namespace {

std::string InCase(std::string_view text, TextCase text_case) {
  switch (text_case) {
    case TextCase::kUpper: return text::UpperCase(text);
    case TextCase::kLower: return text::LowerCase(text);
    default: return std::string(text);
  }
}

std::string_view TakeFront(std::string_view& text) {
  const std::string_view before = text;
  text::TakeCharacter(text);
  return before.substr(0, before.size() - text.size());
}

}  // namespace

void FormatText(std::string_view text, const ParsedFormat& format, TextBuilder& out) {
  const FormatSection& section = format.sections[text.empty() && format.sections[1].given ? 1 : 0];
  const std::string cased = InCase(text, section.text_case);
  std::string_view rest = cased;
  // Placeholders without a character: the first ones, or with '!' the last ones.
  int missing = section.characters - static_cast<int>(text::CharacterCount(cased));
  if (section.fill_left_to_right) {
    // With '!' the placeholders are all there is room for, and the last characters get it.
    if (section.characters > 0) {
      for (; missing < 0; ++missing) TakeFront(rest);
    }
    missing = 0;
  }
  for (std::uint32_t i = section.first; i < section.last; ++i) {
    const FormatToken& token = format.tokens[i];
    if (token.kind == TokenKind::kLiteral) {
      out.Append(format.LiteralOf(token));
    } else if (missing > 0 || rest.empty()) {
      if (token.kind == TokenKind::kCharacterOrBlank) out.Append(' ');
      --missing;
    } else {
      out.Append(TakeFront(rest));
    }
  }
  // Characters without a placeholder follow at the end.
  out.Append(rest);
}

}  // namespace levelwidgets::conversions
