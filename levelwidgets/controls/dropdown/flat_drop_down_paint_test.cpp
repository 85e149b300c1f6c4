// FlatDropDown: what it draws, and what its list does.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

class FlatDropDownPaintTest : public FlatDropDownTest {
 protected:
  // Of a row of the open list, where its text does not reach.
  ColorRef RowColor(int row, int from_right) {
    Driver().Settle();
    return Driver().PixelAt({PanelRect().right - from_right, Row(row).y});
  }
  int RowHeight() {
    return (PanelRect().height() - 2) / std::min(8, static_cast<int>(Drop().Items().size()));
  }
};

TEST_F(FlatDropDownPaintTest, FillsTheStripDrawsTheArrowInBlackAndTheLine) {
  FlatDropDown& drop = Make(1);
  EXPECT_THAT(DrawingCallsOf(drop, [&] { drop.OnPaint(); }),
              ElementsAre("FillRect 0 0 120 21", "SetTextColor 0", "FillRect 106 0 120 21",
                          "DrawTextA 6 -1 106 0 120 21 38"));
}

TEST_F(FlatDropDownPaintTest, WithoutAnEditBoxTheTextComesFirstAndTheFocusFrameAfterIt) {
  FlatDropDown& drop = Make(1);
  drop.SetText("kg");
  drop.SetForeColor(Color(0x00112233));
  drop.SetStyle(-1);
  Hosted(drop).SetFocus();
  EXPECT_THAT(DrawingCallsOf(drop, [&] { drop.OnPaint(); }),
              ElementsAre("FillRect 0 0 120 21", "SetTextColor 1122867", "DrawTextA kg -1 1 1 104 20 0",
                          "DrawFocusRect 0 0 106 21", "SetTextColor 0", "FillRect 106 0 120 21",
                          "DrawTextA 6 -1 106 0 120 21 38"));
}

TEST_F(FlatDropDownPaintTest, PaintsItselfWithoutAnEditBoxWhenTheTextOrTheFocusChanges) {
  FlatDropDown& drop = Make(1);
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  drop.SetStyle(1);
  Hosted(drop).SetFocus();
  const auto paints_at = [&](const std::function<void()>& act) { return !DrawingCallsOf(drop, act).empty(); };
  EXPECT_TRUE(paints_at([&] { drop.SetText("g"); }));
  EXPECT_TRUE(paints_at([&] { Driver().Key(kKeyTab); }));
  EXPECT_TRUE(paints_at([&] { Hosted(drop).SetFocus(); }));
  drop.SetStyle(0);
  EXPECT_FALSE(paints_at([&] { drop.SetText("m"); }));
}

TEST_F(FlatDropDownPaintTest, TheStripLeavesTheColourOfTheSurface) {
  FlatDropDown& drop = Make(1);
  drop.SetStyle(-1);
  EXPECT_EQ(drop.GetSurface().BackColor(), drop.BackColor());
  Driver().MovePointer(Strip());
  ASSERT_EQ(StripPixel(), Concrete(drop.DropDownBackColorMouseOver()));
  EXPECT_EQ(drop.GetSurface().BackColor(), drop.BackColor());
  EXPECT_EQ(PixelAt(drop, PixelPoint{60, 10}), Concrete(drop.BackColor()));
}

TEST_F(FlatDropDownPaintTest, ANewColourAtRestIsTheFillWhateverTheStripShows) {
  FlatDropDown& drop = Make(1);
  Driver().MovePointer(Strip());
  drop.SetDropDownBackColor(Color(0x00445566));
  EXPECT_EQ(StripPixel(), ColorRef{0x00445566});
}

TEST_F(FlatDropDownPaintTest, APressPaintsTheStripEvenWhereItHasItsColourAtRest) {
  FlatDropDown& drop = Make(0);
  Watch(drop);
  drop.OnMouseDown({kLeftButton, 0, {Twips(1700), Twips(10)}});
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatDropDownPaintTest, ColoursOfTheStripThatAreNotSeenRepaintNothing) {
  FlatDropDown& drop = Make(1);
  EXPECT_TRUE(DrawingCallsOf(drop, [&] {
                drop.SetDropDownBackColorMouseOver(Color(4));
                drop.SetDropDownBackColorPushed(Color(5));
              }).empty());
}

TEST_F(FlatDropDownPaintTest, OfNoSizeItPaintsNothingAndRaisesNothing) {
  FlatDropDown& drop = Make(1);
  Hosted(drop).Move({}, {});
  EXPECT_NO_THROW(drop.OnPaint());
  Hosted(drop).Move({}, {Twips(100), Twips(15)});  // narrower than the strip
  EXPECT_NO_THROW(drop.OnPaint());
  EXPECT_EQ(PixelAt(drop, PixelPoint{3, 0}), Concrete(drop.DropDownBackColor()));
}

TEST_F(FlatDropDownPaintTest, TheFocusFrameComesAndGoesWithTheFocus) {
  FlatDropDown& drop = Make(1);
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  drop.SetStyle(1);
  const auto frame = ::testing::Contains(::testing::StartsWith("DrawFocusRect"));
  EXPECT_THAT(DrawingCallsOf(drop, [&] { Driver().Key(kKeyTab); }), ::testing::Not(frame));
  EXPECT_THAT(DrawingCallsOf(drop, [&] { Hosted(drop).SetFocus(); }), frame);
  EXPECT_EQ(Windows().GetFocus(), drop.hWnd());
}

TEST_F(FlatDropDownPaintTest, EachChangeBetweenTheStylesPaints) {
  FlatDropDown& drop = Make(1);
  Watch(drop);
  drop.SetStyle(1);
  drop.SetStyle(2);
  drop.SetStyle(0);
  drop.SetStyle(0);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Style)", "paint", "PropertyChanged(Style)",
                                         "paint", "PropertyChanged(Style)", "PropertyChanged(Style)"));
}

