// Saved properties in a container's stream.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets::activex {

// Reads as many bytes as one control's properties have. Raises 321 for bytes in any other format, and the
// stream's own error when it fails.
PropertyBag ReadFrom(IStream& stream);
void WriteTo(IStream& stream, const PropertyBag& bag);

}  // namespace levelwidgets::activex
