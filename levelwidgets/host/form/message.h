// A message that somebody has to read, with the buttons to answer it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

// What the message is about, shown as a sign beside its text. The numbers are the system's.
enum class MessageStyle : std::int32_t {
  kPlain = 0,
  kCritical = 16,
  kQuestion = 32,
  kWarning = 48,
  kInformation = 64
};

struct MessageOptions {
  std::string text = {};  // lines end with "\n"; longer ones are broken between words
  std::string title = "LevelWidgets";
  MessageStyle style = MessageStyle::kPlain;
  std::vector<std::string> buttons = {"OK"};  // captions
};

// Gets the number of the button, from 1; 0 when the message was closed without one.
using MessageAnswer = std::function<void(std::int32_t button)>;

// Shows the message in the middle of the screen, and disables the windows of `others` until it is answered.
// Enter presses the first button, Escape the last one. `on_answered`, unless it is null, is called once, on a
// later turn of the loop. Returns the form: its buttons are cmd1, cmd2 and so on, the lines of the text lbl1
// and so on. Raises 5 without a button.
std::shared_ptr<Form> ShowMessage(Platform& platform, const MessageOptions& options,
                                  const std::vector<std::shared_ptr<Form>>& others,
                                  MessageAnswer on_answered);

}  // namespace levelwidgets
