#include <levelwidgets/platform/text/printable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace levelwidgets::text {
namespace {

using ::testing::EndsWith;
using ::testing::SizeIs;

TEST(Printable, WritesEveryControlCharacterAsAnEscape) {
  EXPECT_EQ(Printable("a\x1B[2Jb\x7F\r\n\t"), "a\\u001B[2Jb\\u007F\\u000D\\u000A\\u0009");
  EXPECT_EQ(Printable(std::string_view("\0", 1)), "\\u0000");
  EXPECT_EQ(Printable(" ~"), " ~");
}

TEST(Printable, WritesTheControlCharactersBehindAsciiToo) {
  EXPECT_EQ(Printable("\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0"), "\\u0080\\u009B\\u009F\xC2\xA0");
}

TEST(Printable, KeepsLettersOfAnyLanguage) { EXPECT_EQ(Printable("Größe 日本"), "Größe 日本"); }

TEST(Printable, WritesBytesThatAreNoTextAsEscapes) {
  EXPECT_EQ(Printable("a\xFF\x9B"
                      "b"),
            "a\\xFF\\x9B"
            "b");
}

TEST(Printable, LeavesTheMiddleOutOfWhatIsTooLong) {
  EXPECT_EQ(Printable("abcdefghijkl", 12), "abcdefghijkl");
  EXPECT_EQ(Printable("abcdefghijklm", 12), "abcdef ... jklm");
}

TEST(Printable, CutsNoCharacter) { EXPECT_EQ(Printable("aäääääääz", 6), "aä ... z"); }

TEST(PrintableLines, KeepsLinesAndTabs) { EXPECT_EQ(PrintableLines("a\tb\n\x1B\n"), "a\tb\n\\u001B\n"); }

TEST(PrintableLines, ShortensEachLineByItself) {
  EXPECT_EQ(PrintableLines("abcdefg\nabc", 6), "abc ... fg\nabc");
  EXPECT_THAT(PrintableLines(std::string(100'000'000, 'x')), SizeIs(1671));
}

TEST(PrintableLines, SaysHowManyLinesItLeavesOut) {
  EXPECT_EQ(PrintableLines("1\n2\n3", 9, 3), "1\n2\n3");
  EXPECT_EQ(PrintableLines("1\n2\n3", 9, 2), "1\n2\n... and 1 more line");
  EXPECT_THAT(PrintableLines(std::string(1'000'000, '\n')), EndsWith("\n... and 998001 more lines"));
}

}  // namespace
}  // namespace levelwidgets::text
