#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/host/monkey/run.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include <levelwidgets/host/monkey/stage_testing.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::monkey {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

// --- The forms that there are --------------------------------------------------------------------

void ExpectWhole(const StageFactory& stage, std::size_t events) {
  const RunResult result = Run(stage, {.seed = 20240515, .events = events});
  EXPECT_EQ(result.tally.events, events);
  EXPECT_GT(result.tally.refused, events / 1000);
  EXPECT_GT(result.tally.thrown, 0U);
  if (!result.failure) return;
  std::string lines;
  for (const Event& event : result.failure->events) lines += "\n  " + ToLua(event);
  ADD_FAILURE() << result.failure->broken << lines;
}

TEST(Monkey, AFormOfAllControlsStaysWholeUnderRandomInput) { ExpectWhole(StageOf(FormOfAllControls), 20000); }

std::vector<std::string> GalleryForms() {
  std::vector<std::string> forms;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(SourceDir()) + "/examples/gallery")) {
    if (entry.path().string().ends_with(".form.toml")) forms.push_back(entry.path().string());
  }
  std::ranges::sort(forms);
  return forms;
}

TEST(Monkey, TheGalleryStaysWholeUnderRandomInput) {
  const std::vector<std::string> forms = GalleryForms();
  ASSERT_THAT(forms, ::testing::Not(IsEmpty()));
  for (const std::string& form : forms) {
    SCOPED_TRACE(form);
    ExpectWhole(StageOfFile(form), 60000 / forms.size());
  }
}

// --- The same again ------------------------------------------------------------------------------

TEST(Monkey, TheSameSeedMakesTheSameEventsAndAnotherMakesOthers) {
  const auto stage = StageOf(FormOfAllControls)();
  const FormModel model(*stage->GetForm());
  EXPECT_EQ(MakeEvents(model, 7, 2000), MakeEvents(model, 7, 2000));
  EXPECT_NE(MakeEvents(model, 7, 2000), MakeEvents(model, 8, 2000));
}

TEST(Monkey, TheSameEventsEndInTheSamePicture) {
  std::vector<Picture> pictures;
  for (int i = 0; i < 2; ++i) {
    auto stage = StageOf(FormOfAllControls)();
    memory::Desktop& desktop = stage->GetDesktop();
    const std::vector<Event> events = MakeEvents(FormModel(*stage->GetForm()), 7, 1500);
    Session session(std::move(stage));
    for (const Event& event : events) EXPECT_EQ(session.Perform(event).broken, "");
    pictures.push_back(desktop.Capture({0, 0, 1024, 768}));
    session.Finish();
  }
  EXPECT_EQ(pictures[0], pictures[1]);
}

TEST(Monkey, EveryKindOfEventAndEveryInvariantTakesPart) {
  const auto stage = StageOf(FormOfAllControls)();
  std::set<EventKind> kinds;
  std::set<std::string> checks;
  for (const Event& event : MakeEvents(FormModel(*stage->GetForm()), 7, 20000)) {
    kinds.insert(event.kind);
    if (event.kind == EventKind::kCheck) checks.insert(event.member);
  }
  EXPECT_THAT(kinds, SizeIs(static_cast<std::size_t>(EventKind::kCheck) + 1));
  const auto now_and_then = std::ranges::count(Invariants(), Invariant::When::kNowAndThen, &Invariant::when);
  EXPECT_THAT(checks, SizeIs(static_cast<std::size_t>(now_and_then)));
}

TEST(Monkey, EveryWritablePropertyOfEveryClassIsWritten) {
  const auto stage = StageOf(FormOfAllControls)();
  const FormModel model(*stage->GetForm());
  std::set<std::string> written;
  for (const Event& event : MakeEvents(model, 3, 60000)) {
    if (event.kind == EventKind::kSet && event.path.empty())
      written.insert(event.control + "." + event.member);
  }
  for (const FormModel::Control& control : model.controls) {
    for (const PropertyInfo& property : control.info->Properties()) {
      if (property.ReadOnly()) continue;
      const bool found = std::ranges::any_of(
          written, [&](const std::string& name) { return name.ends_with("." + std::string(property.name)); });
      EXPECT_TRUE(found) << control.info->Name() << "." << property.name;
    }
  }
}

// --- The hand ------------------------------------------------------------------------------------

FlatButton& ButtonOf(const HostedControl& hosted) { return dynamic_cast<FlatButton&>(*hosted.GetControl()); }

