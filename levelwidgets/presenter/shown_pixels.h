// The pixels of a window that are on the screen already, so that only changes are sent there.
#pragma once

#include <cstdint>
#include <vector>

#include <levelwidgets/platform/memory/target.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets::presenter {

class ShownPixels {
 public:
  // Takes over `part` of `store` (all of it is inside). Returns what has changed since the last time,
  // relative to the part: rows that follow each other are one rectangle, as wide as their changes. Everything
  // when the size has changed, or after Forget.
  std::vector<PixelRect> Update(memory::PixelStore& store, const PixelRect& part);
  // What was on the screen is lost.
  void Forget() { size_ = {}; }

  PixelSize Size() const { return size_; }
  const std::uint32_t* Row(int y) const {
    return pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
  }

 private:
  bool UpdateRow(int y, const std::uint32_t* row, PixelRect& changed);

  PixelSize size_;
  std::vector<std::uint32_t> pixels_;
};

// Where the native format of a pixel has its colours.
struct PixelShifts {
  int red = 16;
  int green = 8;
  int blue = 0;
};

// Writes `count` pixels (0x00BBGGRR) in the native format.
void WritePixels(const std::uint32_t* pixels, int count, const PixelShifts& shifts, std::uint32_t* to);

}  // namespace levelwidgets::presenter
