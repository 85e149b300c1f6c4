#include <levelwidgets/host/form/system_question.h>

#include <algorithm>

namespace levelwidgets {

namespace {

using Forms = std::vector<std::shared_ptr<Form>>;

Forms ThoseThatLive(const std::vector<std::weak_ptr<Form>>& forms) {
  Forms living;
  for (const auto& form : forms) {
    if (auto alive = form.lock()) living.push_back(std::move(alive));
  }
  return living;
}

// Null when none is active. One that is closed has no window.
std::shared_ptr<Form> ActiveOf(Platform& platform, const Forms& forms) {
  const auto found = std::ranges::find(forms, platform.Windows().GetActiveWindow(), &Form::hWnd);
  return found == forms.end() ? nullptr : *found;
}

struct Turns {
  bool taken = false;
  std::vector<std::function<void()>> waiting;
};

// Each thread has a loop of its own.
Turns& TurnsOfThread() {
  thread_local Turns turns;
  return turns;
}

}  // namespace

FormsAsked::FormsAsked(Platform& platform, const std::vector<std::weak_ptr<Form>>& forms)
    : owner_(ActiveOf(platform, ThoseThatLive(forms))), rest_(ThoseThatLive(forms), owner_.get()) {
  TurnsOfThread().taken = true;
}

FormsAsked::~FormsAsked() {
  TurnsOfThread().taken = false;
  for (const auto& ask : std::exchange(TurnsOfThread().waiting, {})) ask();
}

void AskInTurn(ClockApi& clock, std::function<void()> ask) {
  clock.Post([&clock, ask = std::move(ask)] {
    if (!TurnsOfThread().taken) return ask();
    TurnsOfThread().waiting.push_back([&clock, ask] { AskInTurn(clock, ask); });
  });
}

}  // namespace levelwidgets
