// A screen that the desktop of a test does not have: other monitors, other resolutions.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <levelwidgets/testing/same_platform.h>

namespace levelwidgets::testing {

// What it says of itself. Forms place and measure by it; the windows are on the desktop's own screen.
class OtherScreen : public ScreenApi {
 public:
  OtherScreen(std::vector<Monitor> monitors, PixelSize dots_per_inch)
      : monitors_(std::move(monitors)), dots_per_inch_(dots_per_inch) {}
  PixelSize Size() override {
    const PixelRect& primary = monitors_.front().area;
    return {primary.width(), primary.height()};
  }
  std::vector<Monitor> Monitors() override { return monitors_; }
  float TwipsPerPixelX() override { return WholeTwipsPerPixel(dots_per_inch_.width); }
  float TwipsPerPixelY() override { return WholeTwipsPerPixel(dots_per_inch_.height); }
  PixelSize DotsPerInch() override { return dots_per_inch_; }

 private:
  std::vector<Monitor> monitors_;
  PixelSize dots_per_inch_;
};

// `platform`, which outlives it, with another screen.
class PlatformWithScreen : public SamePlatform {
 public:
  PlatformWithScreen(Platform& platform, OtherScreen screen)
      : SamePlatform(platform), screen_(std::move(screen)) {}
  ScreenApi& Screen() override { return screen_; }

 private:
  OtherScreen screen_;
};

// Pixels of 15 by 20 twips on the platform's own monitors.
inline OtherScreen OblongScreen(Platform& platform) { return {platform.Screen().Monitors(), {96, 72}}; }

// The platform's own screen as two monitors side by side, the left one primary.
inline OtherScreen HalvedScreen(Platform& platform) {
  const PixelSize whole = platform.Screen().Size();
  const PixelRect left{0, 0, whole.width / 2, whole.height};
  const PixelRect right{whole.width / 2, 0, whole.width, whole.height};
  return {{{left, left}, {right, right}}, {96, 96}};
}

// The tests of `Fixture` with their forms on another screen.
template <typename Fixture, OtherScreen Screen(Platform&)>
class OnOtherScreen : public Fixture {
 protected:
  Platform& FormPlatform() override {
    if (!platform_) platform_ = std::make_unique<PlatformWithScreen>(this->Tracer(), Screen(this->Tracer()));
    return *platform_;
  }

 private:
  std::unique_ptr<PlatformWithScreen> platform_;
};

}  // namespace levelwidgets::testing
