// The system's real messages in front of forms.
#include <levelwidgets/host/form/message_fixture.h>
#include <levelwidgets/platform/message_boxes.h>

namespace levelwidgets {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr WParam kIdYes = 6, kIdNo = 7, kEnter = 13, kEscape = 27;
constexpr char kTitle[] = "A question";
constexpr int kMostTicks = 300;

class WindowsMessageTest : public testing::MessageTest {
 protected:
  // The system keeps what it has drawn its first message with.
  static void SetUpTestSuite() {
    const auto driver = testing::RealTimeDriver();
    Platform& system = driver->GetPlatform();
    const TimerHandle timer = system.Clock().SetTimer(20, [&] {
      for (const TopLevelWindow& window : driver->TopLevelWindows()) {
        system.Windows().PostMessageA(window.handle, kWmCommand, kIdYes, 0);
      }
    });
    MessageBoxesOf(system)->MessageBoxA({.text = "Store it?", .title = kTitle, .style = 32 + 4});
    system.Clock().KillTimer(timer);
  }
  // A message runs the system's own loop, where a timer ticks in real time only.
  std::shared_ptr<DesktopDriver> MakeDriver() override { return testing::RealTimeDriver(); }
  void SetUp() override {
    MessageTest::SetUp();
    windows_before_ = Driver().TopLevelWindows().size();
  }
  void TearDown() override {
    System().Clock().KillTimer(timer_);
    EXPECT_LE(ticks_, kMostTicks) << "The message was given up.";
    MessageTest::TearDown();
  }

  // The platform itself, which is not recorded.
  Platform& System() { return Driver().GetPlatform(); }

  // Asks, and calls `act` with each message once it is seen; returns when it has been answered.
  void AskSystem(const MessageOptions& options, std::function<void(const TopLevelWindow&)> act) {
    timer_ = System().Clock().SetTimer(20, [this, act = std::move(act), seen = WindowHandle{}]() mutable {
      for (const TopLevelWindow& window : Driver().TopLevelWindows()) {
        if (window.title != kTitle) continue;
        if (++ticks_ > kMostTicks) Press(window, kIdYes);
        if (std::exchange(seen, window.handle) != window.handle) act(window);
      }
    });
    AskOn(System(), options);
    EXPECT_EQ(message_, nullptr);
    EXPECT_EQ(Driver().TopLevelWindows().size(), windows_before_);  // nobody has waited
    EXPECT_THAT(answers_, IsEmpty());
    while (answers_.empty()) Driver().Settle();
    System().Clock().KillTimer(timer_);
  }
  void AskAndPress(MessageButtons set, const std::vector<WParam>& keys) {
    AskSystem({.text = "Store it?", .title = kTitle, .set = set}, [&](const TopLevelWindow&) {
      WindowApi& windows = System().Windows();
      for (const WParam key : keys) windows.PostMessageA(windows.GetFocus(), kWmKeyDown, key, 0);
    });
    all_answers_.push_back(answers_.back());
    answers_.clear();
  }
  void Press(const TopLevelWindow& box, WParam id) {
    System().Windows().PostMessageA(box.handle, kWmCommand, id, 0);
  }

  std::vector<std::int32_t> all_answers_;

 private:
  TimerHandle timer_;
  int ticks_ = 0;
  std::size_t windows_before_ = 0;
};

TEST_F(WindowsMessageTest, ItIsListedWithItsTextWhileTheFormsTakeNoInput) {
  TopLevelWindow seen;
  bool form_enabled = true, other_enabled = true;
  AskSystem({.text = "Store it?\nReally?",
             .title = kTitle,
             .style = MessageStyle::kQuestion,
             .set = MessageButtons::kYesNo},
            [&](const TopLevelWindow& box) {
              seen = box;
              form_enabled = IsEnabled(TheForm());
              other_enabled = IsEnabled(*other_);
              Press(box, kIdNo);
            });
  EXPECT_THAT(answers_, ElementsAre(2));
  EXPECT_EQ(seen.text, "Store it?\nReally?");
  EXPECT_TRUE(seen.active);
  EXPECT_FALSE(form_enabled);
  EXPECT_FALSE(other_enabled);
  EXPECT_TRUE(IsEnabled(TheForm()));
  EXPECT_TRUE(IsEnabled(*other_));
  EXPECT_EQ(Windows().GetActiveWindow(), TheForm().hWnd());
}

TEST_F(WindowsMessageTest, KeysAnswerIt) {
  AskAndPress(MessageButtons::kYesNo, {kKeyRight, kEnter});
  AskAndPress(MessageButtons::kYesNoCancel, {kEscape});
  AskAndPress(MessageButtons::kOk, {kEscape});
  EXPECT_THAT(all_answers_, ElementsAre(2, 3, 1));
}

TEST_F(WindowsMessageTest, EveryFormMayEndWhileItIsShown) {
  AskSystem({.text = "Store it?", .title = kTitle, .set = MessageButtons::kYesNo},
            [&](const TopLevelWindow&) {
              TheForm().Close();
              other_.reset();
            });
  EXPECT_THAT(answers_, ElementsAre(0));
}

TEST_F(WindowsMessageTest, TheAnswerMayShowAnotherMessage) {
  int shown = 0;
  on_answered_ = [this] {
    on_answered_ = nullptr;
    answers_.clear();
    AskOn(System(), {.text = "Another", .title = kTitle});
  };
  const auto press = [&](const TopLevelWindow& box) {
    ++shown;
    Press(box, 1);
  };
  AskSystem({.text = "One", .title = kTitle}, press);
  EXPECT_EQ(shown, 2);
  EXPECT_THAT(answers_, ElementsAre(1));
}

}  // namespace

}  // namespace levelwidgets
