// FlatDropDown: listeners that remove it, close its form or raise an error, at any of its events.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>
#include <levelwidgets/testing/interference.h>

namespace levelwidgets::testing {
namespace {

class FlatDropDownInterferenceTest : public InterferenceTest<FlatDropDownTest> {
 protected:
  void UseEverything() {
    Try([&] { Hosted(Drop()).SetFocus(); });
    Try([&] { Driver().Type("ap"); });
    Try([&] { Driver().Key(kKeyBackspace); });
    Try([&] { Driver().DoubleClick(ScreenPoint(Drop(), PixelPoint{20, 8})); });
    Try([&] { Driver().Key(kKeyF4); });
    Try([&] { Driver().Key(kKeyDown); });
    Try([&] { Driver().Key(kKeyEnd); });
    Try([&] { Driver().Key(kKeyEnter); });
    Try([&] { Driver().Click(Strip()); });
    Try([&] {
      if (IsOpen()) Driver().MovePointer(Row(2));
    });
    Try([&] { Driver().Wheel(-1); });
    Try([&] {
      if (IsOpen()) Driver().Click(Row(2));
    });
    Try([&] { Drop().SetText("apple"); });
    Try([&] { Drop().SetListIndex(12); });
    Try([&] { Driver().Key(kKeyF4); });
    Try([&] { Drop().SetEnabled(false); });
    Try([&] { Drop().SetEnabled(true); });
    Try([&] { Drop().SetStyle(1); });
    Try([&] { Driver().Key(kKeyTab); });
    Try([&] { Driver().Advance(110); });
  }
};

TEST_P(FlatDropDownInterferenceTest, LeavesTheControlWholeOrGone) {
  const auto make = [&]() -> Control& {
    MakeForm({});
    FlatDropDown& drop =
        MakeOf({"Banana", "APPLE", "Apricot", "4", "5", "6", "7", "8", "9", "10", "11", "12"});
    AddNew<FlatButton>("next", {Twips(600), Twips(3000)});
    drop.SetAutoComplete(true);
    Hosted(*TheForm().Find("next")->GetControl()).SetFocus();
    return drop;
  };
  DoItAtEachTime(40, make, [&] { UseEverything(); });
}

INSTANTIATE_TEST_SUITE_P(Events, FlatDropDownInterferenceTest,
                         ::testing::ValuesIn(EachOf({Deed::kRemove, Deed::kCloseForm, Deed::kRaise},
                                                    {"Change", "Click", "DblClick", "KeyDown", "KeyPress",
                                                     "KeyUp", "MouseDown", "MouseMove", "MouseUp",
                                                     "PropertyChanged", "GotFocus", "LostFocus"})),
                         NameOfInterference);

}  // namespace
}  // namespace levelwidgets::testing
