#include <levelwidgets/controls/dropdown/list_window.h>

#include <gtest/gtest.h>

#include <levelwidgets/frame/input.h>

namespace levelwidgets {
namespace {

TEST(ListWindow, HighlightsOnlyItemsThatThereAre) {
  EXPECT_EQ(HighlightFor(-1, 5), 0);
  EXPECT_EQ(HighlightFor(0, 5), 0);
  EXPECT_EQ(HighlightFor(5, 5), 5);
  EXPECT_EQ(HighlightFor(6, 5), 5);
  EXPECT_EQ(HighlightFor(1, 0), 0);
}

TEST(ListWindow, ScrollsUpToAnItemAboveTheFirstRow) {
  EXPECT_EQ(FirstRowFor(4, 5), 4);
  EXPECT_EQ(FirstRowFor(5, 5), std::nullopt);
  EXPECT_EQ(FirstRowFor(0, 5), 1);
  EXPECT_EQ(FirstRowFor(0, 1), 1);
}

TEST(ListWindow, ScrollsDownOneStepLateAndThenByTwo) {
  EXPECT_EQ(FirstRowFor(8, 1), std::nullopt);
  EXPECT_EQ(FirstRowFor(9, 1), std::nullopt);  // just out of sight
  EXPECT_EQ(FirstRowFor(10, 1), 3);
  EXPECT_EQ(FirstRowFor(100, 1), 93);
}

TEST(ListWindow, ArrowsMoveByOneItemAndStopAtTheEnds) {
  EXPECT_EQ(HighlightAfterKey(kKeyUp, 3, 9), 2);
  EXPECT_EQ(HighlightAfterKey(kKeyUp, 2, 9), 1);
  EXPECT_EQ(HighlightAfterKey(kKeyUp, 1, 9), std::nullopt);
  EXPECT_EQ(HighlightAfterKey(kKeyUp, 0, 9), std::nullopt);
  EXPECT_EQ(HighlightAfterKey(kKeyDown, 0, 9), 1);
  EXPECT_EQ(HighlightAfterKey(kKeyDown, 8, 9), 9);
  EXPECT_EQ(HighlightAfterKey(kKeyDown, 9, 9), std::nullopt);
}

TEST(ListWindow, PagesMoveBySevenItemsOrToTheEnd) {
  EXPECT_EQ(HighlightAfterKey(kKeyPageUp, 20, 30), 13);
  EXPECT_EQ(HighlightAfterKey(kKeyPageUp, 9, 30), 2);
  EXPECT_EQ(HighlightAfterKey(kKeyPageUp, 8, 30), 1);
  EXPECT_EQ(HighlightAfterKey(kKeyPageUp, 2, 30), 1);
  EXPECT_EQ(HighlightAfterKey(kKeyPageUp, 1, 30), std::nullopt);
  EXPECT_EQ(HighlightAfterKey(kKeyPageUp, 0, 30), std::nullopt);
  EXPECT_EQ(HighlightAfterKey(kKeyPageDown, 0, 30), 7);
  EXPECT_EQ(HighlightAfterKey(kKeyPageDown, 22, 30), 29);
  EXPECT_EQ(HighlightAfterKey(kKeyPageDown, 23, 30), 30);
  EXPECT_EQ(HighlightAfterKey(kKeyPageDown, 29, 30), 30);
  EXPECT_EQ(HighlightAfterKey(kKeyPageDown, 30, 30), std::nullopt);
  EXPECT_EQ(HighlightAfterKey(kKeyPageDown, 0, 3), 3);
}

TEST(ListWindow, HomeTakesTheHighlightAwayAndEndMovesItToTheLastItem) {
  EXPECT_EQ(HighlightAfterKey(kKeyHome, 5, 9), 0);
  EXPECT_EQ(HighlightAfterKey(kKeyEnd, 0, 9), 9);
  EXPECT_EQ(HighlightAfterKey(kKeyEnter, 5, 9), std::nullopt);
}

TEST(ListWindow, ThePointerHighlightsTheRowUnderIt) {
  constexpr TwipSize kSize{Twips(2880), Twips(1560)};
  const auto at = [&](float x, float y) { return HighlightAt({Twips(x), Twips(y)}, kSize, 195, 3, 20); };
  EXPECT_EQ(at(0, 0), 3);
  EXPECT_EQ(at(100, 194), 3);
  EXPECT_EQ(at(100, 195), 4);
  EXPECT_EQ(at(2879, 1559), 10);
  EXPECT_EQ(at(100, 194.4F), 3);
  EXPECT_EQ(at(100, 194.6F), 4);  // places are whole when they are divided
}

TEST(ListWindow, ThePointerBesideThePanelHighlightsNothingNew) {
  constexpr TwipSize kSize{Twips(2880), Twips(1560)};
  EXPECT_EQ(HighlightAt({Twips(-1), Twips(10)}, kSize, 195, 3, 20), std::nullopt);
  EXPECT_EQ(HighlightAt({Twips(2880), Twips(10)}, kSize, 195, 3, 20), std::nullopt);
}

TEST(ListWindow, ThePointerAboveThePanelHighlightsNoneAndBelowItTheLastRow) {
  constexpr TwipSize kSize{Twips(2880), Twips(1560)};
  EXPECT_EQ(HighlightAt({Twips(10), Twips(-1)}, kSize, 195, 3, 20), 0);
  EXPECT_EQ(HighlightAt({Twips(10), Twips(1560)}, kSize, 195, 3, 20), 10);
  EXPECT_EQ(HighlightAt({Twips(10), Twips(9000)}, kSize, 195, 15, 20), 20);
}

}  // namespace
}  // namespace levelwidgets
