// A form that has to be answered first.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

// While it lives, forms take no input. Those that took none before are left alone.
class FormsAtRest {
 public:
  // All of `forms` but `except`, which may be null.
  FormsAtRest(const std::vector<std::shared_ptr<Form>>& forms, const Form* except);
  FormsAtRest(const FormsAtRest&) = delete;
  FormsAtRest& operator=(const FormsAtRest&) = delete;
  ~FormsAtRest();

 private:
  std::vector<std::weak_ptr<Form>> disabled_;
};

// Shows `form` and disables the windows of `others`, those that are enabled, until it is closed or hidden.
// Then `on_closed`, unless it is null, is called on a later turn of the loop, when the others take input
// again.
void ShowModal(const std::shared_ptr<Form>& form, const std::vector<std::shared_ptr<Form>>& others,
               std::function<void()> on_closed);

}  // namespace levelwidgets
