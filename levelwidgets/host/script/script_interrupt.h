// Ctrl+C while a script runs.
#pragma once

namespace levelwidgets {

// While one lives, the first interrupt signal (Ctrl+C) ends the script that is running, by an error that no
// pcall holds up; a second one, or one while no script runs, ends the process as it would without this. At
// most one at a time.
class ScriptInterruptSignal {
 public:
  ScriptInterruptSignal();
  ScriptInterruptSignal(const ScriptInterruptSignal&) = delete;
  ScriptInterruptSignal& operator=(const ScriptInterruptSignal&) = delete;
  ~ScriptInterruptSignal();

 private:
  void (*before_)(int);
};

// What a program's exit status is after an interrupt.
inline constexpr int kInterruptedStatus = 130;

// Whether there was one since the last ScriptInterruptSignal came into being.
bool ScriptInterrupted();

// Says that a script runs, for as long as it lives; may be nested.
class InterruptibleScript {
 public:
  InterruptibleScript();
  InterruptibleScript(const InterruptibleScript&) = delete;
  InterruptibleScript& operator=(const InterruptibleScript&) = delete;
  ~InterruptibleScript();
};

}  // namespace levelwidgets
