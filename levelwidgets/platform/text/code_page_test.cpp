#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <levelwidgets/platform/text/code_page.h>

namespace levelwidgets::text {
namespace {

TEST(CodePageTest, EveryByteReturnsFromUtf8) {
  for (const int number : {1250, 1251, 1252, 1253, 1254, 437, 850, 866, 28591}) {
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

TEST(CodePageTest, AControlCharacterOutsideThePageIsNoByteOfTheSameNumber) {
  EXPECT_EQ(CodePage(1252).ToBytes("\u007F\u0080\u0081"), "\x7F?\x81");
}

TEST(CodePageTest, IllFormedBytesBecomeQuestionMarks) {
  const CodePage page(1252);
  EXPECT_EQ(page.ToBytes("\xC3"), "?");
  EXPECT_EQ(page.ToBytes("\xE2\x82z"), "??z");
  EXPECT_EQ(page.ToBytes("\xC0\x80"), "??") << "overlong";
  EXPECT_EQ(page.ToBytes("\xED\xA0\x80"), "???") << "surrogate";
  EXPECT_EQ(page.ToBytes("\xFF\x80"), "??");
}

TEST(CodePageTest, NumbersThatAreNoCodePageHereMeanWestern) {
  for (const int number : {0, -5, 65001, 1200, 123456}) {
    EXPECT_EQ(CodePage(number).Number(), 1252) << number;
    EXPECT_FALSE(IsCodePage(number)) << number;
  }
  for (const int number : {1252, 1250, 874, 932}) EXPECT_TRUE(IsCodePage(number)) << number;
}

TEST(CodePageTest, CharactersOfEastAsiaArePairsOfBytes) {
  EXPECT_EQ(CodePage(932).ToBytes("\u65E5\u672C"), "\x93\xFA\x96\x7B");
  EXPECT_EQ(CodePage(932).ToBytes("\uFF71"), "\xB1") << "half-width letters are single bytes";
  EXPECT_EQ(CodePage(936).ToBytes("\u4E2D"), "\xD6\xD0");
  EXPECT_EQ(CodePage(949).ToBytes("\uD55C"), "\xC7\xD1");
  EXPECT_EQ(CodePage(950).ToBytes("\u4E2D"), "\xA4\xA4");
  for (const int number : {932, 936, 949, 950}) {
    const CodePage page(number);
    EXPECT_EQ(page.Number(), number);
    EXPECT_TRUE(page.HasPairs());
    EXPECT_EQ(page.ToUtf8(page.ToBytes("2024\u5E745\u670815\u65E5 \\~")), "2024\u5E745\u670815\u65E5 \\~");
    EXPECT_EQ(page.ToBytes("\u05D0"), "?");
  }
  EXPECT_FALSE(CodePage(1252).HasPairs());
}

TEST(CodePageTest, SecondBytesReachFrom40ToFE) {
  const CodePage japanese(932);
  EXPECT_EQ(japanese.ToBytes("\u30A1"), "\x83\x40");
  EXPECT_TRUE(japanese.IsPair('\x83', '\x40'));
  EXPECT_FALSE(japanese.IsPair('\x83', '\x3F'));
  EXPECT_EQ(CodePage(936).ToBytes("\u5265"), "\xB0\xFE");
}

TEST(CodePageTest, ACharacterWithSeveralCodesHasTheFirst) {
  EXPECT_EQ(CodePage(932).ToUtf8("\x81\xBE\x87\x9C"), "\u222A\u222A");
  EXPECT_EQ(CodePage(932).ToBytes("\u222A"), "\x81\xBE");
  EXPECT_EQ(CodePage(932).ToBytes("\uFFFD"), "?") << "the character that stands for pairs without a meaning";
}

TEST(CodePageTest, EveryPairReturnsFromUtf8AsTheSameCharacter) {
  for (const int number : {932, 936, 949, 950}) {
    const CodePage page(number);
    int pairs = 0;
    for (int code = 0x8100; code <= 0xFFFF; ++code) {
      std::string bytes{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
      std::string_view rest = bytes;
      if (page.TakeCode(rest) != code) continue;
      const std::string text = page.ToUtf8(bytes);
      if (text == "\uFFFD") continue;  // no character has it
      ++pairs;
      ASSERT_EQ(page.ToUtf8(page.ToBytes(text)), text) << std::hex << number << " " << code;
    }
    EXPECT_GT(pairs, 7000) << number;
  }
}

TEST(CodePageTest, AFirstByteWithoutASecondIsACharacterOfItsOwn) {
  const CodePage page(932);
  const auto codes = [&](std::string_view bytes) {
    std::vector<int> found;
    while (!bytes.empty()) found.push_back(page.TakeCode(bytes));
    return found;
  };
  EXPECT_EQ(codes("a\x93\xFA\x93"), (std::vector<int>{'a', 0x93FA, 0x93}));
  EXPECT_EQ(codes("\x93\r\n"), (std::vector<int>{0x93, '\r', '\n'}));
  EXPECT_EQ(codes("\x93&"), (std::vector<int>{0x93, '&'}));
}

TEST(CodePageTest, ASecondByteIsToldFromAFirstByWhatIsBeforeIt) {
  const CodePage page(932);
  // In 0x8393 and 0x9383 each byte may be either.
  for (const std::string bytes :
       {"a\x83\x93\x83\x93z", "\x83\x93\x93\x83\x41\x93\x83", "\x96\x7B\x7B\x83", "\x83\x40\x40"}) {
    std::vector<bool> expected(bytes.size());
    for (std::string_view rest = bytes; !rest.empty();) {
      const std::size_t at = bytes.size() - rest.size();
      if (page.TakeCode(rest) > 0xFF) expected[at + 1] = true;
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      EXPECT_EQ(page.IsSecond([&](std::size_t at) { return bytes[at]; }, i), expected[i])
          << bytes << " " << i;
    }
  }
}

TEST(CodePageTest, CharsetsOfOneScriptHaveTheirOwnPage) {
  const std::vector<std::pair<int, int>> pages{{161, 1253}, {162, 1254}, {163, 1258},
                                               {177, 1255}, {178, 1256}, {186, 1257},
                                               {204, 1251}, {222, 874},  {238, 1250}};
  for (const auto& [charset, page] : pages) EXPECT_EQ(CodePageOfCharset(charset, 1252), page) << charset;
  for (const int system : {1251, 1253}) {
    EXPECT_EQ(CodePageOfCharset(0, system), system);
    EXPECT_EQ(CodePageOfCharset(1, system), system);
  }
}

}  // namespace
}  // namespace levelwidgets::text
