// Messages where the platform has the system's own.
#include <stdexcept>

#include <levelwidgets/host/form/message_fixture.h>
#include <levelwidgets/testing/platform_with_messages.h>

namespace levelwidgets {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SystemMessageTest : public testing::MessageTest {
 protected:
  void SetUp() override {
    MessageTest::SetUp();
    platform_ = std::make_unique<testing::PlatformWithMessages>(Tracer());
  }

  void AskSystem(const MessageOptions& options) { AskOn(*platform_, options); }
  // The system's number of the button that is pressed.
  void AnswerWith(MessageButtons set, int pressed) {
    platform_->pressed = pressed;
    AskSystem({.text = "Read this", .set = set});
    Driver().Settle();
  }

  std::unique_ptr<testing::PlatformWithMessages> platform_;
};

TEST_F(SystemMessageTest, TheSystemShowsItLaterInFrontOfTheActiveForm) {
  bool other_was_enabled = true, owner_was_enabled = false;
  platform_->meanwhile = [&] {
    other_was_enabled = IsEnabled(*other_);
    owner_was_enabled = IsEnabled(TheForm());
  };
  AskSystem({.text = "One\ntwo", .title = "Store", .style = MessageStyle::kWarning});
  EXPECT_EQ(message_, nullptr);
  EXPECT_THAT(platform_->shown, IsEmpty());
  EXPECT_TRUE(IsEnabled(*other_));
  Driver().Settle();
  ASSERT_EQ(platform_->shown.size(), 1u);
  EXPECT_EQ(platform_->shown[0].owner, TheForm().hWnd());
  EXPECT_EQ(platform_->shown[0].text, "One\ntwo");
  EXPECT_EQ(platform_->shown[0].title, "Store");
  EXPECT_EQ(platform_->shown[0].style, 48u);
  EXPECT_FALSE(other_was_enabled);
  EXPECT_TRUE(owner_was_enabled);  // the system's own affair
  EXPECT_THAT(answers_, ElementsAre(1));
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(SystemMessageTest, TheStyleIsTheSystemsSumOfSetAndSign) {
  for (const int set : {0, 1, 3, 4}) {
    for (const int style : {0, 16, 32, 48, 64}) {
      AskSystem({.text = "Read this", .style = MessageStyle{style}, .set = MessageButtons{set}});
      Driver().Settle();
      EXPECT_EQ(platform_->shown.back().style, static_cast<std::uint32_t>(set + style));
    }
  }
}

TEST_F(SystemMessageTest, TheAnswerIsThePlaceOfTheButtonThatTheSystemNames) {
  constexpr int kIdOk = 1, kIdCancel = 2, kIdYes = 6, kIdNo = 7;
  AnswerWith(MessageButtons::kOk, kIdOk);
  AnswerWith(MessageButtons::kOk, kIdCancel);  // Escape, as Wine says it
  AnswerWith(MessageButtons::kOkCancel, kIdOk);
  AnswerWith(MessageButtons::kOkCancel, kIdCancel);
  EXPECT_THAT(std::exchange(answers_, {}), ElementsAre(1, 1, 1, 2));
  AnswerWith(MessageButtons::kYesNoCancel, kIdYes);
  AnswerWith(MessageButtons::kYesNoCancel, kIdNo);
  AnswerWith(MessageButtons::kYesNoCancel, kIdCancel);
  EXPECT_THAT(std::exchange(answers_, {}), ElementsAre(1, 2, 3));
  AnswerWith(MessageButtons::kYesNo, kIdYes);
  AnswerWith(MessageButtons::kYesNo, kIdNo);
  AnswerWith(MessageButtons::kYesNo, 0);
  EXPECT_THAT(answers_, ElementsAre(1, 2, 0));
}

TEST_F(SystemMessageTest, CaptionsOfASetAreThatSetAndOthersAreShownByAForm) {
  AskSystem({.text = "Read this", .buttons = {"Yes", "No"}});
  Driver().Settle();
  EXPECT_EQ(platform_->shown.back().style, 4u);
  AskSystem({.text = "Read this", .buttons = {"&Delete", "&Keep"}});
  Driver().Settle();
  EXPECT_EQ(platform_->shown.size(), 1u);
  ASSERT_NE(message_, nullptr);
  EXPECT_THAT(Captions(), ElementsAre("&Delete", "&Keep"));
}

TEST_F(SystemMessageTest, NobodyNeedsToHearTheAnswer) {
  ShowMessage(*platform_, {.text = "Read this"}, {other_}, nullptr);
  Driver().Settle();
  EXPECT_EQ(platform_->shown.size(), 1u);
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(SystemMessageTest, FormsTakeInputAgainAfterAnErrorMeanwhile) {
  platform_->meanwhile = [] { throw std::runtime_error("meanwhile"); };
  AskSystem({});
  EXPECT_THROW(Driver().Settle(), std::runtime_error);
  EXPECT_TRUE(IsEnabled(*other_));
}

TEST_F(SystemMessageTest, FormsTakeInputAgainBeforeTheAnswerArrives) {
  bool enabled = false;
  on_answered_ = [&] { enabled = IsEnabled(*other_); };
  AskSystem({});
  Driver().Settle();
  EXPECT_TRUE(enabled);
}

TEST_F(SystemMessageTest, AMessageThatIsAskedForMeanwhileWaitsUntilTheFirstOneIsAnswered) {
  std::vector<std::string> happened;
  on_answered_ = [&] { happened.push_back("answered"); };
  platform_->meanwhile = [&] {
    happened.push_back(platform_->shown.back().text + " shown");
    if (platform_->shown.size() > 1) return;
    AskSystem({.text = "second"});
    AskSystem({.text = "third"});
    Driver().Settle();
    happened.push_back("first ends");
  };
  AskSystem({.text = "first"});
  Driver().Settle();
  EXPECT_THAT(happened, ElementsAre("first shown", "first ends", "answered", "second shown", "answered",
                                    "third shown", "answered"));
}

TEST_F(SystemMessageTest, TheNextMessageIsShownAfterAnErrorToo) {
  platform_->meanwhile = [&] {
    platform_->meanwhile = nullptr;
    AskSystem({.text = "second"});
    Driver().Settle();
    throw std::runtime_error("meanwhile");
  };
  AskSystem({.text = "first"});
  EXPECT_THROW(Driver().Settle(), std::runtime_error);
  Driver().Settle();
  EXPECT_EQ(platform_->shown.back().text, "second");
}

TEST_F(SystemMessageTest, AFormThatHasEndedMeanwhileIsNoOwner) {
  AskSystem({});
  TheForm().Close();
  Driver().Settle();
  EXPECT_EQ(platform_->shown.back().owner, other_->hWnd());
}

TEST_F(SystemMessageTest, WithoutAFormItHasNoOwner) {
  AskSystem({});
  TheForm().Close();
  other_.reset();
  Driver().Settle();
  EXPECT_EQ(platform_->shown.back().owner, WindowHandle{});
  EXPECT_THAT(answers_, ElementsAre(1));
}

TEST_F(SystemMessageTest, EveryFormMayEndWhileItIsShown) {
  platform_->meanwhile = [this] {
    TheForm().Close();
    other_.reset();
  };
  platform_->pressed = 0;
  AskSystem({});
  Driver().Settle();
  EXPECT_THAT(answers_, ElementsAre(0));
}

}  // namespace

}  // namespace levelwidgets
