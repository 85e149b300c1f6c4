// FlatTextBox: both modes, its properties, and the bar that follows the text.
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TwipPoint kAt{Twips(600), Twips(300)};
constexpr TwipSize kSize{Twips(3000), Twips(1500)};

std::string Lines(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += (i > 1 ? "\r\nline " : "line ") + std::to_string(i);
  return text;
}

class FlatTextBoxTest : public DesktopTest {
 protected:
  FlatTextBox& Single() { return AddNew<FlatTextBox>("txt", kAt, {Twips(3000), Twips(315)}); }
  FlatTextBox& Multi(const std::string& text = "") {
    PropertyBag saved;
    saved.WriteProperty("MultiLine", true, false);
    saved.WriteProperty("Text", text, "");
    auto& box = AddLoaded<FlatTextBox>("txt", saved, kAt, kSize);
    Driver().Settle();
    return box;
  }
  static LResult FirstVisible(const FlatTextBox& box) {
    return box.ActiveEdit().Send(kEmGetFirstVisibleLine);
  }
  // How many lines fit, by the edit box's own measures.
  static int Fits(const FlatTextBox& box) {
    PixelRect text;
    box.ActiveEdit().Send(kEmGetRect, 0, reinterpret_cast<LParam>(&text));
    const LResult second = box.ActiveEdit().Send(kEmLineIndex, 1);
    const LResult place = box.ActiveEdit().Send(kEmPosFromChar, static_cast<WParam>(second));
    const int line_height = PointOfLParam(place).y - text.top;
    return line_height > 0 ? text.height() / line_height : 0;
  }
  static std::vector<std::string> NamesIn(const PropertyBag& bag) {
    std::vector<std::string> names;
    for (const auto& entry : bag.Entries()) names.push_back(entry.name);
    return names;
  }
  // The scroll messages sent while `action` runs.
  template <typename Action>
  std::vector<std::string> ScrollMessages(const FlatTextBox& box, Action action) {
    Tracer().Start();
    Tracer().TakeCalls();
    action();
    std::vector<std::string> sent;
    for (const TracedCall& call : Tracer().TakeCalls()) {
      if (call.name != "SendMessageA" || std::get<std::int64_t>(call.arguments[1]) != kEmScroll) continue;
      if (std::get<std::int64_t>(call.arguments[0]) != box.ActiveEdit().hWnd().value) continue;
      sent.push_back(std::to_string(std::get<std::int64_t>(call.arguments[2])));
    }
    return sent;
  }
};

Error RaisedBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error;
  }
  return Error(0, "", "nothing was raised");
}

// --- Properties --------------------------------------------------------------------------------------

TEST_F(FlatTextBoxTest, DefaultsAreThoseOfTheTable) {
  auto& fresh = Single();
  auto& loaded = AddLoaded<FlatTextBox>("txtLoaded", {}, {Twips(600), Twips(2000)}, kSize);
  for (const PropertyInfo& property : FlatTextBox::Table().Properties()) {
    if (property.defaults.when_new.kind != DefaultValue::Kind::kFixed) continue;
    EXPECT_EQ(property.get(fresh), property.defaults.when_new.Value()) << property.name;
    EXPECT_EQ(property.get(loaded), property.defaults.when_read.Value()) << property.name;
  }
  EXPECT_EQ(fresh.GetFont()->Description(), TheForm().GetFont()->Description());
  EXPECT_THAT(NamesIn(Hosted(fresh).Properties()), IsEmpty());
  EXPECT_THAT(NamesIn(Hosted(loaded).Properties()), IsEmpty());
}

TEST_F(FlatTextBoxTest, EverySetNotifies) {
  auto& box = Single();
  std::vector<std::string> notices;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view property) { notices.emplace_back(property); });
  box.SetBackColor(Color(1));
  box.SetForeColor(Color(2));
  box.SetEnabled(false);
  box.SetFont(MakeFont({.size = 12}));
  box.SetAlignment(ksxRight);
  box.SetMaxLength(30);
  box.SetPasswordChar("*");
  box.SetText("text");
  box.SetScrollBackColor(Color(3));
  box.SetScrollButtonColor(Color(4));
  box.SetScrollMouseOverColor(Color(5));
  box.SetScrollPushedColor(Color(6));
  const std::vector<std::string> all{"BackColor",
                                     "ForeColor",
                                     "Enabled",
                                     "Font",
                                     "Alignment",
                                     "MaxLength",
                                     "PasswordChar",
                                     "Text",
                                     "ScrollBackColor",
                                     "ScrollButtonColor",
                                     "ScrollMouseOverColor",
                                     "ScrollPushedColor"};
  EXPECT_EQ(notices, all);
  const PropertyBag bag = Hosted(box).Properties();
  EXPECT_EQ(NamesIn(bag), all);
  auto& loaded = AddLoaded<FlatTextBox>("txtLoaded", bag, {Twips(600), Twips(2000)}, kSize);
  for (const PropertyInfo* property : FlatTextBox::Table().Persisted()) {
    EXPECT_EQ(property->get(loaded), property->get(box)) << property->name;
  }
}

