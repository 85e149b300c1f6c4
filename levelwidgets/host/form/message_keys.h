// How the form of a message is answered.
#pragma once

#include <cstdint>

#include <levelwidgets/host/form/message.h>

namespace levelwidgets {

// Calls `press` with the number of the button that is clicked, of `count` ones.
void AnswerByButtons(const Form& form, std::int32_t count, const MessageAnswer& press);

// The keys, and the button that closes the window, do what they do in the system's messages.
void AnswerAsTheSystem(Form& form, const ButtonSet& set, const MessageAnswer& press);

}  // namespace levelwidgets
