// Random input and the window of property pages, beside the form in design mode whose controls it edits.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/host/monkey/run.h>
#include <levelwidgets/host/monkey/stage_testing.h>
#include <levelwidgets/host/property_frame/property_frame.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets::monkey {
namespace {

// The properties of two selected controls of a class. What is closed is opened anew; a control that was
// removed meanwhile is placed again first.
class PropertyStage final : public Stage {
 public:
  explicit PropertyStage(const ClassInfo& served) : served_(served) {
    FormOptions options;
    options.name = "frmDesigned";
    options.left = Twips(0);
    options.top = Twips(0);
    options.size = {Twips(5000), Twips(4500)};
    options.design = true;
    designed_ = Form::Create(desktop_, options);
    designed_->PropertyChanged += [this](auto...) { ++notices_; };
    OpenFrame();
  }

  memory::Desktop& GetDesktop() override { return desktop_; }
  const std::shared_ptr<Form>& GetForm() override { return frame_; }
  std::shared_ptr<Form> Beside() override { return designed_; }
  bool MayClose() const override { return true; }
  void Reopen() override { OpenFrame(); }

  // So often a control of the form has said that a property of it is another.
  int Notices() const { return notices_; }

 private:
  void OpenFrame() {
    frame_ = PropertyFrame::Show({Designed("ctlFirst", 300), Designed("ctlSecond", 2400)})->GetForm();
  }
  std::shared_ptr<HostedControl> Designed(const std::string& name, int top) {
    if (!designed_->Find(name)) designed_->Add(served_, name, nullptr, {{Twips(300), Twips(top)}, {}});
    return designed_->Find(name);
  }

  const ClassInfo& served_;
  memory::Desktop desktop_;
  std::shared_ptr<Form> designed_;
  std::shared_ptr<Form> frame_;
  int notices_ = 0;
};

StageFactory PropertiesOf(const ClassInfo& served) {
  return [&served] { return std::make_unique<PropertyStage>(served); };
}

class PropertyFramesTest : public ::testing::TestWithParam<const ClassInfo*> {};

TEST_P(PropertyFramesTest, StayWholeUnderRandomInput) {
  constexpr std::size_t kEvents = 2000;
  const RunResult result = monkey::Run(PropertiesOf(*GetParam()), {.seed = 20240515, .events = kEvents});
  EXPECT_EQ(result.tally.events, kEvents);
  EXPECT_GT(result.tally.closings, 0U);
  if (!result.failure) return;
  std::string lines;
  for (const Event& event : result.failure->events) lines += "\n  " + ToLua(event);
  ADD_FAILURE() << result.failure->broken << lines;
}

// What one run of events has done to a frame and to what it edits.
struct Use {
  int applied = 0;   // notices of the controls during input
  int messages = 0;  // that came up
  std::size_t closings = 0;
};

bool HasMessage(memory::Desktop& desktop) {
  return std::ranges::any_of(desktop.TopLevelWindows(),
                             [](const auto& window) { return !window.text.empty(); });
}

Use UseOf(const ClassInfo& served, std::size_t events) {
  auto owned = std::make_unique<PropertyStage>(served);
  PropertyStage& stage = *owned;
  const auto all = MakeEvents(ModelOf(stage), 3, events);
  Session session(std::move(owned));
  Use use;
  for (const Event& event : all) {
    const bool had_message = HasMessage(stage.GetDesktop());
    const int notices = stage.Notices();
    EXPECT_EQ(session.Perform(event).broken, "") << ToLua(event);
    if (event.kind <= EventKind::kAdvance) use.applied += stage.Notices() - notices;
    if (!had_message && HasMessage(stage.GetDesktop())) ++use.messages;
  }
  use.closings = session.Counts().closings;
  session.Finish();
  return use;
}

TEST(MonkeyPropertyFrames, InputAppliesPagesClosesFramesAndBringsMessagesUp) {
  Use sum;
  for (const ClassInfo* info : ControlClasses()) {
    const Use use = UseOf(*info, 1000);
    sum.applied += use.applied;
    sum.messages += use.messages;
    sum.closings += use.closings;
  }
  EXPECT_GT(sum.applied, 100);
  EXPECT_GT(sum.messages, 10);
  EXPECT_GT(sum.closings, 50U);
}

class FormBesideTest : public ::testing::Test {
 protected:
  Outcome Perform(const Event& event) { return session_.Perform(event); }

  std::unique_ptr<PropertyStage> owned_ = std::make_unique<PropertyStage>(*FindControlClass("FlatButton"));
  PropertyStage& stage_ = *owned_;
  Session session_{std::move(owned_)};
};

TEST_F(FormBesideTest, AnEventReachesAControlOfTheFormBeside) {
  EXPECT_EQ(Perform({.kind = EventKind::kRemove, .control = "ctlFirst"}).broken, "");
  EXPECT_FALSE(stage_.Beside()->Find("ctlFirst"));
  EXPECT_EQ(session_.Counts().void_events, 0U);
}

TEST_F(FormBesideTest, WhatIsWrongWithTheFormBesideIsAFailure) {
  Form& beside = *stage_.Beside();
  beside.GetPlatform().Windows().CreateWindowExA({.style = kWsChild, .parent = beside.hWnd()});
  EXPECT_EQ(Perform({.kind = EventKind::kAdvance, .numbers = {0}}).broken,
            "windows: a window is that of no control");
}

TEST_F(FormBesideTest, AFrameThatInputClosesIsOpenedAnewWithTheControlThatIsGone) {
  Perform({.kind = EventKind::kRemove, .control = "ctlFirst"});
  const Form* const first = stage_.GetForm().get();
  EXPECT_EQ(Perform({.kind = EventKind::kKey, .numbers = {kKeyEscape, 0}}).broken, "");
  EXPECT_EQ(session_.Counts().closings, 1U);
  EXPECT_NE(stage_.GetForm().get(), first);
  EXPECT_FALSE(stage_.GetForm()->Closed());
  EXPECT_TRUE(stage_.Beside()->Find("ctlFirst"));
}

TEST_F(FormBesideTest, AFrameThatIsOpenedAnewIsListenedToAsTheFirstOne) {
  const Event late{.kind = EventKind::kSet,
                   .control = "cmdApply",
                   .member = "ForeColorDisabled",
                   .values = {Variant(0x00112233)}};
  EXPECT_TRUE(Perform(late).repainted);
  Perform({.kind = EventKind::kKey, .numbers = {kKeyEscape, 0}});
  EXPECT_TRUE(Perform(late).repainted);
}

std::string NameOfClass(const ::testing::TestParamInfo<const ClassInfo*>& info) {
  return std::string(info.param->Name());
}
INSTANTIATE_TEST_SUITE_P(MonkeyPropertyFrames, PropertyFramesTest, ::testing::ValuesIn(ControlClasses()),
                         NameOfClass);

}  // namespace
}  // namespace levelwidgets::monkey
