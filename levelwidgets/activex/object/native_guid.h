// Identifiers as the system's type, which has the same bytes.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/identity/guid.h>

namespace levelwidgets::activex {

inline const GUID& Native(const Guid& id) { return reinterpret_cast<const GUID&>(id); }
inline Guid FromNative(const GUID& id) { return reinterpret_cast<const Guid&>(id); }

}  // namespace levelwidgets::activex
