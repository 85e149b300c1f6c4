// Random input and the panels that controls drop down.
#include <gtest/gtest.h>

#include <levelwidgets/host/monkey/run.h>
#include <levelwidgets/host/monkey/stage_testing.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets::monkey {
namespace {

StageFactory Everything() {
  return StageOfFile(std::string(SourceDir()) + "/levelwidgets/host/monkey/everything.form.toml");
}

std::size_t Openings(const Tally& tally, const char* class_name) {
  const auto of_class = std::ranges::find(ControlClasses(), FindControlClass(class_name));
  return tally.panels[static_cast<std::size_t>(of_class - ControlClasses().begin())];
}

TEST(MonkeyPanels, TheFormWithEverythingHasEveryClass) {
  const auto stage = Everything()();
  for (const ClassInfo* info : ControlClasses()) {
    EXPECT_EQ(std::ranges::count(stage->GetForm()->Controls(), info,
                                 [](const auto& hosted) { return &hosted->ControlClass(); }),
              2)
        << info->Name();
  }
}

TEST(MonkeyPanels, EveryPanelOpensOftenAndIsUsed) {
  const RunResult result = monkey::Run(Everything(), {.seed = 20240515, .events = 40000});
  EXPECT_FALSE(result.failure) << result.failure->broken;
  for (const char* class_name : {"FlatDropDown", "FlatCalculator", "FlatCalendar"}) {
    EXPECT_GT(Openings(result.tally, class_name), 40U) << class_name;
  }
  EXPECT_GT(Openings(result.tally, "FlatGrid"), 10U) << "those of its editors";
  EXPECT_GT(result.tally.panel_events, 2000U);
}

// --- What is late on purpose ---------------------------------------------------------------------

void ExpectWholeAfter(const std::vector<Event>& events) {
  Session session(Everything()());
  for (const Event& event : events) EXPECT_EQ(session.Perform(event).broken, "") << ToLua(event);
  EXPECT_EQ(session.Finish(), "");
}

TEST(MonkeyPanels, ALabelInAPanelIsUnderlinedAfterAClickWithItsNextPaint) {
  ExpectWholeAfter({{.kind = EventKind::kCall, .control = "cal1", .member = "SetFocus"},
                    {.kind = EventKind::kKey, .numbers = {kKeyF4, 0}},
                    {.kind = EventKind::kMoveToPanel, .control = "cal1", .numbers = {776, 76}},
                    {.kind = EventKind::kPress, .numbers = {kLeftButton}},
                    {.kind = EventKind::kRelease, .numbers = {kLeftButton}},
                    {.kind = EventKind::kMoveToPanel, .control = "cal1", .numbers = {312, 125}},
                    {.kind = EventKind::kCheck, .member = "repaint"}});
}

TEST(MonkeyPanels, AColorOfABarThatIsHeldDownIsShownWithItsNextPaint) {
  ExpectWholeAfter({{.kind = EventKind::kPlace, .control = "txt2", .numbers = {132, 2977, 2374, 971}},
                    {.kind = EventKind::kMoveTo, .control = "txt2", .numbers = {2259, 129}},
                    {.kind = EventKind::kPress, .numbers = {kLeftButton}},
                    {.kind = EventKind::kSet,
                     .control = "txt2",
                     .member = "ScrollPushedColor",
                     .values = {Variant(13004803)}},
                    {.kind = EventKind::kCheck, .member = "repaint"}});
}

}  // namespace
}  // namespace levelwidgets::monkey
