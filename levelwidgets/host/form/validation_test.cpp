// The container's events of the focus, and a control that keeps it.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ValidationTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    text_ = &AddNew<FlatTextBox>("text", {Twips(300), Twips(300)});
    other_ = &AddNew<FlatTextBox>("other", {Twips(300), Twips(900)});
    ok_ = &AddNew<FlatButton>("ok", {Twips(300), Twips(1500)});
    cancel_ = &AddNew<FlatButton>("cancel", {Twips(300), Twips(2100)});
    for (const auto& control : TheForm().Controls()) Record(*control);
    ok_->Click += [this] { notes_.push_back("click ok"); };
    cancel_->Click += [this] { notes_.push_back("click cancel"); };
    Get("text").SetFocus();
    Driver().Settle();
    notes_.clear();
  }
  void Record(HostedControl& control) {
    const std::string name = control.Name();
    control.GotFocus += [this, name] { notes_.push_back("got " + name); };
    control.LostFocus += [this, name] { notes_.push_back("lost " + name); };
    control.Validate += [this, name](bool& cancel) {
      notes_.push_back("validate " + name);
      cancel = invalid_ == name;
      const auto handler = at_validate_;
      if (handler) handler();
    };
  }
  HostedControl& Get(const std::string& name) { return *TheForm().Find(name); }
  std::string Active() {
    const auto control = TheForm().ActiveControl();
    return control ? control->Name() : "";
  }
  // A button that the pointer was over has the capture until the second move outside.
  void ClickOn(const std::string& name, int right_of_centre = 0) {
    const PixelPoint centre = Get(name).ScreenCentre();
    Driver().MovePointer({centre.x, centre.y + 1});
    Driver().Click({centre.x + right_of_centre, centre.y});
  }
  std::vector<std::string> TakeNotes() {
    Driver().Settle();
    return std::exchange(notes_, {});
  }

  FlatTextBox* text_ = nullptr;
  FlatTextBox* other_ = nullptr;
  FlatButton* ok_ = nullptr;
  FlatButton* cancel_ = nullptr;
  std::string invalid_;
  std::function<void()> at_validate_;
  std::vector<std::string> notes_;
};

TEST_F(ValidationTest, TheTabKeyAsksTheControlThenTellsOfTheFocus) {
  Driver().Key(kKeyTab);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got other"));
}

TEST_F(ValidationTest, APressOnAnotherControlAsksBeforeThePressComes) {
  ClickOn("ok");
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got ok", "click ok"));
  ClickOn("other");
  EXPECT_THAT(TakeNotes(), ElementsAre("validate ok", "lost ok", "got other"));
}

TEST_F(ValidationTest, AnInvalidControlKeepsTheFocusFromTheTabKey) {
  invalid_ = "text";
  Driver().Key(kKeyTab);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
  EXPECT_EQ(Active(), "text");
  Driver().Type("x");
  EXPECT_EQ(text_->Text(), "x");
}

TEST_F(ValidationTest, APressBesideAnInvalidControlIsLost) {
  invalid_ = "text";
  for (const char* name : {"ok", "other"}) {
    ClickOn(name);
    EXPECT_THAT(TakeNotes(), ElementsAre("validate text")) << name;
    EXPECT_EQ(Active(), "text");
  }
}

TEST_F(ValidationTest, AnAccessKeyDoesNotLeaveAnInvalidControl) {
  ok_->SetCaption("&Store");
  invalid_ = "text";
  Driver().Key('S', kAltMask);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
  invalid_ = "";
  Driver().Key('S', kAltMask);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got ok", "click ok"));
}

TEST_F(ValidationTest, EnterAsksBeforeItClicksTheDefaultButton) {
  Get("ok").SetDefault(true);
  invalid_ = "text";
  Driver().Key(kKeyEnter);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
  invalid_ = "";
  Driver().Key(kKeyEnter);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "click ok"));
}

