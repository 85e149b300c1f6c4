// FlatDropDown: opening its list, keys and the pointer.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Opening -----------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, AnEmptyListDoesNotOpenAndTheStripOnlyChangesItsColour) {
  Make(0);
  Driver().Key(kKeyF4);
  Driver().Key(kKeyDown, kAltMask);
  EXPECT_FALSE(IsOpen());
  Driver().MovePointer(Strip());
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColorMouseOver()));
  Driver().Press(kLeftButton);
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColor()));
  Driver().Release(kLeftButton);
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColorMouseOver()));
  EXPECT_FALSE(IsOpen());
}

// Every call on the panel's window, the control's rectangle and the watch.
std::vector<std::string> OpeningCalls(const std::vector<TracedCall>& calls, WindowHandle panel,
                                      WindowHandle control) {
  std::vector<std::string> texts;
  for (const TracedCall& call : calls) {
    std::string text = call.ToString();
    const auto name_window = [&](WindowHandle window, const std::string& name) {
      const std::string number = "(" + std::to_string(window.value);
      const auto at = text.find(number);
      if (at != std::string::npos && !std::isdigit(static_cast<unsigned char>(text[at + number.size()]))) {
        text.replace(at + 1, number.size() - 1, name);
      }
    };
    name_window(panel, "panel");
    name_window(control, "control");
    const bool is_of_them = text.find("(panel") != std::string::npos ||
                            text.starts_with("GetWindowRect(control") || text.starts_with("SetTimer(100") ||
                            text.find("\"abcABC\"") != std::string::npos;
    if (is_of_them) texts.push_back(text);
  }
  return texts;
}

TEST_F(FlatDropDownTest, ThePanelIsLiftedOutMeasuredPlacedShownAndWatchedInThisOrderAtEachOpening) {
  Make(1);
  for (int opening = 0; opening < 2; ++opening) {
    const auto calls = CallsNamed({"SetWindowLongA", "SetParent", "SetWindowPos", "GetWindowRect",
                                   "ShowWindow", "SetFocus", "SetTimer", "DrawTextA"},
                                  [&] { Driver().KeyDown(kKeyF4, 0); });
    std::vector<std::string> texts = OpeningCalls(calls, Drop().Panel()->hWnd(), Drop().hWnd());
    const PixelRect rect = PanelRect();
    const std::string size = std::to_string(rect.width()) + ", " + std::to_string(rect.height());
    const auto place = [&](int left, int top) {
      return std::to_string(left) + ", " + std::to_string(top) + ", " + size;
    };
    ASSERT_EQ(texts.size(), 13u);
    EXPECT_TRUE(texts[4].starts_with("DrawTextA(")) << texts[4];
    texts.erase(texts.begin() + 4);
    EXPECT_TRUE(texts.back().starts_with("SetTimer(100")) << texts.back();
    texts.pop_back();
    EXPECT_THAT(
        texts,
        ElementsAre("SetWindowLongA(panel, -20, 128)", "SetParent(panel, 0)",
                    "SetWindowLongA(panel, -16, -2139095040)", "SetWindowPos(panel, -1, 0, 0, 0, 0, 9)",
                    "SetWindowPos(panel, 0, " +
                        place(opening == 0 ? 0 : rect.left, opening == 0 ? 0 : rect.top) + ", 20)",
                    "GetWindowRect(control)",
                    "SetWindowPos(panel, 0, " + place(opening == 0 ? 0 : rect.left, rect.top) + ", 20)",
                    "SetWindowPos(panel, 0, " + place(rect.left, rect.top) + ", 20)", "ShowWindow(panel, 4)",
                    "SetWindowPos(panel, 0, 0, 0, 0, 0, 19)", "SetFocus(panel)"))
        << opening;
    Driver().KeyUp(kKeyF4, 0);
    Driver().Key(kKeyEscape);
  }
}

TEST_F(FlatDropDownTest, ThePanelStandsBelowTheControlWithARowForEachItemUpToEight) {
  Make(3);
  Open();
  const PixelRect control = ControlRect();
  EXPECT_EQ(PanelRect().left, control.left);
  EXPECT_EQ(PanelRect().top, control.bottom);
  EXPECT_EQ(PanelRect().width(), 2880 / 15);
  const int three = PanelRect().height();
  Driver().Key(kKeyEscape);
  for (int i = 0; i < 20; ++i) Add("more");
  Open();
  EXPECT_EQ((PanelRect().height() - 2) * 3, (three - 2) * 8);
}

