// The system's own messages, where the system has them.
#pragma once

#include <cstdint>
#include <string>

#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// All texts are UTF-8.
struct MessageBoxRequest {
  WindowHandle owner = {};  // takes no input until the message is answered
  std::string text = {};    // lines end with "\n"
  std::string title = {};
  std::uint32_t style = 0;  // the system's flags: a set of buttons and a sign
};

class MessageBoxApi {
 public:
  virtual ~MessageBoxApi() = default;
  // Shows a message until a button is pressed, and returns the system's number of that button; 0 when it ends
  // without one, because its owner does. The system's loop runs meanwhile, with messages, posted calls and
  // ticks; what a handler throws is thrown when the message is answered.
  virtual int MessageBoxA(const MessageBoxRequest& request) = 0;
};

// What a platform is besides where its system has such messages. The desktop in memory has none, nor has a
// platform that records calls: there a form of ours is shown (ShowMessage).
class MessageBoxSource {
 public:
  virtual MessageBoxApi& MessageBoxes() = 0;

 protected:
  ~MessageBoxSource() = default;
};

// Null where the platform has none.
inline MessageBoxApi* MessageBoxesOf(Platform& platform) {
  auto* const source = dynamic_cast<MessageBoxSource*>(&platform);
  return source ? &source->MessageBoxes() : nullptr;
}

}  // namespace levelwidgets
