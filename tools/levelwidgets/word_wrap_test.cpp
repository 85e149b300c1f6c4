#include <gtest/gtest.h>

#include <tools/levelwidgets/word_wrap.h>

namespace levelwidgets {
namespace {

TEST(WordWrap, BreaksLinesBetweenWordsAndLeavesExamples) {
  EXPECT_EQ(Wrapped("one two three", 7), "one two\nthree");
  EXPECT_EQ(Wrapped("one two three", 8), "one two\nthree");
  EXPECT_EQ(Wrapped("one two three", 13), "one two three");
  EXPECT_EQ(Wrapped("a longestword b", 5), "a\nlongestword\nb");
  EXPECT_EQ(Wrapped("first one\n\nExample:\n  levelwidgets run a.lua", 8),
            "first\none\n\nExample:\n  levelwidgets run a.lua");
  EXPECT_EQ(Wrapped("", 8), "");
}

}  // namespace
}  // namespace levelwidgets
