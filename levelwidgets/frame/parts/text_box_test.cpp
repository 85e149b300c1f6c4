// The plain edit box as a part, in a control made for the test.
#include <levelwidgets/frame/parts/text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Field : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Field>("Field", "An edit box and nothing else."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Field(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0x00C0C0C0), .fore_color = Color(0), .font = {}}) {
    txtMain.SetVisible(true);
  }
  const ClassInfo& Class() const override { return Table(); }
  void OnResize() override { txtMain.Move({}, {GetSurface().ScaleWidth(), GetSurface().ScaleHeight()}); }
  void OnPaint() override { GetSurface().Cls(); }
  void OnEnterFocus() override { focus_notes.push_back("enter"); }
  void OnExitFocus() override { focus_notes.push_back("exit"); }

  TextBox txtMain{*this, false};
  std::vector<std::string> focus_notes;

 protected:
  WindowHandle FocusWindow() const override { return txtMain.hWnd(); }
};

class TextBoxPartTest : public DesktopTest {
 protected:
  Field& TheField() {
    if (!field_) {
      field_ = &AddNew<Field>("fld", {Twips(600), Twips(600)}, {Twips(3000), Twips(300)});
      AddNew<Field>("other", {Twips(600), Twips(1200)}, {Twips(3000), Twips(300)});
      Hosted(*field_).SetFocus();
      Driver().Settle();
      Log();
    }
    return *field_;
  }
  std::vector<std::string> TakeLog() { return std::exchange(log_, {}); }

 private:
  void Log() {
    TextBox& box = field_->txtMain;
    box.Change += [this] { log_.push_back("Change " + field_->txtMain.Text()); };
    box.Click += [this] { log_.push_back("Click"); };
    box.DblClick += [this] { log_.push_back("DblClick"); };
    box.MouseDown +=
        [this](auto& button, auto&...) { log_.push_back("MouseDown " + std::to_string(button)); };
    box.MouseUp += [this](auto& button, auto&...) { log_.push_back("MouseUp " + std::to_string(button)); };
    box.KeyDown += [this](std::int16_t& code, std::int16_t&) {
      if (code < kKeyShift || code > kKeyAlt) log_.push_back("KeyDown " + std::to_string(code));
    };
    box.KeyPress += [this](std::int16_t& code) { log_.push_back("KeyPress " + std::to_string(code)); };
    box.KeyUp += [this](std::int16_t code, std::int16_t) {
      if (code < kKeyShift || code > kKeyAlt) log_.push_back("KeyUp " + std::to_string(code));
    };
  }
  Field* field_ = nullptr;
  std::vector<std::string> log_;
};

TEST_F(TextBoxPartTest, TheFocusOfTheControlIsThatOfItsEditBox) {
  Field& field = TheField();
  EXPECT_EQ(Windows().GetFocus(), field.txtMain.hWnd());
  EXPECT_THAT(field.focus_notes, ElementsAre("enter"));
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "fld");
  TheForm().Find("other")->SetFocus();
  Driver().Settle();
  EXPECT_THAT(TheField().focus_notes, ElementsAre("enter", "exit"));
}

TEST_F(TextBoxPartTest, TypingRaisesDownPressChangeUp) {
  TheField();
  Driver().Key('A');
  EXPECT_THAT(TakeLog(), ElementsAre("KeyDown 65", "KeyPress 97", "Change a", "KeyUp 65"));
}

TEST_F(TextBoxPartTest, TheEditBoxTypesAChangedCharacterAndNothingForZero) {
  TheField().txtMain.KeyPress += [](std::int16_t& code) {
    if (code == 'a') code = 'Z';
    if (code == 'b') code = 0;
  };
  Driver().Type("abc");
  EXPECT_EQ(TheField().txtMain.Text(), "Zc");
}

