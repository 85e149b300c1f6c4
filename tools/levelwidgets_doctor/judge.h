// What is wrong, made of facts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <tools/levelwidgets_doctor/facts.h>

namespace levelwidgets::doctor {

// Programs know a finding by this; it does not change.
enum class Cause {
  kContainerUnreadable,
  kNotRegistered,
  kOtherBitness,
  kOtherUser,
  kIncomplete,
  kOtherPlace,
  kTwoPlaces,
  kNoFile,
  kNoLibrary,
  kWrongBitness,
  kMissingLibrary,
  kThreadingModel,
  kTypeLibrary,
  kBlocked,
  kPolicy,
  kUnreadablePolicy,
  kDoesNotLoad,
};
// "wrong-bitness"
std::string_view NameOf(Cause cause);

struct Finding {
  Cause cause;
  bool is_problem = true;  // or something to know
  std::string what;        // is wrong
  std::string where;
  std::string right;  // what would be
};

// In the order in which a container comes to them. None where everything is as it should be.
std::vector<Finding> Judge(const Facts& facts);

}  // namespace levelwidgets::doctor
