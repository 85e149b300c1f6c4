// A form inside a window of somebody else's: without a frame, in that window's order of the Tab key.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

class ChildFormTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    AddNew<FlatButton>("cmdOutside");
    child_ = Form::Create(FormPlatform(), {.size = {Twips(3000), Twips(1500)}, .parent = TheForm().hWnd()});
    for (const char* name : {"cmdA", "cmdB", "cmdC"}) {
      const float row = static_cast<float>(child_->Controls().size());
      child_->Add<FlatButton>(name, {{Twips(150), Twips(150 + 450 * row)}, TwipSize{Twips(900), Twips(375)}});
    }
    child_->Show();
    Driver().Settle();
  }
  void TearDown() override {
    child_ = nullptr;
    DesktopTest::TearDown();
  }

  std::string Focused() {
    Driver().Settle();
    for (const auto& control : child_->Controls()) {
      if (control->GetControl()->GetSurface().hWnd() == Windows().GetFocus()) return control->Name();
    }
    return Windows().GetFocus() == child_->hWnd() ? "the form" : "";
  }
  void Focus(const std::string& name) {
    child_->Find(name)->SetFocus();
    Driver().Settle();
  }

  std::shared_ptr<Form> child_;
};

TEST_F(ChildFormTest, ItStandsInItsParentWithoutAFrame) {
  EXPECT_EQ(Windows().GetParent(child_->hWnd()), TheForm().hWnd());
  PixelPoint corner{0, 0};
  Windows().ClientToScreen(TheForm().hWnd(), corner);
  EXPECT_EQ(child_->ScreenRect(), (PixelRect{corner.x, corner.y, corner.x + 200, corner.y + 100}));
  child_->MoveTo({10, 20});
  EXPECT_EQ(child_->ScreenRect().left, corner.x + 10);
  EXPECT_EQ(child_->ScreenRect().top, corner.y + 20);
  child_->SetWidth(Twips(1500));
  EXPECT_EQ(child_->ScreenRect().width(), 100);
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd()) << "a form in a window is not active itself";
}

TEST_F(ChildFormTest, AControlThatIsDisabledHandsTheFocusToTheNextOneInIt) {
  Focus("cmdA");
  ASSERT_EQ(Focused(), "cmdA");
  dynamic_cast<FlatButton&>(*child_->Find("cmdA")->GetControl()).SetEnabled(false);
  EXPECT_EQ(Focused(), "cmdB");
}

TEST_F(ChildFormTest, TheFocusGoesToTheControlThatHadIt) {
  Focus("cmdB");
  TheForm().Find("cmdOutside")->SetFocus();
  Driver().Settle();
  Windows().SetFocus(child_->hWnd());
  EXPECT_EQ(Focused(), "cmdB");
}

// A control that had lost the focus to the parent for good has been left.
TEST_F(ChildFormTest, AControlIsLeftOnceTheParentKeepsTheFocus) {
  int left = 0;
  child_->Find("cmdA")->LostFocus += [&] { ++left; };
  Focus("cmdA");
  Windows().SetFocus(TheForm().hWnd());
  Driver().Settle();
  EXPECT_EQ(left, 1);
}

}  // namespace
}  // namespace levelwidgets::testing
