// The sets of buttons that the system's messages have.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets {

// The numbers are the system's.
enum class MessageButtons : std::int32_t { kOk = 0, kOkCancel = 1, kYesNoCancel = 3, kYesNo = 4 };

struct ButtonSet {
  struct Button {
    std::string_view caption;
    std::int32_t id;  // the system's
  };

  MessageButtons buttons_of;
  std::string_view name;  // for scripts
  std::span<const Button> buttons;

  // The place of the button that the system's number `id` stands for, from 1; 0 for none.
  std::int32_t NumberOf(std::int32_t id) const;
  // The place of the button that Escape presses and closing the window stands for: Cancel, or the only one. 0
  // for Yes and No: a person has to choose.
  std::int32_t WayOut() const;
  std::vector<std::string> Captions() const;
};

// Raises 5 for a number that is no set's.
const ButtonSet& SetOf(MessageButtons buttons);
// Raises 5 for a name that is no set's.
const ButtonSet& SetNamed(std::string_view name);
// The set with these captions, whatever their access keys; null when they are the caller's own.
const ButtonSet* SetWithCaptions(const std::vector<std::string>& captions);

}  // namespace levelwidgets
