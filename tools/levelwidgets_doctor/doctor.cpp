#include <tools/levelwidgets_doctor/doctor.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include <levelwidgets/activex/identity/identifiers.h>

namespace levelwidgets::doctor {

namespace {

constexpr int kNothingWrong = 0;
constexpr int kSomethingWrong = 1;
constexpr int kWrongCommandLine = 2;
constexpr int kNoFacts = 3;

constexpr char kHelp[] =
    "Says why the components of LevelWidgets do not load in a program.\n"
    "\n"
    "levelwidgets-doctor [--container PROGRAM.exe] [--library FILE.dll] [--bits 32|64] [--json]\n"
    "\n"
    "  --container PROGRAM.exe  the program in which they do not load; without it, any program\n"
    "  --library FILE.dll       the library that should be registered; without it, any\n"
    "  --bits 32|64             for programs of that bitness, where no container is named\n"
    "  --json                   in a stable format for programs\n"
    "  --help                   prints this\n"
    "\n"
    "Ends with 0 where nothing is wrong, 1 where something is, 2 for a wrong command line, and 3 where the\n"
    "machine cannot be asked. It changes nothing.\n";

class WrongCommandLine : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

int BitsOf(const std::string& text) {
  if (text == "32") return 32;
  if (text == "64") return 64;
  throw WrongCommandLine("--bits takes 32 or 64, not \"" + text + "\"");
}

Question Parse(std::span<const std::string> arguments) {
  Question question;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& name = arguments[i];
    const auto value = [&] {
      if (i + 1 == arguments.size()) throw WrongCommandLine(name + " takes a value");
      return arguments[++i];
    };
    if (name == "--json") {
      question.as_json = true;
    } else if (name == "--container") {
      question.container = value();
    } else if (name == "--library") {
      question.library = value();
    } else if (name == "--bits") {
      question.bits = BitsOf(value());
    } else {
      throw WrongCommandLine("\"" + name + "\" is no option");
    }
  }
  if (question.bits != 0 && !question.container.empty()) {
    throw WrongCommandLine("--bits goes without --container: a program has its own");
  }
  return question;
}

nlohmann::ordered_json JsonOf(const Facts& facts, const std::vector<Finding>& findings, bool is_well) {
  auto list = nlohmann::ordered_json::array();
  for (const Finding& finding : findings) {
    list.push_back({{"cause", NameOf(finding.cause)},
                    {"problem", finding.is_problem},
                    {"what", finding.what},
                    {"where", finding.where},
                    {"right", finding.right}});
  }
  return {{"library", kLibraryName},
          {"version", std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor)},
          {"bits", facts.bits},
          {"container", facts.container},
          {"well", is_well},
          {"findings", list}};
}

void PrintText(const Facts& facts, const std::vector<Finding>& findings, bool is_well, std::ostream& out) {
  for (const Finding& finding : findings) {
    out << (finding.is_problem ? "PROBLEM: " : "Note: ") << finding.what << "\n"
        << "  Where: " << finding.where << "\n"
        << "  Right: " << finding.right << "\n";
  }
  if (!is_well) return;
  out << "Nothing is wrong: " << facts.bits << "-bit programs can load the components of " << kLibraryName
      << " " << kLibraryMajor << "." << kLibraryMinor << ".\n";
  for (const ClassFacts& each : facts.classes) {
    if (each.Used()) {
      out << "  They come from " << each.Used()->path << "\n";
      break;
    }
  }
}

int Answer(const Question& question, const Gather& gather, std::ostream& out) {
  const Facts facts = gather(question);
  const std::vector<Finding> findings = Judge(facts);
  const bool is_well = std::ranges::none_of(findings, &Finding::is_problem);
  if (question.as_json) {
    // A path may hold bytes that are no text.
    out << JsonOf(facts, findings, is_well).dump(2, ' ', false, nlohmann::json::error_handler_t::replace)
        << "\n";
  } else {
    PrintText(facts, findings, is_well, out);
  }
  return is_well ? kNothingWrong : kSomethingWrong;
}

}  // namespace

int RunDoctor(std::span<const std::string> arguments, const Gather& gather, std::ostream& out,
              std::ostream& err) {
  if (std::ranges::find(arguments, "--help") != arguments.end()) {
    out << kHelp;
    return kNothingWrong;
  }
  try {
    return Answer(Parse(arguments), gather, out);
  } catch (const WrongCommandLine& error) {
    err << "levelwidgets-doctor: " << error.what() << "\nRun with --help for more.\n";
    return kWrongCommandLine;
  } catch (const std::runtime_error& error) {
    err << "levelwidgets-doctor: " << error.what() << "\n";
    return kNoFacts;
  }
}

}  // namespace levelwidgets::doctor
