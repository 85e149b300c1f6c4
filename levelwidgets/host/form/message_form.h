// The form that shows a message.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/form/message.h>

namespace levelwidgets {

// In the middle of the screen, not yet shown: the sign lblSign, the lines lbl1 and so on, and a button cmd1
// and so on for each of `captions`, of which the first has the focus and is the default one. Raises 5 without
// a caption.
std::shared_ptr<Form> MakeMessageForm(Platform& platform, const MessageOptions& options,
                                      const std::vector<std::string>& captions);

// The button `number`, from 1; null when somebody has removed it.
std::shared_ptr<HostedControl> MessageButton(const Form& form, std::int32_t number);

}  // namespace levelwidgets