TEST(Monkey, APressAfterAJumpFromOneButtonToAnotherIsTheOthers) {
  auto stage = StageOf([](Platform& platform) { return Form::Create(platform, {}); })();
  Form& form = *stage->GetForm();
  std::vector<std::string> pressed;
  for (const auto& [name, top] : {std::pair{"cmdUpper", 300}, {"cmdLower", 1500}}) {
    HostedControl& hosted =
        form.Add(*FindControlClass("FlatButton"), name, nullptr, {{Twips(300), Twips(top)}, {}});
    ButtonOf(hosted).MouseDown += [&pressed, name = name](auto...) { pressed.emplace_back(name); };
  }
  memory::Desktop& desktop = stage->GetDesktop();
  Session session(std::move(stage));
  const auto perform = [&](const Event& event) { EXPECT_EQ(session.Perform(event).broken, ""); };
  const auto press_after = [&](const Event& move) {
    perform(move);
    perform({.kind = EventKind::kPress, .numbers = {kLeftButton}});
    perform({.kind = EventKind::kRelease, .numbers = {kLeftButton}});
  };
  const auto move_to = [](const char* name) {
    return Event{.kind = EventKind::kMoveTo, .control = name, .numbers = {150, 150}};
  };
  perform({.kind = EventKind::kShow, .numbers = {0}});
  press_after(move_to("cmdLower"));
  PixelPoint lower;
  desktop.Windows().GetCursorPos(lower);
  press_after(move_to("cmdUpper"));
  press_after({.kind = EventKind::kMove, .numbers = {lower.x, lower.y}});
  EXPECT_THAT(pressed, ::testing::ElementsAre("cmdLower", "cmdUpper", "cmdLower"));
  session.Finish();
}

// --- Failures ------------------------------------------------------------------------------------
// A form that fails when its first button gets a key after its second got a press.

using Fail = void (*)(Form&);

std::shared_ptr<Form> FaultyForm(Platform& platform, Fail fail) {
  const auto form = Form::Create(platform, {});
  const ClassInfo& info = *FindControlClass("FlatButton");
  HostedControl& first = form->Add(info, "cmdFirst", nullptr, {{Twips(300), Twips(300)}, {}});
  HostedControl& second = form->Add(info, "cmdSecond", nullptr, {{Twips(300), Twips(1500)}, {}});
  const auto armed = std::make_shared<bool>(false);
  ButtonOf(second).MouseDown += [armed](auto...) { *armed = true; };
  ButtonOf(first).KeyDown += [armed, fail, &form = *form](auto...) {
    if (*armed) fail(form);
  };
  return form;
}

StageFactory Faulty(Fail fail) {
  return StageOf([fail](Platform& platform) { return FaultyForm(platform, fail); });
}

RunOptions Options() { return {.seed = 5, .events = 20000, .ms_per_event = 500}; }

void ExpectShrunk(Fail fail, const std::string& broken) {
  const RunResult result = Run(Faulty(fail), Options());
  ASSERT_TRUE(result.failure);
  const Failure& failure = *result.failure;
  EXPECT_THAT(failure.broken, StartsWith(broken));
  EXPECT_GT(failure.events_before_shrinking, 10U);
  // A move to the second button, a press, the focus back to the first, a key.
  EXPECT_LE(failure.events.size(), 6U);
  for (std::size_t i = 0; i < failure.events.size(); ++i) {
    std::vector<Event> without = failure.events;
    without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_THAT(RunForm(Faulty(fail), without, Options(), false).broken, ::testing::Not(StartsWith(broken)))
        << "needless: " << ToLua(failure.events[i]);
  }
}

TEST(Monkey, AForeignExceptionIsShrunkToTheEventsThatMatter) {
  ExpectShrunk([](Form&) { throw std::runtime_error("foreign"); }, "error: foreign");
}

TEST(Monkey, AnEarlyExitIsShrunkToTheEventsThatMatter) {
  ExpectShrunk([](Form&) { std::_Exit(3); }, "crash: the process ended with status 3");
}

TEST(Monkey, AWindowThatIsLeftBehindIsShrunkToTheEventsThatMatter) {
  ExpectShrunk(
      [](Form& form) {
        form.GetPlatform().Windows().CreateWindowExA({.style = kWsChild, .parent = form.hWnd()});
      },
      "windows: a window is that of no control");
}

TEST(Monkey, AnEventThatNeverEndsIsAFailure) {
  const auto stage = StageOf([](Platform& platform) {
    const auto form = Form::Create(platform, {});
    const HostedControl& button = form->Add(*FindControlClass("FlatButton"), "cmd");
    ButtonOf(button).MouseMove += [](auto...) {
      volatile bool endless = true;
      while (endless) {
      }
    };
    return form;
  });
  const std::vector<Event> events{{.kind = EventKind::kMoveTo, .control = "cmd", .numbers = {100, 100}}};
  EXPECT_THAT(RunForm(stage, events, {.ms_per_event = 200}, false).broken, StartsWith("hang"));
}

TEST(Monkey, AnythingLeftWhenTheFormIsClosedIsAFailure) {
  const auto stage = StageOf([](Platform& platform) {
    platform.Drawing().CreateSolidBrush(ColorRef{0});
    return Form::Create(platform, {});
  });
  EXPECT_THAT(RunForm(stage, {}, {}, false).broken, HasSubstr("1 drawing object"));
}

TEST(Monkey, AFailureIsReportedWithItsPlaceInTheWholeRun) {
  const RunResult result = monkey::Run(Faulty([](Form&) { throw std::runtime_error("foreign"); }), Options());
  ASSERT_TRUE(result.failure);
  RunOptions shorter = Options();
  shorter.events = result.failure->number;
  EXPECT_TRUE(monkey::Run(Faulty([](Form&) { throw std::runtime_error("foreign"); }), shorter).failure);
  --shorter.events;
  EXPECT_FALSE(monkey::Run(Faulty([](Form&) { throw std::runtime_error("foreign"); }), shorter).failure);
}

}  // namespace
}  // namespace levelwidgets::monkey
