// What the files of this folder share about one run. Not for use outside it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <lua.hpp>

#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/host/script/own_desktop.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/host/script/script_limits.h>
#include <levelwidgets/host/script/script_realm.h>

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

class ScriptState {
 public:
  // Makes forms on the platform that is given, or on the desktop when there is none; with neither on a
  // desktop of its own.
  explicit ScriptState(ScriptOptions options);
  ~ScriptState();

  // --- Lua --------------------------------------------------------------------------------------

  // Where the user's program runs.
  const std::shared_ptr<ScriptRealm>& Program() const { return program_; }
  // Whether the scripts of forms run there as well.
  bool TrustsForms() const { return trusts_forms_; }
  // Of all sandboxes together.
  ScriptLimits& Limits() { return limits_; }

  // --- Desktop and forms ------------------------------------------------------------------------

  void MakeDesktop(const DesktopSettings& settings);
  // Made by default settings when there is none yet. Both raise 5 when there is a platform in its place.
  ScriptDesktop& Desktop();
  // Whether the desktop was not made by this run.
  bool DesktopIsGiven() const { return desktop_is_given_; }
  // Where forms are made: what was given, or the recorded desktop.
  Platform& FormPlatform() { return platform_ ? *platform_ : *Desktop().tracing; }

  // A form is kept until it is closed or forgotten. Raises 7 for one more than a sandbox may have open.
  std::shared_ptr<ScriptForm> Keep(std::shared_ptr<Form> form, std::shared_ptr<const FormDocument> document,
                                   ScriptRealm& opener);
  void Forget(const std::shared_ptr<ScriptForm>& form);

  // --- Reports ----------------------------------------------------------------------------------

  void Report(const std::string& text) const { report_(text); }
  // In a handler that is in `realm`.
  void ReportHandlerError(const ScriptRealm& realm, HandlerError error);
  // The first of them: a run that goes on making errors does not fill the memory with them.
  const std::vector<HandlerError>& HandlerErrors() const { return handler_errors_; }
  // Those that concern the scripts in `realm`.
  std::vector<HandlerError> HandlerErrorsIn(const ScriptRealm& realm) const;

 private:
  friend class ScriptNesting;
  Platform* platform_;
  bool desktop_is_given_ = false;
  ScriptHost::Report report_;
  bool trusts_forms_;
  int nesting_ = 0;
  bool nesting_refused_ = false;
  std::vector<HandlerError> handler_errors_;
  std::vector<std::weak_ptr<const ScriptRealm>> realms_of_errors_;
  ScriptLimits limits_;  // ends after all that is within them
  // In the order in which they end, from the last: forms, values of the scripts, desktop.
  ScriptDesktop desktop_;
  std::shared_ptr<ScriptRealm> program_;
  std::vector<std::shared_ptr<ScriptForm>> forms_;
};

// Counts the calls inside calls of scripts, for as long as it lives.
class ScriptNesting {
 public:
  explicit ScriptNesting(ScriptState& state);
  ScriptNesting(const ScriptNesting&) = delete;
  ScriptNesting& operator=(const ScriptNesting&) = delete;
  ~ScriptNesting();

  // Not too deep. What has been too deep once is refused more until it is all over.
  bool Allowed() const { return allowed_; }
  // Whether another one has been refused before.
  bool Told() const { return told_; }

 private:
  ScriptState& state_;
  bool allowed_;
  bool told_;
};

}  // namespace levelwidgets
