// The classes that containers see, each with its table and its identifiers.
#pragma once

#include <vector>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/frame/class_info.h>

namespace levelwidgets {

struct ComponentClass {
  const ClassInfo* info = nullptr;
  const ClassIdentity* identity = nullptr;
  bool is_control = false;

  // Whether users may make objects of it: of any control, and of some other classes.
  bool Creatable() const { return is_control || info->Creatable(); }
};

// In the order of ClassIdentities.
std::vector<ComponentClass> ComponentClasses();

}  // namespace levelwidgets
