// FlatTextBox: which windows it has made, and when.
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TwipPoint kAt{Twips(600), Twips(300)};
constexpr TwipSize kSize{Twips(3000), Twips(1500)};

class FlatTextBoxWindowsTest : public DesktopTest {
 protected:
  void MakeDesignForm() {
    FormOptions design;
    design.design = true;
    MakeForm(design);
  }
  // The classes of the windows that `action` makes; "" is a control's own.
  template <typename Action>
  Journal WindowsMadeBy(Action action) {
    TheForm();
    Journal classes;
    for (const TracedCall& call : CallsNamed({"CreateWindowExA"}, action)) {
      classes.push_back(std::get<std::string>(call.arguments.at(1)));
    }
    return classes;
  }
  static PropertyBag MultiLineBag() {
    PropertyBag saved;
    saved.WriteProperty("MultiLine", true, false);
    return saved;
  }
};

TEST_F(FlatTextBoxWindowsTest, ABoxOfOneLineIsTwoWindows) {
  EXPECT_THAT(WindowsMadeBy([&] { AddNew<FlatTextBox>("txtNew", kAt, kSize); }), ElementsAre("", "EDIT"));
  EXPECT_THAT(WindowsMadeBy([&] { AddLoaded<FlatTextBox>("txtLoaded", {}, kAt, kSize); }),
              ElementsAre("", "EDIT"));
}

TEST_F(FlatTextBoxWindowsTest, ABoxLoadedWithManyLinesIsThreeWindows) {
  EXPECT_THAT(WindowsMadeBy([&] { AddLoaded<FlatTextBox>("txt", MultiLineBag(), kAt, kSize); }),
              ElementsAre("", "", "EDIT"));
}

TEST_F(FlatTextBoxWindowsTest, TheOtherModesWindowsAreMadeWhenItIsFirstChosenAndKept) {
  MakeDesignForm();
  auto& box = AddNew<FlatTextBox>("txt", kAt, kSize);
  EXPECT_FALSE(box.HasBar());
  EXPECT_THAT(WindowsMadeBy([&] { box.SetMultiLine(true); }), ElementsAre("", "EDIT"));
  EXPECT_TRUE(box.HasBar());
  EXPECT_THAT(WindowsMadeBy([&] {
                box.SetMultiLine(false);
                box.SetMultiLine(true);
              }),
              IsEmpty());
}

TEST_F(FlatTextBoxWindowsTest, ABoxOfOneLineDrawsNoBar) {
  const auto draw = [&] {
    auto& box = AddNew<FlatTextBox>("txt", kAt, kSize);
    box.SetScrollBackColor(Color(3));
    box.SetText("text");
    Hosted(box).Move(kAt, {Twips(1500), Twips(600)});
    Driver().Settle();
  };
  TheForm();
  EXPECT_THAT(CallsNamed({"Rectangle"}, draw), IsEmpty());
}

TEST_F(FlatTextBoxWindowsTest, TheBarHasTheColoursThatTheBoxWasGivenBeforeAndIsGivenAfter) {
  MakeDesignForm();
  auto& box = AddNew<FlatTextBox>("txt", kAt, kSize);
  box.SetScrollBackColor(Color(3));
  box.SetScrollButtonColor(Color(4));
  box.SetScrollMouseOverColor(Color(5));
  box.SetScrollPushedColor(Color(6));
  box.SetMultiLine(true);
  const auto colors = [&] {
    const FlatScroll& bar = *box.Bar();
    return std::vector<Color>{bar.BackColor(), bar.ButtonColor(), bar.ButtonColorMouseOver(),
                              bar.ButtonColorPushed()};
  };
  EXPECT_THAT(colors(), ElementsAre(Color(3), Color(4), Color(5), Color(6)));
  box.SetScrollBackColor(Color(13));
  box.SetScrollButtonColor(Color(14));
  box.SetScrollMouseOverColor(Color(15));
  box.SetScrollPushedColor(Color(16));
  EXPECT_THAT(colors(), ElementsAre(Color(13), Color(14), Color(15), Color(16)));
}

TEST_F(FlatTextBoxWindowsTest, ABarThatIsMadeLateStandsAtTheRightEdgeAndIsInStepWithTheText) {
  MakeDesignForm();
  auto& box = AddNew<FlatTextBox>("txt", kAt, kSize);
  Hosted(box).Move(kAt, {Twips(2400), Twips(1200)});
  box.SetMultiLine(true);
  EXPECT_EQ(box.Bar().Position(), (TwipPoint{Twips(2145), Twips()}));
  EXPECT_EQ(box.Bar().Size(), (TwipSize{Twips(255), Twips(1200)}));
  EXPECT_EQ(box.Bar()->Min(), 1);
  EXPECT_EQ(box.Bar()->ForeColor(), Color(0x80000011));
  box.SetText("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9");
  EXPECT_EQ(box.Bar()->ForeColor(), Color(0x80000012));
}

TEST_F(FlatTextBoxWindowsTest, AListenerThatClosesTheFormWhileTheModeChangesLeavesNothing) {
  MakeDesignForm();
  auto& box = AddNew<FlatTextBox>("txt", kAt, kSize);
  const auto keep = Hosted(box).GetControl();
  TheForm().PropertyChanged.Add([&](std::string_view, std::string_view) { TheForm().Close(); });
  box.SetMultiLine(true);
  EXPECT_FALSE(box.HasBar());
}

}  // namespace
}  // namespace levelwidgets::testing
