#include <iostream>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/native/hidden_platform.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

// What is wrong with the text of the script at `path`; "" for nothing.
std::string ErrorInScript(const std::string& path) {
  return path.empty() ? "" : ScriptHost::SyntaxError(path);
}

bool IsGood(const std::string& path) {
  const auto platform = MakeHiddenPlatform();
  const LoadedForm loaded = LoadForm(*platform, path);
  PrintDiagnostics(loaded.diagnostics);
  const std::string in_script = ErrorInScript(loaded.script);
  if (!in_script.empty()) std::cerr << in_script << "\n";
  return !loaded.HasErrors() && in_script.empty();
}

int Check(const std::vector<std::string>& forms) {
  const auto bad = std::ranges::count_if(forms, [](const std::string& form) { return !IsGood(form); });
  if (bad == 0) std::cout << forms.size() << (forms.size() == 1 ? " form is good\n" : " forms are good\n");
  return bad == 0 ? 0 : 1;
}

}  // namespace

void AddCheckCommand(Program& program) {
  Command& command = program.Add("check", "Tells everything that is wrong with form files");
  command.SetFooter(
      "Errors and warnings are printed as file:line:column: message; the exit status is 1 on an error.\n\n"
      "Example:\n  levelwidgets check *.form.toml");
  const auto forms = std::make_shared<std::vector<std::string>>();
  command.AddOption("FORM", forms.get(), "The form files", {.required = true});
  command.SetBody([forms] { return Check(*forms); });
}

}  // namespace levelwidgets
