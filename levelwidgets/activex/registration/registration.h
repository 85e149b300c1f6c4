// Writes into the registry, and takes away, what containers find components by.
#pragma once

#include <levelwidgets/activex/registration/registry.h>
#include <levelwidgets/activex/registration/registry_entries.h>

namespace levelwidgets {

// All of it, or nothing: what has been written is taken back before a RegistryError leaves this function, and
// what was there before is there again.
void RegisterLibrary(Registry& registry, const LibraryFile& library);

// Leaves nothing, except what a library of the other bitness needs as long as it is registered. Takes away
// what can be taken away before it throws the first RegistryError.
void UnregisterLibrary(Registry& registry, int bits);

}  // namespace levelwidgets
