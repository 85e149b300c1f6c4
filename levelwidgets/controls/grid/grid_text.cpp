#include <levelwidgets/controls/grid/grid_text.h>

namespace levelwidgets {

std::string ShownText(ConversionApi& conversions, std::string_view text, std::string_view format) {
  // The general form of a text is the text.
  if (format.empty()) return std::string(text);
  Converted<std::string> shown = conversions.Format(text, format, kSunday, kWeekOfJanuary1);
  return shown ? std::move(shown.value) : std::string(text);
}

}  // namespace levelwidgets
