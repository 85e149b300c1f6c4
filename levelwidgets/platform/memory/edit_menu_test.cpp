// The menu of an edit box, as a person sees and works it.
#include <levelwidgets/platform/memory/edit_box_fixture.h>

namespace levelwidgets::memory {
namespace {

using Range = std::pair<int, int>;
using ::testing::ElementsAre;

enum Row { kUndo, kCut, kCopy, kPaste, kDelete, kSelectAll };

class EditMenuTest : public EditHandTest {
 protected:
  void OpenAt(int offset) {
    Move(offset);
    desktop.Press(kRightButton);
    desktop.Release(kRightButton);
  }
  // The menu's window, in front of the parent; none while it is closed.
  PixelRect Menu() {
    const std::vector<TopLevelWindow> shown = desktop.TopLevelWindows();
    return shown.size() == 2 ? shown.front().rect : PixelRect{};
  }
  bool IsOpen() { return !Menu().empty(); }
  PixelPoint PointOfRow(Row row) {
    const PixelRect menu = Menu();
    const int height = (menu.height() - 2 - 2 * 7) / 6;
    const int groups = row == kUndo ? 0 : row == kSelectAll ? 2 : 1;
    return {menu.left + 12, menu.top + 1 + row * height + groups * 7 + height / 2};
  }
  void Click(Row row) {
    desktop.MovePointer(PointOfRow(row));
    desktop.Press(kLeftButton);
    desktop.Release(kLeftButton);
  }
  bool IsGrey(Row row) {
    const PixelRect menu = Menu();
    const int y = PointOfRow(row).y;
    const Picture shown = desktop.Capture({menu.left + 2, y - 7, menu.right - 2, y + 7});
    const ColorRef text = desktop.Drawing().GetSysColor(7);
    return std::count(shown.pixels.begin(), shown.pixels.end(), text.value) == 0;
  }
  std::vector<bool> Greys() {
    std::vector<bool> greys;
    for (const Row row : {kUndo, kCut, kCopy, kPaste, kDelete, kSelectAll}) greys.push_back(IsGrey(row));
    return greys;
  }
};

TEST_F(EditMenuTest, ABoxThatIsHiddenDuringThePressOpensNoneAndTakesNoFocus) {
  Make(kEsAutoHScroll, "one two");
  windows.SetFocus(parent);
  Move(5);
  desktop.Press(kRightButton);
  windows.ShowWindow(edit, kSwHide);
  desktop.Press(kLeftButton);
  desktop.Release(kRightButton);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(windows.GetFocus(), parent);
}

TEST_F(EditMenuTest, TheRightButtonOpensItAndWhatCannotBeDoneIsGrey) {
  Make(kEsAutoHScroll, "one two");
  Select(0, 3);
  desktop.SetClipboard("");
  Move(5);
  desktop.Press(kRightButton);
  EXPECT_FALSE(IsOpen());
  desktop.Release(kRightButton);
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Menu().left, PointOf(5).x);
  EXPECT_EQ(Menu().top, PointOf(5).y);
  EXPECT_THAT(Greys(), ElementsAre(true, false, false, true, false, false));
  EXPECT_EQ(windows.GetFocus(), edit);
  EXPECT_EQ(windows.GetActiveWindow(), parent);
  EXPECT_EQ(Selected(), (Range{0, 3}));
}

TEST_F(EditMenuTest, AReadOnlyTextOffersOnlyCopyAndSelectAll) {
  Make(kEsAutoHScroll, "one two");
  desktop.Type("x");
  desktop.SetClipboard("more");
  Select(0, 3);
  OpenAt(2);
  EXPECT_THAT(Greys(), ElementsAre(false, false, false, false, false, false));
  desktop.Key(kKeyEscape, 0);
  Send(kEmSetReadOnly, 1);
  OpenAt(2);
  EXPECT_THAT(Greys(), ElementsAre(true, true, false, true, true, false));
  desktop.Key(kKeyEscape, 0);
  Select(0, 8);
  OpenAt(2);
  EXPECT_THAT(Greys(), ElementsAre(true, true, false, true, true, true));
}

TEST_F(EditMenuTest, APasswordIsNotCopiedAndABusyClipboardNotPasted) {
  Make(kEsAutoHScroll | kEsPassword, "secret");
  Select(0, 3);
  desktop.SetClipboard("more");
  OpenAt(2);
  EXPECT_THAT(Greys(), ElementsAre(true, true, true, false, false, false));
  desktop.Key(kKeyEscape, 0);
  desktop.SetClipboardBusy(true);
  OpenAt(2);
  EXPECT_TRUE(IsGrey(kPaste));
}

TEST_F(EditMenuTest, AReleaseOverAnItemDoesWhatItSays) {
  Make(kEsAutoHScroll, "one two");
  Select(0, 4);
  OpenAt(2);
  Click(kCut);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Text(), "two");
  EXPECT_EQ(desktop.Clipboard(), "one ");
  OpenAt(1);
  Click(kUndo);
  EXPECT_EQ(Text(), "one two");
  OpenAt(1);
  Click(kSelectAll);
  EXPECT_EQ(Selected(), (Range{0, 7}));
  OpenAt(1);
  Click(kDelete);
  EXPECT_EQ(Text(), "");
  OpenAt(0);
  Click(kPaste);
  EXPECT_EQ(Text(), "one ");
  Select(0, 2);
  OpenAt(0);
  Click(kCopy);
  EXPECT_EQ(desktop.Clipboard(), "on");
  EXPECT_EQ(Text(), "one ");
}

