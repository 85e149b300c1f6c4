#include <levelwidgets/host/form_file/form_file.h>

#include <algorithm>
#include <system_error>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/files/whole_file.h>
#include <levelwidgets/host/form_file/reader.h>
#include <levelwidgets/host/form_file/text.h>

namespace levelwidgets {

namespace {

constexpr std::int32_t kPathFileAccess = 75;

LoadedForm Refused(const std::string& path, const std::string& why) {
  LoadedForm loaded;
  loaded.diagnostics.push_back({.file = path, .message = why});
  return loaded;
}

}  // namespace

bool LoadedForm::HasErrors() const {
  return std::ranges::any_of(diagnostics,
                             [](const Diagnostic& d) { return d.severity == Diagnostic::Severity::kError; });
}

LoadedForm LoadForm(Platform& platform, const std::string& path) {
  std::string text;
  try {
    text = ReadWholeFile(PathOf(path));
  } catch (const Unreadable& cause) {
    return Refused(path, std::string("the form file cannot be read: ") + cause.what());
  } catch (const std::system_error& cause) {
    return Refused(path, std::string("the form file cannot be read: ") + cause.what());
  }
  if (text.empty()) return Refused(path, "the file is empty: a form file begins with a [form] table");
  return LoadFormText(platform, std::move(text), path);
}

LoadedForm LoadFormText(Platform& platform, std::string text, const std::string& file) {
  LoadedForm loaded;
  auto parsed = ParseFormNodes(text);
  if (auto* error = std::get_if<FormSyntaxError>(&parsed)) {
    loaded.diagnostics.push_back({.file = file,
                                  .line = error->at.line,
                                  .column = error->at.column,
                                  .message = text::Printable(error->message)});
    return loaded;
  }
  const auto document =
      std::make_shared<FormDocument>(std::move(text), std::move(std::get<FormNode>(parsed)));
  FormReport report(*document, file);
  FormReader reader(platform, report);
  const std::shared_ptr<Form> form = reader.Read();
  loaded.diagnostics = report.Diagnostics();
  if (report.HasErrors()) return loaded;
  document->SetLoaded(StateOf(*form));
  loaded.form = form;
  loaded.document = document;
  loaded.script = reader.Script();
  return loaded;
}

std::string FormText(const Form& form, const FormDocument* original) {
  const FormState state = StateOf(form);
  return original ? EditedFormText(*original, state) : NewFormText(state);
}

void SaveForm(const Form& form, const std::string& path, const FormDocument* original) {
  try {
    WriteFileAtomically(SystemFiles(), PathOf(path), FormText(form, original));
  } catch (const std::system_error& error) {
    throw Error(kPathFileAccess, "LevelWidgets.Form",
                "The form cannot be saved as \"" + path + "\": " + error.code().message());
  }
}

}  // namespace levelwidgets
