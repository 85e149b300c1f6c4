// A failure as a script that shows it again.
#pragma once

#include <string>

#include <levelwidgets/host/monkey/run.h>

namespace levelwidgets::monkey {

struct ScriptFacts {
  std::string form;  // path of the form file as the script is to load it, beside itself
  std::uint64_t seed = 0;
  std::size_t events = 0;  // up to the failure, those of forms before included
};

// A program for `levelwidgets run`: it loads the form, lets the events happen and ends with an error that
// says what is broken, or, where that ends the process, in the same way. `settled`: with all pending done
// after each line, as in the run; few failures need it.
std::string ScriptOf(const Failure& failure, const ScriptFacts& facts, const StageFactory& stage,
                     bool settled);

}  // namespace levelwidgets::monkey
