// FlatDropDown: what typing does, and leaving.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

TEST_F(FlatDropDownTest, EachCharacterRaisesKeyPressTwiceAndBackspaceOnce) {
  Make(0);
  EXPECT_THAT(
      EventsOf([&] { Driver().Type("a"); }),
      ElementsAre("KeyDown(65, 0)", "KeyPress(97)", "PropertyChanged(Value)", "PropertyChanged(TopIndex)",
                  "KeyPress(97)", "PropertyChanged(Text)", "Change()", "KeyUp(65, 0)"));
  EXPECT_EQ(Drop().Text(), "a");
  EXPECT_THAT(
      EventsOf([&] { Driver().Key(kKeyBackspace); }),
      ElementsAre("KeyDown(8, 0)", "KeyPress(8)", "PropertyChanged(Text)", "Change()", "KeyUp(8, 0)"));
}

TEST_F(FlatDropDownTest, TypingReachesAnEditBoxThatComesWhileTheControlHasTheFocus) {
  Make(3);
  int left = 0;
  Hosted(Drop()).LostFocus += [&] { ++left; };
  Drop().SetStyle(1);
  EXPECT_EQ(Windows().GetFocus(), Drop().hWnd());
  Drop().SetStyle(0);
  Driver().Type("a");
  EXPECT_EQ(Drop().Text(), "a");
  EXPECT_EQ(left, 0);
}

TEST_F(FlatDropDownTest, TypingCompletesFromTheListAndTheSecondKeyPressIsZero) {
  MakeOf({"Banana", "APPLE", "Apricot"});
  Drop().SetAutoComplete(true);
  EXPECT_THAT(
      EventsOf([&] { Driver().Type("a"); }),
      ElementsAre("KeyDown(65, 0)", "KeyPress(97)", "PropertyChanged(Text)", "Change()",
                  "PropertyChanged(Value)", "PropertyChanged(TopIndex)", "KeyPress(0)", "KeyUp(65, 0)"));
  EXPECT_EQ(Drop().Text(), "aPPLE");
  EXPECT_EQ(Drop().SelText(), "PPLE");
  Driver().Type("p");
  EXPECT_EQ(Drop().Text(), "apPLE");
  EXPECT_EQ(Drop().SelText(), "PLE");
  Driver().Type("r");
  EXPECT_EQ(Drop().Text(), "apricot");
  EXPECT_EQ(Drop().SelStart(), 3);
  Driver().Type("x");
  EXPECT_EQ(Drop().Text(), "aprx");
  EXPECT_EQ(Drop().SelStart(), 4);
  EXPECT_EQ(Drop().SelLength(), 0);
}

TEST_F(FlatDropDownTest, ControlCharactersAreTypedAsWithoutCompletion) {
  MakeOf({"Banana"});
  Drop().SetAutoComplete(true);
  Drop().SetText("abc");
  Driver().Key('A', kCtrlMask);  // selects all
  EXPECT_EQ(Drop().Text(), "abc");
}

TEST_F(FlatDropDownTest, EnterAndTheCharacterOfDeletionRaiseKeyPressOnce) {
  Make(0);
  for (const bool complete : {false, true}) {
    Drop().SetAutoComplete(complete);
    for (const int character : {13, 127}) {
      EXPECT_THAT(EventsOf([&] {
                    Windows().SendMessageA(Drop().ActiveEdit().hWnd(), kWmChar,
                                           static_cast<WParam>(character), 0);
                  }),
                  ::testing::Contains("KeyPress(" + std::to_string(character) + ")").Times(1));
    }
  }
}

TEST_F(FlatDropDownTest, ABlankIsCompleted) {
  MakeOf({" first"});
  Drop().SetAutoComplete(true);
  Driver().Type(" ");
  EXPECT_EQ(Drop().Text(), " first");
}

TEST_F(FlatDropDownTest, TheHighlightIsGoneWhenTheFirstRowIsNotified) {
  Make(20);
  Drop().SetListIndex(15);
  int highlight = -1;
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view name) {
    if (name == "TopIndex") highlight = Drop().ListIndex();
  });
  Driver().Type("a");
  EXPECT_EQ(highlight, 0);
}

TEST_F(FlatDropDownTest, TypingTakesTheHighlightAwayWithoutANotice) {
  Make(20);
  Drop().SetListIndex(15);
  EXPECT_THAT(EventsOf([&] { Driver().KeyDown('A', 0); }),
              ElementsAre("KeyDown(65, 0)", "KeyPress(97)", "PropertyChanged(Value)",
                          "PropertyChanged(TopIndex)", "KeyPress(97)", "PropertyChanged(Text)", "Change()"));
  Driver().KeyUp('A', 0);
  EXPECT_EQ(Drop().ListIndex(), 0);
  EXPECT_EQ(Drop().TopIndex(), 1);
}

