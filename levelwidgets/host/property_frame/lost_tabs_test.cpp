// The window of property pages after a listener has taken the tabs from its strip.
#include <levelwidgets/host/property_frame/property_frame_fixture.h>

namespace levelwidgets::testing {
namespace {

class LostTabsTest : public PropertyFrameTest {
 protected:
  void TakeTabs() { The<FlatTabStrip>("tabPages").SetTabCount(0); }
  std::string FrontText() {
    Driver().Settle();
    return Driver().TopLevelWindows().front().text;
  }
};

TEST_F(LostTabsTest, ARefusalIsSaidAllTheSame) {
  Open("FlatScroll");
  TypeInto("txtValue", "900");
  TakeTabs();
  Key('P', kAltMask);
  EXPECT_EQ(FrontText(), "Invalid Value");
}

TEST_F(LostTabsTest, ThePageThatCouldNotBeWrittenComesToTheFront) {
  OpenWithColumns({"A"});
  frame_->SelectPage(1);
  Driver().Settle();
  TypeInto("txtRowHeight", "tall");
  frame_->SelectPage(2);
  Driver().Settle();
  TakeTabs();
  EXPECT_FALSE(frame_->Apply());
  EXPECT_TRUE(At("txtRowHeight").Visible());
  EXPECT_FALSE(At("cmbColumn").Visible());
  EXPECT_NE(FrontText(), "");
}

TEST_F(LostTabsTest, CtrlTabGoesRoundThePagesAllTheSame) {
  OpenWithColumns({"A"});
  TakeTabs();
  Key(kKeyTab, kCtrlMask);
  EXPECT_TRUE(At("txtRowHeight").Visible());
  EXPECT_FALSE(At("cmbColumn").Visible());
}

}  // namespace
}  // namespace levelwidgets::testing
