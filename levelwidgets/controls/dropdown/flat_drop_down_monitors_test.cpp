// FlatDropDown on a desktop of several monitors.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

class DropDownOnTwoMonitors : public FlatDropDownTest {
 protected:
  Platform& FormPlatform() override {
    if (!platform_) platform_ = std::make_unique<PlatformWithScreen>(Tracer(), HalvedScreen(Tracer()));
    return *platform_;
  }
  int PrimaryRight() { return FormPlatform().Screen().Size().width; }

 private:
  std::unique_ptr<PlatformWithScreen> platform_;
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
