// What an edit box does by words and by lines.
#include <levelwidgets/platform/memory/edit_box_fixture.h>

namespace levelwidgets::memory {
namespace {

using Range = std::pair<int, int>;

class EditWordsTest : public EditHandTest {};

TEST_F(EditWordsTest, ADragAfterADoubleClickSelectsWholeWords) {
  Make(kEsAutoHScroll, "one two three four");
  Move(5);
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  desktop.Press(kLeftButton);
  EXPECT_EQ(Selected(), (Range{4, 8}));
  Move(9);
  EXPECT_EQ(Selected(), (Range{4, 14}));
  Move(1);  // the word that was begun with stays selected
  EXPECT_EQ(Selected(), (Range{0, 8}));
  Move(6);
  EXPECT_EQ(Selected(), (Range{4, 8}));
  desktop.Release(kLeftButton);
  Move(15);
  EXPECT_EQ(Selected(), (Range{4, 8}));
}

TEST_F(EditWordsTest, AnOrdinaryDragStillSelectsByCharacters) {
  Make(kEsAutoHScroll, "one two three four");
  Move(5);
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  desktop.Advance(1000);
  Move(1);
  desktop.Press(kLeftButton);
  Move(10);
  EXPECT_EQ(Selected(), (Range{1, 10}));
  desktop.Release(kLeftButton);
}

TEST_F(EditWordsTest, AThirdClickSelectsTheLine) {
  Make(kEsMultiLine | kEsAutoVScroll | kEsAutoHScroll, "first\r\nsecond line\r\nthird");
  Move(10);
  desktop.DoubleClick(PointOf(10));
  EXPECT_EQ(Selected(), (Range{7, 14}));
  desktop.Press(kLeftButton);
  EXPECT_EQ(Selected(), (Range{7, 18}));
  Move(22);  // dragging goes on by lines
  EXPECT_EQ(Selected(), (Range{7, 25}));
  desktop.Release(kLeftButton);
}

TEST_F(EditWordsTest, AThirdClickThatComesLateOrElsewhereIsAFirstOne) {
  Make(kEsAutoHScroll, "one two three four");
  desktop.DoubleClick(PointOf(5));
  desktop.Advance(501);
  desktop.Press(kLeftButton);
  EXPECT_EQ(Selected(), (Range{5, 5}));
  desktop.Release(kLeftButton);
  desktop.Advance(1000);
  desktop.DoubleClick(PointOf(5));
  Move(10);
  desktop.Press(kLeftButton);
  EXPECT_EQ(Selected(), (Range{10, 10}));
  desktop.Release(kLeftButton);
}

TEST_F(EditWordsTest, APasswordIsOneWord) {
  Make(kEsAutoHScroll | kEsPassword, "my old secret");
  Select(13, 13);
  desktop.Key(kKeyLeft, kCtrlMask);
  EXPECT_EQ(Selected(), (Range{0, 0}));
  desktop.Key(kKeyRight, kCtrlMask | kShiftMask);
  EXPECT_EQ(Selected(), (Range{0, 13}));
  Select(0, 0);
  desktop.DoubleClick(PointOf(5));
  EXPECT_EQ(Selected(), (Range{0, 13}));
  Select(8, 8);
  desktop.Key(kKeyBackspace, kCtrlMask);
  EXPECT_EQ(Text(), "ecret");
}

TEST_F(EditWordsTest, CtrlBackspaceErasesTheWordBeforeTheCaret) {
  Make(kEsMultiLine | kEsAutoHScroll, "one two\r\nthree");
  Select(7, 7);
  desktop.Key(kKeyBackspace, kCtrlMask);
  EXPECT_EQ(Text(), "one \r\nthree");
  desktop.Key(kKeyBackspace, kCtrlMask);
  EXPECT_EQ(Text(), "\r\nthree");
  Send(kEmUndo);
  EXPECT_EQ(Text(), "one \r\nthree");
  Select(1, 3);  // exactly what is selected
  desktop.Key(kKeyBackspace, kCtrlMask);
  EXPECT_EQ(Text(), "o \r\nthree");
  Send(kEmSetReadOnly, 1);
  desktop.Key(kKeyBackspace, kCtrlMask);
  EXPECT_EQ(Text(), "o \r\nthree");
}

TEST_F(EditWordsTest, CtrlTabTypesATabIntoManyLinesOnly) {
  Make(kEsMultiLine | kEsAutoHScroll, "ab");
  Select(1, 1);
  desktop.Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(Text(), "a\tb");
  desktop.Key(kKeyTab, kCtrlMask | kShiftMask);
  EXPECT_EQ(Text(), "a\tb");
  Send(kEmSetReadOnly, 1);
  desktop.Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(Text(), "a\tb");
  windows.DestroyWindow(edit);
  Make(kEsAutoHScroll, "ab");
  desktop.Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(Text(), "ab");
}

}  // namespace
}  // namespace levelwidgets::memory
