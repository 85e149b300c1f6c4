#include <tools/levelwidgets/word_wrap.h>

#include <sstream>

namespace levelwidgets {

namespace {

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

}  // namespace levelwidgets
