// Errors that a control's own code raises while it handles input or a tick.
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/timer.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Raises an error at every notification, and removes itself first when it is to.
class Faulty : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Faulty>("Faulty", "Raises errors."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Faulty(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0), .fore_color = Color(0), .font = {}}) {}

  void StartTimer() { timer_.SetEnabled(true); }

  std::function<void()> before = [] {};

  const ClassInfo& Class() const override { return Table(); }
  void OnMouseDown(const PointerInput&) override { Fail(); }
  void OnMouseUp(const PointerInput&) override { Fail(); }
  void OnKeyDown(std::int16_t, std::int16_t) override { Fail(); }
  void OnEnterFocus() override { Fail(); }

 private:
  void Fail() {
    const auto first = before;
    first();
    RaiseControlError(kInvalidValueCode, "Faulty", "Invalid Value");
  }
  Timer timer_{*this, 50, [this] {
                 timer_.SetEnabled(false);
                 Fail();
               }};
};

class Owner : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Owner>("Owner", "A control with a part."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Owner(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0), .fore_color = Color(0), .font = {}}) {}
  const ClassInfo& Class() const override { return Table(); }

  ChildControl<Faulty> part{*this, "part", {Twips(600), Twips(300)}};
};

class FormErrorTest : public DesktopTest {
 protected:
  void Report() {
    TheForm().SetErrorHandler([this](std::string_view control, std::string_view event, const Error& error) {
      reports_.push_back(std::string(control) + " " + std::string(event) + ": " + error.Description());
      return true;
    });
  }
  std::vector<std::string> TakeReports() { return std::exchange(reports_, {}); }

 private:
  std::vector<std::string> reports_;
};

TEST_F(FormErrorTest, ABarThatStepsOutOfItsRangeAtAClickIsReportedAndGoesOn) {
  Report();
  auto& bar = AddNew<FlatScroll>("scrQty", {Twips(600), Twips(600)}, {Twips(255), Twips(2250)});
  bar.SetMax(100);
  bar.SetValue(50);
  bar.SetSmallChange(-200);
  Driver().Click(ScreenPoint(bar, PixelPoint{8, 5}));
  EXPECT_THAT(TakeReports(), ElementsAre("scrQty MouseDown: Invalid Value"));
  EXPECT_EQ(bar.Value(), 50);
  bar.SetSmallChange(2);
  Driver().Advance(600);  // no double click
  Driver().Click(ScreenPoint(bar, PixelPoint{8, 5}));
  EXPECT_THAT(TakeReports(), IsEmpty());
  EXPECT_EQ(bar.Value(), 48);
}

TEST_F(FormErrorTest, EachKindOfInputIsNamed) {
  Report();
  auto& faulty = AddNew<Faulty>("flt");
  TakeReports();
  Driver().Click(ScreenPoint(faulty, PixelPoint{5, 5}));
  const auto reports = TakeReports();
  // The press stops before it would give the focus.
  EXPECT_THAT(reports, ElementsAre("flt MouseDown: Invalid Value", "flt MouseUp: Invalid Value"));
  Hosted(faulty).SetFocus();
  Driver().Settle();
  EXPECT_THAT(TakeReports(), ElementsAre("flt EnterFocus: Invalid Value"));
  Driver().Key('A');
  EXPECT_THAT(TakeReports(), ElementsAre("flt KeyDown: Invalid Value"));
}

TEST_F(FormErrorTest, ATickIsReportedAsOfItsTimer) {
  Report();
  auto& faulty = AddNew<Faulty>("flt");
  TakeReports();
  faulty.StartTimer();
  Driver().Advance(200);
  EXPECT_THAT(TakeReports(), ElementsAre("flt Timer: Invalid Value"));
}

TEST_F(FormErrorTest, AnErrorOfAPartIsReportedAsItsOwners) {
  Report();
  auto& owner = AddNew<Owner>("own");
  owner.part.SetVisible(true);
  Driver().Settle();
  Driver().Click(ScreenPoint(owner, PixelPoint{3, 3}));
  EXPECT_THAT(TakeReports(), ElementsAre("own MouseDown: Invalid Value", "own MouseUp: Invalid Value"));
}

TEST_F(FormErrorTest, AnErrorOfAControlThatHasJustBeenRemovedIsReportedToo) {
  Report();
  auto& faulty = AddNew<Faulty>("flt");
  faulty.before = [this] { TheForm().Remove("flt"); };
  Driver().Click(ScreenPoint(faulty, PixelPoint{5, 5}));
  EXPECT_THAT(TakeReports(), ElementsAre("flt MouseDown: Invalid Value"));

  auto& owner = AddNew<Owner>("own");
  owner.part.SetVisible(true);
  owner.part->before = [this] { TheForm().Remove("own"); };
  Driver().Settle();
  Driver().Click(ScreenPoint(owner, PixelPoint{3, 3}));
  EXPECT_THAT(TakeReports(), ElementsAre("own MouseDown: Invalid Value"));
}

TEST_F(FormErrorTest, WithoutAHandlerTheErrorReachesWhoeverMadeTheInput) {
  auto& faulty = AddNew<Faulty>("flt");
  EXPECT_EQ(ErrorOf([&] {
              Driver().Click(ScreenPoint(faulty, PixelPoint{5, 5}));
            }),
            ObjectErrorNumber(kInvalidValueCode));
  ErrorOf([&] { Driver().Release(kLeftButton); });
}

TEST_F(FormErrorTest, AHandlerThatDoesNotReportItLetsTheErrorPass) {
  TheForm().SetErrorHandler([](auto...) { return false; });
  auto& faulty = AddNew<Faulty>("flt");
  EXPECT_EQ(ErrorOf([&] {
              Driver().Click(ScreenPoint(faulty, PixelPoint{5, 5}));
            }),
            ObjectErrorNumber(kInvalidValueCode));
  ErrorOf([&] { Driver().Release(kLeftButton); });
}

TEST_F(FormErrorTest, TheFormsOwnMessagesAreReportedAsTheForms) {
  Report();
  TheForm().Resize += [] { throw Error(kInvalidCall); };
  TheForm().SetWidth(Twips(4500));
  Driver().Settle();
  EXPECT_THAT(TakeReports(), ElementsAre(" Resize: " + Error(kInvalidCall).Description()));
}

TEST_F(FormErrorTest, OtherExceptionsPassThrough) {
  Report();
  auto& faulty = AddNew<Faulty>("flt");
  faulty.before = [] { throw std::runtime_error("of the program's own"); };
  EXPECT_THROW(Driver().Click(ScreenPoint(faulty, PixelPoint{5, 5})), std::runtime_error);
  try {
    Driver().Release(kLeftButton);
  } catch (const std::runtime_error&) {
  }
  EXPECT_THAT(TakeReports(), IsEmpty());
}

}  // namespace
}  // namespace levelwidgets::testing
