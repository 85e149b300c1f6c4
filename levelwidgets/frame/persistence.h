// Saving and loading by the class tables.
#pragma once

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/frame/control_site.h>
#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/property_bag.h>
#include <levelwidgets/frame/text_conversions.h>

namespace levelwidgets {

// What loading raises when a saved value is refused: the error, with the key of the value.
class PropertyRefused : public Error {
 public:
  PropertyRefused(std::string property, const Error& error) : Error(error), property_(std::move(property)) {}
  const std::string& Property() const { return property_; }

 private:
  std::string property_;
};

// Assigns each persisted property of `control`, in the order of its table, what was saved of it or its
// default.
void ReadPersisted(Object& control, ControlSite& site, const PropertyBag& bag);
// Raises 6 (overflow) for a number that its saved type has no room for.
void WritePersisted(const Object& control, ControlSite& site, PropertyBag& bag);

// The items of a collection whose class says how they are saved. Loading adds them to those that are there;
// `texts` convert saved texts.
void ReadItems(const ObjectRef& collection, const PropertyBag& bag, const TextConversions& texts = {});
void WriteItems(const Object& collection, PropertyBag& bag);

}  // namespace levelwidgets
