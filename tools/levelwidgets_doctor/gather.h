// Asks the machine what is judged.
#pragma once

#include <tools/levelwidgets_doctor/doctor.h>

namespace levelwidgets::doctor {

// Throws std::runtime_error where the registry cannot be read.
Facts GatherFacts(const Question& question);

}  // namespace levelwidgets::doctor
