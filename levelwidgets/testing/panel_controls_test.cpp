// What a calculator and a calendar have in common: the edit box, the strip, and how their panels open and
// close.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename T>
class PanelControls : public PanelTest<T> {};

struct ClassNames {
  template <typename T>
  static std::string GetName(int) {
    return std::string(T::Table().Name());
  }
};
using Both = ::testing::Types<FlatCalculator, FlatCalendar>;
TYPED_TEST_SUITE(PanelControls, Both, ClassNames);

// --- Properties --------------------------------------------------------------------------------------

TYPED_TEST(PanelControls, DefaultsAreThoseOfTheTable) {
  const TypeParam& control = this->Subject();
  for (const PropertyInfo& property : TypeParam::Table().Properties()) {
    if (property.defaults.when_read.kind != DefaultValue::Kind::kFixed) continue;
    EXPECT_EQ(property.get(control), property.defaults.when_read.Value()) << property.name;
  }
  EXPECT_EQ(control.BackColor(), Color(0x80000005u));
  EXPECT_EQ(control.ForeColor(), Color(0x80000008u));
  EXPECT_EQ(control.DropDownBackColor(), Color(0x00CEDBDEu));
  EXPECT_EQ(control.DropDownBackColorMouseOver(), Color(0x00DEE7EFu));
  EXPECT_EQ(control.DropDownBackColorPushed(), Color(0x00BDCBCEu));
}

TYPED_TEST(PanelControls, NothingIsSavedOfOneThatWasNotChanged) {
  PropertyBag bag;
  this->Subject().OnWriteProperties(bag);
  EXPECT_TRUE(bag.Entries().empty());
}

TYPED_TEST(PanelControls, EveryColourThatIsSavedComesBack) {
  PropertyBag saved;
  std::uint32_t color = 0x00010203;
  for (const PropertyInfo& property : TypeParam::Table().Properties()) {
    if (property.name.ends_with("Color")) saved.WriteProperty(std::string(property.name), Color(color++), {});
  }
  PropertyBag again;
  this->Load(saved).OnWriteProperties(again);
  ASSERT_EQ(again.Entries().size(), saved.Entries().size());
  for (const auto& entry : saved.Entries()) EXPECT_EQ(*again.Find(entry.name), entry.value) << entry.name;
}

TYPED_TEST(PanelControls, TheFontIsAtFirstTheContainersAndThenTheEditBoxs) {
  TypeParam& control = this->Subject();
  EXPECT_EQ(control.GetFont()->Description(), this->TheForm().GetFont()->Description());
  const FontRef font = MakeFont({.name = "Tahoma", .size = 12});
  control.SetFont(font);
  EXPECT_EQ(control.GetFont(), font);
  EXPECT_EQ(control.ActiveEdit().GetFont(), font);
}

TYPED_TEST(PanelControls, SharedSettersRepaintThenNotify) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  control.SetBackColor(Color(1));
  control.SetForeColor(Color(2));
  control.SetFont(MakeFont());
  control.SetDropDownBackColor(Color(3));
  control.SetDropDownBackColorMouseOver(Color(4));
  control.SetDropDownBackColorPushed(Color(5));
  EXPECT_THAT(this->TakeJournal(),
              ElementsAre("paint", "PropertyChanged(BackColor)", "paint", "PropertyChanged(ForeColor)",
                          "paint", "PropertyChanged(Font)", "paint", "PropertyChanged(DropDownBackColor)",
                          "paint", "PropertyChanged(DropDownBackColorMouseOver)", "paint",
                          "PropertyChanged(DropDownBackColorPushed)"));
  EXPECT_EQ(control.ActiveEdit().BackColor(), Color(1));
  EXPECT_EQ(control.ActiveEdit().ForeColor(), Color(2));
}

TYPED_TEST(PanelControls, AlignmentAndEnabledNotifyWithoutARepaint) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  control.SetAlignment(ksxRight);
  control.SetEnabled(false);
  EXPECT_THAT(this->TakeJournal(), ElementsAre("PropertyChanged(Alignment)", "PropertyChanged(Enabled)"));
  EXPECT_EQ(control.ActiveEdit().Alignment(), ksxRight);
  EXPECT_FALSE(this->Windows().IsWindowEnabled(control.hWnd()));
}

TYPED_TEST(PanelControls, TheSelectionIsThatOfTheEditBoxAndNotifiesNobody) {
  TypeParam& control = this->Subject();
  this->Driver().Type("abcdef");
  EXPECT_THAT(this->EventsOf([&] {
    control.SetSelStart(1);
    control.SetSelLength(3);
  }),
              IsEmpty());
  EXPECT_EQ(control.SelStart(), 1);
  EXPECT_EQ(control.SelLength(), 3);
  EXPECT_EQ(control.SelText(), "bcd");
  EXPECT_THAT(this->EventsOf([&] { control.SetSelText("X"); }), ElementsAre("Change()"));
  EXPECT_EQ(control.ActiveEdit().Text(), "aXef");
}

