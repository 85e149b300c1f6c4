// What the tests of check boxes share.
#pragma once

#include <levelwidgets/frame/parts/check_box.h>
#include <levelwidgets/testing/error_of.h>
#include <levelwidgets/testing/pointer_fixture.h>

namespace levelwidgets::testing {

// A check box of 1200 by 255 twips with the caption "&Save", and another one below it, which has the focus.
class CheckBoxTest : public PointerTest<CheckBox> {
 protected:
  static constexpr int kWidth = 80;
  static constexpr int kHeight = 17;
  static constexpr PixelPoint kFill{1, 3};  // in the box, where no mark is

  CheckBox& Box() { return Subject(); }
  CheckBox& Other() {
    Box();
    return *other_;
  }
  void Watch() {
    Driver().Settle();
    DesktopTest::Watch(Box());
  }
  void GiveFocus(CheckBox& box) {
    Hosted(box).SetFocus();
    Driver().Settle();
  }
  void PressOnBox(int x = 5, int y = 5) { PointerTest::PressOn(Box(), x, y); }
  void ClickOnBox() {
    PressOnBox();
    Driver().Release(kLeftButton);
  }
  ColorRef FillOf(CheckBox& box) { return PixelAt(box, kFill); }

 private:
  CheckBox& Make() override {
    CheckBox& box = AddNew<CheckBox>("chkSave", {Twips(600), Twips(600)}, {Twips(1200), Twips(255)});
    other_ = &AddNew<CheckBox>("chkOther", {Twips(600), Twips(1200)}, {Twips(1200), Twips(255)});
    box.SetCaption("&Save");
    Hosted(*other_).SetFocus();
    Driver().Settle();
    return box;
  }

  CheckBox* other_ = nullptr;
};

}  // namespace levelwidgets::testing
