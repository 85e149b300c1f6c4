#include <levelwidgets/host/script/lua/interrupt.h>
#include <levelwidgets/host/script/script_host.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

int RunInterruptibly(const std::function<int()>& body) {
  const ScriptInterruptSignal signal;
  try {
    const int status = body();
    // A handler that was ended is reported already.
    return ScriptInterrupted() ? InterruptedStatus() : status;
  } catch (const ScriptInterruption& interruption) {
    PrintError(interruption.what());
    return InterruptedStatus();
  }
}

}  // namespace levelwidgets
