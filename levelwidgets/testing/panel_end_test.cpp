// What is left of an open panel when that which holds its control ends or hides.
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

}  // namespace
}  // namespace levelwidgets::testing
