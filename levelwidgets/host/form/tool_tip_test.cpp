// Tool tips, as a person sees them.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kText[] = "Keeps what was typed";

class ToolTipTest : public DesktopTest {
 protected:
  FlatButton& Button(const std::string& name = "cmdSave", const std::string& tip = kText) {
    const int row = static_cast<int>(TheForm().Controls().size());
    auto& button = AddNew<FlatButton>(name, {Twips(300), Twips(300 + 900 * row)}, {Twips(3000), Twips(750)});
    Hosted(button).SetToolTipText(tip);
    return button;
  }
  FlatLabel& Label() {
    auto& label = AddNew<FlatLabel>("lblName", {Twips(300), Twips(300)}, {Twips(3000), Twips(750)});
    Hosted(label).SetToolTipText(kText);
    return label;
  }
  PixelPoint In(const Control& control, PixelPoint inside = {20, 20}) { return ScreenPoint(control, inside); }
  void MoveOver(const Control& control, PixelPoint inside = {20, 20}) {
    Driver().MovePointer(In(control, inside));
  }
  void MoveOverTheForm() {
    PixelPoint corner{390, 290};
    Windows().ClientToScreen(TheForm().hWnd(), corner);
    Driver().MovePointer(corner);
  }
  // The titles of the top-level windows but the form, front to back.
  std::vector<std::string> Tips() {
    Driver().Settle();
    std::vector<std::string> titles;
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
      if (window.handle != TheForm().hWnd()) titles.push_back(window.title);
    }
    return titles;
  }
  PixelRect TipRect() {
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
      if (window.handle != TheForm().hWnd()) return window.rect;
    }
    return {};
  }
  // Long enough on every desktop.
  void WaitForTip() { Driver().Advance(700); }
};

// --- Coming ------------------------------------------------------------------------------------------

TEST_F(ToolTipTest, ComesAfterHalfASecondOverTheControl) {
  auto& button = Button();
  MoveOver(button);
  Driver().Advance(400);
  EXPECT_THAT(Tips(), IsEmpty());
  Driver().Advance(300);
  EXPECT_THAT(Tips(), ElementsAre(kText));
}

TEST_F(ToolTipTest, ComesAtHalfASecondExactly) {
  auto& button = Button();
  MoveOver(button);
  Driver().Advance(499);
  EXPECT_THAT(Tips(), IsEmpty());
  Driver().Advance(1);
  EXPECT_THAT(Tips(), ElementsAre(kText));
}

TEST_F(ToolTipTest, MovesOverTheControlDoNotPutItOff) {
  auto& label = AddNew<FlatLabel>("lblName", {Twips(300), Twips(300)}, {Twips(3000), Twips(750)});
  Hosted(label).SetToolTipText(kText);
  MoveOver(label);
  Driver().Advance(300);
  MoveOver(label, {30, 22});
  Driver().Advance(350);
  EXPECT_THAT(Tips(), ElementsAre(kText));
}

TEST_F(ToolTipTest, StandsBelowThePointerInTheColorsOfTips) {
  auto& button = Button();
  MoveOver(button);
  WaitForTip();
  const PixelRect rect = TipRect();
  const PixelPoint pointer = In(button);
  EXPECT_EQ(rect.left, pointer.x);
  EXPECT_EQ(rect.top, pointer.y + 20);
  EXPECT_GT(rect.width(), 60);
  EXPECT_GT(rect.height(), 12);
  Driver().Settle();
  EXPECT_EQ(Driver().PixelAt({rect.left, rect.top}), Concrete(Color(0x80000017)));
  EXPECT_EQ(Driver().PixelAt({rect.left + 1, rect.top + 1}), Concrete(Color(0x80000018)));
}