TEST_F(FlatDropDownTest, EightItemsAreEightRowsWithoutABarAndNineAreEightWithOne) {
  Make(8);
  Open();
  const int eight = PanelRect().height();
  EXPECT_FALSE(Drop().Bar().Visible());
  Driver().Key(kKeyEscape);
  Add("9");
  Open();
  EXPECT_EQ(PanelRect().height(), eight);
  EXPECT_TRUE(Drop().Bar().Visible());
  EXPECT_EQ(Drop().Bar()->Max(), 2);
  EXPECT_EQ(Drop().Bar().Size().height, Drop().Panel()->ScaleHeight());
  EXPECT_EQ(Drop().Bar().Position().x + Drop().Bar().Size().width, Drop().Panel()->ScaleWidth());
}

TEST_F(FlatDropDownTest, TheListOpensAboveAControlNearTheBottomOfTheScreen) {
  Make(8);
  const int bottom = Tracer().Screen().Size().height;
  TheForm().MoveTo({100, bottom - 100});
  Open();
  EXPECT_EQ(PanelRect().bottom, ControlRect().top);
  EXPECT_EQ(PanelRect().left, ControlRect().left);
}

TEST_F(FlatDropDownTest, TheListOfAWiderControlEndsWhereTheControlEnds) {
  Make(3);
  Drop().SetDropDownWidth(900);
  Open();
  EXPECT_EQ(PanelRect().right, ControlRect().right);
  EXPECT_EQ(PanelRect().width(), 60);
}

// --- Keys --------------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, KeysMoveTheHighlight) {
  Make(20);
  Open();
  struct Step {
    std::int16_t key;
    std::int16_t index;
  };
  for (const Step step :
       {Step{kKeyDown, 1}, Step{kKeyDown, 2}, Step{kKeyUp, 1}, Step{kKeyUp, 1}, Step{kKeyPageDown, 8},
        Step{kKeyPageDown, 15}, Step{kKeyPageDown, 20}, Step{kKeyDown, 20}, Step{kKeyPageUp, 13},
        Step{kKeyPageUp, 6}, Step{kKeyPageUp, 1}, Step{kKeyEnd, 20}, Step{kKeyHome, 0}}) {
    Driver().Key(step.key);
    EXPECT_EQ(Drop().ListIndex(), step.index) << step.key;
  }
  EXPECT_EQ(Drop().TopIndex(), 1);
}

TEST_F(FlatDropDownTest, EnterTakesTheHighlightedItemAndEscapeNone) {
  Make(3);
  Open();
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEscape);
  EXPECT_EQ(Drop().Text(), "");
  EXPECT_EQ(Drop().ListIndex(), 1);
  Open();
  Driver().Key(kKeyDown);
  EXPECT_THAT(EventsOf([&] { Driver().Key(kKeyEnter); }),
              ElementsAre("PropertyChanged(Text)", "Change()", "KeyUp(13, 0)"));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Drop().Text(), "2");
}

TEST_F(FlatDropDownTest, EnterWithNothingHighlightedClosesTheListAndFailsInTheLookUp) {
  Make(3);
  Drop().SetText("kept");
  Open();
  Driver().Key(kKeyHome);
  try {
    Driver().Key(kKeyEnter);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kSubscriptOutOfRange);
  }
  Driver().Settle();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Drop().Text(), "kept");
}

// --- Pointer -----------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, ThePointerHighlightsAndAPressTakesTheRow) {
  Make(20);
  Open();
  Driver().MovePointer(Row(2));
  EXPECT_EQ(Drop().ListIndex(), 3);
  EXPECT_EQ(Drop().Text(), "");
  Driver().Press(kLeftButton);
  EXPECT_EQ(Drop().Text(), "3");
  EXPECT_FALSE(IsOpen());
  Driver().Release(kLeftButton);
}

