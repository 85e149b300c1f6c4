// The fixture of every test that needs a desktop. The same tests run in memory and on Windows.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/tracing/tracing_platform.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::testing {

// What happened, in order: "paint", "capture", "release capture", events as "MouseDown(1, 0, 150, 150)" and
// notices as "PropertyChanged(Caption)".
using Journal = std::vector<std::string>;

// Fails a test that leaves a drawing object, window or timer behind.
class DesktopTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  // The desktop of each test.
  virtual std::shared_ptr<DesktopDriver> MakeDriver() { return TestDriver(); }

  DesktopDriver& Driver() { return *driver_; }
  const std::shared_ptr<DesktopDriver>& SharedDriver() { return driver_; }
  // What the forms run on: the tracer, unless a test gives them another screen.
  virtual Platform& FormPlatform() { return *tracer_; }
  // Records every platform call.
  TracingPlatform& Tracer() { return *tracer_; }
  DrawingApi& Drawing() { return tracer_->Drawing(); }
  WindowApi& Windows() { return tracer_->Windows(); }

  // A form of 6000 by 4500 twips at (100, 100), shown when first asked for. Made with `design` set for design
  // mode.
  Form& TheForm();
  void MakeForm(FormOptions options);

  // Adds a new or loaded control of class T at (left, top) with a size, in twips, and does what is pending.
  template <typename T>
  T& AddNew(const std::string& name, TwipPoint at = {Twips(600), Twips(600)},
            TwipSize size = {Twips(1200), Twips(375)}) {
    return dynamic_cast<T&>(Place(T::Table(), name, nullptr, at, size));
  }
  template <typename T>
  T& AddLoaded(const std::string& name, const PropertyBag& saved = {},
               TwipPoint at = {Twips(600), Twips(600)}, TwipSize size = {Twips(1200), Twips(375)}) {
    return dynamic_cast<T&>(Place(T::Table(), name, &saved, at, size));
  }
  HostedControl& Hosted(const Control& control);

  // Screen pixel of a point inside `control`, in pixels or twips of it.
  PixelPoint ScreenPoint(const Control& control, PixelPoint inside);
  PixelPoint ScreenPoint(const Control& control, TwipPoint inside);
  // The pixel there, with everything pending painted.
  ColorRef PixelAt(const Control& control, PixelPoint inside);
  ColorRef Concrete(Color color);

  // Begins the journal of one control: from now on its events, notices, repaints and captures.
  void Watch(Control& control);
  // What has happened since the watch or the last take.
  Journal TakeJournal();
  // The drawing calls made on the control's context while `action` runs: "Rectangle 0 0 80 25".
  template <typename Action>
  Journal DrawingCallsOf(Control& control, Action action) {
    Tracer().Start();
    Tracer().TakeCalls();
    action();
    return DrawingCalls(control);
  }
  // The calls of these names that are made while `action` runs, in order.
  template <typename Action>
  std::vector<TracedCall> CallsNamed(const std::vector<std::string>& names, Action action) {
    Tracer().Start();
    Tracer().TakeCalls();
    action();
    return CallsNamed(names);
  }

 private:
  Control& Place(const ClassInfo& control_class, const std::string& name, const PropertyBag* saved,
                 TwipPoint at, TwipSize size);
  Journal DrawingCalls(const Control& control);
  std::vector<TracedCall> CallsNamed(const std::vector<std::string>& names);

  std::shared_ptr<DesktopDriver> driver_;
  std::unique_ptr<TracingPlatform> tracer_;
  std::shared_ptr<Form> form_;
  std::size_t objects_before_ = 0;
  std::size_t windows_before_ = 0;
  std::size_t timers_before_ = 0;
  std::uint32_t watched_window_ = 0;
  std::uint32_t watched_dc_ = 0;
};

}  // namespace levelwidgets::testing