TEST_F(ToolTipTest, HonoursLineBreaksAndDrawsAmpersandsAsTheyAre) {
  auto& button = Button("cmdSave", "One && only");
  MoveOver(button);
  WaitForTip();
  const PixelRect one = TipRect();
  Hosted(button).SetToolTipText("One && only\nTwo");
  const PixelRect two = TipRect();
  EXPECT_EQ(two.width(), one.width());
  EXPECT_EQ(two.height() - 6, 2 * (one.height() - 6));
  Hosted(button).SetToolTipText("One & only");
  EXPECT_LT(TipRect().width(), one.width());
}

TEST_F(ToolTipTest, AControlWithoutATextHasNoneAndRunsNoTimer) {
  auto& button = Button("cmdSave", "");
  const std::size_t timers = Driver().LiveTimers();
  MoveOver(button);
  EXPECT_EQ(Driver().LiveTimers(), timers);
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, InDesignModeNoTipAppears) {
  MakeForm({.design = true});
  MoveOver(Button());
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, TheEditBoxInsideATextBoxCountsAsTheTextBox) {
  auto& box = AddNew<FlatTextBox>("txtName", {Twips(300), Twips(300)}, {Twips(3000), Twips(750)});
  Hosted(box).SetToolTipText(kText);
  MoveOver(box, {0, 0});
  Driver().Advance(300);
  MoveOver(box, {50, 20});
  Driver().Advance(350);
  EXPECT_THAT(Tips(), ElementsAre(kText));
  Driver().Press(kLeftButton);
  EXPECT_THAT(Tips(), IsEmpty());
  Driver().Release(kLeftButton);
}

// --- Going -------------------------------------------------------------------------------------------

TEST_F(ToolTipTest, GoesWhenThePointerLeaves) {
  auto& button = Button();
  MoveOver(button);
  WaitForTip();
  MoveOverTheForm();
  EXPECT_THAT(Tips(), IsEmpty());
  MoveOver(button);
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre(kText));
}

TEST_F(ToolTipTest, GoesAtOnceWhenThePointerGoesFromALabelToTheForm) {
  auto& label = Label();
  MoveOver(label);
  WaitForTip();
  MoveOverTheForm();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, ThatThePointerHasLeftTheProgramIsNoticedWithinATenthOfASecond) {
  auto& label = Label();
  MoveOver(label);
  Driver().Advance(500);
  EXPECT_THAT(Tips(), ElementsAre(kText));
  Driver().MovePointer({1000, 750});
  Driver().Advance(100);
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, GoesWhenThePointerLeavesTheProgramsWindows) {
  auto& label = AddNew<FlatLabel>("lblName", {Twips(300), Twips(300)}, {Twips(3000), Twips(750)});
  Hosted(label).SetToolTipText(kText);
  MoveOver(label);
  WaitForTip();
  Driver().MovePointer({1000, 750});
  Driver().Advance(200);
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, LeavingInTimeShowsNoTip) {
  auto& button = Button();
  MoveOver(button);
  Driver().Advance(200);
  MoveOverTheForm();
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, GoesAtAPressAndStaysAwayUntilThePointerHasLeft) {
  auto& button = Button();
  MoveOver(button);
  WaitForTip();
  Driver().Press(kLeftButton);
  EXPECT_THAT(Tips(), IsEmpty());
  Driver().Release(kLeftButton);
  MoveOver(button, {40, 20});
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
  MoveOverTheForm();
  MoveOver(button);
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre(kText));
}

TEST_F(ToolTipTest, AfterAPressItIsNoticedThatThePointerWasElsewhereOnTheScreen) {
  auto& label = AddNew<FlatLabel>("lblName", {Twips(300), Twips(300)}, {Twips(3000), Twips(750)});
  Hosted(label).SetToolTipText(kText);
  MoveOver(label);
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  Driver().MovePointer({1000, 750});
  Driver().Advance(200);
  MoveOver(label);
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre(kText));
}

