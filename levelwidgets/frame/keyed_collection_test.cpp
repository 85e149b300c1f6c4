#include <levelwidgets/frame/keyed_collection.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Names = KeyedCollection<std::string>;

std::vector<std::string> ItemsOf(const Names& names) { return {names.begin(), names.end()}; }

// a under "First", b without a key, c under "Last".
Names Three() {
  Names names;
  names.Add("a", "First");
  names.Add("b");
  names.Add("c", "Last");
  return names;
}

TEST(KeyedCollection, StartsEmpty) {
  const Names names;
  EXPECT_EQ(names.Count(), 0);
  EXPECT_THAT(ItemsOf(names), IsEmpty());
  EXPECT_EQ(ErrorOf([&] { names.At(1); }), 9);
  EXPECT_EQ(ErrorOf([&] { names.Under("x"); }), 5);
}

TEST(KeyedCollection, KeepsTheOrderOfAdding) {
  const Names names = Three();
  EXPECT_THAT(ItemsOf(names), ElementsAre("a", "b", "c"));
  EXPECT_EQ(names.At(1), "a");
  EXPECT_EQ(names.At(3), "c");
}

TEST(KeyedCollection, AddsAtTheEndOrBesideAPositionOrAKey) {
  const struct {
    InsertPlace place;
    std::vector<std::string> items;
  } rows[] = {
      {InsertPlace::AtEnd(), {"a", "b", "c", "x"}},
      {InsertPlace::Before(1), {"x", "a", "b", "c"}},
      {InsertPlace::Before(2), {"a", "x", "b", "c"}},
      {InsertPlace::Before(3), {"a", "b", "x", "c"}},
      {InsertPlace::After(1), {"a", "x", "b", "c"}},
      {InsertPlace::After(2), {"a", "b", "x", "c"}},
      {InsertPlace::After(3), {"a", "b", "c", "x"}},
      {InsertPlace::Before("First"), {"x", "a", "b", "c"}},
      {InsertPlace::Before("last"), {"a", "b", "x", "c"}},
      {InsertPlace::After("FIRST"), {"a", "x", "b", "c"}},
      {InsertPlace::After("Last"), {"a", "b", "c", "x"}},
  };
  for (const auto& row : rows) {
    for (const std::string_view key : {"", "New"}) {
      Names names = Three();
      names.Add("x", key, row.place);
      EXPECT_THAT(ItemsOf(names), ElementsAreArray(row.items));
      EXPECT_EQ(names.HasKey("new"), !key.empty());
    }
  }
}

TEST(KeyedCollection, AFailedAddChangesNothing) {
  const struct {
    std::string_view key;
    InsertPlace place;
    std::int32_t error;
  } rows[] = {
      {"", InsertPlace::Before(0), 9},        {"", InsertPlace::Before(4), 9},
      {"", InsertPlace::After(0), 9},         {"", InsertPlace::After(-1), 9},
      {"New", InsertPlace::After(4), 9},      {"", InsertPlace::Before("none"), 5},
      {"New", InsertPlace::After("none"), 5}, {"", InsertPlace::After(""), 5},
      {"First", InsertPlace::AtEnd(), 457},   {"fIRST", InsertPlace::AtEnd(), 457},
      {"Last", InsertPlace::Before(1), 457},
  };
  for (const auto& row : rows) {
    Names names = Three();
    EXPECT_EQ(ErrorOf([&] { names.Add("x", row.key, row.place); }), row.error) << row.key;
    EXPECT_THAT(ItemsOf(names), ElementsAre("a", "b", "c"));
    EXPECT_FALSE(names.HasKey("New"));
  }
}

TEST(KeyedCollection, KeysCompareWithoutCaseInEveryAlphabet) {
  Names names;
  names.Add("1", "Straße");
  names.Add("2", "ÄRGER");
  names.Add("3", "Привет");
  EXPECT_EQ(names.Under("STRAßE"), "1");
  EXPECT_EQ(names.Under("ärger"), "2");
  EXPECT_EQ(names.Under("ПРИВЕТ"), "3");
  EXPECT_EQ(ErrorOf([&] { names.Under("Strasse"); }), 5);
  EXPECT_EQ(ErrorOf([&] { names.Add("4", "Ärger"); }), 457);
}

TEST(KeyedCollection, AKeyFollowsItsItem) {
  Names names = Three();
  names.Add("x", "", InsertPlace::Before(1));
  names.RemoveAt(3);
  EXPECT_EQ(names.Under("First"), "a");
  EXPECT_EQ(names.Under("Last"), "c");
}

TEST(KeyedCollection, RemovesByPositionAndByKey) {
  Names names = Three();
  names.RemoveAt(1);
  EXPECT_THAT(ItemsOf(names), ElementsAre("b", "c"));
  EXPECT_FALSE(names.HasKey("First"));
  names.RemoveUnder("LAST");
  EXPECT_THAT(ItemsOf(names), ElementsAre("b"));
  names.Add("d", "First");  // the key is free again
  EXPECT_EQ(names.Under("First"), "d");
}

