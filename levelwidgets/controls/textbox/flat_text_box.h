// A text box, of one line or many, with a flat vertical scroll bar.
#pragma once

#include <optional>
#include <string>

#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/edit_control.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/subclass.h>

namespace levelwidgets {

// Holds a single-line and a multi-line edit box, and MultiLine chooses which of them is shown; the text
// and the events are those of the shown one. In multi-line mode a bar at the right edge mirrors where the
// text is scrolled to. Most text boxes are of one line for ever: what the other mode needs is made when that
// is first chosen. An edit box notifies nobody when it scrolls, yet it asks its parent for colours
// whenever it paints: a replaced window procedure of the control sees these requests and brings the bar in
// step each time.
class FlatTextBox : public EditControl {
 public:
  static const ClassInfo& Table();
  explicit FlatTextBox(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------
  // Each notifies.

  bool MultiLine() const { return multi_line_; }
  // At run time it raises 1001 "Can't assign to read-only property.", and nothing changes.
  void SetMultiLine(bool multi_line);
  Color BackColor() const { return txt_->BackColor(); }
  void SetBackColor(Color color);
  Color ForeColor() const { return txt_->ForeColor(); }
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return txt_->GetFont(); }
  // Shares the font.
  void SetFont(FontRef font);
  ksxAlignmentConstants Alignment() const { return txt_->Alignment(); }
  void SetAlignment(ksxAlignmentConstants alignment);
  // Characters that can be typed, 0 for no limit; a negative value raises 380.
  std::int32_t MaxLength() const { return txt_->MaxLength(); }
  void SetMaxLength(std::int32_t length);
  // "" shows the text; what the edit box refuses (more than one character) raises its error, 380.
  const std::string& PasswordChar() const { return txt_->PasswordChar(); }
  void SetPasswordChar(std::string_view character);
  // The default member. Lines end with "\r\n".
  std::string Text() const { return txt_->Text(); }
  void SetText(std::string_view text);
  // The bar's track, buttons, and buttons under the pointer and pushed.
  Color ScrollBackColor() const { return bar_colors_.back; }
  void SetScrollBackColor(Color color);
  Color ScrollButtonColor() const { return bar_colors_.button; }
  void SetScrollButtonColor(Color color);
  Color ScrollMouseOverColor() const { return bar_colors_.mouse_over; }
  void SetScrollMouseOverColor(Color color);
  Color ScrollPushedColor() const { return bar_colors_.pushed; }
  void SetScrollPushedColor(Color color);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }

  // --- Methods ----------------------------------------------------------------------------------

  // Repaints the text. Returns an empty value.
  Variant Refresh();

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitialize() override;
  void OnInitProperties() override { ShowMode(); }
  void OnResize() override;
  void OnPaint() override { GetSurface().Cls(); }
  void OnTerminate() override { subclass_.reset(); }

  // The parts, for tests and for whoever composes this control further.
  // Whether the box has ever had many lines, and so has a bar.
  bool HasBar() const { return scrV_.has_value(); }
  const ChildControl<FlatScroll>& Bar() const { return scrV_.value(); }

 protected:
  void OnEditChange() override;

 private:
  // The control's window procedure while it is replaced.
  LResult HandleMessage(std::uint32_t message, WParam wparam, LParam lparam);

  // --- Scrolling: flat_text_box_scroll.cpp --------------------------------------------------------

  struct View {
    std::int32_t visible_lines = 1;
    std::int32_t line_count = 1;
    std::int32_t first_visible = 0;  // from 0
  };
  View ViewOfEdit() const;
  int CharacterHeight() const;
  // Brings the bar in step with the text; writes only what differs.
  void SynchroniseBar();
  // Brings the text in step with the bar, by one message.
  void ScrollToBar();

  void ShowMode();
  void MakeBar();
  void LayOut();

  // --- State --------------------------------------------------------------------------------------

  struct BarColors {
    Color back;
    Color button;
    Color mouse_over;
    Color pushed;
  };
  // Keeps one of the colours of the bar, and gives it to the bar when there is one.
  void AssignBarColor(std::string_view name, Color BarColors::*kept, void (FlatScroll::*set)(Color),
                      Color color);

  TextBox txtSingle_{*this, false};
  TextBox txtMulti_{*this, true};
  std::optional<ChildControl<FlatScroll>> scrV_;
  BarColors bar_colors_;
  bool multi_line_ = false;
  std::optional<Subclass> subclass_;
};

}  // namespace levelwidgets
