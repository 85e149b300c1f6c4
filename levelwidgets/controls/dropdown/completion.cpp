#include <levelwidgets/controls/dropdown/completion.h>

#include <algorithm>

#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

// The byte at which the character `place` begins; the end when there are fewer.
std::size_t ByteOf(std::string_view utf8, std::int32_t place) {
  const std::size_t all = utf8.size();
  for (; place > 0 && !utf8.empty(); --place) text::TakeCharacter(utf8);
  return all - utf8.size();
}

std::string WithTyped(const EditedText& before, std::string_view typed) {
  const std::string_view text = before.text;
  const std::size_t start = ByteOf(text, before.start);
  const std::size_t end = start + ByteOf(text.substr(start), before.length);
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
