#include <levelwidgets/platform/memory/edit/edit_menu.h>

#include <algorithm>
#include <utility>

#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::memory {

namespace {

constexpr int kBorder = 1;
constexpr int kSideRoom = 20;
constexpr int kRoomAbove = 3;  // of a text, and below it
constexpr int kGroupRoom = 7;  // with the line in its middle

constexpr int kMenuFont = 17;  // the stock font of menus and message boxes
constexpr int kColorMenu = 4;
constexpr int kColorMenuText = 7;

class MenuBrush {
 public:
  MenuBrush(DrawingApi& drawing, int color)
      : drawing_(drawing), brush_(drawing.CreateSolidBrush(drawing.GetSysColor(color))) {}
  ~MenuBrush() { drawing_.DeleteObject(brush_); }
  MenuBrush(const MenuBrush&) = delete;
  MenuBrush& operator=(const MenuBrush&) = delete;
  ObjectHandle Get() const { return brush_; }

 private:
  DrawingApi& drawing_;
  ObjectHandle brush_;
};

void FillWith(DrawingApi& drawing, DcHandle dc, PixelRect rect, int color) {
  const MenuBrush brush(drawing, color);
  drawing.FillRect(dc, rect, brush.Get());
}

}  // namespace

EditMenu::EditMenu(EditHost& host, WindowHandle owner, PixelPoint corner, std::vector<Item> items,
                   Choice chosen)
    : host_(host), items_(std::move(items)), chosen_(std::move(chosen)) {
  WindowApi& windows = host_.Windows();
  WindowRequest request;
  request.style = kWsPopup;
  request.ex_style = kWsExTopMost | kWsExToolWindow;
  request.parent = owner;
  request.client = this;
  window_ = windows.CreateWindowExA(request);
  const PixelSize size = Measure();
  const PixelSize screen = host_.ScreenSize();
  const int left = std::clamp(corner.x, 0, std::max(0, screen.width - size.width));
  const int top = std::clamp(corner.y, 0, std::max(0, screen.height - size.height));
  windows.SetWindowPos(window_, {}, {left, top, left + size.width, top + size.height},
                       kSwpNoZOrder | kSwpNoActivate);
  windows.ShowWindow(window_, kSwShowNoActivate);
  windows.ReleaseCapture();
  host_.SetMenu(window_);
}

void EditMenu::Close() {
  const WindowHandle window = std::exchange(window_, {});
  if (!window) return;
  host_.SetMenu({});
  host_.Windows().DestroyWindow(window);
}

LResult EditMenu::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (window != window_) return host_.Windows().DefWindowProcA(window, message, wparam, lparam);
  switch (message) {
    case kWmDestroy:
      window_ = {};
      host_.SetMenu({});
      return 0;
    case kWmPaint: Paint(); return 0;
    case kWmMouseMove: Highlight(ItemAt(PointOfLParam(lparam))); return 0;
    case kWmLButtonUp:
    case kWmRButtonUp: Choose(ItemAt(PointOfLParam(lparam))); return 0;
    case kWmKeyDown: KeyDown(static_cast<int>(wparam)); return 0;
    case kWmSysKeyDown: Close(); return 0;
    case kWmChar: Character(static_cast<char>(wparam)); return 0;
    default: return host_.Windows().DefWindowProcA(window, message, wparam, lparam);
  }
}

// --- Layout ----------------------------------------------------------------------------------

PixelSize EditMenu::Measure() {
  DrawingApi& drawing = host_.Drawing();
  const DcHandle dc = host_.Windows().GetDC(window_);
  drawing.SelectObject(dc, drawing.GetStockObject(kMenuFont));
  TextMetrics metrics;
  drawing.GetTextMetricsA(dc, metrics);
  row_height_ = metrics.height + 2 * kRoomAbove;
  int widest = 0;
  for (const Item& item : items_) {
    PixelRect extent;
    drawing.DrawTextA(dc, item.label, extent, kDtSingleLine | kDtCalcRect);
    widest = std::max(widest, extent.width());
  }
  host_.Windows().ReleaseDC(window_, dc);
  width_ = widest + 2 * (kSideRoom + kBorder);
  return {width_, RowOf(items_.size() - 1).bottom + kBorder};
}

