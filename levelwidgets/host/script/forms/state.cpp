#include <levelwidgets/host/script/forms/state.h>

#include <algorithm>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

namespace {
// More than anybody looks at.
constexpr std::size_t kMostFormsOfSandboxes = 1000;
}  // namespace

ScriptState::ScriptState(ScriptOptions options)
    : ScriptRun(std::move(options.report), options.memory_limit, options.time_limit,
                std::move(options.on_hang)),
      platform_(options.platform),
      desktop_is_given_(options.desktop != nullptr),
      trusts_forms_(options.trusted),
      program_(std::make_shared<ScriptRealm>(*this)) {
  if (!options.desktop) return;
  Platform& of_desktop = options.desktop->GetPlatform();
  desktop_ = {std::move(options.desktop), &of_desktop, std::make_unique<TracingPlatform>(of_desktop)};
}

ScriptState::~ScriptState() {
  timers_.clear();
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

void ScriptState::CheckForms(const ScriptRealm& opener) {
  for (const auto& open : std::vector(forms_)) {
    if (open->form->Closed()) Forget(open);
  }
  const std::size_t open = forms_.size() + static_cast<std::size_t>(messages_.use_count() - 1);
  if (!opener.IsSandbox() || open < kMostFormsOfSandboxes) return;
  throw Error(kOutOfMemory, "LevelWidgets.Form",
              "there are " + std::to_string(open) +
                  " forms open, and the script of a form opens no more; --trust lifts the limits for a form "
                  "that you trust");
}

std::shared_ptr<void> ScriptState::KeepMessage(const ScriptRealm& opener) {
  CheckForms(opener);
  return messages_;
}

std::shared_ptr<ScriptForm> ScriptState::Keep(std::shared_ptr<Form> form,
                                              std::shared_ptr<const FormDocument> document,
                                              ScriptRealm& opener) {
  CheckForms(opener);
  auto kept = std::make_shared<ScriptForm>();
  kept->form = std::move(form);
  kept->document = std::move(document);
  kept->opener = opener.shared_from_this();
  forms_.push_back(kept);
  ReportErrorsOf(kept);
  return kept;
}

void ScriptState::ReportErrorsOf(const std::shared_ptr<ScriptForm>& form) {
  form->form->SetErrorHandler(
      [kept = std::weak_ptr(form)](std::string_view control, std::string_view event, const Error& error) {
        const auto alive = kept.lock();
        if (!alive || !alive->opener) return false;
        const ScriptRealm& realm = alive->realm ? *alive->realm : *alive->opener;
        realm.Run().ReportHandlerError(
            realm, {alive->form->Name(), std::string(control), std::string(event), error.what(), ""});
        return true;
      });
}

void ScriptState::Forget(const std::shared_ptr<ScriptForm>& form) {
  const auto kept = form;
  std::erase(forms_, kept);
  // They refer to the form, and end with the last of their forms.
  kept->environment = {};
  kept->realm.reset();
  kept->opener.reset();
}

std::vector<std::shared_ptr<Form>> ScriptState::Forms() const {
  std::vector<std::shared_ptr<Form>> open;
  for (const auto& kept : forms_) {
    if (!kept->form->Closed()) open.push_back(kept->form);
  }
  return open;
}

std::shared_ptr<ScriptForm> ScriptState::FormOf(const ScriptRealm& realm) const {
  if (!realm.IsSandbox()) return nullptr;
  const auto found =
      std::ranges::find_if(forms_, [&](const auto& form) { return form->realm.get() == &realm; });
  return found == forms_.end() ? nullptr : *found;
}

void ScriptState::Keep(const std::shared_ptr<ScriptTimer>& timer) {
  std::erase_if(timers_, [](const auto& kept) { return !kept->Runs(); });
  timers_.push_back(timer);
}

std::size_t ScriptState::Timers() const {
  return static_cast<std::size_t>(std::ranges::count_if(timers_, &ScriptTimer::Runs));
}

ScriptState& StateOf(const ScriptRealm& realm) { return static_cast<ScriptState&>(realm.Run()); }
ScriptState& StateOf(lua_State* L) { return StateOf(RealmOf(L)); }

}  // namespace levelwidgets
