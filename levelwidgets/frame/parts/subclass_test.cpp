// The replaced procedure of a window.
#include <levelwidgets/frame/parts/subclass.h>
#include <levelwidgets/testing/desktop_fixture.h>

#include <optional>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SubclassTest : public DesktopTest, public WindowClient {
 protected:
  static constexpr std::uint32_t kHello = 0x0400;

  void SetUp() override {
    DesktopTest::SetUp();
    window_ = Windows().CreateWindowExA({"", "subclassed", kWsPopup, 0, {0, 0, 10, 10}, {}, this});
    subclass_.emplace(Windows(), window_, [this](std::uint32_t message, WParam wparam, LParam lparam) {
      if (message == kHello) heard_.push_back("handler");
      if (message == kHello && ends_) {
        subclass_.reset();
        return LResult{0};
      }
      return subclass_->Pass(message, wparam, lparam);
    });
  }
  void TearDown() override {
    subclass_.reset();
    Windows().DestroyWindow(window_);
    DesktopTest::TearDown();
  }
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message == kHello) heard_.push_back("window");
    if (message == kHello) return 7;
    return Driver().GetPlatform().Windows().DefWindowProcA(window, message, wparam, lparam);
  }
  std::vector<std::string> Heard() { return std::exchange(heard_, {}); }

  WindowHandle window_;
  std::optional<Subclass> subclass_;
  bool ends_ = false;

 private:
  std::vector<std::string> heard_;
};

TEST_F(SubclassTest, TheHandlerHearsAMessageFirstAndPassesItOn) {
  EXPECT_EQ(Windows().SendMessageA(window_, kHello, 0, 0), 7);
  EXPECT_THAT(Heard(), ElementsAre("handler", "window"));
  subclass_.reset();
  EXPECT_EQ(Windows().SendMessageA(window_, kHello, 0, 0), 7);
  EXPECT_THAT(Heard(), ElementsAre("window"));
}

TEST_F(SubclassTest, TheHandlerMayEndIt) {
  ends_ = true;
  Windows().SendMessageA(window_, kHello, 0, 0);
  EXPECT_THAT(Heard(), ElementsAre("handler"));
  Windows().SendMessageA(window_, kHello, 0, 0);
  EXPECT_THAT(Heard(), ElementsAre("window"));
}

TEST_F(SubclassTest, AWindowThatIsDestroyedGetsItsProcedureBackBeforeItGoes) {
  Tracer().Start();
  Tracer().TakeCalls();
  Windows().DestroyWindow(window_);
  std::vector<std::string> calls;
  for (const TracedCall& call : Tracer().TakeCalls()) {
    if (call.name != "SetWindowLongA") continue;
    calls.push_back("long " + std::to_string(std::get<std::int64_t>(call.arguments[1])));
  }
  EXPECT_THAT(calls, ElementsAre("long -4", "long -21"));
  Tracer().TakeCalls();
  subclass_.reset();
  EXPECT_THAT(Tracer().TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace levelwidgets::testing