// --- Layout and painting -------------------------------------------------------------------------------

TYPED_TEST(PanelControls, TheEditBoxCoversAllExceptTheStrip) {
  const TypeParam& control = this->Subject();
  const PixelRect whole = this->ControlRect();
  PixelRect expected = whole;
  expected.right = whole.left + (1800 - 200) / 15;
  EXPECT_EQ(this->RectOf(control.ActiveEdit().hWnd()), expected);
}

TYPED_TEST(PanelControls, OneThatIsNarrowerThanTheStripHasAnEditBoxWithoutWidth) {
  const TypeParam& control = this->Load({}, {Twips(150), Twips(315)});
  EXPECT_EQ(this->RectOf(control.ActiveEdit().hWnd()).width(), 0);
  EXPECT_EQ(this->PixelAt(control, {1, 1}), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelControls, ThePaintFillsTheSurfaceAndDrawsTheArrowAtTheRightOfTheStrip) {
  TypeParam& control = this->Subject();
  EXPECT_THAT(this->DrawingCallsOf(control, [&] { control.OnPaint(); }),
              ElementsAre("FillRect 0 0 120 21", "DrawTextA 6 -1 106 0 120 21 38"));
  std::vector<std::string> line;
  for (const auto& call : this->CallsNamed({"MoveTo", "LineTo"}, [&] { control.OnPaint(); })) {
    line.push_back(call.ToString());
  }
  const std::string dc = std::to_string(control.GetSurface().hDC().value);
  EXPECT_THAT(line, ElementsAre("MoveTo(" + dc + ", 106, 0)", "LineTo(" + dc + ", 106, 21)"));
}

TYPED_TEST(PanelControls, ANewColourOfTheStripIsSeenAtOnceAtRestOnly) {
  TypeParam& control = this->Subject();
  control.SetDropDownBackColor(Color(0x00112233));
  EXPECT_EQ(this->StripPixel(), ColorRef{0x00112233});
  this->Driver().MovePointer(this->Strip());
  control.SetDropDownBackColor(Color(0x00445566));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
}

// --- The strip under the pointer -----------------------------------------------------------------------

TYPED_TEST(PanelControls, TheStripCapturesThePointerUntilItLeaves) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  const PixelPoint strip = this->Strip();
  this->Driver().MovePointer(strip);
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "capture"));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  this->TakeJournal();
  this->Driver().MovePointer({strip.x + 1, strip.y});
  EXPECT_THAT(this->TakeJournal(), IsEmpty());
  this->Driver().MovePointer({strip.x + 100, strip.y});
  EXPECT_THAT(this->TakeJournal(), ElementsAre("release capture", "paint"));
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelControls, TheTextIsOutsideTheStripAndTheRightEdgeInside) {
  const TypeParam& control = this->Subject();
  const PixelRect rect = this->ControlRect();
  const Color over = control.DropDownBackColorMouseOver();
  const Color rest = control.DropDownBackColor();
  const struct {
    PixelPoint at;
    Color color;
  } rows[] = {
      {{rect.right, rect.top + 5}, over},      {{rect.right + 1, rect.top + 5}, rest},
      {{rect.right - 3, rect.bottom}, over},   {{rect.right - 3, rect.bottom + 1}, rest},
      {{rect.right - 3, rect.top}, over},      {{rect.right - 3, rect.top - 1}, rest},
      {{rect.left + 107, rect.top + 5}, over}, {{rect.left + 106, rect.top + 5}, rest},
      {{rect.left + 10, rect.top + 5}, rest},
  };
  for (const auto& row : rows) {
    this->Driver().MovePointer(this->Strip());
    this->Driver().MovePointer(row.at);
    EXPECT_EQ(this->StripPixel(), this->Concrete(row.color))
        << row.at.x - rect.left << " " << row.at.y - rect.top;
    EXPECT_EQ(this->Windows().GetCapture() == control.hWnd(), row.color == over);
    this->Driver().MovePointer({5, 5});
    this->Driver().MovePointer({6, 5});
  }
}

TYPED_TEST(PanelControls, APressIsPushedAndItsReleaseHoversAgain) {
  TypeParam& control = this->Subject();
  this->Driver().MovePointer(this->Strip());
  this->Driver().Press(kLeftButton);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorPushed()));
  EXPECT_TRUE(this->IsOpen());
  this->Driver().Release(kLeftButton);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  EXPECT_EQ(this->Windows().GetCapture(), control.hWnd());
  this->Driver().MovePointer({5, 5});
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
  EXPECT_FALSE(this->Windows().GetCapture());
}

