// FlatTabStrip: the pointer, the keyboard and the focus.
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatTabStripInputTest : public DesktopTest {
 protected:
  // Three tabs of 96 pixels, the first selected, without the focus.
  FlatTabStrip& Strip() {
    if (!strip_) {
      AddNew<FlatTabStrip>("tabFirst", {Twips(0), Twips(3900)});
      strip_ = &AddNew<FlatTabStrip>("tabMain", {Twips(600), Twips(300)}, {Twips(4500), Twips(3000)});
      strip_->SetTabCount(3);
      strip_->SetSelectedTab(1);
      TheForm().Find("tabFirst")->SetFocus();
      Driver().Settle();
      Watch(*strip_);
    }
    return *strip_;
  }
  // A press straight at the control, in twips; no pointer moves, and no focus.
  void Press(float x, float y, std::int16_t button = kLeftButton) {
    Strip().OnMouseDown({button, 0, {Twips(x), Twips(y)}});
  }
  void Focus() {
    Hosted(Strip()).SetFocus();
    Driver().Settle();
    TakeJournal();
  }

 private:
  FlatTabStrip* strip_ = nullptr;
};

// --- Pointer -------------------------------------------------------------------------------------------

TEST_F(FlatTabStripInputTest, APressOnATabSelectsItThenRaisesMouseDown) {
  Driver().MovePointer(ScreenPoint(Strip(), PixelPoint{150, 5}));
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseMove(0, 0, 2250, 75)"));
  Driver().Press(kLeftButton);
  // The second repaint is the focus arriving.
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "TabChange(1, 2)", "PropertyChanged(SelectedTab)",
                                         "MouseDown(1, 0, 2250, 75)", "paint"));
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseUp(1, 0, 2250, 75)", "Click()"));
  EXPECT_EQ(Strip().SelectedTab(), 2);
}

TEST_F(FlatTabStripInputTest, APressOnTheSelectedTabOnlyRaisesMouseDown) {
  Press(100, 100);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(1, 0, 100, 100)"));
}

TEST_F(FlatTabStripInputTest, APressBelowTheTabsOnlyRaisesMouseDown) {
  Press(2250, 1500);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(1, 0, 2250, 1500)"));
  EXPECT_EQ(Strip().SelectedTab(), 1);
}

TEST_F(FlatTabStripInputTest, APressBehindTheLastTabOnlyRaisesMouseDown) {
  Press(4450, 75);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(1, 0, 4450, 75)"));
}

TEST_F(FlatTabStripInputTest, OtherMouseButtonsOnlyRaiseTheirEvents) {
  Press(2250, 75, kRightButton);
  Press(2250, 75, kMiddleButton);
  Press(2250, 75, 3);
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(2, 0, 2250, 75)", "MouseDown(4, 0, 2250, 75)",
                                         "MouseDown(3, 0, 2250, 75)"));
  EXPECT_EQ(Strip().SelectedTab(), 1);
}

// The third tab is painted from pixel 202 on.
TEST_F(FlatTabStripInputTest, APressCountsOneGapAndNotTheGapsThatWerePainted) {
  Press(15 * 197, 75);
  EXPECT_EQ(Strip().SelectedTab(), 2);
  Press(15 * 198, 75);
  EXPECT_EQ(Strip().SelectedTab(), 3) << "still in the gap before it";
  Press(15 * 98, 75);
  EXPECT_EQ(Strip().SelectedTab(), 1) << "the gap behind the first";
}

TEST_F(FlatTabStripInputTest, APressIsTestedAgainstABandAtTheTopWhateverTheOrientation) {
  Strip().SetOrientation(ksxTabOrientationBottom);
  Press(2250, 15 * 195);
  EXPECT_EQ(Strip().SelectedTab(), 1) << "on the second tab";
  Press(2250, 75);
  EXPECT_EQ(Strip().SelectedTab(), 2) << "on the page";
}

TEST_F(FlatTabStripInputTest, ADoubleClickIsPassedOn) {
  Driver().MovePointer(ScreenPoint(Strip(), PixelPoint{150, 100}));
  Focus();
  Driver().DoubleClick(ScreenPoint(Strip(), PixelPoint{150, 100}));
  EXPECT_THAT(TakeJournal(), ElementsAre("MouseDown(1, 0, 2250, 1500)", "MouseUp(1, 0, 2250, 1500)",
                                         "Click()", "DblClick()", "MouseUp(1, 0, 2250, 1500)"));
}

