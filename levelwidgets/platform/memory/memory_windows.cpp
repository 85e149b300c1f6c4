// Life, attributes and messages of windows. Every pointer to a Window is looked up again after a
// message was sent: its handler may have destroyed anything.
#include <levelwidgets/platform/memory/memory_windows.h>

#include <algorithm>
#include <cstring>

#include <levelwidgets/platform/finally.h>
#include <levelwidgets/platform/memory/memory_keys.h>
#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::memory {

namespace {

// Names the built-in handling of a window's messages in SetWindowLongA(kGwlWndProc); no function can
// have this address.
constexpr std::intptr_t kBuiltInProc = 0xFFF1;

constexpr int kSmallestWidth = 112;  // at 96 dots per inch

// The lowest four bits of a system command are nobody's business.
constexpr WParam kCommandMask = 0xFFF0;

}  // namespace

MemoryWindows::MemoryWindows(MemoryScreen& screen, MemoryDrawing& drawing, MemoryClock& clock)
    : screen_(screen),
      drawing_(drawing),
      clock_(clock),
      frame_(drawing, screen.DotsPerInch()),
      tree_(screen.Size()) {
  // As small as its caption, and as large as the screen with the frame around it.
  const FrameWidths frame = frame_.Widths(kWsCaption);
  smallest_ = {drawing.MulDiv(kSmallestWidth, screen.DotsPerInch().width, 96), frame.top + frame.bottom};
  largest_ = {screen.Size().width + frame.left + frame.right,
              screen.Size().height + frame.top + frame.bottom};
}

MemoryWindows::~MemoryWindows() = default;

void MemoryWindows::RegisterClass(std::string_view name, ClassFactory factory, int pointer_shape) {
  classes_[text::UpperCase(name)] = {std::move(factory), pointer_shape};
}

// --- Life ------------------------------------------------------------------------------------

WindowHandle MemoryWindows::CreateWindowExA(const WindowRequest& request) {
  Window* parent = tree_.Find(request.parent);
  if (request.parent && (!parent || parent->destroying)) return {};
  const bool child = (request.style & (kWsChild | kWsPopup)) == kWsChild;
  if (child && !parent) return {};

  Window& window = tree_.Create(child ? *parent : tree_.Desktop());
  if (!child && parent) window.owner = &tree_.Root(*parent);
  if (!Prepare(window, request)) {
    tree_.Remove(window);
    return {};
  }
  const WindowHandle handle = window.handle;
  window.needs_first_size = (request.style & (kWsChild | kWsPopup)) == 0;
  if (SendMessageA(handle, kWmCreate, 0, 0) == -1) {
    DestroyWindow(handle);
    return {};
  }
  if (const Window* made = tree_.Find(handle); made && !made->needs_first_size) SendFirstSize(handle);
  if ((request.style & kWsVisible) != 0) ShowWindow(handle, kSwShow);
  return tree_.Find(handle) ? handle : WindowHandle{};
}

// Fills in a window that nobody knows yet. False for an unknown class.
bool MemoryWindows::Prepare(Window& window, const WindowRequest& request) {
  window.client = request.client;
  if (!request.class_name.empty()) {
    const auto known = classes_.find(text::UpperCase(request.class_name));
    if (known == classes_.end()) return false;
    window.class_part = known->second.factory();
    window.pointer_shape = known->second.pointer_shape;
    window.client = window.class_part.get();
  }
  window.title = request.title;
  window.style = CompletedStyle(request.style) & ~kWsVisible;
  window.ex_style = request.ex_style;
  window.rect = Fitting(request.rect, window.style);
  window.frame = frame_.Widths(window.style);
  if (tree_.IsTopLevel(window)) tree_.PutInFront(window);
  tree_.Changed(window);
  return true;
}

void MemoryWindows::SendFirstSize(WindowHandle window) {
  if (const Window* created = tree_.Find(window)) {
    const PixelSize size = WindowTree::ClientSize(*created);
    SendMessageA(window, kWmSize, 0, LParamOfPoint({size.width, size.height}));
  }
  if (const Window* created = tree_.Find(window)) {
    const PixelPoint corner{created->rect.left + created->frame.left, created->rect.top + created->frame.top};
    SendMessageA(window, kWmMove, 0, LParamOfPoint(corner));
  }
}

