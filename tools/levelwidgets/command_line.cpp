#include <tools/levelwidgets/command_line.h>

#include <iostream>

#include <tools/levelwidgets/commands.h>
#include <tools/levelwidgets/help_formatter.h>

namespace levelwidgets {

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

// What follows the file of `run` belongs to the script, whatever it looks like.
std::vector<std::string> WithScriptArgumentsApart(std::vector<std::string> arguments) {
  const auto is_option = [](const std::string& argument) { return argument.starts_with("-"); };
  if (arguments.empty() || arguments.front() != "run") return arguments;
  const auto file = std::find_if_not(arguments.begin() + 1, arguments.end(), is_option);
  if (file != arguments.end()) arguments.insert(file + 1, "--");
  return arguments;
}

std::string CommandNames(const CLI::App& program) {
  std::string names;
  for (const CLI::App* command : program.get_subcommands({})) {
    names += (names.empty() ? "" : ", ") + command->get_name();
  }
  return names;
}

// What is wrong with the first argument, which is a command or one of the few options; "" when it is right.
std::string WrongCommand(const CLI::App& program, const std::vector<std::string>& arguments) {
  if (arguments.empty()) return "A command is missing: " + CommandNames(program);
  const std::string& given = arguments.front();
  std::vector<std::string> known;
  for (const CLI::App* command : program.get_subcommands({})) known.push_back(command->get_name());
  for (const CLI::Option* option : program.get_options()) {
    for (const std::string& name : option->get_lnames()) known.push_back("--" + name);
    for (const std::string& name : option->get_snames()) known.push_back("-" + name);
  }
  if (std::ranges::find(known, given) != known.end()) return "";
  const std::vector<std::string_view> names(known.begin(), known.end());
  const std::string_view nearest = NearestName(given, names);
  return "There is no command \"" + given + "\"" +
         (nearest.empty() ? ": " + CommandNames(program)
                          : "; did you mean \"" + std::string(nearest) + "\"?");
}

int Parse(CLI::App& program, std::vector<std::string> arguments, const int& status) {
  std::ranges::reverse(arguments);  // as the parser takes them
  try {
    program.parse(std::move(arguments));
  } catch (const CLI::Success& success) {  // help or version
    return program.exit(success);
  } catch (const CLI::ParseError& error) {
    program.exit(error);
    return kUsage;
  }
  return status;
}

}  // namespace

void PrintDiagnostics(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& diagnostic : diagnostics) std::cerr << diagnostic.ToString() << "\n";
}

void AddTrustOption(CLI::App& command, bool& trusted) {
  command.add_flag("--trust", trusted,
                   "The scripts of forms have all of Lua: files, processes and no limits");
}

int RunCommandLine(std::vector<std::string> arguments) {
  int status = 0;
  CLI::App program("Works with forms: their files, their looks and their classes.", "levelwidgets");
  program.set_version_flag("--version", "levelwidgets " LEVELWIDGETS_VERSION);
  program.allow_windows_style_options(false);  // a path may begin with a slash there, too
  program.require_subcommand(1);
  program.footer(
      "Each command has a --help with examples.\n\n"
      "Example:\n  levelwidgets render order.form.toml -o order.png");
  program.formatter(std::make_shared<HelpFormatter>());  // and of the commands, added below
  AddShowCommand(program, status);
#ifndef _WIN32
  AddRunCommand(program, status);
  AddRenderCommand(program, status);
#endif
  AddCheckCommand(program, status);
#ifndef _WIN32
  AddMonkeyCommand(program, status);
#endif
  AddDescribeCommand(program, status);
  if (const std::string wrong = WrongCommand(program, arguments); !wrong.empty()) {
    std::cerr << wrong << "\nRun with --help for more information.\n";
    return kUsage;
  }
  try {
    return Parse(program, WithScriptArgumentsApart(std::move(arguments)), status);
  } catch (const Error& error) {
    std::cout.flush();
    std::cerr << error.Description() << "\n";
    return kFailed;
  } catch (const std::exception& error) {
    std::cout.flush();
    std::cerr << error.what() << "\n";
    return kFailed;
  }
}

}  // namespace levelwidgets
