#include <levelwidgets/frame/parts/popup_panel.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace levelwidgets {
namespace {

// Nothing is asked of it except its monitors.
class ScreenOf final : public ScreenApi {
 public:
  explicit ScreenOf(std::vector<PixelRect> areas) : areas_(std::move(areas)) {}
  std::vector<Monitor> Monitors() override {
    std::vector<Monitor> monitors;
    for (const PixelRect& area : areas_) monitors.push_back({.area = area});
    return monitors;
  }
  PixelSize Size() override { throw std::logic_error("Size"); }
  float TwipsPerPixelX() override { throw std::logic_error("TwipsPerPixelX"); }
  float TwipsPerPixelY() override { throw std::logic_error("TwipsPerPixelY"); }
  PixelSize DotsPerInch() override { throw std::logic_error("DotsPerInch"); }

 private:
  std::vector<PixelRect> areas_;
};

constexpr PixelRect kPrimary{0, 0, 1024, 768};
constexpr PixelRect kRight{1024, 0, 2304, 1024};
constexpr PixelRect kAbove{0, -600, 800, 0};

TEST(MonitorArea, IsThatOfTheMonitorThatHoldsMostOfTheRectangle) {
  ScreenOf screen({kPrimary, kRight, kAbove});
  EXPECT_EQ(MonitorArea({1000, 10, 1047, 31}, screen), kPrimary);
  EXPECT_EQ(MonitorArea({1000, 10, 1049, 31}, screen), kRight);
  EXPECT_EQ(MonitorArea({10, -11, 90, 10}, screen), kAbove);
  EXPECT_EQ(MonitorArea({10, -10, 90, 11}, screen), kPrimary);
  // By area: less than half of its width, and most of its height.
  EXPECT_EQ(MonitorArea({700, -300, 1100, 100}, screen), kPrimary);
  EXPECT_EQ(MonitorArea({700, -390, 1100, 10}, screen), kAbove);
}

TEST(MonitorArea, IsThatOfTheFirstMonitorWhereNoneHoldsMore) {
  ScreenOf screen({kPrimary, kRight});
  EXPECT_EQ(MonitorArea({1000, 10, 1048, 31}, screen), kPrimary);
  EXPECT_EQ(MonitorArea({5000, 5000, 5010, 5010}, screen), kPrimary);
  EXPECT_EQ(MonitorArea({2000, -50, 2100, 0}, screen), kPrimary);
}

TEST(MonitorArea, CountsSharesBeyond32Bits) {
  const PixelRect huge{0, 0, 100000, 100000};
  const PixelRect small{-1000, 0, 0, 1000};
  ScreenOf screen({small, huge});
  EXPECT_EQ(MonitorArea({-1000, 0, 100000, 100000}, screen), huge);
}

}  // namespace
}  // namespace levelwidgets
