#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/memory_clock.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;

class MemoryClockTest : public ::testing::Test {
 protected:
  TimerHandle Every(std::uint32_t ms, const std::string& name) {
    return clock.SetTimer(ms,
                          [this, name] { log.push_back(name + "@" + std::to_string(clock.GetTickCount())); });
  }

  MemoryClock clock{Date{45427.4375}};
  std::vector<std::string> log;
};

TEST_F(MemoryClockTest, TimeStandsStillWithoutAdvance) {
  Every(10, "a");
  clock.DoEvents();
  EXPECT_EQ(clock.GetTickCount(), 0u);
  EXPECT_TRUE(log.empty());
}

TEST_F(MemoryClockTest, TicksComeInTheOrderInWhichTheyAreDue) {
  Every(30, "a");
  Every(20, "b");
  clock.Advance(70);
  EXPECT_THAT(log, ElementsAre("b@20", "a@30", "b@40", "a@60", "b@60"));
  EXPECT_EQ(clock.GetTickCount(), 70u);
}

TEST_F(MemoryClockTest, ATickIsDueOnTheLastMillisecond) {
  Every(20, "a");
  clock.Advance(19);
  EXPECT_TRUE(log.empty());
  clock.Advance(1);
  EXPECT_THAT(log, ElementsAre("a@20"));
}

TEST_F(MemoryClockTest, TheSmallestIntervalIsTenMilliseconds) {
  Every(0, "a");
  Every(9, "b");
  clock.Advance(20);
  EXPECT_THAT(log, ElementsAre("a@10", "b@10", "a@20", "b@20"));
}

TEST_F(MemoryClockTest, ATickThatLetsTimePassIsNestedInItself) {
  Every(10, "a");
  clock.SetTimer(10, [this, jump = true]() mutable {
    log.push_back("b@" + std::to_string(clock.GetTickCount()));
    if (!std::exchange(jump, false)) return;
    clock.Advance(25);
    log.push_back("b ends");
  });
  clock.Advance(10);
  EXPECT_THAT(log, ElementsAre("a@10", "b@10", "a@20", "b@20", "a@30", "b@30", "b ends"));
  log.clear();
  clock.Advance(5);
  EXPECT_THAT(log, ElementsAre("a@40", "b@40"));
}

TEST_F(MemoryClockTest, ATimerThatTicksInItselfForEverWaitsForItsTicksToReturn) {
  int depth = 0;
  int deepest = 0;
  clock.SetTimer(10, [&] {
    deepest = std::max(deepest, ++depth);
    if (clock.GetTickCount() < 1000) clock.Advance(10);
    --depth;
  });
  clock.Advance(2000);
  EXPECT_EQ(deepest, HandTimers::kMostNested);
  EXPECT_EQ(depth, 0);
}

TEST_F(MemoryClockTest, PaintsComeAfterPostedCallsAndBeforeTicks) {
  bool invalid = false;
  MemoryClock painting({}, [&] {
    if (!std::exchange(invalid, false)) return PaintTurn::kNothing;
    log.push_back("paint");
    return PaintTurn::kPainted;
  });
  painting.SetTimer(10, [&] {
    log.push_back("first tick");
    painting.Post([&] { log.push_back("posted"); });
    invalid = true;
  });
  painting.SetTimer(10, [&] { log.push_back("second tick"); });
  painting.Advance(10);
  EXPECT_THAT(log, ElementsAre("first tick", "posted", "paint", "second tick"));
}

TEST_F(MemoryClockTest, AThrowingTickLeavesTheOthersOfItsTimeDue) {
  clock.SetTimer(10, [] { throw std::runtime_error("tick"); });
  Every(10, "b");
  EXPECT_THROW(clock.Advance(100), std::runtime_error);
  EXPECT_EQ(clock.GetTickCount(), 10u);
  EXPECT_TRUE(log.empty());
  clock.DoEvents();
  EXPECT_THAT(log, ElementsAre("b@10"));
}

TEST_F(MemoryClockTest, AnExceptionLeavesTheTimerIntact) {
  int ticks = 0;
  clock.SetTimer(10, [&] {
    ++ticks;
    throw std::runtime_error("tick");
  });
  EXPECT_THROW(clock.Advance(10), std::runtime_error);
  EXPECT_EQ(clock.LiveTimers(), 1u);
  EXPECT_THROW(clock.Advance(10), std::runtime_error);
  EXPECT_EQ(ticks, 2);
}

TEST_F(MemoryClockTest, ATickMayKillItsOwnTimer) {
  TimerHandle timer;
  int ticks = 0;
  const auto captured = std::make_shared<int>(7);
  timer = clock.SetTimer(10, [&, captured] {
    EXPECT_TRUE(clock.KillTimer(timer));
    ticks += *captured;
  });
  clock.Advance(50);
  EXPECT_EQ(ticks, 7);
  EXPECT_EQ(clock.LiveTimers(), 0u);
  EXPECT_EQ(captured.use_count(), 1);
  EXPECT_FALSE(clock.KillTimer(timer));
}

