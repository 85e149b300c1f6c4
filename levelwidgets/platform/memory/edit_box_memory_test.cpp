// What only the desktop in memory shows of its edit boxes: pixels, blinking, parents that interfere.
#include <levelwidgets/platform/memory/edit/edit_box.h>

#include <gtest/gtest.h>

#include <stdexcept>

#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets::memory {
namespace {

constexpr ColorRef kBlue{0xFF0000};
constexpr ColorRef kYellow{0x00FFFF};
constexpr ColorRef kGreen{0x008000};
constexpr ColorRef kWhite{0xFFFFFF};
constexpr ColorRef kBlack{0};

class EditBoxMemoryTest : public ::testing::Test, public WindowClient {
 protected:
  EditBoxMemoryTest() {
    parent = windows.CreateWindowExA({"", "", kWsPopup | kWsVisible, 0, {100, 100, 500, 400}, {}, this});
  }
  ~EditBoxMemoryTest() override {
    windows.DestroyWindow(parent);
    EXPECT_EQ(desktop.LiveObjects(), 0u);
    EXPECT_EQ(desktop.LiveTimers(), 0u);
  }

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message == kWmCtlColorEdit || message == kWmCtlColorStatic) {
      asked.push_back({message, wparam, lparam});
      if (throws) throw std::runtime_error("colours");
      if (brush) {
        desktop.Drawing().SetTextColor({static_cast<std::uint32_t>(wparam)}, kBlue);
        desktop.Drawing().SetBkColor({static_cast<std::uint32_t>(wparam)}, kYellow);
        return static_cast<LResult>(brush.value);
      }
    }
    if (message == kWmCommand && destroy_at == wparam >> 16) windows.DestroyWindow(edit);
    return windows.DefWindowProcA(window, message, wparam, lparam);
  }

  void Make(std::uint32_t style, PixelRect rect = {10, 10, 110, 74}) {
    edit = windows.CreateWindowExA({"edit", "", kWsChild | kWsVisible | style, 0, rect, parent, nullptr});
    desktop.Settle();
    asked.clear();
  }
  LResult Send(std::uint32_t message, WParam wparam = 0, LParam lparam = 0) {
    return windows.SendMessageA(edit, message, wparam, lparam);
  }
  void Set(const std::string& bytes) { Send(kWmSetText, 0, reinterpret_cast<LParam>(bytes.c_str())); }
  std::string Text() { return windows.GetWindowTextA(edit); }
  std::pair<int, int> Selected() {
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    Send(kEmGetSel, reinterpret_cast<WParam>(&start), reinterpret_cast<LParam>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
  }
  // Client pixels of the edit box.
  Picture Shown() {
    PixelRect rect;
    windows.GetWindowRect(edit, rect);
    return desktop.Capture(rect);
  }
  PixelPoint OnScreen(PixelPoint inside) {
    windows.ClientToScreen(edit, inside);
    return inside;
  }

  struct Question {
    std::uint32_t message;
    WParam wparam;
    LParam lparam;
  };

  Desktop desktop;
  MemoryWindows& windows = desktop.Windows();
  WindowHandle parent;
  WindowHandle edit;
  ObjectHandle brush;
  std::vector<Question> asked;
  bool throws = false;
  WParam destroy_at = 0;
};

TEST_F(EditBoxMemoryTest, TheParentIsAskedForColoursAtEveryPaint) {
  Make(kEsMultiLine);
  for (int i = 0; i < 3; ++i) {
    windows.InvalidateRect(edit);
    desktop.Settle();
  }
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_EQ(asked[0].message, kWmCtlColorEdit);
  EXPECT_EQ(asked[0].wparam, windows.GetDC(edit).value);
  EXPECT_EQ(asked[0].lparam, static_cast<LParam>(edit.value));
}

TEST_F(EditBoxMemoryTest, ADisabledOrReadOnlyBoxAsksForTheColoursOfALabel) {
  Make(kEsMultiLine);
  windows.EnableWindow(edit, false);
  desktop.Settle();
  ASSERT_FALSE(asked.empty());
  EXPECT_EQ(asked.back().message, kWmCtlColorStatic);
  windows.EnableWindow(edit, true);
  Send(kEmSetReadOnly, 1);
  desktop.Settle();
  EXPECT_EQ(asked.back().message, kWmCtlColorStatic);
  Send(kEmSetReadOnly, 0);
  desktop.Settle();
  EXPECT_EQ(asked.back().message, kWmCtlColorEdit);
}

