// Forms: what a person expects of the keyboard, the focus and the window.
#include <limits>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormTest : public DesktopTest {
 protected:
  FlatButton& Button(const std::string& name) {
    const int row = static_cast<int>(TheForm().Controls().size());
    return AddNew<FlatButton>(name, {Twips(300), Twips(300 + 500 * row)});
  }
  std::string Focused() {
    Driver().Settle();
    for (const auto& control : TheForm().Controls()) {
      if (control->GetControl()->GetSurface().hWnd() == Windows().GetFocus()) return control->Name();
    }
    return "";
  }
  void CountClicks(FlatButton& button) {
    button.Click += [this, name = Hosted(button).Name()] { clicks_.push_back(name); };
  }
  std::vector<std::string> TakeClicks() { return std::exchange(clicks_, {}); }

 private:
  std::vector<std::string> clicks_;
};

// --- Tab ---------------------------------------------------------------------------------------------

TEST_F(FormTest, TabGoesForwardInTabOrderAndWraps) {
  Button("cmdA");
  Button("cmdB");
  Button("cmdC");
  TheForm().Find("cmdC")->SetTabIndex(0);
  TheForm().Find("cmdA")->SetTabIndex(1);
  TheForm().Find("cmdB")->SetTabIndex(2);
  TheForm().Find("cmdC")->SetFocus();
  Driver().Key(kKeyTab);
  EXPECT_EQ(Focused(), "cmdA");
  Driver().Key(kKeyTab);
  EXPECT_EQ(Focused(), "cmdB");
  Driver().Key(kKeyTab);
  EXPECT_EQ(Focused(), "cmdC");
  Driver().Key(kKeyTab, kShiftMask);
  EXPECT_EQ(Focused(), "cmdB");
}

TEST_F(FormTest, TabSkipsControlsThatAreHiddenDisabledOrNoTabStop) {
  Button("cmdA");
  Button("cmdHidden");
  Button("cmdDisabled").SetEnabled(false);
  Button("cmdNoStop");
  Button("cmdB");
  TheForm().Find("cmdHidden")->SetVisible(false);
  TheForm().Find("cmdNoStop")->SetTabStop(false);
  TheForm().Find("cmdA")->SetFocus();
  Driver().Key(kKeyTab);
  EXPECT_EQ(Focused(), "cmdB");
}

TEST_F(FormTest, TabRaisesOnlyKeyUpAtTheNewFocus) {
  auto& a = Button("cmdA");
  auto& b = Button("cmdB");
  Hosted(a).SetFocus();
  Driver().Settle();
  std::vector<std::string> keys;
  a.KeyDown += [&](std::int16_t, std::int16_t) { keys.push_back("a down"); };
  a.KeyPress += [&](std::int16_t&) { keys.push_back("a press"); };
  b.KeyPress += [&](std::int16_t&) { keys.push_back("b press"); };
  b.KeyUp += [&](std::int16_t, std::int16_t) { keys.push_back("b up"); };
  Driver().Key(kKeyTab);
  EXPECT_THAT(keys, ElementsAre("b up"));
}

TEST_F(FormTest, CtrlTabBelongsToTheControl) {
  auto& a = Button("cmdA");
  Button("cmdB");
  Hosted(a).SetFocus();
  Driver().Settle();
  int downs = 0;
  a.KeyDown += [&](std::int16_t code, std::int16_t shift) { downs += code == kKeyTab && shift == kCtrlMask; };
  Driver().Key(kKeyTab, kCtrlMask);
  EXPECT_EQ(downs, 1);
  EXPECT_EQ(Focused(), "cmdA");
}

TEST_F(FormTest, ShowingAFormFocusesTheFirstInTabOrder) {
  MakeForm({});
  TheForm().Hide();
  Driver().Settle();
  Button("cmdA");
  Button("cmdB");
  TheForm().Find("cmdA")->SetTabIndex(5);
  TheForm().Show();
  EXPECT_EQ(Focused(), "cmdB");
}

TEST_F(FormTest, ShowingAFormMovesTheFocusThenActivatesAndResizesItTheFirstTime) {
  const auto form = Form::Create(Tracer(), {});
  std::vector<std::string> steps;
  FlatButton& button = form->Add<FlatButton>("cmd");
  const auto note = [&](const std::string& step) {
    const bool focused = Windows().GetFocus() == button.GetSurface().hWnd();
    steps.push_back(step + (focused ? " with the focus" : " without the focus"));
  };
  form->Activate += [&] { note("Activate"); };
  form->Resize += [&] { note("Resize"); };
  form->Show();
  Driver().Settle();
  EXPECT_THAT(steps, ElementsAre("Activate with the focus", "Resize with the focus"));
  steps.clear();
  form->Hide();
  form->Show();
  Driver().Settle();
  EXPECT_THAT(steps, ElementsAre("Activate with the focus"));
  form->Close();
}

