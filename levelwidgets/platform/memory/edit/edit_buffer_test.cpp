#include <levelwidgets/platform/memory/edit/edit_buffer.h>

#include <gtest/gtest.h>

#include <levelwidgets/platform/memory/edit/words.h>

namespace levelwidgets::memory {
namespace {

class EditBufferTest : public ::testing::Test {
 protected:
  EditBufferTest() {
    buffer.Measure().SetFont([](std::uint8_t) { return 1; }, 0);
  }

  std::string Text() const { return buffer.Text().Copy(0, buffer.Size()); }
  void Type(std::string_view bytes) {
    for (const char& byte : bytes) buffer.ReplaceSelection({&byte, 1}, true, EditRun::kTyping);
  }
  void Backspace() {
    const std::size_t caret = buffer.Selected().caret;
    buffer.Select({caret, caret - 1});
    buffer.ReplaceSelection("", true, EditRun::kErasing);
  }

  EditBuffer buffer;
};

TEST_F(EditBufferTest, ATypedRunIsOneStep) {
  Type("abc");
  ASSERT_TRUE(buffer.Undo());
  EXPECT_EQ(Text(), "");
  EXPECT_FALSE(buffer.Undo());
  ASSERT_TRUE(buffer.Redo());
  EXPECT_EQ(Text(), "abc");
  EXPECT_FALSE(buffer.Redo());
}

TEST_F(EditBufferTest, ARunEndsWhereTheCaretIsMoved) {
  Type("ab");
  buffer.Select({0, 0});
  Type("x");
  buffer.Undo();
  EXPECT_EQ(Text(), "ab");
}

TEST_F(EditBufferTest, ATypedRunCanBeEnded) {
  Type("ab");
  buffer.EndRun();
  Type("c");
  buffer.Undo();
  EXPECT_EQ(Text(), "ab");
}

TEST_F(EditBufferTest, ErasingToTheLeftIsOneStep) {
  buffer.SetText("abcd");
  buffer.Select({3, 3});
  Backspace();
  Backspace();
  EXPECT_EQ(Text(), "ad");
  buffer.Undo();
  EXPECT_EQ(Text(), "abcd");
  EXPECT_EQ(buffer.Selected(), (Selection{1, 3}));
}

TEST_F(EditBufferTest, ErasingToTheRightIsOneStep) {
  buffer.SetText("abcd");
  for (int i = 0; i < 2; ++i) {
    buffer.Select({1, 2});
    buffer.ReplaceSelection("", true, EditRun::kErasing);
  }
  EXPECT_EQ(Text(), "ad");
  buffer.Undo();
  EXPECT_EQ(Text(), "abcd");
}

TEST_F(EditBufferTest, ManyStepsComeBackInOrder) {
  for (const char* piece : {"a", "b", "c"}) buffer.ReplaceSelection(piece, true, EditRun::kNone);
  buffer.Undo();
  EXPECT_EQ(Text(), "ab");
  buffer.Undo();
  EXPECT_EQ(Text(), "a");
  buffer.Redo();
  EXPECT_EQ(Text(), "ab");
}

TEST_F(EditBufferTest, AChangeThatCannotBeUndoneForgetsTheOthers) {
  Type("ab");
  buffer.ReplaceSelection("x", false, EditRun::kNone);
  EXPECT_FALSE(buffer.History().CanUndo());
}

TEST_F(EditBufferTest, TheOldestStepsAreForgotten) {
  for (std::size_t i = 0; i < EditHistory::kMostSteps + 5; ++i)
    buffer.ReplaceSelection("x", true, EditRun::kNone);
  std::size_t undone = 0;
  while (buffer.Undo()) ++undone;
  EXPECT_EQ(undone, EditHistory::kMostSteps);
  EXPECT_EQ(Text(), "xxxxx");
}

TEST_F(EditBufferTest, OnlyAsMuchTextIsTakenAsFitsIntoTheLines) {
  buffer.SetText("a\r\nb");
  buffer.Select({4, 4});
  EXPECT_EQ(buffer.FittingLines("cd", 2), 2u);
  EXPECT_EQ(buffer.FittingLines("c\r\nd", 2), 1u);
  EXPECT_EQ(buffer.FittingLines("c\r\nd", 3), 4u);
  EXPECT_EQ(Text(), "a\r\nb");
}

TEST_F(EditBufferTest, ACaretBehindAWrappedLineIsOnIt) {
  buffer.Lines().SetWrapWidth(2);
  buffer.SetText("abcd");
  buffer.Select({2, 2, true});
  EXPECT_EQ(buffer.CaretLine(), 0u);
  buffer.Select({2, 2, false});
  EXPECT_EQ(buffer.CaretLine(), 1u);
}

TEST_F(EditBufferTest, FindsTheWordAroundAPlace) {
  buffer.SetText("one two  three");
  const auto around = [&](std::size_t offset) {
    const WordRange word = WordAround(buffer.Text(), buffer.Lines(), offset);
    return buffer.Text().Copy(word.start, word.end);
  };
  EXPECT_EQ(around(0), "one ");
  EXPECT_EQ(around(5), "two  ");
  EXPECT_EQ(around(4), "two  ");
  EXPECT_EQ(around(8), "two  ");
  EXPECT_EQ(around(14), "three");
}

}  // namespace
}  // namespace levelwidgets::memory
