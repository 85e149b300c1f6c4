#include <levelwidgets/host/form_file/lost_text.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <vector>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool IsKept(std::string_view text, ConversionApi& conversions) {
  return conversions.FromCodePage(conversions.ToCodePage(text)) == text;
}

// Each one once, in the order of the text.
std::vector<std::string_view> LostCharacters(std::string_view text, ConversionApi& conversions) {
  std::vector<std::string_view> lost;
  std::set<std::string_view> seen;
  while (!text.empty()) {
    const std::string_view character = text::FirstCharacter(text);
    text.remove_prefix(character.size());
    if (IsAscii(character) || !seen.insert(character).second) continue;
    if (!IsKept(character, conversions)) lost.push_back(character);
  }
  return lost;
}

std::string Named(std::string_view character) {
  std::string_view rest = character;
  char code[16];
  std::snprintf(code, sizeof code, " (U+%04X)", static_cast<unsigned>(text::TakeCharacter(rest)));
  return "\"" + std::string(character) + "\"" + code;
}

}  // namespace

std::optional<LostText> FindLostText(std::string_view text, ConversionApi& conversions) {
  constexpr std::size_t kMost = 5;
  if (IsAscii(text) || IsKept(text, conversions)) return std::nullopt;
  const std::vector<std::string_view> lost = LostCharacters(text, conversions);
  if (lost.empty()) return std::nullopt;
  const std::size_t named = std::min(lost.size(), kMost);
  LostText found{std::string(lost.front()), ""};
  for (std::size_t i = 0; i < named; ++i) {
    const bool last = i + 1 == lost.size();
    found.message += (i == 0 ? "" : last ? " and " : ", ") + Named(lost[i]);
  }
  if (lost.size() > named) found.message += " and " + std::to_string(lost.size() - named) + " more";
  return found;
}

}  // namespace levelwidgets