TEST_F(FormTest, AFormThatTheSystemMakesLargerOrSmallerKeepsTheSizeThatWasAskedFor) {
  const auto form = Form::Create(Tracer(), {.size = {Twips(150), Twips(300000)}});
  const auto client = [&] {
    PixelRect rect;
    Windows().GetClientRect(form->hWnd(), rect);
    return PixelSize{rect.width(), rect.height()};
  };
  EXPECT_GT(client().width, 10);
  EXPECT_LT(client().height, 20000);
  form->Show();
  Driver().Settle();
  EXPECT_EQ(form->Width(), Twips(150));
  EXPECT_EQ(form->Height(), Twips(300000));
  form->SetWidth(Twips(3000));
  EXPECT_EQ(client().width, 200);
  EXPECT_EQ(form->Height(), Twips(300000));
  form->SetWidth(Twips(15));
  EXPECT_EQ(form->Width(), Twips(15));
  // Whoever sizes the window has the last word.
  PixelRect rect = form->ScreenRect();
  Windows().SetWindowPos(form->hWnd(), {}, {0, 0, rect.width() + 40, 300},
                         kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
  EXPECT_EQ(form->Width(), ToTwips(client().width, 15));
  EXPECT_EQ(form->Height(), ToTwips(client().height, 15));
  Windows().SetWindowPos(form->hWnd(), {}, {0, 0, rect.width(), 300},
                         kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
  EXPECT_EQ(form->Width(), ToTwips(client().width, 15));
  form->Close();
}

TEST_F(FormTest, AFocusSetBeforeTheFormIsShownIsGivenWhenItIsShown) {
  MakeForm({});
  TheForm().Hide();
  Driver().Settle();
  Button("cmdA");
  Button("cmdB");
  TheForm().Find("cmdB")->SetFocus();
  TheForm().Show();
  EXPECT_EQ(Focused(), "cmdB");
}

TEST_F(FormTest, SetFocusOnAHiddenOrDisabledControlRaises5) {
  Button("cmdA").SetEnabled(false);
  try {
    TheForm().Find("cmdA")->SetFocus();
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kInvalidCall);
  }
}

TEST_F(FormTest, AClickFocusesTheControl) {
  Button("cmdA");
  auto& b = Button("cmdB");
  Driver().Click(ScreenPoint(b, PixelPoint{5, 5}));
  EXPECT_EQ(Focused(), "cmdB");
  EXPECT_EQ(TheForm().ActiveControl()->Name(), "cmdB");
}

TEST_F(FormTest, AListenerOfThePressKeepsTheFocusItSet) {
  auto& a = Button("cmdA");
  auto& b = Button("cmdB");
  auto& c = Button("cmdC");
  Hosted(a).SetFocus();
  b.MouseDown += [&](auto...) { Hosted(c).SetFocus(); };
  Driver().Click(ScreenPoint(b, PixelPoint{5, 5}));
  EXPECT_EQ(Focused(), "cmdC");
}

// --- Access keys, default and cancel -------------------------------------------------------------------

TEST_F(FormTest, AltPlusAccessKeyFocusesAndClicksOnceInEitherCase) {
  auto& a = Button("cmdA");
  auto& b = Button("cmdB");
  b.SetCaption("&Save");
  CountClicks(a);
  CountClicks(b);
  Hosted(a).SetFocus();
  Driver().Settle();
  Driver().Key('S', kAltMask);
  EXPECT_THAT(TakeClicks(), ElementsAre("cmdB"));
  EXPECT_EQ(Focused(), "cmdB");
  Driver().Key('S', kAltMask | kShiftMask);
  EXPECT_THAT(TakeClicks(), ElementsAre("cmdB"));
  Driver().Key('X', kAltMask);
  EXPECT_THAT(TakeClicks(), IsEmpty());
}

TEST_F(FormTest, AnAccessKeyMayBeALetterWithAnAccentInEitherCase) {
  auto& a = Button("cmdA");
  a.SetCaption("&\xC3\x84ndern");
  CountClicks(a);
  const auto is_taken = [&](std::int16_t character, std::int16_t shift) {
    KeyMessage key{KeyMessage::Kind::kCharacter, character, shift};
    return Hosted(a).TakeKey(key);
  };
  EXPECT_FALSE(is_taken(0xE4, 0));  // Alt is not held
  EXPECT_TRUE(is_taken(0xE4, kAltMask));
  EXPECT_TRUE(is_taken(0xC4, kAltMask));
  EXPECT_THAT(TakeClicks(), ElementsAre("cmdA", "cmdA"));
}

TEST_F(FormTest, AnAccessKeyThatTwoShareGoesToTheNextInTabOrder) {
  auto& a = Button("cmdA");
  auto& b = Button("cmdB");
  a.SetCaption("&Same");
  b.SetCaption("&Same");
  CountClicks(a);
  CountClicks(b);
  Hosted(a).SetFocus();
  Driver().Settle();
  Driver().Key('S', kAltMask);
  Driver().Key('S', kAltMask);
  EXPECT_THAT(TakeClicks(), ElementsAre("cmdB", "cmdA"));
}

TEST_F(FormTest, TheAccessKeyOfAHiddenOrDisabledControlDoesNothing) {
  Button("cmdA");
  auto& b = Button("cmdB");
  auto& c = Button("cmdC");
  b.SetCaption("&Save");
  c.SetCaption("&Store");
  CountClicks(b);
  CountClicks(c);
  b.SetEnabled(false);
  Hosted(c).SetVisible(false);
  Driver().Key('S', kAltMask);
  EXPECT_THAT(TakeClicks(), IsEmpty());
}

TEST_F(FormTest, EnterClicksTheDefaultButtonAndEscapeTheCancelButton) {
  auto& a = Button("cmdA");
  auto& ok = Button("cmdOK");
  auto& cancel = Button("cmdCancel");
  Hosted(ok).SetDefault(true);
  Hosted(cancel).SetCancel(true);
  CountClicks(a);
  CountClicks(ok);
  CountClicks(cancel);
  Hosted(a).SetFocus();
  Driver().Settle();
  std::vector<int> keys;
  a.KeyDown += [&](std::int16_t code, std::int16_t) { keys.push_back(code); };
  a.KeyPress += [&](std::int16_t& code) { keys.push_back(code); };
  Driver().Key(kKeyEnter);
  Driver().Key(kKeyEscape);
  EXPECT_THAT(TakeClicks(), ElementsAre("cmdOK", "cmdCancel"));
  EXPECT_THAT(keys, IsEmpty());
  EXPECT_EQ(Focused(), "cmdA");
}

TEST_F(FormTest, EnterAndEscapeReachTheControlWithoutSuchButtons) {
  auto& a = Button("cmdA");
  auto& ok = Button("cmdOK");
  Hosted(ok).SetDefault(true);
  ok.SetEnabled(false);
  Hosted(a).SetFocus();
  Driver().Settle();
  std::vector<int> keys;
  a.KeyDown += [&](std::int16_t code, std::int16_t) { keys.push_back(code); };
  a.KeyPress += [&](std::int16_t& code) { keys.push_back(code); };
  Driver().Key(kKeyEnter);
  Driver().Key(kKeyEscape);
  EXPECT_THAT(keys, ElementsAre(13, 13, 27, 27));
}

TEST_F(FormTest, AFormHasOneDefaultAndOneCancelButton) {
  Button("cmdA");
  Button("cmdB");
  const auto a = TheForm().Find("cmdA");
  const auto b = TheForm().Find("cmdB");
  a->SetDefault(true);
  a->SetCancel(true);
  b->SetDefault(true);
  b->SetCancel(true);
  EXPECT_FALSE(a->Default());
  EXPECT_FALSE(a->Cancel());
  EXPECT_TRUE(b->Default());
  EXPECT_TRUE(b->Cancel());
}

TEST_F(FormTest, KeysOfAFormWithoutFocusableControlsStillReachItsDefaultButton) {
  auto& ok = Button("cmdOK");
  Hosted(ok).SetDefault(true);
  Hosted(ok).SetTabStop(false);
  CountClicks(ok);
  TheForm().Hide();
  TheForm().Show();
  Driver().Settle();
  ASSERT_EQ(Focused(), "");
  Driver().Key(kKeyEnter);
  EXPECT_THAT(TakeClicks(), ElementsAre("cmdOK"));
}

// --- Controls ----------------------------------------------------------------------------------------

TEST_F(FormTest, NamesAreUniqueAndNotEmpty) {
  Button("cmdA");
  try {
    TheForm().Add(FlatButton::Table(), "cmdA");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kKeyInUse);
    EXPECT_EQ(error.Description(), "The form has a control named \"cmdA\" already");
  }
  for (const char* name : {"", "my button", "1st", "cmd&A", "cmd-A"}) {
    EXPECT_THROW(TheForm().Add(FlatButton::Table(), name), Error) << name;
  }
  EXPECT_EQ(TheForm().Controls().size(), 1u);
}

