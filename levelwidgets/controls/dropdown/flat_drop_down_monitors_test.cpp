// FlatDropDown on a desktop of several monitors.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

class DropDownOnTwoMonitors : public OnOtherScreen<FlatDropDownTest, HalvedScreen> {
 protected:
  int PrimaryRight() { return FormPlatform().Screen().Size().width; }
};

TEST_F(DropDownOnTwoMonitors, AListOnThePrimaryOneStandsBelowItsControl) {
  Make(3);
  TheForm().MoveTo({20, 100});
  Open();
  EXPECT_EQ(PanelRect().left, ControlRect().left);
  EXPECT_EQ(PanelRect().top, ControlRect().bottom);
}

// The screen that a list fits into is the primary monitor, on purpose.
TEST_F(DropDownOnTwoMonitors, AListOfAControlOnAnotherOneEndsAtTheEdgeOfThePrimaryOne) {
  Make(3);
  TheForm().MoveTo({PrimaryRight() + 50, 100});
  Open();
  EXPECT_EQ(PanelRect().right, PrimaryRight());
  EXPECT_EQ(PanelRect().top, ControlRect().bottom);
  TheForm().MoveTo({PrimaryRight() + 60, 100});
  Watched();
  ASSERT_FALSE(IsOpen());
  Drop().SetDropDownWidth(900);
  Open();
  EXPECT_EQ(PanelRect().right, PrimaryRight()) << "narrower than its control";
}

}  // namespace
}  // namespace levelwidgets::testing
