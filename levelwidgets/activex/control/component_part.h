// Some of the interfaces of a component.
#pragma once

#include <levelwidgets/activex/com/com_object.h>

namespace levelwidgets::activex {

class Component;
// The object that `component` is.
IUnknown& OuterOf(Component& component);

template <typename... Interfaces>
class ComponentPart : public ComPart<Interfaces...> {
 public:
  explicit ComponentPart(Component& component)
      : ComPart<Interfaces...>(OuterOf(component)), component_(component) {}

 protected:
  Component& component_;
};

}  // namespace levelwidgets::activex