TEST_F(EditBoxMemoryTest, TheParentsBrushAndColoursAreUsed) {
  brush = desktop.Drawing().CreateSolidBrush(kGreen);
  Make(kEsMultiLine);
  Set("  ");
  const Picture shown = Shown();
  EXPECT_EQ(shown.At({90, 40}), kGreen);
  EXPECT_EQ(shown.At({1, 1}), kYellow);
  Set("MMM");
  const Picture text = Shown();
  EXPECT_NE(std::count(text.pixels.begin(), text.pixels.end(), kBlue.value), 0);
  desktop.Drawing().DeleteObject(brush);
}

TEST_F(EditBoxMemoryTest, WithoutAParentsBrushTheBoxIsFilledInTheWindowColour) {
  Make(0);
  EXPECT_EQ(Shown().At({50, 30}), kWhite);
  windows.EnableWindow(edit, false);
  EXPECT_EQ(Shown().At({50, 30}), desktop.Drawing().GetSysColor(kColorButtonFace));
}

TEST_F(EditBoxMemoryTest, APaintThatThrowsLeavesTheBoxUsable) {
  Make(0);
  throws = true;
  windows.InvalidateRect(edit);
  EXPECT_THROW(desktop.Settle(), std::runtime_error);
  throws = false;
  Set("a");
  desktop.Settle();
  EXPECT_EQ(Text(), "a");
}

TEST_F(EditBoxMemoryTest, TheCaretBlinksByTheHandClockWithoutAPaint) {
  Make(kEsMultiLine);
  windows.SetFocus(edit);
  desktop.Settle();
  asked.clear();
  EXPECT_EQ(Shown().At({0, 2}), kBlack);
  desktop.Advance(529);
  EXPECT_EQ(Shown().At({0, 2}), kBlack);
  desktop.Advance(1);
  EXPECT_EQ(Shown().At({0, 2}), kWhite);
  desktop.Advance(530);
  EXPECT_EQ(Shown().At({0, 2}), kBlack);
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(desktop.LiveTimers(), 0u);
}

TEST_F(EditBoxMemoryTest, AMovedCaretIsShownAtOnce) {
  Make(0);
  Set("MM");
  windows.SetFocus(edit);
  desktop.Advance(530);
  const Picture without = Shown();
  desktop.Key(kKeyEnd);
  EXPECT_NE(Shown(), without);
  desktop.Advance(530);
  EXPECT_EQ(Shown(), without);
}

TEST_F(EditBoxMemoryTest, PartialPaintsGiveTheSamePictureAsWholeOnes) {
  Make(kEsMultiLine | kEsAutoVScroll, {10, 10, 110, 110});
  windows.SetFocus(edit);
  const auto same = [&] {
    const Picture partly = Shown();
    windows.InvalidateRect(edit);
    return partly == Shown();
  };
  desktop.Type("some words\nthat wrap over several lines\n\tand tabs");
  EXPECT_TRUE(same());
  for (const int key :
       {kKeyUp, kKeyUp, kKeyHome, kKeyDelete, kKeyBackspace, kKeyEnter, kKeyDown, kKeyPageUp}) {
    desktop.Key(key);
    EXPECT_TRUE(same()) << key;
    desktop.Key(kKeyRight, kShiftMask | kCtrlMask);
    EXPECT_TRUE(same()) << key;
    desktop.Key(kKeyDown, kShiftMask);
    EXPECT_TRUE(same()) << key;
    desktop.Type("x y");
    EXPECT_TRUE(same()) << key;
  }
  Send(kEmUndo);
  EXPECT_TRUE(same());
}

TEST_F(EditBoxMemoryTest, ASelectionIsShownOnlyWithTheFocus) {
  Make(0);
  Set("    ");
  Send(kEmSetSel, 0, -1);
  EXPECT_EQ(Shown().At({1, 1}), kWhite);
  windows.SetFocus(edit);
  EXPECT_EQ(Shown().At({1, 1}), desktop.Drawing().GetSysColor(kColorHighlight));
  windows.SetFocus(parent);
  EXPECT_EQ(Shown().At({1, 1}), kWhite);
}

TEST_F(EditBoxMemoryTest, ASelectionIsKeptInSightByItsStyle) {
  Make(kEsNoHideSel);
  Set("    ");
  Send(kEmSetSel, 0, -1);
  EXPECT_EQ(Shown().At({1, 1}), desktop.Drawing().GetSysColor(kColorHighlight));
}

