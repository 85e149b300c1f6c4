#include <levelwidgets/platform/memory/edit/text_store.h>

#include <gtest/gtest.h>

#include <random>

namespace levelwidgets::memory {
namespace {

std::string All(const TextStore& store) { return store.Copy(0, store.Size()); }

TEST(TextStoreTest, StartsEmpty) {
  const TextStore store;
  EXPECT_EQ(store.Size(), 0u);
  EXPECT_EQ(All(store), "");
}

TEST(TextStoreTest, ReplacesAnywhere) {
  TextStore store;
  store.Assign("0123456789");
  store.Replace(3, 5, "xyz");
  EXPECT_EQ(All(store), "012xyz56789");
  store.Replace(0, 1, "");
  store.Replace(store.Size(), store.Size(), "!");
  EXPECT_EQ(All(store), "12xyz56789!");
  EXPECT_EQ(store.At(2), 'x');
  EXPECT_EQ(store.At(10), '!');
}

TEST(TextStoreTest, FindsAcrossTheGap) {
  TextStore store;
  store.Assign("a\nb\nc");
  store.Replace(2, 2, "x");  // the gap is behind the x
  EXPECT_EQ(store.Find('\n', 0, store.Size()), 1u);
  EXPECT_EQ(store.Find('\n', 2, store.Size()), 4u);
  EXPECT_EQ(store.Find('\n', 5, store.Size()), store.Size());
  EXPECT_EQ(store.Find('c', 0, 3), 3u);
}

TEST(TextStoreTest, ReadsTheTwoPiecesAroundTheGap) {
  TextStore store;
  store.Assign("abcd");
  store.Replace(2, 2, "-");
  const auto [first, second] = store.Read(1, 5);
  EXPECT_EQ(std::string(first) + std::string(second), "b-cd");
}

TEST(TextStoreTest, ANewTextFreesWhatTheOldOneNeeded) {
  TextStore store;
  store.Assign(std::string(1'000'000, 'x'));
  EXPECT_LT(store.Capacity(), 1'001'000u);
  store.Assign("y");
  EXPECT_LT(store.Capacity(), 1000u);
}

TEST(TextStoreTest, ManyChangesGiveWhatAStringGives) {
  std::mt19937 random(7);
  TextStore store;
  std::string model;
  for (int i = 0; i < 3000; ++i) {
    const std::size_t from = random() % (model.size() + 1);
    const std::size_t to = from + random() % std::min<std::size_t>(model.size() - from + 1, 8);
    const std::string bytes(random() % 9, static_cast<char>('a' + i % 26));
    store.Replace(from, to, bytes);
    model.replace(from, to - from, bytes);
    ASSERT_EQ(store.Size(), model.size());
    if (i % 50 != 0) continue;
    ASSERT_EQ(All(store), model);
  }
  EXPECT_EQ(All(store), model);
}

}  // namespace
}  // namespace levelwidgets::memory
