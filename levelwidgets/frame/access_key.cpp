#include <levelwidgets/frame/access_key.h>

namespace levelwidgets {

std::string AccessKeyOf(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  if (mark == std::string_view::npos || mark + 1 == caption.size()) return {};
  std::size_t end = mark + 2;
  // The rest of a multi-byte character.
  while (end < caption.size() && (static_cast<unsigned char>(caption[end]) & 0xC0) == 0x80) ++end;
  return std::string(caption.substr(mark + 1, end - mark - 1));
}

}  // namespace levelwidgets
