#include <levelwidgets/platform/text/utf8.h>

#include <gtest/gtest.h>

namespace levelwidgets::text {
namespace {

TEST(Utf8Test, TakesOneCharacterAtATime) {
  std::string_view rest = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
  EXPECT_EQ(CharacterCount(rest), 4u);
  for (const char32_t expected : {U'a', U'\u00E4', U'\u20AC', U'\U0001F600'}) {
    std::string written;
    AppendCharacter(expected, written);
    EXPECT_EQ(FirstCharacter(rest), written);
    EXPECT_EQ(TakeCharacter(rest), expected);
  }
  EXPECT_EQ(FirstCharacter(rest), "");
}

TEST(Utf8Test, AByteThatBeginsNoCharacterStandsForItself) {
  for (const std::string_view ill_formed :
       {"\x80", "\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5", "\xE2\x82", "\xC3"}) {
    std::string_view rest = ill_formed;
    EXPECT_EQ(TakeCharacter(rest), kIllFormedByte + static_cast<unsigned char>(ill_formed[0]));
    EXPECT_EQ(rest.size(), ill_formed.size() - 1);
    EXPECT_EQ(FindIllFormed("ok" + std::string(ill_formed)), 2u);
    std::string written;
    for (rest = ill_formed; !rest.empty();) AppendCharacter(TakeCharacter(rest), written);
    EXPECT_EQ(written, ill_formed);
  }
  EXPECT_EQ(FindIllFormed("a\xC3\xA4"), std::nullopt);
}

}  // namespace
}  // namespace levelwidgets::text
