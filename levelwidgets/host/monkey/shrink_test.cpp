#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/host/monkey/run.h>

namespace levelwidgets::monkey {
namespace {

std::vector<Event> Numbered(std::int64_t count) {
  std::vector<Event> events;
  for (std::int64_t i = 0; i < count; ++i) events.push_back({.kind = EventKind::kAdvance, .numbers = {i}});
  return events;
}

std::vector<std::int64_t> NumbersOf(const std::vector<Event>& events) {
  std::vector<std::int64_t> numbers;
  for (const Event& event : events) numbers.push_back(event.numbers[0]);
  return numbers;
}

bool Contains(const std::vector<Event>& events, std::vector<std::int64_t> wanted) {
  const auto numbers = NumbersOf(events);
  return std::ranges::all_of(wanted,
                             [&](std::int64_t n) { return std::ranges::find(numbers, n) != numbers.end(); });
}

TEST(Shrink, KeepsTheFewEventsThatMatterInTheirOrder) {
  const auto breaks = [](const std::vector<Event>& events) { return Contains(events, {3, 400, 799}); };
  EXPECT_EQ(NumbersOf(Shrink(Numbered(800), breaks)), (std::vector<std::int64_t>{3, 400, 799}));
}

TEST(Shrink, LeavesOutEverythingWhenNothingIsNeeded) {
  EXPECT_TRUE(Shrink(Numbered(100), [](const auto&) { return true; }).empty());
}

TEST(Shrink, KeepsEverythingWhenAllIsNeeded) {
  const auto breaks = [](const std::vector<Event>& events) { return events.size() == 9; };
  EXPECT_EQ(Shrink(Numbered(9), breaks).size(), 9U);
}

TEST(Shrink, ShortensTextsBetweenWholeCharacters) {
  const std::string text = std::string(300, 'x') + "\xC3\xA4" + std::string(90, 'y') + "\xE2\x82\xAC&";
  const std::vector<Event> events{{.kind = EventKind::kType, .values = {Variant(text)}}};
  const auto breaks = [](const std::vector<Event>& tried) {
    const std::string now = ToText(tried[0].values[0]);
    return now.find("\xC3\xA4") != std::string::npos && now.find('&') != std::string::npos;
  };
  EXPECT_EQ(ToText(ShortenTexts(events, breaks)[0].values[0]), "\xC3\xA4&");
}

TEST(Shrink, NeedsFarFewerTrialsThanThereAreSubsets) {
  int trials = 0;
  Shrink(Numbered(1000), [&](const std::vector<Event>& events) {
    ++trials;
    return Contains(events, {500, 501});
  });
  EXPECT_LT(trials, 100);
}

}  // namespace
}  // namespace levelwidgets::monkey
