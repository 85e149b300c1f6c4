// What a calculator and a calendar have in common: how their panels open, and what closes and disturbs them.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/panel_classes.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename T>
class PanelOpening : public PanelTest<T> {};
TYPED_TEST_SUITE(PanelOpening, PanelClasses, ClassNames);

// --- Opening -----------------------------------------------------------------------------------------

TYPED_TEST(PanelOpening, F4AltDownAndTheStripOpenThePanel) {
  this->Subject();
  this->Driver().Key(kKeyF4);
  EXPECT_TRUE(this->IsOpen());
  this->Driver().Key(kKeyEscape);
  EXPECT_FALSE(this->IsOpen());
  this->Driver().Key(kKeyDown, kAltMask);
  EXPECT_TRUE(this->IsOpen());
  this->Driver().Key(kKeyEscape);
  this->Driver().Key(kKeyDown);
  this->Driver().Key(kKeyDown, kCtrlMask);
  EXPECT_FALSE(this->IsOpen());
  this->Driver().Click(this->Strip());
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelOpening, ASecondPressOnTheStripClosesThePanel) {
  this->Subject();
  this->Driver().Click(this->Strip());
  ASSERT_TRUE(this->IsOpen());
  this->Driver().Advance(600);  // no double click
  this->Driver().Click(this->Strip());
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelOpening, TheKeysThatOpenTypeNothingAndRaiseNoKeyDown) {
  this->Subject();
  EXPECT_THAT(this->EventsOf([this] {
    this->Driver().KeyDown(kKeyDown, kAltMask);
    this->Driver().KeyUp(kKeyDown, kAltMask);
  }),
              ::testing::Each("Change()"));  // of a text that is no number
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelOpening, AltF4IsTheWindows) {
  this->Subject();
  this->Driver().Key(kKeyF4, kAltMask);
  EXPECT_FALSE(this->TheForm().Find("edt"));
  EXPECT_TRUE(this->TheForm().Closed());
}

TYPED_TEST(PanelOpening, ThePanelHasTheFocusAndTheControlIsNotLeft) {
  TypeParam& control = this->Subject();
  int left = 0;
  this->Hosted(control).LostFocus += [&] { ++left; };
  this->Open();
  EXPECT_EQ(this->Windows().GetFocus(), control.Panel()->hWnd());
  EXPECT_EQ(this->Windows().GetActiveWindow(), control.Panel()->hWnd());
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(this->Windows().GetFocus(), control.ActiveEdit().hWnd());
  EXPECT_EQ(left, 0);
}

TYPED_TEST(PanelOpening, TheOpenPanelStandsBelowTheControlAtItsLeftEdge) {
  this->Open();
  EXPECT_EQ(this->PanelRect().left, this->ControlRect().left);
  EXPECT_EQ(this->PanelRect().top, this->ControlRect().bottom);
}

TYPED_TEST(PanelOpening, NearTheLowerEdgeThePanelStandsAboveAtTheRightEdge) {
  this->Subject();
  this->TheForm().MoveTo({100, this->Tracer().Screen().Size().height - 88});
  this->Open();
  const int width = static_cast<int>(this->Subject().Panel()->Size().width.value);
  EXPECT_EQ(this->PanelRect().left, (this->ControlRect().right * 15 - width) / 15);
  EXPECT_EQ(this->PanelRect().bottom, this->ControlRect().top);
}

TYPED_TEST(PanelOpening, NearTheRightEdgeThePanelEndsAtTheScreens) {
  this->Subject();
  const int right = this->Tracer().Screen().Size().width;
  this->TheForm().MoveTo({right - 124, 100});
  this->Open();
  const int width = static_cast<int>(this->Subject().Panel()->Size().width.value);
  EXPECT_EQ(this->PanelRect().left, (right * 15 - width) / 15);
  EXPECT_EQ(this->PanelRect().top, this->ControlRect().bottom);
}

TYPED_TEST(PanelOpening, BeyondTheLeftEdgeThePanelBeginsAtTheScreens) {
  this->Subject();
  this->TheForm().MoveTo({-100, 100});
  this->Open();
  EXPECT_EQ(this->PanelRect().left, 0);
}

TYPED_TEST(PanelOpening, NothingOpensInDesignMode) {
  this->MakeForm({.design = true});
  this->Subject();
  this->Driver().Click(this->Strip());
  this->Driver().Key(kKeyF4);
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelOpening, NothingOpensOfADisabledControl) {
  this->Subject().SetEnabled(false);
  this->Driver().Click(this->Strip());
  this->Driver().Key(kKeyF4);
  EXPECT_FALSE(this->IsOpen());
}

// It still has the pointer captured.
TYPED_TEST(PanelOpening, NothingOpensOfAControlThatIsHiddenUnderThePointer) {
  this->Subject();
  this->Driver().MovePointer(this->Strip());
  this->Hosted(this->Subject()).SetVisible(false);
  this->Driver().Press(kLeftButton);
  this->Driver().Release(kLeftButton);
  EXPECT_FALSE(this->IsOpen());
}

// --- Keys --------------------------------------------------------------------------------------------

