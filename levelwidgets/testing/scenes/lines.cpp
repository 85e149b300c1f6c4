#include <levelwidgets/testing/scenes/lines.h>

#include <algorithm>
#include <cstddef>

namespace levelwidgets::testing {

namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

// At [i][j] the length of the longest list that is in order within both wanted[i..] and got[j..].
using Table = std::vector<std::vector<std::size_t>>;

Table CommonLengths(const std::vector<std::string>& wanted, const std::vector<std::string>& got) {
  Table common(wanted.size() + 1, std::vector<std::size_t>(got.size() + 1));
  for (std::size_t i = wanted.size(); i-- > 0;) {
    for (std::size_t j = got.size(); j-- > 0;) {
      common[i][j] =
          wanted[i] == got[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  return common;
}

}  // namespace

LineMark MarkOf(std::string_view line) {
  const std::size_t open = line.rfind('[');
  if (!line.ends_with(']') || open == std::string_view::npos) return {};
  const std::string_view mark = line.substr(open + 1, line.size() - open - 2);
  const std::size_t colon = mark.find(": ");
  if (colon == std::string_view::npos) return {};
  return {mark.substr(0, colon), mark.substr(colon + 2)};
}

std::vector<std::string> LinesFor(std::string_view platform, std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty()) continue;
    const LineMark mark = MarkOf(line);
    if (!mark.platform.empty()) {
      if (mark.platform != platform) continue;
      line = Trimmed(line.substr(0, line.rfind('[')));
    }
    lines.emplace_back(line);
  }
  return lines;
}

std::string Differing(const std::vector<std::string>& wanted, const std::vector<std::string>& got) {
  const Table common = CommonLengths(wanted, got);
  std::string text;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < wanted.size() || j < got.size()) {
    if (i < wanted.size() && j < got.size() && wanted[i] == got[j]) {
      text += "  " + wanted[i++] + "\n";
      ++j;
    } else if (j == got.size() || (i < wanted.size() && common[i + 1][j] >= common[i][j + 1])) {
      text += "- " + wanted[i++] + "\n";
    } else {
      text += "+ " + got[j++] + "\n";
    }
  }
  return text;
}

}  // namespace levelwidgets::testing
