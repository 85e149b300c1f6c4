// Ctrl+C and other requests to end, while a script runs.
#pragma once

namespace levelwidgets {

// While one lives, the first SIGINT (Ctrl+C), SIGTERM or SIGHUP that comes while a script runs ends that
// script, by an error that no pcall holds up; a second one ends the process. One that comes while no script
// runs does what it would do without this. At most one at a time.
class ScriptInterruptSignal {
 public:
  ScriptInterruptSignal();
  ScriptInterruptSignal(const ScriptInterruptSignal&) = delete;
  ScriptInterruptSignal& operator=(const ScriptInterruptSignal&) = delete;
  ~ScriptInterruptSignal();
};

// Whether a script was asked to end since the last ScriptInterruptSignal was made.
bool ScriptInterrupted();
// What a program's exit status is then: 128 and the number of the signal, 130 for Ctrl+C.
int InterruptedStatus();

// Says that a script runs, for as long as it lives; may be nested.
class InterruptibleScript {
 public:
  InterruptibleScript();
  InterruptibleScript(const InterruptibleScript&) = delete;
  InterruptibleScript& operator=(const InterruptibleScript&) = delete;
  ~InterruptibleScript();
};

}  // namespace levelwidgets
