// A window's surface for tests of drawing, without a window.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <levelwidgets/platform/memory/memory_drawing.h>

namespace levelwidgets::memory {

inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kRed = 0x0000FF;
inline constexpr std::uint32_t kGreen = 0x00FF00;
inline constexpr std::uint32_t kBlue = 0xFF0000;

// White at first; all of it can be seen.
class Canvas : public TargetSource {
 public:
  Canvas(int width, int height)
      : store{{width, height}, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), kWhite)} {
    Clip({{0, 0, width, height}});
  }

  const DrawingTarget& Target() override { return target_; }

  void Clip(std::vector<PixelRect> rects) {
    clip_ = std::move(rects);
    target_ = {&store, target_.origin, clip_};
  }
  void SetOrigin(PixelPoint origin) { target_.origin = origin; }
  void Hide() { target_.store = nullptr; }

  // A row per line: "." white, "#" black, r, g, b the pure colours, "?" any other.
  std::vector<std::string> Rows() {
    static const std::map<std::uint32_t, char> kNames = {
        {kWhite, '.'}, {0, '#'}, {kRed, 'r'}, {kGreen, 'g'}, {kBlue, 'b'}};
    std::vector<std::string> rows;
    for (int y = 0; y < store.size.height; ++y) {
      std::string& row = rows.emplace_back();
      for (int x = 0; x < store.size.width; ++x) {
        const auto name = kNames.find(store.Row(y)[x]);
        row.push_back(name == kNames.end() ? '?' : name->second);
      }
    }
    return rows;
  }

  // The smallest rectangle around all that is not white.
  PixelRect Ink() {
    PixelRect ink{store.size.width, store.size.height, 0, 0};
    for (int y = 0; y < store.size.height; ++y) {
      for (int x = 0; x < store.size.width; ++x) {
        if (store.Row(y)[x] == kWhite) continue;
        ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
               std::max(ink.bottom, y + 1)};
      }
    }
    return ink;
  }

  PixelStore store;

 private:
  std::vector<PixelRect> clip_;
  DrawingTarget target_;
};

// Text in the built-in face: every character 6 pixels wide at 10 pixels' height, 5 by 7 dots.
inline DrawingOptions WithoutFonts() {
  DrawingOptions options;
  options.fonts = {{}, false};
  return options;
}

inline FontRequest RequestOf(const std::string& face, int height, int weight = kFontWeightNormal) {
  FontRequest request;
  request.face_name = face;
  request.height = height;
  request.weight = weight;
  return request;
}

}  // namespace levelwidgets::memory