TEST_F(FlatDropDownTest, CharactersForTheTextBelongToTheListWhileItIsOpen) {
  Make(20);
  Drop().SetText("kept");
  Open();
  for (const int character : {int{'a'}, int{kKeyBackspace}}) {
    Drop().SetListIndex(12);
    const std::string code = std::to_string(character);
    EXPECT_THAT(EventsOf([&] {
                  Windows().SendMessageA(Drop().ActiveEdit().hWnd(), kWmChar, static_cast<WParam>(character),
                                         0);
                }),
                ElementsAre("KeyPress(" + code + ")", "PropertyChanged(TopIndex)", "KeyPress(0)"));
    EXPECT_EQ(Drop().ListIndex(), 0);
    EXPECT_EQ(Drop().TopIndex(), 1);
    EXPECT_EQ(Drop().Text(), "kept");
  }
  EXPECT_TRUE(IsOpen());
}

TEST_F(FlatDropDownTest, AListenerMayChangeOrSwallowACharacter) {
  Make(0);
  int raised = 0;
  Drop().KeyPress += [&](std::int16_t& key) {
    ++raised;
    key = key == 'a' ? std::int16_t{'b'} : key == 'x' ? std::int16_t{0} : key;
  };
  Driver().Type("ax");
  EXPECT_EQ(Drop().Text(), "b");
  EXPECT_EQ(raised, 4);
}

// --- Leaving -----------------------------------------------------------------------------------------

TEST_F(FlatDropDownTest, LeavingTakesTheItemThatTheTextIsWhateverItsCase) {
  MakeOf({"Banana", "APPLE"});
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  Driver().Type("apple");
  Driver().Key(kKeyTab);
  EXPECT_EQ(Drop().Text(), "APPLE");
  EXPECT_EQ(Drop().ListIndex(), 2);
}

TEST_F(FlatDropDownTest, LeavingTakesTheFirstOfSeveralItemsAlsoWhereALaterOneIsHighlighted) {
  MakeOf({"same", "Same", "SAME"});
  auto& next = AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  for (const int highlighted : {0, 3}) {
    Hosted(Drop()).SetFocus();
    Drop().SetText("saMe");
    Drop().SetListIndex(static_cast<std::int16_t>(highlighted));
    Hosted(next).SetFocus();
    EXPECT_EQ(Drop().Text(), "same") << highlighted;
    EXPECT_EQ(Drop().ListIndex(), 1) << highlighted;
  }
}

TEST_F(FlatDropDownTest, TheItemThatIsTakenOnLeavingIsTheTextBeforeItIsHighlighted) {
  MakeOf({"Banana", "APPLE"});
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  Drop().SetText("apple");
  EXPECT_THAT(EventsOf([&] { Driver().KeyDown(kKeyTab, 0); }),
              ElementsAre("PropertyChanged(Text)", "Change()", "PropertyChanged(ListIndex)"));
  Driver().KeyUp(kKeyTab, 0);
}

TEST_F(FlatDropDownTest, LeavingWithAnotherTextNotifiesAlsoWhereNothingWasHighlighted) {
  Make(3);
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  Drop().SetText("pear");
  EXPECT_THAT(EventsOf([&] { Driver().KeyDown(kKeyTab, 0); }),
              ElementsAre("PropertyChanged(TopIndex)", "PropertyChanged(ListIndex)"));
  Driver().KeyUp(kKeyTab, 0);
}

TEST_F(FlatDropDownTest, LeavingWithAnotherTextTakesTheHighlightAway) {
  MakeOf({"Banana", "APPLE"});
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  Drop().SetListIndex(2);
  Drop().SetText("pear");
  Driver().Key(kKeyTab);
  EXPECT_EQ(Drop().Text(), "pear");
  EXPECT_EQ(Drop().ListIndex(), 0);
  Hosted(Drop()).SetFocus();
  Drop().SetListIndex(2);
  Drop().SetText("");
  Driver().Key(kKeyTab);
  EXPECT_EQ(Drop().ListIndex(), 0);
}

TEST_F(FlatDropDownTest, LeavingWithTheHighlightedItemAsTextChangesNothing) {
  MakeOf({"same", "Same"});
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  Drop().SetListIndex(2);
  Drop().SetText("Same");
  EXPECT_THAT(EventsOf([&] { Driver().Key(kKeyTab); }), ::testing::Not(::testing::Contains("Change()")));
  EXPECT_EQ(Drop().ListIndex(), 2);
}

TEST_F(FlatDropDownTest, LeavingWithAHighlightBeyondTheListRaisesNothing) {
  Make(3);
  AddNew<FlatButton>("next", {Twips(600), Twips(1500)});
  Drop().SetListIndex(3);
  Drop().Clear();
  Drop().SetText("3");
  Driver().Key(kKeyTab);
  EXPECT_EQ(Drop().ListIndex(), 0);
}

}  // namespace
}  // namespace levelwidgets::testing