TEST_F(ValidationTest, TheWayToTheCancelButtonIsAlwaysOpen) {
  Get("cancel").SetCancel(true);
  invalid_ = "text";
  Driver().Key(kKeyEscape);
  EXPECT_THAT(TakeNotes(), ElementsAre("click cancel"));
  ClickOn("cancel");
  EXPECT_THAT(TakeNotes(), ElementsAre("lost text", "got cancel", "click cancel"));
}

TEST_F(ValidationTest, SetFocusAsksAndDoesNothingWhenRefused) {
  invalid_ = "text";
  Get("other").SetFocus();
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
  EXPECT_EQ(Active(), "text");
  Get("text").SetFocus();  // it has it
  EXPECT_THAT(TakeNotes(), IsEmpty());
}

TEST_F(ValidationTest, AControlThatIsDisabledOrRemovedIsNotAsked) {
  invalid_ = "text";
  text_->SetEnabled(false);
  EXPECT_THAT(TakeNotes(), ElementsAre("lost text", "got other"));
  invalid_ = "other";
  TheForm().Remove("other");
  EXPECT_EQ(Active(), "ok");
}

TEST_F(ValidationTest, AListenerMayMoveTheFocusItself) {
  at_validate_ = [this] {
    at_validate_ = {};
    Get("cancel").SetFocus();
  };
  invalid_ = "text";
  Driver().Key(kKeyTab);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got cancel"));
}

TEST_F(ValidationTest, AListenerMayRemoveWhateverTheFocusWasToGoTo) {
  at_validate_ = [this] {
    at_validate_ = {};
    TheForm().Remove("other");
  };
  Driver().Key(kKeyTab);
  EXPECT_EQ(Active(), "text");
  bool pressed = false;
  ok_->MouseDown += [&pressed](auto...) { pressed = true; };
  at_validate_ = [this] {
    at_validate_ = {};
    TheForm().Remove("ok");
  };
  ClickOn("ok");
  EXPECT_FALSE(pressed);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "validate text"));
  Get("cancel").SetDefault(true);
  at_validate_ = [this] { TheForm().Remove("cancel"); };
  Driver().Key(kKeyEnter);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
}

// The pointer is over the button before, which has the capture then.
TEST_F(ValidationTest, APressOnAControlThatHasTheCaptureAsksOnce) {
  Driver().MovePointer(Get("ok").ScreenCentre());
  ASSERT_EQ(Windows().GetCapture(), ok_->hWnd());
  invalid_ = "text";
  ClickOn("ok");
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
  invalid_ = "";
  ClickOn("ok", 8);  // not the second press of a double click
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got ok", "click ok"));
  ClickOn("ok");
  EXPECT_THAT(TakeNotes(), ElementsAre("click ok")) << "it has the focus";
}

TEST_F(ValidationTest, AListenerMayCloseTheForm) {
  at_validate_ = [this] { TheForm().Close(); };
  ClickOn("ok");
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text"));
  EXPECT_TRUE(TheForm().Closed());
}

TEST_F(ValidationTest, AfterAnErrorInAListenerTheNextOneIsAsked) {
  at_validate_ = [] { throw Error(kInvalidCall); };
  EXPECT_THROW(Get("other").SetFocus(), Error);
  EXPECT_EQ(Active(), "text");
  at_validate_ = {};
  TakeNotes();
  Get("other").SetFocus();
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got other"));
}

TEST_F(ValidationTest, AFocusListenerThatMovesTheFocusOnLeavesEachPairWhole) {
  Get("other").GotFocus += [this] { Get("ok").SetFocus(); };
  Driver().Key(kKeyTab);
  EXPECT_THAT(TakeNotes(), ElementsAre("validate text", "lost text", "got other", "validate other",
                                       "lost other", "got ok"));
}

