#include <levelwidgets/host/form/tool_tip.h>

#include <algorithm>

#include <levelwidgets/frame/font.h>
#include <levelwidgets/frame/paint.h>
#include <levelwidgets/frame/units.h>
#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

namespace {

constexpr std::uint32_t kDelay = 500;  // milliseconds
constexpr std::uint32_t kWatch = 100;  // how soon it is noticed that the pointer has left
constexpr Twips kBelowPointer{300};    // the height of a pointer's picture
constexpr int kAbovePointer = 2;       // pixels

// Around the text, the one-pixel outline included.
constexpr int kMarginX = 4;
constexpr int kMarginY = 3;

constexpr Color kBackground{0x80000000u + kColorInfoBackground};
constexpr Color kForeground{0x80000000u + kColorInfoText};

constexpr std::uint32_t kTextFormat = kDtLeft | kDtNoPrefix;

}  // namespace

PixelRect PlaceToolTip(PixelPoint pointer, int below, PixelSize tip, PixelSize screen) {
  PixelPoint place{pointer.x, pointer.y + below};
  if (PixelRect{0, 0, screen.width, screen.height}.Contains(pointer)) {
    if (place.y + tip.height > screen.height) place.y = pointer.y - kAbovePointer - tip.height;
    place.x = std::max(0, std::min(place.x, screen.width - tip.width));
    place.y = std::max(0, place.y);
  }
  return {place.x, place.y, place.x + tip.width, place.y + tip.height};
}

// --- What happens ------------------------------------------------------------------------------------

void ToolTip::InputArrived(HostedControl& control, InputKind kind) {
  switch (kind) {
    case InputKind::kPointerMove: PointerMoved(control); break;
    case InputKind::kPress:
      PointerMoved(control);
      Spend();
      break;
    case InputKind::kKey: Spend(); break;
    case InputKind::kNone: break;
  }
}

// A control that has the capture hears of moves outside it as well.
void ToolTip::PointerMoved(HostedControl& control) {
  const auto before = over_.lock();
  if (before.get() == &control) {
    if (!IsOver(control)) Leave();
  } else {
    Leave();
    if (!control.ToolTipText().empty() && IsOver(control)) Enter(control);
  }
}

void ToolTip::TextChanged(HostedControl& control) {
  if (over_.lock().get() != &control) return;
  if (control.ToolTipText().empty()) {
    Leave();
  } else if (window_) {
    Show(control);
  }
}

void ToolTip::Forget(const HostedControl& control) {
  if (over_.lock().get() == &control) Leave();
}

void ToolTip::Enter(HostedControl& control) {
  over_ = control.weak_from_this();
  StartTimer(kDelay);
}

void ToolTip::Spend() {
  if (over_.expired()) return;
  Hide();
  spent_ = true;
  StartTimer(kWatch);
}

void ToolTip::Leave() {
  Hide();
  StopTimer();
  over_.reset();
  spent_ = false;
}

void ToolTip::Tick() {
  const auto control = over_.lock();
  if (!control || !IsOver(*control)) {
    Leave();
  } else if (!spent_ && !window_) {
    Show(*control);
    StartTimer(kWatch);
  }
}

bool ToolTip::IsOver(const HostedControl& control) const {
  PixelPoint pointer;
  if (!control.CanTakeInput() || !platform_.Windows().GetCursorPos(pointer)) return false;
  return platform_.Windows().IsWindowVisible(control.GetControl()->GetSurface().hWnd()) &&
         control.ScreenRect().Contains(pointer);
}

void ToolTip::StartTimer(std::uint32_t interval_ms) {
  StopTimer();
  timer_ = platform_.Clock().SetTimer(interval_ms, [this] { Tick(); });
}

void ToolTip::StopTimer() {
  if (timer_) platform_.Clock().KillTimer(std::exchange(timer_, {}));
}

// --- The window --------------------------------------------------------------------------------------

void ToolTip::Show(const HostedControl& control) {
  Hide();
  text_ = control.ToolTipText();
  WindowRequest request;
  request.title = text_;
  request.style = kWsPopup;
  request.ex_style = kWsExTopMost | kWsExToolWindow | kWsExNoActivate | kWsExTransparent;
  request.parent = control.GetForm()->hWnd();
  request.client = this;
  window_ = platform_.Windows().CreateWindowExA(request);
  PixelPoint pointer;
  platform_.Windows().GetCursorPos(pointer);
  ScreenApi& screen = platform_.Screen();
  const int below = ToPixels(kBelowPointer, screen.TwipsPerPixelY());
  platform_.Windows().SetWindowPos(window_, {kHwndTopMost},
                                   PlaceToolTip(pointer, below, Measure(), screen.Size()),
                                   kSwpNoActivate | kSwpShowWindow);
}

void ToolTip::Hide() {
  if (window_) platform_.Windows().DestroyWindow(window_);
}

PixelSize ToolTip::Measure() {
  DrawingApi& drawing = platform_.Drawing();
  const DcHandle dc = platform_.Windows().GetDC(window_);
  const FontRequest font = RequestFor({}, drawing.GetDeviceCaps(dc, kLogPixelsY));
  font_ = DrawingObject(drawing, drawing.CreateFontA(font));
  drawing.SelectObject(dc, font_.Handle());
  drawing.SetTextColor(dc, TranslateColor(drawing, kForeground));
  PixelRect text;
  drawing.DrawTextA(dc, text_, text, kTextFormat | kDtCalcRect);
  return {text.width() + 2 * kMarginX, text.height() + 2 * kMarginY};
}

void ToolTip::Paint() {
  DrawingApi& drawing = platform_.Drawing();
  const DcHandle dc = platform_.Windows().BeginPaint(window_);
  PixelRect client;
  platform_.Windows().GetClientRect(window_, client);
  {
    const DrawingObject pen(drawing, drawing.CreatePen(kPsSolid, 1, TranslateColor(drawing, kForeground)));
    const Selection selection(drawing, dc, pen.Handle());
    FillOutlined(drawing, dc, client, kBackground);
  }
  PixelRect text{client.left + kMarginX, client.top + kMarginY, client.right - kMarginX,
                 client.bottom - kMarginY};
  drawing.DrawTextA(dc, text_, text, kTextFormat);
  platform_.Windows().EndPaint(window_);
}

LResult ToolTip::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  WindowApi& windows = platform_.Windows();
  switch (message) {
    case kWmEraseBackground: return 1;
    case kWmPaint: Paint(); return 0;
    case kWmDestroy:
      platform_.Drawing().SelectObject(windows.GetDC(window),
                                       platform_.Drawing().GetStockObject(kSystemFont));
      font_.Reset();
      window_ = {};
      return 0;
    default: return windows.DefWindowProcA(window, message, wparam, lparam);
  }
}

}  // namespace levelwidgets
