// The plain edit box as a part of a control or of a panel.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/input.h>
#include <levelwidgets/frame/part_host.h>
#include <levelwidgets/frame/parts/edit_events.h>
#include <levelwidgets/frame/parts/subclass.h>
#include <levelwidgets/frame/surface.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

// The system's edit box inside the owner's window, hidden and of no size until it is placed and shown. Its
// window is made when it is first shown or given a text; until then its properties are only kept. Its focus
// is the owner's, its keys are offered to the owner and its container first. Events carry the owner's
// argument types; the pointer's position is relative to the edit box.
//
// Events of keys come before the edit box acts on them, so a changed KeyAscii is what it types and 0 nothing;
// those of the pointer come after it has acted. A listener may destroy the owner.
class TextBox : public WindowPart, public EditEvents {
 public:
  TextBox(PartHost& owner, bool multi_line);
  TextBox(const TextBox&) = delete;
  TextBox& operator=(const TextBox&) = delete;
  ~TextBox() override;

  // --- Properties -------------------------------------------------------------------------------

  // None before it is made, and once the owner's window is destroyed.
  WindowHandle hWnd() const override { return window_; }
  // UTF-8; lines end with "\r\n".
  std::string Text() const;
  // Raises Change when the text differs.
  void SetText(std::string_view text);
  Color BackColor() const { return back_color_; }
  void SetBackColor(Color color);
  Color ForeColor() const { return fore_color_; }
  void SetForeColor(Color color);
  const FontRef& GetFont() const { return font_; }
  // Shares the font.
  void SetFont(FontRef font);
  ksxAlignmentConstants Alignment() const { return alignment_; }
  // Any other value is left-aligned.
  void SetAlignment(ksxAlignmentConstants alignment);
  // Characters that can be typed or pasted; 0 is no limit. A negative value raises 380.
  std::int32_t MaxLength() const { return max_length_; }
  void SetMaxLength(std::int32_t length);
  // "" shows the text; more than one character, or one outside the code page, raises 380. A multi-line box
  // keeps the value and shows its text.
  const std::string& PasswordChar() const { return password_char_; }
  void SetPasswordChar(std::string_view character);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  // Selection in characters from 0; a value beyond the text is taken as its end.
  std::int32_t SelStart() const;
  std::int32_t SelLength() const;
  void Select(std::int32_t start, std::int32_t length);
  // The selected text; setting it replaces what is selected, and raises Change.
  std::string SelText() const;
  void SetSelText(std::string_view text);

  // --- Methods ----------------------------------------------------------------------------------

  // Makes the window now, hidden, for whoever places it by its handle.
  void NeedWindow() {
    if (!window_) CreateWindow();
  }
  // In twips of the owner's surface.
  void Move(TwipPoint position, TwipSize size);
  void Refresh();
  void SetFocus();
  LResult Send(std::uint32_t message, WParam wparam = 0, LParam lparam = 0) const;

 private:
  bool OnParentMessage(std::uint32_t message, WParam wparam, LResult& result) override;

  // With all the properties, hidden and without text.
  void CreateWindow();
  void DestroyWindow();
  PixelRect PlaceInPixels() const;
  LResult OnMessage(std::uint32_t message, WParam wparam, LParam lparam);
  LResult Pass(std::uint32_t message, WParam wparam, LParam lparam);
  LResult PointerMessage(PointerAction action, std::uint32_t message, WParam wparam, LParam lparam);
  LResult KeyPressed(KeyMessage key, std::uint32_t message, WParam wparam, LParam lparam);
  LResult ColorBrush(DcHandle dc);
  void ApplyFont();
  bool HasPairs() const;
  std::int32_t CharactersBefore(std::uint32_t byte) const;
  std::int32_t BytesBefore(std::int32_t character) const;
  WindowApi& Windows() const { return owner_.GetSurface().Windows(); }
  ConversionApi& Conversions() const { return owner_.GetSurface().GetPlatform().Conversions(); }

  PartHost& owner_;
  const bool multi_line_;
  WindowHandle window_;
  std::optional<Subclass> subclass_;
  Color back_color_ = kWindowBack;
  Color fore_color_ = kWindowText;
  FontRef font_;
  Font::Token font_token_ = 0;
  ksxAlignmentConstants alignment_ = ksxLeft;
  std::int32_t max_length_ = 0;
  std::string password_char_;
  WParam password_code_ = 0;
  bool visible_ = false;
  TwipPoint position_;
  TwipSize size_;
  DrawingObject brush_;
  DrawingObject font_object_;
  ClickTracker click_;
  bool setting_text_ = false;
};

}  // namespace levelwidgets
