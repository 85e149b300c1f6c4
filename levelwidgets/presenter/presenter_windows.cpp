// The desktop's windows as native ones.
#include <SDL.h>

#include <algorithm>
#include <ranges>

#include <levelwidgets/presenter/native_text.h>
#include <levelwidgets/presenter/presenter.h>

namespace levelwidgets::presenter {

namespace {

std::uint32_t StateOf(const memory::Window& window) { return window.style & (kWsMinimize | kWsMaximize); }

bool HasCaption(const memory::Window& window) { return window.Has(kWsCaption); }

WindowKind KindOf(const memory::Window& window) {
  if (!HasCaption(window)) return WindowKind::kPopup;
  return window.Has(kWsThickFrame) ? WindowKind::kForm : WindowKind::kFixedForm;
}

// What of a window is shown, on the desktop: not the frame with a caption, which is the native one.
PixelRect ShownPart(const memory::Window& window) {
  if (!HasCaption(window)) return window.rect;
  const PixelPoint corner = memory::WindowTree::ClientOrigin(window);
  const PixelSize size = memory::WindowTree::ClientSize(window);
  return PixelRect{0, 0, size.width, size.height}.Offset(corner.x, corner.y);
}

}  // namespace

Presenter::Shown* Presenter::Find(WindowHandle window) {
  const auto found = std::ranges::find(shown_, window, &Shown::window);
  return found == shown_.end() ? nullptr : &*found;
}

Presenter::Shown* Presenter::FindNative(std::uint32_t id) {
  const auto found = std::ranges::find_if(shown_, [id](const Shown& s) { return s.native->Id() == id; });
  return found == shown_.end() ? nullptr : &*found;
}

std::uint32_t Presenter::NativeIdOf(WindowHandle window) const {
  const auto found = std::ranges::find(shown_, window, &Shown::window);
  return found == shown_.end() ? 0 : found->native->Id();
}

void Presenter::Sync() {
  std::vector<Shown> vanished;
  std::erase_if(shown_, [&](Shown& shown) {
    const memory::Window* window = desktop_.Windows().Tree().Find(shown.window);
    if (window && window->Shown() && KindOf(*window) == shown.native->Kind()) return false;
    vanished.push_back(std::move(shown));
    return true;
  });
  // From behind to the front, so that new ones end up in their order.
  const std::list<memory::Window*> windows = desktop_.Windows().Tree().Desktop().children;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    if ((*window)->Shown() && (*window)->store) SyncWindow(**window, vanished);
  }
  // A window of ours that goes takes the keyboard along; that is no turn to another program.
  for (const Shown& gone : vanished) {
    if (gone.native->Id() == focus_) focus_ = native_focus_ = 0;
  }
  vanished.clear();
  SyncActivation();
  SyncClipboard();
  selection_.Offer();
  pointer_.Show(desktop_.PointerShape());
}

void Presenter::SyncWindow(memory::Window& window, std::vector<Shown>& vanished) {
  Shown* shown = Find(window.handle);
  if (!shown) shown = &Appear(window, vanished);
  Follow(*shown, window);
  const PixelRect in_store = Intersect(shown->part.Offset(-window.rect.left, -window.rect.top),
                                       {0, 0, window.store->size.width, window.store->size.height});
  if (!in_store.empty()) shown->native->Show(*window.store, in_store);
}

// A form that comes in the same moment as another one goes takes over its native window: it stays where it is
// among the others, without a flicker.
Presenter::Shown& Presenter::Appear(memory::Window& window, std::vector<Shown>& vanished) {
  const WindowKind kind = KindOf(window);
  const auto heir = std::ranges::find_if(
      vanished, [&](const Shown& s) { return s.native->Kind() == kind && kind != WindowKind::kPopup; });
  if (heir != vanished.end()) {
    shown_.push_back(std::move(*heir));
    vanished.erase(heir);
    shown_.back().window = window.handle;
    return shown_.back();
  }
  Shown shown;
  shown.window = window.handle;
  shown.title = window.title;
  shown.part = ShownPart(window);
  const Scale& scale = display_.GetScale();
  shown.native_size = scale.ToNative(PixelSize{shown.part.width(), shown.part.height()});
  shown.native = std::make_unique<NativeWindow>(
      kind, shown.title, scale.ToNative(PixelPoint{shown.part.left, shown.part.top}), shown.native_size);
  shown_.push_back(std::move(shown));
  return shown_.back();
}

void Presenter::Follow(Shown& shown, const memory::Window& window) {
  const Scale& scale = display_.GetScale();
  const PixelRect part = ShownPart(window);
  if (shown.title != window.title) {
    shown.title = window.title;
    shown.native->SetTitle(shown.title);
  }
  if (StateOf(window) != shown.state) FollowState(shown, StateOf(window));
  // The system decides where such a window is, and the desktop follows.
  if (shown.state != 0) return;
  if (part.width() != shown.part.width() || part.height() != shown.part.height()) {
    shown.native_size = scale.ToNative(PixelSize{part.width(), part.height()});
    shown.native->SetSize(shown.native_size);
  }
  if (part.left != shown.part.left || part.top != shown.part.top) {
    shown.native->MoveTo(scale.ToNative(PixelPoint{part.left, part.top}));
  }
  shown.part = part;
}

// The program has minimised, maximised or restored a form.
void Presenter::FollowState(Shown& shown, std::uint32_t state) {
  shown.state = state;
  if (state == kWsMinimize) return shown.native->Minimize();
  if (state == kWsMaximize) return shown.native->Maximize();
  shown.native->Restore();
}

// A form that has come to the front has left those behind that stand above all.
void Presenter::RaisePopups() {
  const std::list<memory::Window*>& windows = desktop_.Windows().Tree().Desktop().children;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    Shown* shown = Find((*window)->handle);
    if (shown && shown->native->Kind() == WindowKind::kPopup) shown->native->Raise();
  }
}

// A form that the program has made active comes to the front; popups need no keyboard of their own.
void Presenter::SyncActivation() {
  const WindowHandle active = desktop_.Windows().GetActiveWindow();
  if (active == active_) return;
  active_ = active;
  const Shown* shown = Find(active);
  if (!left_ && shown && shown->native->Kind() != WindowKind::kPopup && shown->native->Id() != focus_) {
    shown->native->Raise();
    RaisePopups();
  }
}

void Presenter::SyncClipboard() {
  if (desktop_.Clipboard() == clipboard_) return;
  clipboard_ = desktop_.Clipboard();
  SDL_SetClipboardText(ToNativeLines(clipboard_).c_str());
}

}  // namespace levelwidgets::presenter
