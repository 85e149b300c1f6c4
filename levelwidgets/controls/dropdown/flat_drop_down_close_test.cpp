// FlatDropDown: what closes its list, and what is left then.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

TEST_F(FlatDropDownTest, AHiddenControlWhoseRowIsPressedBeforeTheListClosesGetsNoFocus) {
  Make(3);
  AddNew<FlatButton>("other", {Twips(600), Twips(1500)});
  Open();
  Hosted(Drop()).SetVisible(false);
  Driver().MovePointer(Row(1));
  Driver().Press(kLeftButton);
  EXPECT_FALSE(IsOpen());
  Driver().Release(kLeftButton);
  EXPECT_FALSE(Drop().Holds(Windows().GetFocus()));
}

TEST_F(FlatDropDownTest, NothingIsLeftOfAListWhoseControlIsRemovedByItsOwnHandler) {
  Make(3);
  Open();
  Drop().Change += [this] { TheForm().Remove("edt"); };
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  Driver().Advance(300);
  EXPECT_TRUE(TheForm().Controls().empty());
}

TEST_F(FlatDropDownTest, AnErrorOfAListenerOfChangeLeavesTheListClosedWhateverPickedTheRow) {
  for (const bool by_pointer : {true, false}) {
    MakeForm({});
    Make(5);
    Drop().Change += [] { throw Error(kOverflow); };
    Open();
    Driver().MovePointer(Row(1));
    Drop().SetListIndex(2);
    EXPECT_EQ(ErrorOf([&] {
                if (by_pointer) {
                  Driver().Press(kLeftButton);
                } else {
                  Driver().Key(kKeyEnter);
                }
              }),
              kOverflow);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Drop().Text(), "2");
    Driver().Release(kLeftButton);
    TheForm().Close();
  }
}

TEST_F(FlatDropDownTest, AListThatIsEmptiedWhenTheFocusComesToItDoesNotOpen) {
  Make(5);
  auto& next = AddNew<FlatButton>("next", {Twips(4600), Twips(3600)});
  Hosted(next).SetFocus();
  Hosted(Drop()).GotFocus += [&] { Drop().Clear(); };
  Driver().Click(Strip());
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Windows().GetFocus(), Drop().ActiveEdit().hWnd());
}

TEST_F(FlatDropDownTest, TabInAnOpenListGoesToTheNextControlAndClosesIt) {
  Make(3);
  auto& button = AddNew<FlatButton>("next", {Twips(3000), Twips(2400)});
  int left = 0;
  Hosted(Drop()).LostFocus += [&] { ++left; };
  Open();
  Driver().Key(kKeyTab);
  Driver().Advance(110);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Windows().GetFocus(), button.hWnd());
  EXPECT_EQ(left, 1);
}

TEST_F(FlatDropDownTest, APickTakesTheFocusBackToTheEditBoxWithItsCaret) {
  Make(3);
  Open();
  Driver().Key(kKeyDown);
  Driver().Key(kKeyEnter);
  Driver().Type("x");
  EXPECT_EQ(Drop().Text().size(), 2u);
}

TEST_F(FlatDropDownTest, ClosingLeavesTheSelectionOfTheTextAsItIs) {
  FlatDropDown& drop = Make(3);
  drop.SetText("abcdef");
  drop.SetSelStart(1);
  drop.SetSelLength(3);
  Open();
  Driver().Key(kKeyEscape);
  EXPECT_EQ(drop.SelText(), "bcd");
}

}  // namespace
}  // namespace levelwidgets::testing
