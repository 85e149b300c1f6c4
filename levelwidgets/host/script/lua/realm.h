// An interpreter of its own with what runs in it: the user's program and the forms that are trusted, or one
// form in its sandbox. Not for use outside the folder of scripts.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <lua.hpp>

namespace levelwidgets {

class ScriptRun;

// A value that C++ keeps alive in a script's state; it ends with the state at the latest.
class ScriptRef {
 public:
  ScriptRef() = default;
  // Takes the value on top of the stack.
  ScriptRef(lua_State* L, const std::shared_ptr<lua_State>& state);
  ScriptRef(const ScriptRef&) = delete;
  ScriptRef& operator=(const ScriptRef&) = delete;
  ScriptRef(ScriptRef&& other) noexcept;
  ScriptRef& operator=(ScriptRef&& other) noexcept;
  ~ScriptRef();

  explicit operator bool() const { return ref_ != LUA_NOREF && !state_.expired(); }
  void Push(lua_State* L) const { lua_rawgeti(L, LUA_REGISTRYINDEX, ref_); }

 private:
  std::weak_ptr<lua_State> state_;
  int ref_ = LUA_NOREF;
};

class ScriptRealm : public std::enable_shared_from_this<ScriptRealm> {
 public:
  // A trusted one.
  explicit ScriptRealm(ScriptRun& run);
  // A sandbox: its values are within the run's limits. `folder` holds the form; "" is the current one.
  // Raises ScriptFailure when there is no memory left for it.
  ScriptRealm(ScriptRun& run, std::filesystem::path folder);
  ScriptRealm(const ScriptRealm&) = delete;
  ScriptRealm& operator=(const ScriptRealm&) = delete;

  ScriptRun& Run() const { return run_; }
  bool IsSandbox() const { return is_sandbox_; }
  // Of a sandbox only: all of the disk that it sees.
  const std::filesystem::path& Folder() const { return folder_; }
  // Whether its scripts have to end now: interrupted, or out of time.
  bool Stopped() const;

  // The thread that is running now, a coroutine perhaps.
  lua_State* Running() const { return running_; }
  const std::shared_ptr<lua_State>& Lua() const { return lua_; }
  // The value on top of the stack, which is taken off.
  ScriptRef TakeRef(lua_State* L) const { return {L, lua_}; }

 private:
  friend class RunningThread;
  void Begin();

  ScriptRun& run_;
  bool is_sandbox_;
  std::filesystem::path folder_;
  std::shared_ptr<lua_State> lua_;
  lua_State* running_ = nullptr;
};

ScriptRealm& RealmOf(lua_State* L);

// Ends the running script by an error when its realm is stopped.
void RaiseIfStopped(lua_State* L);

// Says which thread runs, for as long as it lives.
class RunningThread {
 public:
  explicit RunningThread(lua_State* L) : realm_(RealmOf(L)), before_(std::exchange(realm_.running_, L)) {}
  RunningThread(const RunningThread&) = delete;
  RunningThread& operator=(const RunningThread&) = delete;
  ~RunningThread() { realm_.running_ = before_; }

 private:
  ScriptRealm& realm_;
  lua_State* before_;
};

}  // namespace levelwidgets
