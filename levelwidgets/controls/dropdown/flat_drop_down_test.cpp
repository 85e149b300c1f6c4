// FlatDropDown: its properties, its items and what is saved.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

Error RaisedBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error;
  }
  return Error(0, "", "nothing was raised");
}

std::vector<std::string> NamesIn(const PropertyBag& bag) {
  std::vector<std::string> names;
  for (const auto& entry : bag.Entries()) names.push_back(entry.name);
  return names;
}

TEST_F(FlatDropDownTest, TheListIsAtFirst2880TwipsWide) {
  const FlatDropDown& drop = Make(0);
  EXPECT_EQ(drop.DropDownWidth(), 2880);
}

TEST_F(FlatDropDownTest, EveryPersistedSetterNotifiesAndTheSelectionDoesNot) {
  FlatDropDown& drop = Make(3);
  EXPECT_THAT(
      EventsOf([&] {
        drop.SetAlignment(1);
        drop.SetAutoComplete(true);
        drop.SetBackColor(Color(1));
        drop.SetForeColor(Color(2));
        drop.SetEnabled(true);
        drop.SetFont(MakeFont());
        drop.SetTopIndex(1);
        drop.SetListIndex(2);
        drop.SetDropDownBackColor(Color(3));
        drop.SetDropDownBackColorMouseOver(Color(4));
        drop.SetDropDownBackColorPushed(Color(5));
        drop.SetDropDownWidth(100);
        drop.SetStyle(0);
        drop.SetSelStart(0);
        drop.SetSelLength(0);
      }),
      ElementsAre("PropertyChanged(Alignment)", "PropertyChanged(AutoComplete)", "PropertyChanged(BackColor)",
                  "PropertyChanged(ForeColor)", "PropertyChanged(Enabled)", "PropertyChanged(Font)",
                  "PropertyChanged(TopIndex)", "PropertyChanged(ListIndex)",
                  "PropertyChanged(DropDownBackColor)", "PropertyChanged(DropDownBackColorMouseOver)",
                  "PropertyChanged(DropDownBackColorPushed)", "PropertyChanged(DropDownWidth)",
                  "PropertyChanged(Style)"));
}

TEST_F(FlatDropDownTest, ATextNotifiesRaisesChangeAndNotifiesAgain) {
  FlatDropDown& drop = Make(0);
  EXPECT_THAT(EventsOf([&] { drop.SetText("abc"); }),
              ElementsAre("PropertyChanged(Text)", "Change()", "PropertyChanged(Text)"));
}

TEST_F(FlatDropDownTest, ItemsAreAddedAtTheEndAndRemovedByTheirNumber) {
  FlatDropDown& drop = MakeOf({"a", "b", "c"});
  std::int16_t index = 2;
  drop.RemoveItem(index);
  EXPECT_THAT(drop.Items(), ElementsAre("a", "c"));
  for (const std::int16_t wrong : std::initializer_list<std::int16_t>{-1, 0, 3}) {
    std::int16_t there = wrong;
    EXPECT_EQ(RaisedBy([&] { drop.RemoveItem(there); }).Number(), kSubscriptOutOfRange) << wrong;
  }
  EXPECT_THAT(drop.Items(), ElementsAre("a", "c"));
  drop.Clear();
  EXPECT_TRUE(drop.Items().empty());
}

TEST_F(FlatDropDownTest, RemovingAndClearingLeaveTheListIndexAsItIs) {
  FlatDropDown& drop = Make(3);
  drop.SetListIndex(3);
  std::int16_t last = 3;
  drop.RemoveItem(last);
  EXPECT_EQ(drop.ListIndex(), 3);
  drop.Clear();
  EXPECT_EQ(drop.ListIndex(), 3);
}

TEST_F(FlatDropDownTest, TheListIndexIsHeldToTheList) {
  FlatDropDown& drop = Make(5);
  drop.SetListIndex(9);
  EXPECT_EQ(drop.ListIndex(), 5);
  drop.SetListIndex(-3);
  EXPECT_EQ(drop.ListIndex(), 0);
  EXPECT_EQ(drop.Text(), "");
}

TEST_F(FlatDropDownTest, AnUnchangedListIndexNotifiesNobody) {
  FlatDropDown& drop = Make(5);
  drop.SetListIndex(2);
  EXPECT_TRUE(EventsOf([&] { drop.SetListIndex(2); }).empty());
}

TEST_F(FlatDropDownTest, AListIndexScrollsOneStepLateAndThenByTwo) {
  FlatDropDown& drop = Make(20);
  drop.SetListIndex(9);
  EXPECT_EQ(drop.TopIndex(), 1);
  EXPECT_THAT(EventsOf([&] { drop.SetListIndex(10); }),
              ElementsAre("PropertyChanged(TopIndex)", "PropertyChanged(ListIndex)"));
  EXPECT_EQ(drop.TopIndex(), 3);
  EXPECT_EQ(drop.Bar()->Value(), 3);
  drop.SetListIndex(2);
  EXPECT_EQ(drop.TopIndex(), 2);
  drop.SetListIndex(0);
  EXPECT_EQ(drop.TopIndex(), 1);
}

TEST_F(FlatDropDownTest, TheTopIndexIsStoredAsGivenWhateverTheBarTakes) {
  FlatDropDown& drop = Make(20);
  drop.SetTopIndex(99);
  EXPECT_EQ(drop.TopIndex(), 99);
  EXPECT_EQ(drop.Bar()->Value(), 1);
}