TEST_F(FormTest, ANegativeSizeIsRefusedAndChangesNothing) {
  auto& a = Button("cmdA");
  EXPECT_THROW(Hosted(a).SetWidth(Twips(-1)), Error);
  EXPECT_EQ(Hosted(a).Width(), Twips(1200));
  EXPECT_THROW(TheForm().SetHeight(Twips(-15)), Error);
  EXPECT_EQ(TheForm().Height(), Twips(4500));
}

TEST_F(FormTest, ZOrderBringsToTheFrontAndSendsToTheBack) {
  auto& under = AddNew<FlatButton>("cmdUnder", {Twips(300), Twips(300)});
  auto& over = AddNew<FlatButton>("cmdOver", {Twips(300), Twips(300)});
  under.SetBackColor(Color(0x000000FF));
  over.SetBackColor(Color(0x0000FF00));
  EXPECT_EQ(PixelAt(under, {8, 2}), ColorRef{0x0000FF00});  // what was added later
  Hosted(under).ZOrder(0);
  EXPECT_EQ(PixelAt(under, {8, 2}), ColorRef{0x000000FF});
  Hosted(under).ZOrder(1);
  EXPECT_EQ(PixelAt(under, {8, 2}), ColorRef{0x0000FF00});
  EXPECT_THROW(Hosted(under).ZOrder(2), Error);
}