PixelRect EditMenu::RowOf(std::size_t item) const {
  int top = kBorder;
  for (std::size_t i = 0; i <= item; ++i)
    top += (items_[i].begins_group ? kGroupRoom : 0) + (i < item ? row_height_ : 0);
  return {kBorder, top, width_ - kBorder, top + row_height_};
}

std::size_t EditMenu::ItemAt(PixelPoint point) const {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (RowOf(i).Contains(point)) return i;
  }
  return kNone;
}

// --- Input -----------------------------------------------------------------------------------

void EditMenu::Highlight(std::size_t item) {
  if (item == highlighted_) return;
  highlighted_ = item;
  host_.Windows().InvalidateRect(window_);
}

// What cannot be chosen leaves the menu open.
void EditMenu::Choose(std::size_t item) {
  if (item == kNone || !items_[item].enabled) return;
  const Choice chosen = chosen_;
  const EditCommand command = items_[item].command;
  Close();
  chosen(command);
}

void EditMenu::KeyDown(int key) {
  switch (key) {
    case kKeyEscape: Close(); break;
    case kKeyEnter: Choose(highlighted_); break;
    case kKeyUp: Step(-1); break;
    case kKeyDown: Step(1); break;
    case kKeyHome: Highlight(0); break;
    case kKeyEnd: Highlight(items_.size() - 1); break;
    default: break;
  }
}

// Around the ends.
void EditMenu::Step(int direction) {
  const auto count = static_cast<int>(items_.size());
  const int from = highlighted_ != kNone ? static_cast<int>(highlighted_) : direction > 0 ? -1 : count;
  Highlight(static_cast<std::size_t>((from + direction + count) % count));
}

void EditMenu::Character(char byte) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const std::string_view label = items_[i].label;
    const std::size_t mark = label.find('&');
    if (mark != std::string_view::npos && text::AsciiLower(label[mark + 1]) == text::AsciiLower(byte))
      return Choose(i);
  }
}

// --- Painting --------------------------------------------------------------------------------

void EditMenu::Paint() {
  DrawingApi& drawing = host_.Drawing();
  WindowApi& windows = host_.Windows();
  PixelRect client;
  windows.GetClientRect(window_, client);
  const DcHandle dc = windows.BeginPaint(window_);
  FillWith(drawing, dc, client, kColorButtonShadow);
  FillWith(drawing, dc, {kBorder, kBorder, client.right - kBorder, client.bottom - kBorder}, kColorMenu);
  drawing.SetBkMode(dc, kTransparent);
  for (std::size_t i = 0; i < items_.size(); ++i) PaintItem(dc, i);
  windows.EndPaint(window_);
}

void EditMenu::PaintItem(DcHandle dc, std::size_t item) {
  DrawingApi& drawing = host_.Drawing();
  const PixelRect row = RowOf(item);
  if (items_[item].begins_group) {
    const int line = row.top - (kGroupRoom + 1) / 2;
    FillWith(drawing, dc, {row.left + 2, line, row.right - 2, line + 1}, kColorButtonShadow);
  }
  const bool enabled = items_[item].enabled;
  const bool highlighted = item == highlighted_;
  if (highlighted) FillWith(drawing, dc, row, kColorHighlight);
  // Grey can be read on the menu only, so what cannot be chosen is framed.
  const PixelRect inside{row.left + 1, row.top + 1, row.right - 1, row.bottom - 1};
  if (highlighted && !enabled) FillWith(drawing, dc, inside, kColorMenu);
  const int color = highlighted ? kColorHighlightText : kColorMenuText;
  drawing.SetTextColor(dc, drawing.GetSysColor(enabled ? color : kColorGrayText));
  PixelRect text = row;
  text.left += kSideRoom;
  drawing.DrawTextA(dc, items_[item].label, text, kDtSingleLine | kDtVCenter);
}

}  // namespace levelwidgets::memory
