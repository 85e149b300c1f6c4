#include <levelwidgets/host/script/lua/thread_time.h>

#include <gtest/gtest.h>

#include <thread>

namespace levelwidgets {
namespace {

using std::chrono::milliseconds;

TEST(ThreadTimeTest, WhatAThreadWorksCountsForItAloneAndCanBeAskedFromAnother) {
  constexpr milliseconds kWork{60};
  const ThreadTime waiting;
  const ThreadTime::Duration before = waiting.Used();
  ThreadTime::Duration worked{};
  ThreadTime::Duration waited{};
  std::thread([&] {
    const ThreadTime own;
    while ((worked = own.Used()) < kWork) {
    }
    waited = waiting.Used() - before;
  }).join();
  EXPECT_GE(worked, kWork);
  EXPECT_GE(waited, milliseconds(0));
  EXPECT_LT(waited, kWork / 2);
}

}  // namespace
}  // namespace levelwidgets
