#include <levelwidgets/host/script/forms/invariants.h>

namespace levelwidgets {

void AddInvariantMethods(lua_State*) {}

}  // namespace levelwidgets
