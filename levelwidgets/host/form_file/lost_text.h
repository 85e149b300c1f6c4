// Characters of a form file that the platform cannot show.
#pragma once

#include <optional>
#include <string>

#include <levelwidgets/platform/conversion.h>

namespace levelwidgets {

struct LostText {
  std::string first;  // the first such character
  std::string
      message;  // `"日" (U+65E5) and "本" (U+672C)`, each one once, and of many how many more there are
};

// What the platform's code page lacks of `text`.
std::optional<LostText> FindLostText(std::string_view text, ConversionApi& conversions);

}  // namespace levelwidgets
