#include <tools/levelwidgets/help_formatter.h>

#include <sstream>

namespace levelwidgets {

namespace {

constexpr std::size_t kWidth = 90;
constexpr std::size_t kNamesWidth = 26;

std::string WrappedLine(const std::string& line, std::size_t width) {
  if (line.starts_with("  ")) return line;
  std::istringstream words(line);
  std::string wrapped;
  std::size_t column = 0;
  for (std::string word; words >> word; column += word.size()) {
    if (column > 0 && column + 1 + word.size() > width) {
      wrapped += "\n";
      column = 0;
    } else if (column > 0) {
      wrapped += " ";
      ++column;
    }
    wrapped += word;
  }
  return wrapped;
}

}  // namespace

std::string Wrapped(const std::string& text, std::size_t width) {
  std::istringstream lines(text);
  std::string wrapped;
  for (std::string line; std::getline(lines, line);) {
    wrapped += (wrapped.empty() ? "" : "\n") + WrappedLine(line, width);
  }
  return wrapped;
}

HelpFormatter::HelpFormatter() {
  label("Positionals", "Arguments");
  label("SUBCOMMAND", "COMMAND");
  label("REQUIRED", "");
  label("TEXT", "");
  label("INT", "N");
  label("UINT", "N");
  column_width(kNamesWidth);
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
  return Wrapped(CLI::Formatter::make_footer(app), kWidth) + "\n";
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
  return Wrapped(CLI::Formatter::make_option_desc(option), kWidth - kNamesWidth);
}

}  // namespace levelwidgets
