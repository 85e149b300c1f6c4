// The program without the machine: its command line, and what it prints.
#pragma once

#include <functional>
#include <iosfwd>
#include <span>
#include <string>

#include <tools/levelwidgets_doctor/judge.h>

namespace levelwidgets::doctor {

struct Question {
  std::string container;  // a program; "" for any
  std::string library;    // that should be registered; "" for any
  int bits = 0;           // 0 for those of the container, or of this program
  bool as_json = false;
};

// Of all components are asked the facts; throws std::runtime_error where they cannot be had.
using Gather = std::function<Facts(const Question&)>;

// Returns the exit status: 0 where nothing is wrong, 1 where something is, 2 for a wrong command line, 3
// where the facts cannot be had.
int RunDoctor(std::span<const std::string> arguments, const Gather& gather, std::ostream& out,
              std::ostream& err);

}  // namespace levelwidgets::doctor
