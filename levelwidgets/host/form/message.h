// A message that somebody has to read, with the buttons to answer it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/form/message_buttons.h>

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
  std::optional<MessageButtons> set = {};     // its buttons; without one `buttons` are
  std::vector<std::string> buttons = {"OK"};  // captions; those of a set are that set
};

// Gets the number of the button, from 1 in the order shown; 0 when the message was closed without one.
using MessageAnswer = std::function<void(std::int32_t button)>;

// Shows the message, and disables the windows of `others` until it is answered. `on_answered`, unless it is
// null, is called once, on a later turn of the loop, when they take input again. Raises 5 without a button.
//
// With a set of buttons the message is the system's own where the platform has one, in front of the active
// one of `others`: null is returned then. Elsewhere it is a form in the middle of the screen, which lasts as
// long as somebody holds it. Its buttons are cmd1, cmd2 and so on, the lines of the text lbl1 and so on;
// whoever reads the desktop finds the text with the window (TopLevelWindow).
//
// The form's keys are those of the system's messages: Left and Right move the focus, Enter and Space press
// the button with the focus, an access key its button with Alt and without. Escape, and a person who closes
// the window, press Cancel or the only button, and do nothing between Yes and No. With captions of the
// caller's own Enter presses the first button and Escape the last one, and closing is no answer.
std::shared_ptr<Form> ShowMessage(Platform& platform, const MessageOptions& options,
                                  const std::vector<std::shared_ptr<Form>>& others,
                                  MessageAnswer on_answered);

}  // namespace levelwidgets