TYPED_TEST(PanelOpening, TheDefaultAndTheCancelButtonGetNoKeyOfAnOpenPanel) {
  TypeParam& control = this->Subject();
  auto& ok = this->template AddNew<FlatButton>("ok", {Twips(600), Twips(1500)});
  auto& cancel = this->template AddNew<FlatButton>("cancel", {Twips(600), Twips(2100)});
  this->Hosted(ok).SetDefault(true);
  this->Hosted(cancel).SetCancel(true);
  std::vector<std::string> clicks;
  ok.Click += [&] { clicks.push_back("ok"); };
  cancel.Click += [&] { clicks.push_back("cancel"); };
  this->Open();
  this->Driver().Key(kKeyEnter);
  if (control.PanelIsOpen()) this->Driver().Key(kKeyEscape);
  this->Open();
  this->Driver().Key(kKeyEscape);
  EXPECT_THAT(clicks, IsEmpty());
  this->Driver().Key(kKeyEnter);
  this->Driver().Key(kKeyEscape);
  EXPECT_THAT(clicks, ElementsAre("ok", "cancel"));
}

TYPED_TEST(PanelOpening, AltF4DoesNotTakeAnOpenPanelAway) {
  TypeParam& control = this->Subject();
  this->Open();
  this->Driver().Key(kKeyF4, kAltMask);
  EXPECT_TRUE(this->Windows().IsWindow(control.Panel()->hWnd()));
  EXPECT_FALSE(this->TheForm().Closed());
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelOpening, TypedCharactersAreTheEditBoxs) {
  TypeParam& control = this->Subject();
  EXPECT_THAT(this->EventsOf([this] { this->Driver().Type("x"); }),
              ElementsAre("KeyDown(88, 0)", "KeyPress(120)", "Change()", "KeyUp(88, 0)"));
  EXPECT_EQ(control.ActiveEdit().Text(), "x");
}

TYPED_TEST(PanelOpening, AHandlerChangesOrSwallowsWhatIsTyped) {
  TypeParam& control = this->Subject();
  control.KeyPress += [](std::int16_t& key) { key = static_cast<std::int16_t>(key == 'a' ? 'b' : 0); };
  this->Driver().Type("ac");
  EXPECT_EQ(control.ActiveEdit().Text(), "b");
}

TYPED_TEST(PanelOpening, ThePointersEventsAreThoseOfTheEditBox) {
  this->Subject();
  const PixelRect rect = this->ControlRect();
  this->Driver().MovePointer({rect.left + 19, rect.top + 10});
  EXPECT_THAT(this->EventsOf([&] {
    this->Driver().Click({rect.left + 20, rect.top + 10});
  }),
              ElementsAre("MouseMove(0, 0, 300, 150)", "MouseDown(1, 0, 300, 150)", "MouseUp(1, 0, 300, 150)",
                          "Click()"));
  EXPECT_THAT(this->EventsOf([&] {
    this->Driver().Press(kLeftButton);
    this->Driver().Release(kLeftButton);
  }),
              ElementsAre("DblClick()", "MouseUp(1, 0, 300, 150)"));
}

// --- Closing -----------------------------------------------------------------------------------------

TYPED_TEST(PanelOpening, ClosingPutsTheCaretToTheEndOfTheText) {
  TypeParam& control = this->Subject();
  this->Driver().Type("123");
  control.SetSelStart(0);
  control.SetSelLength(2);
  this->Open();
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(control.SelStart(), 3);
  EXPECT_EQ(control.SelLength(), 0);
}

TYPED_TEST(PanelOpening, ClosingBringsTheStripToRest) {
  TypeParam& control = this->Subject();
  this->Driver().Click(this->Strip());
  ASSERT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelOpening, AnotherProgramThatBecomesActiveClosesThePanelWithinATick) {
  this->Open();
  this->Driver().Leave();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Driver().Enter();
}

TYPED_TEST(PanelOpening, AnotherFormThatTheUserTurnsToKeepsTheFocus) {
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

TYPED_TEST(PanelOpening, AFormThatMovesOrIsHiddenClosesThePanel) {
  this->Open();
  this->TheForm().MoveTo({250, 250});
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Open();
  this->TheForm().Hide();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelOpening, AFormThatIsMinimisedClosesThePanel) {
  this->Open();
  this->Driver().SystemCommand(this->TheForm().hWnd(), kScMinimize);
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelOpening, AControlThatIsHiddenOrDisabledClosesItsPanel) {
  this->Open();
  this->Hosted(this->Subject()).SetVisible(false);
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Hosted(this->Subject()).SetVisible(true);
  this->Hosted(this->Subject()).SetFocus();
  this->Open();
  ASSERT_TRUE(this->IsOpen());
  this->Subject().SetEnabled(false);
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelOpening, NothingIsLeftOfAnOpenPanelWhoseControlIsRemoved) {
  this->Open();
  const WindowHandle panel = this->Subject().Panel()->hWnd();
  this->TheForm().Remove("edt");
  this->Driver().Advance(300);
  EXPECT_FALSE(this->Windows().IsWindow(panel));
}

TYPED_TEST(PanelOpening, NothingIsLeftOfAnOpenPanelWhoseFormCloses) {
  this->Open();
  const WindowHandle panel = this->Subject().Panel()->hWnd();
  this->TheForm().Close();
  this->Driver().Advance(300);
  EXPECT_FALSE(this->Windows().IsWindow(panel));
}

TYPED_TEST(PanelOpening, ManyOpeningsLeaveNothingBehind) {
#ifdef _WIN32
  constexpr int kOpenings = 200;
#else
  constexpr int kOpenings = 10'000;
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

TYPED_TEST(PanelOpening, AHandlerOfAnyEventMayRemoveTheControl) {
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

TYPED_TEST(PanelOpening, AHandlerOfAChangeThatComesWithAKeyMayCloseTheForm) {
  TypeParam& control = this->Subject();
  control.Change += [this] { this->TheForm().Close(); };
  this->Driver().Type("7");
  EXPECT_TRUE(this->TheForm().Closed());
}

TYPED_TEST(PanelOpening, AnErrorOfAHandlerLeavesThePanelUsable) {
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