TEST_F(MemoryClockTest, ATimerSetInATickStartsFromThere) {
  clock.SetTimer(10, [this, set = false]() mutable {
    if (!std::exchange(set, true)) Every(12, "inner");
  });
  clock.Advance(35);
  EXPECT_THAT(log, ElementsAre("inner@22", "inner@34"));
}

TEST_F(MemoryClockTest, PostedCallsRunInOrderAndNeverInsidePost) {
  clock.Post([this] {
    clock.Post([this] { log.push_back("posted by the first"); });
    log.push_back("first");
  });
  clock.Post([this] { log.push_back("second"); });
  EXPECT_TRUE(log.empty());
  clock.DoEvents();
  EXPECT_THAT(log, ElementsAre("first", "second", "posted by the first"));
}

TEST_F(MemoryClockTest, AnExceptionFromAPostedCallLeavesTheOthersPosted) {
  clock.Post([] { throw std::runtime_error("call"); });
  clock.Post([this] { log.push_back("second"); });
  EXPECT_THROW(clock.DoEvents(), std::runtime_error);
  EXPECT_TRUE(log.empty());
  clock.DoEvents();
  EXPECT_THAT(log, ElementsAre("second"));
}

TEST_F(MemoryClockTest, ACallThatPostsItselfDoesNotHangTheLoop) {
  int calls = 0;
  std::function<void()> again = [&] {
    ++calls;
    clock.Post(again);
  };
  clock.Post(again);
  clock.DoEvents();
  EXPECT_GT(calls, 1);
}

TEST_F(MemoryClockTest, RunMovesTheClockToTheNextTimerUntilQuit) {
  Every(100, "a");
  clock.SetTimer(250, [this] { clock.Quit(3); });
  EXPECT_EQ(clock.Run(), 3);
  EXPECT_THAT(log, ElementsAre("a@100", "a@200"));
  EXPECT_EQ(clock.GetTickCount(), 250u);
}

TEST_F(MemoryClockTest, RunReturnsWhenNothingIsLeftToHappen) {
  MemoryClock idle{Date{}};
  bool called = false;
  idle.Post([&] { called = true; });
  EXPECT_EQ(idle.Run(), 0);
  EXPECT_TRUE(called);
}

TEST_F(MemoryClockTest, BackgroundTimersTickButNobodyWaitsForThem) {
  const TimerHandle blink = clock.SetBackgroundTimer(10, [this] { log.push_back("blink"); });
  EXPECT_EQ(clock.LiveTimers(), 0u);
  EXPECT_EQ(clock.Run(), 0);
  EXPECT_EQ(clock.GetTickCount(), 0u);
  clock.Advance(25);
  EXPECT_THAT(log, ElementsAre("blink", "blink"));
  EXPECT_TRUE(clock.KillTimer(blink));
}

TEST_F(MemoryClockTest, RunWaitsWhereAPersonIsAtTheDesktop) {
  int waits = 0;
  clock.SetWaiter([&] {
    if (++waits == 3) clock.Quit(9);
  });
  EXPECT_EQ(clock.Run(), 9);
  EXPECT_EQ(waits, 3);
  EXPECT_EQ(clock.GetTickCount(), 0u);
}

TEST_F(MemoryClockTest, WhatATimerMissesInElapsedTimeIsOneTickAndTheNextIsOneIntervalAfterIt) {
  Every(100, "a");
  Every(30, "b");
  clock.Elapse(310);
  EXPECT_THAT(log, ElementsAre("b@310", "a@310"));
  EXPECT_EQ(clock.NextDue(), 340u);
  clock.Elapse(29);
  EXPECT_EQ(log.size(), 2u);
  clock.Elapse(1);
  EXPECT_EQ(log.back(), "b@340");
}

TEST_F(MemoryClockTest, NowFollowsTheClock) {
  EXPECT_EQ(clock.Now(), Date{45427.4375});
  clock.Advance(12 * 60 * 60 * 1000);
  EXPECT_DOUBLE_EQ(clock.Now().days, 45427.9375);
  clock.SetNow(Date{10.25});
  EXPECT_EQ(clock.Now(), Date{10.25});
  clock.Advance(6 * 60 * 60 * 1000);
  EXPECT_DOUBLE_EQ(clock.Now().days, 10.5);
}

TEST_F(MemoryClockTest, BeforeTheFirstDayTheFractionCountsForwardFromMidnight) {
  clock.SetNow(Date{-1.25});  // 29 December 1899, 6:00
  clock.Advance(6 * 60 * 60 * 1000);
  EXPECT_DOUBLE_EQ(clock.Now().days, -1.5);
  clock.Advance(18 * 60 * 60 * 1000);
  EXPECT_DOUBLE_EQ(clock.Now().days, 0.25);
}

}  // namespace
}  // namespace levelwidgets::memory
