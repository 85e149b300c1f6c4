#include <levelwidgets/platform/memory/edit/text_measure.h>

#include <gtest/gtest.h>

#include <random>

namespace levelwidgets::memory {
namespace {

// "i" is 2 pixels wide, "m" 6, all else 4; tab stops every 10 pixels.
class TextMeasureTest : public ::testing::Test {
 protected:
  TextMeasureTest() {
    measure.SetFont(
        [this](std::uint8_t byte) {
          ++asked;
          return byte == 'i' ? 2 : byte == 'm' ? 6 : 4;
        },
        10);
  }

  TextStore text;
  TextMeasure measure{text};
  int asked = 0;
};

TEST_F(TextMeasureTest, AddsWidthsUp) {
  text.Assign("imx");
  EXPECT_EQ(measure.XOf(0, 0), 0);
  EXPECT_EQ(measure.XOf(0, 3), 12);
  EXPECT_EQ(measure.XOf(0, 1), 2);
  EXPECT_EQ(measure.XOf(1, 3), 10);
}

TEST_F(TextMeasureTest, AsksOnceForEachCharacter) {
  text.Assign("xxxxxyyyyy");
  measure.XOf(0, 10);
  measure.XOf(5, 10);
  EXPECT_EQ(asked, 2);
}

TEST_F(TextMeasureTest, ATabReachesToTheNextStop) {
  text.Assign("x\tx\t\tx");
  EXPECT_EQ(measure.XOf(0, 2), 10);
  EXPECT_EQ(measure.XOf(0, 4), 20);
  EXPECT_EQ(measure.XOf(0, 5), 30);
  EXPECT_EQ(measure.XOf(0, 3), 14);
}

TEST_F(TextMeasureTest, TheMiddleOfACharacterDecidesTheNearestPlace) {
  text.Assign("mmm");
  EXPECT_EQ(measure.Nearest(0, 3, 2), 0u);
  EXPECT_EQ(measure.Nearest(0, 3, 3), 1u);
  EXPECT_EQ(measure.Nearest(0, 3, -5), 0u);
  EXPECT_EQ(measure.Nearest(0, 3, 99), 3u);
  EXPECT_EQ(measure.Nearest(0, 2, 99), 2u);
}

TEST_F(TextMeasureTest, FindsTheLastPlaceThatIsNotBeyondAWidth) {
  text.Assign("mmm");
  EXPECT_EQ(measure.Before(0, 3, 5), 0u);
  EXPECT_EQ(measure.Before(0, 3, 6), 1u);
  EXPECT_EQ(measure.Before(0, 3, 18), 3u);
}

TEST_F(TextMeasureTest, AMaskGivesEveryCharacterOneWidth) {
  text.Assign("im");
  measure.SetMask('m');
  EXPECT_EQ(measure.XOf(0, 2), 12);
  measure.SetMask(0);
  EXPECT_EQ(measure.XOf(0, 2), 8);
}

TEST_F(TextMeasureTest, RemembersWidthsWithoutChangingResults) {
  std::mt19937 random(3);
  text.Assign("");
  for (int i = 0; i < 2000; ++i) {
    const std::size_t at = random() % (text.Size() + 1);
    const char byte = "im\tx"[random() % 4];
    text.Replace(at, at, {&byte, 1});
    measure.Changed(at);
    const std::size_t start = random() % (text.Size() + 1);
    const std::size_t offset = start + random() % (text.Size() - start + 1);
    int x = 0;
    for (std::size_t k = start; k < offset; ++k) x = measure.After(x, text.CodeAt(k));
    ASSERT_EQ(measure.XOf(start, offset), x);
  }
}

// Of "a日本z" the bytes are a, 93 FA, 96 7B, z. Pairs are 9 pixels wide, other characters 4.
class TextMeasurePairs : public ::testing::Test {
 protected:
  TextMeasurePairs() {
    text.SetCodePage(page);
    SetWidth(9);
  }
  void SetWidth(int of_pairs) {
    measure.SetFont([of_pairs](text::CharacterCode code) { return code > 0xFF ? of_pairs : 4; }, 10);
  }
  void Assign(std::string_view utf8) { text.Assign(page.ToBytes(utf8)); }

  const text::CodePage page{932};
  TextStore text;
  TextMeasure measure{text};
};

TEST_F(TextMeasurePairs, AreTheSameOnTheWayBack) {
  Assign("a\u65E5\u672Ca\u65E5\u672Cz");
  EXPECT_EQ(measure.XOf(0, 11), 48);
  for (const auto& [offset, x] : {std::pair{10, 44}, {8, 35}, {6, 26}, {5, 22}, {3, 13}, {1, 4}, {0, 0}}) {
    EXPECT_EQ(measure.XOf(0, static_cast<std::size_t>(offset)), x) << offset;
  }
  measure.XOf(0, 11);
  EXPECT_EQ(measure.Before(0, 11, 34), 6u);
}

TEST_F(TextMeasurePairs, AreMeasuredAnewInAnotherFont) {
  Assign("\u65E5\u672C");
  EXPECT_EQ(measure.XOf(0, 4), 18);
  SetWidth(20);
  EXPECT_EQ(measure.XOf(0, 4), 40);
}

TEST_F(TextMeasurePairs, AreAsWideAsTheMaskOfAPassword) {
  Assign("a\u65E5z");
  measure.SetMask('*');
  EXPECT_EQ(measure.XOf(0, 3), 8);
  EXPECT_EQ(measure.XOf(0, 4), 12);
}

TEST_F(TextMeasurePairs, TheNearestPlaceIsBeforeThemOrBehindThem) {
  Assign("a\u65E5z");
  EXPECT_EQ(measure.Nearest(0, 4, 8), 1u);
  EXPECT_EQ(measure.Nearest(0, 4, 9), 3u);
  EXPECT_EQ(measure.Nearest(0, 4, 13), 3u);
}

}  // namespace
}  // namespace levelwidgets::memory
