// What a form file says about a form, as values.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

struct ControlState {
  const ClassInfo* control_class = nullptr;
  std::string name;
  std::vector<Variant> placement;  // one for each of PlacementKeys()
  PropertyBag properties;
};

// A copy that later changes of the form, its controls and their fonts do not reach.
struct FormState {
  std::string name;
  std::vector<Variant> values;  // one for each of FormKeys(); empty for a place that was not set
  std::vector<ControlState> controls;
};

FormState StateOf(const Form& form);

// The keys of the [form] table, and those of a [[control]] beside Class, Name and Properties: what the tables
// of Form and HostedControl let one set.
const std::vector<const PropertyInfo*>& FormKeys();
const std::vector<const PropertyInfo*>& PlacementKeys();

// What a form, or the control of `control_class` that is added as number `position` (from 0), has where its
// file does not give `key`.
Variant FormDefault(const PropertyInfo& key);
Variant PlacementDefault(const PropertyInfo& key, const ClassInfo& control_class, std::size_t position);

}  // namespace levelwidgets
