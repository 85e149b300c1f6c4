// Life and state of an edit box, and which message is whose. Whatever notifies the parent comes last: a
// parent may destroy the edit box, which leaves `window_` empty and makes all that follows do nothing.
#include <levelwidgets/platform/memory/edit/edit_box.h>

#include <vector>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::memory {

namespace {

// What the operating system allows until a limit is set.
constexpr std::size_t kFirstLimit = 30000;
constexpr char kDefaultPassword = '*';

constexpr int kKeyF10 = 121;

// Answers of kWmGetDlgCode.
constexpr LResult kWantsArrows = 0x0001;
constexpr LResult kWantsAllKeys = 0x0004;
constexpr LResult kHasSelection = 0x0008;
constexpr LResult kWantsCharacters = 0x0080;

}  // namespace

LResult EditBox::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (message == kWmCreate) return Create(window);
  if (window != window_) return 0;
  ReadStyle();
  if (message >= kEmGetSel && message <= kEmCharFromPos) return OnEditMessage(message, wparam, lparam);
  return OnWindowMessage(message, wparam, lparam);
}

LResult EditBox::Create(WindowHandle window) {
  WindowApi& windows = host_.Windows();
  window_ = window;
  style_ = static_cast<std::uint32_t>(windows.GetWindowLongA(window, kGwlStyle));
  multi_line_ = Has(kEsMultiLine);
  // It draws its border inside, and not over its neighbours.
  flat_border_ = Has(kWsBorder);
  if (flat_border_) SetStyle(kWsBorder, false);
  if (Has(kEsPassword) && !multi_line_) password_ = kDefaultPassword;
  limit_ = kFirstLimit;
  buffer_.SetCodePage(host_.CodePage());
  buffer_.Lines().SetSingleLine(!multi_line_);
  buffer_.Measure().SetMask(password_);
  outer_ = ClientRect();
  SetFont({});
  const LResult length = windows.DefWindowProcA(window, kWmGetTextLength, 0, 0);
  std::vector<char> title(static_cast<std::size_t>(length) + 1);
  windows.DefWindowProcA(window, kWmGetText, title.size(), reinterpret_cast<LParam>(title.data()));
  std::string text(title.data());
  SetCase(text);
  buffer_.SetText(text);
  return 0;
}

void EditBox::Destroy() {
  if (menu_) menu_->Close();
  StopDrag();
  caret_.Hide();
  window_ = {};
}

void EditBox::ReadStyle() {
  const auto style = static_cast<std::uint32_t>(host_.Windows().GetWindowLongA(window_, kGwlStyle));
  const std::uint32_t changed = style ^ style_;
  style_ = style;
  if (changed & (kEsCenter | kEsRight | kEsAutoHScroll)) Reformat();
}

void EditBox::SetStyle(std::uint32_t style, bool on) {
  style_ = on ? style_ | style : style_ & ~style;
  host_.Windows().SetWindowLongA(window_, kGwlStyle, static_cast<std::int32_t>(style_));
}

void EditBox::SetFont(ObjectHandle font) {
  WindowApi& windows = host_.Windows();
  DrawingApi& drawing = host_.Drawing();
  font_ = font ? font : drawing.GetStockObject(kSystemFont);
  const DcHandle dc = windows.GetDC(window_);
  const ObjectHandle former = drawing.SelectObject(dc, font_);
  drawing.GetTextMetricsA(dc, metrics_);
  drawing.SelectObject(dc, former);
  windows.ReleaseDC(window_, dc);
  const auto measure = [this](text::CharacterCode code) {
    std::string character;
    text::AppendCharacter(host_.CodePage().Unicode(code), character);
    const DcHandle own = host_.Windows().GetDC(window_);
    const ObjectHandle selected = host_.Drawing().SelectObject(own, font_);
    PixelSize size;
    host_.Drawing().GetTextExtentPoint32A(own, character, size);
    host_.Drawing().SelectObject(own, selected);
    host_.Windows().ReleaseDC(window_, own);
    return size.width;
  };
  constexpr int kTabCharacters = 8;
  buffer_.Measure().SetFont(measure, multi_line_ ? kTabCharacters * metrics_.average_char_width : 0);
  if (font) SetMargins(kEcLeftMargin | kEcRightMargin, LParam{kEcUseFontInfo} | LParam{kEcUseFontInfo} << 16);
  Reformat(true);
}

