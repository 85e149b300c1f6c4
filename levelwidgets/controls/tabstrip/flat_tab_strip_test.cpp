// FlatTabStrip: values, persistence, and what its setters do in which order.
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatTabStripTest : public DesktopTest {
 protected:
  FlatTabStrip& Strip(std::int16_t tabs = 3) {
    auto& strip = AddNew<FlatTabStrip>("tabMain", {Twips(0), Twips(0)}, {Twips(4500), Twips(3000)});
    strip.SetTabCount(tabs);
    return strip;
  }
};

std::vector<std::string> NamesIn(const PropertyBag& bag) {
  std::vector<std::string> names;
  for (const auto& entry : bag.Entries()) names.push_back(entry.name);
  return names;
}

void ExpectRefused(const std::function<void()>& call, const char* description) {
  try {
    call();
    ADD_FAILURE() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), -2147220503);
    EXPECT_EQ(error.Source(), "LevelWidgets.FlatTabStrip");
    EXPECT_EQ(error.Description(), description);
  }
}

void ExpectDefaults(const FlatTabStrip& strip, Form& form) {
  EXPECT_EQ(strip.SelectedTab(), 0);
  EXPECT_EQ(strip.Orientation(), ksxTabOrientationTop);
  EXPECT_EQ(strip.BackColor(), form.BackColor());
  EXPECT_EQ(strip.ForeColor(), Color(0x80000012));
  EXPECT_TRUE(strip.Enabled());
  EXPECT_EQ(strip.GetFont()->Description(), form.GetFont()->Description());
  EXPECT_EQ(strip.TabWidth(), Twips(1440));
  EXPECT_EQ(strip.TabCount(), 1);
  EXPECT_EQ(strip.TabCaption(1), "Tab 1");
  EXPECT_EQ(strip.TabColor(), Color(0x00EFF7F7));
  EXPECT_EQ(strip.InactiveTabColor(), Color(0x00CEDBDE));
  EXPECT_EQ(strip.BorderColor(), Color(0x008C969C));
  EXPECT_TRUE(strip.hWnd());
}

// --- Defaults and persistence --------------------------------------------------------------------------

TEST_F(FlatTabStripTest, ANewTabStripHasItsDefaults) {
  TheForm().SetBackColor(Color(0x00F2F7F9));
  ExpectDefaults(AddNew<FlatTabStrip>("tabMain"), TheForm());
}

TEST_F(FlatTabStripTest, ALoadedTabStripWithoutSavedValuesHasTheSameDefaults) {
  TheForm().SetBackColor(Color(0x00F2F7F9));
  ExpectDefaults(AddLoaded<FlatTabStrip>("tabMain"), TheForm());
}

TEST_F(FlatTabStripTest, ATabStripSavedUnchangedStoresNothing) {
  EXPECT_THAT(NamesIn(Hosted(AddNew<FlatTabStrip>("tabNew")).Properties()), IsEmpty());
  EXPECT_THAT(NamesIn(Hosted(AddLoaded<FlatTabStrip>("tabLoaded")).Properties()), IsEmpty());
}

TEST_F(FlatTabStripTest, EveryChangedPropertyIsStoredInItsOrderAndComesBack) {
  FlatTabStrip& strip = Strip(3);
  strip.SetTabCaption(3, "Three");
  strip.SetTabCaption(1, "");
  strip.SetBorderColor(Color(1));
  strip.SetOrientation(ksxTabOrientationBottom);
  strip.SetInactiveTabColor(Color(2));
  strip.SetTabColor(Color(3));
  strip.SetTabWidth(Twips(900.5f));
  strip.SetFont(MakeFont({.name = "Tahoma", .size = 12}));
  strip.SetEnabled(false);
  strip.SetForeColor(Color(4));
  strip.SetBackColor(Color(5));
  strip.SetSelectedTab(2);
  const PropertyBag bag = Hosted(strip).Properties();
  EXPECT_THAT(NamesIn(bag),
              ElementsAre("BackColor", "ForeColor", "Enabled", "Font", "TabWidth", "TabCount", "TabColor",
                          "InactiveTabColor", "Orientation", "BorderColor", "TabCaption1", "TabCaption3"));
  EXPECT_EQ(bag.Find("Orientation")->Type(), VariantType::kInt16);

  auto& loaded = AddLoaded<FlatTabStrip>("tabLoaded", bag);
  EXPECT_EQ(loaded.SelectedTab(), 0) << "the selection is not saved";
  EXPECT_EQ(loaded.BackColor(), Color(5));
  EXPECT_EQ(loaded.ForeColor(), Color(4));
  EXPECT_FALSE(loaded.Enabled());
  EXPECT_EQ(loaded.GetFont()->Description().size, 12);
  EXPECT_EQ(loaded.TabWidth(), Twips(900.5f));
  EXPECT_EQ(loaded.TabColor(), Color(3));
  EXPECT_EQ(loaded.InactiveTabColor(), Color(2));
  EXPECT_EQ(loaded.Orientation(), ksxTabOrientationBottom);
  EXPECT_EQ(loaded.BorderColor(), Color(1));
  EXPECT_EQ(loaded.TabCount(), 3);
  EXPECT_EQ(loaded.TabCaption(1), "");
  EXPECT_EQ(loaded.TabCaption(2), "");
  EXPECT_EQ(loaded.TabCaption(3), "Three");
}

