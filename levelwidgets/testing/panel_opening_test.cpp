// What the controls around an edit box with a panel have in common: how their panels open, and keys.
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

TYPED_TEST(PanelOpening, ShiftAndCtrlMakeNoDifferenceToTheKeysThatOpen) {
  this->Subject();
  for (const int shift : {int{kShiftMask}, int{kCtrlMask}, kShiftMask | kCtrlMask}) {
    this->Driver().Key(kKeyF4, shift);
    EXPECT_TRUE(this->IsOpen()) << shift;
    this->Driver().Key(kKeyEscape);
    this->Driver().Key(kKeyDown, kAltMask | shift);
    EXPECT_TRUE(this->IsOpen()) << shift;
    this->Driver().Key(kKeyEscape);
  }
}

// The second press of a double click is no press.
TYPED_TEST(PanelOpening, ADoubleClickOnTheStripOpensThePanelAndLeavesItOpen) {
  this->Subject();
  this->Driver().DoubleClick(this->Strip());
  this->Watched();
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

TYPED_TEST(PanelOpening, AltF4OpensThePanelAndClosesTheForm) {
  this->Subject();
  bool keep = true;
  bool was_open = false;
  this->TheForm().Unload += [&](bool& cancel) {
    cancel = keep;
    was_open = this->IsOpen();
  };
  this->Driver().Key(kKeyF4, kAltMask);
  EXPECT_TRUE(was_open);
  EXPECT_TRUE(this->IsOpen());
  this->Driver().Key(kKeyEscape);
  keep = false;
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

// The panel takes the focus before it is shown: that is when listeners hear of it.
TYPED_TEST(PanelOpening, AListenerThatHearsOfTheFocusMayKeepThePanelFromOpening) {
  const struct {
    const char* deed;
    std::function<void()> act;
  } rows[] = {
      {"disables", [this] { this->Subject().SetEnabled(false); }},
      {"hides", [this] { this->Hosted(this->Subject()).SetVisible(false); }},
      {"hides the form", [this] { this->TheForm().Hide(); }},
      {"removes", [this] { this->TheForm().Remove("edt"); }},
      {"closes the form", [this] { this->TheForm().Close(); }},
      {"raises an error", [] { throw Error(kOverflow); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.deed);
    this->MakeForm({});
    this->Load({});
    auto& next = this->template AddNew<FlatButton>("next", {Twips(4600), Twips(3600)});
    this->Hosted(next).SetFocus();
    this->Driver().Settle();
    this->Hosted(this->Subject()).GotFocus += [&] { row.act(); };
    const PixelPoint strip = this->Strip();
    try {
      this->Driver().Click(strip);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kOverflow);
      this->Driver().Release(kLeftButton);
    }
    this->Driver().Settle();
    if (this->TheForm().Closed()) continue;
    if (this->TheForm().Find("edt")) {
      EXPECT_FALSE(this->IsOpen());
      EXPECT_NE(this->Windows().GetActiveWindow(), this->Subject().Panel()->hWnd());
      EXPECT_NE(this->Windows().GetFocus(), this->Subject().Panel()->hWnd());
    }
    this->TheForm().Close();
  }
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

}  // namespace
}  // namespace levelwidgets::testing
