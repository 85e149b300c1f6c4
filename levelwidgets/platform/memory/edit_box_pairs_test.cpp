// Edit boxes in code pages where a character may be a pair of bytes, or lack its other case.
#include <levelwidgets/platform/memory/edit_box_fixture.h>

namespace levelwidgets::memory {
namespace {

using ::testing::ElementsAre;

// Of "a日本z" the bytes are a, 93 FA, 96 7B, z.
constexpr char kText[] = "a\u65E5\u672Cz";

class EditBoxPairs : public EditHandTest {
 protected:
  EditBoxPairs() : EditHandTest({.locale = "ja-JP"}) {}

  void MakeWith(std::uint32_t style, std::string_view text, PixelRect rect = {10, 10, 310, 110}) {
    Make(style, desktop.Drawing().ToCodePage(text), rect);
  }
  // Where the caret stops on its way through the text.
  std::vector<int> Stops(int key, int from) {
    Select(from, from);
    std::vector<int> stops{from};
    while (true) {
      desktop.Key(key);
      if (Selected().first == stops.back()) return stops;
      stops.push_back(Selected().first);
    }
  }
};

TEST_F(EditBoxPairs, TheirTextsComeBack) {
  MakeWith(0, kText);
  EXPECT_EQ(Text(), kText);
  EXPECT_EQ(Send(kWmGetTextLength), 6) << "counted in bytes";
}

TEST_F(EditBoxPairs, ArrowKeysPassACharacterInOneStep) {
  for (const std::uint32_t style : {0u, kEsMultiLine}) {
    MakeWith(style, kText);
    EXPECT_THAT(Stops(kKeyRight, 0), ElementsAre(0, 1, 3, 5, 6));
    EXPECT_THAT(Stops(kKeyLeft, 6), ElementsAre(6, 5, 3, 1, 0));
    windows.DestroyWindow(edit);
  }
}

TEST_F(EditBoxPairs, ASelectionThatBeginsOrEndsInsideACharacterTakesItsStart) {
  MakeWith(0, kText);
  Select(2, 4);
  EXPECT_EQ(Selected(), std::pair(1, 3));
}

TEST_F(EditBoxPairs, BackspaceAndDeleteEraseWholeCharacters) {
  MakeWith(0, kText);
  Select(3, 3);
  desktop.Key(kKeyBackspace);
  EXPECT_EQ(Text(), "a\u672Cz");
  Select(1, 1);
  desktop.Key(kKeyDelete);
  EXPECT_EQ(Text(), "az");
}

TEST_F(EditBoxPairs, ATypedPairIsEnteredOnceItIsWhole) {
  MakeWith(0, "");
  desktop.Type("a\u65E5\u672Cz");
  EXPECT_EQ(Text(), kText);
  EXPECT_THAT(notices, ElementsAre(kEnUpdate, kEnChange, kEnUpdate, kEnChange, kEnUpdate, kEnChange,
                                   kEnUpdate, kEnChange));
  Send(kWmUndo);
  EXPECT_EQ(Text(), "") << "one run of typing";
}

TEST_F(EditBoxPairs, AFirstByteThatNoSecondFollowsIsNotEntered) {
  MakeWith(0, "");
  Send(kWmChar, 0x93);
  Send(kWmChar, '1');
  EXPECT_EQ(Text(), "1");
  Send(kWmChar, 0x93);
  EXPECT_EQ(Text(), "1");
  Send(kWmChar, 0xFA);
  EXPECT_EQ(Text(), "1\u65E5");
}

TEST_F(EditBoxPairs, OnlyWholeCharactersAreTakenUpToTheLimit) {
  MakeWith(kEsAutoHScroll, "");
  Send(kEmSetLimitText, 4);
  desktop.SetClipboard(kText);
  Send(kWmPaste);
  EXPECT_EQ(Text(), "a\u65E5");
  EXPECT_THAT(notices, ElementsAre(kEnMaxText, kEnUpdate, kEnChange));
}

TEST_F(EditBoxPairs, ALineIsWrappedBetweenCharacters) {
  MakeWith(kEsMultiLine, "\u65E5\u672C\u65E5\u672C\u65E5\u672C\u65E5\u672C", {10, 10, 60, 110});
  const int lines = static_cast<int>(Send(kEmGetLineCount));
  ASSERT_GT(lines, 1);
  for (int line = 0; line < lines; ++line) {
    EXPECT_EQ(Send(kEmLineIndex, static_cast<WParam>(line)) % 2, 0) << line;
  }
}

TEST_F(EditBoxPairs, ThePointerPutsTheCaretBetweenCharacters) {
  MakeWith(0, kText);
  const PixelPoint start = PointOf(1);
  for (int x = 0; x < 40; ++x) {
    desktop.Click({start.x + x, start.y});
    EXPECT_THAT(Selected().first, ::testing::AnyOf(1, 3, 5, 6)) << x;
    desktop.Advance(1000);
  }
  EXPECT_EQ(Selected().first, 6);
  const PixelPoint second = PointOf(3);
  desktop.Click({second.x - 3, second.y});
  EXPECT_EQ(Selected().first, 3) << "the right half of a character";
}

TEST_F(EditBoxPairs, APasswordShowsOneCharacterForEach) {
  MakeWith(kEsPassword, kText);
  const Picture pairs = desktop.Capture({100, 100, 600, 500});
  Send(kWmSetText, 0, reinterpret_cast<LParam>("abcd"));
  EXPECT_EQ(desktop.Capture({100, 100, 600, 500}), pairs);
}

TEST_F(EditBoxPairs, SecondBytesThatAreLettersKeepTheirCase) {
  // The second byte of U+30A2 is an "A", that of U+3042 is not.
  MakeWith(kEsLowerCase, "\u30A2A");
  EXPECT_EQ(Text(), "\u30A2a");
}

TEST_F(EditBoxPairs, AreDrawnAsTheyWouldBeByThemselves) {
  MakeWith(0, "\u65E5\u672C");
  const PixelPoint start = PointOf(0);
  const PixelPoint second = PointOf(2);
  const PixelRect area{start.x - 1, start.y, second.x - 1, start.y + 10};
  const Picture with = desktop.Capture(area);
  Send(kWmSetText, 0, reinterpret_cast<LParam>("??"));
  EXPECT_NE(desktop.Capture(area), with);
}

TEST_F(EditBoxPairs, AFirstByteAtTheEndOfATextIsACharacter) {
  Make(0, "a\x93");
  EXPECT_THAT(Stops(kKeyRight, 0), ElementsAre(0, 1, 2));
  EXPECT_THAT(Stops(kKeyLeft, 2), ElementsAre(2, 1, 0));
}

TEST_F(EditBoxPairs, OnlyWholeCharactersAreTakenUpToTheWidth) {
  for (int width = 60; width < 80; ++width) {
    MakeWith(0, "", {10, 10, 10 + width, 40});
    desktop.SetClipboard("\u65E5\u672C\u65E5\u672C\u65E5\u672C\u65E5\u672C\u65E5\u672C\u65E5\u672C");
    Send(kWmPaste);
    const LResult length = Send(kWmGetTextLength);
    EXPECT_GT(length, 0) << width;
    EXPECT_LT(length, 24) << width;
    EXPECT_EQ(length % 2, 0) << width;
    windows.DestroyWindow(edit);
  }
}

TEST_F(EditBoxPairs, ALineHasAsManyAsThereIsRoomFor) {
  MakeWith(kEsMultiLine, "\u65E5\u672C\u65E5\u672C\u65E5\u672C\u65E5\u672C", {10, 10, 60, 110});
  const int wide = PointOf(2).x - PointOf(0).x;
  PixelRect format;
  Send(kEmGetRect, 0, reinterpret_cast<LParam>(&format));
  EXPECT_EQ(Send(kEmLineIndex, 1), 2 * (format.width() / wide));
}

TEST_F(EditBoxPairs, AScrolledLineBeginsWithAWholeCharacter) {
  for (int width = 40; width < 60; ++width) {
    MakeWith(kEsAutoHScroll, "\u65E5\u672C\u65E5\u672C\u65E5\u672C\u65E5\u672C", {10, 10, 10 + width, 40});
    Select(16, 16);
    Send(kEmScrollCaret);
    const LResult first = Send(kEmGetFirstVisibleLine);
    EXPECT_GT(first, 0) << width;
    EXPECT_EQ(first % 2, 0) << width;
    windows.DestroyWindow(edit);
  }
}

TEST_F(EditBoxPairs, OneThatIsCutOffOnTheRightIsDrawnAsItIs) {
  constexpr char kLine[] = "\u65E5\u672C\u65E5\u672C\u65E5\u672C";
  MakeWith(0, kLine);
  const Picture wide = desktop.Capture({110, 110, 210, 140});
  windows.DestroyWindow(edit);
  for (int width = 40; width < 60; ++width) {
    MakeWith(0, kLine, {10, 10, 10 + width, 110});
    const Picture narrow = desktop.Capture({110, 110, 210, 140});
    for (int y = 0; y < 30; ++y) {
      for (int x = 0; x < width - 3; ++x) ASSERT_EQ(narrow.At({x, y}), wide.At({x, y})) << width << " " << x;
    }
    windows.DestroyWindow(edit);
  }
}

class EditBoxLetters : public EditHandTest {};

TEST_F(EditBoxLetters, ALetterWhoseOtherCaseIsNotInTheCodePageStays) {
  Make(kEsUpperCase, desktop.Drawing().ToCodePage("\u00E9\u00FF\u00B5"));
  EXPECT_EQ(Text(), "\u00C9\u0178\u00B5");
}

}  // namespace
}  // namespace levelwidgets::memory