TEST(KeyedCollection, AFailedRemoveChangesNothing) {
  Names names = Three();
  for (const std::int32_t position : {-1, 0, 4}) {
    EXPECT_EQ(ErrorOf([&] { names.RemoveAt(position); }), 9) << position;
  }
  EXPECT_EQ(ErrorOf([&] { names.RemoveUnder("none"); }), 5);
  EXPECT_EQ(ErrorOf([&] { names.RemoveUnder(""); }), 5);
  EXPECT_THAT(ItemsOf(names), ElementsAre("a", "b", "c"));
}

TEST(KeyedCollection, AVariantIsAKeyWhenItIsATextAndAPositionOtherwise) {
  const struct {
    Variant index;
    std::string item;  // "" when `error` is raised
    std::int32_t error;
  } rows[] = {
      {Variant(std::int16_t{2}), "b", 0},
      {Variant(2), "b", 0},
      {Variant(2.5), "b", 0},  // ties to even
      {Variant(2.6f), "c", 0},
      {Variant("last"), "c", 0},
      {Variant("2"), "", 5},  // a key, although it reads as a number
      {Variant(""), "", 5},
      {Variant(0), "", 9},
      {Variant(4), "", 9},
      {Variant(true), "", 9},  // -1
      {Variant(), "", 9},      // 0
      {Variant(1e10), "", 6},
      {Variant(Null{}), "", 13},
      {Variant(ObjectRef()), "", 13},
  };
  for (const auto& row : rows) {
    Names names = Three();
    if (row.error == 0) {
      EXPECT_EQ(names.Item(row.index), row.item);
      names.Remove(row.index);
      EXPECT_EQ(names.Count(), 2);
    } else {
      EXPECT_EQ(ErrorOf([&] { names.Item(row.index); }), row.error) << Describe(row.index);
      EXPECT_EQ(ErrorOf([&] { names.Remove(row.index); }), row.error) << Describe(row.index);
      EXPECT_EQ(names.Count(), 3);
    }
  }
}

TEST(KeyedCollection, ClearFreesItemsAndKeys) {
  auto item = std::make_shared<int>(7);
  KeyedCollection<std::shared_ptr<int>> collection;
  collection.Add(item, "Key");
  EXPECT_EQ(item.use_count(), 2);
  collection.Clear();
  EXPECT_EQ(item.use_count(), 1);
  EXPECT_EQ(collection.Count(), 0);
  collection.Add(item, "key");
  EXPECT_EQ(collection.Under("Key"), item);
}

TEST(KeyedCollection, AnItemsDestructorMayLookAtTheCollection) {
  KeyedCollection<std::shared_ptr<void>> collection;
  std::vector<std::int32_t> counts;
  const auto watched = [&] {
    return std::shared_ptr<void>(nullptr, [&](void*) { counts.push_back(collection.Count()); });
  };
  collection.Add(watched(), "Key");
  collection.Add(watched());
  collection.RemoveUnder("Key");
  collection.Clear();
  EXPECT_THAT(counts, ElementsAre(1, 0));
}

// A random walk beside a plain list of pairs.
TEST(KeyedCollection, AgreesWithAPlainListOverManyOperations) {
  std::uint32_t state = 1;
  const auto random = [&state](std::uint32_t below) {
    state = state * 1664525u + 1013904223u;
    return (state >> 8) % below;
  };
  Names names;
  std::vector<std::pair<std::string, std::string>> plain;  // key, item
  for (int step = 0; step < 5000; ++step) {
    const std::string key = random(2) ? "K" + std::to_string(random(50)) : "";
    const auto find = [&] {
      return std::ranges::find(plain, key, &std::pair<std::string, std::string>::first);
    };
    const auto position = static_cast<std::int32_t>(random(static_cast<std::uint32_t>(plain.size() + 3)));
    const bool inside = position >= 1 && position <= names.Count();
    if (random(3)) {
      const bool in_use = !key.empty() && find() != plain.end();
      const std::string item = std::to_string(step);
      EXPECT_EQ(ErrorOf([&] { names.Add(item, key, InsertPlace::After(position)); }), !inside  ? 9
                                                                                      : in_use ? 457
                                                                                               : 0);
      if (inside && !in_use) {
        plain.insert(plain.begin() + position, {key, item});
      } else if (!inside && !in_use) {
        names.Add(item, key);
        plain.emplace_back(key, item);
      }
    } else if (!key.empty()) {
      const auto found = find();
      EXPECT_EQ(ErrorOf([&] { names.RemoveUnder(key); }), found == plain.end() ? 5 : 0);
      if (found != plain.end()) plain.erase(found);
    } else {
      EXPECT_EQ(ErrorOf([&] { names.RemoveAt(position); }), inside ? 0 : 9);
      if (inside) plain.erase(plain.begin() + position - 1);
    }
    ASSERT_EQ(names.Count(), static_cast<std::int32_t>(plain.size()));
  }
  for (std::size_t i = 0; i < plain.size(); ++i) {
    EXPECT_EQ(names.At(static_cast<std::int32_t>(i + 1)), plain[i].second);
    if (!plain[i].first.empty()) {
      EXPECT_EQ(names.Under(plain[i].first), plain[i].second);
    }
  }
}

}  // namespace
}  // namespace levelwidgets