TEST_F(ValidationTest, AnotherFormTakesTheFocusWithoutAsking) {
  const auto second = Form::Create(Tracer(), {.name = "second"});
  second->Show();
  EXPECT_THAT(TakeNotes(), ElementsAre("lost text"));
  second->Close();
  EXPECT_THAT(TakeNotes(), ElementsAre("got text"));
}

// --- Keys that the form hears first ------------------------------------------------------------------

class KeyPreviewTest : public ValidationTest {
 protected:
  void SetUp() override {
    ValidationTest::SetUp();
    TheForm().KeyDown += [this](std::int16_t& code, std::int16_t shift) {
      notes_.push_back("form down " + std::to_string(code) + " " + std::to_string(shift));
      if (code == eaten_) code = 0;
    };
    TheForm().KeyPress += [this](std::int16_t& character) {
      notes_.push_back("form press " + std::to_string(character));
      if (character == 'q') character = 'r';
      if (character == eaten_) character = 0;
    };
    TheForm().KeyUp += [this](std::int16_t& code, std::int16_t shift) {
      notes_.push_back("form up " + std::to_string(code) + " " + std::to_string(shift));
      if (code == eaten_) code = 0;
    };
    text_->KeyDown +=
        [this](std::int16_t code, std::int16_t) { notes_.push_back("down " + std::to_string(code)); };
    text_->KeyUp +=
        [this](std::int16_t code, std::int16_t) { notes_.push_back("up " + std::to_string(code)); };
  }
  std::int16_t eaten_ = -1;
};

TEST_F(KeyPreviewTest, TheFormHearsNothingUnlessItAsksFor) {
  Driver().Type("a");
  EXPECT_THAT(TakeNotes(), ElementsAre("down 65", "up 65"));
}

TEST_F(KeyPreviewTest, TheFormHearsEachKeyBeforeTheControl) {
  TheForm().SetKeyPreview(true);
  Driver().Type("a");
  EXPECT_THAT(TakeNotes(),
              ElementsAre("form down 65 0", "down 65", "form press 97", "form up 65 0", "up 65"));
  EXPECT_EQ(text_->Text(), "a");
}

TEST_F(KeyPreviewTest, TheFormHearsAKeyBeforeItMovesTheFocus) {
  TheForm().SetKeyPreview(true);
  eaten_ = kKeyTab;
  Driver().Key(kKeyTab);
  EXPECT_EQ(Active(), "text");
  EXPECT_THAT(TakeNotes(), ElementsAre("form down 9 0", "form up 9 0"));
}

TEST_F(KeyPreviewTest, AUsedKeyDoesNotType) {
  TheForm().SetKeyPreview(true);
  eaten_ = 'A';
  Driver().Type("a");
  EXPECT_THAT(TakeNotes(), ElementsAre("form down 65 0", "form up 65 0"));
  EXPECT_EQ(text_->Text(), "");
}

TEST_F(KeyPreviewTest, ACharacterMayBeChangedOrTakenAway) {
  TheForm().SetKeyPreview(true);
  eaten_ = 'x';
  Driver().Type("qx");
  EXPECT_EQ(text_->Text(), "r");
}

TEST_F(KeyPreviewTest, TheFormHearsKeysWhileNoControlHasTheFocus) {
  TheForm().SetKeyPreview(true);
  for (const auto& control : std::vector(TheForm().Controls())) TheForm().Remove(control->Name());
  TakeNotes();
  Driver().Type("a");
  EXPECT_THAT(TakeNotes(), ElementsAre("form down 65 0", "form press 97", "form up 65 0"));
}

TEST_F(KeyPreviewTest, AListenerMayCloseTheFormAtAnyKey) {
  TheForm().SetKeyPreview(true);
  TheForm().KeyDown += [this](std::int16_t&, std::int16_t) { TheForm().Close(); };
  Driver().Key('A');
  EXPECT_TRUE(TheForm().Closed());
}

}  // namespace
}  // namespace levelwidgets::testing
