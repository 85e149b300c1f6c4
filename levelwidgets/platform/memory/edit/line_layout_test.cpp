#include <levelwidgets/platform/memory/edit/line_layout.h>

#include <gtest/gtest.h>

#include <random>

namespace levelwidgets::memory {
namespace {

// Every character is one pixel wide; blanks too.
class LineLayoutTest : public ::testing::Test {
 protected:
  LineLayoutTest() {
    measure.SetFont([](std::uint8_t) { return 1; }, 4);
  }

  void Set(std::string_view bytes, int wrap_width = 0) {
    text.Assign(bytes);
    lines.SetWrapWidth(wrap_width);
    lines.Rebuild();
  }
  LineChange Replace(std::size_t from, std::size_t to, std::string_view bytes) {
    text.Replace(from, to, bytes);
    measure.Changed(from);
    return lines.Update(from, to - from, bytes.size());
  }
  // The lines with their breaks.
  std::vector<std::string> Lines() const {
    std::vector<std::string> result;
    for (std::size_t line = 0; line < lines.Count(); ++line) {
      result.push_back(text.Copy(lines.Start(line), lines.Limit(line)));
    }
    return result;
  }
  using Texts = std::vector<std::string>;

  TextStore text;
  TextMeasure measure{text};
  LineLayout lines{text, measure};
};

TEST_F(LineLayoutTest, AnEmptyTextIsOneLine) {
  Set("");
  EXPECT_EQ(Lines(), (Texts{""}));
  EXPECT_EQ(lines.LineOf(0), 0u);
}

TEST_F(LineLayoutTest, OnlyCarriageReturnAndLineFeedTogetherEndALine) {
  Set("a\nb\rc\r\nd\r\r\ne\r\n");
  EXPECT_EQ(Lines(), (Texts{"a\nb\rc\r\n", "d\r\r\n", "e\r\n", ""}));
  EXPECT_EQ(lines.End(0), 5u);
  EXPECT_EQ(lines.End(1), 8u);
  EXPECT_EQ(lines.LineOf(6), 0u);
  EXPECT_EQ(lines.LineOf(7), 1u);
}

TEST_F(LineLayoutTest, ASingleLineKeepsItsBreaks) {
  lines.SetSingleLine(true);
  Set("a\r\nb");
  EXPECT_EQ(lines.Count(), 1u);
  EXPECT_EQ(lines.End(0), 4u);
}

TEST_F(LineLayoutTest, WrapsInFrontOfTheWordThatReachesOver) {
  Set("one two three", 7);
  EXPECT_EQ(Lines(), (Texts{"one two ", "three"}));
  EXPECT_TRUE(lines.IsWrapped(0));
  EXPECT_FALSE(lines.IsWrapped(1));
}

TEST_F(LineLayoutTest, DividesAWordThatIsTooWide) {
  Set("abcdefgh i", 3);
  EXPECT_EQ(Lines(), (Texts{"abc", "def", "gh ", "i"}));
}

TEST_F(LineLayoutTest, ACharacterWiderThanTheLineStandsAlone) {
  measure.SetFont([](std::uint8_t) { return 9; }, 0);
  Set("ab", 3);
  EXPECT_EQ(Lines(), (Texts{"a", "b"}));
}

TEST_F(LineLayoutTest, AShorterWordGoesBackToTheLineAbove) {
  Set("one twelve", 7);
  EXPECT_EQ(Lines(), (Texts{"one ", "twelve"}));
  const LineChange change = Replace(6, 10, "o");
  EXPECT_EQ(Lines(), (Texts{"one two"}));
  EXPECT_EQ(change.first, 0u);
  EXPECT_EQ(change.before, 2u);
  EXPECT_EQ(change.after, 1u);
}

TEST_F(LineLayoutTest, TypingInALineChangesThatLineOnly) {
  Set("aa\r\nbb\r\ncc");
  const LineChange change = Replace(5, 5, "x");
  EXPECT_EQ(change.first, 1u);
  EXPECT_EQ(change.before, 1u);
  EXPECT_EQ(change.after, 1u);
  EXPECT_EQ(Lines(), (Texts{"aa\r\n", "bxb\r\n", "cc"}));
}

TEST_F(LineLayoutTest, ABreakCanBeDividedAndJoined) {
  Set("a\r\nb");
  Replace(2, 2, "x");
  EXPECT_EQ(Lines(), (Texts{"a\rx\nb"}));
  Replace(2, 3, "");
  EXPECT_EQ(Lines(), (Texts{"a\r\n", "b"}));
}

TEST_F(LineLayoutTest, ManyChangesGiveWhatLayingOutAnewGives) {
  std::mt19937 random(11);
  for (const int width : {0, 1, 5, 12}) {
    Set("", width);
    for (int i = 0; i < 1500; ++i) {
      static const std::string_view kPieces[] = {"a", "word ",      "\r\n", "\r",    "\n",
                                                 " ", "longerword", "\t",   "x\r\ny"};
      const std::size_t from = random() % (text.Size() + 1);
      const std::size_t to = from + random() % std::min<std::size_t>(text.Size() - from + 1, 6);
      Replace(from, to, kPieces[random() % std::size(kPieces)]);
      const Texts updated = Lines();
      if (i % 7 != 0) continue;
      lines.Rebuild();
      ASSERT_EQ(updated, Lines()) << "width " << width << ", change " << i;
    }
  }
}

TEST_F(LineLayoutTest, TheIndexTakesFourBytesForALine) {
  std::string many;
  for (int i = 0; i < 100'000; ++i) many += "x\r\n";
  Set(many);
  EXPECT_EQ(lines.Count(), 100'001u);
  EXPECT_LE(lines.Index().Bytes(), 100'002u * 4);
}

}  // namespace
}  // namespace levelwidgets::memory
