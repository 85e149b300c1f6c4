// The windows of the desktop in memory: who is inside whom, in which order, and which part of each can be
// seen. Knows neither messages nor input.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/platform/memory/region.h>
#include <levelwidgets/platform/memory/sibling_grid.h>
#include <levelwidgets/platform/memory/target.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::memory {

class WindowTree;

// Widths of what surrounds a window's client area.
struct FrameWidths {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool None() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
  friend bool operator==(const FrameWidths&, const FrameWidths&) = default;
};

// What BeginPaint leaves of a window, until EndPaint.
struct PaintLimit {
  Region area;  // client pixels
  Region clip;  // what can be seen of it, store pixels
};

struct Window final : TargetSource {
  explicit Window(WindowTree& owner_tree) : tree(&owner_tree) {}
  const DrawingTarget& Target() override;

  bool Has(std::uint32_t bits) const { return (style & bits) == bits; }
  bool Shown() const { return Has(kWsVisible); }  // itself, whatever its ancestors are
  bool Disabled() const { return Has(kWsDisabled); }
  bool TopMost() const { return (ex_style & kWsExTopMost) != 0; }

  WindowTree* tree;
  WindowHandle handle;
  Window* parent = nullptr;  // the desktop for a top-level window
  Window* owner = nullptr;   // only of a top-level window
  // Front to back. A list, because a form may have very many, each of which is put in front of the others.
  std::list<Window*> children;
  std::list<Window*>::iterator place;  // in the parent's children

  PixelRect rect;  // outer rectangle in the parent's client pixels
  FrameWidths frame;
  std::uint32_t style = 0;
  std::uint32_t ex_style = 0;
  std::string title;  // UTF-8

  WindowClient* client = nullptr;
  WindowProc proc = nullptr;                 // replaces `client` when set
  std::unique_ptr<WindowClient> class_part;  // `client` of a window of a built-in class
  int pointer_shape = kIdcArrow;             // of its class
  std::intptr_t user_data = 0;
  DcHandle dc;

  // Of a minimised or maximised window: where it is otherwise, and whether that is maximised, too.
  std::optional<PixelRect> restored;
  bool maximized_before = false;

  Region invalid;  // client pixels
  std::unique_ptr<PaintLimit> paint_limit;
  bool frame_invalid = false;
  bool queued_for_paint = false;
  int unanswered_paints = 0;       // since BeginPaint was called
  std::uint64_t painted_turn = 0;  // in which it was painted last
  bool destroying = false;
  std::uint32_t number = 0;       // by NumberAll
  bool needs_first_size = false;  // kWmSize and kWmMove when it is first shown

  // Kept until the tree changes: what can be seen of the client area, in pixels of the top-level window's
  // store, and what may be drawn.
  Region visible;
  std::uint64_t seen_at = 0;
  DrawingTarget target;
  std::uint64_t target_at = 0;

  // Of a window with children: how they lie over each other, as far as it has been asked.
  ChildrenSeen children_seen;
  std::uint32_t number_among_siblings = 0;  // in the grid of the parent's children

  // Of a top-level window: its pixels, while it is shown, and the time of its tree's last change.
  std::unique_ptr<PixelStore> store;
  std::uint64_t changed_at = 0;
};

class WindowTree {
 public:
  explicit WindowTree(PixelSize screen);
  WindowTree(const WindowTree&) = delete;
  WindowTree& operator=(const WindowTree&) = delete;

  // --- Life ----------------------------------------------------------------------------------

  // Null for a window that does not exist (any more).
  Window* Find(WindowHandle handle);
  // A hidden window behind its siblings, or in front of them for a top-level one.
  Window& Create(Window& parent);
  // Frees `window` and everything inside it.
  void Remove(Window& window);
  std::size_t Count() const { return count_; }

  // --- Structure -----------------------------------------------------------------------------

  Window& Desktop() { return desktop_; }
  bool IsTopLevel(const Window& window) const { return window.parent == &desktop_; }
  Window& Root(Window& window);
  // Whether `window` is `ancestor` or inside it.
  static bool IsInside(const Window& window, const Window& ancestor);
  // Shown itself and with all its ancestors.
  static bool IsVisible(const Window& window);
  // Itself and all its ancestors.
  static bool IsEnabled(const Window& window);

