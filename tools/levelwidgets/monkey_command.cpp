#include <unistd.h>

#include <chrono>
#include <iostream>
#include <numeric>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/monkey/run.h>
#include <levelwidgets/host/monkey/script.h>
#include <levelwidgets/host/script/script_host.h>
#include <tools/levelwidgets/commands.h>

namespace levelwidgets {

namespace {

struct MonkeyArguments {
  std::string form;
  std::uint64_t seed = 1;
  std::size_t events = 10000;
  bool handlers = false;
};

constexpr int kMsPerEvent = 10000;

class ScriptStage final : public monkey::Stage {
 public:
  // `strict`: an error in a handler is a failure.
  ScriptStage(const std::string& path, bool strict) : host_([](const std::string&) {}), strict_(strict) {
    host_.MakeDesktop({});
    form_ = host_.LoadForm(path);
    form_->SetErrorHandler({});  // the run judges itself what controls raise
  }

  memory::Desktop& GetDesktop() override { return dynamic_cast<memory::Desktop&>(host_.Desktop()); }
  const std::shared_ptr<Form>& GetForm() override { return form_; }
  std::string Complaint() override {
    return strict_ && !host_.HandlerErrors().empty() ? host_.HandlerErrors().front().message : "";
  }

 private:
  ScriptHost host_;
  bool strict_;
  std::shared_ptr<Form> form_;
};

// Once a second on standard error, when that is a terminal and the run takes that long.
class Progress {
 public:
  explicit Progress(std::size_t events) : events_(events), shown_(isatty(STDERR_FILENO) != 0) {}

  void Tell(std::size_t done) {
    const auto now = std::chrono::steady_clock::now();
    if (!shown_ || now - told_ < std::chrono::seconds(1)) return;
    told_ = now;
    std::cerr << "\r" << done << " of " << events_ << " events" << (done >= events_ ? "\n" : "")
              << std::flush;
  }

 private:
  std::size_t events_;
  bool shown_;
  std::chrono::steady_clock::time_point told_ = std::chrono::steady_clock::now();
};

std::string ScriptPath(const std::string& form, std::uint64_t seed) {
  std::string stem = form;
  constexpr std::string_view kExtension = ".form.toml";
  if (stem.ends_with(kExtension)) stem.resize(stem.size() - kExtension.size());
  return stem + ".monkey-" + std::to_string(seed) + ".lua";
}

// Whether running the script ends as the run did.
bool Replays(const std::string& script, const monkey::Failure& failure) {
  const std::string name = monkey::NameOf(failure.broken);
  const std::string seen = monkey::InOwnProcess(kMsPerEvent, [&] {
    try {
      ScriptHost([](const std::string&) {}).RunFile(script);
      return std::string();
    } catch (const std::exception& error) {
      return std::string(error.what());
    }
  });
  return !seen.empty() && (name == "error" || monkey::NameOf(seen) == name);
}

void WriteFailure(const MonkeyArguments& arguments, const monkey::Failure& failure,
                  const monkey::StageFactory& stage) {
  const std::string path = ScriptPath(arguments.form, arguments.seed);
  const monkey::ScriptFacts facts{TextOfPath(PathOf(arguments.form).filename()), arguments.seed,
                                  failure.number};
  bool replays = false;
  for (const bool settled : {false, true}) {
    WriteFileAtomically(SystemFiles(), PathOf(path), monkey::ScriptOf(failure, facts, stage, settled));
    replays = Replays(path, failure);
    if (replays) break;
  }
  std::cout << failure.broken << "\n"
            << "Seed " << arguments.seed << ", event " << failure.number << "; shrunk to "
            << failure.events.size() << (failure.events.size() == 1 ? " event" : " events") << ":\n  " << path
            << "\n";
  if (!replays) std::cout << "The script alone does not show it again; the same seed does.\n";
}

int Monkey(const MonkeyArguments& arguments) {
  const monkey::StageFactory stage = [&] {
    return std::make_unique<ScriptStage>(arguments.form, arguments.handlers);
  };
  Progress progress(arguments.events);
  monkey::RunOptions options{.seed = arguments.seed, .events = arguments.events, .ms_per_event = kMsPerEvent};
  options.progress = [&](std::size_t done) { progress.Tell(done); };
  const monkey::RunResult result = monkey::Run(stage, options);
  if (result.failure) {
    WriteFailure(arguments, *result.failure, stage);
    return 1;
  }
  const auto& panels = result.tally.panels;
  std::cout << result.tally.events << " events, "
            << std::accumulate(panels.begin(), panels.end(), std::size_t{0}) << " panels opened, "
            << result.tally.refused << " refused by documented errors, " << result.tally.thrown
            << " thrown on purpose, " << result.tally.void_events
            << " for controls that no longer existed: nothing is broken\n";
  return 0;
}

}  // namespace

void AddMonkeyCommand(Program& program) {
  Command& command = program.Add("monkey", "Lets random input happen to a form");
  command.SetFooter(
      "Input, property writes, method calls, removals and more, as anybody could cause them; after each the\n"
      "form must be whole. The same seed does the same. What breaks something is shrunk to the few events "
      "that\n"
      "matter and written beside the form as a script, which the command run shows it again with; the exit\n"
      "status is 1 then.\n\n"
      "Example:\n  levelwidgets monkey order.form.toml --seed 7 --events 100000");
  const auto given = std::make_shared<MonkeyArguments>();
  command.AddOption("FORM", &given->form, "The form file", {.required = true});
  command.AddOption("--seed", &given->seed, "Which events: the same for the same number",
                    {.shows_default = true});
  command.AddOption("--events", &given->events, "How many", {.shows_default = true});
  command.AddFlag("--handlers", given->handlers,
                  "An error in a handler of the form's script is a failure too");
  command.SetBody([given] { return Monkey(*given); });
}

}  // namespace levelwidgets
