#include <levelwidgets/host/script/lua/realm.h>

#include <levelwidgets/host/script/lua/interrupt.h>
#include <levelwidgets/host/script/lua/run.h>

namespace levelwidgets {

namespace {

// How many of the interpreter's steps pass between two looks at the clock and at interrupts.
constexpr int kStepsPerLook = 1000;

// `level` is that of the script's own code.
void StopScript(lua_State* L, int level) {
  const ScriptRealm& realm = RealmOf(L);
  luaL_where(L, level);
  lua_pushstring(L, ScriptInterrupted() ? "interrupted" : realm.Run().Limits().TimeText().c_str());
  lua_concat(L, 2);
  lua_error(L);
}

// Once stopped, every further step fails, so that a script that catches the error gets no further by it.
void Look(lua_State* L, lua_Debug*) {
  const bool stopped = RealmOf(L).Stopped();
  const int steps = stopped ? 1 : kStepsPerLook;
  if (lua_gethookcount(L) != steps) lua_sethook(L, Look, LUA_MASKCOUNT, steps);
  if (stopped) StopScript(L, 0);
}

}  // namespace

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

ScriptRealm& RealmOf(lua_State* L) { return **static_cast<ScriptRealm**>(lua_getextraspace(L)); }

ScriptRealm::ScriptRealm(ScriptRun& run) : run_(run), is_sandbox_(false), lua_(luaL_newstate(), lua_close) {
  Begin();
}

ScriptRealm::ScriptRealm(ScriptRun& run, std::filesystem::path folder)
    : run_(run),
      is_sandbox_(true),
      folder_(std::move(folder)),
      lua_(lua_newstate(ScriptLimits::Allocate, &run.Limits()), [](lua_State* L) {
        if (L) lua_close(L);
      }) {
  if (!lua_) throw ScriptFailure(run.Limits().MemoryText());
  Begin();
}

void ScriptRealm::Begin() {
  running_ = lua_.get();
  // Coroutines get a copy of both.
  *static_cast<ScriptRealm**>(lua_getextraspace(running_)) = this;
  lua_sethook(running_, Look, LUA_MASKCOUNT, kStepsPerLook);
}

bool ScriptRealm::Stopped() const {
  return ScriptInterrupted() || (IsSandbox() && run_.Limits().OutOfTime());
}

void RaiseIfStopped(lua_State* L) {
  if (!RealmOf(L).Stopped()) return;
  lua_sethook(L, Look, LUA_MASKCOUNT, 1);
  StopScript(L, 1);
}

}  // namespace levelwidgets