TEST_F(ToolTipTest, APressBeforeItsTimeKeepsItAway) {
  auto& button = Button();
  MoveOver(button);
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, APressThatComesBeforeAnyMoveKeepsItAway) {
  Driver().MovePointer({200, 200});
  auto& label = AddNew<FlatLabel>("lblName", {}, {Twips(6000), Twips(4500)});
  Hosted(label).SetToolTipText(kText);
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  Driver().MovePointer({202, 200});
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, GoesAtAKeyWhicheverControlHasTheFocus) {
  auto& button = Button();
  auto& other = Button("cmdOther", "");
  Hosted(other).SetFocus();
  MoveOver(button);
  WaitForTip();
  Driver().Key('A');
  EXPECT_THAT(Tips(), IsEmpty());
  MoveOver(button, {40, 20});
  WaitForTip();
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, GoesAtAKeyWhenNoControlHasTheFocus) {
  auto& label = AddNew<FlatLabel>("lblName", {Twips(300), Twips(300)}, {Twips(3000), Twips(750)});
  Hosted(label).SetToolTipText(kText);
  Windows().SetFocus(TheForm().hWnd());
  Hosted(label).SetTabStop(false);
  MoveOver(label);
  WaitForTip();
  Driver().Key('A');
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, ItsWindowStaysTheSameWhileItIsShown) {
  MoveOver(Label());
  WaitForTip();
  const auto tips = [this] {
    std::vector<std::uint32_t> handles;
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) handles.push_back(window.handle.value);
    return handles;
  };
  const auto before = tips();
  EXPECT_EQ(before.size(), 2u);
  Driver().Advance(300);
  EXPECT_EQ(tips(), before);
}

TEST_F(ToolTipTest, ATextThatChangesBeforeItsTimeDoesNotBringItEarly) {
  auto& label = Label();
  MoveOver(label);
  Hosted(label).SetToolTipText("Other");
  EXPECT_THAT(Tips(), IsEmpty());
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre("Other"));
}

TEST_F(ToolTipTest, GoesAtOnceWhenItsControlIsRemoved) {
  MoveOver(Label());
  WaitForTip();
  TheForm().Remove("lblName");
  EXPECT_THAT(Tips(), IsEmpty());
}

TEST_F(ToolTipTest, AFormThatIsHiddenWithoutBeingActiveShowsNone) {
  auto& label = Label();
  const auto other = Form::Create(Tracer(), {.name = "frmOther", .caption = "Other", .left = Twips(10500)});
  other->Show();
  MoveOver(label);
  TheForm().Hide();
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre("Other"));
}

TEST_F(ToolTipTest, TheNextControlHasItsOwn) {
  auto& first = Button("cmdFirst", "First");
  auto& second = Button("cmdSecond", "Second");
  MoveOver(first);
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre("First"));
  Driver().MovePointer(In(second, {60, -3}));  // the button lets its capture go outside
  MoveOver(second);
  EXPECT_THAT(Tips(), IsEmpty());
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre("Second"));
}

TEST_F(ToolTipTest, GoesWithTheControl) {
  const std::function<void(HostedControl&)> kDeeds[] = {
      [](HostedControl& c) { c.GetForm()->Remove(c.Name()); },
      [](HostedControl& c) { c.SetVisible(false); },
      [](HostedControl& c) { SetByName(*c.GetControl(), "Enabled", false); },
      [](HostedControl& c) {
        c.Move({Twips(4500), Twips(3600)}, {Twips(600), Twips(300)});
      },
      [](HostedControl& c) { c.SetToolTipText(""); },
      [](HostedControl& c) { c.GetForm()->Hide(); },
  };
  for (const auto& deed : kDeeds) {
    MakeForm({});
    auto& button = Button();
    MoveOver(button);
    WaitForTip();
    EXPECT_THAT(Tips(), ElementsAre(kText));
    deed(Hosted(button));
    Driver().Advance(200);
    EXPECT_THAT(Tips(), IsEmpty());
    MoveOverTheForm();
  }
}

TEST_F(ToolTipTest, GoesWithTheFormWhetherShownOrStillToCome) {
  for (const int waited : {100, 700}) {
    MakeForm({});
    MoveOver(Button());
    Driver().Advance(static_cast<std::uint32_t>(waited));
    TheForm().Close();
    Driver().Advance(700);
    EXPECT_THAT(Tips(), IsEmpty());
    MakeForm({});
    MoveOverTheForm();
  }
}

