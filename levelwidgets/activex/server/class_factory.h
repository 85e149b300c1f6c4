// Makes components of the classes of the registry.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>

namespace levelwidgets::activex {

// As DllGetClassObject: of a control, of another class that users may make, or of a property page.
HRESULT FindClassFactory(REFCLSID class_id, REFIID iid, void** found);

}  // namespace levelwidgets::activex
