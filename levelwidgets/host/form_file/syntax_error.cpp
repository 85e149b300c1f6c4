#include <levelwidgets/host/form_file/syntax_error.h>

#include <cstdio>

namespace levelwidgets {

namespace {

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string WithArticle(std::string_view what) {
  if (what == "root table") return "the file";
  const bool vowel = !what.empty() && Contains("aeiou", what.substr(0, 1));
  return (vowel ? "an " : "a ") + std::string(what);
}

// What would be right, where that can be guessed; begins with "; ".
std::string_view Advice(std::string_view description, std::string_view rest) {
  const char next = rest.empty() ? '\n' : rest.front();
  const bool at_line_end = next == '\n' || next == '\r';
  if (next == '\0') return "; there is a NUL character here, which no text has";
  if (Contains(description, "string: ") && at_line_end) {
    return "; the string has no closing quote, or is one of several lines, which stands in three quotes";
  }
  if (Contains(description, "unknown escape")) {
    return "; a backslash is written \\\\, or the string in single quotes";
  }
  if (Contains(description, "inline table") && at_line_end) {
    return "; a { table } stands on one line, a longer one is a [table] with a line for each key";
  }
  if (Contains(description, "could not determine value type")) {
    return "; a text stands in quotes, other values are a number, true, false, a date, a list or a { table }";
  }
  if (Contains(description, "boolean")) return "; it is written in small letters";
  if (Contains(description, "redefine"))
    return "; a key or table stands once, each control has a [[control]]";
  return "";
}

}  // namespace

std::string ExplainSyntaxError(std::string_view description, std::string_view rest) {
  constexpr std::string_view kPrefix = "Error while parsing ";
  if (Contains(description, "maximum nested value depth")) return "values are nested more than 64 deep";
  std::string explained(description);
  const std::size_t colon = description.find(':');
  if (description.starts_with(kPrefix) && colon != std::string_view::npos) {
    const std::string_view what = description.substr(kPrefix.size(), colon - kPrefix.size());
    explained = "syntax error in " + WithArticle(what) + std::string(description.substr(colon));
  }
  return explained + std::string(Advice(description, rest));
}

std::string ExplainInvalidUtf8(std::string_view text, std::size_t offset) {
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
    return "the text is UTF-16; a form file is UTF-8";
  }
  char what[80];
  std::snprintf(what, sizeof what, "the text is not UTF-8: the byte 0x%02X at offset %zu is no character",
                static_cast<unsigned>(static_cast<unsigned char>(text[offset])), offset);
  return what;
}

}  // namespace levelwidgets
