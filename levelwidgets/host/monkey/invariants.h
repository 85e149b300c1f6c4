// What holds of a form on a desktop in memory whatever has happened to it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets::monkey {

// `form` may be closed. A check that needs a control, or two, holds when they are missing.
struct Subject {
  memory::Desktop& desktop;
  Form& form;
  std::shared_ptr<HostedControl> control = {};
  std::shared_ptr<HostedControl> other = {};
};

struct Invariant {
  enum class When {
    kAlways,     // changes nothing and is quick
    kNowAndThen  // acts on the form: paints it, moves the pointer, loads what it would save
  };
  std::string_view name;
  std::string_view promise;
  When when;
  // What breaks the promise, "" for nothing. An exception is a breach too.
  std::string (*check)(const Subject& subject);
};

std::span<const Invariant> Invariants();
// Null for an unknown name.
const Invariant* FindInvariant(std::string_view name);

// "name: what breaks it" of the first of those that hold always; "" when all hold.
std::string CheckAlways(const Subject& subject);
// The same of one.
std::string Check(const Invariant& invariant, const Subject& subject);

// What a listener that fails on purpose throws; no control knows it.
class ThrownOnPurpose : public std::exception {
 public:
  const char* what() const noexcept override { return "thrown on purpose"; }
};

// All that is shown, again.
void PaintEverything(memory::Desktop& desktop);

// Asks every window to close. What is then left: "3 drawing objects, 1 timer"; "" for nothing.
std::string CloseEverything(memory::Desktop& desktop);

// Whether an error of this number is one that writing a property or calling a method may raise.
bool IsDocumented(std::int32_t error_number);

}  // namespace levelwidgets::monkey
