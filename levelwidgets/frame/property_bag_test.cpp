#include <gtest/gtest.h>

#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets {
namespace {

TEST(PropertyBag, AMissingValueIsTheDefault) {
  EXPECT_EQ(PropertyBag().ReadProperty("Caption", "none"), Variant("none"));
}

TEST(PropertyBag, AValueEqualToTheDefaultIsNotStored) {
  PropertyBag bag;
  bag.WriteProperty("Width", std::int16_t{1440}, 1440);
  bag.WriteProperty("Font", MakeFont(), MakeFont());
  EXPECT_TRUE(bag.Entries().empty());
  bag.WriteProperty("Width", 1441, 1440);
  EXPECT_EQ(bag.ReadProperty("Width", 1440), Variant(1441));
}

TEST(PropertyBag, WritingAgainReplacesAndWritingTheDefaultRemoves) {
  PropertyBag bag;
  bag.WriteProperty("Width", 1, 0);
  bag.WriteProperty("Width", 2, 0);
  ASSERT_EQ(bag.Entries().size(), 1u);
  EXPECT_EQ(bag.Entries()[0].value, Variant(2));
  bag.WriteProperty("Width", 0, 0);
  EXPECT_TRUE(bag.Entries().empty());
}

TEST(PropertyBag, ValuesAreFoundAfterOthersWereRemoved) {
  PropertyBag bag;
  bag.WriteProperty("A", 1, 0);
  bag.WriteProperty("B", 2, 0);
  bag.WriteProperty("C", 3, 0);
  bag.WriteProperty("A", 0, 0);
  bag.WriteProperty("B", 4, 0);
  EXPECT_FALSE(bag.Find("A"));
  EXPECT_EQ(*bag.Find("B"), Variant(4));
  EXPECT_EQ(*bag.Find("C"), Variant(3));
  EXPECT_EQ(bag.Entries().back().name, "B");
}

TEST(PropertyBag, TensOfThousandsOfEntriesAreFoundAtOnce) {
  PropertyBag bag;
  constexpr int kEntries = 30000;
  for (int i = 0; i < kEntries; ++i) bag.WriteProperty("Entry" + std::to_string(i), i, -1);
  for (int i = 0; i < kEntries; ++i) {
    ASSERT_EQ(bag.ReadProperty("Entry" + std::to_string(i), -1), Variant(i));
  }
}

TEST(PropertyBag, KeepsTheOrderWritten) {
  PropertyBag bag;
  bag.WriteProperty("B", 1, 0);
  bag.WriteProperty("A", 1, 0);
  EXPECT_EQ(bag.Entries()[0].name, "B");
  EXPECT_EQ(bag.Entries()[1].name, "A");
}

TEST(PropertyBag, AnEntryWrittenAgainLeavesTheOthersOfAFullBagWhereTheyAre) {
  PropertyBag bag;
  const auto name = [](int i) { return "Property" + std::to_string(i); };
  for (int i = 0; i < 40; ++i) bag.WriteProperty(name(i), i, -1);
  bag.WriteProperty(name(3), 300, -1);
  bag.WriteProperty(name(20), -1, -1);  // the default: no longer stored
  for (int i = 0; i < 40; ++i) {
    const Variant expected = i == 3 ? Variant(300) : i == 20 ? Variant(-5) : Variant(i);
    EXPECT_EQ(bag.ReadProperty(name(i), -5), expected) << i;
  }
  EXPECT_EQ(bag.Entries().size(), 39u);
}

}  // namespace
}  // namespace levelwidgets