TEST_F(FlatTextBoxTest, MultiLineIsReadOnlyAtRunTime) {
  auto& box = Single();
  const Error error = RaisedBy([&] { box.SetMultiLine(true); });
  EXPECT_EQ(error.Number(), -2147220503);
  EXPECT_EQ(error.Source(), "LevelWidgets.FlatTextBox");
  EXPECT_EQ(error.Description(), "Can't assign to read-only property.");
  EXPECT_FALSE(box.MultiLine());
  EXPECT_FALSE(box.HasBar());
}

TEST_F(FlatTextBoxTest, MultiLineSwitchesTheEditBoxesAndTheBarAtDesignTime) {
  FormOptions design;
  design.design = true;
  MakeForm(design);
  auto& box = AddNew<FlatTextBox>("txt", kAt, kSize);
  const WindowHandle single = box.ActiveEdit().hWnd();
  std::vector<std::string> notices;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view property) { notices.emplace_back(property); });
  box.SetMultiLine(true);
  EXPECT_THAT(notices, ElementsAre("MultiLine"));
  EXPECT_NE(box.ActiveEdit().hWnd(), single);
  EXPECT_TRUE(Windows().IsWindowVisible(box.ActiveEdit().hWnd()));
  EXPECT_FALSE(Windows().IsWindowVisible(single));
  EXPECT_TRUE(Windows().IsWindowVisible(box.Bar()->hWnd()));
  box.SetMultiLine(false);
  EXPECT_EQ(box.ActiveEdit().hWnd(), single);
  EXPECT_FALSE(Windows().IsWindowVisible(box.Bar()->hWnd()));
}

TEST_F(FlatTextBoxTest, SwitchingMultiLineKeepsToTheAmbientFontAndSavesNone) {
  FormOptions design;
  design.design = true;
  design.font = {.name = "Arial", .size = 12};
  MakeForm(design);
  const FontDescription ambient = TheForm().GetFont()->Description();
  auto& fresh = AddNew<FlatTextBox>("txt", kAt, kSize);
  auto& loaded = AddLoaded<FlatTextBox>("txtLoaded", {}, {Twips(600), Twips(2000)}, kSize);
  for (FlatTextBox* box : {&fresh, &loaded}) {
    EXPECT_EQ(box->GetFont()->Description(), ambient);
    box->SetMultiLine(true);
    EXPECT_EQ(box->GetFont()->Description(), ambient);
    EXPECT_THAT(NamesIn(Hosted(*box).Properties()), ElementsAre("MultiLine"));
  }
}

TEST_F(FlatTextBoxTest, APasswordCharacterThatTheEditBoxRefusesRaisesItsError) {
  auto& box = Single();
  box.SetPasswordChar("*");
  EXPECT_EQ(RaisedBy([&] { box.SetPasswordChar("ab"); }).Number(), kInvalidPropertyValue);
  EXPECT_EQ(box.PasswordChar(), "*");
}

TEST_F(FlatTextBoxTest, TheTableListsEventsInTheirNumbersAndItsDefaultMember) {
  std::vector<std::string> events;
  for (const EventInfo& event : FlatTextBox::Table().Events()) {
    events.push_back(std::to_string(event.number) + " " + std::string(event.name));
  }
  EXPECT_THAT(events, ElementsAre("1 Change", "2 Click", "3 DblClick", "4 KeyDown", "5 KeyPress", "6 KeyUp",
                                  "7 MouseDown", "8 MouseMove", "9 MouseUp"));
  EXPECT_TRUE(FlatTextBox::Table().FindEvent("KeyDown")->arguments[0].by_reference);
}

// --- Layout ------------------------------------------------------------------------------------------