TEST_F(FlatDropDownTest, APressTakesTheHighlightedItemWhateverRowIsUnderThePointer) {
  Make(8);
  Open();
  Driver().MovePointer(Row(1));
  Drop().SetListIndex(3);
  Driver().Press(kLeftButton);
  EXPECT_EQ(Drop().Text(), "3");
  Driver().Release(kLeftButton);
}

TEST_F(FlatDropDownTest, ARowIsTakenByThePointerBeforeTheListClosesAndByEnterAfterwards) {
  Make(8);
  std::vector<bool> open;
  Drop().Change += [&] { open.push_back(IsOpen()); };
  Open();
  Driver().MovePointer(Row(1));
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  Open();
  Drop().SetListIndex(3);
  Driver().Key(kKeyEnter);
  EXPECT_THAT(open, ElementsAre(true, false));
}

TEST_F(FlatDropDownTest, AnOpenListFollowsItsItems) {
  Make(8);
  Open();
  Drop().SetListIndex(5);
  Add("9");
  EXPECT_TRUE(Drop().Bar().Visible());
  std::int16_t last = 9;
  Drop().RemoveItem(last);
  EXPECT_FALSE(Drop().Bar().Visible());
  EXPECT_EQ(Drop().ListIndex(), 5);
  Drop().SetText("kept");
  Drop().Clear();
  EXPECT_EQ(ErrorOf([&] { Driver().Key(kKeyEnter); }), kSubscriptOutOfRange);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Drop().Text(), "kept");
}

TEST_F(FlatDropDownTest, TheStripOfAnotherListClosesTheOneAndOpensTheOther) {
  Make(5);
  auto& other = AddLoaded<FlatDropDown>("other", {}, {Twips(3600), Twips(600)}, {Twips(1800), Twips(315)});
  for (std::string item : {"x", "y"}) other.AddItem(item);
  Open();
  const PixelRect rect = RectOf(other.hWnd());
  Driver().Click({rect.right - 6, (rect.top + rect.bottom) / 2});
  Watched();
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(other.PanelIsOpen());
  EXPECT_EQ(Windows().GetFocus(), other.Panel()->hWnd());
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  EXPECT_EQ(other.Text(), "x");
  EXPECT_EQ(Drop().Text(), "");
}

TEST_F(FlatDropDownTest, ThePointerOverRowsBeyondTheListHighlightsTheLastItem) {
  Make(20);
  Open();
  for (const int first : {17, 32767}) {
    Drop().SetTopIndex(static_cast<std::int16_t>(first));
    Driver().MovePointer(Row(first % 4));
    Driver().MovePointer(Row(5));
    EXPECT_EQ(Drop().ListIndex(), 20) << first;
  }
}

TEST_F(FlatDropDownTest, APressOnTheFirstPixelsOfThePanelTakesNothingAndCloses) {
  Make(3);
  for (const PixelPoint inside : {PixelPoint{0, 5}, PixelPoint{5, 0}}) {
    Open();
    const PixelPoint at{PanelRect().left + 1 + inside.x, PanelRect().top + 1 + inside.y};
    Driver().MovePointer(at);
    EXPECT_EQ(Drop().ListIndex(), 1);
    Driver().Press(kLeftButton);
    Driver().Release(kLeftButton);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Drop().Text(), "");
  }
}

TEST_F(FlatDropDownTest, APressWithNothingHighlightedClosesTheListAndFailsInTheLookUp) {
  Make(3);
  Drop().SetText("kept");
  Open();
  Driver().MovePointer(Row(1));
  Drop().SetListIndex(0);
  EXPECT_EQ(ErrorOf([&] { Driver().Press(kLeftButton); }), kSubscriptOutOfRange);
  Driver().Release(kLeftButton);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Drop().Text(), "kept");
}

TEST_F(FlatDropDownTest, WithoutAnEditBoxThePointerIsCapturedOverTheTextToo) {
  Make(3);
  Drop().SetStyle(1);
  Driver().MovePointer({ControlRect().left + 10, ControlRect().top + 5});
  EXPECT_EQ(Windows().GetCapture(), Drop().hWnd());
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColor()));
  Driver().Press(kLeftButton);
  EXPECT_TRUE(IsOpen());
  Driver().Release(kLeftButton);
}

TEST_F(FlatDropDownTest, AnyButtonTakesTheRow) {
  Make(3);
  Open();
  Driver().MovePointer(Row(1));
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  EXPECT_EQ(Drop().Text(), "2");
}

