// What windows hear when the focus moves, on every platform.
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

class FocusMessagesTest : public DesktopTest, public WindowClient {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form_ = Api().CreateWindowExA({"", "form", kWsPopup | kWsVisible, 0, {50, 50, 550, 350}, {}, this});
    first_ = Child("first", {0, 0, 100, 50});
    second_ = Child("second", {0, 50, 100, 100});
    names_ = {{first_.value, "first"}, {second_.value, "second"}, {form_.value, "form"}, {0, "none"}};
    Api().SetActiveWindow(form_);
    Driver().Settle();
  }
  void TearDown() override {
    names_.clear();
    Api().DestroyWindow(form_);
    DesktopTest::TearDown();
  }
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message == kWmSetFocus || message == kWmKillFocus) {
      const std::string verb = message == kWmSetFocus ? " gets it from " : " loses it to ";
      heard_.push_back(Name(window.value) + verb + Name(static_cast<std::uint32_t>(wparam)) + ", which " +
                       (Api().GetFocus().value == static_cast<std::uint32_t>(wparam) ? "has it" : "has not"));
    }
    return Api().DefWindowProcA(window, message, wparam, lparam);
  }

  WindowApi& Api() { return Driver().GetPlatform().Windows(); }
  std::vector<std::string> Heard() {
    Driver().Settle();
    return std::exchange(heard_, {});
  }

  WindowHandle form_;
  WindowHandle first_;
  WindowHandle second_;

 private:
  WindowHandle Child(const char* title, PixelRect rect) {
    return Api().CreateWindowExA({"", title, kWsChild | kWsVisible, 0, rect, form_, this});
  }
  std::string Name(std::uint32_t window) {
    const auto known = names_.find(window);
    return known == names_.end() ? "a stranger" : known->second;
  }

  std::map<std::uint32_t, std::string> names_;
  std::vector<std::string> heard_;
};

TEST_F(FocusMessagesTest, BothMessagesCarryTheOtherWindowAndTheLoserHearsFirst) {
  Api().SetFocus(first_);
  Heard();
  Api().SetFocus(second_);
  EXPECT_THAT(Heard(), ElementsAre("first loses it to second, which has it",
                                   "second gets it from first, which has not"));
}

TEST_F(FocusMessagesTest, AFocusThatNobodyGetsNamesNoOtherWindow) {
  Api().SetFocus(first_);
  Heard();
  Api().SetFocus({});
  EXPECT_THAT(Heard(), ElementsAre("first loses it to none, which has it"));
  Api().SetFocus(second_);
  EXPECT_THAT(Heard(), ElementsAre("second gets it from none, which has not"));
}

TEST_F(FocusMessagesTest, TheFocusComesBackFromAWindowOnTheDesktopByTheForm) {
  Api().SetParent(second_, {});
  Api().SetWindowLongA(second_, kGwlStyle, static_cast<std::int32_t>(kWsPopup | kWsVisible));
  Api().SetFocus(first_);
  Heard();
  Api().SetFocus(second_);
  EXPECT_THAT(Heard(), ElementsAre("first loses it to second, which has it",
                                   "second gets it from first, which has not"));
  Api().SetFocus(first_);
  EXPECT_THAT(Heard(),
              ElementsAre("second loses it to form, which has it", "form gets it from second, which has not",
                          "form loses it to first, which has it", "first gets it from form, which has not"));
  Api().DestroyWindow(second_);
}

}  // namespace
}  // namespace levelwidgets::testing
