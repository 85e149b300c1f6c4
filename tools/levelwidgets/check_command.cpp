#include <iostream>

#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/native/hidden_platform.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

bool IsGood(const std::string& path, bool trusted) {
  const auto platform = MakeHiddenPlatform();
  const LoadedForm loaded = LoadForm(*platform, path);
  PrintDiagnostics(loaded.diagnostics);
  const std::string in_script =
      loaded.script.empty() ? "" : ScriptHost::SyntaxError(path, loaded.script, trusted);
  if (!in_script.empty()) PrintError(in_script);
  return !loaded.HasErrors() && in_script.empty();
}

int Check(const std::vector<std::string>& forms, bool trusted) {
  const auto bad =
      std::ranges::count_if(forms, [=](const std::string& form) { return !IsGood(form, trusted); });
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
  struct Arguments {
    std::vector<std::string> forms;
    bool trust = false;
  };
  const auto given = std::make_shared<Arguments>();
  command.AddOption("FORM", &given->forms, "The form files", {.required = true});
  AddTrustOption(command, given->trust);
  command.SetBody([given] { return Check(given->forms, given->trust); });
}

}  // namespace levelwidgets
