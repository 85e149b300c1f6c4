// For platforms of tests that differ from another in one thing.
#pragma once

#include <levelwidgets/platform/platform.h>

namespace levelwidgets::testing {

// All that `platform`, which outlives it, is.
class SamePlatform : public Platform {
 public:
  explicit SamePlatform(Platform& platform) : platform_(platform) {}
  DrawingApi& Drawing() override { return platform_.Drawing(); }
  WindowApi& Windows() override { return platform_.Windows(); }
  ClockApi& Clock() override { return platform_.Clock(); }
  ScreenApi& Screen() override { return platform_.Screen(); }
  ConversionApi& Conversions() override { return platform_.Conversions(); }

 private:
  Platform& platform_;
};

}  // namespace levelwidgets::testing