TEST_F(FlatTabStripInputTest, ADisabledTabStripGetsNoPointerInput) {
  Strip().SetEnabled(false);
  TakeJournal();
  Driver().Click(ScreenPoint(Strip(), PixelPoint{150, 5}));
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

TEST_F(FlatTabStripInputTest, InDesignModeNothingIsSelected) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& strip = AddNew<FlatTabStrip>("tabDesigned");
  Watch(strip);
  Driver().Click(ScreenPoint(strip, PixelPoint{5, 5}));
  EXPECT_THAT(TakeJournal(), IsEmpty());
}

// --- Keyboard ------------------------------------------------------------------------------------------

struct KeyCase {
  const char* name;
  std::int16_t code;
  std::int16_t shift;
  std::int16_t tabs;
  std::int16_t from;
  std::int16_t to;
};
class FlatTabStripKeyTest : public DesktopTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(FlatTabStripKeyTest, SelectsThenRaises) {
  const KeyCase& key = GetParam();
  auto& strip = AddNew<FlatTabStrip>("tabMain");
  strip.SetTabCount(9);
  if (key.from > 0) strip.SetSelectedTab(key.from);
  strip.SetTabCount(key.tabs);
  Watch(strip);
  strip.OnKeyDown(key.code, key.shift);
  const std::string down = "KeyDown(" + std::to_string(key.code) + ", " + std::to_string(key.shift) + ")";
  if (key.to == key.from) {
    EXPECT_THAT(TakeJournal(), ElementsAre(down));
  } else {
    const std::string change = "TabChange(" + std::to_string(key.from) + ", " + std::to_string(key.to) + ")";
    EXPECT_THAT(TakeJournal(), ElementsAre("paint", change, "PropertyChanged(SelectedTab)", down));
  }
  EXPECT_EQ(strip.SelectedTab(), key.to);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, FlatTabStripKeyTest,
    ::testing::Values(
        KeyCase{"left", kKeyLeft, 0, 3, 2, 1}, KeyCase{"left_wraps", kKeyLeft, 0, 3, 1, 3},
        KeyCase{"right", kKeyRight, 0, 3, 2, 3}, KeyCase{"right_wraps", kKeyRight, 0, 3, 3, 1},
        KeyCase{"right_with_shift", kKeyRight, kShiftMask, 3, 1, 2}, KeyCase{"tab", kKeyTab, 0, 3, 1, 1},
        KeyCase{"shift_tab", kKeyTab, kShiftMask, 3, 2, 2}, KeyCase{"ctrl_tab", kKeyTab, kCtrlMask, 3, 1, 2},
        KeyCase{"ctrl_tab_wraps", kKeyTab, kCtrlMask, 3, 3, 1},
        KeyCase{"ctrl_shift_tab_is_next_too", kKeyTab, kCtrlMask | kShiftMask, 3, 2, 3},
        KeyCase{"up", kKeyUp, 0, 3, 2, 2}, KeyCase{"home", kKeyHome, 0, 3, 2, 2},
        KeyCase{"right_from_none", kKeyRight, 0, 3, 0, 1}, KeyCase{"left_from_none", kKeyLeft, 0, 3, 0, 3},
        KeyCase{"one_tab_left", kKeyLeft, 0, 1, 1, 1}, KeyCase{"one_tab_right", kKeyRight, 0, 1, 1, 1},
        KeyCase{"right_from_beyond_the_last", kKeyRight, 0, 3, 7, 1},
        KeyCase{"left_from_beyond_the_last", kKeyLeft, 0, 3, 7, 3},
        KeyCase{"no_tabs_right", kKeyRight, 0, 0, 0, 0}, KeyCase{"no_tabs_left", kKeyLeft, 0, 0, 2, 2},
        KeyCase{"no_tabs_ctrl_tab", kKeyTab, kCtrlMask, 0, 0, 0}),
    [](const auto& key) { return key.param.name; });

TEST_F(FlatTabStripInputTest, KeyEventsArriveInTheOrderOfTyping) {
  Focus();
  Driver().Key(kKeyRight);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "TabChange(1, 2)", "PropertyChanged(SelectedTab)",
                                         "KeyDown(39, 0)", "KeyUp(39, 0)"));
  Driver().Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(Strip().SelectedTab(), 3);
  TakeJournal();
  Driver().Key('A', kShiftMask);
  EXPECT_THAT(TakeJournal(), ElementsAre("KeyDown(65, 1)", "KeyPress(65)", "KeyUp(65, 1)"));
}

