#include <levelwidgets/controls/dropdown/completion.h>

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace levelwidgets {

void PrintTo(const EditedText& text, std::ostream* out) {
  *out << '"' << text.text << "\" " << text.start << " " << text.length;
}

namespace {

const std::vector<std::string> kFruit{"Banana", "APPLE", "Apricot", "Äpfel", "Straße"};

EditedText Typed(const EditedText& before, std::string_view typed) { return Complete(before, typed, kFruit); }

TEST(Completion, KeepsTheCaseOfWhatWasTypedAndTakesTheRestFromTheItem) {
  const EditedText first = Typed({}, "a");
  EXPECT_EQ(first, (EditedText{"aPPLE", 1, 4}));
  EXPECT_EQ(Typed(first, "p"), (EditedText{"apPLE", 2, 3}));
}

TEST(Completion, TheFirstItemThatBeginsSoWins) {
  EXPECT_EQ(Typed({"ap", 2, 0}, "R"), (EditedText{"apRicot", 3, 4}));
  EXPECT_EQ(Typed({}, "A"), (EditedText{"APPLE", 1, 4}));
}

TEST(Completion, AWholeItemIsCompletedByNothing) {
  EXPECT_EQ(Typed({"Banan", 5, 0}, "a"), (EditedText{"Banana", 6, 0}));
}

TEST(Completion, WithoutAMatchTheCaretStandsBehindWhatWasTyped) {
  EXPECT_EQ(Typed({}, "x"), (EditedText{"x", 1, 0}));
  EXPECT_EQ(Typed({"Banana", 6, 0}, "s"), (EditedText{"Bananas", 7, 0}));
  EXPECT_EQ(Typed({"xz", 1, 0}, "y"), (EditedText{"xyz", 2, 0}));
}

TEST(Completion, WhatIsSelectedIsReplaced) {
  EXPECT_EQ(Typed({"xBnana", 0, 1}, "B"), (EditedText{"BBnana", 1, 0}));
  EXPECT_EQ(Typed({"anything", 0, 8}, "b"), (EditedText{"banana", 1, 5}));
}

TEST(Completion, TextBehindTheSelectionCountsForTheMatch) {
  EXPECT_EQ(Typed({"Bnana", 1, 0}, "a"), (EditedText{"Banana", 6, 0}));
}

TEST(Completion, PlacesCountInCharactersNotInBytes) {
  EXPECT_EQ(Typed({}, "ä"), (EditedText{"äpfel", 1, 4}));
  EXPECT_EQ(Typed({"äp", 2, 0}, "F"), (EditedText{"äpFel", 3, 2}));
  EXPECT_EQ(Typed({"Straße", 4, 2}, "ß"), (EditedText{"Straße", 5, 1}));
  EXPECT_EQ(Typed({"üüü", 1, 1}, "é"), (EditedText{"üéü", 2, 0}));
}

TEST(Completion, PlacesBeyondTheTextAreItsEnd) {
  EXPECT_EQ(Typed({"B", 9, 9}, "a"), (EditedText{"Banana", 2, 4}));
}

TEST(Completion, AnEmptyListCompletesNothing) { EXPECT_EQ(Complete({}, "a", {}), (EditedText{"a", 1, 0})); }

}  // namespace
}  // namespace levelwidgets