TEST_F(FlatDropDownTest, TheBarIsThereForMoreThanEightItems) {
  FlatDropDown& drop = Make(8);
  EXPECT_FALSE(drop.Bar().Visible());
  Add("9");
  EXPECT_TRUE(drop.Bar().Visible());
  EXPECT_EQ(drop.Bar()->Min(), 1);
  EXPECT_EQ(drop.Bar()->Max(), 2);
  Add("10");
  EXPECT_EQ(drop.Bar()->Max(), 3);
  drop.SetTopIndex(3);
  std::int16_t index = 1;
  drop.RemoveItem(index);
  drop.RemoveItem(index);
  EXPECT_FALSE(drop.Bar().Visible());
  EXPECT_EQ(drop.TopIndex(), 1);
  EXPECT_EQ(drop.Bar()->Value(), 1);
}

TEST_F(FlatDropDownTest, AnEmptiedListHasNoBarAndBeginsAtItsFirstRow) {
  FlatDropDown& drop = Make(20);
  drop.SetTopIndex(5);
  EXPECT_THAT(EventsOf([&] { drop.Clear(); }), ElementsAre("PropertyChanged(TopIndex)"));
  EXPECT_FALSE(drop.Bar().Visible());
  EXPECT_EQ(drop.TopIndex(), 1);
  EXPECT_EQ(drop.Bar()->Value(), 1);
}

TEST_F(FlatDropDownTest, AnItemNotifiesOfTheFirstRowUntilTheListScrolls) {
  Make(7);
  EXPECT_THAT(EventsOf([&] { Add("8"); }), ElementsAre("PropertyChanged(TopIndex)"));
  EXPECT_TRUE(EventsOf([&] { Add("9"); }).empty());
}

TEST_F(FlatDropDownTest, ABarThatIsThereIsNotShownAgain) {
  Make(9);
  EXPECT_TRUE(CallsNamed({"ShowWindow"}, [&] { Add("10"); }).empty());
}

TEST_F(FlatDropDownTest, TheBarScrollsWithoutANotice) {
  FlatDropDown& drop = Make(20);
  EXPECT_TRUE(EventsOf([&] { drop.Bar()->SetValue(5); }).empty());
  EXPECT_EQ(drop.TopIndex(), 5);
}

TEST_F(FlatDropDownTest, OneItemTooManyIsAnErrorThatLeavesTheListAsItWas) {
  FlatDropDown& drop = Make(0);
  std::string item = "x";
  for (int i = 0; i < 32767; ++i) drop.AddItem(item);
  const Error error = RaisedBy([&] { drop.AddItem(item); });
  EXPECT_EQ(error.Number(), kOverflow);
  EXPECT_EQ(error.Description(), "A list has at most 32767 items");
  EXPECT_EQ(drop.Items().size(), 32767u);
}

TEST_F(FlatDropDownTest, WritesItsCountLastAndNeverReadsIt) {
  FlatDropDown& drop = Make(3);
  drop.SetStyle(1);
  PropertyBag bag;
  drop.OnWriteProperties(bag);
  EXPECT_THAT(NamesIn(bag), ElementsAre("Style", "DDListCount"));
  EXPECT_EQ(ToInt32(*bag.Find("DDListCount")), 3);
  TheForm().Remove("edt");
  EXPECT_TRUE(Make(0, bag).Items().empty());
  PropertyBag again;
  Drop().OnWriteProperties(again);
  EXPECT_THAT(NamesIn(again), ElementsAre("Style"));
}

TEST_F(FlatDropDownTest, PlacesInTheListAreLoadedAsTheyWereSaved) {
  PropertyBag bag;
  bag.WriteProperty("TopIndex", std::int16_t{7}, {});
  bag.WriteProperty("ListIndex", std::int16_t{-5}, {});
  const FlatDropDown& drop = Make(0, bag);
  EXPECT_EQ(drop.ListIndex(), -5);
  EXPECT_EQ(drop.TopIndex(), 7);
}

// --- Style ---------------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, WithoutAnEditBoxItDrawsItsTextAndItsFocus) {
  FlatDropDown& drop = Make(2);
  drop.SetBackColor(Color(0x00102030));
  drop.SetStyle(1);
  EXPECT_FALSE(drop.ActiveEdit().Visible());
  EXPECT_EQ(drop.GetSurface().BackColor(), Color(0x00102030));
  drop.SetText("chosen");
  Hosted(drop).SetFocus();
  const Journal calls = DrawingCallsOf(drop, [&] { drop.OnPaint(); });
  EXPECT_THAT(calls, ::testing::Contains(::testing::StartsWith("DrawTextA chosen ")));
  EXPECT_THAT(calls, ::testing::Contains(::testing::StartsWith("DrawFocusRect 0 0 ")));
  drop.SetStyle(0);
  EXPECT_TRUE(drop.ActiveEdit().Visible());
  EXPECT_THAT(DrawingCallsOf(drop, [&] { drop.OnPaint(); }),
              ::testing::Not(::testing::Contains(::testing::StartsWith("DrawTextA chosen "))));
}

TEST_F(FlatDropDownTest, TheLargestSelLengthSelectsToTheEndFromWhereverTheSelectionBegins) {
  FlatDropDown& drop = Make(0);
  drop.SetText("abcd");
  drop.SetSelStart(1);
  drop.SetSelLength(2147483647);
  EXPECT_EQ(drop.SelStart(), 1);
  EXPECT_EQ(drop.SelText(), "bcd");
}

}  // namespace
}  // namespace levelwidgets::testing
