#include <levelwidgets/platform/text/letter_case.h>

#include <gtest/gtest.h>

namespace levelwidgets::text {
namespace {

TEST(LetterCaseTest, KnowsTheAlphabetsOfCodePages) {
  EXPECT_EQ(UpperCase(U'a'), U'A');
  EXPECT_EQ(UpperCase(U'\u00E9'), U'\u00C9');
  EXPECT_EQ(UpperCase(U'\u00F7'), U'\u00F7');
  EXPECT_EQ(UpperCase(U'\u00FF'), U'\u0178');
  EXPECT_EQ(LowerCase(U'\u0178'), U'\u00FF');
  EXPECT_EQ(UpperCase(U'\u0161'), U'\u0160');
  EXPECT_EQ(LowerCase(U'\u017D'), U'\u017E');
  EXPECT_EQ(UpperCase(U'\u03B1'), U'\u0391');
  EXPECT_EQ(LowerCase(U'\u0416'), U'\u0436');
  EXPECT_EQ(LowerCase(U'1'), U'1');
}

TEST(LetterCaseTest, EachCapitalOfACodePageIsReachedThereAndBack) {
  for (const auto& [first, last] : {std::pair{U'A', U'Z'},
                                    {U'\u00C0', U'\u00D6'},
                                    {U'\u0391', U'\u03A1'},
                                    {U'\u0401', U'\u040F'},
                                    {U'\u0410', U'\u042F'}}) {
    for (char32_t character = first; character <= last; ++character) {
      const char32_t lower = LowerCase(character);
      EXPECT_NE(lower, character) << static_cast<unsigned>(character);
      EXPECT_EQ(UpperCase(lower), character) << static_cast<unsigned>(character);
    }
  }
}

TEST(LetterCaseTest, TextsDifferInNothingElse) {
  EXPECT_TRUE(EqualIgnoringCase("STRA\xC3\x84", "stra\xC3\xA4"));
  EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
  EXPECT_FALSE(EqualIgnoringCase("", "a"));
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_EQ(MatchIgnoringCase("MAY 2024", "may"), 3u);
  EXPECT_EQ(MatchIgnoringCase("MA", "may"), 0u);
  EXPECT_EQ(MatchIgnoringCase("m\xC3\x84\xC3\xA4Z!", "M\xC3\xA4\xC3\x84z"), 6u);
  EXPECT_EQ(MatchIgnoringCase("[", "{"), 0u);
  EXPECT_EQ(MatchIgnoringCase("a", "\xC3\xA1"), 0u);
  EXPECT_EQ(UpperCase(std::string_view("\xD0\xB6\x80z")), "\xD0\x96\x80Z");  // an ill-formed byte stays
  EXPECT_EQ(LowerCase(std::string_view("\xC3\x84q")), "\xC3\xA4q");
}

}  // namespace
}  // namespace levelwidgets::text
