// Who gets the focus when the control that has it can no longer take input.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Writes the changes of its focus down, and does something at them.
class Stop : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Stop>("Stop", "Takes the focus."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  static inline std::vector<std::string> notes;

  explicit Stop(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0), .fore_color = Color(0), .font = {}}) {}

  std::function<void()> on_enter = [] {};
  std::function<void()> on_exit = [] {};

  const ClassInfo& Class() const override { return Table(); }
  void OnEnterFocus() override {
    notes.push_back("enter " + Site().DisplayName());
    const auto listener = on_enter;
    listener();
  }
  void OnExitFocus() override {
    notes.push_back("exit " + Site().DisplayName());
    const auto listener = on_exit;
    listener();
  }
};

class FocusTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    for (const char* name : {"a", "b", "c", "d"}) Add(name);
    Get("b").SetFocus();
    Driver().Settle();
    Stop::notes.clear();
  }
  void Add(const std::string& name) {
    const int row = static_cast<int>(TheForm().Controls().size());
    AddNew<Stop>(name, {Twips(300), Twips(300 + 500 * row)});
  }
  HostedControl& Get(const std::string& name) { return *TheForm().Find(name); }
  Stop& StopOf(const std::string& name) { return dynamic_cast<Stop&>(*Get(name).GetControl()); }
  void Disable(const std::string& name) { Get(name).GetControl()->GetSurface().SetEnabled(false); }
  std::vector<std::string> TakeNotes() {
    Driver().Settle();
    return std::exchange(Stop::notes, {});
  }
  std::string Active() {
    const auto control = TheForm().ActiveControl();
    if (!control) return "";
    EXPECT_EQ(Windows().GetFocus(), control->GetControl()->GetSurface().hWnd());
    return control->Name();
  }
};

TEST_F(FocusTest, ADisabledControlHandsItToTheNextInTabOrder) {
  Disable("b");
  EXPECT_EQ(Active(), "c");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter c"));
}

TEST_F(FocusTest, AHiddenControlHandsItToTheNextInTabOrder) {
  Get("b").SetVisible(false);
  EXPECT_EQ(Active(), "c");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter c"));
}

TEST_F(FocusTest, ARemovedControlHandsItToTheNextInTabOrder) {
  TheForm().Remove("b");
  EXPECT_EQ(Active(), "c");
  EXPECT_THAT(TakeNotes(), ElementsAre("enter c"));  // a removed control hears nothing
}

// The focus is in a window inside the control's.
TEST_F(FocusTest, ATextBoxThatIsHiddenHandsItToTheNextInTabOrder) {
  AddNew<FlatTextBox>("text", {Twips(3000), Twips(300)});
  Get("text").SetFocus();
  TakeNotes();
  Get("text").SetVisible(false);
  EXPECT_EQ(Active(), "a");
  EXPECT_THAT(TakeNotes(), ElementsAre("enter a"));
}

TEST_F(FocusTest, ATextBoxThatIsRemovedHandsItToTheNextInTabOrder) {
  AddNew<FlatTextBox>("text", {Twips(3000), Twips(300)});
  Get("text").SetFocus();
  TakeNotes();
  TheForm().Remove("text");
  EXPECT_EQ(Active(), "a");
  EXPECT_THAT(TakeNotes(), ElementsAre("enter a"));
}

TEST_F(FocusTest, TheLastInTheOrderHandsItToTheFirst) {
  Get("d").SetFocus();
  TakeNotes();
  Disable("d");
  EXPECT_EQ(Active(), "a");
  Get("d").GetControl()->GetSurface().SetEnabled(true);
  Get("d").SetFocus();
  TheForm().Remove("d");
  EXPECT_EQ(Active(), "a");
}

TEST_F(FocusTest, ControlsThatCannotTakeTheFocusAreSkipped) {
  Disable("c");
  Get("d").SetTabStop(false);
  Add("e");
  Get("e").SetVisible(false);
  TakeNotes();
  Get("b").SetVisible(false);
  EXPECT_EQ(Active(), "a");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter a"));
}

TEST_F(FocusTest, TheOrderIsThatOfTheTabIndexNotOfTheAdding) {
  Get("a").SetTabIndex(9);
  Get("c").SetTabIndex(8);
  TheForm().Remove("b");
  EXPECT_EQ(Active(), "d");
}

TEST_F(FocusTest, TheFormGetsTheFocusWithoutAnotherControl) {
  for (const char* name : {"a", "c", "d"}) Disable(name);
  Disable("b");
  EXPECT_EQ(Windows().GetFocus(), TheForm().hWnd());
  EXPECT_EQ(Active(), "");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b"));
  // Tab finds the first that can take it again.
  Get("c").GetControl()->GetSurface().SetEnabled(true);
  Driver().Key(kKeyTab);
  EXPECT_EQ(Active(), "c");
}

TEST_F(FocusTest, TheLastControlThatIsRemovedLeavesItToTheForm) {
  for (const char* name : {"a", "c", "d", "b"}) TheForm().Remove(name);
  Driver().Settle();
  EXPECT_EQ(Windows().GetFocus(), TheForm().hWnd());
}

