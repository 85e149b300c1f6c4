// What the files of this folder share about one run. Not for use outside it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <lua.hpp>

#include <levelwidgets/host/form_file.h>
#include <levelwidgets/host/script/own_desktop.h>
#include <levelwidgets/host/script/script_host.h>

namespace levelwidgets {

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

// A form as the scripts of a run have it.
struct ScriptForm {
  std::shared_ptr<Form> form;
  std::shared_ptr<const FormDocument> document;  // of a loaded form
  ScriptRef environment;                         // the globals of the form's own script; none without one
  bool load_raised = false;
};

class ScriptState {
 public:
  // Makes forms on `platform`, or on `desktop` when there is none; with neither on a desktop of its own.
  ScriptState(Platform* platform, std::shared_ptr<DesktopDriver> desktop, ScriptHost::Report report);
  ~ScriptState();

  // --- Lua --------------------------------------------------------------------------------------

  // The thread that is running now, a coroutine perhaps.
  lua_State* Running() const { return running_; }
  const std::shared_ptr<lua_State>& Lua() const { return lua_; }
  // The value on top of the stack, which is taken off.
  ScriptRef TakeRef(lua_State* L) { return {L, lua_}; }

  // --- Desktop and forms ------------------------------------------------------------------------

  void MakeDesktop(const DesktopSettings& settings);
  // Made by default settings when there is none yet. Both raise 5 when there is a platform in its place.
  ScriptDesktop& Desktop();
  // Whether the desktop was not made by this run.
  bool DesktopIsGiven() const { return desktop_is_given_; }
  // Where forms are made: what was given, or the recorded desktop.
  Platform& FormPlatform() { return platform_ ? *platform_ : *Desktop().tracing; }

  // A form is kept until it is closed or forgotten.
  std::shared_ptr<ScriptForm> Keep(std::shared_ptr<Form> form, std::shared_ptr<const FormDocument> document);
  void Forget(const std::shared_ptr<ScriptForm>& form);

  // --- Reports ----------------------------------------------------------------------------------

  void Report(const std::string& text) const { report_(text); }
  void ReportHandlerError(HandlerError error);
  const std::vector<HandlerError>& HandlerErrors() const { return handler_errors_; }

 private:
  friend class RunningThread;
  Platform* platform_;
  bool desktop_is_given_ = false;
  ScriptHost::Report report_;
  std::vector<HandlerError> handler_errors_;
  // In the order in which they end, from the last: forms, values of the scripts, desktop.
  ScriptDesktop desktop_;
  std::shared_ptr<lua_State> lua_;
  lua_State* running_ = nullptr;
  std::vector<std::shared_ptr<ScriptForm>> forms_;
};

ScriptState& StateOf(lua_State* L);

// Says which thread runs, for as long as it lives.
class RunningThread {
 public:
  explicit RunningThread(lua_State* L) : state_(StateOf(L)), before_(std::exchange(state_.running_, L)) {}
  RunningThread(const RunningThread&) = delete;
  RunningThread& operator=(const RunningThread&) = delete;
  ~RunningThread() { state_.running_ = before_; }

 private:
  ScriptState& state_;
  lua_State* before_;
};

}  // namespace levelwidgets
