#include <levelwidgets/host/script/script_host.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

void AddRunCommand(Program& program) {
  struct Arguments {
    std::string file;
    std::vector<std::string> rest;
    bool trust = false;
  };
  Command& command = program.Add("run", "Runs a script on a desktop in memory");
  command.SetFooter(
      "The script has all of Lua. The scripts of the forms that it loads run in a sandbox, unless they are "
      "trusted. The exit status is the number that the script returns or gives to os.exit; 1 when it fails. "
      "Errors in event handlers are printed on standard error and end nothing; lw.errors() lists them.\n\n"
      "Example:\n  levelwidgets run order_test.lua --quick");
  const auto given = std::make_shared<Arguments>();
  command.AddOption("FILE", &given->file, "The script, in Lua", {.required = true});
  command.AddOption("ARG", &given->rest, "Arguments for the script, in ... and arg");
  AddTrustOption(command, given->trust);
  command.SetBody([given] {
    return RunInterruptibly(
        [&] { return ScriptHost(ScriptOptions{.trusted = given->trust}).RunFile(given->file, given->rest); });
  });
}

}  // namespace levelwidgets
