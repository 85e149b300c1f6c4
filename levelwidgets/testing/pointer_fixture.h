// What tests of controls under the pointer share.
#pragma once

#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {

// Tests of a control of class T, which is made when a test first needs it. Points are pixels inside a
// control.
template <typename T>
class PointerTest : public DesktopTest {
 protected:
  T& Subject() {
    if (!subject_) subject_ = &Make();
    return *subject_;
  }
  void MoveTo(int x, int y) { MoveTo(Subject(), x, y); }
  void MoveTo(const Control& control, int x, int y) {
    Driver().MovePointer(ScreenPoint(control, PixelPoint{x, y}));
  }
  void PressOn(const Control& control, int x, int y) {
    MoveTo(control, x, y);
    Driver().Press(kLeftButton);
  }
  bool HoldsCapture() { return Windows().GetCapture() == Subject().hWnd(); }

 private:
  virtual T& Make() = 0;

  T* subject_ = nullptr;
};

}  // namespace levelwidgets::testing
