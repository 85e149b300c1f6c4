#include <levelwidgets/host/form/message_sign.h>

#include <algorithm>
#include <iterator>

namespace levelwidgets {

namespace {

struct Sign {
  MessageStyle style;
  std::string_view text;
  Color on_light;
  Color on_dark;
};

constexpr Sign kSigns[] = {{MessageStyle::kCritical, "x", Color(0x001C1CC4u), Color(0x006B6BFFu)},
                           {MessageStyle::kQuestion, "?", Color(0x00A8590Bu), Color(0x00F5B26Cu)},
                           {MessageStyle::kWarning, "!", Color(0x00005A9Au), Color(0x0040B0F0u)},
                           {MessageStyle::kInformation, "i", Color(0x00A8590Bu), Color(0x00F5B26Cu)}};

// By how bright the three parts look, in thousandths.
bool IsDark(ColorRef color) {
  const auto part = [&](int shift) { return color.value >> shift & 0xFF; };
  return 299 * part(0) + 587 * part(8) + 114 * part(16) < 128 * 1000;
}

}  // namespace

std::optional<MessageSign> SignOf(MessageStyle style, ColorRef back) {
  const auto found = std::ranges::find(kSigns, style, &Sign::style);
  if (found == std::end(kSigns)) return {};
  return MessageSign{found->text, IsDark(back) ? found->on_dark : found->on_light};
}

}  // namespace levelwidgets
