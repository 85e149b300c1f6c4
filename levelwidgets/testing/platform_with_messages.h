// A platform whose system has messages of its own.
#pragma once

#include <functional>
#include <vector>

#include <levelwidgets/platform/message_boxes.h>
#include <levelwidgets/testing/same_platform.h>

namespace levelwidgets::testing {

class PlatformWithMessages final : public SamePlatform, public MessageBoxSource, public MessageBoxApi {
 public:
  using SamePlatform::SamePlatform;
  MessageBoxApi& MessageBoxes() override { return *this; }

  int MessageBoxA(const MessageBoxRequest& request) override {
    shown.push_back(request);
    const auto now = meanwhile;  // which may set another one
    if (now) now();
    return pressed;
  }

  std::vector<MessageBoxRequest> shown;
  int pressed = 1;  // the system's number of the button
  std::function<void()> meanwhile;
};

}  // namespace levelwidgets::testing
