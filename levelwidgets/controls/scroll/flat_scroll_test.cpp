// FlatScroll: values, persistence, painting, and what its setters do in which order.
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TwipPoint kAt{Twips(600), Twips(300)};
constexpr TwipSize kTall{Twips(255), Twips(3000)};  // 17 by 200 pixels
constexpr TwipSize kWide{Twips(3000), Twips(255)};

class FlatScrollTest : public DesktopTest {
 protected:
  FlatScroll& Bar(TwipSize size = kTall) { return AddNew<FlatScroll>("scr", kAt, size); }
  static std::vector<std::string> NamesIn(const PropertyBag& bag) {
    std::vector<std::string> names;
    for (const auto& entry : bag.Entries()) names.push_back(entry.name + "=" + Describe(entry.value));
    return names;
  }
};

Error RaisedBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error;
  }
  return Error(0, "", "nothing was raised");
}

TEST_F(FlatScrollTest, ANewBarHasItsDefaults) {
  const auto& bar = Bar();
  EXPECT_EQ(bar.BackColor(), Color(0x00EFF7F7));
  EXPECT_EQ(bar.ForeColor(), Color(0x80000012));
  EXPECT_TRUE(bar.Enabled());
  EXPECT_EQ(bar.Min(), 0);
  EXPECT_EQ(bar.Max(), 100);
  EXPECT_EQ(bar.Orientation(), ksxOrientationVertical);
  EXPECT_EQ(bar.LargeChange(), 3);
  EXPECT_EQ(bar.SmallChange(), 1);
  EXPECT_EQ(bar.Value(), 1);
  EXPECT_EQ(bar.ButtonColor(), Color(0x00CEDBDE));
  EXPECT_EQ(bar.ButtonColorMouseOver(), Color(0x00DEE7EF));
  EXPECT_EQ(bar.ButtonColorPushed(), Color(0x00CEDBDE));
  EXPECT_EQ(bar.ForeColorMouseOver(), Color(0x00FFFFFF));
  EXPECT_EQ(bar.ForeColorPushed(), Color(0x00FFFFFF));
  EXPECT_EQ(bar.GetSurface().GetFont()->Description().name, "Marlett");
  EXPECT_EQ(bar.GetSurface().GetFont()->Description().size, 9.75);
}

TEST_F(FlatScrollTest, ALoadedBarStartsFromOneAndSavesNothing) {
  const auto& bar = AddLoaded<FlatScroll>("scr", {}, kAt, kTall);
  EXPECT_EQ(bar.Min(), 1);
  EXPECT_EQ(bar.Max(), 100);
  EXPECT_EQ(bar.Value(), 1);
  EXPECT_THAT(NamesIn(Hosted(bar).Properties()), IsEmpty());
}

TEST_F(FlatScrollTest, ANewBarSavedUnchangedStoresItsMin) {
  EXPECT_THAT(NamesIn(Hosted(Bar()).Properties()), ElementsAre("Min=0"));
}

TEST_F(FlatScrollTest, EveryChangedPropertyIsStoredInItsOrderAndTheRangeAs16Bits) {
  auto& bar = Bar();
  bar.SetOrientation(ksxOrientationHorizontal);
  bar.SetForeColorPushed(Color(1));
  bar.SetForeColorMouseOver(Color(2));
  bar.SetButtonColorPushed(Color(3));
  bar.SetButtonColorMouseOver(Color(4));
  bar.SetButtonColor(Color(5));
  bar.SetMax(200);
  bar.SetMin(7);
  bar.SetValue(20);
  bar.SetSmallChange(8);
  bar.SetLargeChange(9);
  bar.SetEnabled(false);
  bar.SetForeColor(Color(10));
  bar.SetBackColor(Color(11));
  const PropertyBag bag = Hosted(bar).Properties();
  EXPECT_THAT(NamesIn(bag), ElementsAre("BackColor=11", "ForeColor=10", "Enabled=False", "Min=7", "Max=200",
                                        "LargeChange=9", "SmallChange=8", "Value=20", "ButtonColor=5",
                                        "ButtonColorMouseOver=4", "ButtonColorPushed=3",
                                        "ForeColorMouseOver=2", "ForeColorPushed=1", "Orientation=1"));
  for (const char* name : {"Min", "Max", "LargeChange", "SmallChange", "Value"}) {
    EXPECT_EQ(bag.Find(name)->Type(), VariantType::kInt16) << name;
  }
  const auto& loaded = AddLoaded<FlatScroll>("scrLoaded", bag, {Twips(1200), Twips(300)}, kTall);
  for (const PropertyInfo* property : FlatScroll::Table().Persisted()) {
    EXPECT_EQ(property->get(loaded), property->get(bar)) << property->name;
  }
}