TEST_F(FlatDropDownTest, TheWheelScrollsAnOpenListByThreeRowsAndLeavesTheHighlight) {
  Make(20);
  Open();
  Driver().MovePointer(Row(4));
  EXPECT_EQ(Drop().ListIndex(), 5);
  EXPECT_THAT(EventsOf([&] { Driver().Wheel(-1); }), IsEmpty());
  EXPECT_EQ(Drop().TopIndex(), 4);
  Driver().Wheel(-10);
  EXPECT_EQ(Drop().TopIndex(), 13);
  Driver().Wheel(2);
  EXPECT_EQ(Drop().TopIndex(), 7);
  Driver().Wheel(10);
  EXPECT_EQ(Drop().TopIndex(), 1);
  EXPECT_EQ(Drop().ListIndex(), 5);
  EXPECT_TRUE(IsOpen());
}

TEST_F(FlatDropDownTest, PartsOfANotchOfTheWheelAddUp) {
  Make(20);
  Open();
  TurnWheel(-70);
  EXPECT_EQ(Drop().TopIndex(), 1);
  TurnWheel(-50);
  EXPECT_EQ(Drop().TopIndex(), 4);
  TurnWheel(-190);
  EXPECT_EQ(Drop().TopIndex(), 7);
  TurnWheel(-50);
  EXPECT_EQ(Drop().TopIndex(), 10);
  TurnWheel(-60);
  TurnWheel(60);
  EXPECT_EQ(Drop().TopIndex(), 10);
}

TEST_F(FlatDropDownTest, AClosedListIgnoresTheWheelAndTheRequestToClose) {
  Make(20);
  Open();
  Driver().Key(kKeyEscape);
  EXPECT_THAT(EventsOf([this] {
                TurnWheel(-120);
                Windows().SendMessageA(Drop().Panel()->hWnd(), kWmClose, 0, 0);
              }),
              IsEmpty());
  EXPECT_EQ(Drop().TopIndex(), 1);
  EXPECT_TRUE(Windows().IsWindow(Drop().Panel()->hWnd()));
}

TEST_F(FlatDropDownTest, TheWheelDoesNothingToAListWithoutABar) {
  Make(8);
  Open();
  Driver().MovePointer(Row(4));
  Driver().Wheel(-1);
  EXPECT_EQ(Drop().TopIndex(), 1);
}

TEST_F(FlatDropDownTest, TheBarOfAnOpenListScrollsItAndKeepsItOpen) {
  Make(20);
  Open();
  Driver().Click(BottomOfBar());
  EXPECT_EQ(Drop().TopIndex(), 2);
  Driver().Advance(250);
  EXPECT_TRUE(IsOpen());
  Driver().Key(kKeyDown);
  EXPECT_EQ(Drop().ListIndex(), 1);
  Driver().Key(kKeyEscape);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, APressInTheTrackOfTheBarScrollsBySevenRows) {
  Make(40);
  Open();
  Driver().Click({BottomOfBar().x, BottomOfBar().y - 20});
  EXPECT_EQ(Drop().TopIndex(), 8);
}

TEST_F(FlatDropDownTest, TheWheelAtTheEndOfAListPaintsNothing) {
  Make(20);
  Open();
  Driver().MovePointer(Row(4));
  Driver().Settle();
  EXPECT_THAT(DrawnIn(*Drop().Panel(), [&] { Driver().Wheel(1); }), IsEmpty());
  EXPECT_THAT(DrawnIn(*Drop().Panel(), [&] { Driver().Wheel(-1); }), ::testing::Not(IsEmpty()));
}

// The pointer may be captured.
TEST_F(FlatDropDownTest, APressOnTheRightOrTheLowerEdgeOfThePanelTakesNothing) {
  Make(3);
  const auto press = [&](int x, int y) {
    Open();
    Drop().SetText("");
    Drop().SetListIndex(1);
    const auto at = static_cast<LParam>(y << 16 | x);
    Windows().SendMessageA(Drop().Panel()->hWnd(), kWmLButtonDown, kMkLButton, at);
    EXPECT_FALSE(IsOpen());
    return Drop().Text();
  };
  Open();
  const int width = PanelRect().width();
  const int height = PanelRect().height();
  Driver().Key(kKeyEscape);
  EXPECT_EQ(press(width - 1, 5), "1");
  EXPECT_EQ(press(width, 5), "");
  EXPECT_EQ(press(5, height - 1), "1");
  EXPECT_EQ(press(5, height), "");
}