TEST_F(FlatTabStripTest, LoadingGoesThroughTheWriteAccessorsWithACaptionForEachTab) {
  std::vector<std::string> notices;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view property) { notices.emplace_back(property); });
  PropertyBag bag;
  bag.WriteProperty("TabCount", 2, 1);
  bag.WriteProperty("TabCaption2", 17, "");
  bag.WriteProperty("TabCaption3", "beyond the last tab", "");
  const auto& strip = AddLoaded<FlatTabStrip>("tabMain", bag);
  EXPECT_THAT(notices,
              ElementsAre("BackColor", "ForeColor", "Enabled", "Font", "TabWidth", "TabCount", "TabColor",
                          "InactiveTabColor", "Orientation", "BorderColor", "TabCaption", "TabCaption"));
  EXPECT_EQ(strip.TabCaption(1), "Tab 1");
  EXPECT_EQ(strip.TabCaption(2), "17") << "converted";
  ExpectRefused([&] { strip.TabCaption(3); }, "Invalid TabIndex");
}

TEST_F(FlatTabStripTest, ASavedValueThatIsRefusedIsNamedWithItsKey) {
  PropertyBag negative;
  negative.WriteProperty("TabCount", -1, 1);
  PropertyBag no_text;
  no_text.WriteProperty("TabCaption1", Null{}, "");
  for (const auto& [bag, key] : {std::pair{&negative, "TabCount"}, std::pair{&no_text, "TabCaption1"}}) {
    try {
      TheForm().Add(FlatTabStrip::Table(), "tabMain", bag);
      ADD_FAILURE() << key;
    } catch (const PropertyRefused& refused) {
      EXPECT_EQ(refused.Property(), key);
    }
  }
}

// --- Order of the setters ------------------------------------------------------------------------------

TEST_F(FlatTabStripTest, AppearanceRepaintsThenNotifies) {
  FlatTabStrip& strip = Strip();
  Watch(strip);
  const std::pair<const char*, std::function<void()>> setters[] = {
      {"Orientation", [&] { strip.SetOrientation(ksxTabOrientationBottom); }},
      {"BackColor", [&] { strip.SetBackColor(Color(1)); }},
      {"ForeColor", [&] { strip.SetForeColor(Color(2)); }},
      {"Enabled", [&] { strip.SetEnabled(false); }},
      {"Font", [&] { strip.SetFont(MakeFont()); }},
      {"TabWidth", [&] { strip.SetTabWidth(Twips(900)); }},
      {"TabColor", [&] { strip.SetTabColor(Color(3)); }},
      {"InactiveTabColor", [&] { strip.SetInactiveTabColor(Color(4)); }},
      {"BorderColor", [&] { strip.SetBorderColor(Color(5)); }},
      {"TabCaption", [&] { strip.SetTabCaption(2, "Two"); }},
  };
  for (const auto& [name, set] : setters) {
    set();
    EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(" + std::string(name) + ")"));
  }
}

TEST_F(FlatTabStripTest, TabCountNotifiesWithoutARepaint) {
  FlatTabStrip& strip = Strip();
  Watch(strip);
  strip.SetTabCount(2);
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(TabCount)"));
}

TEST_F(FlatTabStripTest, ACaptionThatCannotBeSeenNotifiesOnly) {
  FlatTabStrip& strip = Strip(5);
  Watch(strip);
  strip.SetTabCaption(4, "at pixel 303 of 300");
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(TabCaption)"));
}

TEST_F(FlatTabStripTest, AnotherSelectedTabRepaintsRaisesThenNotifies) {
  FlatTabStrip& strip = Strip();
  Watch(strip);
  strip.SetSelectedTab(2);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "TabChange(0, 2)", "PropertyChanged(SelectedTab)"));
  strip.SetSelectedTab(3);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "TabChange(2, 3)", "PropertyChanged(SelectedTab)"));
}

