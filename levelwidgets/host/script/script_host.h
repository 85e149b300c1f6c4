// Runs scripts: a program of the user's on a desktop, and the scripts of forms.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/script/forms/options.h>

namespace levelwidgets {

// One run of scripts and all that it makes: the desktop, the forms, the values. The desktop is made when the
// first form is, and ends after the last form.
class ScriptHost {
 public:
  using Report = ScriptReport;

  // Reports to standard error when given none. The desktop is one in memory.
  explicit ScriptHost(Report report = {});
  // Forms are made on `platform`, in native windows for instance, and there is no desktop for scripts to
  // drive. It must outlive the host.
  explicit ScriptHost(Platform& platform, Report report = {});
  // Forms are made on the desktop that `desktop` drives, and scripts drive it too. They may ask for it at any
  // time, and cannot change its settings.
  explicit ScriptHost(std::shared_ptr<DesktopDriver> desktop, Report report = {});
  explicit ScriptHost(ScriptOptions options);
  ScriptHost(const ScriptHost&) = delete;
  ScriptHost& operator=(const ScriptHost&) = delete;
  ~ScriptHost();

  // Runs the user's own program, which has all of Lua, in the file at `path`, with `arguments` in `...` and
  // `arg`. Its exit status: the number that it returns, 0 for nothing or true, 1 for false. Raises
  // ScriptFailure. An error in a handler is no failure of the program; it is in HandlerErrors().
  int RunFile(const std::string& path, const std::vector<std::string>& arguments = {});
  // The same with the program's text; `name` stands for its file in messages.
  int RunText(const std::string& text, const std::string& name);

  // Gives scripts `object` as the global `name`.
  void SetGlobal(const std::string& name, const ObjectRef& object);

  // Why the script at `path` of the form file at `form_path` cannot be run at all, as file:line: message; ""
  // when it can. Unless it is `trusted`, nothing is read outside the form's folder.
  static std::string SyntaxError(const std::string& form_path, const std::string& path, bool trusted = false);

  // The form of the form file at `path`, with its script run, in a sandbox unless forms are trusted, and Load
  // raised; not shown. Raises an Error with every diagnostic of the file on a line of its own, or
  // ScriptFailure.
  std::shared_ptr<Form> LoadForm(const std::string& path);

  // Makes the desktop; raises 5 when there is a desktop already or a platform in its place, and in a build
  // without a desktop in memory.
  void MakeDesktop(const DesktopSettings& settings);
  // The desktop, made by default settings when there is none. Raises 5 as MakeDesktop does.
  DesktopDriver& Desktop();

  // The first thousand.
  const std::vector<HandlerError>& HandlerErrors() const;

  // Whether the scripts in sandboxes have used up their time: no handler of theirs runs any more.
  bool OutOfTime() const;

 private:
  std::unique_ptr<class ScriptState> state_;
};

}  // namespace levelwidgets
