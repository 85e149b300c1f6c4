#include <gtest/gtest.h>

#include <random>
#include <vector>

#include <levelwidgets/platform/memory/raster.h>

namespace levelwidgets::memory {
namespace {

// One part of red, green or blue: the coverage is stretched to 256 parts, and the rest is cut off.
std::uint32_t BlendedPart(std::uint32_t old, std::uint32_t color, std::uint32_t coverage) {
  const std::uint32_t share = coverage >= 128 ? coverage + 1 : coverage;
  return (old * (256 - share) + color * share) / 256;
}

std::uint32_t BlendedPixel(std::uint32_t old, std::uint32_t color, std::uint32_t coverage) {
  std::uint32_t pixel = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    pixel |= BlendedPart(old >> shift & 0xFF, color >> shift & 0xFF, coverage) << shift;
  }
  return pixel;
}

TEST(BlendAreaTest, EachPixelIsMixedByItsOwnCoverageAndNothingBesideTheAreaChanges) {
  constexpr int kStride = 24;
  constexpr int kCoverageStride = 21;
  constexpr int kHeight = 3;
  constexpr std::uint32_t kColor = 0x00E07F01;
  std::mt19937 random(1);
  for (int width = 0; width <= 20; ++width) {
    std::vector<std::uint32_t> pixels(kStride * kHeight);
    for (std::uint32_t& pixel : pixels) pixel = random() & 0xFFFFFF;
    std::vector<std::uint8_t> coverage(kCoverageStride * kHeight);
    for (std::uint8_t& one : coverage) {
      const bool is_plain = random() % 2 == 0;
      one = static_cast<std::uint8_t>(is_plain ? random() % 2 * 255 : random());
    }
    std::vector<std::uint32_t> expected = pixels;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < width; ++x) {
        std::uint32_t& pixel = expected[static_cast<std::size_t>(y * kStride + x + 2)];
        pixel = BlendedPixel(pixel, kColor, coverage[static_cast<std::size_t>(y * kCoverageStride + x)]);
      }
    }
    BlendArea(pixels.data() + 2, kStride, coverage.data(), kCoverageStride, {width, kHeight}, kColor);
    EXPECT_EQ(pixels, expected) << "width " << width;
  }
}

}  // namespace
}  // namespace levelwidgets::memory
