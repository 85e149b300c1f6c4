#include <levelwidgets/host/script/lua/run.h>

#include <levelwidgets/host/script/lua/realm.h>

namespace levelwidgets {

namespace {
constexpr std::size_t kMostHandlerErrors = 1000;
}  // namespace

std::string HandlerError::ToString() const {
  const std::string source = form + (form.empty() || control.empty() ? "" : ".") + control;
  return source + " " + event + ": " + message + (traceback.empty() ? "" : "\n" + traceback);
}

ScriptRun::ScriptRun(ScriptReport report, std::size_t memory_limit, std::chrono::milliseconds time_limit,
                     std::function<void(const std::string&)> on_hang)
    : report_(std::move(report)), limits_(memory_limit, time_limit, std::move(on_hang)) {}

void ScriptRun::ReportHandlerError(const ScriptRealm& realm, HandlerError error) {
  Report(error.ToString());
  if (handler_errors_.size() == kMostHandlerErrors) return;
  handler_errors_.push_back(std::move(error));
  realms_of_errors_.push_back(realm.weak_from_this());
}

std::vector<HandlerError> ScriptRun::HandlerErrorsIn(const ScriptRealm& realm) const {
  std::vector<HandlerError> errors;
  for (std::size_t i = 0; i < handler_errors_.size(); ++i) {
    if (realms_of_errors_[i].lock().get() == &realm) errors.push_back(handler_errors_[i]);
  }
  return errors;
}

ScriptNesting::ScriptNesting(ScriptRun& run)
    : run_(run),
      allowed_(++run.nesting_ <= kMostNestedEntries && !run.nesting_refused_),
      told_(run.nesting_refused_) {
  if (!allowed_) run.nesting_refused_ = true;
}

ScriptNesting::~ScriptNesting() {
  if (--run_.nesting_ <= 1) run_.nesting_refused_ = false;
}

}  // namespace levelwidgets
