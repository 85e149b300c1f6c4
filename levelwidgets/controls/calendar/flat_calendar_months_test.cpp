// FlatCalendar: the month view and what is clicked in it.
#include <levelwidgets/controls/calendar/flat_calendar_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Variant DateOf(const std::string& text, ConversionApi& conversions) { return conversions.ToDate(text).value; }

// --- Opening -----------------------------------------------------------------------------------------

TEST_F(FlatCalendarTest, ThePanelIsDetachedByTheSameCallsInTheSameOrderAtEachOpening) {
  Open();
  for (int opening = 0; opening < 2; ++opening) {
    Driver().Key(kKeyEscape);
    std::vector<std::string> texts;
    for (const TracedCall& call : CallsNamed({"SetWindowLongA", "SetParent", "GetWindowRect", "SetTimer"},
                                             [&] { Driver().KeyDown(kKeyF4, 0); })) {
      texts.push_back(call.ToString());
    }
    const std::string panel = std::to_string(Calendar().Panel()->hWnd().value);
    const std::string control = std::to_string(Calendar().hWnd().value);
    ASSERT_EQ(texts.size(), 5u);
    EXPECT_THAT(std::vector(texts.begin(), texts.begin() + 4),
                ElementsAre("SetWindowLongA(" + panel + ", -16, -2139095040)",
                            "SetWindowLongA(" + panel + ", -20, 128)", "SetParent(" + panel + ", 0)",
                            "GetWindowRect(" + control + ")"));
    EXPECT_THAT(texts[4], ::testing::StartsWith("SetTimer(100"));
    Driver().KeyUp(kKeyF4, 0);
  }
}

TEST_F(FlatCalendarTest, ThePanelHasItsSizeWithABorderOfOnePixel) {
  Open();
  EXPECT_EQ(PanelRect().width(), 2320 / 15);
  EXPECT_EQ(PanelRect().height(), 2260 / 15);
  PixelRect client;
  Windows().GetClientRect(Calendar().Panel()->hWnd(), client);
  EXPECT_EQ(client, (PixelRect{0, 0, 2320 / 15 - 2, 2260 / 15 - 2}));
}

TEST_F(FlatCalendarTest, OpensAtTheMonthOfTheValueInTheViewOfDays) {
  OpenAt(kMay31);
  EXPECT_EQ(Header(), "M A Y   2 0 2 4 ");
  EXPECT_TRUE(Months().DaysFrame().Visible());
  EXPECT_FALSE(Months().MonthsFrame().Visible());
  ClickOn(OnHead());
  ASSERT_TRUE(Months().MonthsFrame().Visible());
  Driver().Key(kKeyEscape);
  Open();
  EXPECT_TRUE(Months().DaysFrame().Visible());
  EXPECT_FALSE(Months().MonthsFrame().Visible());
}

TEST_F(FlatCalendarTest, OpensAtAMonthThatWasTyped) {
  Calendar();
  Driver().Type("2/10/2023");
  Open();
  EXPECT_EQ(Header(), "F E B   2 0 2 3 ");
}

TEST_F(FlatCalendarTest, OpensAtTodaysMonthWithoutADate) {
  Platform& platform = Tracer();
  const Date now = platform.Clock().Now();
  Calendar().SetValue(now);
  Open();
  const std::string header = Header();
  Driver().Key(kKeyEscape);
  for (const Variant& value : {Variant(""), Variant(Null{})}) {
    OpenAt(value);
    EXPECT_EQ(Header(), header);
    Driver().Key(kKeyEscape);
  }
}

// The last possible month has days beyond the last possible one.
TEST_F(FlatCalendarTest, OpensAtTodaysMonthWhereThatOfTheValueCannotBeShown) {
  Open();
  const std::string header = Header();
  Driver().Key(kKeyEscape);
  OpenAt("12/15/9999");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Header(), header);
}

// --- Moving ------------------------------------------------------------------------------------------

