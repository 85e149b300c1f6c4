// The form that asks for a file where the system does not.
#pragma once

#include <levelwidgets/host/form/file_question.h>

namespace levelwidgets {

// AskForFile without the system.
std::shared_ptr<Form> ShowFileQuestion(Platform& platform, const FileQuestion& question,
                                       const std::vector<std::shared_ptr<Form>>& others,
                                       FileAnswer on_answered);

}  // namespace levelwidgets