TEST_F(FormTest, ARemovedOrHiddenControlUncoversTheForm) {
  auto& a = Button("cmdA");
  const PixelPoint at = ScreenPoint(a, PixelPoint{8, 2});
  Hosted(a).SetVisible(false);
  Driver().Settle();
  EXPECT_EQ(Driver().PixelAt(at), Concrete(TheForm().BackColor()));
  Hosted(a).SetVisible(true);
  Driver().Settle();
  EXPECT_EQ(Driver().PixelAt(at), ColorRef{0x00CDD9DD});
  EXPECT_TRUE(TheForm().Remove("cmdA"));
  EXPECT_FALSE(TheForm().Remove("cmdA"));
  Driver().Settle();
  EXPECT_EQ(Driver().PixelAt(at), Concrete(TheForm().BackColor()));
}

TEST_F(FormTest, AControlThatItsListenerRemovesRaisesNoFurtherEvent) {
  auto& a = Button("cmdA");
  CountClicks(a);
  int others = 0;
  a.MouseUp += [this](auto...) { TheForm().Remove("cmdA"); };
  a.MouseUp += [&](auto...) { ++others; };
  Driver().Click(ScreenPoint(a, PixelPoint{8, 8}));
  EXPECT_THAT(TakeClicks(), IsEmpty());
  EXPECT_EQ(others, 0);
  EXPECT_EQ(Windows().GetCapture(), WindowHandle{});
}

TEST_F(FormTest, LengthsBeyondAnyWindowAreRefusedAndChangeNothing) {
  HostedControl& a = Hosted(Button("cmdA"));
  const auto before = std::tuple(a.Left(), a.Top(), a.Width(), a.Height());
  for (const float length : {1e30F, std::numeric_limits<float>::infinity(), 3e10F}) {
    EXPECT_THAT(ErrorOf([&] { a.SetLeft(Twips(length)); }), kOverflow);
    EXPECT_THAT(ErrorOf([&] { a.SetHeight(Twips(length)); }), kOverflow);
    EXPECT_THAT(ErrorOf([&] { a.SetTop(Twips(-length)); }), kOverflow);
  }
  EXPECT_THAT(ErrorOf([&] { a.SetWidth(Twips(std::numeric_limits<float>::quiet_NaN())); }), kOverflow);
  EXPECT_EQ(std::tuple(a.Left(), a.Top(), a.Width(), a.Height()), before);
  EXPECT_NO_THROW(a.Move({Twips(1e9F), Twips(-1e9F)}, {Twips(1e9F), Twips(1e9F)}));
}

