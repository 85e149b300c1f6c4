#include <levelwidgets/presenter/shown_pixels.h>

#include <algorithm>

namespace levelwidgets::presenter {

std::vector<PixelRect> ShownPixels::Update(memory::PixelStore& store, const PixelRect& part) {
  const PixelSize size{part.width(), part.height()};
  const bool all = size != size_;
  if (all) {
    size_ = size;
    pixels_.assign(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), 0);
  }
  std::vector<PixelRect> changes;
  PixelRect changed;  // of the rows just before
  for (int y = 0; y < size.height; ++y) {
    if (UpdateRow(y, store.Row(part.top + y) + part.left, changed)) continue;
    if (!changed.empty()) changes.push_back(changed);
    changed = {};
  }
  if (!changed.empty()) changes.push_back(changed);
  if (all && !pixels_.empty()) return {{0, 0, size.width, size.height}};
  return changes;
}

// Adds what is different in the row to `changed`; false when nothing is.
bool ShownPixels::UpdateRow(int y, const std::uint32_t* row, PixelRect& changed) {
  std::uint32_t* shown = pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
  const auto first = std::mismatch(row, row + size_.width, shown).first;
  if (first == row + size_.width) return false;
  const std::uint32_t* last = row + size_.width;
  while (last[-1] == shown[last - row - 1]) --last;
  std::copy(first, last, shown + (first - row));
  const int left = static_cast<int>(first - row);
  const int right = static_cast<int>(last - row);
  if (changed.empty()) {
    changed = {left, y, right, y + 1};
  } else {
    changed = {std::min(changed.left, left), changed.top, std::max(changed.right, right), y + 1};
  }
  return true;
}

void WritePixels(const std::uint32_t* pixels, int count, const PixelShifts& shifts, std::uint32_t* to) {
  for (int i = 0; i < count; ++i) {
    const ColorRef color{pixels[i]};
    to[i] = static_cast<std::uint32_t>(color.red()) << shifts.red |
            static_cast<std::uint32_t>(color.green()) << shifts.green |
            static_cast<std::uint32_t>(color.blue()) << shifts.blue;
  }
}

}  // namespace levelwidgets::presenter
