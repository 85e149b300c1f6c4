#include <levelwidgets/presenter/end_signals.h>

#include <poll.h>
#include <signal.h>

#include <gtest/gtest.h>

namespace levelwidgets::presenter {
namespace {

bool CanBeRead(int descriptor) {
  pollfd ready{descriptor, POLLIN, 0};
  return poll(&ready, 1, 0) == 1;
}

TEST(EndSignals, TheFirstSignalIsKept) {
  EndSignals signals;
  EXPECT_FALSE(signals.Take());
  EXPECT_FALSE(CanBeRead(signals.Descriptor()));
  raise(SIGTERM);
  EXPECT_TRUE(CanBeRead(signals.Descriptor()));
  EXPECT_TRUE(signals.Take());
  EXPECT_FALSE(signals.Take());
}

TEST(EndSignalsDeathTest, TheSecondSignalEndsTheProgram) {
  EXPECT_EXIT(
      {
        EndSignals signals;
        raise(SIGINT);
        raise(SIGINT);
      },
      ::testing::KilledBySignal(SIGINT), "");
}

TEST(EndSignalsDeathTest, AfterwardsSignalsAreWhatTheyWere) {
  EXPECT_EXIT(
      {
        { const EndSignals signals; }
        raise(SIGTERM);
      },
      ::testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace levelwidgets::presenter
