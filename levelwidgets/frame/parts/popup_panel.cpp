#include <levelwidgets/frame/parts/popup_panel.h>

#include <algorithm>

namespace levelwidgets {

namespace {
constexpr std::int32_t kWatchInterval = 100;  // milliseconds
}  // namespace

PopupPanel::PopupPanel(PartHost& owner, PopupLook look, std::function<void()> left)
    : PictureBox(owner),
      owner_(owner),
      look_(look),
      left_(std::move(left)),
      timStatus_(owner, kWatchInterval, [this] {
        if (IsLeft()) left_();
      }) {
  SetBorder(look.border);
}

void PopupPanel::Detach() {
  WindowApi& windows = GetSurface().Windows();
  const WindowHandle panel = hWnd();
  const auto set_style = [&] {
    windows.SetWindowLongA(panel, kGwlStyle, static_cast<std::int32_t>(look_.style));
  };
  if (look_.order == DetachOrder::kStyleExtendedStyleParent) set_style();
  windows.SetWindowLongA(panel, kGwlExStyle, kWsExToolWindow);
  windows.SetParent(panel, {});
  if (look_.order == DetachOrder::kExtendedStyleParentStyle) set_style();
  windows.SetWindowPos(panel, {kHwndTopMost}, {}, kSwpNoSize | kSwpNoRedraw);
}

const PixelRect& PopupPanel::TakeOwnerRect() {
  GetSurface().Windows().GetWindowRect(owner_.GetSurface().hWnd(), owner_rect_);
  return owner_rect_;
}

PixelTwips PopupPanel::Twips() const {
  ScreenApi& screen = GetSurface().GetPlatform().Screen();
  return {screen.TwipsPerPixelX(), screen.TwipsPerPixelY()};
}

void PopupPanel::Open(TwipPoint at) {
  const auto keep = Reference();
  Move({Position().x, at.y}, Size());
  Move(at, Size());
  SetVisible(true);
  BringToFront();
  SetFocus();
  timStatus_.SetEnabled(true);
}

bool PopupPanel::Close() {
  const auto keep = Reference();
  timStatus_.SetEnabled(false);
  const WindowHandle active = GetSurface().Windows().GetActiveWindow();
  const bool returns_focus = !active || active == hWnd();
  SetVisible(false);
  return returns_focus;
}

bool PopupPanel::IsLeft() const {
  WindowApi& windows = GetSurface().Windows();
  if (windows.GetActiveWindow() != hWnd()) return true;
  const WindowHandle owner = owner_.GetSurface().hWnd();
  PixelRect rect;
  windows.GetWindowRect(owner, rect);
  return rect != owner_rect_ || !windows.IsWindowVisible(owner);
}

// The default would destroy a window that is closed.
LResult PopupPanel::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  const bool is_own = window == hWnd() && (message == kWmClose || message == kWmMouseWheel);
  if (!is_own) return PictureBox::OnMessage(window, message, wparam, lparam);
  const auto site = SharedSite();
  return Reporting(*site, EventOf(message), [&]() -> LResult {
    const auto keep = Reference();
    if (!keep || !IsOpen()) return 0;
    if (message == kWmClose) {
      left_();
    } else if (const int notches = wheel_.Take(wparam)) {
      Wheel.Raise(notches);
    }
    return 0;
  });
}

PixelRect MonitorArea(const PixelRect& rect, ScreenApi& screen) {
  const auto share = [&](const Monitor& monitor) {
    const std::int64_t width =
        std::min(rect.right, monitor.area.right) - std::max(rect.left, monitor.area.left);
    const std::int64_t height =
        std::min(rect.bottom, monitor.area.bottom) - std::max(rect.top, monitor.area.top);
    return std::max<std::int64_t>(width, 0) * std::max<std::int64_t>(height, 0);
  };
  const std::vector<Monitor> monitors = screen.Monitors();
  return std::ranges::max_element(monitors, {}, share)->area;
}

}  // namespace levelwidgets
