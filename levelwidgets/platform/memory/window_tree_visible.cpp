// What of each window can be seen.
#include <algorithm>

#include <levelwidgets/platform/memory/window_tree.h>

namespace levelwidgets::memory {

namespace {

// Windows larger than this are cut, so that no store needs more memory than there is.
constexpr int kLargestStore = 8192;

PixelRect AreaOf(PixelSize size) { return {0, 0, size.width, size.height}; }

// Keeps the pixels that both sizes have.
std::unique_ptr<PixelStore> Resized(PixelStore* old, PixelSize size) {
  auto store = std::make_unique<PixelStore>();
  store->size = size;
  store->pixels.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
  if (!old) return store;
  const int width = std::min(size.width, old->size.width);
  for (int y = 0; y < std::min(size.height, old->size.height); ++y) {
    std::copy_n(old->Row(y), width, store->Row(y));
  }
  return store;
}

}  // namespace

void WindowTree::Changed(Window& window) {
  Window& root = Root(window);
  root.changed_at = ++changes_;
  FitStore(root);
}

void WindowTree::FitStore(Window& root) {
  const PixelSize size{std::clamp(root.rect.width(), 0, kLargestStore),
                       std::clamp(root.rect.height(), 0, kLargestStore)};
  if (!root.Shown()) {
    root.store.reset();
  } else if (!root.store || root.store->size != size) {
    root.store = Resized(root.store.get(), size);
  }
}

const Region& WindowTree::Clip(Window& window) {
  Refresh(window);
  return window.clip;
}

const DrawingTarget& WindowTree::Target(Window& window) {
  Refresh(window);
  return window.target;
}

void WindowTree::Refresh(Window& window) {
  Window& root = Root(window);
  if (window.seen_at == root.changed_at && root.changed_at != 0) return;
  window.seen_at = root.changed_at;
  const PixelPoint origin = StoreOrigin(window);
  if (window.paint_limit) {
    window.clip = VisibleWithin(window, window.paint_limit->Bounds());
    window.clip.ClipTo(*window.paint_limit);
  } else {
    window.clip = VisibleWithin(window, AreaOf(ClientSize(window)));
  }
  window.clip.Offset(origin.x, origin.y);
  window.target = {window.clip.Empty() ? nullptr : root.store.get(), origin, window.clip.Rects()};
}

Region WindowTree::VisibleWithin(Window& window, const PixelRect& part) {
  const PixelPoint origin = StoreOrigin(window);
  const PixelRect area = Intersect(part, AreaOf(ClientSize(window)));
  Region region = Uncovered(window, area.Offset(origin.x, origin.y), true);
  if (window.Has(kWsClipChildren)) SubtractChildren(window, region);
  region.Offset(-origin.x, -origin.y);
  return region;
}

Region WindowTree::VisibleOuter(Window& window) {
  const PixelPoint origin = StoreOrigin(window);
  const PixelRect outer{0, 0, window.rect.width(), window.rect.height()};
  return Uncovered(window, outer.Offset(origin.x - window.frame.left, origin.y - window.frame.top), false);
}

// `part` of `window`, in store pixels, inside all ancestors and without the siblings in front (with
// `by_style` only where the style has them clip).
Region WindowTree::Uncovered(Window& window, const PixelRect& part, bool by_style) {
  const Window& root = Root(window);
  if (!IsVisible(window) || !root.store) return {};
  PixelRect rect = Intersect(part, AreaOf(root.store->size));
  for (Window* at = &window; at != &root; at = at->parent) {
    const PixelPoint origin = StoreOrigin(*at->parent);
    rect = Intersect(rect, AreaOf(ClientSize(*at->parent)).Offset(origin.x, origin.y));
  }
  Region region(rect);
  for (Window* at = &window; at != &root && !region.Empty(); at = at->parent) {
    if (!by_style || at->Has(kWsClipSiblings)) SubtractSiblingsAbove(*at, region);
  }
  return region;
}

void WindowTree::SubtractSiblingsAbove(Window& window, Region& region) {
  const PixelPoint origin = StoreOrigin(*window.parent);
  const PixelRect bounds = region.Bounds();
  for (const Window* sibling : window.parent->children) {
    if (sibling == &window) return;
    const PixelRect covered = sibling->rect.Offset(origin.x, origin.y);
    if (sibling->Shown() && !Intersect(covered, bounds).empty()) region.Subtract(covered);
  }
}

void WindowTree::SubtractChildren(Window& window, Region& region) {
  const PixelPoint origin = StoreOrigin(window);
  const PixelRect bounds = region.Bounds();
  for (const Window* child : window.children) {
    const PixelRect covered = child->rect.Offset(origin.x, origin.y);
    if (child->Shown() && !Intersect(covered, bounds).empty()) region.Subtract(covered);
  }
}

}  // namespace levelwidgets::memory
