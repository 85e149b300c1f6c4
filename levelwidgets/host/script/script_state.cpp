#include <levelwidgets/host/script/script_state.h>

#include <levelwidgets/frame/error.h>

namespace levelwidgets {

ScriptRef::ScriptRef(lua_State* L, const std::shared_ptr<lua_State>& state)
    : state_(state), ref_(luaL_ref(L, LUA_REGISTRYINDEX)) {}

ScriptRef::ScriptRef(ScriptRef&& other) noexcept
    : state_(std::move(other.state_)), ref_(std::exchange(other.ref_, LUA_NOREF)) {}

ScriptRef& ScriptRef::operator=(ScriptRef&& other) noexcept {
  std::swap(state_, other.state_);
  std::swap(ref_, other.ref_);
  return *this;
}

ScriptRef::~ScriptRef() {
  if (const auto state = state_.lock()) luaL_unref(state.get(), LUA_REGISTRYINDEX, ref_);
}

ScriptState& StateOf(lua_State* L) { return **static_cast<ScriptState**>(lua_getextraspace(L)); }

ScriptState::ScriptState(Platform* platform, std::shared_ptr<DesktopDriver> desktop,
                         ScriptHost::Report report)
    : platform_(platform),
      desktop_is_given_(desktop != nullptr),
      report_(std::move(report)),
      lua_(luaL_newstate(), lua_close),
      running_(lua_.get()) {
  // Coroutines get a copy of it.
  *static_cast<ScriptState**>(lua_getextraspace(lua_.get())) = this;
  if (!desktop) return;
  Platform& of_desktop = desktop->GetPlatform();
  desktop_ = {std::move(desktop), &of_desktop, std::make_unique<TracingPlatform>(of_desktop)};
}

ScriptState::~ScriptState() {
  forms_.clear();
  lua_.reset();
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
                                              std::shared_ptr<const FormDocument> document) {
  for (const auto& open : std::vector(forms_)) {
    if (open->form->Closed()) Forget(open);
  }
  auto kept = std::make_shared<ScriptForm>();
  kept->form = std::move(form);
  kept->document = std::move(document);
  forms_.push_back(kept);
  return kept;
}

void ScriptState::Forget(const std::shared_ptr<ScriptForm>& form) {
  form->environment = {};  // which refers to the form
  std::erase(forms_, form);
}

void ScriptState::ReportHandlerError(HandlerError error) {
  handler_errors_.push_back(std::move(error));
  Report(handler_errors_.back().ToString());
}

}  // namespace levelwidgets
