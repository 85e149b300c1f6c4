#include <levelwidgets/platform/memory/memory_screen.h>

#include <algorithm>

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

}  // namespace

Picture ComposeScreen(WindowTree& tree, ColorRef background, PixelRect area) {
  Picture picture;
  picture.size = {std::max(0, area.width()), std::max(0, area.height())};
  picture.pixels.resize(static_cast<std::size_t>(picture.size.width) *
                        static_cast<std::size_t>(picture.size.height));
  const PixelPoint origin{area.left, area.top};
  const PixelRect on_screen = Intersect(area, tree.Desktop().rect);
  if (on_screen.empty()) return picture;
  FillBackground(picture, on_screen.Offset(-origin.x, -origin.y), background);
  const std::vector<Window*>& front_to_back = tree.Desktop().children;
  for (auto at = front_to_back.rbegin(); at != front_to_back.rend(); ++at) {
    const Window* window = *at;
    if (!window->store) continue;
    const PixelSize size = window->store->size;
    const PixelRect place =
        PixelRect{0, 0, size.width, size.height}.Offset(window->rect.left, window->rect.top);
    const PixelRect part = Intersect(place, on_screen);
    if (!part.empty()) CopyStore(picture, origin, *window->store, place, part);
  }
  return picture;
}

}  // namespace levelwidgets::memory
