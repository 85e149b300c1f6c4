#include <levelwidgets/frame/parts/text_box.h>
#include <levelwidgets/platform/text/utf8.h>

#include <algorithm>
#include <limits>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

namespace {

std::uint32_t StyleOf(bool multi_line, ksxAlignmentConstants alignment) {
  std::uint32_t style = kWsChild | kWsClipSiblings;
  style |= multi_line ? kEsMultiLine | kEsAutoVScroll | kEsWantReturn : kEsAutoHScroll;
  if (alignment == ksxCenter) style |= kEsCenter;
  if (alignment == ksxRight) style |= kEsRight;
  return style;
}

// The byte of a password character in the system's code page; 0 for none.
WParam PasswordCode(std::string_view character, ConversionApi& conversions) {
  if (character.empty()) return 0;
  const std::string bytes = conversions.ToCodePage(character);
  const bool is_one_byte = bytes.size() == 1 && conversions.FromCodePage(bytes) == character;
  if (!is_one_byte) throw Error(kInvalidPropertyValue);
  return static_cast<unsigned char>(bytes[0]);
}

}  // namespace

TextBox::TextBox(PartHost& owner, bool multi_line)
    : owner_(owner), multi_line_(multi_line), font_(MakeFont()) {
  owner_.AddPart(*this);
}

TextBox::~TextBox() {
  DestroyWindow();
  font_->Forget(font_token_);
  owner_.RemovePart(*this);
}

void TextBox::CreateWindow() {
  WindowRequest request;
  request.class_name = "EDIT";
  request.style = StyleOf(multi_line_, alignment_);
  request.parent = owner_.GetSurface().hWnd();
  request.rect = PlaceInPixels();
  window_ = Windows().CreateWindowExA(request);
  if (!window_) return;
  subclass_.emplace(Windows(), window_, [this](std::uint32_t message, WParam wparam, LParam lparam) {
    const auto site = owner_.SharedSite();  // the box may be gone when it is asked
    return Reporting(*site, EventOf(message), [&] { return OnMessage(message, wparam, lparam); });
  });
  Send(kEmSetLimitText, static_cast<WParam>(max_length_));
  if (!multi_line_ && password_code_ != 0) Send(kEmSetPasswordChar, password_code_);
  font_->Forget(font_token_);
  font_token_ = font_->Observe([this] { ApplyFont(); });
  ApplyFont();
}

void TextBox::DestroyWindow() {
  const WindowHandle window = std::exchange(window_, {});
  subclass_.reset();
  if (window) Windows().DestroyWindow(window);
}

LResult TextBox::Send(std::uint32_t message, WParam wparam, LParam lparam) const {
  return window_ ? Windows().SendMessageA(window_, message, wparam, lparam) : 0;
}

// --- Properties --------------------------------------------------------------------------------------

std::string TextBox::Text() const { return window_ ? Windows().GetWindowTextA(window_) : std::string(); }

void TextBox::SetText(std::string_view text) {
  if (!window_ && text.empty()) return;
  NeedWindow();
  const std::string before = Text();
  setting_text_ = true;
  Windows().SetWindowTextA(window_, text);
  setting_text_ = false;
  // The edit box reports a text that was set in one of its modes only.
  if (Text() != before) Change.Raise();
}

void TextBox::SetBackColor(Color color) {
  back_color_ = color;
  Refresh();
}

void TextBox::SetForeColor(Color color) {
  fore_color_ = color;
  Refresh();
}

void TextBox::SetFont(FontRef font) {
  font_->Forget(font_token_);
  font_ = std::move(font);
  font_token_ = font_->Observe([this] { ApplyFont(); });
  ApplyFont();
}

void TextBox::ApplyFont() {
  if (!window_) return;
  DrawingObject object = owner_.GetSurface().MakeFontObject(*font_);
  Send(kWmSetFont, object.Handle().value, 1);
  font_object_ = std::move(object);
}

// The alignment of an edit box is fixed when it is created.
void TextBox::SetAlignment(ksxAlignmentConstants alignment) {
  if (alignment == alignment_) return;
  if (!window_) {
    alignment_ = alignment;
    return;
  }
  const std::string text = Text();
  const std::int32_t start = SelStart();
  const std::int32_t length = SelLength();
  const bool focused = Windows().GetFocus() == window_;
  alignment_ = alignment;
  DestroyWindow();
  CreateWindow();
  setting_text_ = true;
  Windows().SetWindowTextA(window_, text);
  setting_text_ = false;
  SetVisible(visible_);
  Select(start, length);
  if (focused) SetFocus();
}