TEST_F(FlatTextBoxTest, ASingleLineBoxFillsTheControl) {
  auto& box = Single();
  PixelRect edit;
  Windows().GetClientRect(box.ActiveEdit().hWnd(), edit);
  EXPECT_EQ(edit, (PixelRect{0, 0, 200, 21}));
}

TEST_F(FlatTextBoxTest, AMultiLineBoxLeavesTheRightEdgeToTheBar) {
  auto& box = Multi();
  PixelRect edit;
  PixelRect bar;
  PixelRect control;
  Windows().GetWindowRect(box.ActiveEdit().hWnd(), edit);
  Windows().GetWindowRect(box.Bar()->hWnd(), bar);
  Windows().GetWindowRect(box.hWnd(), control);
  EXPECT_EQ(edit.width(), 200 - 17);
  EXPECT_EQ(bar.left, edit.right);
  EXPECT_EQ(bar.right, control.right);
  EXPECT_EQ(bar.height(), 100);
  Hosted(box).Move(kAt, {Twips(4500), Twips(3000)});
  Windows().GetWindowRect(box.Bar()->hWnd(), bar);
  Windows().GetWindowRect(box.hWnd(), control);
  EXPECT_EQ(bar.right, control.right);
  EXPECT_EQ(bar.height(), 200);
}

// --- Events ------------------------------------------------------------------------------------------

TEST_F(FlatTextBoxTest, EventsOfTheEditBoxAreRaisedAsTheTextBoxsOwn) {
  auto& box = Single();
  Hosted(box).SetFocus();
  Driver().Settle();
  Watch(box);
  Driver().Key('A');
  Journal events;
  for (const std::string& entry : TakeJournal()) {
    if (entry.find('(') != std::string::npos) events.push_back(entry);
  }
  EXPECT_THAT(events, ElementsAre("KeyDown(65, 0)", "KeyPress(97)", "Change()", "KeyUp(65, 0)"));
  EXPECT_EQ(box.Text(), "a");
  Driver().MovePointer(ScreenPoint(box, PixelPoint{20, 10}));
  TakeJournal();
  Driver().Click(ScreenPoint(box, PixelPoint{20, 10}));
  events.clear();
  for (const std::string& entry : TakeJournal()) {
    if (entry.find('(') != std::string::npos) events.push_back(entry);
  }
  EXPECT_THAT(events, ElementsAre("MouseDown(1, 0, 300, 150)", "MouseUp(1, 0, 300, 150)", "Click()"));
}

TEST_F(FlatTextBoxTest, AListenerMayChangeTheCharacter) {
  auto& box = Single();
  Hosted(box).SetFocus();
  SubscribeByName(box, "KeyPress", [](RaisedEvent& raised) {
    if (raised.values[0] == Variant('a')) raised.values[0] = 'X';
  });
  Driver().Type("ab");
  EXPECT_EQ(box.Text(), "Xb");
}

TEST_F(FlatTextBoxTest, AListenerThatSetsTheTextInsideChangeEnds) {
  auto& box = Single();
  int changes = 0;
  box.Change += [&] {
    ++changes;
    box.SetText("fixed");
  };
  box.SetText("other");
  EXPECT_EQ(box.Text(), "fixed");
  EXPECT_EQ(changes, 2);
}

TEST_F(FlatTextBoxTest, ABoxThatIsDisabledWhileItHasTheFocusLosesItAndHearsNoKey) {
  auto& box = Single();
  box.SetText("text");
  Hosted(box).SetFocus();
  Driver().Settle();
  const PixelPoint empty{180, 10};
  const ColorRef looks = PixelAt(box, empty);
  Watch(box);
  box.SetEnabled(false);
  Driver().Settle();
  EXPECT_THAT(Windows().GetFocus(), ::testing::Ne(box.ActiveEdit().hWnd()));
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(Enabled)"));
  Driver().Key('A');
  Driver().Key(kKeyBackspace);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_EQ(box.Text(), "text");
  EXPECT_EQ(PixelAt(box, empty), looks);
  EXPECT_TRUE(Windows().IsWindowEnabled(box.ActiveEdit().hWnd()));  // itself, so that it is not greyed
  box.SetEnabled(true);
  Hosted(box).SetFocus();
  Driver().Key('A');
  EXPECT_NE(box.Text(), "text");
}

// --- The bar -----------------------------------------------------------------------------------------