TEST_F(TextBoxPartTest, TheEditBoxActsOnAChangedKeyCodeAndNotOnZero) {
  TextBox& box = TheField().txtMain;
  box.SetText("abc");
  box.Select(3, 0);
  box.KeyDown += [](std::int16_t& code, std::int16_t&) {
    if (code == kKeyUp) code = kKeyHome;
    if (code == kKeyEnd) code = 0;
  };
  Driver().Key(kKeyUp);
  EXPECT_EQ(box.SelStart(), 0);
  Driver().Key(kKeyEnd);
  EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(TextBoxPartTest, TabBelongsToTheForm) {
  TheField();
  Driver().Key(kKeyTab);
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "other");
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(TextBoxPartTest, AssigningATextRaisesChangeOnlyWhenItDiffers) {
  TheField().txtMain.SetText("one");
  EXPECT_THAT(TakeLog(), ElementsAre("Change one"));
  TheField().txtMain.SetText("one");
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(TextBoxPartTest, ClicksOnTheEditBoxRaiseTheUsualEvents) {
  Field& field = TheField();
  Driver().Click(ScreenPoint(field, PixelPoint{20, 10}));
  EXPECT_THAT(TakeLog(), ElementsAre("MouseDown 1", "MouseUp 1", "Click"));
  Driver().Advance(1500);
  Driver().DoubleClick(ScreenPoint(field, PixelPoint{20, 10}));
  EXPECT_THAT(TakeLog(), ElementsAre("MouseDown 1", "MouseUp 1", "Click", "DblClick", "MouseUp 1"));
}

TEST_F(TextBoxPartTest, APressThatLosesTheCaptureIsNoClick) {
  Field& field = TheField();
  Driver().MovePointer(ScreenPoint(field, PixelPoint{20, 10}));
  Driver().Press(kLeftButton);
  Windows().ReleaseCapture();
  Driver().Release(kLeftButton);
  EXPECT_THAT(TakeLog(), ElementsAre("MouseDown 1", "MouseUp 1"));
}

TEST_F(TextBoxPartTest, TheEditBoxIsDrawnInItsOwnColours) {
  Field& field = TheField();
  field.txtMain.SetBackColor(Color(0x0000FF00));
  EXPECT_EQ(PixelAt(field, {190, 10}), ColorRef{0x0000FF00});
}

TEST_F(TextBoxPartTest, MaxLengthLimitsTyping) {
  TheField().txtMain.SetMaxLength(3);
  Driver().Type("abcdef");
  EXPECT_EQ(TheField().txtMain.Text(), "abc");
  EXPECT_THROW(TheField().txtMain.SetMaxLength(-1), Error);
  EXPECT_EQ(TheField().txtMain.MaxLength(), 3);
}

TEST_F(TextBoxPartTest, AChangedAlignmentKeepsTextSelectionAndFocus) {
  TextBox& box = TheField().txtMain;
  box.SetText("hello");
  box.Select(1, 3);
  box.SetAlignment(ksxRight);
  EXPECT_EQ(box.Text(), "hello");
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(box.SelLength(), 3);
  EXPECT_EQ(Windows().GetFocus(), box.hWnd());
}

TEST_F(TextBoxPartTest, APasswordCharacterOutsideTheCodePageIsRefused) {
  TextBox& box = TheField().txtMain;
  box.SetPasswordChar("*");
  EXPECT_EQ(box.Send(kEmGetPasswordChar), '*');
  for (const char* refused : {"**", "\xE2\x97\x8F", "\xC4\x80"}) {
    try {
      box.SetPasswordChar(refused);
      FAIL() << refused;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kInvalidPropertyValue);
    }
  }
  EXPECT_EQ(box.PasswordChar(), "*");
  box.SetPasswordChar("");
  EXPECT_EQ(box.Send(kEmGetPasswordChar), 0);
}

TEST_F(TextBoxPartTest, TheSameAlignmentKeepsTheWindowAndAnotherOneIsItsStyle) {
  TextBox& box = TheField().txtMain;
  const WindowHandle window = box.hWnd();
  box.SetAlignment(ksxLeft);
  EXPECT_EQ(box.hWnd(), window);
  const auto alignment_of = [&](ksxAlignmentConstants alignment) {
    box.SetAlignment(alignment);
    return Windows().GetWindowLongA(box.hWnd(), kGwlStyle) & (kEsCenter | kEsRight);
  };
  EXPECT_EQ(alignment_of(ksxRight), kEsRight);
  EXPECT_EQ(alignment_of(ksxCenter), kEsCenter);
  EXPECT_EQ(alignment_of(ksxLeft), 0);
  PixelRect place;
  Windows().GetClientRect(box.hWnd(), place);
  EXPECT_EQ(place, (PixelRect{0, 0, 200, 20})) << "each window is where the one before was";
}

TEST_F(TextBoxPartTest, AMultiLineBoxTakesEnterAndScrollsDownOnly) {
  TextBox lines(TheField(), true);
  lines.SetVisible(true);
  const auto style = Windows().GetWindowLongA(lines.hWnd(), kGwlStyle);
  EXPECT_EQ(style & (kEsMultiLine | kEsAutoVScroll | kEsWantReturn | kEsAutoHScroll),
            kEsMultiLine | kEsAutoVScroll | kEsWantReturn);
}

TEST_F(TextBoxPartTest, AMultiLineBoxKeepsAPasswordCharacterAndShowsItsText) {
  TextBox lines(TheField(), true);
  const auto password_messages = [&](auto action) {
    const auto calls = CallsNamed({"SendMessageA"}, action);
    return std::ranges::count_if(calls, [](const TracedCall& call) {
      return call.arguments[1] == TraceArgument(std::int64_t{kEmSetPasswordChar});
    });
  };
  lines.SetPasswordChar("*");
  EXPECT_EQ(password_messages([&] { lines.SetVisible(true); }), 0);
  EXPECT_EQ(password_messages([&] { lines.SetPasswordChar("+"); }), 0);
  EXPECT_EQ(lines.PasswordChar(), "+");
}

// --- The window that is made when it is needed -------------------------------------------------------

TEST_F(TextBoxPartTest, ABoxGetsItsWindowWhenItIsFirstShown) {
  TextBox box(TheField(), false);
  box.SetVisible(false);
  box.SetText("");
  box.Refresh();
  box.SetFocus();
  box.Select(0, 1);
  EXPECT_EQ(box.Text(), "");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_FALSE(box.hWnd());
  box.SetVisible(true);
  const WindowHandle window = box.hWnd();
  EXPECT_TRUE(Windows().IsWindowVisible(window));
  box.SetVisible(false);
  box.SetVisible(true);
  EXPECT_EQ(box.hWnd(), window);
}

TEST_F(TextBoxPartTest, AHiddenBoxKeepsAText) {
  TextBox box(TheField(), false);
  std::vector<std::string> changes;
  box.Change += [&] { changes.push_back(box.Text()); };
  box.SetText("kept");
  EXPECT_FALSE(Windows().IsWindowVisible(box.hWnd()));
  box.SetVisible(true);
  EXPECT_EQ(box.Text(), "kept");
  EXPECT_THAT(changes, ElementsAre("kept"));
}

TEST_F(TextBoxPartTest, WhatABoxWasGivenBeforeItsWindowWasMadeHoldsOnceItIs) {
  TextBox box(TheField(), false);
  const FontRef font = MakeFont({.size = 20});
  box.SetAlignment(ksxRight);
  box.SetMaxLength(7);
  box.SetPasswordChar("*");
  box.SetFont(font);
  box.Move({Twips(150), Twips(30)}, {Twips(300), Twips(150)});
  box.SetVisible(true);
  EXPECT_EQ(Windows().GetWindowLongA(box.hWnd(), kGwlStyle) & (kEsCenter | kEsRight), kEsRight);
  EXPECT_EQ(box.Send(kEmGetLimitText), 7);
  EXPECT_EQ(box.Send(kEmGetPasswordChar), '*');
  EXPECT_NE(box.Send(kWmGetFont), 0);
  EXPECT_EQ(CallsNamed({"CreateFontA"}, [&] { font->SetUnderline(true); }).size(), 1u);
  PixelRect client;
  Windows().GetClientRect(box.hWnd(), client);
  EXPECT_EQ(client, (PixelRect{0, 0, 20, 10}));
  PixelPoint corner;
  Windows().ClientToScreen(box.hWnd(), corner);
  EXPECT_EQ(corner, ScreenPoint(TheField(), PixelPoint{10, 2}));
}

TEST_F(TextBoxPartTest, ACommandOfNoWindowIsNoneOfABoxWithoutAWindow) {
  Field& field = TheField();
  TextBox box(field, false);
  int changes = 0;
  box.Change += [&] { ++changes; };
  Windows().SendMessageA(field.GetSurface().hWnd(), kWmCommand, WParam{kEnChange} << 16, 0);
  EXPECT_EQ(changes, 0);
}

TEST_F(TextBoxPartTest, ItsTextIsDrawnInItsColoursOnItsBackground) {
  TextBox& box = TheField().txtMain;
  box.SetText("text");
  box.SetForeColor(Color(0x000000FF));
  box.SetBackColor(Color(0x0000FF00));
  Journal calls;
  for (const TracedCall& call : CallsNamed({"SetTextColor", "SetBkColor"}, [&] { box.Refresh(); })) {
    calls.push_back(call.name + " " + std::to_string(std::get<std::int64_t>(call.arguments[1])));
  }
  ASSERT_GE(calls.size(), 2u);
  EXPECT_EQ(calls[0], "SetTextColor 255");
  EXPECT_EQ(calls[1], "SetBkColor 65280");
}

TEST_F(TextBoxPartTest, AChangeOfItsSharedFontShowsAndOneOfAFontThatWasReplacedDoesNot) {
  TextBox& box = TheField().txtMain;
  const FontRef before = MakeFont();
  const FontRef font = MakeFont();
  box.SetFont(before);
  box.SetFont(font);
  EXPECT_EQ(CallsNamed({"CreateFontA"}, [&] { font->SetUnderline(true); }).size(), 1u);
  EXPECT_THAT(CallsNamed({"CreateFontA"}, [&] { before->SetUnderline(true); }), IsEmpty());
}

TEST_F(TextBoxPartTest, ACharacterMadeZeroNeverReachesTheEditBox) {
  TheField().txtMain.KeyPress += [](std::int16_t& code) { code = 0; };
  for (const TracedCall& call : CallsNamed({"CallWindowProcA"}, [&] { Driver().Key('A'); })) {
    EXPECT_THAT(call.arguments, ::testing::Not(::testing::Contains(TraceArgument(std::int64_t{kWmChar}))));
  }
}

TEST_F(TextBoxPartTest, AListenerOfAnyEventMayRemoveTheControl) {
  for (const char* cause : {"Change", "KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseUp", "Click"}) {
    auto& doomed = AddNew<Field>("doomed", {Twips(600), Twips(1800)}, {Twips(3000), Twips(300)});
    const auto remove = [this] { TheForm().Remove("doomed"); };
    TextBox& box = doomed.txtMain;
    const std::string event = cause;
    if (event == "Change") box.Change += remove;
    if (event == "KeyDown") box.KeyDown += [=](auto&...) { remove(); };
    if (event == "KeyPress") box.KeyPress += [=](std::int16_t&) { remove(); };
    if (event == "KeyUp") box.KeyUp += [=](auto...) { remove(); };
    if (event == "MouseDown") box.MouseDown += [=](auto&...) { remove(); };
    if (event == "MouseUp") box.MouseUp += [=](auto&...) { remove(); };
    if (event == "Click") box.Click += remove;
    Driver().Advance(1000);
    Driver().Click(ScreenPoint(doomed, PixelPoint{20, 10}));
    if (TheForm().Find("doomed")) Driver().Key('A');
    EXPECT_FALSE(TheForm().Find("doomed")) << cause;
  }
}

TEST_F(TextBoxPartTest, ASelectionWhoseEndIsBeyond32BitsEndsWithTheText) {
  TextBox& box = TheField().txtMain;
  box.SetText("abcd");
  box.Select(1, 2147483647);
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(box.SelLength(), 3);
  EXPECT_EQ(box.SelText(), "bcd");
}

}  // namespace
}  // namespace levelwidgets::testing
