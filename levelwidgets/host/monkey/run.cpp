#include <levelwidgets/host/monkey/run.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <system_error>

namespace levelwidgets::monkey {

namespace {

// What a process reports about itself, readable after its end.
struct Report {
  bool ended;          // it came to its end by itself
  std::size_t form;    // the one that is open
  std::size_t events;  // performed on it
  Tally tally;
  char broken[2000];
};

class SharedReport {
 public:
  SharedReport()
      : report_(static_cast<Report*>(
            mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    if (report_ == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "shared memory");
  }
  SharedReport(const SharedReport&) = delete;
  SharedReport& operator=(const SharedReport&) = delete;
  ~SharedReport() { munmap(report_, sizeof(Report)); }
  Report* operator->() const { return report_; }
  Report& operator*() const { return *report_; }

 private:
  Report* report_;
};

void Tell(Report& report, const std::string& broken) {
  const std::size_t length = std::min(broken.size(), sizeof report.broken - 1);
  std::memcpy(report.broken, broken.data(), length);
  report.broken[length] = 0;
}

std::string CauseOf(int status) {
  if (WIFSIGNALED(status)) {
    if (WTERMSIG(status) == SIGPROF || WTERMSIG(status) == SIGALRM) return "hang: an event takes too long";
    return std::string("crash: ") + strsignal(WTERMSIG(status));
  }
  return "crash: the process ended with status " + std::to_string(WEXITSTATUS(status));
}

// What is killed leaves nobody behind who works on and holds its output open.
void EndWithParent([[maybe_unused]] pid_t parent) {
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);  // it has ended already
#endif
}

void Silence() {
  const int nowhere = open("/dev/null", O_WRONLY);
  if (nowhere >= 0) dup2(nowhere, STDERR_FILENO);
}

void SetTimer(__itimer_which_t which, long milliseconds) {
  itimerval timer{};
  timer.it_value = {milliseconds / 1000, milliseconds % 1000 * 1000};
  setitimer(which, &timer, nullptr);
}

// Unless called again before, the process is killed: by its own time, which no other process takes from it,
// or when it waits for good.
void EndIn(int milliseconds) {
  constexpr long kWaiting = 100;
  SetTimer(ITIMER_PROF, milliseconds);
  SetTimer(ITIMER_REAL, kWaiting * milliseconds);
}

// Runs `work` in a process of its own.
template <typename Work>
void InProcess(Report& report, bool shown, Work work) {
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child == 0) {
    EndWithParent(parent);
    if (!shown) Silence();
    for (const int ends : {SIGALRM, SIGPROF}) signal(ends, SIG_DFL);
    work();
    report.ended = true;
    _exit(0);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (!report.ended) Tell(report, CauseOf(status));
}

void Accumulate(Tally& sum, const Tally& more) {
  sum.events += more.events;
  sum.refused += more.refused;
  sum.thrown += more.thrown;
  sum.void_events += more.void_events;
  sum.closings += more.closings;
  sum.panel_events += more.panel_events;
  for (std::size_t i = 0; i < sum.panels.size(); ++i) sum.panels[i] += more.panels[i];
}

// The events on a stage, then its end. Returns what is broken.
std::string PerformAll(const StageFactory& make_stage, const std::vector<Event>& events,
                       const RunOptions& options, Report& report) {
  report.events = 0;
  try {
    Session session(make_stage());
    std::string broken;
    for (const Event& event : events) {
      EndIn(options.ms_per_event);
      ++report.events;
      broken = session.Perform(event).broken;
      if (!broken.empty()) break;
    }
    EndIn(options.ms_per_event);
    if (broken.empty()) broken = session.Finish();
    Accumulate(report.tally, session.Counts());
    return broken;
  } catch (const std::exception& error) {
    return std::string("end: closing the form raised ") + error.what();
  }
}

}  // namespace

std::string NameOf(const std::string& broken) { return broken.substr(0, broken.find(':')); }

// Neighbouring numbers give unrelated ones (splitmix64).
std::uint64_t SeedOfForm(std::uint64_t seed, std::size_t form) {
  std::uint64_t x = seed + (form + 1) * 0x9E3779B97F4A7C15u;
  x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9u;
  x = (x ^ x >> 27) * 0x94D049BB133111EBu;
  return x ^ x >> 31;
}

FormResult RunForm(const StageFactory& stage, const std::vector<Event>& events, const RunOptions& options,
                   bool shown) {
  const SharedReport report;
  InProcess(*report, shown, [&] { Tell(*report, PerformAll(stage, events, options, *report)); });
  return {report->broken, report->events, report->tally};
}

std::string InOwnProcess(int milliseconds, const std::function<std::string()>& work) {
  const SharedReport report;
  InProcess(*report, false, [&] {
    EndIn(milliseconds);
    Tell(*report, work());
  });
  return report->broken;
}

FormModel ModelOf(Stage& stage) {
  FormModel model(*stage.GetForm());
  if (const auto beside = stage.Beside()) model.AddBeside(*beside);
  return model;
}

RunResult Run(const StageFactory& stage, const RunOptions& options) {
  const FormModel model = ModelOf(*stage());
  const auto events_of = [&](std::size_t form) {
    const std::size_t before = form * options.events_per_form;
    return MakeEvents(model, SeedOfForm(options.seed, form),
                      std::min(options.events_per_form, options.events - before));
  };
  const std::size_t forms = (options.events + options.events_per_form - 1) / options.events_per_form;
  const SharedReport report;
  InProcess(*report, true, [&] {
    for (; report->form < forms; ++report->form) {
      const std::string broken = PerformAll(stage, events_of(report->form), options, *report);
      Tell(*report, broken);
      if (!broken.empty()) break;
      if (options.progress) options.progress(report->tally.events);
    }
  });
  RunResult result{report->tally, {}};
  if (report->broken[0] == 0) return result;

  Failure failure{report->broken, events_of(report->form)};
  failure.events.resize(report->events);
  failure.number = report->form * options.events_per_form + report->events;
  failure.events_before_shrinking = report->events;
  const std::string name = NameOf(failure.broken);
  const auto breaks = [&](const std::vector<Event>& fewer) {
    return NameOf(RunForm(stage, fewer, options, false).broken) == name;
  };
  failure.events = ShortenTexts(Shrink(std::move(failure.events), breaks), breaks);
  failure.broken = RunForm(stage, failure.events, options, false).broken;
  result.failure = std::move(failure);
  return result;
}

}  // namespace levelwidgets::monkey