TEST_F(FormTest, TheRegistryKnowsClassesByBothNames) {
  EXPECT_EQ(FindControlClass("FlatButton"), &FlatButton::Table());
  EXPECT_EQ(FindControlClass("LevelWidgets.FlatLabel"), &FlatLabel::Table());
  EXPECT_EQ(FindControlClass("flatbutton"), nullptr);
}

// --- The window --------------------------------------------------------------------------------------

TEST_F(FormTest, ResizingTheWindowChangesTheInnerSizeAndRaisesResize) {
  int resizes = 0;
  TheForm().Resize += [&] { ++resizes; };
  TheForm().SetWidth(Twips(7500));
  Driver().Settle();
  EXPECT_EQ(resizes, 1);
  PixelRect client;
  Windows().GetClientRect(TheForm().hWnd(), client);
  EXPECT_EQ(client, (PixelRect{0, 0, 500, 300}));

  const PixelRect outer = TheForm().ScreenRect();
  Windows().SetWindowPos(TheForm().hWnd(), {}, {0, 0, outer.width() + 10, outer.height()},
                         kSwpNoMove | kSwpNoZOrder);
  EXPECT_EQ(resizes, 2);
  EXPECT_EQ(TheForm().Width(), Twips(7650));
}

TEST_F(FormTest, AnInnerSizeOfAFractionOfAPixelIsKept) {
  TheForm().SetWidth(Twips(6007));
  EXPECT_EQ(TheForm().Width(), Twips(6007));
}

TEST_F(FormTest, StandsInTheMiddleOfTheScreenUnlessItIsPlaced) {
  const PixelSize screen = Tracer().Screen().Size();
  const float twips = Tracer().Screen().TwipsPerPixelX();
  const auto middle = Form::Create(Tracer(), {});
  const PixelRect rect = middle->ScreenRect();
  EXPECT_EQ(rect.left, (screen.width - rect.width()) / 2);
  EXPECT_EQ(rect.top, (screen.height - rect.height()) / 2);
  EXPECT_EQ(middle->Left(), ToTwips(rect.left, twips));
  EXPECT_FALSE(middle->LeftIsSet() || middle->TopIsSet());

  const auto placed = Form::Create(Tracer(), {.left = Twips(1507)});
  EXPECT_EQ(placed->ScreenRect().left, 100);
  EXPECT_EQ(placed->ScreenRect().top, rect.top);
  EXPECT_EQ(placed->Left(), Twips(1507));
  EXPECT_TRUE(placed->LeftIsSet() && !placed->TopIsSet());
}

TEST_F(FormTest, OneThatIsLargerThanTheScreenBeginsAtItsCorner) {
  const auto large = Form::Create(Tracer(), {.size = {Twips(30000), Twips(30000)}});
  EXPECT_EQ(large->ScreenRect().left, 0);
  EXPECT_EQ(large->ScreenRect().top, 0);
}

TEST_F(FormTest, LeftAndTopPlaceItOneByOne) {
  TheForm().SetLeft(Twips(3000));
  EXPECT_EQ(TheForm().ScreenRect().left, 200);
  EXPECT_EQ(TheForm().ScreenRect().top, 100);
  TheForm().SetTop(Twips(-150));
  EXPECT_EQ(TheForm().ScreenRect().left, 200);
  EXPECT_EQ(TheForm().ScreenRect().top, -10);
  EXPECT_EQ(TheForm().Top(), Twips(-150));
  TheForm().SetTop(Twips(-157));
  EXPECT_EQ(TheForm().Top(), Twips(-157));
  EXPECT_TRUE(TheForm().TopIsSet());
}

TEST_F(FormTest, APlaceThatWasSetFollowsTheWindow) {
  TheForm().SetLeft(Twips(3007));
  EXPECT_EQ(TheForm().Left(), Twips(3007));  // kept while it shows the same pixel
  TheForm().MoveTo({200, 150});
  EXPECT_EQ(TheForm().Left(), Twips(3007));
  EXPECT_EQ(TheForm().Top(), Twips(2250));
  TheForm().MoveTo({210, 150});
  EXPECT_EQ(TheForm().Left(), Twips(3150));
  EXPECT_FALSE(TheForm().TopIsSet());
  TheForm().SetTop(Twips(2257));
  EXPECT_EQ(TheForm().Top(), Twips(2257));
  TheForm().MoveTo({210, 170});
  EXPECT_EQ(TheForm().Top(), Twips(2550));
}

