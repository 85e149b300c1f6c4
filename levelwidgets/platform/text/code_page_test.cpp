#include <gtest/gtest.h>

#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::text {
namespace {

TEST(CodePageTest, EveryByteReturnsFromUtf8) {
  for (const int number : {1250, 1251, 1252, 1253, 1254, 437, 850}) {
    const CodePage page(number);
    ASSERT_EQ(page.Number(), number);
    for (int i = 1; i < 256; ++i) {
      const std::string byte(1, static_cast<char>(i));
      EXPECT_EQ(page.ToBytes(page.ToUtf8(byte)), byte) << number << " " << i;
    }
  }
}

TEST(CodePageTest, EachPageHasItsCharacters) {
  EXPECT_EQ(CodePage(1250).ToBytes("\xC5\x99"), "\xF8");      // r with caron
  EXPECT_EQ(CodePage(1251).ToBytes("\xD0\x96"), "\xC6");      // Cyrillic zhe
  EXPECT_EQ(CodePage(1252).ToBytes("\xE2\x82\xAC"), "\x80");  // euro
  EXPECT_EQ(CodePage(1253).ToBytes("\xCE\xA9"), "\xD9");      // omega
  EXPECT_EQ(CodePage(1254).ToBytes("\xC4\x9F"), "\xF0");      // g with breve
  EXPECT_EQ(CodePage(437).ToBytes("\xC3\xA9"), "\x82");       // e with acute
  EXPECT_EQ(CodePage(850).ToBytes("\xC3\x98"), "\x9D");       // O with stroke
}

TEST(CodePageTest, ACharacterOutsideThePageBecomesAQuestionMark) {
  const CodePage page(1252);
  EXPECT_EQ(page.ToBytes("a\xD0\x96\xF0\x9F\x98\x80z"), "a??z");
}

TEST(CodePageTest, IllFormedBytesBecomeQuestionMarks) {
  const CodePage page(1252);
  EXPECT_EQ(page.ToBytes("\xC3"), "?");
  EXPECT_EQ(page.ToBytes("\xE2\x82z"), "??z");
  EXPECT_EQ(page.ToBytes("\xC0\x80"), "??") << "overlong";
  EXPECT_EQ(page.ToBytes("\xED\xA0\x80"), "???") << "surrogate";
  EXPECT_EQ(page.ToBytes("\xFF\x80"), "??");
}

TEST(CodePageTest, NumbersThatAreNoSingleByteCodePageMeanWestern) {
  for (const int number : {0, -5, 932, 936, 65001, 123456})
    EXPECT_EQ(CodePage(number).Number(), 1252) << number;
}

TEST(CodePageTest, CharsetsOfOneScriptHaveTheirOwnPage) {
  EXPECT_EQ(CodePageOfCharset(204, 1252), 1251);
  EXPECT_EQ(CodePageOfCharset(238, 1252), 1250);
  EXPECT_EQ(CodePageOfCharset(0, 1251), 1251);
  EXPECT_EQ(CodePageOfCharset(1, 1253), 1253);
}

}  // namespace
}  // namespace levelwidgets::text
