// What edit boxes make of keys, pointer and messages: one table for the desktop in memory and for the
// operating system's own.
#include <gtest/gtest.h>

#include <levelwidgets/testing/edit_box_fixture.h>

namespace levelwidgets::testing {
namespace {

using enum EditBoxKind;

TEST_F(EditBoxTest, TypingInsertsReplacesAndErases) {
  const EditBoxRow rows[] = {
      {"into an empty box", kSingle, "", "'abc' ?modify ?len", "abc| 1 3"},
      {"in the middle", kSingle, "ad", "sel(1,1) 'bc'", "abc|d"},
      {"replaces the selection", kSingle, "abcd", "sel(1,3) 'x'", "ax|d"},
      {"replaces all", kSingle, "abcd", "sel(0,-1) 'x'", "x|"},
      {"a line break", kMulti, "ab", "sel(1,1) Enter ?lines ?line(-1)", "a/|b 2 1"},
      {"a line break replaces the selection", kMulti, "abcd", "sel(1,3) Enter", "a/|d"},
      {"no line break in a single line", kSingle, "ab", "sel(1,1) Enter ?modify", "a|b 0"},
      {"two line breaks", kMulti, "", "Enter Enter 'x' ?lines", "//x| 3"},
      {"a line feed is a line break", kMulti, "ab", "sel(1,1) char(~)", "a/|b"},
      {"other control characters do nothing", kSingle, "ab", "char(\x02) char(\x1F) ?modify", "|ab 0"},
      {"a character of the code page", kSingle, "", "'\xC3\xA9' ?len", "\xE9| 1"},
      {"backspace", kSingle, "abc", "sel(2,2) BkSp ?modify", "a|c 1"},
      {"backspace at the start", kSingle, "abc", "BkSp ?modify", "|abc 0"},
      {"backspace erases the selection only", kSingle, "abcd", "sel(1,3) BkSp", "a|d"},
      {"backspace over a line break", kMulti, "ab/cd", "sel(4,4) BkSp ?lines", "ab|cd 1"},
      {"backspace over the last line break", kMulti, "ab/", "sel(4,4) BkSp ?lines", "ab| 1"},
      {"delete", kSingle, "abc", "sel(1,1) Del ?modify", "a|c 1"},
      {"delete at the end", kSingle, "abc", "sel(3,3) Del ?modify", "abc| 0"},
      {"delete erases the selection only", kSingle, "abcd", "sel(1,3) Del", "a|d"},
      {"delete over a line break", kMulti, "ab/cd", "sel(2,2) Del ?lines", "ab|cd 1"},
      {"shift and delete erase to the left", kSingle, "abc", "sel(2,2) S-Del", "a|c"},
      {"ctrl and delete erase to the end of the line", kMulti, "abc/def", "sel(1,1) C-Del", "a|/def"},
      {"ctrl and delete erase to the end of a single line", kSingle, "abcdef", "sel(2,2) C-Del", "ab|"},
      {"shift, ctrl and delete do nothing", kSingle, "abc", "sel(1,1) CS-Del", "a|bc"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, KeysThatMoveTheCaret) {
  const EditBoxRow rows[] = {
      {"left", kSingle, "abc", "sel(2,2) Left", "a|bc"},
      {"left at the start", kSingle, "abc", "Left", "|abc"},
      {"right", kSingle, "abc", "sel(1,1) Right", "ab|c"},
      {"right at the end", kSingle, "abc", "sel(3,3) Right", "abc|"},
      {"left over a line break", kMulti, "ab/cd", "sel(4,4) Left", "ab|/cd"},
      {"right over a line break", kMulti, "ab/cd", "sel(2,2) Right", "ab/|cd"},
      {"left goes on from the caret, not the selection", kSingle, "abcdef", "sel(1,4) Left", "abc|def"},
      {"right goes on from the caret, not the selection", kSingle, "abcdef", "sel(4,1) Right", "ab|cdef"},
      {"up in a single line", kSingle, "abc", "sel(2,2) Up", "a|bc"},
      {"down in a single line", kSingle, "abc", "sel(2,2) Down", "abc|"},
      {"up", kMulti, "abc/def", "sel(6,6) Up", "a|bc/def"},
      {"down", kMulti, "abc/def", "sel(1,1) Down", "abc/d|ef"},
      {"up on the first line", kMulti, "abc/def", "sel(1,1) Up", "a|bc/def"},
      {"down on the last line", kMulti, "abc/def", "sel(6,6) Down", "abc/d|ef"},
      {"down to a shorter line", kMulti, "abc/d", "sel(3,3) Down", "abc/d|"},
      {"the column is lost on a shorter line", kMulti, "aaa/b/aaa", "sel(3,3) Down Down", "aaa/b/a|aa"},
      {"home", kSingle, "abc", "sel(2,2) Home", "|abc"},
      {"end", kSingle, "abc", "sel(1,1) End", "abc|"},
      {"home on a line", kMulti, "abc/def", "sel(6,6) Home", "abc/|def"},
      {"end on a line", kMulti, "abc/def", "sel(1,1) End", "abc|/def"},
      {"ctrl and home", kMulti, "abc/def", "sel(6,6) C-Home", "|abc/def"},
      {"ctrl and end", kMulti, "abc/def", "sel(1,1) C-End", "abc/def|"},
      {"page down", kMulti, "a/b/c/d/e/f/g", "PgDn ?first", "a/b/c/d/|e/f/g 1"},
      {"page down beyond the end", kMulti, "a/b/c/d/e/f/g", "PgDn PgDn ?first", "a/b/c/d/e/f/|g 3"},
      {"page up", kMulti, "a/b/c/d/e/f/g", "sel(18,18) PgUp ?first", "a/b/|c/d/e/f/g 2"},
      {"page up beyond the start", kMulti, "a/b/c/d/e/f/g", "sel(18,18) PgUp PgUp ?first",
       "|a/b/c/d/e/f/g 0"},
      {"page keys in a single line do nothing", kSingle, "abc", "sel(1,1) PgDn PgUp", "a|bc"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, KeysThatSelect) {
  const EditBoxRow rows[] = {
      {"shift and right", kSingle, "abc", "S-Right S-Right", "[ab]c"},
      {"shift and left", kSingle, "abc", "sel(3,3) S-Left", "ab[c]"},
      {"back again over the anchor", kSingle, "abc", "sel(1,1) S-Right S-Left S-Left", "[a]bc"},
      {"shift and end", kSingle, "abc", "sel(1,1) S-End", "a[bc]"},
      {"shift and home", kSingle, "abc", "sel(2,2) S-Home", "[ab]c"},
      {"shift and down", kMulti, "abc/def", "sel(1,1) S-Down", "a[bc/d]ef"},
      {"shift and up", kMulti, "abc/def", "sel(6,6) S-Up", "a[bc/d]ef"},
      {"shift over a line break", kMulti, "ab/cd", "sel(2,2) S-Right", "ab[/]cd"},
      {"ctrl, shift and end", kMulti, "abc/def", "sel(1,1) CS-End", "a[bc/def]"},
      {"ctrl, shift and home", kMulti, "abc/def", "sel(6,6) CS-Home", "[abc/d]ef"},
      {"shift and page down", kMulti, "a/b/c/d/e/f", "sel(1,1) S-PgDn", "a[/b/c/d/e]/f"},
      {"ctrl and A", kMulti, "abc/def", "sel(1,1) C-A", "[abc/def]", System("a|bc/def")},
      {"ctrl and A in a single line", kSingle, "abc", "sel(1,1) C-A", "[abc]", System("a|bc")},
      {"shift keeps the anchor of a message", kSingle, "abcdef", "sel(4,2) S-Right", "abc[d]ef"},
      {"a move ends the selection", kSingle, "abcdef", "S-End Home", "|abcdef"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, KeysMoveAndSelectByWords) {
  const EditBoxRow rows[] = {
      {"ctrl and right", kSingle, "one two three", "C-Right", "one |two three"},
      {"ctrl and right twice", kSingle, "one two three", "C-Right C-Right", "one two |three"},
      {"ctrl and right at the last word", kSingle, "one two", "sel(5,5) C-Right", "one two|"},
      {"ctrl and left", kSingle, "one two three", "sel(13,13) C-Left", "one two |three"},
      {"ctrl and left inside a word", kSingle, "one two", "sel(6,6) C-Left", "one |two"},
      {"ctrl and left from a word's start", kSingle, "one two", "sel(4,4) C-Left", "|one two"},
      {"several blanks count as one", kSingle, "one   two", "C-Right", "one   |two"},
      {"back over several blanks", kSingle, "one   two", "sel(6,6) C-Left", "|one   two"},
      {"ctrl and right to the next line", kMulti, "ab/cd", "sel(2,2) C-Right", "ab/|cd"},
      {"ctrl and left to the line before", kMulti, "ab/cd", "sel(4,4) C-Left", "ab|/cd"},
      {"ctrl and right stops at the line's end", kMulti, "ab/cd", "C-Right", "ab|/cd"},
      {"with shift", kSingle, "one two", "CS-Right", "[one ]two"},
      {"with shift to the left", kSingle, "one two", "sel(7,7) CS-Left", "one [two]"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, ThePointerPlacesTheCaretAndSelects) {
  const EditBoxRow rows[] = {
      {"click", kSingle, "abcdef", "click(3)", "abc|def"},
      {"click on a line", kMulti, "abc/def", "click(6)", "abc/d|ef"},
      {"click ends the selection", kSingle, "abcdef", "sel(0,-1) click(2)", "ab|cdef"},
      {"shift and click", kSingle, "abcdef", "sel(1,1) shiftclick(4)", "a[bcd]ef"},
      {"shift and click before the anchor", kSingle, "abcdef", "sel(4,4) shiftclick(1)", "a[bcd]ef"},
      {"drag", kSingle, "abcdef", "drag(1,4)", "a[bcd]ef"},
      {"drag backwards", kSingle, "abcdef", "drag(4,1)", "a[bcd]ef"},
      {"drag over lines", kMulti, "abc/def", "drag(1,6)", "a[bc/d]ef"},
      {"a double click selects the word and its blanks", kSingle, "one two three", "dbl(5)",
       "one [two ]three"},
      {"a double click on the last word", kSingle, "one two", "dbl(5)", "one [two]"},
      {"a double click on a word's start", kSingle, "one two", "dbl(4)", "one [two]", Wine("[one ]two")},
      {"a double click on a line", kMulti, "ab cd/ef", "dbl(4)", "ab [cd]/ef"},
      {"typing replaces the word", kSingle, "one two", "dbl(1) 'x'", "x|two"},
      {"the wheel scrolls three lines", kMulti, "a/b/c/d/e/f/g/h", "wheel(-1) ?first", "|a/b/c/d/e/f/g/h 3"},
      {"the wheel back", kMulti, "a/b/c/d/e/f/g/h", "wheel(-1) wheel(1) ?first", "|a/b/c/d/e/f/g/h 0"},
      {"the wheel stops when the last line is shown", kMulti, "a/b/c/d/e/f/g", "wheel(-3) ?first",
       "|a/b/c/d/e/f/g 3"},
      {"the wheel in a single line does nothing", kSingle, "abc", "wheel(-1) ?first", "|abc 0"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, MessagesSetAndReadTheSelection) {
  const EditBoxRow rows[] = {
      {"some", kSingle, "abcdef", "=sel(1,3)", "a[bc]def 1"},
      {"all", kSingle, "abcdef", "sel(0,-1)", "[abcdef]"},
      {"none, at the caret", kSingle, "abcdef", "sel(1,3) sel(-1,0)", "abc|def"},
      {"beyond the end", kSingle, "abc", "sel(9,12)", "abc|"},
      {"an end beyond the text", kSingle, "abc", "sel(1,12)", "a[bc]"},
      {"the wrong way round", kSingle, "abcdef", "sel(4,2)", "ab[cd]ef"},
      {"the caret is at the end given", kSingle, "abcdef", "sel(4,2) Right", "abc|def"},
      {"replacing", kSingle, "abcdef", "sel(1,3) rep(XY) ?modify", "aXY|def 1"},
      {"replacing nothing inserts", kSingle, "abc", "sel(1,1) rep(X)", "aX|bc"},
      {"replacing by nothing erases", kSingle, "abc", "sel(1,2) rep()", "a|c"},
      {"replacing by lines", kMulti, "abc", "sel(1,2) rep(x/y) ?lines", "ax/y|c 2"},
      {"a new text forgets the selection", kSingle, "abc", "sel(0,2) settext(xyz) ?modify", "|xyz 0"},
      {"setting the text answers 1", kSingle, "", "=settext(a)", "|a 1"},
      {"the modification mark", kSingle, "abc", "setmodify(1) ?modify setmodify(0) ?modify", "|abc 1 0"},
      {"clear", kSingle, "abcd", "sel(1,3) clear ?modify", "a|d 1"},
      {"clear without a selection", kSingle, "abcd", "sel(1,1) clear ?modify", "a|bcd 0"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, UndoTakesChangesBack) {
  const EditBoxRow rows[] = {
      {"nothing at first", kMulti, "abc", "?canundo =undo", "|abc 0 0", Wine("|abc 0 1")},
      {"a single line always answers 1", kSingle, "abc", "?canundo =undo", "|abc 0 1"},
      {"a typed run", kSingle, "abc", "sel(3,3) 'def' ?canundo =undo", "abc| 1 1"},
      {"ctrl and Z", kSingle, "abc", "sel(3,3) 'def' C-Z", "abc|"},
      {"alt and backspace", kSingle, "abc", "sel(3,3) 'def' A-BkSp", "abc|", Wine("abcdef|")},
      {"the message of all windows", kSingle, "abc", "sel(3,3) 'def' =wmundo", "abc| 1"},
      {"what was erased is selected", kSingle, "abcdef", "sel(1,3) Del undo", "a[bc]def"},
      {"what was replaced is selected", kSingle, "abcdef", "sel(1,3) 'x' undo", "a[bc]def"},
      {"a replacing message", kSingle, "abc", "sel(1,2) rep(XY) undo", "a[b]c"},
      {"several backspaces", kSingle, "abcdef", "sel(4,4) BkSp BkSp undo", "ab[cd]ef"},
      {"a line break", kMulti, "ab", "sel(1,1) Enter undo ?lines", "a|b 1"},
      {"a cut", kSingle, "abcd", "sel(1,3) cut undo", "a[bc]d"},
      {"a paste", kSingle, "abcd", "sel(1,3) copy sel(4,4) paste undo", "abcd|"},
      {"a new text cannot be undone", kSingle, "abc", "'x' settext(new) ?canundo", "|new 0"},
      {"forgetting", kSingle, "abc", "'x' emptyundo ?canundo", "x|abc 0"},
      {"undoing marks as modified", kSingle, "abc", "'x' setmodify(0) undo ?modify", "|abc 1"},
      {"step by step", kMulti, "", "'ab' Left 'x' undo undo ?canundo", "| 0", System("a[x]b 1")},
      {"again", kMulti, "", "'ab' undo C-Y ?canundo", "[ab] 1", System("| 1")},
      {"again after two steps", kMulti, "", "'ab' Left 'x' undo undo C-Y C-Y", "a[x]b"},
      {"typing forgets what could come again", kMulti, "", "'ab' undo 'x' C-Y", "x|"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, TextIsCutCopiedAndPasted) {
  const EditBoxRow rows[] = {
      {"copy and paste", kSingle, "abcdef", "sel(1,3) copy sel(6,6) paste", "abcdefbc|"},
      {"paste replaces", kSingle, "abcdef", "sel(0,2) copy sel(3,5) paste", "abcab|f"},
      {"cut", kSingle, "abcdef", "sel(1,3) cut ?modify", "a|def 1"},
      {"cut and paste", kSingle, "abcdef", "sel(1,3) cut sel(4,4) paste", "adefbc|"},
      {"keys", kSingle, "abcdef", "sel(1,3) C-C sel(6,6) C-V", "abcdefbc|"},
      {"keys that cut", kSingle, "abcdef", "sel(1,3) C-X sel(4,4) C-V", "adefbc|"},
      {"the older keys", kSingle, "abcdef", "sel(1,3) C-Ins sel(6,6) S-Ins", "abcdefbc|"},
      {"the older keys that cut", kSingle, "abcdef", "sel(1,3) S-Del sel(4,4) S-Ins", "adefbc|"},
      {"copying nothing keeps the clipboard", kSingle, "abcdef", "sel(1,3) copy sel(4,4) copy paste",
       "abcdbc|ef"},
      {"lines", kMulti, "ab/cd", "sel(1,5) copy sel(6,6) paste ?lines", "ab/cdb/c| 3"},
      {"cutting nothing changes nothing", kSingle, "abc", "sel(1,1) cut ?modify", "a|bc 0"},
      {"a password cannot be copied", kPassword, "abc", "sel(0,3) =copy sel(0,3) cut", "[abc] 0",
       Wine("| 0")},
      {"into a single line goes the first line only", kSingle, "a/b", "sel(0,-1) copy settext() paste ?len",
       "a| 1"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, TheLimitHoldsForTypingAndPastingOnly) {
  const EditBoxRow rows[] = {
      {"before any is set", kSingle, "", "?getlimit", "| 30000"},
      {"before any is set, of lines", kMulti, "", "?getlimit", "| 30000"},
      {"typing ends there", kSingle, "", "limit(3) 'abcd' ?getlimit", "abc| 3"},
      {"it is told", kSingle, "abc", "limit(3) sel(3,3) 'd' ?en", "abc| M", Wine("abc| MUC")},
      {"the selection makes room", kSingle, "abc", "limit(3) sel(1,2) 'x'", "ax|c"},
      {"what is replaced too", kSingle, "abc", "limit(4) sel(3,3) rep(xyz)", "abcx|"},
      {"a set text may be longer", kSingle, "", "limit(2) settext(abcd)", "|abcd"},
      {"nothing goes into a text that is too long", kSingle, "abcd", "limit(2) 'x'", "|abcd"},
      {"none", kSingle, "abc", "limit(3) limit(0) sel(3,3) 'd' ?getlimit", "abcd| 2147483646"},
      {"a line that does not scroll", kTight, "", "'aaaaaaaa'", "aaaaa|"},
      {"what was set may be longer than the line", kTight, "aaaaaaaa", "?len", "|aaaaaaaa 8"},
      {"lines that do not scroll", kFixed, "a/b/c", "sel(7,7) Enter 'd' Enter ?lines", "a/b/c/d| 4"},
      {"a long line in a box that scrolls", kNarrow, "", "'aaaaaaaaaa' ?len", "aaaaaaaaaa| 10"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, StylesChangeWhatIsTyped) {
  const EditBoxRow rows[] = {
      {"read only: typing", kSingle, "abc", "=readonly(1) 'x' BkSp Del ?modify", "|abc 1 0"},
      {"read only: moving", kSingle, "abc", "readonly(1) End", "abc|"},
      {"read only: pasting", kSingle, "abc", "sel(0,1) copy readonly(1) paste S-Ins C-V", "[a]bc"},
      {"read only: cutting", kSingle, "abc", "readonly(1) sel(0,1) C-X", "[a]bc"},
      {"read only: copying", kSingle, "abc", "readonly(1) sel(0,2) C-C readonly(0) sel(3,3) paste", "abcab|"},
      {"read only: messages still change it", kSingle, "abc", "readonly(1) sel(0,1) rep(X)", "X|bc"},
      {"read only: setting the text", kSingle, "abc", "readonly(1) settext(new)", "|new"},
      {"read only: undo", kMulti, "abc", "'x' readonly(1) =undo", "x|abc 0"},
      {"read only: enter goes to the next line", kMulti, "abc/def", "readonly(1) sel(1,1) Enter", "abc/|def"},
      {"a tab is typed into lines", kMulti, "abc", "Tab", ">|abc"},
      {"a tab is not typed into a single line", kSingle, "abc", "Tab", "|abc"},
      {"no longer read only", kSingle, "abc", "readonly(1) readonly(0) 'x'", "x|abc"},
      {"numbers only", kNumber, "", "'1a2-3'", "123|"},
      {"numbers only is for typing", kNumber, "", "settext(abc)", "|abc"},
      {"upper case", kUpper, "", "'aBc1'", "ABC1|"},
      {"lower case", kLower, "", "'aBC1'", "abc1|"},
      {"upper case beyond the alphabet", kUpper, "", "'\xC3\xA9'", "\xC9|"},
      {"upper case of a replacing message", kUpper, "", "rep(abc)", "ABC|"},
      {"password", kPassword, "abc", "?getpass ?len", "|abc 42 3"},
      {"another password character", kPassword, "abc", "pass(#) ?getpass", "|abc 35"},
      {"no password character", kPassword, "abc", "pass() ?getpass", "|abc 0"},
      {"a password in a plain box", kSingle, "abc", "?getpass pass(*) ?getpass", "|abc 0 42"},
      {"no password for lines", kMulti, "abc", "pass(*) ?getpass", "|abc 0"},
      {"aligned right", kRight, "abc", "?round(0) ?round(2) click(1)", "a|bc 0@0 2@0"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, TheParentIsNotifiedInOrder) {
  const EditBoxRow rows[] = {
      {"typing", kSingle, "", "'a' ?en", "a| UC"},
      {"typing in lines", kMulti, "", "'a' ?en", "a| UC"},
      {"moving", kSingle, "abc", "Right ?en", "a|bc -"},
      {"setting a single line", kSingle, "", "settext(a) ?en", "|a UC"},
      {"setting lines", kMulti, "", "settext(a) ?en", "|a -"},
      {"replacing", kSingle, "abc", "sel(0,1) rep(x) ?en", "x|bc UC"},
      {"erasing nothing", kSingle, "abc", "BkSp ?en", "|abc -"},
      {"undoing", kSingle, "abc", "'x' ?en undo ?en", "|abc UC UC", Wine("|abc UC UCC")},
      {"scrolling", kMulti, "a/b/c/d/e/f", "scroll(1) ?en", "|a/b/c/d/e/f V"},
      {"scrolling by lines", kMulti, "a/b/c/d/e/f", "linescroll(0,1) ?en", "|a/b/c/d/e/f V"},
      {"selecting", kSingle, "abc", "sel(0,-1) ?en", "[abc] -"},
  };
  Check(rows);
}

TEST_F(EditBoxTest, TheParentIsNotifiedOfTheFocus) {
  EditBoxScript script(Driver(), parent_, kSingle, "abc");
  script_ = &script;
  Api().SetFocus(parent_);
  EXPECT_EQ(script.Run("?en"), "|abc K");
  Api().SetFocus(script.Window());
  EXPECT_EQ(script.Run("?en"), "|abc K S");
  script_ = nullptr;
}

}  // namespace
}  // namespace levelwidgets::testing
