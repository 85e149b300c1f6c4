#include <iostream>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/native/hidden_platform.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

struct CheckArguments {
  std::vector<std::string> forms;
  std::string locale = "en-US";
  bool trust = false;
};

bool IsGood(const std::string& path, const CheckArguments& arguments) {
  const auto platform = MakeHiddenPlatform(arguments.locale);
  const LoadedForm loaded = LoadForm(*platform, path);
  PrintDiagnostics(loaded.diagnostics);
  const std::string in_script =
      loaded.script.empty() ? "" : ScriptHost::SyntaxError(path, loaded.script, arguments.trust);
  if (!in_script.empty()) PrintError(in_script);
  return !loaded.HasErrors() && in_script.empty();
}

int Check(const CheckArguments& arguments) {
  const auto& forms = arguments.forms;
  const auto bad =
      std::ranges::count_if(forms, [&](const std::string& form) { return !IsGood(form, arguments); });
  if (bad == 0) std::cout << forms.size() << (forms.size() == 1 ? " form is good\n" : " forms are good\n");
  return bad == 0 ? 0 : 1;
}

}  // namespace

void AddCheckCommand(Program& program) {
  Command& command = program.Add("check", "Tells everything that is wrong with form files");
  command.SetFooter(
      "Errors and warnings are printed as file:line:column: message; the exit status is 1 on an error. No "
      "script is run, and none is read outside its form's folder unless it is trusted.\n\n"
      "Example:\n  levelwidgets check *.form.toml");
  const auto given = std::make_shared<CheckArguments>();
  command.AddOption("FORM", &given->forms, "The form files", {.required = true});
#ifndef _WIN32
  AddLocaleOption(command, given->locale);
#endif
  AddTrustOption(command, given->trust);
  command.SetBody([given] { return Check(*given); });
}

}  // namespace levelwidgets