TEST_F(EditBoxMemoryTest, APasswordIsNotShown) {
  Make(kEsPassword);
  Set("abc");
  const Picture first = Shown();
  Set("xyz");
  EXPECT_EQ(Shown(), first);
  Send(kEmSetPasswordChar, 0);
  EXPECT_NE(Shown(), first);
}

TEST_F(EditBoxMemoryTest, DraggingBelowScrollsALineAtATime) {
  Make(kEsMultiLine | kEsAutoVScroll | kEsAutoHScroll);
  Set("a\r\nb\r\nc\r\nd\r\ne\r\nf\r\ng\r\nh");
  desktop.MovePointer(OnScreen({1, 1}));
  desktop.Press(kLeftButton);
  desktop.MovePointer(OnScreen({1, 200}));
  EXPECT_EQ(Send(kEmGetFirstVisibleLine), 0);
  desktop.Advance(100);
  EXPECT_EQ(Send(kEmGetFirstVisibleLine), 1);
  desktop.Advance(200);
  EXPECT_EQ(Send(kEmGetFirstVisibleLine), 3);
  desktop.Release(kLeftButton);
  desktop.Advance(500);
  EXPECT_EQ(Send(kEmGetFirstVisibleLine), 3);
  EXPECT_EQ(Selected().first, 0);
}

TEST_F(EditBoxMemoryTest, DraggingBesideScrollsASingleLine) {
  Make(kEsAutoHScroll);
  Set(std::string(100, 'm'));
  desktop.MovePointer(OnScreen({1, 1}));
  desktop.Press(kLeftButton);
  desktop.MovePointer(OnScreen({250, 1}));
  desktop.Advance(1000);
  EXPECT_GT(Send(kEmGetFirstVisibleLine), 5);
  desktop.MovePointer(OnScreen({-50, 1}));
  desktop.Advance(5000);
  EXPECT_EQ(Send(kEmGetFirstVisibleLine), 0);
  desktop.Release(kLeftButton);
  EXPECT_EQ(Selected(), (std::pair{0, 0}));
}

TEST_F(EditBoxMemoryTest, ABusyClipboardPastesNothing) {
  Make(0);
  desktop.SetClipboard("new");
  desktop.SetClipboardBusy(true);
  Set("abc");
  Send(kEmSetSel, 0, 1);
  Send(kWmPaste);
  Send(kWmCut);
  EXPECT_EQ(Text(), "abc");
  desktop.SetClipboardBusy(false);
  EXPECT_EQ(desktop.Clipboard(), "new");
  Send(kWmPaste);
  EXPECT_EQ(Text(), "newbc");
}

TEST_F(EditBoxMemoryTest, AllBoxesShareOneClipboardOfUtf8) {
  Make(0);
  desktop.SetClipboard("\xE2\x82\xAC\xD0\x96");
  Send(kWmPaste);
  EXPECT_EQ(Text(), "\xE2\x82\xAC?");
  Send(kEmSetSel, 0, 1);
  Send(kWmCopy);
  EXPECT_EQ(desktop.Clipboard(), "\xE2\x82\xAC");
}

TEST_F(EditBoxMemoryTest, AParentMayDestroyTheBoxFromAnyNotice) {
  for (const std::uint32_t code : {kEnChange, kEnUpdate, kEnSetFocus, kEnKillFocus, kEnMaxText, kEnVScroll}) {
    destroy_at = 0;
    Make(kEsMultiLine | kEsAutoVScroll);
    Set("a\r\nb\r\nc\r\nd\r\ne\r\nf");
    Send(kEmSetLimitText, 17);
    destroy_at = code;
    windows.SetFocus(edit);
    if (windows.IsWindow(edit)) desktop.Key(kKeyEnd, kCtrlMask);
    if (windows.IsWindow(edit)) desktop.Type("xy");
    if (windows.IsWindow(edit)) windows.SetFocus(parent);
    EXPECT_FALSE(windows.IsWindow(edit)) << code;
    desktop.Advance(2000);
  }
}

TEST_F(EditBoxMemoryTest, AParentMayDestroyTheBoxThatIsDragged) {
  Make(kEsMultiLine | kEsAutoVScroll);
  Set("a\r\nb\r\nc\r\nd\r\ne\r\nf\r\ng\r\nh");
  desktop.MovePointer(OnScreen({1, 1}));
  desktop.Press(kLeftButton);
  desktop.MovePointer(OnScreen({1, 200}));
  destroy_at = kEnVScroll;
  desktop.Advance(500);
  EXPECT_FALSE(windows.IsWindow(edit));
  desktop.Release(kLeftButton);
}

