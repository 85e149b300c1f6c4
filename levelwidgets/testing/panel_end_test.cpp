// What is left of an open panel when that which holds its control ends or hides.
#include <utility>

#include <levelwidgets/testing/panel_classes.h>

namespace levelwidgets::testing {
namespace {

template <typename T>
class PanelEnd : public PanelTest<T> {};
TYPED_TEST_SUITE(PanelEnd, PanelClasses, ClassNames);

TYPED_TEST(PanelEnd, AHiddenFormDoesNotGetTheFocusOfThePanelThatEndsWithItsControl) {
  this->Open();
  this->TheForm().Hide();
  ASSERT_TRUE(this->IsOpen());
  ASSERT_EQ(this->Windows().GetActiveWindow(), this->Subject().Panel()->hWnd());
  this->TheForm().Remove("edt");
  this->Driver().Settle();
  EXPECT_NE(this->Windows().GetFocus(), this->TheForm().hWnd());
  EXPECT_NE(this->Windows().GetActiveWindow(), this->TheForm().hWnd());
}

// The panel has the focus before it is shown. The control that loses it takes what was typed, which changes
// its text.
TYPED_TEST(PanelEnd, AnErrorOfAControlThatIsLeftLeavesNoHiddenPanelWithTheFocus) {
  auto& left = this->template AddNew<FlatCalendar>("left", {Twips(3000), Twips(2400)});
  left.SetValue(Variant("2/29/2024"));
  left.SetDateFormat("yyyy");
  TypeParam& control = this->Subject();
  this->Hosted(left).SetFocus();
  bool raised = false;
  left.Change += [&] {
    if (!std::exchange(raised, true)) throw Error(kInvalidCall);
  };
  try {
    this->Driver().MovePointer(this->Strip());
    this->Driver().Press(kLeftButton);
  } catch (const Error&) {  // comes to whoever presses, or is reported by now
  }
  EXPECT_TRUE(raised);
  const WindowHandle focus = this->Windows().GetFocus();
  EXPECT_TRUE(control.Holds(focus));
  EXPECT_TRUE(this->Windows().IsWindowVisible(focus));
  this->Driver().Release(kLeftButton);
}

}  // namespace
}  // namespace levelwidgets::testing