TEST_F(FlatTabStripTest, WritingTheSelectedTabAgainDoesNothing) {
  FlatTabStrip& strip = Strip();
  strip.SetSelectedTab(2);
  Watch(strip);
  strip.SetSelectedTab(2);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatTabStripTest, AListenerMaySelectAnotherTab) {
  FlatTabStrip& strip = Strip();
  Watch(strip);
  strip.TabChange += [&](std::int16_t, std::int16_t to) {
    if (to == 2) strip.SetSelectedTab(3);
  };
  strip.SetSelectedTab(2);
  EXPECT_EQ(strip.SelectedTab(), 3);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "TabChange(0, 2)", "paint", "TabChange(2, 3)",
                                         "PropertyChanged(SelectedTab)", "PropertyChanged(SelectedTab)"));
}

// --- Refusals ------------------------------------------------------------------------------------------

TEST_F(FlatTabStripTest, ASelectionOutsideTheTabsIsRefusedAndChangesNothing) {
  FlatTabStrip& strip = Strip();
  strip.SetSelectedTab(2);
  Watch(strip);
  for (const int tab : {0, 4, -1, 32767, -32768}) {
    ExpectRefused([&] { strip.SetSelectedTab(static_cast<std::int16_t>(tab)); }, "Invalid TabIndex");
  }
  EXPECT_EQ(strip.SelectedTab(), 2);
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatTabStripTest, ASelectionThatHasBecomeInvalidStaysButIsRefusedWhenWritten) {
  FlatTabStrip& strip = Strip();
  strip.SetSelectedTab(3);
  strip.SetTabCount(2);
  EXPECT_EQ(strip.SelectedTab(), 3);
  ExpectRefused([&] { strip.SetSelectedTab(3); }, "Invalid TabIndex");
}

TEST_F(FlatTabStripTest, ANegativeTabCountIsRefusedAndZeroIsTaken) {
  FlatTabStrip& strip = Strip();
  for (const int count : {-1, -32768}) {
    ExpectRefused([&] { strip.SetTabCount(static_cast<std::int16_t>(count)); }, "Invalid TabCount");
    EXPECT_EQ(strip.TabCount(), 3);
  }
  strip.SetTabCount(0);
  EXPECT_EQ(strip.TabCount(), 0);
  strip.OnPaint();
  ExpectRefused([&] { strip.SetSelectedTab(1); }, "Invalid TabIndex");
  ExpectRefused([&] { strip.TabCaption(1); }, "Invalid TabIndex");
}

TEST_F(FlatTabStripTest, ACaptionOutsideTheTabsIsRefused) {
  FlatTabStrip& strip = Strip();
  Watch(strip);
  for (const int index : {0, 4, -1, -32768, 32767}) {
    const auto tab = static_cast<std::int16_t>(index);
    ExpectRefused([&] { strip.TabCaption(tab); }, "Invalid TabIndex");
    ExpectRefused([&] { strip.SetTabCaption(tab, "x"); }, "Invalid TabIndex");
  }
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatTabStripTest, CaptionsStayThroughAChangeOfTabCountAndNewTabsHaveEmptyOnes) {
  FlatTabStrip& strip = Strip(3);
  EXPECT_EQ(strip.TabCaption(1), "Tab 1");
  EXPECT_EQ(strip.TabCaption(3), "");
  strip.SetTabCaption(3, "Three");
  strip.SetTabCount(1);
  ExpectRefused([&] { strip.TabCaption(3); }, "Invalid TabIndex");
  strip.SetTabCount(4);
  EXPECT_EQ(strip.TabCaption(1), "Tab 1");
  EXPECT_EQ(strip.TabCaption(3), "Three");
  EXPECT_EQ(strip.TabCaption(4), "");
}

TEST_F(FlatTabStripTest, OrientationTakesAnyValueOfSixteenBits) {
  FlatTabStrip& strip = Strip();
  strip.SetOrientation(static_cast<ksxTabOrientationConstants>(-7));
  EXPECT_EQ(static_cast<int>(strip.Orientation()), -7);
  EXPECT_EQ(*Hosted(strip).Properties().Find("Orientation"), Variant(-7));
  EXPECT_THROW(strip.SetOrientation(static_cast<ksxTabOrientationConstants>(65536)), Error);
  EXPECT_EQ(static_cast<int>(strip.Orientation()), -7);
}

// --- By name -------------------------------------------------------------------------------------------

TEST_F(FlatTabStripTest, TheTableListsEventsInTheirNumbers) {
  std::vector<std::string> events;
  for (const EventInfo& event : FlatTabStrip::Table().Events()) {
    events.push_back(std::to_string(event.number) + " " + std::string(event.name));
  }
  EXPECT_THAT(events, ElementsAre("1 Click", "2 DblClick", "3 KeyDown", "4 KeyPress", "5 KeyUp",
                                  "6 MouseDown", "7 MouseMove", "8 MouseUp", "9 TabChange"));
  EXPECT_EQ(FlatTabStrip::Table().DefaultMember(), "SelectedTab");
}

