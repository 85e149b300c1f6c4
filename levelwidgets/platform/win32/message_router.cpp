#include <levelwidgets/platform/win32/message_router.h>

#include <windows.h>

#include <algorithm>

#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/platform/win32/win32_text.h>
#include <levelwidgets/platform/win32/window_class.h>

namespace levelwidgets::win32 {
namespace {

constexpr char kPlainClass[] = "LevelWidgetsPlain";
constexpr std::uint32_t kPlainStyle = CS_OWNDC | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
constexpr WParam kAnyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;

HWND ToHwnd(WindowHandle window) { return ToNative<HWND>(window); }

bool IsPress(std::uint32_t message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK || message == WM_MBUTTONDBLCLK;
}

bool IsRelease(std::uint32_t message) {
  return message == WM_LBUTTONUP || message == WM_RBUTTONUP || message == WM_MBUTTONUP;
}

}  // namespace

// The procedures that user32 calls. They are static, so they find the router by the window.
struct MessageRouter::Native {
  struct Creation {
    MessageRouter& router;
    WindowClient* client;
  };

  static std::unordered_map<HWND, MessageRouter*>& Routers() {
    static std::unordered_map<HWND, MessageRouter*> routers;
    return routers;
  }

  static MessageRouter* RouterOf(HWND hwnd) {
    const auto found = Routers().find(hwnd);
    return found == Routers().end() ? nullptr : found->second;
  }

  static void Adopt(HWND hwnd, MessageRouter& router, const Window& window) {
    Routers()[hwnd] = &router;
    router.known_[FromNative<WindowHandle>(hwnd).value] = window;
  }

  static LRESULT Begin(HWND hwnd, LPARAM lparam) {
    const auto& creation =
        *static_cast<const Creation*>(reinterpret_cast<const CREATESTRUCTA*>(lparam)->lpCreateParams);
    Adopt(hwnd, creation.router, {.plain = true, .client = creation.client});
    // The context is the window's own: what is set here lasts.
    ::SetBkMode(::GetDC(hwnd), TRANSPARENT);
    return ::DefWindowProcA(hwnd, WM_NCCREATE, 0, lparam);
  }

  static LRESULT CALLBACK Plain(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) return Begin(hwnd, lparam);
    MessageRouter* const router = RouterOf(hwnd);
    if (!router) return ::DefWindowProcA(hwnd, message, wparam, lparam);
    return router->DeliverToClient(FromNative<WindowHandle>(hwnd), message, wparam, lparam);
  }

  static LRESULT CALLBACK Trampoline(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    MessageRouter* const router = RouterOf(hwnd);
    if (!router) return ::DefWindowProcA(hwnd, message, wparam, lparam);
    return router->DeliverToReplacement(FromNative<WindowHandle>(hwnd), message, wparam, lparam);
  }
};

MessageRouter::MessageRouter(WindowApi& windows, ExceptionRelay& relay) : windows_(windows), relay_(relay) {
  static const WindowClass plain_class(kPlainClass, kPlainStyle,
                                       reinterpret_cast<std::intptr_t>(&Native::Plain));
}

MessageRouter::~MessageRouter() {
  while (!known_.empty()) {
    const WindowHandle window{known_.begin()->first};
    known_.begin()->second.client = nullptr;
    ::DestroyWindow(ToHwnd(window));
    Forget(window);
  }
}

WindowHandle MessageRouter::CreateWindowExA(const WindowRequest& request) {
  const bool plain = request.class_name.empty();
  Native::Creation creation{*this, request.client};
  HWND hwnd = nullptr;
  const auto create = [&] {
    return hwnd = ::CreateWindowExA(request.ex_style, plain ? kPlainClass : request.class_name.c_str(),
                                    ToCodePage(request.title).c_str(), request.style, request.rect.left,
                                    request.rect.top, request.rect.width(), request.rect.height(),
                                    ToHwnd(request.parent), nullptr, static_cast<HINSTANCE>(ModuleInstance()),
                                    plain ? &creation : nullptr);
  };
  try {
    relay_.Run(create);
  } catch (...) {
    if (hwnd) ::DestroyWindow(hwnd);
    throw;
  }
  if (hwnd && !plain) Native::Adopt(hwnd, *this, {});
  return FromNative<WindowHandle>(hwnd);
}

std::intptr_t MessageRouter::SetProcedure(WindowHandle window, std::intptr_t procedure) {
  const std::intptr_t former = GetProcedure(window);
  Window* const known = Find(window);
  if (!known) return 0;
  const bool native = native_procedures_.count(procedure) > 0;
  known->replacement = native ? nullptr : reinterpret_cast<WindowProc>(procedure);
  ::SetWindowLongPtrA(ToHwnd(window), GWLP_WNDPROC,
                      native ? procedure : reinterpret_cast<LONG_PTR>(&Native::Trampoline));
  return former;
}

std::intptr_t MessageRouter::GetProcedure(WindowHandle window) {
  const Window* const known = Find(window);
  if (known && known->replacement) return reinterpret_cast<std::intptr_t>(known->replacement);
  const std::intptr_t native = ::GetWindowLongPtrA(ToHwnd(window), GWLP_WNDPROC);
  if (native) native_procedures_.insert(native);
  return native;
}