TEST_F(EditMenuTest, AGreyItemAndTheLinesBetweenLeaveItOpen) {
  Make(kEsAutoHScroll, "one");
  OpenAt(1);
  notices.clear();
  Click(kUndo);
  EXPECT_TRUE(IsOpen());
  PixelPoint line = PointOfRow(kCut);
  line.y -= (Menu().height() - 16) / 12 + 3;
  desktop.MovePointer(line);
  desktop.Press(kLeftButton);
  desktop.Release(kLeftButton);
  EXPECT_TRUE(IsOpen());
  EXPECT_THAT(notices, ::testing::IsEmpty());
}

TEST_F(EditMenuTest, APressElsewhereClosesItAndIsAPressThere) {
  Make(kEsAutoHScroll, "one two");
  OpenAt(1);
  Move(0);
  desktop.Press(kLeftButton);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Selected(), (Range{0, 0}));
  EXPECT_EQ(windows.GetCapture(), edit);
  desktop.Release(kLeftButton);
}

TEST_F(EditMenuTest, TheMenuGetsTheKeysWhileItIsOpen) {
  Make(kEsAutoHScroll, "one two");
  Select(0, 3);
  OpenAt(2);
  desktop.Type("x");  // no item's letter
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Text(), "one two");
  desktop.Type("t");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Text(), " two");
  desktop.Key(93, 0);
  ASSERT_TRUE(IsOpen());
  desktop.Key(kKeyUp, 0);  // around the end
  desktop.Key(kKeyEnter, 0);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Selected(), (Range{0, 4}));
  desktop.Key(121, kShiftMask);
  ASSERT_TRUE(IsOpen());
  for (int i = 0; i < 5; ++i) desktop.Key(kKeyDown, 0);
  desktop.Key(kKeyEnter, 0);
  EXPECT_EQ(Text(), "");
}

TEST_F(EditMenuTest, EnterOnAGreyItemLeavesItOpenAndEscapeClosesIt) {
  Make(kEsAutoHScroll, "one");
  OpenAt(1);
  desktop.Key(kKeyHome, 0);
  desktop.Key(kKeyEnter, 0);
  EXPECT_TRUE(IsOpen());
  desktop.Key(kKeyEscape, 0);
  EXPECT_FALSE(IsOpen());
  desktop.Type("x");
  EXPECT_EQ(Text(), "xone");
}

TEST_F(EditMenuTest, TheItemUnderThePointerIsHighlighted) {
  Make(kEsAutoHScroll, "one");
  OpenAt(1);
  const ColorRef highlight = desktop.Drawing().GetSysColor(kColorHighlight);
  desktop.MovePointer(PointOfRow(kSelectAll));
  EXPECT_EQ(desktop.PixelAt({Menu().left + 4, PointOfRow(kSelectAll).y}), highlight);
  desktop.MovePointer(PointOfRow(kCut));
  EXPECT_NE(desktop.PixelAt({Menu().left + 4, PointOfRow(kSelectAll).y}), highlight);
  EXPECT_EQ(desktop.PixelAt({Menu().left + 4, PointOfRow(kCut).y}), desktop.Drawing().GetSysColor(4))
      << "grey";
  EXPECT_EQ(desktop.PixelAt({Menu().left + 1, PointOfRow(kCut).y}), highlight) << "its frame";
}

TEST_F(EditMenuTest, ItStaysOnTheScreen) {
  windows.SetWindowPos(parent, {}, {900, 600, 1024, 768}, kSwpNoZOrder);
  Make(kEsMultiLine, "one", {0, 0, 124, 168});
  desktop.MovePointer({1020, 764});
  desktop.Press(kRightButton);
  desktop.Release(kRightButton);
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Menu().right, 1024);
  EXPECT_EQ(Menu().bottom, 768);
}

TEST_F(EditMenuTest, ItEndsWithItsBoxItsFormAndWhenAnotherProgramIsActive) {
  Make(kEsAutoHScroll, "one");
  OpenAt(1);
  windows.DestroyWindow(edit);
  EXPECT_FALSE(IsOpen());
  Make(kEsAutoHScroll, "one");
  OpenAt(1);
  windows.Deactivate();
  EXPECT_FALSE(IsOpen());
  windows.SetActiveWindow(parent);
  windows.SetFocus(edit);
  OpenAt(1);
  ASSERT_TRUE(IsOpen());
  windows.DestroyWindow(parent);
  EXPECT_EQ(desktop.LiveWindows(), 0u);
  desktop.MovePointer({5, 5});
  desktop.Key('A', 0);
}

TEST_F(EditMenuTest, WhenTheOnlyFormIsHiddenTheMenuEndsAndNothingIsActiveOrHasTheFocus) {
  Make(kEsAutoHScroll, "one");
  OpenAt(1);
  ASSERT_TRUE(IsOpen());
  windows.ShowWindow(parent, kSwHide);
  EXPECT_TRUE(desktop.TopLevelWindows().empty());
  EXPECT_FALSE(windows.GetActiveWindow());
  EXPECT_FALSE(windows.GetFocus());
}

TEST_F(EditMenuTest, AListenerOfAChoiceMayDestroyTheBox) {
  Make(kEsAutoHScroll, "one");
  Select(0, 3);
  OpenAt(1);
  destroy_at = kEnChange;
  Click(kDelete);
  EXPECT_FALSE(windows.IsWindow(edit));
  EXPECT_FALSE(IsOpen());
}

TEST_F(EditMenuTest, ThePointerReachesNothingElseWhileItIsOpen) {
  Make(kEsMultiLine | kEsAutoVScroll, "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n11\r\n12");
  OpenAt(0);
  desktop.Wheel(-1);
  EXPECT_EQ(Send(kEmGetFirstVisibleLine), 0);
  EXPECT_EQ(windows.GetCapture(), WindowHandle{});
}

}  // namespace
}  // namespace levelwidgets::memory
