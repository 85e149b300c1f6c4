// A form that has to be answered first.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

// Shows `form` and disables the windows of `others`, those that are enabled, until it is closed or hidden.
// Then `on_closed`, unless it is null, is called on a later turn of the loop, when the others take input
// again.
void ShowModal(const std::shared_ptr<Form>& form, const std::vector<std::shared_ptr<Form>>& others,
               std::function<void()> on_closed);

}  // namespace levelwidgets