  void Reparent(Window& window, Window& parent);
  // In front of all siblings or behind them, within the band of top-most or other top-level windows.
  void PutInFront(Window& window);
  void PutBehind(Window& window);
  // Directly behind `sibling`, unless the bands forbid it.
  void PutAfter(Window& window, Window& sibling);

  // --- Geometry ------------------------------------------------------------------------------

  static PixelSize ClientSize(const Window& window);
  // The client area's corner in screen pixels.
  static PixelPoint ClientOrigin(const Window& window);
  static PixelRect OuterRect(const Window& window);  // screen pixels
  // The client area's corner in the store of the top-level window.
  PixelPoint StoreOrigin(Window& window);

  // --- What can be seen ----------------------------------------------------------------------

  // A number that every change of the order raises.
  std::uint64_t OrderChanges() const { return order_changes_; }
  // Gives every window its `number`: from the outside to the inside and from the front to the back.
  void NumberAll();
  // To be called after every change of place, order, style, visibility or frame: forgets what was known of
  // the whole top-level window's tree, and fits its store.
  void Changed(Window& window);
  // Only `area`, in client pixels, may be drawn until the limit is taken off.
  static void LimitPaint(Window& window, Region area);
  static void UnlimitPaint(Window& window);
  // What can be seen of the client area and, between BeginPaint and EndPaint, is to be painted. In store
  // pixels; kept.
  const Region& Clip(Window& window);
  // What can be seen of `part`, in client pixels. Kept only when that is all of the client area, so that it
  // is quick for a small part of a large window.
  Region VisibleWithin(Window& window, const PixelRect& part);
  // Whether any of `area`, in client pixels, can be seen.
  bool CanSeeAny(Window& window, const Region& area);
  // Of the outer rectangle, in store pixels: without the siblings in front, whether or not the style
  // lets them clip.
  Region VisibleOuter(Window& window);
  const DrawingTarget& Target(Window& window);
  // How many siblings have been looked at so far to answer all this; for tests of the cost.
  std::uint64_t SiblingsLookedAt() const { return siblings_looked_at_; }

 private:
  struct Slot {
    std::unique_ptr<Window> window;
    std::uint32_t generation = 1;
  };

  using Siblings = std::list<Window*>;
  // Out of its parent's children into a list of its own, with which it can be put back.
  Siblings Unlink(Window& window);
  void Insert(Siblings& window, Siblings& siblings, Siblings::iterator position);
  // Among the children of the window's parent, which need not hold the window.
  Siblings::iterator EndOfTopMost();
  Siblings::iterator FirstOfBand(const Window& window);
  Siblings::iterator EndOfBand(const Window& window);
  void FitStore(Window& root);
  bool VisibleIsKnown(Window& window);
  bool KnowsVisibleFor(Window& window, const PixelRect& part);
  void RefreshVisible(Window& window);
  void RefreshTarget(Window& window);
  Region ComputeVisible(Window& window, const PixelRect& part);
  Region Uncovered(Window& window, const PixelRect& part, bool by_style);
  void SubtractSiblingsAbove(Window& window, Region& region);
  // Puts those of the siblings in front of `window` that touch `bounds`, in the parent's client pixels, into
  // holes_. False when one of them covers all of it.
  bool FindHoles(Window& window, const PixelRect& bounds);
  bool FindHolesOneByOne(Window& window, const PixelRect& bounds);
  void SubtractChildren(Window& window, Region& region);

  Window desktop_;
  std::vector<Slot> slots_;
  std::vector<std::uint32_t> free_slots_;
  std::size_t count_ = 0;
  std::uint64_t changes_ = 0;
  std::uint64_t siblings_looked_at_ = 0;
  std::uint64_t order_changes_ = 0;
  std::uint64_t numbered_at_ = 0;
  std::vector<PixelRect> holes_;  // kept for its memory
};

}  // namespace levelwidgets::memory