TEST_F(FlatTabStripTest, ATabStripsMembersAreReachableByName) {
  FlatTabStrip& strip = Strip();
  const TextConversions texts(Driver().GetPlatform().Conversions());
  SetIndexedByName(strip, "TabCaption", std::vector<Variant>{2}, "Lines");
  EXPECT_EQ(strip.TabCaption(2), "Lines");
  EXPECT_EQ(GetIndexedByName(strip, "TabCaption", std::vector<Variant>{"2"}, texts), Variant("Lines"));
  SetByName(strip, "SelectedTab", "2", texts);
  EXPECT_EQ(GetByName(strip, "SelectedTab"), Variant(2));
  EXPECT_THROW(SetByName(strip, "TabCount", 40000), Error);
  ExpectRefused([&] { SetByName(strip, "TabCount", -1); }, "Invalid TabCount");
  ExpectRefused([&] { GetIndexedByName(strip, "TabCaption", std::vector<Variant>{9}); }, "Invalid TabIndex");
}

// --- Extremes ------------------------------------------------------------------------------------------

TEST_F(FlatTabStripTest, AnyTabWidthIsKeptAndPainted) {
  FlatTabStrip& strip = Strip(32767);
  for (const float width : {-1440.0f, -75.0f, -60.0f, -15.0f, 0.0f, 1.0f, 3.4e38f, -3.4e38f}) {
    strip.SetTabWidth(Twips(width));
    strip.SetSelectedTab(static_cast<std::int16_t>(strip.SelectedTab() % 3 + 1));
    EXPECT_EQ(strip.TabWidth(), Twips(width));
    EXPECT_EQ(PixelAt(strip, {299, 199}), Concrete(strip.BorderColor())) << width;
  }
}

TEST_F(FlatTabStripTest, ThirtyThousandTabsAreSavedLoadedAndPainted) {
  constexpr std::int16_t kTabs = 30000;
  FlatTabStrip& strip = Strip(kTabs);
  for (std::int16_t tab = 1; tab <= kTabs; ++tab) strip.SetTabCaption(tab, "T" + std::to_string(tab));
  for (int round = 0; round < 1000; ++round) strip.OnPaint();
  const PropertyBag bag = Hosted(strip).Properties();
  EXPECT_EQ(bag.Entries().size(), 1u + kTabs);
  const auto& loaded = AddLoaded<FlatTabStrip>("tabLoaded", bag);
  EXPECT_EQ(loaded.TabCaption(kTabs), "T30000");
}

TEST_F(FlatTabStripTest, ACaptionOfAMegabyteIsKeptAndPainted) {
  FlatTabStrip& strip = Strip();
  strip.SetSelectedTab(1);
  strip.OnEnterFocus();
  strip.SetTabCaption(1, std::string(std::size_t{1} << 20, 'W'));
  EXPECT_EQ(strip.TabCaption(1).size(), std::size_t{1} << 20);
  EXPECT_EQ(PixelAt(strip, {97, 5}), Concrete(strip.BackColor())) << "clipped to its tab";
}

TEST_F(FlatTabStripTest, TenThousandRoundsOfCreationLeaveNothing) {
  TheForm();
  const std::size_t objects = Driver().LiveObjects();
  const std::size_t windows = Driver().LiveWindows();
#ifdef _WIN32
  constexpr int kRounds = 500;  // each is dozens of round trips to the system's server
#else
  constexpr int kRounds = Rounds(10000);
#endif
  for (int round = 0; round < kRounds; ++round) {
    HostedControl& hosted = TheForm().Add(FlatTabStrip::Table(), "tabMain");
    hosted.Move({}, {Twips(300), Twips(300)});
    auto& strip = dynamic_cast<FlatTabStrip&>(*hosted.GetControl());
    strip.SetFont(MakeFont());
    strip.SetTabColor(Color(1));
    strip.SetBorderColor(Color(2));
    TheForm().Remove("tabMain");
  }
  EXPECT_EQ(Driver().LiveObjects(), objects);
  EXPECT_EQ(Driver().LiveWindows(), windows);
}

TEST_F(FlatTabStripTest, ATabStripWithoutAWindowStillTakesValues) {
  const auto keep = Strip().shared_from_this();
  MakeForm({});
  auto& strip = dynamic_cast<FlatTabStrip&>(*keep);
  EXPECT_FALSE(strip.hWnd());
  strip.SetFont(MakeFont());
  strip.SetTabColor(Color(1));
  strip.SetSelectedTab(2);
  strip.OnResize();
  strip.OnPaint();
  EXPECT_EQ(strip.SelectedTab(), 2);
}

}  // namespace
}  // namespace levelwidgets::testing
