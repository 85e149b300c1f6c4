#include <levelwidgets/platform/memory/memory_screen.h>

#include <algorithm>
#include <cstdint>

#include <levelwidgets/platform/memory/window_tree.h>

namespace levelwidgets::memory {

namespace {

std::uint32_t* PixelOf(Picture& picture, int x, int y) {
  return picture.pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) +
         static_cast<std::size_t>(x);
}

void FillBackground(Picture& picture, const PixelRect& part, ColorRef color) {
  for (int y = part.top; y < part.bottom; ++y) {
    std::fill_n(PixelOf(picture, part.left, y), std::max(0, part.width()), color.value);
  }
}

// `place` is the store's rectangle on the screen, `part` the wanted part of the screen.
void CopyStore(Picture& picture, PixelPoint origin, PixelStore& store, const PixelRect& place,
               const PixelRect& part) {
  for (int y = part.top; y < part.bottom; ++y) {
    const std::uint32_t* source = store.Row(y - place.top) + (part.left - place.left);
    std::copy_n(source, part.width(), PixelOf(picture, part.left - origin.x, y - origin.y));
  }
}

void ComposeMonitor(WindowTree& tree, ColorRef background, const PixelRect& area, const PixelRect& monitor,
                    Picture& picture) {
  const PixelPoint origin{area.left, area.top};
  const PixelRect on_monitor = Intersect(area, monitor);
  if (on_monitor.empty()) return;
  FillBackground(picture, on_monitor.Offset(-origin.x, -origin.y), background);
  const auto& front_to_back = tree.Desktop().children;
  for (auto at = front_to_back.rbegin(); at != front_to_back.rend(); ++at) {
    const Window* window = *at;
    if (!window->store) continue;
    const PixelSize size = window->store->size;
    const PixelRect place =
        PixelRect{0, 0, size.width, size.height}.Offset(window->rect.left, window->rect.top);
    const PixelRect part = Intersect(place, on_monitor);
    if (!part.empty()) CopyStore(picture, origin, *window->store, place, part);
  }
}

// How far `point` is from the nearest pixel of `rect`, squared.
std::int64_t Distance(const PixelRect& rect, PixelPoint point) {
  const std::int64_t x = std::max({rect.left - point.x, point.x - (rect.right - 1), 0});
  const std::int64_t y = std::max({rect.top - point.y, point.y - (rect.bottom - 1), 0});
  return x * x + y * y;
}

std::int64_t CommonPixels(const PixelRect& a, const PixelRect& b) {
  const PixelRect common = Intersect(a, b);
  return common.empty() ? 0 : std::int64_t{common.width()} * common.height();
}

}  // namespace

bool MemoryScreen::Contains(PixelPoint point) const {
  return std::ranges::any_of(monitors_, [point](const PixelRect& area) { return area.Contains(point); });
}

const PixelRect& MemoryScreen::AreaNear(PixelPoint point) const {
  return *std::ranges::min_element(monitors_, {},
                                   [point](const PixelRect& area) { return Distance(area, point); });
}

const PixelRect& MemoryScreen::AreaOf(const PixelRect& rect) const {
  const auto common = [&rect](const PixelRect& area) { return CommonPixels(area, rect); };
  const auto most = std::ranges::max_element(monitors_, {}, common);
  if (common(*most) > 0) return *most;
  return AreaNear({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
}

std::vector<Monitor> MemoryScreen::Monitors() {
  std::vector<Monitor> monitors;
  for (const PixelRect& area : monitors_) monitors.push_back({area, area});
  return monitors;
}

Picture ComposeScreen(WindowTree& tree, const MemoryScreen& screen, ColorRef background, PixelRect area) {
  Picture picture;
  picture.size = {std::max(0, area.width()), std::max(0, area.height())};
  picture.pixels.resize(static_cast<std::size_t>(picture.size.width) *
                        static_cast<std::size_t>(picture.size.height));
  for (const PixelRect& monitor : screen.Areas()) ComposeMonitor(tree, background, area, monitor, picture);
  return picture;
}

}  // namespace levelwidgets::memory