LResult MessageRouter::CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message,
                                       WParam wparam, LParam lparam) {
  if (native_procedures_.count(previous) == 0)
    return reinterpret_cast<WindowProc>(previous)(windows_, window, message, wparam, lparam);
  return relay_.Run([&] {
    return ::CallWindowProcA(reinterpret_cast<WNDPROC>(previous), ToHwnd(window), message, wparam, lparam);
  });
}

std::size_t MessageRouter::LiveWindows() const {
  // A window of another class can be destroyed without a message to our procedure.
  return static_cast<std::size_t>(std::count_if(known_.begin(), known_.end(), [](const auto& entry) {
    return ::IsWindow(ToHwnd(WindowHandle{entry.first})) != FALSE;
  }));
}

MessageRouter::Window* MessageRouter::Find(WindowHandle window) {
  const auto found = known_.find(window.value);
  return found == known_.end() ? nullptr : &found->second;
}

std::intptr_t MessageRouter::DeliverToClient(WindowHandle window, std::uint32_t message, WParam wparam,
                                             LParam lparam) {
  if (message == WM_NCHITTEST && (::GetWindowLongA(ToHwnd(window), GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0) {
    return HTTRANSPARENT;
  }
  // A replacement has the first look at the message, and then this has been done already.
  if (!Find(window)->replacement) {
    if (Suppressed(window, message, lparam)) return message == WM_ERASEBKGND;
    TrackPress(window, message, wparam);
  }
  // Ending a capture notifies its window, whose client may have destroyed this one.
  const Window* const known = Find(window);
  WindowClient* const client = known ? known->client : nullptr;
  if (message == WM_NCDESTROY) Forget(window);
  if (!client || message == WM_NCDESTROY) return ::DefWindowProcA(ToHwnd(window), message, wparam, lparam);
  // -1 makes a failed creation end.
  const std::intptr_t result =
      relay_.Guard([&] { return client->OnMessage(window, message, wparam, lparam); },
                   message == WM_CREATE ? std::intptr_t{-1} : std::intptr_t{0});
  if (message == WM_DESTROY) {
    if (Window* const still_known = Find(window)) still_known->client = nullptr;
  }
  return message == WM_CTLCOLOREDIT || message == WM_CTLCOLORSTATIC ? ToParameter(result) : result;
}

std::intptr_t MessageRouter::DeliverToReplacement(WindowHandle window, std::uint32_t message, WParam wparam,
                                                  LParam lparam) {
  if (Find(window)->plain) {
    if (Suppressed(window, message, lparam)) return message == WM_ERASEBKGND;
    TrackPress(window, message, wparam);
  } else if (message == WM_MOUSEMOVE && PointerRests(window, lparam)) {
    return 0;
  } else if (message == WM_MOUSELEAVE) {
    PointerLeft();
  }
  const Window* const known = Find(window);
  if (!known || !known->replacement) return 0;
  const WindowProc replacement = known->replacement;
  const std::intptr_t result =
      relay_.Guard([&] { return replacement(windows_, window, message, wparam, lparam); }, std::intptr_t{0});
  if (message == WM_NCDESTROY) Forget(window);
  return result;
}

bool MessageRouter::Suppressed(WindowHandle window, std::uint32_t message, LParam lparam) {
  if (message == WM_MOUSEMOVE) return PointerRests(window, lparam);
  if (message == WM_MOUSELEAVE) PointerLeft();
  // The system notifies a window that it has taken the capture over from itself.
  const bool capture_kept = message == WM_CAPTURECHANGED && lparam != 0 &&
                            FromNative<WindowHandle>(reinterpret_cast<HWND>(lparam)) == window;
  return message == WM_ERASEBKGND || capture_kept;
}

// The system repeats the last move whenever the capture or a window under the pointer changes.
bool MessageRouter::PointerRests(WindowHandle window, LParam lparam) {
  PixelPoint at = PointOfLParam(lparam);
  windows_.ClientToScreen(window, at);
  const bool rests = pointer_ == at;
  pointer_ = at;
  TRACKMOUSEEVENT leave = {sizeof leave, TME_LEAVE, ToHwnd(window), 0};
  ::TrackMouseEvent(&leave);
  return rests;
}

// Once it has been elsewhere, coming back to the same place is a move.
void MessageRouter::PointerLeft() {
  POINT now = {};
  if (::GetCursorPos(&now) && pointer_ && (now.x != pointer_->x || now.y != pointer_->y)) pointer_.reset();
}

void MessageRouter::TrackPress(WindowHandle window, std::uint32_t message, WParam wparam) {
  if (IsPress(message)) {
    pressed_ = true;
    if (::GetCapture() != ToHwnd(window)) ::SetCapture(ToHwnd(window));
  } else if (IsRelease(message) && pressed_ && (wparam & kAnyButton) == 0) {
    pressed_ = false;
    ::ReleaseCapture();
  }
}

void MessageRouter::Forget(WindowHandle window) {
  known_.erase(window.value);
  Native::Routers().erase(ToHwnd(window));
}

}  // namespace levelwidgets::win32