TEST_F(EditBoxMemoryTest, TheLoopEndsWhileACaretBlinks) {
  Make(0);
  windows.SetFocus(edit);
  EXPECT_EQ(desktop.Clock().Run(), 0);
}

TEST_F(EditBoxMemoryTest, TheWindowTitleBecomesTheText) {
  edit = windows.CreateWindowExA(
      {"EDIT", "caf\xC3\xA9", kWsChild | kEsUpperCase, 0, {0, 0, 90, 20}, parent, nullptr});
  EXPECT_EQ(Text(), "CAF\xC3\x89");
  EXPECT_EQ(Send(kEmGetModify), 0);
}

TEST_F(EditBoxMemoryTest, AlignmentFollowsTheStyle) {
  Make(kEsAutoHScroll);
  Set("abc");
  const auto first = PointOfLParam(Send(kEmPosFromChar, 0));
  EXPECT_EQ(first.x, 0);
  windows.SetWindowLongA(edit, kGwlStyle, windows.GetWindowLongA(edit, kGwlStyle) | kEsRight);
  EXPECT_GT(PointOfLParam(Send(kEmPosFromChar, 0)).x, 50);
}

TEST_F(EditBoxMemoryTest, AScrolledLineThatIsDeletedShowsItsStartAgain) {
  Make(kEsAutoHScroll);
  Set(std::string(200, 'x'));
  windows.SetFocus(edit);
  desktop.Key(kKeyEnd);
  EXPECT_LT(PointOfLParam(Send(kEmPosFromChar, 0)).x, 0);
  Send(kEmSetSel, 3, -1);
  desktop.Key(kKeyDelete);
  EXPECT_EQ(Text(), "xxx");
  EXPECT_GE(PointOfLParam(Send(kEmPosFromChar, 0)).x, 0);
}

// Slanted letters reach over their places.
class EditBoxSlantedTest : public EditBoxMemoryTest {
 protected:
  void SetUp() override {
    font = desktop.Drawing().CreateFontA({.height = -16, .italic = true, .face_name = "Times New Roman"});
    Make(kEsAutoHScroll);
    Send(kWmSetFont, font.value);
    Set("fjfjf fjfjf");
    desktop.Settle();
  }
  void TearDown() override {
    windows.DestroyWindow(edit);
    desktop.Drawing().DeleteObject(font);
  }
  ObjectHandle font;
};

TEST_F(EditBoxSlantedTest, ACaretBetweenTwoLettersCutsNeither) {
  const Picture before = Shown();
  windows.SetFocus(edit);
  for (int position = 0; position <= 11; ++position) {
    Send(kEmSetSel, static_cast<WParam>(position), position);
    windows.InvalidateRect(edit);
    desktop.Settle();
    Picture with_caret = Shown();
    constexpr std::uint32_t kBlink = 530;
    desktop.Advance(kBlink);
    Picture without = Shown();
    EXPECT_TRUE((with_caret == before) != (without == before)) << position;
  }
}

TEST_F(EditBoxSlantedTest, APartThatIsPaintedAloneShowsTheLettersThatReachIntoIt) {
  const Picture before = Shown();
  for (int x = 0; x < before.size.width; ++x) {
    windows.InvalidateRect(edit, {x, 0, x + 1, before.size.height});
    desktop.Settle();
    ASSERT_EQ(Shown(), before) << "column " << x;
  }
}

TEST_F(EditBoxMemoryTest, ALineOfManyMegabytesCanBeEdited) {
  Make(kEsMultiLine | kEsAutoVScroll | kEsAutoHScroll);
  Send(kEmSetLimitText, 0);
  Set(std::string(10 << 20, 'x'));
  windows.SetFocus(edit);
  desktop.Key(kKeyEnd);
  desktop.Type("abc");
  EXPECT_EQ(Send(kWmGetTextLength), (10 << 20) + 3);
  EXPECT_EQ(Send(kEmGetLineCount), 1);
  EXPECT_EQ(Send(kEmGetSel), -1);
  desktop.Key(kKeyHome);
  desktop.Type("y");
  EXPECT_EQ(Selected(), (std::pair{1, 1}));
}

}  // namespace
}  // namespace levelwidgets::memory