bool MemoryWindows::DestroyWindow(WindowHandle window) {
  Window* dying = tree_.Find(window);
  if (!dying || dying->destroying) return false;
  dying->destroying = true;
  const Finally free([&] {
    if (Window* left = tree_.Find(window)) Free(*left);
  });
  DestroyOwned(window);
  Retire(window);
  SendDestroy(window);
  return true;
}

void MemoryWindows::DestroyOwned(WindowHandle owner) {
  std::vector<WindowHandle> owned;
  for (const Window* other : tree_.Desktop().children) {
    if (other->owner && other->owner->handle == owner) owned.push_back(other->handle);
  }
  for (const WindowHandle other : owned) DestroyWindow(other);
}

// Takes a window that is about to go off the screen, and focus, activation and capture from it.
void MemoryWindows::Retire(WindowHandle window) {
  Window* dying = tree_.Find(window);
  if (dying && dying->Shown()) {
    if (!tree_.IsTopLevel(*dying)) SendMessageA(window, kWmShowWindow, 0, 0);
    if ((dying = tree_.Find(window))) SetShown(*dying, false, true);
  }
  LeaveHidden(window);
  if ((dying = tree_.Find(window))) LoseCaptureInside(*dying);
}

// To the window, then to its children.
void MemoryWindows::SendDestroy(WindowHandle window) {
  SendMessageA(window, kWmDestroy, 0, 0);
  const Window* dying = tree_.Find(window);
  if (!dying) return;
  std::vector<WindowHandle> children;
  for (Window* child : dying->children) {
    if (child->destroying) continue;
    child->destroying = true;
    children.push_back(child->handle);
  }
  for (const WindowHandle child : children) {
    if (tree_.Find(child)) SendDestroy(child);
  }
}

void MemoryWindows::Free(Window& window) {
  while (!window.children.empty()) Free(*window.children.back());
  if (window.dc) drawing_.DestroyWindowDC(window.dc);
  for (WindowHandle* role : {&focus_, &active_, &capture_}) {
    if (*role == window.handle) *role = {};
  }
  if (window.class_part && messages_in_progress_ > 0) retired_.push_back(std::move(window.class_part));
  tree_.Remove(window);
}

bool MemoryWindows::IsWindow(WindowHandle window) { return tree_.Find(window) != nullptr; }

// --- Attributes ------------------------------------------------------------------------------

std::intptr_t MemoryWindows::GetWindowLongA(WindowHandle window, int index) {
  const Window* found = tree_.Find(window);
  if (!found) return 0;
  switch (index) {
    case kGwlWndProc: return found->proc ? reinterpret_cast<std::intptr_t>(found->proc) : kBuiltInProc;
    case kGwlStyle: return static_cast<std::int32_t>(found->style);
    case kGwlExStyle: return static_cast<std::int32_t>(found->ex_style);
    case kGwlUserData: return found->user_data;
    default: return 0;
  }
}

std::intptr_t MemoryWindows::SetWindowLongA(WindowHandle window, int index, std::intptr_t value) {
  Window* found = tree_.Find(window);
  if (!found) return 0;
  const std::intptr_t former = GetWindowLongA(window, index);
  switch (index) {
    case kGwlWndProc:
      found->proc = value == kBuiltInProc ? nullptr : reinterpret_cast<WindowProc>(value);
      break;
    case kGwlStyle: StoreStyle(*found, static_cast<std::uint32_t>(value)); break;
    case kGwlExStyle:
      // Which band a window is in changes only by SetWindowPos.
      found->ex_style =
          (static_cast<std::uint32_t>(value) & ~kWsExTopMost) | (found->ex_style & kWsExTopMost);
      break;
    case kGwlUserData: found->user_data = value; break;
    default: break;
  }
  return former;
}

bool MemoryWindows::SetWindowTextA(WindowHandle window, std::string_view text) {
  Window* found = tree_.Find(window);
  if (!found) return false;
  if (found->class_part) {
    const std::string bytes = drawing_.ToCodePage(text);
    return SendMessageA(window, kWmSetText, 0, reinterpret_cast<LParam>(bytes.c_str())) != 0;
  }
  found->title = text;
  InvalidateFrame(*found);
  return true;
}

