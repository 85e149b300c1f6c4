// Timers of scripts.
#pragma once

#include <levelwidgets/host/script/forms/state.h>

namespace levelwidgets {

// Makes the type of timers known; once per state.
void OpenTimers(lua_State* L);

// lw.timer{ ms=..., on=function [, form=...] }: calls the function every `ms` milliseconds, 1 or more, until
// it is stopped by timer:stop() or its form is closed: `form`, or the one whose script runs. Without a form
// it ends with the run. An error of the function is reported as the event Timer, and the timer goes on.
// Raises 7 for one more than a sandbox may have.
int NewTimer(lua_State* L);

}  // namespace levelwidgets
