#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/frame/event.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;

TEST(Event, ListenersAreCalledInTheOrderAdded) {
  Event<int> event;
  std::vector<int> heard;
  event += [&](int value) { heard.push_back(value); };
  event += [&](int value) { heard.push_back(value * 10); };
  event.Raise(1);
  event.Raise(2);
  EXPECT_THAT(heard, ElementsAre(1, 10, 2, 20));
}

TEST(Event, AChangedReferenceArgumentReachesTheNextListenerAndTheCaller) {
  Event<std::int16_t&> event;
  event += [](std::int16_t& value) { value = 5; };
  event += [](std::int16_t& value) { value = static_cast<std::int16_t>(value + 1); };
  std::int16_t value = 1;
  event.Raise(value);
  EXPECT_EQ(value, 6);
}

TEST(Event, ARelayRaisesItsTargetWithTheSameArgumentsBeforeItsOwnListeners) {
  Event<std::int16_t&> target;
  Event<std::int16_t&> event;
  std::vector<std::string> heard;
  event += [&](std::int16_t& value) { heard.push_back("own " + std::to_string(value)); };
  event.RelayTo(target);
  event.Raise(*std::make_unique<std::int16_t>(std::int16_t{1}));
  target += [&](std::int16_t& value) {
    heard.push_back("target " + std::to_string(value));
    value = 7;
  };
  std::int16_t value = 2;
  event.Raise(value);
  EXPECT_THAT(heard, ElementsAre("own 1", "target 2", "own 7"));
  EXPECT_EQ(value, 7);
}

TEST(Event, AListenerOfARelaysTargetMayDestroyTheRelay) {
  Event<> target;
  auto event = std::make_unique<Event<>>();
  event->RelayTo(target);
  int calls = 0;
  *event += [&] { ++calls; };
  target += [&] { event.reset(); };
  event->Raise();
  EXPECT_EQ(calls, 1);
}

TEST(Event, AnEndedSubscriptionIsNotCalledEvenWhenItEndsDuringTheRaise) {
  Event<> event;
  int calls = 0;
  Subscription second;
  event += [&] { second.End(); };
  second = event.Add([&] { ++calls; });
  event.Raise();
  event.Raise();
  EXPECT_EQ(calls, 0);
}

TEST(Event, AListenerAddedDuringARaiseIsCalledFromTheNextOn) {
  Event<> event;
  int calls = 0;
  event += [&] {
    if (calls == 0) event += [&] { calls += 100; };
    ++calls;
  };
  event.Raise();
  EXPECT_EQ(calls, 1);
  event.Raise();
  EXPECT_EQ(calls, 102);
}

TEST(Event, AListenerMayDestroyTheEvent) {
  auto event = std::make_unique<Event<>>();
  int calls = 0;
  *event += [&] { event.reset(); };
  *event += [&] { ++calls; };
  event->Raise();
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(event);
}

TEST(Event, AnExceptionPassesThroughAndTheOtherListenersAreNotCalled) {
  Event<> event;
  int calls = 0;
  event += [] { throw 1; };
  event += [&] { ++calls; };
  EXPECT_THROW(event.Raise(), int);
  EXPECT_EQ(calls, 0);
}

TEST(Subscription, MayOutliveItsEvent) {
  Subscription subscription;
  {
    Event<> event;
    subscription = event.Add([] {});
  }
  subscription.End();
  subscription.End();
}

TEST(Event, WhenAllSubscriptionsEndNoFurtherListenerIsCalled) {
  Event<> event;
  int calls = 0;
  event.Add([&] {
    ++calls;
    event.EndAll();
  });
  event.Add([&] { calls += 10; });
  event.Raise();
  EXPECT_EQ(calls, 1);
  event.Raise();
  EXPECT_EQ(calls, 1);
  event.Add([&] { calls += 100; });
  event.Raise();
  EXPECT_EQ(calls, 101);
}

}  // namespace
}  // namespace levelwidgets
