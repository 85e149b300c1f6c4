#include <levelwidgets/activex/identity/guid.h>

namespace levelwidgets {

namespace {

void AppendHex(std::string& text, std::uint32_t value, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += "0123456789ABCDEF"[value >> shift & 15];
  }
}

}  // namespace

std::string TextOf(const Guid& guid) {
  std::string text = "{";
  AppendHex(text, guid.data1, 8);
  text += '-';
  AppendHex(text, guid.data2, 4);
  text += '-';
  AppendHex(text, guid.data3, 4);
  text += '-';
  for (std::size_t i = 0; i < guid.data4.size(); ++i) {
    if (i == 2) text += '-';
    AppendHex(text, guid.data4[i], 2);
  }
  return text + "}";
}

}  // namespace levelwidgets