TYPED_TEST(PanelControls, AMoveWithTheLeftButtonDownPushesAndCapturesWhereverItIs) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  const PointerInput drag{kLeftButton, 0, {Twips(-500), Twips(-500)}};
  control.OnMouseMove(drag);
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "capture"));
  EXPECT_EQ(control.GetSurface().BackColor(), control.DropDownBackColorPushed());
  control.OnMouseMove(drag);
  EXPECT_THAT(this->TakeJournal(), IsEmpty());
}

TYPED_TEST(PanelControls, AReleaseOfAnyButtonHoversAndCaptures) {
  TypeParam& control = this->Subject();
  this->Watch(control);
  control.OnMouseUp({kRightButton, 0, {Twips(5000), Twips(0)}});
  EXPECT_THAT(this->TakeJournal(), ElementsAre("paint", "capture"));
  EXPECT_EQ(control.GetSurface().BackColor(), control.DropDownBackColorMouseOver());
  // The next move finds the pointer outside.
  control.OnMouseMove({0, 0, {Twips(5000), Twips(0)}});
  EXPECT_EQ(control.GetSurface().BackColor(), control.DropDownBackColor());
}

TYPED_TEST(PanelControls, OtherButtonsOnTheStripOpenNothing) {
  this->Subject();
  this->Driver().MovePointer(this->Strip());
  for (const int button : {kRightButton, kMiddleButton}) {
    this->Driver().Press(button);
    EXPECT_FALSE(this->IsOpen());
    this->Driver().Release(button);
  }
}

TYPED_TEST(PanelControls, TheEditBoxIsClickedBesideAHoveredStrip) {
  TypeParam& control = this->Subject();
  int clicks = 0;
  control.Click += [&] { ++clicks; };
  const PixelRect rect = this->ControlRect();
  this->Driver().MovePointer(this->Strip());
  this->Driver().Click({rect.left + 20, rect.top + 10});
  this->Driver().Click({rect.left + 20, rect.top + 10});
  EXPECT_GE(clicks, 1);
}

// --- Opening -----------------------------------------------------------------------------------------

