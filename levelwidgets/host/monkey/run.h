// Many events, in processes of their own: what kills or hangs one is a failure like any other.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/host/monkey/generator.h>
#include <levelwidgets/host/monkey/session.h>

namespace levelwidgets::monkey {

struct RunOptions {
  std::uint64_t seed = 1;
  std::size_t events = 10000;
  // After so many events the form is closed, and another one begins afresh.
  std::size_t events_per_form = 1000;
  int ms_per_event = 10000;  // of the processor's time; what takes longer hangs
  // Called in the process of the run after each form, with the events so far.
  std::function<void(std::size_t)> progress;
};

// Events that break something.
struct Failure {
  std::string broken;  // "invariant: what was seen"
  std::vector<Event> events;
  std::size_t number = 0;  // of the event in the run, from 1
  std::size_t events_before_shrinking = 0;
};

struct RunResult {
  Tally tally;
  std::optional<Failure> failure;
};

// What stands before the colon: failures of the same name count as the same.
std::string NameOf(const std::string& broken);

// The seed of the form that is number `form` in a run.
std::uint64_t SeedOfForm(std::uint64_t seed, std::size_t form);

// Runs the events of one form, in a process of its own, from its stage to its end. `shown`: whether
// the standard error of the process (a sanitizer's report) appears on this one's.
struct FormResult {
  std::string broken;      // "" for none
  std::size_t events = 0;  // performed before it, or in all
  Tally tally;
};
FormResult RunForm(const StageFactory& stage, const std::vector<Event>& events, const RunOptions& options,
                   bool shown);

// What `work` returns, done in a process of its own whose standard error is not shown; "crash: ..." or
// "hang: ..." when it does not finish.
std::string InOwnProcess(int milliseconds, const std::function<std::string()>& work);

// What the events of a run are made for.
FormModel ModelOf(Stage& stage);

// The whole run; a failure is shrunk to the fewest events found that break the same.
RunResult Run(const StageFactory& stage, const RunOptions& options);

// The fewest of `events` for which `breaks` still holds: none of them can be left out.
std::vector<Event> Shrink(std::vector<Event> events,
                          const std::function<bool(const std::vector<Event>&)>& breaks);

// The same events with their texts shortened as far as `breaks` holds.
std::vector<Event> ShortenTexts(std::vector<Event> events,
                                const std::function<bool(const std::vector<Event>&)>& breaks);

}  // namespace levelwidgets::monkey