TEST_F(FlatDropDownTest, TheStripBeginsWhereTheTextEnds) {
  FlatDropDown& drop = Make(3);
  drop.OnMouseMove({0, 0, {Twips(1600), Twips(10)}});
  EXPECT_EQ(StripPixel(), Concrete(drop.DropDownBackColorMouseOver()));
  drop.OnMouseMove({0, 0, {Twips(1599), Twips(10)}});
  EXPECT_EQ(StripPixel(), Concrete(drop.DropDownBackColor()));
}

TEST_F(FlatDropDownTest, TheStripEndsBeforeTheRightAndTheLowerEdge) {
  Make(3);
  const PixelRect rect = ControlRect();
  const Color over = Drop().DropDownBackColorMouseOver();
  const Color rest = Drop().DropDownBackColor();
  const struct {
    PixelPoint at;
    Color color;
  } rows[] = {
      {{rect.right - 1, rect.top + 5}, over},    {{rect.right, rect.top + 5}, rest},
      {{rect.right - 3, rect.bottom - 1}, over}, {{rect.right - 3, rect.bottom}, rest},
      {{rect.right - 3, rect.top}, over},        {{rect.right - 3, rect.top - 1}, rest},
      {{rect.left + 107, rect.top + 5}, over},   {{rect.left + 106, rect.top + 5}, rest},
      {{rect.left + 10, rect.top + 5}, rest},
  };
  for (const auto& row : rows) {
    Driver().MovePointer(Strip());
    Driver().MovePointer(row.at);
    EXPECT_EQ(StripPixel(), Concrete(row.color)) << row.at.x - rect.left << " " << row.at.y - rect.top;
    EXPECT_EQ(Windows().GetCapture() == Drop().hWnd(), row.color == over);
    Driver().MovePointer({5, 5});
  }
}

TEST_F(FlatDropDownTest, WithoutAnEditBoxThePointerIsCapturedUpToTheEdgesOfTheControl) {
  Make(3);
  Drop().SetStyle(1);
  const PixelRect rect = ControlRect();
  const struct {
    PixelPoint at;
    bool inside;
  } rows[] = {
      {{rect.left, rect.top}, true},
      {{rect.left - 1, rect.top}, false},
      {{rect.left, rect.top - 1}, false},
      {{rect.left, rect.bottom}, false},
  };
  for (const auto& row : rows) {
    Driver().MovePointer({rect.left + 10, rect.top + 5});
    Driver().MovePointer(row.at);
    EXPECT_EQ(Windows().GetCapture() == Drop().hWnd(), row.inside)
        << row.at.x - rect.left << " " << row.at.y - rect.top;
    Driver().MovePointer({5, 5});
  }
}

TEST_F(FlatDropDownTest, OnlyTheReleaseOfTheLeftButtonHovers) {
  FlatDropDown& drop = Make(3);
  drop.OnMouseUp({kRightButton, 0, {Twips(1700), Twips(10)}});
  EXPECT_EQ(StripPixel(), Concrete(drop.DropDownBackColor()));
  EXPECT_FALSE(Windows().GetCapture());
  drop.OnMouseUp({kLeftButton, 0, {Twips(1700), Twips(10)}});
  EXPECT_EQ(StripPixel(), Concrete(drop.DropDownBackColorMouseOver()));
  EXPECT_EQ(Windows().GetCapture(), drop.hWnd());
}

TEST_F(FlatDropDownTest, APressDraggedShowsThePushedColour) {
  Make(0);
  Driver().MovePointer(Strip());
  Driver().Press(kLeftButton);
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColor()));
  Driver().MovePointer({Strip().x - 1, Strip().y});
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColorPushed()));
  Driver().Release(kLeftButton);
  EXPECT_EQ(StripPixel(), Concrete(Drop().DropDownBackColorMouseOver()));
  EXPECT_EQ(Windows().GetCapture(), Drop().hWnd());
}

}  // namespace
}  // namespace levelwidgets::testing
