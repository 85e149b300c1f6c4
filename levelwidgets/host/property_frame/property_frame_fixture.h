// What the tests of the window of property pages share.
#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form/box_controls.h>
#include <levelwidgets/host/property_frame/hosted_target.h>
#include <levelwidgets/host/property_frame/property_frame.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {

// A form in design mode with a control "a", and the window with its properties.
class PropertyFrameTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    FormOptions design;
    design.design = true;
    MakeForm(design);
  }
  void TearDown() override {
    frame_.reset();
    DesktopTest::TearDown();
  }

  PropertyFrame& Open(const std::string& class_name) {
    TheForm().Add(*FindControlClass(class_name), "a");
    return Show();
  }
  PropertyFrame& OpenWithColumns(const std::vector<const char*>& captions) {
    HostedControl& grid = TheForm().Add(*FindControlClass("FlatGrid"), "a");
    const ObjectRef columns = std::get<ObjectRef>(GetByName(*grid.GetControl(), "Columns").Get());
    for (const char* caption : captions) {
      const Variant arguments[] = {caption, 1000};
      InvokeByName(*columns, "Add", arguments);
    }
    Show();
    frame_->SelectPage(2);
    Driver().Settle();
    return *frame_;
  }
  PropertyFrame& Show() {
    frame_ = PropertyFrame::Show({TheForm().Find("a")});
    Driver().Settle();
    return *frame_;
  }

  Form& Frame() { return *frame_->GetForm(); }
  HostedControl& At(const std::string& name) { return *Frame().Find(name); }
  template <typename T>
  T& The(const std::string& name) {
    return dynamic_cast<T&>(*At(name).GetControl());
  }
  std::string Text(const std::string& name) { return The<FlatTextBox>(name).Text(); }
  bool IsChecked(const std::string& name) { return The<CheckBoxControl>(name).Value() == 1; }
  bool CanApply() { return The<FlatButton>("cmdApply").Enabled(); }
  Variant Value(std::string_view property, const std::string& control = "a") {
    return GetByName(*TheForm().Find(control)->GetControl(), property);
  }
  std::string Active() {
    const auto control = Frame().ActiveControl();
    return control ? control->Name() : "";
  }

  void Focus(const std::string& name) {
    At(name).SetFocus();
    Driver().Settle();
  }
  // Replaces what stands in the field, as a person does.
  void TypeInto(const std::string& name, std::string_view text) {
    Focus(name);
    Driver().Key(kKeyHome);
    Driver().Key(kKeyEnd, kShiftMask);
    Driver().Key(kKeyDelete);
    Driver().Type(text);
    Driver().Settle();
  }
  // A button that the pointer was over has the capture until the second move outside.
  void Click(const std::string& name) {
    const PixelPoint centre = At(name).ScreenCentre();
    Driver().MovePointer({centre.x, centre.y + 1});
    Driver().Click(centre);
    Driver().Settle();
  }
  void Key(int code, int shift = 0) {
    Driver().Key(code, shift);
    Driver().Settle();
  }
  // By keys: opens the list and picks the item at `index`, from 0.
  void Pick(const std::string& name, std::int32_t index) {
    Focus(name);
    Key(kKeyF4);
    Key(kKeyHome);
    for (std::int32_t i = 0; i <= index; ++i) Key(kKeyDown);
    Key(kKeyEnter);
  }

  std::shared_ptr<PropertyFrame> frame_;
};

}  // namespace levelwidgets::testing
