#include <levelwidgets/host/script/script_invariants.h>

namespace levelwidgets {

void AddInvariantMethods(lua_State*) {}

}  // namespace levelwidgets
