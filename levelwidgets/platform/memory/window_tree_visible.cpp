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

void WindowTree::LimitPaint(Window& window, Region area) {
  window.paint_limit = std::make_unique<PaintLimit>(PaintLimit{std::move(area), {}});
  window.target_at = 0;
}

void WindowTree::UnlimitPaint(Window& window) {
  window.paint_limit.reset();
  window.target_at = 0;
}

const Region& WindowTree::Clip(Window& window) {
  RefreshTarget(window);
  return window.paint_limit ? window.paint_limit->clip : window.visible;
}

const DrawingTarget& WindowTree::Target(Window& window) {
  RefreshTarget(window);
  return window.target;
}

bool WindowTree::VisibleIsKnown(Window& window) {
  const Window& root = Root(window);
  return window.seen_at == root.changed_at && root.changed_at != 0;
}

void WindowTree::RefreshVisible(Window& window) {
  if (VisibleIsKnown(window)) return;
  window.seen_at = Root(window).changed_at;
  window.visible = ComputeVisible(window, AreaOf(ClientSize(window)));
}

void WindowTree::RefreshTarget(Window& window) {
  Window& root = Root(window);
  if (window.target_at == root.changed_at && root.changed_at != 0) return;
  window.target_at = root.changed_at;
  const PixelPoint origin = StoreOrigin(window);
  if (PaintLimit* limit = window.paint_limit.get()) {
    limit->clip = VisibleWithin(window, limit->area.Bounds());
    limit->clip.ClipTo(limit->area);
    limit->clip.Offset(origin.x, origin.y);
  } else {
    RefreshVisible(window);
  }
  const Region& clip = window.paint_limit ? window.paint_limit->clip : window.visible;
  window.target = {clip.Empty() ? nullptr : root.store.get(), origin, clip.Rects()};
}

// Whether all that can be seen of the window is known. Asking for all of it makes it known.
bool WindowTree::KnowsVisibleFor(Window& window, const PixelRect& part) {
  const PixelRect client = AreaOf(ClientSize(window));
  if (Intersect(part, client) == client) RefreshVisible(window);
  return VisibleIsKnown(window);
}

Region WindowTree::VisibleWithin(Window& window, const PixelRect& part) {
  const PixelPoint origin = StoreOrigin(window);
  const PixelRect area = Intersect(part, AreaOf(ClientSize(window)));
  Region region;
  if (KnowsVisibleFor(window, area)) {
    region = window.visible;
    region.ClipTo(area.Offset(origin.x, origin.y));
  } else {
    region = ComputeVisible(window, area);
  }
  region.Offset(-origin.x, -origin.y);
  return region;
}

bool WindowTree::CanSeeAny(Window& window, const Region& area) {
  if (area.Empty()) return false;
  const PixelRect bounds = area.Bounds();
  if (KnowsVisibleFor(window, bounds)) return window.visible.Meets(area, StoreOrigin(window));
  return VisibleWithin(window, bounds).Meets(area);
}

// Of `part` of the client area, in store pixels.
Region WindowTree::ComputeVisible(Window& window, const PixelRect& part) {
  const PixelPoint origin = StoreOrigin(window);
  Region region = Uncovered(window, part.Offset(origin.x, origin.y), true);
  if (window.Has(kWsClipChildren)) SubtractChildren(window, region);
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
  const PixelRect bounds = region.Bounds().Offset(-origin.x, -origin.y);
  if (!FindHoles(window, bounds)) {
    region.Clear();
    return;
  }
  for (PixelRect& hole : holes_) hole = hole.Offset(origin.x, origin.y);
  region.Subtract(holes_);
}

// Siblings are looked at one by one until that has cost as much as putting all of them into a grid.
bool WindowTree::FindHoles(Window& window, const PixelRect& bounds) {
  Window& parent = *window.parent;
  ChildrenSeen& seen = parent.children_seen;
  const std::uint64_t changed_at = Root(parent).changed_at;
  if (seen.at != changed_at) seen = {.at = changed_at, .looked_at = 0, .grid = nullptr};
  holes_.clear();
  if (!seen.grid) {
    constexpr std::size_t kFew = 64;
    if (seen.looked_at <= kFew + parent.children.size()) return FindHolesOneByOne(window, bounds);
    seen.grid = std::make_unique<SiblingGrid>(parent.children, ClientSize(parent));
    siblings_looked_at_ += parent.children.size();
  }
  return seen.grid->FindInFront(window, bounds, holes_, siblings_looked_at_);
}

bool WindowTree::FindHolesOneByOne(Window& window, const PixelRect& bounds) {
  Window& parent = *window.parent;
  for (const Window* sibling : parent.children) {
    if (sibling == &window) break;
    ++parent.children_seen.looked_at;
    ++siblings_looked_at_;
    if (!sibling->Shown() || Intersect(sibling->rect, bounds).empty()) continue;
    if (Contains(sibling->rect, bounds)) return false;
    holes_.push_back(sibling->rect);
  }
  return true;
}

void WindowTree::SubtractChildren(Window& window, Region& region) {
  const PixelPoint origin = StoreOrigin(window);
  const PixelRect bounds = region.Bounds().Offset(-origin.x, -origin.y);
  holes_.clear();
  for (const Window* child : window.children) {
    if (!child->Shown() || Intersect(child->rect, bounds).empty()) continue;
    holes_.push_back(child->rect.Offset(origin.x, origin.y));
  }
  region.Subtract(holes_);
}

}  // namespace levelwidgets::memory
