// Timers, posted calls and the order of what is pending.
#include <levelwidgets/testing/scenes/scene.h>

namespace levelwidgets::testing {
namespace {

class TimeScenes : public SceneTest {
 protected:
  void TearDown() override {
    for (const TimerHandle timer : timers_) Clock().KillTimer(timer);
    SceneTest::TearDown();
  }
  TimerHandle first_;
  TimerHandle second_;

  TimerHandle Every(std::uint32_t ms, std::function<void()> tick) {
    timers_.push_back(Clock().SetTimer(ms, std::move(tick)));
    return timers_.back();
  }

 private:
  std::vector<TimerHandle> timers_;
};

TEST_F(TimeScenes, ATickThatLetsTimePassIsNestedInItself) {
  int depth = 0;
  int ticks = 0;
  Every(50, [&] {
    if (++ticks > 3) return;
    Note(std::string(static_cast<std::size_t>(2 * depth), '.') + "tick begins");
    ++depth;
    if (depth < 3) Driver().Advance(60);
    --depth;
    Note(std::string(static_cast<std::size_t>(2 * depth), '.') + "tick ends");
  });
  Do("let it tick", [&] { Driver().Advance(80); });
  Expect(R"(
    * let it tick
    tick begins
    ..tick begins
    ....tick begins
    ....tick ends
    ..tick ends
    tick ends
  )");
}

TEST_F(TimeScenes, TheSmallestTimerTicksEveryTenMilliseconds) {
  int ticks = 0;
  Every(1, [&] { ++ticks; });
  const std::uint64_t start = Clock().GetTickCount();
  Driver().Advance(500);
  const auto most = static_cast<int>((Clock().GetTickCount() - start) / 10);
  Note(ticks > most / 2 && ticks <= most ? "not more often" : std::to_string(ticks) + " ticks");
  Expect(R"(
    not more often
  )");
}

TEST_F(TimeScenes, ATickThatDoesWhatIsPendingHasTheOtherTickThatIsDueInIt) {
  first_ = Every(30, [&] {
    Clock().KillTimer(first_);
    Note("first tick begins");
    Clock().DoEvents();
    Note("first tick ends");
  });
  second_ = Every(30, [&] {
    Clock().KillTimer(second_);
    Note("second tick");
  });
  Driver().Advance(60);
  Expect(R"(
    first tick begins
    second tick
    first tick ends
  )");
}

TEST_F(TimeScenes, WhatIsPendingComesInItsOrder) {
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  const WindowHandle child = Child("child", form, {10, 10, 60, 60});
  Driver().MovePointer({500, 500});
  Driver().Settle();
  Hear(kPaintMessages + kStateMessages + MessageSet{kWmCommand});
  Do("a post, a paint and a message", [&] {
    Api().InvalidateRect(child);
    Clock().Post([&] { Note("first post"); });
    Api().PostMessageA(form, kWmCommand, 0, 0);
    Clock().Post([&] { Note("second post"); });
  });
  Do("what a post posts and what it invalidates", [&] {
    Clock().Post([&] {
      Note("first post");
      Api().InvalidateRect(child);
      Clock().Post([&] { Note("post of the first"); });
    });
    Clock().Post([&] { Note("second post"); });
  });
  Do("two ticks that are due, the first one with a paint and a post", [&] {
    first_ = Every(30, [&] {
      Note("first tick");
      Api().InvalidateRect(child);
      Clock().Post([&] { Note("post of the first tick"); });
      Clock().KillTimer(first_);
    });
    second_ = Every(30, [&] {
      Note("second tick");
      Clock().KillTimer(second_);
    });
    Driver().Advance(60);
  });
  Expect(R"(
    * a post, a paint and a message
    first post
    form Command
    second post
    child Paint
    * what a post posts and what it invalidates
    first post
    second post
    post of the first
    child Paint
    * two ticks that are due, the first one with a paint and a post
    first tick
    post of the first tick
    child Paint
    second tick
  )");
}

}  // namespace
}  // namespace levelwidgets::testing
