// FlatDropDown: what closes its list, and what is left then.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

TEST_F(FlatDropDownTest, NothingOpensOfAControlThatIsHiddenUnderThePointer) {
  Make(3);
  Driver().MovePointer(Strip());
  Hosted(Drop()).SetVisible(false);
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, AHiddenControlWhoseRowIsPressedBeforeTheListClosesGetsNoFocus) {
  Make(3);
  AddNew<FlatButton>("other", {Twips(600), Twips(1500)});
  Open();
  Hosted(Drop()).SetVisible(false);
  Driver().MovePointer(Row(1));
  Driver().Press(kLeftButton);
  EXPECT_FALSE(IsOpen());
  Driver().Release(kLeftButton);
  EXPECT_FALSE(Drop().Holds(Windows().GetFocus()));
}

TEST_F(FlatDropDownTest, ClosingEndsTheWatchThenHidesThePanelAndReturnsTheFocus) {
  Make(3);
  Open();
  const std::string panel = std::to_string(Drop().Panel().hWnd().value);
  const std::string control = std::to_string(Drop().hWnd().value);
  const std::string edit = std::to_string(Drop().ActiveEdit().hWnd().value);
  std::vector<std::string> texts;
  for (const TracedCall& call :
       CallsNamed({"KillTimer", "ShowWindow", "SetFocus"}, [&] { Driver().Key(kKeyEscape); })) {
    texts.push_back(call.name == "KillTimer" ? call.name : call.ToString());
  }
  ASSERT_GE(texts.size(), 3u);
  EXPECT_EQ(texts.front(), "KillTimer");
  EXPECT_EQ(std::ranges::count(texts, "ShowWindow(" + panel + ", 0)"), 1);
  EXPECT_EQ(texts.back(), "SetFocus(" + edit + ")");
  EXPECT_EQ(Windows().GetFocus(), Drop().ActiveEdit().hWnd());
}

TEST_F(FlatDropDownTest, AnotherWindowThatBecomesActiveClosesTheListWithinATick) {
  Make(3);
  const auto second = Form::Create(Tracer(), {.name = "second"});
  second->Show();
  TheForm().Show();
  Hosted(Drop()).SetFocus();
  Open();
  second->Show();
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Windows().GetActiveWindow(), second->hWnd());
  second->Close();
}

TEST_F(FlatDropDownTest, AFormThatMovesOrHidesClosesTheList) {
  Make(3);
  Open();
  TheForm().MoveTo({250, 250});
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  Open();
  TheForm().Hide();
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, ADisabledControlHasNoOpenList) {
  Make(3);
  Open();
  Drop().SetEnabled(false);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, NothingIsLeftOfAListWhoseControlIsRemovedByItsOwnHandler) {
  Make(3);
  Open();
  Drop().Change += [this] { TheForm().Remove("cbo"); };
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  Driver().Advance(300);
  EXPECT_TRUE(TheForm().Controls().empty());
}

TEST_F(FlatDropDownTest, NothingIsLeftOfAnOpenListWhoseFormCloses) {
  Make(3);
  Open();
  TheForm().Close();
  Driver().Advance(300);
  EXPECT_TRUE(TheForm().Closed());
}

TEST_F(FlatDropDownTest, ThePressOfAnotherControlClosesTheListAndIsNotLost) {
  Make(3);
  auto& button = AddNew<FlatButton>("next", {Twips(3000), Twips(2400)});
  int clicks = 0;
  button.Click += [&] { ++clicks; };
  Open();
  Driver().Click(ScreenPoint(button, PixelPoint{10, 10}));
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(Windows().GetFocus(), button.hWnd());
}

TEST_F(FlatDropDownTest, AnotherProgramClosesTheListAndTheFocusIsBackAfterwards) {
  Make(3);
  Open();
  Driver().Leave();
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  Driver().Enter();
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), Drop().ActiveEdit().hWnd());
}

TEST_F(FlatDropDownTest, AListThatIsStillActiveStaysOpen) {
  Make(3);
  Open();
  Driver().Advance(1000);
  EXPECT_TRUE(IsOpen());
}

TEST_F(FlatDropDownTest, AMinimisedFormClosesTheList) {
  Make(3);
  Open();
  Driver().SystemCommand(TheForm().hWnd(), kScMinimize);
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, AHiddenOrMovedControlClosesTheList) {
  Make(3);
  Open();
  Hosted(Drop()).SetVisible(false);
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  Hosted(Drop()).SetVisible(true);
  Hosted(Drop()).SetFocus();
  Open();
  Hosted(Drop()).SetLeft(Twips(900));
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FlatDropDownTest, TabInAnOpenListGoesToTheNextControlAndClosesIt) {
  Make(3);
  auto& button = AddNew<FlatButton>("next", {Twips(3000), Twips(2400)});
  int left = 0;
  Hosted(Drop()).LostFocus += [&] { ++left; };
  Open();
  Driver().Key(kKeyTab);
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Windows().GetFocus(), button.hWnd());
  EXPECT_EQ(left, 1);
}

TEST_F(FlatDropDownTest, AltF4InAnOpenListClosesTheListAlone) {
  Make(3);
  Open();
  const WindowHandle panel = Drop().Panel().hWnd();
  Driver().Key(kKeyF4, kAltMask);
  Driver().Settle();
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(Windows().IsWindow(panel));
  EXPECT_FALSE(TheForm().Closed());
  Driver().Advance(110);
  Open();
  EXPECT_TRUE(IsOpen());
}

TEST_F(FlatDropDownTest, TheStripHasItsColourAtRestAgainOnceTheListIsClosed) {
  Make(3);
  Driver().Click(Strip());
  EXPECT_EQ(StripColor(), Concrete(Drop().DropDownBackColorMouseOver()));
  Driver().Key(kKeyEscape);
  EXPECT_EQ(StripColor(), Concrete(Drop().DropDownBackColor()));
}

TEST_F(FlatDropDownTest, APickTakesTheFocusBackToTheEditBoxWithItsCaret) {
  Make(3);
  Open();
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  Driver().Type("x");
  EXPECT_EQ(Drop().Text().size(), 2u);
}

// --- What is left ------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, TenThousandOpeningsLeaveNothingBehind) {
#ifdef _WIN32
  constexpr int kOpenings = 100;  // each takes real time
#else
  constexpr int kOpenings = 10000;
#endif
  Make(20);
  Open();
  Driver().Key(kKeyEscape);
  const std::size_t objects = Driver().LiveObjects();
  const std::size_t windows = Driver().LiveWindows();
  const std::size_t timers = Driver().LiveTimers();
  for (int i = 0; i < kOpenings; ++i) {
    Open();
    Driver().Key(kKeyEscape);
  }
  EXPECT_EQ(Driver().LiveObjects(), objects);
  EXPECT_EQ(Driver().LiveWindows(), windows);
  EXPECT_EQ(Driver().LiveTimers(), timers);
}

}  // namespace
}  // namespace levelwidgets::testing
