// The timer part: when its interval begins, and when it begins anew.
#include <levelwidgets/frame/parts/timer.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Clockwork : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Clockwork>("Clockwork", "Something with a timer."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Clockwork(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0), .fore_color = Color(0), .font = {}}) {}
  const ClassInfo& Class() const override { return Table(); }

  int ticks = 0;
  Timer timer{*this, 100, [this] { ++ticks; }};
};

class TimerTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    owner_ = &AddNew<Clockwork>("clk");
  }
  Timer& TheTimer() { return owner_->timer; }
  int& Ticks() { return owner_->ticks; }
  Journal ClockCallsOf(const std::function<void()>& action) {
    return Names(CallsNamed({"SetTimer", "KillTimer"}, action));
  }

 private:
  Clockwork* owner_ = nullptr;
};

TEST_F(TimerTest, EnablingARunningTimerLetsItsIntervalRunOn) {
  TheTimer().SetEnabled(true);
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetEnabled(true); }), IsEmpty());
  EXPECT_TRUE(TheTimer().Enabled());
}

TEST_F(TimerTest, DisablingAStoppedTimerCallsNothing) {
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetEnabled(false); }), IsEmpty());
}

TEST_F(TimerTest, ANewIntervalBeginsAnewAndTheSameOneDoesNot) {
  TheTimer().SetEnabled(true);
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetInterval(100); }), IsEmpty());
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetInterval(50); }), ElementsAre("KillTimer", "SetTimer"));
}

TEST_F(TimerTest, AnIntervalGivenToAStoppedTimerStartsNothing) {
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetInterval(50); }), IsEmpty());
  EXPECT_EQ(TheTimer().Interval(), 50);
}

TEST_F(TimerTest, AnIntervalOfZeroOrBelowRestsAndAPositiveOneStartsTheTimer) {
  TheTimer().SetInterval(0);
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetEnabled(true); }), IsEmpty());
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetInterval(-5); }), IsEmpty());
  EXPECT_THAT(ClockCallsOf([&] { TheTimer().SetInterval(1); }), ElementsAre("SetTimer"));
}

TEST_F(TimerTest, ATickMayStopItsTimer) {
  TheTimer().SetEnabled(true);
  Timer stopping(*dynamic_cast<Clockwork*>(TheForm().Find("clk")->GetControl().get()), 50,
                 [&] { TheTimer().SetEnabled(false); });
  stopping.SetEnabled(true);
  Driver().Advance(300);
  EXPECT_EQ(Ticks(), 0);
}

TEST_F(TimerTest, ATimerTicksAtItsIntervalToTheMillisecond) {
  TheTimer().SetEnabled(true);
  Driver().Advance(60);
  TheTimer().SetEnabled(true);
  Driver().Advance(39);
  EXPECT_EQ(Ticks(), 0);
  Driver().Advance(1);
  EXPECT_EQ(Ticks(), 1);
  Driver().Advance(60);
  TheTimer().SetInterval(80);
  Driver().Advance(79);
  EXPECT_EQ(Ticks(), 1);
  Driver().Advance(1);
  EXPECT_EQ(Ticks(), 2);
}

}  // namespace
}  // namespace levelwidgets::testing
