// Standard input, output and error, whatever the program was given for them.
#pragma once

namespace levelwidgets {

// To be called first. Streams that were closed are taken, so that no file that is opened gets their number.
// When the program ends, text that could not be written to standard output is reported on standard error, and
// the exit status is then 1.
void GuardStandardStreams();

}  // namespace levelwidgets