TEST_F(FlatTextBoxTest, TextThatFitsShowsAGreyBarOfOneToOne) {
  auto& box = Multi("one\r\ntwo");
  EXPECT_EQ(box.Bar()->Min(), 1);
  EXPECT_EQ(box.Bar()->Max(), 1);
  EXPECT_EQ(box.Bar()->Value(), 1);
  EXPECT_EQ(box.Bar()->ForeColor(), Color(0x80000011));
  EXPECT_FALSE(box.Bar().TabStop());
}

TEST_F(FlatTextBoxTest, OneLineMoreThanFitsEnablesTheBarWithMaxThree) {
  auto& box = Multi();
  box.SetText("one\r\ntwo");
  const int fits = Fits(box);
  ASSERT_GT(fits, 3);
  box.SetText(Lines(fits));
  EXPECT_EQ(box.Bar()->Max(), 1);
  box.SetText(Lines(fits + 1));
  EXPECT_EQ(box.Bar()->Max(), 3);
  EXPECT_EQ(box.Bar()->ForeColor(), Color(0x80000012));
  EXPECT_TRUE(box.Bar().TabStop());
  EXPECT_EQ(box.Bar()->LargeChange(), fits - 1);
  box.SetText("short again");
  EXPECT_EQ(box.Bar()->Max(), 1);
  EXPECT_EQ(box.Bar()->ForeColor(), Color(0x80000011));
}

TEST_F(FlatTextBoxTest, TypingOneLineMoreThanFitsEnablesTheBar) {
  auto& box = Multi();
  box.SetText("one\r\ntwo");
  const int fits = Fits(box);
  box.SetText(Lines(fits));
  Hosted(box).SetFocus();
  box.ActiveEdit().Select(100000, 0);
  Driver().Key(kKeyEnter);
  EXPECT_EQ(box.Bar()->Max(), 3);
}

TEST_F(FlatTextBoxTest, TheBarFollowsTheTextThatScrolls) {
  auto& box = Multi(Lines(100));
  EXPECT_EQ(box.Bar()->Max(), 100 - Fits(box) + 2);
  EXPECT_EQ(box.Bar()->Value(), 1);
  box.ActiveEdit().Send(kEmLineScroll, 0, 10);
  Driver().Settle();
  EXPECT_EQ(box.Bar()->Value(), 11);
  EXPECT_EQ(FirstVisible(box), 10);
}

TEST_F(FlatTextBoxTest, TheBarsArrowsScrollALineAndItsTrackAPageByOneMessageEach) {
  auto& box = Multi(Lines(100));
  EXPECT_THAT(ScrollMessages(box, [&] { box.Bar()->SetValue(2); }), ElementsAre("1"));
  Driver().Settle();
  EXPECT_EQ(FirstVisible(box), 1);
  EXPECT_THAT(ScrollMessages(box, [&] { box.Bar()->SetValue(1); }), ElementsAre("0"));
  Driver().Settle();
  EXPECT_EQ(FirstVisible(box), 0);
  // However far: a page, and the bar goes to where that has led.
  EXPECT_THAT(ScrollMessages(box, [&] { box.Bar()->SetValue(50); }), ElementsAre("3"));
  Driver().Settle();
  EXPECT_EQ(box.Bar()->Value(), FirstVisible(box) + 1);
  EXPECT_LT(box.Bar()->Value(), 50);
  EXPECT_GT(box.Bar()->Value(), 3);
  EXPECT_THAT(ScrollMessages(box, [&] { box.Bar()->SetValue(1); }), ElementsAre("2"));
  Driver().Settle();
  EXPECT_EQ(box.Bar()->Value(), FirstVisible(box) + 1);
}

TEST_F(FlatTextBoxTest, ABarChangeToThePresentPlaceSendsNoMessage) {
  auto& box = Multi(Lines(100));
  EXPECT_THAT(ScrollMessages(box, [&] { box.Bar()->SetValue(1); }), IsEmpty());
}

TEST_F(FlatTextBoxTest, ClickingTheBarScrollsAndLeavesTheFocusWithTheText) {
  auto& box = Multi(Lines(100));
  Hosted(box).SetFocus();
  Driver().Settle();
  const PixelPoint down = ScreenPoint(*box.Bar(), PixelPoint{8, 95});
  Driver().Click(down);
  EXPECT_EQ(FirstVisible(box), 1);
  EXPECT_EQ(box.Bar()->Value(), 2);
  EXPECT_EQ(Windows().GetFocus(), box.ActiveEdit().hWnd());
}