TYPED_TEST(PanelControls, F4AltDownAndTheStripOpenThePanel) {
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

TYPED_TEST(PanelControls, ASecondPressOnTheStripClosesThePanel) {
  this->Subject();
  this->Driver().Click(this->Strip());
  ASSERT_TRUE(this->IsOpen());
  this->Driver().Advance(1000);  // no double click
  this->Driver().Click(this->Strip());
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelControls, TheKeysThatOpenTypeNothingAndRaiseNoKeyDown) {
  this->Subject();
  EXPECT_THAT(this->EventsOf([this] {
    this->Driver().KeyDown(kKeyDown, kAltMask);
    this->Driver().KeyUp(kKeyDown, kAltMask);
  }),
              ::testing::Each("Change()"));  // of a text that is no number
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelControls, AltF4IsTheWindows) {
  this->Subject();
  this->Driver().Key(kKeyF4, kAltMask);
  EXPECT_FALSE(this->TheForm().Find("edt"));
  EXPECT_TRUE(this->TheForm().Closed());
}

TYPED_TEST(PanelControls, ThePanelHasTheFocusAndTheControlIsNotLeft) {
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

TYPED_TEST(PanelControls, TheOpenPanelStandsBelowTheControlAtItsLeftEdge) {
  this->Open();
  EXPECT_EQ(this->PanelRect().left, this->ControlRect().left);
  EXPECT_EQ(this->PanelRect().top, this->ControlRect().bottom);
}

TYPED_TEST(PanelControls, NearTheLowerEdgeThePanelStandsAboveAtTheRightEdge) {
  this->Subject();
  this->TheForm().MoveTo({100, this->Tracer().Screen().Size().height - 88});
  this->Open();
  const int width = static_cast<int>(this->Subject().Panel()->Size().width.value);
  EXPECT_EQ(this->PanelRect().left, (this->ControlRect().right * 15 - width) / 15);
  EXPECT_EQ(this->PanelRect().bottom, this->ControlRect().top);
}

TYPED_TEST(PanelControls, NearTheRightEdgeThePanelEndsAtTheScreens) {
  this->Subject();
  const int right = this->Tracer().Screen().Size().width;
  this->TheForm().MoveTo({right - 124, 100});
  this->Open();
  const int width = static_cast<int>(this->Subject().Panel()->Size().width.value);
  EXPECT_EQ(this->PanelRect().left, (right * 15 - width) / 15);
  EXPECT_EQ(this->PanelRect().top, this->ControlRect().bottom);
}

TYPED_TEST(PanelControls, BeyondTheLeftEdgeThePanelBeginsAtTheScreens) {
  this->Subject();
  this->TheForm().MoveTo({-100, 100});
  this->Open();
  EXPECT_EQ(this->PanelRect().left, 0);
}

TYPED_TEST(PanelControls, NothingOpensInDesignMode) {
  this->MakeForm({.design = true});
  this->Subject();
  this->Driver().Click(this->Strip());
  this->Driver().Key(kKeyF4);
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelControls, NothingOpensOfADisabledControl) {
  this->Subject().SetEnabled(false);
  this->Driver().Click(this->Strip());
  this->Driver().Key(kKeyF4);
  EXPECT_FALSE(this->IsOpen());
}

// --- Keys --------------------------------------------------------------------------------------------

TYPED_TEST(PanelControls, TheDefaultAndTheCancelButtonGetNoKeyOfAnOpenPanel) {
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

TYPED_TEST(PanelControls, AltF4DoesNotTakeAnOpenPanelAway) {
  TypeParam& control = this->Subject();
  this->Open();
  this->Driver().Key(kKeyF4, kAltMask);
  EXPECT_TRUE(this->Windows().IsWindow(control.Panel()->hWnd()));
  EXPECT_FALSE(this->TheForm().Closed());
  EXPECT_TRUE(this->IsOpen());
}

TYPED_TEST(PanelControls, TypedCharactersAreTheEditBoxs) {
  TypeParam& control = this->Subject();
  EXPECT_THAT(this->EventsOf([this] { this->Driver().Type("x"); }),
              ElementsAre("KeyDown(88, 0)", "KeyPress(120)", "Change()", "KeyUp(88, 0)"));
  EXPECT_EQ(control.ActiveEdit().Text(), "x");
}

TYPED_TEST(PanelControls, AHandlerChangesOrSwallowsWhatIsTyped) {
  TypeParam& control = this->Subject();
  control.KeyPress += [](std::int16_t& key) { key = static_cast<std::int16_t>(key == 'a' ? 'b' : 0); };
  this->Driver().Type("ac");
  EXPECT_EQ(control.ActiveEdit().Text(), "b");
}

TYPED_TEST(PanelControls, ThePointersEventsAreThoseOfTheEditBox) {
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

TYPED_TEST(PanelControls, ClosingPutsTheCaretToTheEndOfTheText) {
  TypeParam& control = this->Subject();
  this->Driver().Type("123");
  control.SetSelStart(0);
  control.SetSelLength(2);
  this->Open();
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(control.SelStart(), 3);
  EXPECT_EQ(control.SelLength(), 0);
}

TYPED_TEST(PanelControls, ClosingBringsTheStripToRest) {
  TypeParam& control = this->Subject();
  this->Driver().Click(this->Strip());
  ASSERT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColorMouseOver()));
  this->Driver().Key(kKeyEscape);
  EXPECT_EQ(this->StripPixel(), this->Concrete(control.DropDownBackColor()));
}

TYPED_TEST(PanelControls, AnotherProgramThatBecomesActiveClosesThePanelWithinATick) {
  this->Open();
  this->Driver().Leave();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Driver().Enter();
}

TYPED_TEST(PanelControls, AnotherFormThatTheUserTurnsToKeepsTheFocus) {
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

TYPED_TEST(PanelControls, AFormThatMovesOrIsHiddenClosesThePanel) {
  this->Open();
  this->TheForm().MoveTo({250, 250});
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
  this->Open();
  this->TheForm().Hide();
  this->Watched();
  EXPECT_FALSE(this->IsOpen());
}

TYPED_TEST(PanelControls, AControlThatIsHiddenOrDisabledClosesItsPanel) {
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

TYPED_TEST(PanelControls, NothingIsLeftOfAnOpenPanelWhoseControlIsRemoved) {
  this->Open();
  const WindowHandle panel = this->Subject().Panel()->hWnd();
  this->TheForm().Remove("edt");
  this->Driver().Advance(300);
  EXPECT_FALSE(this->Windows().IsWindow(panel));
}

TYPED_TEST(PanelControls, NothingIsLeftOfAnOpenPanelWhoseFormCloses) {
  this->Open();
  const WindowHandle panel = this->Subject().Panel()->hWnd();
  this->TheForm().Close();
  this->Driver().Advance(300);
  EXPECT_FALSE(this->Windows().IsWindow(panel));
}

TYPED_TEST(PanelControls, ManyOpeningsLeaveNothingBehind) {
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

TYPED_TEST(PanelControls, AHandlerOfAnyEventMayRemoveTheControl) {
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

TYPED_TEST(PanelControls, AHandlerOfAChangeThatComesWithAKeyMayCloseTheForm) {
  TypeParam& control = this->Subject();
  control.Change += [this] { this->TheForm().Close(); };
  this->Driver().Type("7");
  EXPECT_TRUE(this->TheForm().Closed());
}

TYPED_TEST(PanelControls, AnErrorOfAHandlerLeavesThePanelUsable) {
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