TEST_F(FormTest, APlaceThatWasSetStaysWhileTheFormIsMinimised) {
  TheForm().SetLeft(Twips(3007));
  TheForm().SetTop(Twips(2257));
  for (const int command : {kSwMinimize, kSwRestore}) {
    Windows().ShowWindow(TheForm().hWnd(), command);
    Driver().Settle();
    EXPECT_EQ(TheForm().Left(), Twips(3007));
    EXPECT_EQ(TheForm().Top(), Twips(2257));
  }
}

TEST_F(FormTest, ItsSizeStaysWhileItIsMinimised) {
  const Twips width = TheForm().Width();
  const Twips height = TheForm().Height();
  for (const int command : {kSwMinimize, kSwRestore}) {
    Windows().ShowWindow(TheForm().hWnd(), command);
    Driver().Settle();
    EXPECT_EQ(TheForm().Width(), width) << command;
    EXPECT_EQ(TheForm().Height(), height) << command;
  }
}

TEST_F(FormTest, APlaceThatIsTooFarIsRefusedAndChangesNothing) {
  for (const float length : {1e30F, -1e30F, std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_THAT(ErrorOf([&] { TheForm().SetLeft(Twips(length)); }), kOverflow);
    EXPECT_THAT(ErrorOf([&] { TheForm().SetTop(Twips(length)); }), kOverflow);
    EXPECT_THAT(ErrorOf([&] { Form::Create(Tracer(), {.top = Twips(length)}); }), kOverflow);
  }
  EXPECT_EQ(TheForm().ScreenRect().left, 100);
  EXPECT_FALSE(TheForm().LeftIsSet() || TheForm().TopIsSet());
}

TEST_F(FormTest, UnloadMayBeCancelled) {
  bool refuse = true;
  TheForm().Unload += [&](bool& cancel) { cancel = refuse; };
  EXPECT_FALSE(TheForm().Close());
  EXPECT_FALSE(TheForm().Closed());
  refuse = false;
  Windows().SendMessageA(TheForm().hWnd(), kWmClose, 0, 0);
  EXPECT_TRUE(TheForm().Closed());
  EXPECT_TRUE(TheForm().Close());
}

TEST_F(FormTest, BothFormsAreNotifiedOfAnActivation) {
  std::vector<std::string> told;
  TheForm().Activate += [&] { told.push_back("first active"); };
  TheForm().Deactivate += [&] { told.push_back("first inactive"); };
  Button("cmdA");
  TheForm().Find("cmdA")->SetFocus();
  Driver().Settle();
  told.clear();
  const auto second = Form::Create(Tracer(), {.name = "frmSecond"});
  second->Activate += [&] { told.push_back("second active"); };
  second->Show();
  Driver().Settle();
  EXPECT_THAT(told, ElementsAre("first inactive", "second active"));
  EXPECT_EQ(Windows().GetActiveWindow(), second->hWnd());
  second->Close();
  Driver().Settle();
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
  EXPECT_EQ(Focused(), "cmdA");
}

TEST_F(FormTest, AHandlerMayCloseTheFormOfItsControl) {
  auto& a = Button("cmdA");
  const WindowHandle window = TheForm().hWnd();
  a.Click += [&] { TheForm().Close(); };
  Driver().Click(ScreenPoint(a, PixelPoint{5, 5}));
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_TRUE(TheForm().Controls().empty());
}

TEST_F(FormTest, AHandlerMayDropTheLastReferenceToTheForm) {
  auto second = Form::Create(Tracer(), {.name = "frmSecond"});
  HostedControl& hosted = second->Add(FlatButton::Table(), "cmdA");
  second->MoveTo({300, 300});
  second->Show();
  Driver().Settle();
  auto& button = dynamic_cast<FlatButton&>(*hosted.GetControl());
  bool clicked = false;
  button.Click += [&] {
    clicked = true;
    second.reset();
  };
  Driver().Click(ScreenPoint(button, PixelPoint{5, 5}));
  EXPECT_TRUE(clicked);
  EXPECT_FALSE(second);
}

TEST_F(FormTest, BackColorAndFontReachTheWindowAndTheAmbient) {
  TheForm().SetBackColor(Color(0x00336699));
  Driver().Settle();
  PixelPoint at{3, 3};
  Windows().ClientToScreen(TheForm().hWnd(), at);
  EXPECT_EQ(Driver().PixelAt(at), ColorRef{0x00336699});
  TheForm().SetFont(MakeFont({.name = "Tahoma", .size = 14}));
  EXPECT_EQ(Button("cmdA").GetFont()->Description().size, 14);
}

}  // namespace
}  // namespace levelwidgets::testing