TEST_F(FlatScrollTest, ARangeBeyond16BitsCannotBeSaved) {
  auto& bar = Bar();
  bar.SetMax(40000);
  EXPECT_EQ(RaisedBy([&] { Hosted(bar).Properties(); }).Number(), kOverflow);
}

TEST_F(FlatScrollTest, ABarWhoseSavedMinPassesThroughARangeOfMinusEightLoads) {
  PropertyBag saved;
  saved.WriteProperty("Min", 8, 1);
  saved.WriteProperty("Value", 9, 1);
  EXPECT_EQ(AddLoaded<FlatScroll>("scr", saved, kAt, kTall).Min(), 8);
}

TEST_F(FlatScrollTest, DefaultsOfTheTableAreThoseOfInstances) {
  const auto& fresh = Bar();
  const auto& loaded = AddLoaded<FlatScroll>("scrLoaded", {}, {Twips(1200), Twips(300)}, kTall);
  for (const PropertyInfo& property : FlatScroll::Table().Properties()) {
    if (property.defaults.when_new.kind != DefaultValue::Kind::kFixed) continue;
    EXPECT_EQ(property.get(fresh), property.defaults.when_new.Value()) << property.name;
    EXPECT_EQ(property.get(loaded), property.defaults.when_read.Value()) << property.name;
  }
}

TEST_F(FlatScrollTest, TheTableListsEventsInTheirNumbers) {
  std::vector<std::string> events;
  for (const EventInfo& event : FlatScroll::Table().Events()) {
    events.push_back(std::to_string(event.number) + " " + std::string(event.name));
  }
  EXPECT_THAT(events, ElementsAre("1 Change", "2 Click", "3 DblClick", "4 KeyDown", "5 KeyPress", "6 KeyUp",
                                  "7 MouseDown", "8 MouseMove", "9 MouseUp"));
}

// --- Setters -----------------------------------------------------------------------------------------

TEST_F(FlatScrollTest, ValueRepaintsNotifiesAndRaisesChangeAlsoForTheSameValue) {
  auto& bar = Bar();
  Watch(bar);
  bar.SetValue(50);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Change()"));
  bar.SetValue(50);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Change()"));
}

TEST_F(FlatScrollTest, AValueOutsideTheRangeRaisesAndChangesNothing) {
  auto& bar = Bar();
  bar.SetValue(50);
  Watch(bar);
  for (const std::int32_t value : {-1, 101, 2147483647, -2147483647 - 1}) {
    const Error error = RaisedBy([&] { bar.SetValue(value); });
    EXPECT_EQ(error.Number(), -2147220502);
    EXPECT_EQ(error.Source(), "LevelWidgets.FlatScroll");
    EXPECT_EQ(error.Description(), "Invalid Value");
  }
  EXPECT_EQ(bar.Value(), 50);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatScrollTest, WithMinAboveMaxEveryValueIsRejected) {
  auto& bar = Bar();
  bar.SetMin(200);
  EXPECT_EQ(bar.Value(), 1);
  for (const std::int32_t value : {1, 100, 150, 200}) {
    EXPECT_EQ(RaisedBy([&] { bar.SetValue(value); }).Description(), "Invalid Value");
  }
  Hosted(bar).Move(kAt, kWide);  // and a resize has nothing to re-apply
  EXPECT_EQ(bar.Value(), 1);
}

TEST_F(FlatScrollTest, MinMovesTheValueAlongWithinTheRange) {
  auto& bar = Bar();
  Watch(bar);
  bar.SetMin(10);
  EXPECT_EQ(bar.Value(), 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Change()", "paint"));
  bar.SetMin(5);
  EXPECT_EQ(bar.Value(), 10);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));  // another thumb length
}

TEST_F(FlatScrollTest, MinAtOrAboveMaxLeavesTheValue) {
  auto& bar = Bar();
  bar.SetMin(100);
  EXPECT_EQ(bar.Value(), 1);
}

TEST_F(FlatScrollTest, MaxMovesTheValueAlongWithinTheRange) {
  auto& bar = Bar();
  bar.SetValue(50);
  Watch(bar);
  bar.SetMax(20);
  EXPECT_EQ(bar.Value(), 20);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Change()", "paint"));
  bar.SetMax(0);
  EXPECT_EQ(bar.Value(), 20);
}

TEST_F(FlatScrollTest, ARangeThatLeavesTheThumbAsLongRepaintsNothing) {
  auto& bar = Bar({Twips(255), Twips(1000)});  // the least thumb anyway
  Watch(bar);
  bar.SetMax(90);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatScrollTest, StepsAreStoredAsTheyAreAndNotify) {
  auto& bar = Bar();
  Watch(bar);
  bar.SetLargeChange(-5);
  bar.SetSmallChange(0);
  EXPECT_EQ(bar.LargeChange(), -5);
  EXPECT_EQ(bar.SmallChange(), 0);
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(LargeChange)", "PropertyChanged(SmallChange)"));
}

