// A desktop that ends while a control has its panel open.
#include <gtest/gtest.h>

#include <levelwidgets/host/monkey/stage_testing.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::monkey {
namespace {

struct OpenPanel {
  const char* title;
  const char* control;
  bool months;  // the month view shows the list of months
};

class DesktopEnd : public ::testing::TestWithParam<OpenPanel> {
 protected:
  DesktopEnd() {
    form_->Show();
    const auto hosted = form_->Find(GetParam().control);
    Watch(*hosted);
    hosted->SetFocus();
    if (hosted->ControlClass().FindMethod("AddItem")) {
      const Variant item[] = {Variant("item")};
      InvokeByName(*hosted->GetControl(), "AddItem", item, desktop_.Conversions());
    }
    desktop_.Key(kKeyF4);
    if (GetParam().months) desktop_.Click(Head());
    desktop_.Settle();
    events_ = 0;
  }

  WindowHandle Panel() {
    const WindowHandle active = desktop_.Windows().GetActiveWindow();
    return active == form_->hWnd() ? WindowHandle{} : active;
  }

  // Of an open month view.
  PixelPoint Head() {
    constexpr PixelPoint kInside{80, 12};
    PixelPoint point = kInside;
    desktop_.Windows().ClientToScreen(Panel(), point);
    return point;
  }

  void Watch(HostedControl& hosted) {
    for (const EventInfo& info : hosted.ControlClass().Events()) {
      SubscribeByName(*hosted.GetControl(), info.name, [this](RaisedEvent&) { ++events_; });
    }
  }

  void ExpectNothingLeft() {
    EXPECT_EQ(desktop_.LiveWindows(), 0U);
    EXPECT_EQ(desktop_.LiveTimers(), 0U);
    EXPECT_EQ(desktop_.LiveObjects(), 0U);
    // What would still come for a control that has ended.
    events_ = 0;
    desktop_.MovePointer({300, 300});
    desktop_.Key(kKeyEscape);
    desktop_.Advance(1000);
    EXPECT_EQ(events_, 0);
  }

  memory::Desktop desktop_;
  std::shared_ptr<Form> form_ =
      LoadForm(desktop_, std::string(SourceDir()) + "/levelwidgets/host/monkey/everything.form.toml").form;
  int events_ = 0;
};

TEST_P(DesktopEnd, NothingIsLeftWhenAllWindowsAreAskedToClose) {
  ASSERT_TRUE(Panel());
  EXPECT_EQ(CloseEverything(desktop_), "");
  ExpectNothingLeft();
}

TEST_P(DesktopEnd, NothingIsLeftWhenTheFormEndsWithItsProgram) {
  ASSERT_TRUE(Panel());
  desktop_.Clock().Quit(0);
  form_.reset();
  ExpectNothingLeft();
}

TEST_P(DesktopEnd, NothingIsLeftWhenTheDesktopIsLeftBefore) {
  ASSERT_TRUE(Panel());
  desktop_.Leave();
  form_.reset();
  ExpectNothingLeft();
}

// The system destroys the panel's window itself before the form's.
TEST_P(DesktopEnd, NothingIsLeftWhenThePanelsWindowIsDestroyedFirst) {
  ASSERT_TRUE(Panel());
  desktop_.Windows().DestroyWindow(Panel());
  desktop_.Advance(1000);
  form_.reset();
  ExpectNothingLeft();
}

INSTANTIATE_TEST_SUITE_P(Panels, DesktopEnd,
                         ::testing::Values(OpenPanel{"List", "cbo1", false},
                                           OpenPanel{"Keypad", "calc1", false},
                                           OpenPanel{"MonthView", "cal1", false},
                                           OpenPanel{"ListOfMonths", "cal1", true}),
                         [](const auto& panel) { return std::string(panel.param.title); });

}  // namespace
}  // namespace levelwidgets::monkey