void TextBox::SetMaxLength(std::int32_t length) {
  if (length < 0) throw Error(kInvalidPropertyValue);
  max_length_ = length;
  Send(kEmSetLimitText, static_cast<WParam>(length));
}

void TextBox::SetPasswordChar(std::string_view character) {
  password_code_ = PasswordCode(character, Conversions());
  password_char_ = character;
  if (!multi_line_) Send(kEmSetPasswordChar, password_code_);
  Refresh();
}

void TextBox::SetVisible(bool visible) {
  visible_ = visible;
  if (visible) NeedWindow();
  if (window_) Windows().ShowWindow(window_, visible ? kSwShowNoActivate : kSwHide);
}

std::int32_t TextBox::SelStart() const {
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  Send(kEmGetSel, reinterpret_cast<WParam>(&start), reinterpret_cast<LParam>(&end));
  return CharactersBefore(start);
}

std::int32_t TextBox::SelLength() const {
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  Send(kEmGetSel, reinterpret_cast<WParam>(&start), reinterpret_cast<LParam>(&end));
  return CharactersBefore(end) - CharactersBefore(start);
}

void TextBox::Select(std::int32_t start, std::int32_t length) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t end =
      std::clamp<std::int64_t>(std::int64_t{start} + length, Limits::min(), Limits::max());
  Send(kEmSetSel, static_cast<WParam>(BytesBefore(start)), BytesBefore(static_cast<std::int32_t>(end)));
}

// --- Places in the text ------------------------------------------------------------------------------

// The edit box counts bytes of the code page. Where no character has two they are its characters.
bool TextBox::HasPairs() const {
  constexpr char kFirstInEveryCodePageWithPairs = '\x81';
  return Conversions().IsDBCSLeadByte(kFirstInEveryCodePageWithPairs);
}

std::int32_t TextBox::CharactersBefore(std::uint32_t byte) const {
  if (!HasPairs()) return static_cast<std::int32_t>(byte);
  const std::string bytes = Conversions().ToCodePage(Text()).substr(0, byte);
  return static_cast<std::int32_t>(text::CharacterCount(Conversions().FromCodePage(bytes)));
}

std::int32_t TextBox::BytesBefore(std::int32_t character) const {
  if (character <= 0 || !HasPairs()) return character;
  const std::string all = Text();
  const std::size_t before = text::ByteOfCharacter(all, static_cast<std::size_t>(character));
  return static_cast<std::int32_t>(Conversions().ToCodePage(all.substr(0, before)).size());
}

std::string TextBox::SelText() const {
  const std::string all = Text();
  const std::size_t start = text::ByteOfCharacter(all, static_cast<std::size_t>(SelStart()));
  const std::string_view rest = std::string_view(all).substr(start);
  return std::string(rest.substr(0, text::ByteOfCharacter(rest, static_cast<std::size_t>(SelLength()))));
}

void TextBox::SetSelText(std::string_view text) {
  const auto keep = owner_.Reference();
  const std::string terminated(text);
  Send(kEmReplaceSel, 1, reinterpret_cast<LParam>(terminated.c_str()));
}

// --- Methods -----------------------------------------------------------------------------------------

void TextBox::Move(TwipPoint position, TwipSize size) {
  position_ = position;
  size_ = size;
  if (window_) Windows().SetWindowPos(window_, {}, PlaceInPixels(), kSwpNoZOrder | kSwpNoActivate);
}

PixelRect TextBox::PlaceInPixels() const {
  ScreenApi& screen = owner_.GetSurface().GetPlatform().Screen();
  const int left = ToPixels(position_.x, screen.TwipsPerPixelX());
  const int top = ToPixels(position_.y, screen.TwipsPerPixelY());
  const int width = std::max(0, ToPixels(size_.width, screen.TwipsPerPixelX()));
  const int height = std::max(0, ToPixels(size_.height, screen.TwipsPerPixelY()));
  return {left, top, left + width, top + height};
}

void TextBox::Refresh() {
  if (!window_) return;
  Windows().InvalidateRect(window_);
  Windows().UpdateWindow(window_);
}

void TextBox::SetFocus() {
  if (window_) Windows().SetFocus(window_);
}

}  // namespace levelwidgets
