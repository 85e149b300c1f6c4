// One value of a list.
#pragma once

#include <string>

#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

class ksxValueListItem : public Object {
 public:
  static const ClassInfo& Table();

  // The text of the value.
  const std::string& Description() const { return description_; }
  void SetDescription(std::string description) { description_ = std::move(description); }

  const ClassInfo& Class() const override { return Table(); }

 private:
  std::string description_;
};

}  // namespace levelwidgets
