#include <levelwidgets/host/script/script_state.h>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/script/script_entry.h>

namespace levelwidgets {

namespace {
constexpr std::size_t kMostHandlerErrors = 1000;
// More than anybody looks at.
constexpr std::size_t kMostFormsOfSandboxes = 1000;
constexpr std::int32_t kOutOfMemory = 7;
}  // namespace

ScriptState::ScriptState(ScriptOptions options)
    : platform_(options.platform),
      desktop_is_given_(options.desktop != nullptr),
      report_(std::move(options.report)),
      trusts_forms_(options.trusted),
      limits_(options.memory_limit, options.time_limit, std::move(options.on_hang)),
      program_(std::make_shared<ScriptRealm>(*this)) {
  if (!options.desktop) return;
  Platform& of_desktop = options.desktop->GetPlatform();
  desktop_ = {std::move(options.desktop), &of_desktop, std::make_unique<TracingPlatform>(of_desktop)};
}

ScriptState::~ScriptState() {
  while (!forms_.empty()) Forget(forms_.back());
  program_.reset();
}

void ScriptState::MakeDesktop(const DesktopSettings& settings) {
  if (platform_) {
    throw Error(kInvalidCall, "LevelWidgets.Desktop",
                "There is no desktop to drive here: the forms are in native windows");
  }
  if (desktop_.driver) {
    throw Error(kInvalidCall, "LevelWidgets.Desktop",
                "There is a desktop already: it is made once, before the first form");
  }
  desktop_ = MakeOwnDesktop(settings);
}

ScriptDesktop& ScriptState::Desktop() {
  if (!desktop_.driver) MakeDesktop({});
  return desktop_;
}

std::shared_ptr<ScriptForm> ScriptState::Keep(std::shared_ptr<Form> form,
                                              std::shared_ptr<const FormDocument> document,
                                              ScriptRealm& opener) {
  for (const auto& open : std::vector(forms_)) {
    if (open->form->Closed()) Forget(open);
  }
  if (opener.IsSandbox() && forms_.size() >= kMostFormsOfSandboxes) {
    throw Error(
        kOutOfMemory, "LevelWidgets.Form",
        "there are " + std::to_string(forms_.size()) +
            " forms open, and the script of a form opens no more; --trust lifts the limits for a form "
            "that you trust");
  }
  auto kept = std::make_shared<ScriptForm>();
  kept->form = std::move(form);
  kept->document = std::move(document);
  kept->opener = opener.shared_from_this();
  forms_.push_back(kept);
  return kept;
}

void ScriptState::Forget(const std::shared_ptr<ScriptForm>& form) {
  const auto kept = form;
  std::erase(forms_, kept);
  // They refer to the form, and end with the last of their forms.
  kept->environment = {};
  kept->realm.reset();
  kept->opener.reset();
}

void ScriptState::ReportHandlerError(const ScriptRealm& realm, HandlerError error) {
  Report(error.ToString());
  if (handler_errors_.size() == kMostHandlerErrors) return;
  handler_errors_.push_back(std::move(error));
  realms_of_errors_.push_back(realm.weak_from_this());
}

std::vector<HandlerError> ScriptState::HandlerErrorsIn(const ScriptRealm& realm) const {
  std::vector<HandlerError> errors;
  for (std::size_t i = 0; i < handler_errors_.size(); ++i) {
    if (realms_of_errors_[i].lock().get() == &realm) errors.push_back(handler_errors_[i]);
  }
  return errors;
}

ScriptNesting::ScriptNesting(ScriptState& state)
    : state_(state),
      allowed_(++state.nesting_ <= kMostNestedEntries && !state.nesting_refused_),
      told_(state.nesting_refused_) {
  if (!allowed_) state.nesting_refused_ = true;
}

ScriptNesting::~ScriptNesting() {
  if (--state_.nesting_ <= 1) state_.nesting_refused_ = false;
}

}  // namespace levelwidgets
