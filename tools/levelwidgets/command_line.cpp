#include <tools/levelwidgets/command_line.h>

#include <charconv>
#include <cstdint>
#include <deque>
#include <iostream>

#include <CLI/CLI.hpp>

#include <levelwidgets/platform/text/printable.h>
#include <tools/levelwidgets/commands.h>
#include <tools/levelwidgets/word_wrap.h>

namespace levelwidgets {

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

constexpr std::size_t kHelpWidth = 90;
constexpr std::size_t kNamesWidth = 26;

// --- The parser, which no other source sees: its header takes long to compile ----------------------------

// In words for people, in lines of limited length.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() {
    label("Positionals", "Arguments");
    label("SUBCOMMAND", "COMMAND");
    label("REQUIRED", "");
    label("TEXT", "");
    label("INT", "N");
    label("UINT", "N");
    label("FLOAT", "N");
    column_width(kNamesWidth);
  }

  std::string make_footer(const CLI::App* app) const override {
    return Wrapped(CLI::Formatter::make_footer(app), kHelpWidth) + "\n";
  }
  std::string make_option_desc(const CLI::Option* option) const override {
    return Wrapped(CLI::Formatter::make_option_desc(option), kHelpWidth - kNamesWidth);
  }
};

// What is wrong with a number of things; "" for nothing.
std::string WhyNoCount(const std::string& text) {
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc() && stop == end) return "";
  return text + " is no whole number from 0 to 18446744073709551615";
}

// What is wrong with a number that may have a fraction; "" for nothing.
std::string WhyOutside(const std::string& text, const std::pair<int, int>& range) {
  double number = 0;
  const bool is_number = CLI::detail::lexical_cast(text, number);
  if (is_number && number >= range.first && number <= range.second) return "";
  return text + " is no number from " + std::to_string(range.first) + " to " + std::to_string(range.second);
}

CLI::Validator InRange(const OptionValue& value, const std::pair<int, int>& range) {
  if (!std::holds_alternative<std::optional<double>*>(value)) {
    return CLI::Range(range.first, range.second).description("");
  }
  return {[range](const std::string& text) { return WhyOutside(text, range); }, ""};
}

class ParsedCommand final : public Command {
 public:
  // Leaves in `status` what the command's body returns.
  ParsedCommand(CLI::App& app, int& status) : app_(app), status_(status) {}

  void SetFooter(const std::string& text) override { app_.footer(text); }

  void AddOption(const std::string& names, OptionValue value, const std::string& help,
                 const OptionRules& rules) override {
    CLI::Option* option =
        std::visit([&](auto* target) { return app_.add_option(names, *target, help); }, value);
    option->required(rules.required);
    if (std::holds_alternative<std::uint64_t*>(value)) option->check(CLI::Validator(WhyNoCount, ""));
    if (rules.range) option->check(InRange(value, *rules.range));
    if (!rules.choices.empty()) option->check(CLI::IsMember(rules.choices).description(""));
    if (!rules.value_name.empty()) option->type_name(rules.value_name);
    if (rules.shows_default) option->capture_default_str();
  }

  void AddFlag(const std::string& name, const std::function<void()>& on_given,
               const std::string& help) override {
    app_.add_flag_callback(name, AsUsage(on_given), help);
  }

  void SetBody(std::function<int()> body) override {
    app_.callback(AsUsage([this, body = std::move(body)] { status_ = body(); }));
  }

 private:
  // What `deed` says of the arguments is said as what the parser finds itself.
  static std::function<void()> AsUsage(std::function<void()> deed) {
    return [deed = std::move(deed)] {
      try {
        deed();
      } catch (const FlagConflict& conflict) {
        throw CLI::ExcludesError(conflict.flag, conflict.other);
      } catch (const MissingArgument& missing) {
        throw CLI::RequiredError(missing.name);
      }
    };
  }

  CLI::App& app_;
  int& status_;
};

class ParsedProgram final : public Program {
 public:
  ParsedProgram(CLI::App& app, int& status) : app_(app), status_(status) {}

  Command& Add(const std::string& name, const std::string& description) override {
    return commands_.emplace_back(*app_.add_subcommand(name, description), status_);
  }

 private:
  CLI::App& app_;
  int& status_;
  std::deque<ParsedCommand> commands_;  // which stay where they are
};

// --- Arguments -------------------------------------------------------------------------------------

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

void PrintError(const std::string& text) {
  std::cout.flush();
  std::cerr << text::PrintableLines(text) << std::endl;
}

void PrintDiagnostics(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& diagnostic : diagnostics) PrintError(diagnostic.ToString());
}

void AddTrustOption(Command& command, bool& trusted) {
  command.AddFlag("--trust", trusted, "The scripts of forms have all of Lua: files, processes and no limits");
}

int RunCommandLine(std::vector<std::string> arguments) {
  int status = 0;
  CLI::App app("Works with forms: their files, their looks and their classes.", "levelwidgets");
  app.set_version_flag("--version", "levelwidgets " LEVELWIDGETS_VERSION);
  app.allow_windows_style_options(false);  // a path may begin with a slash there, too
  app.require_subcommand(1);
  app.footer(
      "Each command has a --help with examples.\n\n"
      "Example:\n  levelwidgets render order.form.toml -o order.png");
  app.formatter(std::make_shared<HelpFormatter>());  // and of the commands, added below
  ParsedProgram program(app, status);
  AddShowCommand(program);
#ifndef _WIN32
  AddRunCommand(program);
  AddRenderCommand(program);
#endif
  AddCheckCommand(program);
#ifndef _WIN32
  AddMonkeyCommand(program);
#endif
  AddDescribeCommand(program);
  if (const std::string wrong = WrongCommand(app, arguments); !wrong.empty()) {
    std::cerr << text::Printable(wrong) << "\nRun with --help for more information.\n";
    return kUsage;
  }
  try {
    return Parse(app, WithScriptArgumentsApart(std::move(arguments)), status);
  } catch (const Error& error) {
    PrintError(error.Description());
    return kFailed;
  } catch (const std::exception& error) {
    PrintError(error.what());
    return kFailed;
  }
}

}  // namespace levelwidgets
