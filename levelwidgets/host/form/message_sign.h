// The sign beside the text of a message.
#pragma once

#include <optional>
#include <string_view>

#include <levelwidgets/host/form/message.h>

namespace levelwidgets {

struct MessageSign {
  std::string_view text;
  Color color;
};

// In a colour that can be told from `back`; none for a plain message.
std::optional<MessageSign> SignOf(MessageStyle style, ColorRef back);

}  // namespace levelwidgets