TEST_F(FlatScrollTest, ColoursRepaintAndNotifyInTheirOrders) {
  auto& bar = Bar();
  Watch(bar);
  bar.SetBackColor(Color(1));
  bar.SetForeColor(Color(2));
  EXPECT_THAT(TakeJournal(),
              ElementsAre("paint", "PropertyChanged(BackColor)", "paint", "PropertyChanged(ForeColor)"));
  bar.SetButtonColor(Color(3));
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(ButtonColor)", "paint"));
  bar.SetButtonColorMouseOver(Color(4));
  bar.SetButtonColorPushed(Color(5));
  bar.SetForeColorMouseOver(Color(6));
  bar.SetForeColorPushed(Color(7));
  bar.SetEnabled(false);
  EXPECT_THAT(TakeJournal(),
              ElementsAre("PropertyChanged(ButtonColorMouseOver)", "PropertyChanged(ButtonColorPushed)",
                          "PropertyChanged(ForeColorMouseOver)", "PropertyChanged(ForeColorPushed)",
                          "PropertyChanged(Enabled)"));
}

TEST_F(FlatScrollTest, OrientationLaysOutRepaintsThenNotifies) {
  auto& bar = Bar();
  Watch(bar);
  bar.SetOrientation(ksxOrientationHorizontal);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Value)", "Change()", "paint",
                                         "PropertyChanged(Orientation)"));
}

TEST_F(FlatScrollTest, AResizeAppliesTheSmallerOfValueAndMaxAgain) {
  auto& bar = Bar();
  bar.SetValue(50);
  bar.SetMin(60);  // value follows
  Watch(bar);
  Hosted(bar).Move(kAt, {Twips(255), Twips(2000)});
  const Journal journal = TakeJournal();
  ASSERT_GE(journal.size(), 3u);
  EXPECT_THAT(Journal(journal.begin(), journal.begin() + 3),
              ElementsAre("paint", "PropertyChanged(Value)", "Change()"));
  bar.SetMax(60);  // not above Min: the value stays
  bar.SetValue(60);
  EXPECT_EQ(bar.Value(), 60);
}

TEST_F(FlatScrollTest, AHorizontalBarOfOrdinaryHeightAlwaysHasTheLeastThumb) {
  PropertyBag saved;
  saved.WriteProperty("Orientation", 1, 0);
  auto& loaded = AddLoaded<FlatScroll>("scr", saved, kAt, kWide);
  const std::string thumb = DrawingCallsOf(loaded, [&] { loaded.OnPaint(); }).at(5);
  EXPECT_EQ(thumb, "Rectangle 13 0 23 17");  // 135 twips are 9 pixels, and one more
}

TEST_F(FlatScrollTest, AResizedBarKeepsItsThumbLengthUntilMinOrMaxIsSet) {
  auto& bar = Bar();
  bar.SetValue(0);
  Hosted(bar).Move(kAt, {Twips(255), Twips(6000)});
  const auto thumb = [&] { return DrawingCallsOf(bar, [&] { bar.OnPaint(); }).at(5); };
  EXPECT_EQ(thumb(), "Rectangle 0 13 17 26");  // 193 twips
  bar.SetMax(100);
  EXPECT_EQ(thumb(), "Rectangle 0 13 17 41");  // 415 twips
}

TEST_F(FlatScrollTest, AThumbFarBeyondTheBarRaisesNoError) {
  auto& bar = Bar();
  bar.SetMax(1000000002);
  bar.SetMin(1000000000);
  bar.SetValue(1000000001);
  EXPECT_EQ(bar.Value(), 1000000001);
  EXPECT_EQ(PixelAt(bar, {8, 100}), ColorRef{0x00EFF7F7});
}

TEST_F(FlatScrollTest, AValueWhoseRangeDoesNotFit32BitsRaises6AndChangesNothing) {
  auto& bar = Bar();
  bar.SetValue(50);
  EXPECT_EQ(RaisedBy([&] { bar.SetMax(2147483647); }).Number(), kOverflow);
  EXPECT_EQ(RaisedBy([&] { bar.SetMin(-2147483647 - 1); }).Number(), kOverflow);
  Watch(bar);
  EXPECT_EQ(RaisedBy([&] { bar.SetValue(7); }).Number(), kOverflow);
  EXPECT_EQ(bar.Value(), 50);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  bar.SetValue(2147483647);  // the ends need no division
  EXPECT_EQ(bar.Value(), 2147483647);
}

