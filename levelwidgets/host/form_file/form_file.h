// Forms as TOML files: loading, checking, saving.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

struct Diagnostic {
  enum class Severity { kError, kWarning };
  Severity severity = Severity::kError;
  std::string file;
  int line = 0;  // from 1; 0 for the file as a whole
  int column = 0;
  std::string message;
  bool of_desktop = false;  // the file is good, and only this desktop cannot show all of it

  // `file:line:column: message`; a warning's message is preceded by "warning: ".
  std::string ToString() const;
};

// A form file's text, kept so that comments and unknown keys survive a load and a save.
class FormDocument;

struct LoadedForm {
  std::shared_ptr<Form> form;  // null when there is an error; not shown, Load not yet raised
  std::shared_ptr<const FormDocument> document;
  std::string script;                   // path of the form's script, "" when it names none
  std::vector<Diagnostic> diagnostics;  // errors and warnings, in the order of the file

  bool HasErrors() const;
};

// Reads the form file at `path` and builds its form. Reports everything that is wrong in one go (only the
// first place when the text is no TOML), and leaves nothing of a broken form.
LoadedForm LoadForm(Platform& platform, const std::string& path);
// The same from a text; `file` is the name in the diagnostics, and the folder of its script.
LoadedForm LoadFormText(Platform& platform, std::string text, const std::string& file);

// What a save writes: the original text, changed only where the form differs from what was loaded from it, or
// a new text without an original.
// Raises 13 for a property value that no file can hold, 6 for a date outside the years 1 to 9999.
std::string FormText(const Form& form, const FormDocument* original = nullptr);
// Writes FormText beside `path`, flushes it to disk and renames it over `path`, so that a crash leaves either
// the old or the new file whole. Raises 75 with the path and the cause; the old file is then untouched.
void SaveForm(const Form& form, const std::string& path, const FormDocument* original = nullptr);

}  // namespace levelwidgets