TEST_F(FlatCalendarTest, TheArrowsStepMonthsAndADoubleClickSteps) {
  OpenAt("12/10/2024");
  ClickOn(OnArrow(kMoveForward));
  EXPECT_EQ(Header(), "J A N   2 0 2 5 ");
  ClickOn(OnArrow(kMoveBack));
  EXPECT_EQ(Header(), "D E C   2 0 2 4 ");
  Driver().Advance(600);
  Driver().DoubleClick(OnArrow(kMoveBack));
  EXPECT_EQ(Header(), "O C T   2 0 2 4 ");
}

TEST_F(FlatCalendarTest, TheHeaderChangesTheViewAndTheArrowsStepYearsThere) {
  OpenAt(kMay31);
  ClickOn(OnHead());
  EXPECT_EQ(Header(), "2 0 2 4 ");
  EXPECT_FALSE(Months().DaysFrame().Visible());
  EXPECT_TRUE(Months().MonthsFrame().Visible());
  ClickOn(OnArrow(kMoveForward));
  EXPECT_EQ(Header(), "2 0 2 5 ");
  Driver().Advance(600);
  Driver().DoubleClick(OnArrow(kMoveBack));
  EXPECT_EQ(Header(), "2 0 2 3 ");
  ClickOn(OnHead());
  EXPECT_EQ(Header(), "M A Y   2 0 2 3 ");
  EXPECT_TRUE(Months().DaysFrame().Visible());
}

TEST_F(FlatCalendarTest, AMonthShowsItsDaysAndThePanelKeepsTheFocus) {
  OpenAt(kMay31);
  ClickOn(OnHead());
  const auto& months = Months();
  const char* names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int i = 0; i < kMonthCells; ++i) EXPECT_EQ(months.Month(i).Caption(), names[i]);
  ClickOn(OnMonth(11));
  EXPECT_EQ(Header(), "D E C   2 0 2 4 ");
  EXPECT_TRUE(months.DaysFrame().Visible());
  EXPECT_EQ(Windows().GetFocus(), Calendar().Panel()->hWnd());
  EXPECT_TRUE(IsOpen());
}

TEST_F(FlatCalendarTest, AMonthGivesTheFocusBackToThePanel) {
  OpenAt(kMay31);
  ClickOn(OnHead());
  const auto calls = CallsNamed({"SetFocus"}, [this] { ClickOn(OnMonth(11)); });
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].ToString(), "SetFocus(" + std::to_string(Calendar().Panel()->hWnd().value) + ")");
}

TEST_F(FlatCalendarTest, TheViewThatIsChangedToIsSeen) {
  Calendar().SetCalBackColor(Color(0x00E0E0E0));
  Calendar().SetCalForeColor(Color(0x00102030));
  OpenAt("5/31/2019");
  const PixelPoint selected = MiddleOf(DayPlace(33), kMonthFrame.position);
  const PixelPoint corner{selected.x - 8, selected.y - 6};
  EXPECT_EQ(Driver().PixelAt(corner), Concrete(Calendar().CalSelectBackColor()));
  for (int turn = 0; turn < 2; ++turn) {
    ClickOn(OnHead());
    const PixelPoint shown = OnMonth(4);
    EXPECT_EQ(Driver().PixelAt({shown.x - 14, shown.y - 10}), ColorRef{0x004A5052});
    EXPECT_EQ(PixelOnPanel(240 + 30, 360 + 240 + 30), ColorRef{0x00E0E0E0});
    bool has_title = false;
    for (int x = 300; x < 2100; x += 15) has_title |= PixelOnPanel(x, 360 + 105) != ColorRef{0x00E0E0E0};
    EXPECT_TRUE(has_title);
    ClickOn(OnHead());
    EXPECT_EQ(Driver().PixelAt(corner), Concrete(Calendar().CalSelectBackColor()));
  }
}

