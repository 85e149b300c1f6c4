#include <levelwidgets/frame/access_key.h>

#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

std::string AccessKeyOf(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  if (mark == std::string_view::npos) return {};
  return std::string(text::FirstCharacter(caption.substr(mark + 1)));
}

bool IsAccessKey(std::string_view keys, std::string_view character) {
  for (; !keys.empty(); keys.remove_prefix(text::FirstCharacter(keys).size())) {
    if (text::EqualIgnoringCase(text::FirstCharacter(keys), character)) return true;
  }
  return false;
}

}  // namespace levelwidgets
