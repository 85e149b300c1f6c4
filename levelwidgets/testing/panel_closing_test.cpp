// What the controls around an edit box with a panel have in common: what closes and disturbs their panels.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/panel_classes.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets::testing {
namespace {

template <typename T>
class PanelClosing : public PanelTest<T> {};
TYPED_TEST_SUITE(PanelClosing, PanelClasses, ClassNames);

// --- Closing -----------------------------------------------------------------------------------------

TYPED_TEST(PanelClosing, ClosingEndsTheWatchThenHidesThePanelAndReturnsTheFocus) {
  TypeParam& control = this->Subject();
  this->Open();
  const std::string panel = std::to_string(control.Panel()->hWnd().value);
  const std::string edit = std::to_string(control.ActiveEdit().hWnd().value);
  std::vector<std::string> texts;
  for (const TracedCall& call : this->CallsNamed({"KillTimer", "ShowWindow", "SetFocus"},
                                                 [this] { this->Driver().Key(kKeyEscape); })) {
    texts.push_back(call.name == "KillTimer" ? call.name : call.ToString());
  }
  ASSERT_GE(texts.size(), 3u);
  EXPECT_EQ(texts.front(), "KillTimer");
  EXPECT_EQ(std::ranges::count(texts, "ShowWindow(" + panel + ", 0)"), 1);
  EXPECT_EQ(texts.back(), "SetFocus(" + edit + ")");
  EXPECT_EQ(this->Windows().GetFocus(), control.ActiveEdit().hWnd());
}

TYPED_TEST(PanelClosing, APanelThatIsStillActiveStaysOpen) {
  this->Open();
  this->Driver().Advance(1000);
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelClosing, AltF4InAnOpenPanelClosesThePanelAlone) {
  TypeParam& control = this->Subject();
  this->Open();
  const WindowHandle panel = control.Panel()->hWnd();
  this->Driver().Key(kKeyF4, kAltMask);
  this->Driver().Settle();
  EXPECT_FALSE(this->IsOpen());
  EXPECT_TRUE(this->Windows().IsWindow(panel));
  EXPECT_FALSE(this->TheForm().Closed());
  this->Watched();
  this->Open();
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelClosing, ThePressOfAnotherControlClosesThePanelAndIsNotLost) {
  this->Subject();
  auto& button = this->template AddNew<FlatButton>("next", {Twips(4600), Twips(3600)});
  int clicks = 0;
  button.Click += [&] { ++clicks; };
  this->Open();
  this->Driver().Click(this->ScreenPoint(button, PixelPoint{10, 10}));
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(this->Windows().GetFocus(), button.hWnd());
}

TYPED_TEST(PanelClosing, ClosingBringsTheStripToRest) {
  TypeParam& control = this->Subject();
  this->Driver().Click(this->Strip());
  ASSERT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelClosing, AnotherProgramClosesThePanelWithinATickAndTheFocusIsBackAfterwards) {
  this->Open();
  this->Driver().Leave();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Driver().Enter();
  this->Driver().Settle();
  EXPECT_EQ(this->Windows().GetFocus(), this->Subject().ActiveEdit().hWnd());
}

TYPED_TEST(PanelClosing, APanelThatClosesWhileAnotherProgramIsActiveGivesTheFocusToTheEditBoxAtOnce) {
  TypeParam& control = this->Subject();
  this->Open();
  this->Driver().Leave();
  this->Watched();
  ASSERT_FALSE(this->IsOpen());
  EXPECT_EQ(this->Windows().GetFocus(), control.ActiveEdit().hWnd());
}

TYPED_TEST(PanelClosing, AnotherFormThatTheUserTurnsToKeepsTheFocus) {
  this->Subject();
  const auto second = Form::Create(this->Tracer(), {.name = "second"});
  second->Show();
  this->Hosted(this->Subject()).SetFocus();
  this->Open();
  second->Show();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  EXPECT_EQ(this->Windows().GetActiveWindow(), second->hWnd());
  second->Close();
}

TYPED_TEST(PanelClosing, AFormThatMovesOrIsHiddenClosesThePanel) {
  this->Open();
  this->TheForm().MoveTo({250, 250});
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Open();
  this->TheForm().Hide();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelClosing, AControlThatMovesClosesItsPanel) {
  this->Open();
  this->Hosted(this->Subject()).SetLeft(Twips(900));
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelClosing, AFormThatIsMinimisedClosesThePanel) {
  this->Open();
  this->Driver().SystemCommand(this->TheForm().hWnd(), kScMinimize);
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelClosing, AControlThatIsHiddenOrDisabledClosesItsPanel) {
  this->Open();
  this->Hosted(this->Subject()).SetVisible(false);
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Hosted(this->Subject()).SetVisible(true);
  this->Hosted(this->Subject()).SetFocus();
  this->Open();
  ASSERT_TRUE(this->IsOpen());
  // First the panel closes, so that whoever hears of it finds the control as it was.
  std::vector<std::string> names;
  for (const TracedCall& call :
       this->CallsNamed({"ShowWindow", "EnableWindow"}, [this] { this->Subject().SetEnabled(false); })) {
    names.push_back(call.name);
  }
  EXPECT_THAT(names, ::testing::ElementsAre("ShowWindow", "EnableWindow"));
  EXPECT_FALSE(this->IsOpen());
  EXPECT_FALSE(this->Subject().Holds(this->Windows().GetFocus()));
}

TYPED_TEST(PanelClosing, NothingIsLeftOfAnOpenPanelWhoseControlIsRemoved) {
  this->Open();
  const WindowHandle panel = this->Subject().Panel()->hWnd();
  this->TheForm().Remove("edt");
  this->Driver().Advance(300);
  EXPECT_FALSE(this->Windows().IsWindow(panel));
}

TYPED_TEST(PanelClosing, NothingIsLeftOfAnOpenPanelWhoseFormCloses) {
  this->Open();
  const WindowHandle panel = this->Subject().Panel()->hWnd();
  this->TheForm().Close();
  this->Driver().Advance(300);
  EXPECT_FALSE(this->Windows().IsWindow(panel));
}

TYPED_TEST(PanelClosing, ManyOpeningsLeaveNothingBehind) {
#ifdef _WIN32
  constexpr int kOpenings = 200;
#else
  constexpr int kOpenings = Rounds(10'000);
#endif
  this->Open();
  this->Driver().Key(kKeyEscape);
  const std::size_t objects = this->Driver().LiveObjects();
  const std::size_t windows = this->Driver().LiveWindows();
  const std::size_t timers = this->Driver().LiveTimers();
  for (int i = 0; i < kOpenings; ++i) {
    this->Driver().Key(kKeyF4);
    this->Driver().Key(kKeyEscape);
  }
  EXPECT_EQ(this->Driver().LiveObjects(), objects);
  EXPECT_EQ(this->Driver().LiveWindows(), windows);
  EXPECT_EQ(this->Driver().LiveTimers(), timers);
}

// --- Handlers that do anything -------------------------------------------------------------------------

TYPED_TEST(PanelClosing, AHandlerOfAnyEventMayRemoveTheControl) {
  for (const EventInfo& event : TypeParam::Table().Events()) {
    const std::string name(event.name);
    TypeParam& doomed = this->template AddLoaded<TypeParam>("doomed", {}, {Twips(600), Twips(1500)},
                                                            {Twips(1800), Twips(315)});
    int raised = 0;
    SubscribeByName(doomed, name, [&](RaisedEvent&) {
      ++raised;
      this->TheForm().Remove("doomed");
    });
    const PixelRect rect = this->RectOf(doomed.hWnd());
    this->Hosted(doomed).SetFocus();
    this->Driver().Settle();
    const PixelPoint text{rect.left + 20, rect.top + 8};
    if (name == "CalcUp") {
      this->Driver().Key(kKeyF4);
      this->Driver().Key(kKeyEscape);
    } else if (name.starts_with("Key") || name == "Change") {
      this->Driver().Type("7");
    } else {
      this->Driver().DoubleClick(text);
    }
    this->Driver().Advance(300);
    this->Driver().MovePointer({1000, 750});
    EXPECT_EQ(raised, 1) << name;
    EXPECT_FALSE(this->TheForm().Find("doomed")) << name;
  }
}

TYPED_TEST(PanelClosing, AHandlerOfAChangeThatComesWithAKeyMayCloseTheForm) {
  TypeParam& control = this->Subject();
  control.Change += [this] { this->TheForm().Close(); };
  this->Driver().Type("7");
  EXPECT_TRUE(this->TheForm().Closed());
}

TYPED_TEST(PanelClosing, AnErrorOfAHandlerLeavesThePanelUsable) {
  TypeParam& control = this->Subject();
  control.Change += [] { throw Error(kOverflow); };
  EXPECT_THROW(this->Driver().Type("7"), Error);
  this->Open();
  EXPECT_TRUE(this->IsOpen());
  this->Driver().Key(kKeyEscape);
  EXPECT_FALSE(this->IsOpen());
  EXPECT_EQ(control.ActiveEdit().Text(), "7");
}

}  // namespace
}  // namespace levelwidgets::testing
