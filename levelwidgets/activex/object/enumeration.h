// What For Each asks a collection for.
#pragma once

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>

namespace levelwidgets {
class Enumerator;
}

namespace levelwidgets::activex {

// The items that `items` has left, as the automation layer enumerates them.
ComPtr<IEnumVARIANT> EnumerationOf(Enumerator& items);

}  // namespace levelwidgets::activex
