#include <levelwidgets/host/form/run_form.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {

namespace {

class RunFormTest : public testing::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::Create(Tracer(), {.caption = "Runs"});
  }
  void TearDown() override {
    form.reset();
    DesktopTest::TearDown();
  }
  ClockApi& Clock() { return Tracer().Clock(); }

  std::shared_ptr<Form> form;
};

}  // namespace

TEST_F(RunFormTest, LoadsAndShowsTheFormAndEndsWhenItIsClosed) {
  std::vector<std::string> seen;
  form->Load += [&] { seen.push_back("Load"); };
  Clock().Post([&] {
    for (const TopLevelWindow& window : Driver().TopLevelWindows()) seen.push_back(window.title);
    form->Close();
  });
  EXPECT_EQ(RunForm(*form), 0);
  EXPECT_THAT(seen, ::testing::ElementsAre("Load", "Runs"));
}

TEST_F(RunFormTest, GoesOnWhenTheClosingIsCancelled) {
  int asked = 0;
  form->Unload += [&](bool& cancel) {
    cancel = ++asked == 1;
    if (cancel) Clock().Post([&] { Clock().Post([&] { form->Close(); }); });
  };
  Clock().Post([&] { form->Close(); });
  EXPECT_EQ(RunForm(*form), 0);
  EXPECT_EQ(asked, 2);
}

TEST_F(RunFormTest, EndsWithTheFormThatItsOwnHandlerLetsGo) {
  Clock().Post([&] {
    form->Close();
    form.reset();
  });
  EXPECT_EQ(RunForm(*form), 0);
}

TEST_F(RunFormTest, ReturnsTheStatusOfAnotherQuit) {
  Clock().Post([&] { Clock().Quit(7); });
  EXPECT_EQ(RunForm(*form), 7);
}

TEST_F(RunFormTest, ANewControlOfAClassIsAddedByItsType) {
  FlatButton& button =
      form->Add<FlatButton>("cmdSave", {{Twips(150), Twips(300)}, TwipSize{Twips(900), Twips(450)}});
  EXPECT_EQ(button.Caption(), "cmdSave");
  const auto hosted = form->Find("cmdSave");
  EXPECT_EQ(hosted->GetControl().get(), &button);
  const PixelRect rect = hosted->ScreenRect();
  EXPECT_EQ(hosted->ScreenCentre(), (PixelPoint{rect.left + 30, rect.top + 15}));
}

}  // namespace levelwidgets