// Those of every window.
LResult EditBox::OnWindowMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  switch (message) {
    case kWmDestroy: Destroy(); return 0;
    case kWmPaint: Paint(); return 0;
    case kWmSize: SetRect(ClientRect()); return 0;
    case kWmEnable: Invalidate(); return 0;
    case kWmSetFocus: Focused(); return 0;
    case kWmKillFocus: Unfocused(); return 0;
    case kWmGetFont:
      return static_cast<LResult>(font_ == host_.Drawing().GetStockObject(kSystemFont) ? 0 : font_.value);
    case kWmSetFont:
      SetFont({static_cast<std::uint32_t>(wparam)});
      if (lparam & 0xFFFF) Invalidate();
      return 0;
    case kWmSetText: SetText(lparam == 0 ? "" : reinterpret_cast<const char*>(lparam)); return 1;
    case kWmGetText: return CopyText(wparam, reinterpret_cast<char*>(lparam));
    case kWmGetTextLength: return static_cast<LResult>(buffer_.Size());
    case kWmGetDlgCode:
      return kWantsArrows | kHasSelection | kWantsCharacters | (multi_line_ ? kWantsAllKeys : 0);
    default: return OnInputMessage(message, wparam, lparam);
  }
}

LResult EditBox::OnInputMessage(std::uint32_t message, WParam wparam, LParam lparam) {
  switch (message) {
    case kWmKeyDown: KeyDown(static_cast<int>(wparam)); return 0;
    case kWmSysKeyDown:
      if (static_cast<int>(wparam) == kKeyF10 && IsDown(kKeyShift)) {
        OpenMenu(view_.CaretPoint());
        return 0;
      }
      if (static_cast<int>(wparam) != kKeyBackspace || !IsDown(kKeyAlt)) break;
      Undo();
      return 0;
    case kWmChar: Character(static_cast<char>(wparam)); return 1;
    case kWmLButtonDown: Press(PointOfLParam(lparam), (wparam & kMkShift) != 0); return 0;
    case kWmLButtonDblClk: DoubleClick(PointOfLParam(lparam)); return 0;
    case kWmRButtonUp: OpenMenu(PointOfLParam(lparam)); return 0;
    case kWmMouseMove: Drag(PointOfLParam(lparam)); return 0;
    case kWmLButtonUp:
    case kWmCaptureChanged: StopDrag(); return 0;
    case kWmMouseWheel:
      if (!multi_line_) break;
      Wheel(static_cast<std::int16_t>(wparam >> 16));
      return 0;
    case kWmCopy: return Copy() ? 1 : 0;
    case kWmCut: Cut(); return 0;
    case kWmPaste: Paste(); return 0;
    case kWmClear: Erase(EditRun::kNone); return 0;
    case kWmUndo: return Undo() ? 1 : 0;
    default: break;
  }
  return host_.Windows().DefWindowProcA(window_, message, wparam, lparam);
}

void EditBox::Notify(std::uint32_t code) {
  if (!window_) return;
  WindowApi& windows = host_.Windows();
  windows.SendMessageA(windows.GetParent(window_), kWmCommand, WParam{code} << 16,
                       static_cast<LParam>(window_.value));
}

void EditBox::Focused() {
  focused_ = true;
  InvalidateSelection(buffer_.Selected());
  PlaceCaret();
  Notify(kEnSetFocus);
}

void EditBox::Unfocused() {
  focused_ = false;
  caret_.Hide();
  buffer_.EndRun();
  InvalidateSelection(buffer_.Selected());
  Notify(kEnKillFocus);
}

}  // namespace levelwidgets::memory
