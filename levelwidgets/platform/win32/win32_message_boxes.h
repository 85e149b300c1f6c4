// The system's messages.
#pragma once

#include <levelwidgets/platform/message_boxes.h>
#include <levelwidgets/platform/win32/exception_relay.h>

namespace levelwidgets::win32 {

class Win32MessageBoxes final : public MessageBoxApi {
 public:
  explicit Win32MessageBoxes(ExceptionRelay& relay) : relay_(relay) {}

  int MessageBoxA(const MessageBoxRequest& request) override;

 private:
  ExceptionRelay& relay_;
};

}  // namespace levelwidgets::win32
