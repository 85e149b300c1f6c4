// What closing a form does to its windows and controls, in which order.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;

class FormCloseTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    first_ = &AddNew<FlatButton>("cmdFirst");
    AddNew<FlatButton>("cmdSecond", {Twips(2400), Twips(600)});
    Hosted(*first_).SetFocus();
    Driver().Settle();
  }

  FlatButton* first_ = nullptr;
};

TEST_F(FormCloseTest, TheFormLeavesTheScreenBeforeItsControls) {
  const WindowHandle form = TheForm().hWnd();
  Journal hidden;
  for (const TracedCall& call : CallsNamed({"ShowWindow"}, [&] { TheForm().Close(); })) {
    EXPECT_EQ(call.arguments.at(1), TraceArgument(std::int64_t{kSwHide}));
    hidden.push_back(call.arguments.at(0) == TraceArgument(std::int64_t{form.value}) ? "form" : "control");
  }
  EXPECT_THAT(hidden, ElementsAre("form", "control", "control"));
}

TEST_F(FormCloseTest, AFormThatIsDeactivatedByClosingIsClosedAlready) {
  std::vector<bool> closed;
  TheForm().Deactivate += [&] { closed.push_back(TheForm().Closed() && TheForm().Controls().empty()); };
  TheForm().Close();
  EXPECT_THAT(closed, ::testing::Each(true));
}

}  // namespace
}  // namespace levelwidgets::testing
