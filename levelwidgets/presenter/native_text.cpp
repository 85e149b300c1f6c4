#include <levelwidgets/presenter/native_text.h>

namespace levelwidgets::presenter {

namespace {

std::string WithLineEnds(std::string_view text, std::string_view line_end) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool both = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\r' || text[i] == '\n') {
      result += line_end;
      if (both) ++i;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace

std::string ToNativeLines(std::string_view text) { return WithLineEnds(text, "\n"); }

std::string ToDesktopLines(std::string_view text) { return WithLineEnds(text, "\r\n"); }

}  // namespace levelwidgets::presenter