TEST_F(FlatTabStripInputTest, TheLastPossibleTabWraps) {
  FlatTabStrip& strip = Strip();
  strip.SetTabCount(32767);
  strip.SetSelectedTab(32767);
  strip.OnKeyDown(kKeyRight, 0);
  EXPECT_EQ(strip.SelectedTab(), 1);
  strip.OnKeyDown(kKeyLeft, 0);
  EXPECT_EQ(strip.SelectedTab(), 32767);
}

TEST_F(FlatTabStripInputTest, TheTabStripRepaintsWhenItGetsAndLosesTheFocus) {
  FlatTabStrip& strip = Strip();
  Hosted(strip).SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
  TheForm().Find("tabFirst")->SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatTabStripInputTest, KeyPressHandsItsCharacterByReference) {
  FlatTabStrip& strip = Strip();
  strip.KeyPress += [](std::int16_t& key_ascii) { key_ascii = 'b'; };
  std::int16_t key_ascii = 'a';
  strip.OnKeyPress(key_ascii);
  EXPECT_EQ(key_ascii, 'b');
}

// --- Listeners that destroy the sender ---------------------------------------------------------------

class FlatTabStripDestroyTest : public FlatTabStripInputTest,
                                public ::testing::WithParamInterface<const char*> {};

TEST_P(FlatTabStripDestroyTest, AListenerMayRemoveTheTabStrip) {
  auto& strip = AddNew<FlatTabStrip>("tabDoomed", {Twips(600), Twips(1200)});
  strip.SetTabCount(3);
  strip.SetTabWidth(Twips(300));
  const WindowHandle window = strip.hWnd();
  bool raised = false;
  SubscribeByName(strip, GetParam(), [&](RaisedEvent&) {
    raised = true;
    TheForm().Remove("tabDoomed");
  });
  Hosted(strip).SetFocus();
  Driver().Settle();
  Driver().DoubleClick(ScreenPoint(strip, PixelPoint{30, 5}));
  if (Windows().IsWindow(window)) Driver().Key('A');
  EXPECT_TRUE(raised);
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_FALSE(TheForm().Find("tabDoomed"));
}

INSTANTIATE_TEST_SUITE_P(Events, FlatTabStripDestroyTest,
                         ::testing::Values("Click", "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseDown",
                                           "MouseMove", "MouseUp", "TabChange"),
                         [](const auto& event) { return event.param; });

TEST_F(FlatTabStripInputTest, ATabChangeByKeyOrCallMayRemoveTheTabStrip) {
  for (const bool by_key : {true, false}) {
    auto& strip = AddNew<FlatTabStrip>("tabDoomed");
    strip.TabChange += [&](std::int16_t, std::int16_t) { TheForm().Remove("tabDoomed"); };
    if (by_key) {
      strip.OnKeyDown(kKeyRight, 0);
    } else {
      strip.SetSelectedTab(1);
    }
    EXPECT_FALSE(TheForm().Find("tabDoomed"));
  }
}

TEST_F(FlatTabStripInputTest, AListenerOfPropertyChangedMayRemoveTheTabStrip) {
  std::string doomed;
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view property) {
    if (property == doomed) TheForm().Remove("tabDoomed");
  });
  for (const PropertyInfo& property : FlatTabStrip::Table().Properties()) {
    if (property.ReadOnly()) continue;
    doomed.clear();
    auto& strip = AddNew<FlatTabStrip>("tabDoomed");
    doomed = property.name;
    if (property.Indexed()) {
      strip.SetTabCaption(1, "x");
    } else {
      property.set(strip, doomed == "SelectedTab" ? Variant(std::int16_t{1}) : property.get(strip));
    }
    EXPECT_FALSE(TheForm().Find("tabDoomed")) << property.name;
  }
}

TEST_F(FlatTabStripInputTest, AnExceptionFromAListenerPassesThroughAndLeavesTheNewSelection) {
  FlatTabStrip& strip = Strip();
  bool failing = true;
  strip.TabChange += [&failing](std::int16_t, std::int16_t) {
    if (failing) throw std::runtime_error("listener");
  };
  EXPECT_THROW(Driver().Click(ScreenPoint(strip, PixelPoint{150, 5})), std::runtime_error);
  EXPECT_EQ(strip.SelectedTab(), 2);
  failing = false;
  Driver().Release(kLeftButton);
  TakeJournal();
  strip.SetSelectedTab(3);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "TabChange(2, 3)", "PropertyChanged(SelectedTab)"));
}

}  // namespace
}  // namespace levelwidgets::testing
