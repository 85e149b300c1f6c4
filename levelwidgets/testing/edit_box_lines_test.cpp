// The lines of edit boxes, how they are scrolled and where they are: one table for every desktop.
#include <gtest/gtest.h>

#include <levelwidgets/testing/edit_box_fixture.h>

namespace levelwidgets::testing {
namespace {

using enum EditBoxKind;

using EditBoxLinesTest = EditBoxTest;

TEST_F(EditBoxLinesTest, LinesAreCountedAndFound) {
  const EditBoxRow rows[] = {
      {"an empty text has one line", kMulti, "", "?lines ?index(0) ?linelen(0)", "| 1 0 0"},
      {"lines are counted", kMulti, "a/b/c", "?lines", "|a/b/c 3"},
      {"a last line break begins a line", kMulti, "a/", "?lines ?index(1) ?linelen(3)", "|a/ 2 3 0"},
      {"a single line is one", kSingle, "a/b", "?lines", "|a/b 1"},
      {"where lines start", kMulti, "ab/cde/f", "?index(0) ?index(1) ?index(2)", "|ab/cde/f 0 4 9"},
      {"where no line starts", kMulti, "ab/cd", "?index(2) ?index(99)", "|ab/cd -1 -1"},
      {"the caret's line", kMulti, "ab/cde/f", "sel(5,5) ?index(-1) ?line(-1)", "ab/c|de/f 4 1"},
      {"line of a character", kMulti, "ab/cd", "?line(0) ?line(1) ?line(2) ?line(4) ?line(6)",
       "|ab/cd 0 0 0 1 1"},
      {"the line feed is on the line it ends", kMulti, "ab/cd", "?line(3)", "|ab/cd 0"},
      {"beyond the text it is the last line", kMulti, "ab/cd", "?line(99)", "|ab/cd 1"},
      {"with a selection it is where that starts", kMulti, "ab/cd/ef", "sel(1,9) ?line(-1)", "a[b/cd/e]f 0"},
      {"lengths", kMulti, "ab/cde/", "?linelen(0) ?linelen(4) ?linelen(5) ?linelen(9)", "|ab/cde/ 2 3 3 0"},
      {"length of a line by its break", kMulti, "ab/cde", "?linelen(2) ?linelen(3)", "|ab/cde 2 2"},
      {"length beyond the text", kMulti, "ab/cde", "?linelen(99)", "|ab/cde 0", Wine("|ab/cde 3")},
      {"what is not selected of the selection's lines", kMulti, "abcd/efgh/ij", "sel(1,8) ?linelen(-1)",
       "a[bcd/ef]gh/ij 3"},
      {"length of a single line", kSingle, "abc", "?linelen(0) ?linelen(2)", "|abc 3 3"},
      {"texts of lines", kMulti, "ab/cde/", "?getline(0) ?getline(1) ?getline(2)",
       "|ab/cde/ \"ab\" \"cde\" \"\""},
      {"the text of no line", kMulti, "ab", "?getline(1)", "|ab \"\""},
      {"the text of a single line", kSingle, "abc", "?getline(0) ?getline(5)", "|abc \"abc\" \"abc\""},
      {"a line feed alone is no break", kMulti, "a~b", "?lines ?len", "|a~b 1 3", Wine("|a~b 2 3")},
      {"a carriage return alone is no break", kMulti, "a^b", "?lines ?len", "|a^b 1 3"},
      {"two carriage returns and a line feed are one break", kMulti, "a^/b", "?lines ?index(1) ?linelen(0)",
       "|a^/b 2 4 1"},
      {"typing in front of a break keeps it", kMulti, "a/b", "sel(1,1) 'x' ?lines", "ax|/b 2"},
  };
  Check(rows);
}

TEST_F(EditBoxLinesTest, LongLinesAreWrappedBetweenWords) {
  const EditBoxRow rows[] = {
      {"at a blank", kWrap, "aaaa bbbb cccc", "?lines ?index(1)", "|aaaa bbbb cccc 2 10"},
      {"not when it fits", kWrap, "aaaa bbbb", "?lines", "|aaaa bbbb 1"},
      {"and at breaks", kWrap, "aaaa/bbbb cccc", "?lines ?index(1)", "|aaaa/bbbb cccc 2 6"},
      {"blanks hang over", kExact, "aaaa bbbb cccc", "?index(1)", "|aaaa bbbb cccc 10",
       Wine("|aaaa bbbb cccc 5")},
      {"typing wraps", kWrap, "aaaa bbbb", "sel(9,9) ' cc' ?lines ?line(-1)", "aaaa bbbb cc| 2 1"},
      {"erasing takes the word back", kWrap, "aaaa bbbb cc", "sel(0,5) Del ?lines", "|bbbb cc 1"},
      {"home stays on the wrapped line", kWrap, "aaaa bbbb cccc", "sel(12,12) Home", "aaaa bbbb |cccc"},
      {"down to the wrapped line", kWrap, "aaaa bbbb aaaa", "sel(2,2) Down", "aaaa bbbb aa|aa",
       Wine("aaaa bb|bb aaaa")},
      {"up from the wrapped line", kWrap, "aaaa bbbb aaaa", "sel(12,12) Up", "aa|aa bbbb aaaa",
       Wine("aaaa |bbbb aaaa")},
      {"the text has no breaks of its own", kWrap, "aaaa bbbb cccc", "?len ?getline(1)",
       "|aaaa bbbb cccc 14 \"cccc\""},
      {"the end of a wrapped line", kWrap, "aaaa bbbb cccc", "sel(2,2) End ?index(-1)", "aaaa bbbb |cccc 0",
       Wine("aaaa bbbb |cccc 10")},
      {"a wrapped line's text", kWrap, "aaaa bbbb cccc", "?getline(0) ?linelen(3)",
       "|aaaa bbbb cccc \"aaaa bbbb \" 10"},
      {"centred lines wrap", kCenter, "a/b", "?lines ?round(0) ?round(3)", "|a/b 2 0@0 3@1"},
  };
  Check(rows);
}

TEST_F(EditBoxLinesTest, MessagesAndKeysScrollTheText) {
  constexpr char kEight[] = "a/b/c/d/e/f/g/h";
  const EditBoxRow rows[] = {
      {"a line down", kMulti, kEight, "=scroll(1) ?first", "|a/b/c/d/e/f/g/h 65537 1"},
      {"a line up", kMulti, kEight, "scroll(1) =scroll(0) ?first", "|a/b/c/d/e/f/g/h 131071 0"},
      {"a line up at the top", kMulti, kEight, "=scroll(0) ?first", "|a/b/c/d/e/f/g/h 0 0"},
      {"a page down", kMulti, kEight, "=scroll(3) ?first", "|a/b/c/d/e/f/g/h 65540 4"},
      {"a page down goes to the last page", kMulti, "a/b/c/d/e/f", "=scroll(3) ?first",
       "|a/b/c/d/e/f 65538 2"},
      {"a page down at the end", kMulti, kEight, "scroll(3) =scroll(3) ?first", "|a/b/c/d/e/f/g/h 0 4"},
      {"a line down at the end", kMulti, kEight, "scroll(3) =scroll(1) ?first", "|a/b/c/d/e/f/g/h 0 4"},
      {"a page up", kMulti, kEight, "scroll(3) =scroll(2) ?first", "|a/b/c/d/e/f/g/h 131068 0"},
      {"a page up goes to the top", kMulti, "a/b/c/d/e/f", "scroll(3) =scroll(2) ?first",
       "|a/b/c/d/e/f 131068 0"},
      {"a text that fits", kMulti, "a/b", "=scroll(1) =scroll(3) ?first", "|a/b 0 0 0"},
      {"another action", kMulti, kEight, "=scroll(9) ?first", "|a/b/c/d/e/f/g/h 0 0"},
      {"a single line", kSingle, "abc", "=scroll(1) ?first", "|abc 0 0"},
      {"by lines", kMulti, kEight, "=linescroll(0,2) ?first", "|a/b/c/d/e/f/g/h 1 2"},
      {"by lines up to the last at the top", kMulti, kEight, "linescroll(0,99) ?first", "|a/b/c/d/e/f/g/h 7",
       Wine("|a/b/c/d/e/f/g/h 4")},
      {"by lines back", kMulti, kEight, "linescroll(0,3) linescroll(0,-99) ?first", "|a/b/c/d/e/f/g/h 0"},
      {"by lines in a single line", kSingle, "abc", "=linescroll(0,1) ?first", "|abc 0 0"},
      {"the caret scrolls", kMulti, kEight, "Down Down Down Down ?first", "a/b/c/d/|e/f/g/h 1"},
      {"the caret scrolls back", kMulti, kEight, "C-End C-Home ?first", "|a/b/c/d/e/f/g/h 0"},
      {"the end is the last page", kMulti, kEight, "C-End ?first", "a/b/c/d/e/f/g/h| 4"},
      {"a scrolled text keeps its caret", kMulti, kEight, "scroll(3) ?first ?index(-1)",
       "|a/b/c/d/e/f/g/h 4 0"},
      {"typing comes back to the caret", kMulti, kEight, "scroll(3) 'x' ?first", "x|a/b/c/d/e/f/g/h 0"},
      {"the message that shows the caret", kMulti, kEight, "scroll(3) =caret ?first", "|a/b/c/d/e/f/g/h 1 0"},
      {"erasing lines shows the rest", kMulti, kEight, "C-End sel(3,-1) Del ?first", "a/| 0"},
      {"a new text starts at the top", kMulti, kEight, "C-End settext(a/b/c/d/e/f) ?first", "|a/b/c/d/e/f 0"},
      {"typing a fifth line", kMulti, "a/b/c/d", "C-End Enter ?first ?lines", "a/b/c/d/| 1 5"},
  };
  Check(rows);
}

TEST_F(EditBoxLinesTest, CharactersHavePlacesAndASingleLineScrollsToTheCaret) {
  const EditBoxRow rows[] = {
      {"there and back", kMulti, "abc/def", "?round(0) ?round(2) ?round(5) ?round(7)",
       "|abc/def 0@0 2@0 5@1 7@1"},
      {"no place behind the text", kSingle, "abc", "?pos(3) ?pos(99)", "|abc -1 -1"},
      {"first character of a single line", kSingle, "abc", "?first", "|abc 0"},
      {"a single line scrolls by a third of its width", kNarrow, "aaaaaaaaaaaaaaaaaaaa",
       "sel(5,5) Right ?first Right ?first", "aaaaaaa|aaaaaaaaaaaaa 3 3"},
      {"typing at the end scrolls as little as it must", kNarrow, "", "'aaaaa' ?first 'a' ?first 'a' ?first",
       "aaaaaaa| 0 1 2"},
      {"erasing at the end keeps what is shown", kNarrow, "", "'aaaaaaa' BkSp BkSp ?first BkSp BkSp ?first",
       "aaa| 2 2"},
      {"a selecting message scrolls", kMulti, "a/b/c/d/e/f/g/h", "sel(20,20) ?first sel(0,0) ?first",
       "|a/b/c/d/e/f/g/h 3 0"},
      {"a scrolled single line", kNarrow, "aaaaaaaaaa", "End Home ?first", "|aaaaaaaaaa 0"},
  };
  Check(rows);
}

TEST_F(EditBoxLinesTest, ARectangleHasWholeLines) {
  EditBoxScript script(Driver(), parent_, kMulti, "abc");
  PixelRect client;
  Api().GetClientRect(script.Window(), client);
  EXPECT_EQ(script.Rect(), client);
  const int line = client.height() / 4;
  Api().SetWindowPos(script.Window(), {}, {10, 10, 210, 10 + 3 * line - 1}, kSwpNoZOrder);
  EXPECT_EQ(script.Rect(), (PixelRect{0, 0, 200, 2 * line}));
  PixelRect inner{5, 6, 100, 6 + 2 * line + 3};
  script.Send(kEmSetRect, 0, reinterpret_cast<LParam>(&inner));
  EXPECT_EQ(script.Rect(), (PixelRect{5, 6, 100, 6 + 2 * line}));
}

TEST_F(EditBoxLinesTest, AWordTooLongForALineIsDivided) {
  EditBoxScript script(Driver(), parent_, kWrap, "aaaaaaaaaaaaaaaaaaaaaaaaa");
  const int letter = script.Width("a");
  const int width = 9 * letter + letter / 2;
  Api().SetWindowPos(script.Window(), {}, {10, 10, 10 + width, 60}, kSwpNoZOrder);
  // Wine leaves room for one more, but on the last line.
  const int fitting = RunsOnWine() ? 8 : 9;
  EXPECT_EQ(script.Send(kEmLineLength, 0), fitting);
  EXPECT_EQ(script.Send(kEmGetLineCount), 3);
  EXPECT_EQ(script.Send(kEmLineIndex, 2), 2 * fitting);
}

TEST_F(EditBoxLinesTest, ABorderIsDrawnInside) {
  const std::uint32_t style = kWsChild | kWsVisible | kWsBorder | kEsMultiLine;
  const WindowHandle edit =
      Api().CreateWindowExA({"EDIT", "", style, 0, {10, 10, 110, 110}, parent_, nullptr});
  PixelRect client;
  PixelRect rect;
  Api().GetClientRect(edit, client);
  Api().SendMessageA(edit, kEmGetRect, 0, reinterpret_cast<LParam>(&rect));
  Api().DestroyWindow(edit);
  EXPECT_EQ(client, (PixelRect{0, 0, 100, 100}));
  EXPECT_EQ((PixelPoint{rect.left, rect.top}), (PixelPoint{2, 2}));
  EXPECT_EQ(rect.right, 98);
}

TEST_F(EditBoxLinesTest, MarginsNarrowTheRectangle) {
  EditBoxScript script(Driver(), parent_, kMulti, "abc");
  const PixelRect before = script.Rect();
  script.Send(kEmSetMargins, kEcLeftMargin | kEcRightMargin, 7 | 9 << 16);
  EXPECT_EQ(script.Send(kEmGetMargins), 7 | 9 << 16);
  EXPECT_EQ(script.Rect(), (PixelRect{before.left + 7, before.top, before.right - 9, before.bottom}));
}

TEST_F(EditBoxLinesTest, CharactersStandWhereTheirTextEnds) {
  EditBoxScript script(Driver(), parent_, kMulti, "abc/defg");
  const PixelRect rect = script.Rect();
  const PixelPoint point = PointOfLParam(script.Send(kEmPosFromChar, 7));
  EXPECT_EQ(point, (PixelPoint{rect.left + script.Width("de"), rect.top + rect.height() / 4}));
}

TEST_F(EditBoxLinesTest, AnAlignedTextEndsAtTheRight) {
  EditBoxScript script(Driver(), parent_, kRight, "abcd");
  const PixelPoint point = PointOfLParam(script.Send(kEmPosFromChar, 2));
  EXPECT_EQ(point.x, script.Rect().right - script.Width("cd"));
}

}  // namespace
}  // namespace levelwidgets::testing
