#include <levelwidgets/host/script/forms/timers.h>

#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/lua/entry.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/option_table.h>

namespace levelwidgets {

namespace {

constexpr char kTimerType[] = "timer";
constexpr std::size_t kMostTimersOfSandbox = 1000;

using TimerRef = std::shared_ptr<ScriptTimer>;

int StopTimer(lua_State* L) {
  CheckUserdata<TimerRef>(L, 1, kTimerType)->Stop();
  return 0;
}

int ReadTimer(lua_State* L) {
  CheckUserdata<TimerRef>(L, 1, kTimerType);
  const std::string_view name = luaL_checkstring(L, 2);
  if (!PushScriptMethod(L, 1, name)) RaiseNoSuchMember("Timer", name, ScriptMethodNames(L, 1));
  return 1;
}

constexpr luaL_Reg kTimerMetamethods[] = {{"__index", Guarded<ReadTimer>}, {nullptr, nullptr}};
constexpr luaL_Reg kTimerMethods[] = {{"stop", Guarded<StopTimer>}, {nullptr, nullptr}};

// Takes the function `on` of the table at index 1.
ScriptRef HandlerOf(lua_State* L, ScriptRealm& realm) {
  if (lua_getfield(L, 1, "on") != LUA_TFUNCTION) {
    throw Error(kTypeMismatch, "LevelWidgets.Timer",
                "A timer needs a function: lw.timer{ ms = 500, on = f }");
  }
  return realm.TakeRef(L);
}

std::shared_ptr<ScriptForm> FormOf(lua_State* L, const ScriptRealm& realm) {
  lua_getfield(L, 1, "form");
  const auto given = lua_isnil(L, -1) ? nullptr : CheckForm(L, -1);
  lua_pop(L, 1);
  return given ? given : StateOf(L).FormOf(realm);
}

}  // namespace

ScriptTimer::ScriptTimer(const std::shared_ptr<ScriptRealm>& realm, ScriptRef handler, ClockApi& clock,
                         std::string form)
    : realm_(realm), handler_(std::move(handler)), clock_(clock), form_(std::move(form)) {}

ScriptTimer::~ScriptTimer() { Stop(); }

void ScriptTimer::Start(std::uint32_t milliseconds) {
  timer_ = clock_.SetTimer(milliseconds, [self = weak_from_this()] {
    if (const auto alive = self.lock()) alive->Tick();
  });
}

void ScriptTimer::Stop() {
  if (const TimerHandle timer = std::exchange(timer_, {}); timer) clock_.KillTimer(timer);
}

void ScriptTimer::Tick() {
  const auto realm = realm_.lock();
  if (!realm || !handler_) return Stop();
  CallFailure failure;
  bool succeeded = true;
  const bool entered = EnterRealm(realm, failure, [&](lua_State* L) {
    handler_.Push(L);
    succeeded = CallReporting(L, 0, 0, failure);
  });
  if ((entered && succeeded) || failure.told) return;
  realm->Run().ReportHandlerError(*realm, {form_, "", "Timer", failure.message, failure.traceback});
}

void OpenTimers(lua_State* L) {
  DefineType<TimerRef>(L, kTimerType, kTimerMetamethods);
  SetScriptMethods(L, kTimerMethods);
  lua_pop(L, 1);
}

int NewTimer(lua_State* L) {
  luaL_checktype(L, 1, LUA_TTABLE);
  const OptionTable options(L, 1, "Timer", {"form", "ms", "on"}, TextsOf(L));
  const std::int32_t milliseconds = options.Whole("ms", 0);
  if (milliseconds < 1) {
    throw Error(kInvalidCall, "LevelWidgets.Timer", "A timer's ms is a number of milliseconds, 1 or more");
  }
  ScriptRealm& realm = RealmOf(L);
  ScriptState& state = StateOf(L);
  const auto form = FormOf(L, realm);
  if (realm.IsSandbox() && state.Timers() >= kMostTimersOfSandbox) {
    throw Error(kOutOfMemory, "LevelWidgets.Timer", "the scripts of the forms have too many timers");
  }
  const auto timer =
      std::make_shared<ScriptTimer>(realm.shared_from_this(), HandlerOf(L, realm),
                                    state.FormPlatform().Clock(), form ? form->form->Name() : "");
  state.Keep(timer);
  timer->Start(static_cast<std::uint32_t>(milliseconds));
  if (form) {
    form->form->Gone += [owner = std::weak_ptr(form->form), ended = std::weak_ptr(timer)] {
      const auto alive = ended.lock();
      const auto closed = owner.lock();
      if (alive && (!closed || closed->Closed())) alive->Stop();
    };
  }
  PushUserdata(L, kTimerType, timer);
  return 1;
}

}  // namespace levelwidgets
