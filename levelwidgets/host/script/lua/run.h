// What all interpreters of one run share.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/script/lua/failure.h>
#include <levelwidgets/host/script/lua/limits.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

class ScriptRealm;

// Events raise events. A script that is this deep in calls of the library that call scripts is refused
// further calls: it is an event that raises itself.
inline constexpr int kMostNestedEntries = 30;

class ScriptRun {
 public:
  // `memory_limit`, `time_limit` and `on_hang` are those of all sandboxes together, see ScriptLimits.
  ScriptRun(ScriptReport report, std::size_t memory_limit, std::chrono::milliseconds time_limit,
            std::function<void(const std::string&)> on_hang);
  ScriptRun(const ScriptRun&) = delete;
  ScriptRun& operator=(const ScriptRun&) = delete;
  virtual ~ScriptRun() = default;

  // Where the scripts of the run make what can be seen; their conversions are its.
  virtual Platform& FormPlatform() = 0;

  ScriptLimits& Limits() { return limits_; }

  void Report(const std::string& text) const { report_(text); }
  // In a handler that is in `realm`.
  void ReportHandlerError(const ScriptRealm& realm, HandlerError error);
  // The first of them: a run that goes on making errors does not fill the memory with them.
  const std::vector<HandlerError>& HandlerErrors() const { return handler_errors_; }
  // Those that concern the scripts in `realm`.
  std::vector<HandlerError> HandlerErrorsIn(const ScriptRealm& realm) const;

 private:
  friend class ScriptNesting;
  ScriptReport report_;
  int nesting_ = 0;
  bool nesting_refused_ = false;
  std::vector<HandlerError> handler_errors_;
  std::vector<std::weak_ptr<const ScriptRealm>> realms_of_errors_;
  ScriptLimits limits_;
};

// Counts the calls inside calls of scripts, for as long as it lives.
class ScriptNesting {
 public:
  explicit ScriptNesting(ScriptRun& run);
  ScriptNesting(const ScriptNesting&) = delete;
  ScriptNesting& operator=(const ScriptNesting&) = delete;
  ~ScriptNesting();

  // Not too deep. After a first refusal all further calls are refused until the outermost one has returned.
  bool Allowed() const { return allowed_; }
  // Whether another one has been refused before.
  bool Told() const { return told_; }

 private:
  ScriptRun& run_;
  bool allowed_;
  bool told_;
};

}  // namespace levelwidgets
