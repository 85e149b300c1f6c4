#include <levelwidgets/activex/identity/component_classes.h>

#include <levelwidgets/controls/registry.h>

namespace levelwidgets {

std::vector<ComponentClass> ComponentClasses() {
  std::vector<ComponentClass> classes;
  for (const ClassIdentity& identity : ClassIdentities()) {
    const ClassInfo* control = FindControlClass(identity.class_name);
    const ClassInfo* info = control ? control : FindObjectClass(identity.class_name);
    if (info) classes.push_back({info, &identity, control != nullptr});
  }
  return classes;
}

}  // namespace levelwidgets