TEST_F(FocusTest, AControlWithoutTheFocusChangesNothing) {
  Disable("c");
  Get("d").SetVisible(false);
  TheForm().Remove("a");
  EXPECT_EQ(Active(), "b");
  EXPECT_THAT(TakeNotes(), IsEmpty());
}

TEST_F(FocusTest, WhileTheFormIsNotActiveTheHandOverWaits) {
  const auto other = Form::Create(Tracer(), {.name = "frmOther"});
  other->Show();
  Driver().Settle();
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b"));
  Disable("b");
  EXPECT_THAT(TakeNotes(), IsEmpty());
  EXPECT_EQ(Windows().GetActiveWindow(), other->hWnd());
  other->Close();
  EXPECT_THAT(TakeNotes(), ElementsAre("enter c"));
  EXPECT_EQ(Active(), "c");
}

TEST_F(FocusTest, ShiftTabAfterARemovalGoesBackFromItsPlace) {
  for (const char* name : {"a", "c", "d"}) Get(name).SetTabStop(false);
  TheForm().Remove("b");
  for (const char* name : {"a", "c", "d"}) Get(name).SetTabStop(true);
  Driver().Key(kKeyTab, kShiftMask);
  EXPECT_EQ(Active(), "a");
}

TEST_F(FocusTest, AControlThatGetsItBackFromItsFormHasNotBeenLeft) {
  Windows().SetFocus(TheForm().hWnd());
  EXPECT_EQ(Active(), "b");
  EXPECT_THAT(TakeNotes(), IsEmpty());
}

TEST_F(FocusTest, AControlIsLeftWhenItsFormGivesTheFocusAwayOrKeepsIt) {
  Get("b").SetTabStop(false);
  for (const char* name : {"a", "c", "d"}) Get(name).SetVisible(false);
  TakeNotes();
  Get("b").SetVisible(false);
  EXPECT_EQ(Windows().GetFocus(), TheForm().hWnd());
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b"));
}

TEST_F(FocusTest, AFormThatIsBeingDesignedHandsNothingOn) {
  MakeForm({.design = true});
  Add("x");
  TakeNotes();
  Windows().SetFocus(Get("x").GetControl()->GetSurface().hWnd());
  Windows().SetFocus(TheForm().hWnd());
  EXPECT_EQ(Windows().GetFocus(), TheForm().hWnd());
  EXPECT_THAT(TakeNotes(), IsEmpty());
}

// --- Listeners that interfere --------------------------------------------------------------------------

TEST_F(FocusTest, AListenerThatMovesItKeepsItsChoice) {
  StopOf("b").on_exit = [this] { Get("d").SetFocus(); };
  Disable("b");
  EXPECT_EQ(Active(), "d");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter d"));
}

TEST_F(FocusTest, AListenerOfAHiddenControlThatMovesItKeepsItsChoice) {
  StopOf("b").on_exit = [this] { Get("d").SetFocus(); };
  Get("b").SetVisible(false);
  EXPECT_EQ(Active(), "d");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter d"));
}

TEST_F(FocusTest, AListenerMayDisableTheNextOne) {
  StopOf("b").on_exit = [this] { Disable("c"); };
  Disable("b");
  EXPECT_EQ(Active(), "d");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter d"));
}

TEST_F(FocusTest, TheNextOneMayRefuseByDisablingItself) {
  StopOf("c").on_enter = [this] { Disable("c"); };
  Get("b").SetVisible(false);
  EXPECT_EQ(Active(), "d");
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b", "enter c", "exit c", "enter d"));
}

TEST_F(FocusTest, TheNextOneMayBeRemovedAsItGetsIt) {
  StopOf("c").on_enter = [this] { TheForm().Remove("c"); };
  Get("b").SetVisible(false);
  EXPECT_EQ(Active(), "d");
}

TEST_F(FocusTest, TheNextOneMayRemoveTheOneThatIsBeingHidden) {
  StopOf("c").on_enter = [this] { TheForm().Remove("b"); };
  Get("b").SetVisible(false);
  EXPECT_EQ(Active(), "c");
  EXPECT_FALSE(TheForm().Find("b"));
}

TEST_F(FocusTest, AListenerMayCloseTheFormAtAnyStep) {
  const WindowHandle window = TheForm().hWnd();
  StopOf("c").on_enter = [this] { TheForm().Close(); };
  Get("b").SetVisible(false);
  EXPECT_FALSE(Windows().IsWindow(window));
}

TEST_F(FocusTest, AFormClosedAsTheControlLosesItHandsOverNothing) {
  const WindowHandle window = TheForm().hWnd();
  StopOf("b").on_exit = [this] { TheForm().Close(); };
  Get("b").SetVisible(false);
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_THAT(TakeNotes(), ElementsAre("exit b"));
}

}  // namespace
}  // namespace levelwidgets::testing