std::string MemoryWindows::GetWindowTextA(WindowHandle window) {
  const Window* found = tree_.Find(window);
  if (!found) return {};
  if (!found->class_part) return found->title;
  const LResult length = SendMessageA(window, kWmGetTextLength, 0, 0);
  std::string bytes(static_cast<std::size_t>(std::max<LResult>(0, length)) + 1, '\0');
  const LResult got = SendMessageA(window, kWmGetText, bytes.size(), reinterpret_cast<LParam>(bytes.data()));
  bytes.resize(static_cast<std::size_t>(std::clamp<LResult>(got, 0, std::ssize(bytes) - 1)));
  return drawing_.FromCodePage(bytes);
}

// --- Messages --------------------------------------------------------------------------------

LResult MemoryWindows::SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam,
                                    LParam lparam) {
  const Window* found = tree_.Find(window);
  if (!found) return 0;
  if (!found->proc) return CallClient(window, message, wparam, lparam);
  ++messages_in_progress_;
  const Finally counted([this] { --messages_in_progress_; });
  return found->proc(*outward_, window, message, wparam, lparam);
}

LResult MemoryWindows::CallClient(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  const Window* found = tree_.Find(window);
  if (!found) return 0;
  if (!found->client) return DefWindowProcA(window, message, wparam, lparam);
  if (messages_in_progress_ == 0) retired_.clear();
  ++messages_in_progress_;
  const Finally counted([this] { --messages_in_progress_; });
  return found->client->OnMessage(window, message, wparam, lparam);
}

bool MemoryWindows::PostMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (!tree_.Find(window)) return false;
  clock_.Post([=, this] { SendMessageA(window, message, wparam, lparam); });
  return true;
}

LResult MemoryWindows::CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message,
                                       WParam wparam, LParam lparam) {
  if (previous == 0 || !tree_.Find(window)) return 0;
  if (previous == kBuiltInProc) return CallClient(window, message, wparam, lparam);
  return reinterpret_cast<WindowProc>(previous)(*outward_, window, message, wparam, lparam);
}

LResult MemoryWindows::ForwardToParent(WindowHandle window, std::uint32_t message, WParam wparam,
                                       LParam lparam, LResult without_parent) {
  const Window* found = tree_.Find(window);
  if (!found || tree_.IsTopLevel(*found)) return without_parent;
  return SendMessageA(found->parent->handle, message, wparam, lparam);
}

// Copies the title as bytes of the code page, at most `room` - 1 of them, and a 0. Returns their number.
LResult MemoryWindows::StoredText(Window& window, WParam room, LParam buffer) {
  const std::string bytes = drawing_.ToCodePage(window.title);
  if (buffer == 0) return std::ssize(bytes);
  if (room == 0) return 0;
  const std::size_t count = std::min<std::size_t>(bytes.size(), room - 1);
  char* to = reinterpret_cast<char*>(buffer);
  std::memcpy(to, bytes.data(), count);
  to[count] = '\0';
  return static_cast<LResult>(count);
}

LResult MemoryWindows::DefWindowProcA(WindowHandle window, std::uint32_t message, WParam wparam,
                                      LParam lparam) {
  Window* found = tree_.Find(window);
  if (!found) return 0;
  switch (message) {
    case kWmClose: DestroyWindow(window); return 0;
    case kWmPaint:
      BeginPaint(window);
      EndPaint(window);
      return 0;
    case kWmActivate:
      if ((wparam & 0xFFFF) != 0 && !found->Has(kWsMinimize)) SetFocus(window);
      return 0;
    case kWmCancelMode:
      if (capture_ == window) ReleaseCapture();
      return 0;
    case kWmMouseActivate: return ForwardToParent(window, message, wparam, lparam, kMaActivate);
    case kWmSetCursor: return ShapePointer(window, wparam, lparam);
    case kWmSysCommand: DoSystemCommand(window, wparam & kCommandMask); return 0;
    case kWmMouseWheel: return ForwardToParent(window, message, wparam, lparam, 0);
    case kWmSysKeyDown:
      if (wparam == kKeyF4 && (lparam & kAltContext) != 0)
        SendMessageA(tree_.Root(*found).handle, kWmSysCommand, kScClose, 0);
      return 0;
    case kWmSetText:
      found->title = lparam == 0 ? "" : drawing_.FromCodePage(reinterpret_cast<const char*>(lparam));
      InvalidateFrame(*found);
      return 1;
    case kWmGetText: return lparam == 0 ? 0 : StoredText(*found, wparam, lparam);
    case kWmGetTextLength: return StoredText(*found, 0, 0);
    default: return 0;
  }
}

}  // namespace levelwidgets::memory
