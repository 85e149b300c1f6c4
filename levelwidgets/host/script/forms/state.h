// One run of scripts: its desktop, its forms and its interpreters. Not for use outside the folder of scripts.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <lua.hpp>

#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/host/script/forms/own_desktop.h>
#include <levelwidgets/host/script/lua/realm.h>
#include <levelwidgets/host/script/lua/run.h>

namespace levelwidgets {

// A form as the scripts of a run have it.
struct ScriptForm {
  std::shared_ptr<Form> form;
  std::shared_ptr<const FormDocument> document;  // of a loaded form
  std::shared_ptr<ScriptRealm> opener;           // whose script has made or loaded it
  std::shared_ptr<ScriptRealm> realm;            // where its own script runs; null without one
  ScriptRef environment;                         // the globals of its own script; none without one
  bool load_raised = false;
};

// Calls a function of a script again and again, until it is stopped.
class ScriptTimer : public std::enable_shared_from_this<ScriptTimer> {
 public:
  // `form` is what errors name; "" for none.
  ScriptTimer(const std::shared_ptr<ScriptRealm>& realm, ScriptRef handler, ClockApi& clock,
              std::string form);
  ScriptTimer(const ScriptTimer&) = delete;
  ScriptTimer& operator=(const ScriptTimer&) = delete;
  ~ScriptTimer();

  void Start(std::uint32_t milliseconds);
  void Stop();
  bool Runs() const { return static_cast<bool>(timer_); }

 private:
  void Tick();

  std::weak_ptr<ScriptRealm> realm_;
  ScriptRef handler_;
  ClockApi& clock_;
  std::string form_;
  TimerHandle timer_;
};

class ScriptState : public ScriptRun {
 public:
  // Makes forms on the platform that is given, or on the desktop when there is none; with neither on a
  // desktop of its own.
  explicit ScriptState(ScriptOptions options);
  ~ScriptState() override;

  // --- Lua --------------------------------------------------------------------------------------

  // Where the user's program runs.
  const std::shared_ptr<ScriptRealm>& Program() const { return program_; }
  // Whether the scripts of forms run there as well.
  bool TrustsForms() const { return trusts_forms_; }

  // --- Desktop and forms ------------------------------------------------------------------------

  void MakeDesktop(const DesktopSettings& settings);
  // Made by default settings when there is none yet. Both raise 5 when there is a platform in its place.
  ScriptDesktop& Desktop();
  // Whether the desktop was not made by this run.
  bool DesktopIsGiven() const { return desktop_is_given_; }
  // Where forms are made: what was given, or the recorded desktop.
  Platform& FormPlatform() override { return platform_ ? *platform_ : *Desktop().tracing; }

  // A form is kept until it is closed or forgotten. Raises 7 for one more than a sandbox may have open.
  std::shared_ptr<ScriptForm> Keep(std::shared_ptr<Form> form, std::shared_ptr<const FormDocument> document,
                                   ScriptRealm& opener);
  void Forget(const std::shared_ptr<ScriptForm>& form);
  // A message that the system shows, or is going to, is kept by whoever holds this; it counts as a form.
  std::shared_ptr<void> KeepMessage(const ScriptRealm& opener);
  // Those that are open.
  std::vector<std::shared_ptr<Form>> Forms() const;
  // The form whose script runs in `realm`; null when that is the user's program.
  std::shared_ptr<ScriptForm> FormOf(const ScriptRealm& realm) const;

  // A timer is kept until it is stopped.
  void Keep(const std::shared_ptr<ScriptTimer>& timer);
  // How many run.
  std::size_t Timers() const;

 private:
  // Forgets closed forms; raises 7 for one more than a sandbox may have open.
  void CheckForms(const ScriptRealm& opener);
  // What its controls raise by themselves is reported as the errors of handlers are.
  static void ReportErrorsOf(const std::shared_ptr<ScriptForm>& form);

  Platform* platform_;
  bool desktop_is_given_ = false;
  bool trusts_forms_;
  // In the order in which they end, from the last: forms, values of the scripts, desktop.
  ScriptDesktop desktop_;
  std::shared_ptr<ScriptRealm> program_;
  std::vector<std::shared_ptr<ScriptForm>> forms_;
  std::vector<std::shared_ptr<ScriptTimer>> timers_;
  const std::shared_ptr<void> messages_ = std::make_shared<int>();  // held once by each
};

ScriptState& StateOf(const ScriptRealm& realm);
ScriptState& StateOf(lua_State* L);

}  // namespace levelwidgets
