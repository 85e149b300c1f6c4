#include <levelwidgets/host/script/lua/entry.h>

#include <levelwidgets/host/script/lua/interrupt.h>

namespace levelwidgets {

namespace {

using Body = std::function<void(lua_State*)>;

// Counts the time of a sandbox.
class LimitedTime {
 public:
  explicit LimitedTime(const ScriptRealm& realm)
      : limits_(realm.IsSandbox() ? &realm.Run().Limits() : nullptr) {
    if (limits_) limits_->Enter();
  }
  LimitedTime(const LimitedTime&) = delete;
  LimitedTime& operator=(const LimitedTime&) = delete;
  ~LimitedTime() {
    if (limits_) limits_->Leave();
  }

 private:
  ScriptLimits* limits_;
};

// There may be no memory for a longer stack, or too many calls inside calls.
void MakeRoom(lua_State* L) {
  ScriptLimits& limits = RealmOf(L).Run().Limits();
  limits.TakeRefusal();
  if (lua_checkstack(L, 50)) return;
  if (!limits.TakeRefusal()) luaL_error(L, "stack overflow (calls inside calls)");
  lua_pushliteral(L, "not enough memory");
  lua_error(L);
}

int RunBody(lua_State* L) {
  const auto& body = *static_cast<const Body*>(lua_touserdata(L, 1));
  lua_settop(L, 0);
  MakeRoom(L);
  body(L);
  return 0;
}

// Nothing is made in the script's state outside of the protected call: there may be no room for it.
bool RunProtected(lua_State* L, CallFailure& failure, const Body& body) {
  if (!lua_checkstack(L, 5)) {
    failure.message = "stack overflow";
    return false;
  }
  lua_pushcfunction(L, (Guarded<RunBody, false>));
  lua_pushlightuserdata(L, const_cast<Body*>(&body));
  if (lua_pcall(L, 1, 0, 0) == LUA_OK) return true;
  failure.message = lua_isstring(L, -1) ? lua_tostring(L, -1) : "an error that is no text";
  lua_pop(L, 1);
  ExplainNoMemory(RealmOf(L), failure);
  return false;
}

}  // namespace

bool EnterRealm(const std::shared_ptr<ScriptRealm>& realm, CallFailure& failure, const Body& body) {
  const ScriptNesting nesting(realm->Run());
  if (!nesting.Allowed()) {
    failure.message = "events inside events, more than " + std::to_string(kMostNestedEntries) + " deep";
    failure.told = nesting.Told();
    return false;
  }
  const LimitedTime time(*realm);
  const InterruptibleScript interruptible;
  if (realm->IsSandbox() && realm->Run().Limits().OutOfTime()) {
    failure.message = realm->Run().Limits().TimeText();
    failure.told = true;
    return false;
  }
  return RunProtected(realm->Running(), failure, body);
}

}  // namespace levelwidgets
