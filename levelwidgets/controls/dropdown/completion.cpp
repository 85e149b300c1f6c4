#include <levelwidgets/controls/dropdown/completion.h>

#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

std::string WithTyped(const EditedText& before, std::string_view typed) {
  const std::string_view text = before.text;
  const std::size_t start = text::ByteOfCharacter(text, static_cast<std::size_t>(before.start));
  const std::size_t end =
      start + text::ByteOfCharacter(text.substr(start), static_cast<std::size_t>(before.length));
  return std::string(text.substr(0, start)).append(typed).append(text.substr(end));
}

}  // namespace

EditedText Complete(const EditedText& before, std::string_view typed, std::span<const std::string> items) {
  const std::string candidate = WithTyped(before, typed);
  for (const std::string& item : items) {
    const std::size_t matched = text::MatchIgnoringCase(item, candidate);
    if (matched == 0) continue;
    const std::string_view tail = std::string_view(item).substr(matched);
    return {candidate + std::string(tail), static_cast<std::int32_t>(text::CharacterCount(candidate)),
            static_cast<std::int32_t>(text::CharacterCount(tail))};
  }
  return {candidate, before.start + 1, 0};
}

}  // namespace levelwidgets