TEST_F(FlatTextBoxTest, APaintThatFindsTheBarInStepDoesNotRepaintIt) {
  auto& box = Multi(Lines(100));
  Driver().Settle();
  FlatScroll& bar = *box.Bar();
  EXPECT_THAT(DrawingCallsOf(bar,
                             [&] {
                               box.Refresh();
                               Driver().Settle();
                             }),
              IsEmpty());
}

// --- The window procedure ----------------------------------------------------------------------------

TEST_F(FlatTextBoxTest, TheWindowProcedureIsReplacedOnceAndPutBackBeforeTheWindowGoes) {
  Tracer().Start();
  Tracer().TakeCalls();
  auto& box = Multi();
  const std::int64_t window = box.hWnd().value;
  TheForm().Remove("txt");
  std::vector<std::string> calls;
  for (const TracedCall& call : Tracer().TakeCalls()) {
    if (call.arguments.empty() || call.arguments[0] != TraceArgument(window)) continue;
    if (call.name == "SetWindowLongA") {
      calls.push_back("long " + std::to_string(std::get<std::int64_t>(call.arguments[1])));
    }
    if (call.name == "DestroyWindow") calls.push_back("destroy");
  }
  EXPECT_THAT(calls, ElementsAre("long -21", "long -4", "long -4", "long -21", "destroy"));
}

TEST_F(FlatTextBoxTest, ClosingTheFormPutsTheWindowProcedureBack) {
  Multi(Lines(50));
  TheForm().Close();
  EXPECT_TRUE(TheForm().Closed());
}

// --- Bad input ---------------------------------------------------------------------------------------

TEST_F(FlatTextBoxTest, TextsWithOddCharactersAreTaken) {
  auto& box = Multi();
  box.SetText("lone\rreturn\nand feed");
  EXPECT_FALSE(box.Text().empty());
  box.SetText(std::string("before\0after", 12));
  EXPECT_EQ(box.Text(), "before");
  box.SetText("bad \xFF\xC3 bytes");
  EXPECT_EQ(box.Text().substr(0, 4), "bad ");
}

TEST_F(FlatTextBoxTest, ABoxOfNoSizeLaysOutWithoutError) {
  auto& box = Multi(Lines(10));
  Hosted(box).Move(kAt, {Twips(0), Twips(0)});
  Driver().Settle();
  Hosted(box).Move(kAt, kSize);
  Driver().Settle();
  EXPECT_EQ(box.Bar()->LargeChange(), Fits(box) - 1);
}

// --- Listeners that destroy the sender ---------------------------------------------------------------

class FlatTextBoxDestroyTest : public FlatTextBoxTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(FlatTextBoxDestroyTest, AListenerMayRemoveTheTextBox) {
  auto& box = Multi(Lines(3));
  const WindowHandle window = box.hWnd();
  SubscribeByName(box, GetParam(), [&](RaisedEvent&) { TheForm().Remove("txt"); });
  Hosted(box).SetFocus();
  Driver().Settle();
  Driver().DoubleClick(ScreenPoint(box, PixelPoint{20, 10}));
  if (Windows().IsWindow(window)) Driver().Key('A');
  EXPECT_FALSE(Windows().IsWindow(window));
}

INSTANTIATE_TEST_SUITE_P(Events, FlatTextBoxDestroyTest,
                         ::testing::Values("Change", "Click", "DblClick", "KeyDown", "KeyPress", "KeyUp",
                                           "MouseDown", "MouseMove", "MouseUp"),
                         [](const auto& event) { return event.param; });

TEST_F(FlatTextBoxTest, RoundsOfCreationLeaveNothing) {
  TheForm();
  const std::size_t objects = Driver().LiveObjects();
  const std::size_t windows = Driver().LiveWindows();
#ifdef _WIN32
  constexpr int kRounds = 100;
#else
  constexpr int kRounds = 10000;
#endif
  for (int round = 0; round < kRounds; ++round) {
    TheForm().Add(FlatTextBox::Table(), "txt");
    TheForm().Remove("txt");
  }
  EXPECT_EQ(Driver().LiveObjects(), objects);
  EXPECT_EQ(Driver().LiveWindows(), windows);
}

}  // namespace
}  // namespace levelwidgets::testing
