#include <levelwidgets/platform/text/printable.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::text {

namespace {

// C0, DEL and C1, with which a terminal is given orders.
bool IsControlCharacter(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

void AppendEscape(std::string& printable, const char* format, char32_t number) {
  char escape[16];
  std::snprintf(escape, sizeof escape, format, static_cast<unsigned>(number));
  printable += escape;
}

// The texts before and after the middle that is left out; neither cuts a character.
std::pair<std::string_view, std::string_view> Ends(std::string_view text, std::size_t before,
                                                   std::size_t after) {
  while (before > 0 && IsContinuation(text[before])) --before;
  std::size_t resume = text.size() - after;
  while (resume < text.size() && IsContinuation(text[resume])) ++resume;
  return {text.substr(0, before), text.substr(resume)};
}

void AppendPrintable(std::string& printable, std::string_view text, bool with_tabs) {
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = TakeCharacter(text);
    if (character >= kIllFormedByte) {
      AppendEscape(printable, "\\x%02X", character - kIllFormedByte);
    } else if (IsControlCharacter(character) && !(with_tabs && character == '\t')) {
      AppendEscape(printable, "\\u%04X", character);
    } else {
      printable += before.substr(0, before.size() - text.size());
    }
  }
}

void AppendLine(std::string& printable, std::string_view line, std::size_t longest, bool with_tabs) {
  if (line.size() <= longest) return AppendPrintable(printable, line, with_tabs);
  const auto [begin, end] = Ends(line, longest / 2, longest / 3);
  AppendPrintable(printable, begin, with_tabs);
  printable += " ... ";
  AppendPrintable(printable, end, with_tabs);
}

}  // namespace

std::string Printable(std::string_view text, std::size_t longest) {
  std::string printable;
  AppendLine(printable, text, longest, false);
  return printable;
}

std::string PrintableLines(std::string_view text, std::size_t longest, std::size_t most) {
  std::string printable;
  for (std::size_t line = 0;; ++line) {
    const std::size_t end = text.find('\n');
    if (line == most) {
      const auto rest = std::ranges::count(text, '\n') + 1;
      return printable + "... and " + std::to_string(rest) + (rest == 1 ? " more line" : " more lines");
    }
    AppendLine(printable, text.substr(0, end), longest, true);
    if (end == std::string_view::npos) return printable;
    printable += '\n';
    text.remove_prefix(end + 1);
  }
}

}  // namespace levelwidgets::text
