#include <levelwidgets/presenter/presenter.h>

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <levelwidgets/presenter/native_wait.h>

namespace levelwidgets::presenter {

namespace {

// More wait for the next turn, so that paints come in between.
constexpr std::size_t kMostEvents = 500;

// SDL reports a change of the focus so many milliseconds after the X server, and only when it is asked.
constexpr int kEcho = 250;

std::vector<SDL_Event> TakeEvents() {
  std::vector<SDL_Event> events;
  SDL_Event event;
  while (events.size() < kMostEvents && SDL_PollEvent(&event)) events.push_back(event);
  return events;
}

}  // namespace

Presenter::Presenter(NativeDisplay& display, memory::Desktop& desktop)
    : display_(display),
      desktop_(desktop),
      selection_(desktop),
      started_(std::chrono::steady_clock::now()),
      started_tick_(desktop.Clock().GetTickCount()) {
  desktop_.SetPointerArea(display_.PointerArea());
  desktop_.MovePointer(NativeDisplay::Nowhere());
  desktop_.Clock().SetWaiter([this] { Wait(); });
  TakeClipboard();
}

Presenter::~Presenter() { desktop_.Clock().SetWaiter({}); }

int Presenter::Run() { return desktop_.Clock().Run(); }

void Presenter::Wait() {
  Sync();
  const auto is_form = [](const Shown& shown) { return shown.native->Kind() != WindowKind::kPopup; };
  if (std::ranges::none_of(shown_, is_form) || signals_.Take()) {
    desktop_.Clock().Quit(0);
    return;
  }
  int wait = TimeToWait();
  if (!quiet_ && (wait < 0 || wait > kEcho)) wait = kEcho;
  WaitForNative(SDL_GetWindowFromID(shown_.front().native->Id()), signals_.Descriptor(), wait);
  FollowTime();
  const std::vector<SDL_Event> events = TakeEvents();
  quiet_ = events.empty();
  Handle(events);
}

int Presenter::TimeToWait() const {
  const auto due = desktop_.Clock().NextDue();
  if (!due) return -1;
  const auto passed = std::chrono::steady_clock::now() - started_;
  const auto now =
      static_cast<double>(started_tick_) + std::chrono::duration<double, std::milli>(passed).count();
  const double wait = std::ceil(static_cast<double>(*due) - now);
  return static_cast<int>(std::clamp(wait, 0.0, static_cast<double>(std::numeric_limits<int>::max())));
}

// Milliseconds of the desktop are those since the start, so that none is lost by rounding.
void Presenter::FollowTime() {
  desktop_.SetNow(RealNow());
  const auto passed =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - started_);
  const std::uint64_t now = started_tick_ + static_cast<std::uint64_t>(passed.count());
  const std::uint64_t tick = desktop_.Clock().GetTickCount();
  if (now > tick) desktop_.Clock().Elapse(static_cast<std::uint32_t>(now - tick));
}

}  // namespace levelwidgets::presenter
