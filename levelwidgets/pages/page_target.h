// What a property page reads and writes: a selected control, by the names of its members.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class PageTarget;
using PageTargetRef = std::shared_ptr<PageTarget>;

// Any object that has members of the names that a page uses. Each operation raises what the object raises:
// 438 for a member that it does not have, 13 or 6 for a value that does not convert to the member's type.
class PageTarget {
 public:
  virtual ~PageTarget() = default;

  virtual Variant Get(std::string_view property, std::span<const Variant> indices = {}) = 0;
  virtual void Set(std::string_view property, std::span<const Variant> indices, const Variant& value) = 0;
  virtual Variant Call(std::string_view method, std::span<const Variant> arguments) = 0;
  // The object that is the value of a property. Raises 13 for a value that is no object.
  virtual PageTargetRef Inner(std::string_view property, std::span<const Variant> indices = {}) = 0;

  void Set(std::string_view property, const Variant& value) { Set(property, {}, value); }
};

}  // namespace levelwidgets