TEST_F(FlatCalendarTest, TheShownMonthIsMarkedInAColourOfItsOwn) {
  Calendar().SetCalBackColor(Color(0x00E0E0E0));
  OpenAt(kMay31);
  ClickOn(OnHead());
  for (int i = 0; i < kMonthCells; ++i) {
    const bool shown = i == 4;
    EXPECT_EQ(Months().Month(i).BackColor(), shown ? Color(0x004A5052) : Color(0x00E0E0E0)) << i;
    EXPECT_EQ(Months().Month(i).BackColorMouseOver(),
              shown ? Color(0x004A5052) : Calendar().CalMouseOverColor())
        << i;
  }
  ClickOn(OnMonth(0));
  ClickOn(OnHead());
  EXPECT_EQ(Months().Month(4).BackColorMouseOver(), Calendar().CalMouseOverColor());
  EXPECT_EQ(Months().Month(0).BackColorMouseOver(), Color(0x004A5052));
}

TEST_F(FlatCalendarTest, ArrowsAndMonthsHoverAndTheHeaderIsALink) {
  OpenAt(kMay31);
  Driver().MovePointer(OnArrow(kMoveBack));
  EXPECT_EQ(Months().Arrow(kMoveBack).BackColor(), Calendar().CalMouseOverColor());
  Driver().MovePointer(OnHead());
  EXPECT_EQ(Months().Head().BackColor(), Calendar().CalBackColor());
  EXPECT_TRUE(Months().Head().GetFont()->Underline());
  Watched();
  EXPECT_EQ(Months().Arrow(kMoveBack).BackColor(), Calendar().CalBackColor());
  Driver().MovePointer(OnArrow(kMoveBack));
  Watched();
  EXPECT_FALSE(Months().Head().GetFont()->Underline());
  ClickOn(OnHead());
  Driver().MovePointer(OnMonth(7));
  EXPECT_EQ(Months().Month(7).BackColor(), Calendar().CalMouseOverColor());
  Driver().MovePointer(OnMonth(4));
  EXPECT_FALSE(Months().Month(4).GetFont()->Underline());
}

TEST_F(FlatCalendarTest, TheArrowsStopAtTheEndsOfTime) {
  OpenAt("11/15/9999");
  ClickOn(OnArrow(kMoveForward));
  EXPECT_EQ(Header(), "N O V   9 9 9 9 ");
  ClickOn(OnArrow(kMoveBack));
  EXPECT_EQ(Header(), "O C T   9 9 9 9 ");
  ClickOn(OnHead());
  ClickOn(OnArrow(kMoveForward));
  EXPECT_EQ(Header(), "9 9 9 9 ");
  ClickOn(OnMonth(11));
  EXPECT_EQ(Header(), "9 9 9 9 ");
  EXPECT_TRUE(Months().MonthsFrame().Visible());
  ClickOn(OnMonth(0));
  EXPECT_EQ(Header(), "J A N   9 9 9 9 ");
}

// --- Picking -----------------------------------------------------------------------------------------

TEST_F(FlatCalendarTest, AClickedDayClosesThePanelAndIsTakenOver) {
  Calendar().SetDateFormat("yyyy-mm-dd");
  OpenAt("5/15/2024");
  EXPECT_THAT(EventsOf([this] { ClickOn(OnDay(33)); }), ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
  EXPECT_EQ(TextShown(), "2024-05-31");
  EXPECT_EQ(Windows().GetFocus(), Calendar().ActiveEdit().hWnd());
}

TEST_F(FlatCalendarTest, ThePanelIsClosedWhenTheDayIsTakenOver) {
  OpenAt("5/15/2024");
  bool open = true;
  Calendar().Change += [&] { open = IsOpen(); };
  ClickOn(OnDay(33));
  EXPECT_FALSE(open);
}

TEST_F(FlatCalendarTest, TheCaretIsAtTheBeginningOfADayThatWasPicked) {
  OpenAt("5/15/2024");
  ClickOn(OnDay(33));
  EXPECT_EQ(Calendar().SelStart(), 0);
  EXPECT_EQ(Calendar().SelLength(), 0);
}

TEST_F(FlatCalendarTest, ADayOfTheMonthBeforeIsTakenOverAtOnce) {
  OpenAt(kMay31);
  ClickOn(OnDay(0));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Calendar().Value(), DateOf("4/28/2024", Tracer().Conversions()));
}

