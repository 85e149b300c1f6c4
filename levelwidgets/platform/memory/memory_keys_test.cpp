#include <gtest/gtest.h>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/memory/memory_keys.h>

namespace levelwidgets::memory {
namespace {

TEST(MemoryKeysTest, LettersFollowShift) {
  EXPECT_EQ(CharacterOfKey('Q', 0), 'q');
  EXPECT_EQ(CharacterOfKey('Q', kShiftMask), 'Q');
  EXPECT_EQ(CharacterOfKey('Q', kAltMask), 'q');
}

TEST(MemoryKeysTest, CtrlGivesControlCharacters) {
  EXPECT_EQ(CharacterOfKey('A', kCtrlMask), char{1});
  EXPECT_EQ(CharacterOfKey('Z', kCtrlMask | kShiftMask), char{26});
  EXPECT_EQ(CharacterOfKey(kKeyEnter, kCtrlMask), '\n');
  EXPECT_EQ(CharacterOfKey('1', kCtrlMask), std::nullopt);
  EXPECT_EQ(CharacterOfKey('A', kCtrlMask | kAltMask), std::nullopt);
}

TEST(MemoryKeysTest, EditingKeysTypeTheirControlCharacters) {
  EXPECT_EQ(CharacterOfKey(kKeyEnter, 0), char{13});
  EXPECT_EQ(CharacterOfKey(kKeyEscape, 0), char{27});
  EXPECT_EQ(CharacterOfKey(kKeyBackspace, 0), char{8});
  EXPECT_EQ(CharacterOfKey(kKeyTab, 0), char{9});
  EXPECT_EQ(CharacterOfKey(kKeySpace, 0), ' ');
}

TEST(MemoryKeysTest, OtherKeysTypeNoCharacter) {
  for (const int code : {int{kKeyDelete}, int{kKeyLeft}, int{kKeyHome}, int{kKeyF4}, int{kKeyShift}}) {
    EXPECT_EQ(CharacterOfKey(code, 0), std::nullopt) << code;
  }
}

TEST(MemoryKeysTest, EveryPrintableCharacterHasAKeyThatTypesIt) {
  for (char c = ' '; c <= '~'; ++c) {
    const auto stroke = KeyOfCharacter(c);
    ASSERT_TRUE(stroke) << c;
    EXPECT_EQ(CharacterOfKey(stroke->code, stroke->shift), c);
  }
}

TEST(MemoryKeysTest, TheNumberPadTypesDigits) {
  EXPECT_EQ(CharacterOfKey(96, 0), '0');
  EXPECT_EQ(CharacterOfKey(105, 0), '9');
  EXPECT_EQ(CharacterOfKey(107, 0), '+');
}

}  // namespace
}  // namespace levelwidgets::memory
