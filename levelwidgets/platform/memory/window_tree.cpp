#include <levelwidgets/platform/memory/window_tree.h>

#include <algorithm>

namespace levelwidgets::memory {

namespace {

// A handle is a generation (never 0 and never all ones, which keeps clear of the special values of
// SetWindowPos) above the number of a slot.
constexpr std::uint32_t kSlotBits = 20;
constexpr std::uint32_t kSlotMask = (1u << kSlotBits) - 1;
constexpr std::uint32_t kLastGeneration = (1u << (32 - kSlotBits)) - 2;

}  // namespace

const DrawingTarget& Window::Target() { return tree->Target(*this); }

WindowTree::WindowTree(PixelSize screen) : desktop_(*this) {
  desktop_.rect = {0, 0, screen.width, screen.height};
  desktop_.style = kWsVisible;
}

// --- Life ------------------------------------------------------------------------------------

Window* WindowTree::Find(WindowHandle handle) {
  const std::uint32_t slot = handle.value & kSlotMask;
  if (slot >= slots_.size() || slots_[slot].generation != handle.value >> kSlotBits) return nullptr;
  return slots_[slot].window.get();
}

Window& WindowTree::Create(Window& parent) {
  if (free_slots_.empty()) {
    free_slots_.push_back(static_cast<std::uint32_t>(slots_.size()));
    slots_.emplace_back();
  }
  const std::uint32_t slot = free_slots_.back();
  auto window = std::make_unique<Window>(*this);
  window->handle = {slots_[slot].generation << kSlotBits | slot};
  window->parent = &parent;
  Siblings linked{window.get()};
  Insert(linked, parent.children, &parent == &desktop_ ? FirstOfBand(*window) : parent.children.end());
  free_slots_.pop_back();
  ++count_;
  slots_[slot].window = std::move(window);
  return *slots_[slot].window;
}

void WindowTree::Remove(Window& window) {
  while (!window.children.empty()) Remove(*window.children.back());
  for (Window* other : desktop_.children) {
    if (other->owner == &window) other->owner = nullptr;
  }
  Window& root = Root(window);
  Unlink(window);
  if (&root != &window) Changed(root);
  const std::uint32_t index = window.handle.value & kSlotMask;
  Slot& slot = slots_[index];
  slot.generation = slot.generation == kLastGeneration ? 1 : slot.generation + 1;
  slot.window.reset();
  free_slots_.push_back(index);
  --count_;
}

// --- Structure -------------------------------------------------------------------------------

Window& WindowTree::Root(Window& window) {
  Window* root = &window;
  while (root->parent && root->parent != &desktop_) root = root->parent;
  return *root;
}

bool WindowTree::IsInside(const Window& window, const Window& ancestor) {
  const Window* at = &window;
  while (at && at != &ancestor) at = at->parent;
  return at != nullptr;
}

void WindowTree::NumberAll() {
  if (numbered_at_ == order_changes_) return;
  numbered_at_ = order_changes_;
  std::uint32_t last = 0;
  std::vector<Window*> waiting{&desktop_};
  while (!waiting.empty()) {
    Window* window = waiting.back();
    waiting.pop_back();
    window->number = last++;
    waiting.insert(waiting.end(), window->children.rbegin(), window->children.rend());
  }
}

bool WindowTree::IsVisible(const Window& window) {
  const Window* at = &window;
  while (at && at->Shown()) at = at->parent;
  return at == nullptr;
}

bool WindowTree::IsEnabled(const Window& window) {
  const Window* at = &window;
  while (at && !at->Disabled()) at = at->parent;
  return at == nullptr;
}

void WindowTree::Reparent(Window& window, Window& parent) {
  Window& old_root = Root(window);
  Siblings unlinked = Unlink(window);
  if (&old_root != &window) Changed(old_root);
  window.parent = &parent;
  window.owner = nullptr;
  window.store.reset();
  Insert(unlinked, parent.children, FirstOfBand(window));
  Changed(window);
}

WindowTree::Siblings WindowTree::Unlink(Window& window) {
  ++order_changes_;
  Siblings unlinked;
  unlinked.splice(unlinked.begin(), window.parent->children, window.place);
  return unlinked;
}

void WindowTree::Insert(Siblings& window, Siblings& siblings, Siblings::iterator position) {
  ++order_changes_;
  window.front()->place = window.begin();
  siblings.splice(position, window);
}

WindowTree::Siblings::iterator WindowTree::EndOfTopMost() {
  return std::ranges::find_if(desktop_.children, [](const Window* w) { return !w->TopMost(); });
}

WindowTree::Siblings::iterator WindowTree::FirstOfBand(const Window& window) {
  return IsTopLevel(window) && !window.TopMost() ? EndOfTopMost() : window.parent->children.begin();
}

WindowTree::Siblings::iterator WindowTree::EndOfBand(const Window& window) {
  return IsTopLevel(window) && window.TopMost() ? EndOfTopMost() : window.parent->children.end();
}

void WindowTree::PutInFront(Window& window) {
  Siblings unlinked = Unlink(window);
  Insert(unlinked, window.parent->children, FirstOfBand(window));
}

void WindowTree::PutBehind(Window& window) {
  Siblings unlinked = Unlink(window);
  Insert(unlinked, window.parent->children, EndOfBand(window));
}

void WindowTree::PutAfter(Window& window, Window& sibling) {
  Siblings unlinked = Unlink(window);
  Siblings::iterator position = std::next(sibling.place);
  if (IsTopLevel(window) && window.TopMost() != sibling.TopMost()) {
    position = window.TopMost() ? EndOfBand(window) : FirstOfBand(window);
  }
  Insert(unlinked, window.parent->children, position);
}

// --- Geometry --------------------------------------------------------------------------------

PixelSize WindowTree::ClientSize(const Window& window) {
  return {std::max(0, window.rect.width() - window.frame.left - window.frame.right),
          std::max(0, window.rect.height() - window.frame.top - window.frame.bottom)};
}

PixelPoint WindowTree::ClientOrigin(const Window& window) {
  PixelPoint origin;
  for (const Window* at = &window; at; at = at->parent) {
    origin.x += at->rect.left + at->frame.left;
    origin.y += at->rect.top + at->frame.top;
  }
  return origin;
}

PixelRect WindowTree::OuterRect(const Window& window) {
  const PixelPoint parent = window.parent ? ClientOrigin(*window.parent) : PixelPoint{};
  return window.rect.Offset(parent.x, parent.y);
}

PixelPoint WindowTree::StoreOrigin(Window& window) {
  const PixelPoint origin = ClientOrigin(window);
  const Window& root = Root(window);
  return {origin.x - root.rect.left, origin.y - root.rect.top};
}

}  // namespace levelwidgets::memory