TEST_F(FlatScrollTest, AnOrientationIsTakenAlsoWhereNoValueIsAllowed) {
  auto& bar = Bar();
  bar.SetMin(200);
  Watch(bar);
  bar.SetOrientation(ksxOrientationHorizontal);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Orientation)"));
}

TEST_F(FlatScrollTest, AnOrientationIsTakenAlsoWhereTheRangeDoesNotFit32Bits) {
  auto& bar = Bar();
  EXPECT_EQ(RaisedBy([&] { bar.SetMax(2147483647); }).Number(), kOverflow);
  bar.SetOrientation(ksxOrientationHorizontal);
  EXPECT_EQ(bar.Orientation(), ksxOrientationHorizontal);
}

TEST_F(FlatScrollTest, AListenersErrorDuringAResizePassesThrough) {
  auto& bar = Bar();
  bar.Change += [] { throw Error(kInvalidCall); };
  EXPECT_EQ(RaisedBy([&] { Hosted(bar).Move(kAt, kWide); }).Number(), kInvalidCall);
}

TEST_F(FlatScrollTest, ABarThatIsLaidDownHasTheLeastThumbToo) {
  auto& bar = Bar(kWide);
  bar.SetOrientation(ksxOrientationHorizontal);
  bar.SetValue(0);
  EXPECT_EQ(DrawingCallsOf(bar, [&] { bar.OnPaint(); }).at(5), "Rectangle 13 0 23 17");
}

TEST_F(FlatScrollTest, RefreshRepaintsAtOnce) {
  auto& bar = Bar();
  Watch(bar);
  EXPECT_EQ(InvokeByName(bar, "Refresh", {}), Variant());
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatScrollTest, OverflowOfTheRangeRaises6) {
  auto& bar = Bar();
  EXPECT_EQ(RaisedBy([&] { bar.SetMax(2147483647); }).Number(), kOverflow);
  EXPECT_EQ(bar.Max(), 2147483647);  // stored as given
}

// --- Painting ----------------------------------------------------------------------------------------

TEST_F(FlatScrollTest, PaintsTrackButtonsAndThumbInThisOrder) {
  auto& bar = Bar();
  bar.SetValue(0);
  EXPECT_THAT(
      DrawingCallsOf(bar, [&] { bar.OnPaint(); }),
      ElementsAre("FillRect 0 0 17 200", "Rectangle 0 0 17 13", "DrawTextA 5 -1 0 0 17 13 37",
                  "Rectangle 0 186 17 200", "DrawTextA 6 -1 0 186 17 200 37", "Rectangle 0 13 17 26"));
}

TEST_F(FlatScrollTest, AHorizontalBarHasItsOwnArrows) {
  auto& bar = Bar(kWide);
  bar.SetOrientation(ksxOrientationHorizontal);
  bar.SetValue(0);
  EXPECT_THAT(DrawingCallsOf(bar, [&] { bar.OnPaint(); }),
              ElementsAre("FillRect 0 0 200 17", "Rectangle 0 0 13 17", "DrawTextA 3 -1 0 0 13 17 37",
                          "Rectangle 186 0 200 17", "DrawTextA 4 -1 186 0 200 17 37",
                          ::testing::StartsWith("Rectangle 13 0 ")));
}

TEST_F(FlatScrollTest, ADisabledOrShortBarDrawsNoThumb) {
  auto& bar = Bar();
  bar.SetEnabled(false);
  EXPECT_EQ(DrawingCallsOf(bar, [&] { bar.OnPaint(); }).size(), 5u);
  auto& short_bar = AddNew<FlatScroll>("scrShort", {Twips(1200), Twips(300)}, {Twips(255), Twips(599)});
  EXPECT_EQ(DrawingCallsOf(short_bar, [&] { short_bar.OnPaint(); }).size(), 5u);
}

TEST_F(FlatScrollTest, ABarOfNoSizePaintsWithoutError) {
  auto& bar = Bar({Twips(0), Twips(0)});
  EXPECT_EQ(DrawingCallsOf(bar, [&] { bar.OnPaint(); }).size(), 5u);
}

TEST_F(FlatScrollTest, TheThumbIsFilledWithButtonColorAndOutlined) {
  auto& bar = Bar();
  bar.SetButtonColor(Color(0x0000FF00));
  bar.SetValue(0);
  EXPECT_EQ(PixelAt(bar, {8, 18}), ColorRef{0x0000FF00});
  EXPECT_EQ(PixelAt(bar, {0, 18}), Concrete(Color(0x80000012)));
  EXPECT_EQ(PixelAt(bar, {8, 100}), ColorRef{0x00EFF7F7});
}

}  // namespace
}  // namespace levelwidgets::testing