TEST_F(FlatCalendarTest, EveryCellPicksItsOwnDate) {
  const double first = kMay31.days - 33;
  for (const int cell : {0, 6, 7, 20, 35, 41}) {
    OpenAt(kMay31);
    ClickOn(OnDay(cell));
    EXPECT_EQ(Calendar().Value(), Variant(Date{first + cell})) << cell;
  }
}

TEST_F(FlatCalendarTest, AHandlerMayRemoveTheControlWhenADayIsTakenOver) {
  OpenAt(kMay31);
  Calendar().Change += [this] { TheForm().Remove("edt"); };
  Driver().Click(OnDay(10));
  Driver().Advance(300);
  EXPECT_FALSE(TheForm().Find("edt"));
}

// --- Closing -----------------------------------------------------------------------------------------

TEST_F(FlatCalendarTest, EscapeChangesNothingAndRaisesNoEventOfItsOwn) {
  OpenAt(kMay31);
  ClickOn(OnArrow(kMoveForward));
  EXPECT_THAT(EventsOf([this] { Driver().Key(kKeyEscape); }), ElementsAre("KeyUp(27, 0)"));
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatCalendarTest, OtherButtonsDoNothingInTheMonthView) {
  OpenAt(kMay31);
  for (const PixelPoint at : {OnDay(10), OnArrow(kMoveForward), OnHead()}) {
    Driver().MovePointer(at);
    for (const int button : {kRightButton, kMiddleButton}) {
      Driver().Press(button);
      Driver().Release(button);
    }
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Header(), "M A Y   2 0 2 4 ");
    EXPECT_EQ(Calendar().Value(), Variant(kMay31));
  }
  ClickOn(OnHead());
  Driver().MovePointer(OnMonth(0));
  Driver().Press(kRightButton);
  Driver().Release(kRightButton);
  EXPECT_EQ(Header(), "2 0 2 4 ");
}

TEST_F(FlatCalendarTest, APressThatLeavesAnArrowStepsNothing) {
  OpenAt(kMay31);
  Driver().MovePointer(OnArrow(kMoveForward));
  Driver().Press(kLeftButton);
  Driver().MovePointer(OnHead());
  Driver().Release(kLeftButton);
  EXPECT_EQ(Header(), "M A Y   2 0 2 4 ");
  EXPECT_TRUE(Months().DaysFrame().Visible());
}

TEST_F(FlatCalendarTest, ADoubleClickOnTheHeaderChangesTheViewOnce) {
  OpenAt(kMay31);
  Driver().DoubleClick(OnHead());
  EXPECT_TRUE(Months().MonthsFrame().Visible());
}

TEST_F(FlatCalendarTest, TheTabKeyGoesOnFromTheOpenPanelWhichCloses) {
  Calendar();
  auto& other = AddLoaded<FlatCalendar>("other", {}, {Twips(600), Twips(1500)});
  Driver().Type("5/31/2024");
  Open();
  Driver().Key(kKeyTab);
  Watched();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Windows().GetFocus(), other.ActiveEdit().hWnd());
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
}

TEST_F(FlatCalendarTest, NoKeyMovesThroughTheDays) {
  OpenAt(kMay31);
  for (const int code : {37, 38, 39, 40, 33, 34, 35, 36, int{kKeyEnter}, int{kKeyF4}}) Driver().Key(code);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Header(), "M A Y   2 0 2 4 ");
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
}

}  // namespace
}  // namespace levelwidgets::testing