TEST_F(FlatDropDownPaintTest, WithoutAnEditBoxANewTextIsSeenBeforeItIsNotified) {
  FlatDropDown& drop = Make(1);
  drop.SetStyle(1);
  Watch(drop);
  drop.SetText("kg");
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "PropertyChanged(Text)", "Change()", "PropertyChanged(Text)"));
}

TEST_F(FlatDropDownPaintTest, WithoutAnEditBoxTheTextIsInTheFontOfTheControl) {
  FlatDropDown& drop = Make(1);
  EXPECT_EQ(drop.GetSurface().GetFont(), drop.GetFont());
  drop.SetStyle(1);
  drop.SetFont(MakeFont({.name = "Tahoma", .size = 12}));
  EXPECT_EQ(drop.GetSurface().GetFont(), drop.GetFont());
}

TEST_F(FlatDropDownPaintTest, ANewHighlightIsSeenBeforeItIsNotified) {
  Make(3);
  Open();
  std::size_t drawn_before_notice = 0;
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view name) {
    if (name == "ListIndex") drawn_before_notice = Tracer().TakeCalls().size();
  });
  EXPECT_THAT(DrawnIn(*Drop().Panel(), [&] { Drop().SetListIndex(2); }), ::testing::IsEmpty());
  EXPECT_GT(drawn_before_notice, 0u);
}

TEST_F(FlatDropDownPaintTest, TheBarPaintsTheListFromItsNewFirstRow) {
  Make(20);
  Open();
  const auto drawn = DrawnIn(*Drop().Panel(), [&] { Drop().Bar()->SetValue(5); });
  EXPECT_THAT(drawn, ::testing::Contains("5"));
  EXPECT_THAT(drawn, ::testing::Not(::testing::Contains("4")));
}

// Whatever the colour of the desktop's texts.
TEST_F(FlatDropDownPaintTest, TheBarIsDrawnInBlack) { EXPECT_EQ(Make(20).Bar()->ForeColor(), Color(0)); }

TEST_F(FlatDropDownPaintTest, TheHighlightedRowIsInTheColoursOfTheSystem) {
  Make(3);
  Open();
  Drop().SetListIndex(2);
  const ColorRef window = Concrete(Color(0x80000005u));
  const ColorRef highlight = Concrete(Color(0x8000000Du));
  EXPECT_EQ(RowColor(0, 5), window);
  EXPECT_EQ(RowColor(1, 5), highlight);
  EXPECT_EQ(RowColor(2, 5), window);
  Drop().SetListIndex(0);
  EXPECT_EQ(RowColor(1, 5), window);
}

TEST_F(FlatDropDownPaintTest, ARowIsOneLineFromItsLeftTopCorner) {
  MakeOf({"one\ntwo"});
  Open();
  const auto calls = CallsNamed({"DrawTextA"}, [&] { Drop().Panel()->Refresh(); });
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls.front().arguments.back(), TraceArgument(std::int64_t{32}));
}

TEST_F(FlatDropDownPaintTest, TheColoursOfTheStripAreNotThoseOfTheList) {
  Make(3);
  Open();
  Drop().SetDropDownBackColor(Color(0x000000FF));
  Drop().SetDropDownBackColorMouseOver(Color(0x0000FF00));
  Drop().SetBackColor(Color(0x00FF0000));
  EXPECT_EQ(RowColor(0, 5), Concrete(Color(0x80000005u)));
}

TEST_F(FlatDropDownPaintTest, ARowIsAsWideAsThePanelWithoutItsBar) {
  Make(9);
  Open();
  const int inner = ToPixels(Drop().Panel()->ScaleWidth(), 15);
  const int bar = ToPixels(Drop().Bar().Size().width, 15);
  std::vector<std::string> fills;
  for (const TracedCall& call : CallsNamed({"FillRect"}, [&] { Drop().SetListIndex(1); })) {
    fills.push_back(call.ToString());
  }
  const std::string expected =
      ", 0, 0, " + std::to_string(inner - bar) + ", " + std::to_string(RowHeight()) + ", ";
  EXPECT_EQ(std::ranges::count_if(
                fills, [&](const std::string& fill) { return fill.find(expected) != std::string::npos; }),
            1)
      << ::testing::PrintToString(fills);
}

TEST_F(FlatDropDownPaintTest, RowsBeforeTheFirstItemAndAfterTheLastAreEmpty) {
  Make(9);
  Open();
  Drop().SetTopIndex(-1);
  std::vector<std::string> texts;
  for (const TracedCall& call : CallsNamed({"DrawTextA"}, [&] { Drop().SetListIndex(4); })) {
    const bool is_of_list =
        std::get<std::int64_t>(call.arguments[0]) == Drop().Panel()->GetSurface().hDC().value;
    if (is_of_list) texts.push_back(std::get<std::string>(call.arguments[1]));
  }
  EXPECT_THAT(texts, ElementsAre("1", "2", "3", "4", "5", "6"));
  Drop().SetTopIndex(8);
  Driver().Settle();
  EXPECT_EQ(RowColor(5, 30), Concrete(Color(0x80000005u)));
}

TEST_F(FlatDropDownPaintTest, TheListIsInTheFontOfTheText) {
  Make(3);
  Open();
  const int before = RowHeight();
  Driver().Key(kKeyEscape);
  auto description = Drop().GetFont()->Description();
  description.size = 24;
  Drop().SetFont(MakeFont(description));
  Open();
  EXPECT_GT(RowHeight(), 2 * before);
  EXPECT_EQ(Drop().Panel()->GetFont(), Drop().GetFont());
}

}  // namespace
}  // namespace levelwidgets::testing
