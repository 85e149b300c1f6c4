// Runs scripts: a program of the user's on a desktop, and the scripts of forms.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

// A script that ended by an error. The text says where, why and how it came there.
class ScriptFailure : public std::exception {
 public:
  explicit ScriptFailure(std::string text) : text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

// A script that was ended by an interrupt signal, see script_interrupt.h.
class ScriptInterruption : public ScriptFailure {
 public:
  using ScriptFailure::ScriptFailure;
};

// An error in an event handler. It is reported and goes no further: the form goes on.
struct HandlerError {
  std::string form;     // "" for an event of an object that is on none
  std::string control;  // "" for an event of the form itself; the class of an object that is no control
  std::string event;
  std::string message;  // file:line: what is wrong
  std::string traceback;

  // frmOrder.cmdSave Click: order.lua:3: ... and the traceback on lines of its own.
  std::string ToString() const;
};

// The desktop in memory that scripts run on.
struct DesktopSettings {
  PixelSize size{1024, 768};
  int dpi = 96;
  std::string locale = "en-US";
  std::optional<Date> today;      // the desktop's own where not given
  std::string palette = "light";  // one of PaletteNames(); raises 5 for another
};

// Gets whole lines of text for the user: errors in handlers, warnings of form files.
using ScriptReport = std::function<void(const std::string& text)>;

// What the scripts of forms that are not trusted may use, all of a run together.
inline constexpr std::size_t kScriptMemoryLimit = std::size_t{256} << 20;  // bytes, of Lua's values
inline constexpr std::chrono::milliseconds kPictureTimeLimit{
    10'000};  // where a script only prepares a picture

struct ScriptOptions {
  ScriptReport report;                     // to standard error when null
  Platform* platform = nullptr;            // where forms are made
  std::shared_ptr<DesktopDriver> desktop;  // without a platform: as below; null for a desktop in memory
  bool trusted = false;  // the scripts of forms have all of Lua, as the user's own program does
  // The limits of scripts in sandboxes. What the library makes for them may make the process grow by four
  // times the memory limit, where the system tells. The time counts while they run; zero for no limit.
  std::size_t memory_limit = kScriptMemoryLimit;
  std::chrono::milliseconds time_limit{0};
  // Called on a thread of its own, with a text for the user, when such a script does not end after its time
  // because it is in code that nothing interrupts (a search by a pattern that takes forever): to end the
  // process. Null for none.
  std::function<void(const std::string& text)> on_hang;
};

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
  // Forms are made on the desktop that `desktop` drives, and so is it that scripts drive. It stays as it is:
  // they may ask for it at any time, and cannot set its size and the like.
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

  // Why the script in the file at `path` cannot be run at all, as file:line: message; "" when it can.
  static std::string SyntaxError(const std::string& path);

  // The form of the form file at `path`, with its script run, in a sandbox unless forms are trusted, and Load
  // raised; not shown. Raises an Error with every diagnostic of the file on a line of its own, or
  // ScriptFailure.
  std::shared_ptr<Form> LoadForm(const std::string& path);

  // Makes the desktop; raises 5 when there is one, or a platform in its place, or none in memory in this
  // build.
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
