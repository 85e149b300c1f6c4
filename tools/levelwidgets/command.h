// What a command of the program takes on the command line, without the parser. Not for use outside this
// folder.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace levelwidgets {

// Where the value of an option goes. What is there before is its default.
using OptionValue = std::variant<std::string*, std::optional<std::string>*, int*, std::uint64_t*,
                                 std::optional<double>*, std::vector<std::string>*>;

struct OptionRules {
  bool required = false;
  bool shows_default = false;                // in the help
  std::string value_name;                    // in the help; what the type is called when ""
  std::optional<std::pair<int, int>> range;  // the least and the greatest value
  std::vector<std::string> choices;          // all values that it takes; any when empty
};

// Raised by a flag that goes with no other of its kind.
struct FlagConflict {
  std::string flag;
  std::string other;  // "another format"
};

// Raised by a command's body when an argument that it needs is missing.
struct MissingArgument {
  std::string name;  // "FORM or --page"
};

class Command {
 public:
  virtual ~Command() = default;

  // What the help says below the options.
  virtual void SetFooter(const std::string& text) = 0;
  // `names` is "-o,--output" for an option, and "FORM" for an argument by its place. `value` outlives the
  // parsing.
  virtual void AddOption(const std::string& names, OptionValue value, const std::string& help,
                         const OptionRules& rules = {}) = 0;
  // `on_given` is called when the flag is given.
  virtual void AddFlag(const std::string& name, const std::function<void()>& on_given,
                       const std::string& help) = 0;
  // Leaves in `given` whether the flag is given.
  void AddFlag(const std::string& name, bool& given, const std::string& help) {
    AddFlag(
        name, [&given] { given = true; }, help);
  }
  // What the command does, after the parsing; returns the exit status, or throws what is to be reported on
  // standard error: FlagConflict and MissingArgument as what is wrong with the command line.
  virtual void SetBody(std::function<int()> body) = 0;
};

class Program {
 public:
  virtual ~Program() = default;
  virtual Command& Add(const std::string& name, const std::string& description) = 0;
};

}  // namespace levelwidgets