TEST_F(ToolTipTest, GoesWhenAnotherWindowBecomesActive) {
  MoveOver(Button());
  WaitForTip();
  const auto other = Form::Create(Tracer(), {.name = "frmOther", .caption = "Other", .left = Twips(10500)});
  other->Show();
  Driver().Settle();
  EXPECT_THAT(Tips(), ElementsAre("Other"));
}

// --- Staying out of the way --------------------------------------------------------------------------

TEST_F(ToolTipTest, TakesNeitherTheFocusNorTheCaptureNorTheActivation) {
  auto& button = Button();
  Hosted(button).SetFocus();
  Driver().Settle();
  int deactivations = 0;
  TheForm().Deactivate += [&] { ++deactivations; };
  MoveOver(button);
  Watch(button);
  WaitForTip();
  EXPECT_THAT(Tips(), ElementsAre(kText));
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(Windows().GetFocus(), button.GetSurface().hWnd());
  EXPECT_EQ(Windows().GetCapture(), button.GetSurface().hWnd());
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
  EXPECT_EQ(deactivations, 0);
}

TEST_F(ToolTipTest, AClickOnItIsForWhatIsBehindIt) {
  auto& label = AddNew<FlatLabel>("lblName", {Twips(300), Twips(300)}, {Twips(3000), Twips(1500)});
  Hosted(label).SetToolTipText(kText);
  MoveOver(label);
  WaitForTip();
  const PixelRect tip = TipRect();
  const PixelPoint inside{tip.left + 10, tip.top + 5};
  int presses = 0;
  label.MouseDown += [&](auto...) { ++presses; };
  Driver().MovePointer(inside);
  EXPECT_THAT(Tips(), ElementsAre(kText));  // still over the label
  Driver().Press(kLeftButton);
  EXPECT_EQ(presses, 1);
  EXPECT_THAT(Tips(), IsEmpty());
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
  Driver().Release(kLeftButton);
}

TEST_F(ToolTipTest, LeavesNoTimerBehind) {
  auto& button = Button();
  const std::size_t timers = Driver().LiveTimers();
  MoveOver(button);
  WaitForTip();
  EXPECT_EQ(Driver().LiveTimers(), timers + 1);
  MoveOverTheForm();
  EXPECT_EQ(Driver().LiveTimers(), timers);
}

// --- The place ---------------------------------------------------------------------------------------

TEST(PlaceToolTip, BelowThePointerWhereThereIsRoom) {
  EXPECT_EQ(PlaceToolTip({100, 50}, 20, {60, 18}, {1024, 768}), (PixelRect{100, 70, 160, 88}));
  EXPECT_EQ(PlaceToolTip({100, 730}, 20, {60, 18}, {1024, 768}), (PixelRect{100, 750, 160, 768}));
}

TEST(PlaceToolTip, AboveItAtTheFootOfTheScreen) {
  EXPECT_EQ(PlaceToolTip({100, 731}, 20, {60, 18}, {1024, 768}), (PixelRect{100, 711, 160, 729}));
}

TEST(PlaceToolTip, MovedLeftAtTheRightEdge) {
  EXPECT_EQ(PlaceToolTip({1020, 50}, 20, {60, 18}, {1024, 768}), (PixelRect{964, 70, 1024, 88}));
}

TEST(PlaceToolTip, OneThatIsLargerThanTheScreenBeginsAtItsCorner) {
  EXPECT_EQ(PlaceToolTip({100, 50}, 20, {2000, 900}, {1024, 768}), (PixelRect{0, 0, 2000, 900}));
}

TEST(PlaceToolTip, OnAnotherScreenItIsBelowThePointer) {
  EXPECT_EQ(PlaceToolTip({-300, 760}, 20, {60, 18}, {1024, 768}), (PixelRect{-300, 780, -240, 798}));
}

}  // namespace
}  // namespace levelwidgets::testing
