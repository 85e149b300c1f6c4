#include <iostream>

#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

#ifdef _WIN32

int Show(const std::string& path) {
  const auto platform = MakePlatform();
  LoadedForm loaded = LoadForm(*platform, path);
  PrintDiagnostics(loaded.diagnostics);
  if (loaded.HasErrors()) return 1;
  if (!loaded.script.empty()) std::cerr << "The form's script " << loaded.script << " is not run here.\n";
  const auto form = loaded.form;
  ClockApi& clock = platform->Clock();
  form->Unload += [&](bool&) {
    clock.Post([&] {
      if (form->Closed()) clock.Quit(0);
    });
  };
  form->Loaded();
  form->Show();
  return clock.Run();
}

#else

int Show(const std::string& path) {
  std::cerr << "There are no native windows here to show a form in. A picture of it:\n  levelwidgets render "
            << path << " -o form.png\n";
  return 2;
}

#endif

}  // namespace

void AddShowCommand(CLI::App& program, int& status) {
  CLI::App* command = program.add_subcommand("show", "Shows a form in native windows");
  command->footer("Example:\n  levelwidgets show order.form.toml");
  const auto form = std::make_shared<std::string>();
  command->add_option("FORM", *form, "The form file")->required();
  command->callback([form, &status] { status = Show(*form); });
}

}  // namespace levelwidgets
