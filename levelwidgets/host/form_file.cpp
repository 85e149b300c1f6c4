#include <levelwidgets/host/form_file.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include <levelwidgets/host/atomic_file.h>
#include <levelwidgets/host/form_file_reader.h>
#include <levelwidgets/host/form_file_text.h>

namespace levelwidgets {

namespace {

constexpr std::int32_t kPathFileAccess = 75;

std::string CauseOf(std::errc cause) { return std::make_error_code(cause).message(); }

LoadedForm Unreadable(const std::string& path, const std::string& cause) {
  LoadedForm loaded;
  loaded.diagnostics.push_back({.file = path, .message = "the form file cannot be read: " + cause});
  return loaded;
}

}  // namespace

bool LoadedForm::HasErrors() const {
  return std::ranges::any_of(diagnostics,
                             [](const Diagnostic& d) { return d.severity == Diagnostic::Severity::kError; });
}

LoadedForm LoadForm(Platform& platform, const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(PathOf(path), ignored)) {
    return Unreadable(path, CauseOf(std::errc::is_a_directory));
  }
  errno = 0;
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) return Unreadable(path, std::generic_category().message(errno));
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (file.bad()) return Unreadable(path, CauseOf(std::errc::io_error));
  return LoadFormText(platform, std::move(text), path);
}

LoadedForm LoadFormText(Platform& platform, std::string text, const std::string& file) {
  LoadedForm loaded;
  auto parsed = ParseFormNodes(text);
  if (auto* error = std::get_if<FormSyntaxError>(&parsed)) {
    loaded.diagnostics.push_back(
        {.file = file, .line = error->at.line, .column = error->at.column, .message = error->message});
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
