#include <levelwidgets/controls/textbox/flat_text_box.h>

namespace levelwidgets {

namespace {
constexpr Color kBackColor{0x80000005u};  // window background
constexpr Color kForeColor{0x80000008u};  // window text
constexpr Color kScrollBackColor{0x00EFF7F7u};
constexpr Color kScrollButtonColor{0x00CEDBDEu};
constexpr Color kScrollMouseOverColor{0x00DEE7EFu};
constexpr Color kScrollPushedColor{0x00CEDBDEu};
constexpr TwipSize kBarSize{Twips(255), Twips(1200)};
}  // namespace

const ClassInfo& FlatTextBox::Table() {
  using T = FlatTextBox;
  static const ClassInfo info =
      Describe<T>("FlatTextBox", "A text box with a flat vertical scroll bar.")
          .Property(
              "MultiLine", &T::MultiLine, &T::SetMultiLine,
              {.defaults = Always(false), .help = "Whether it takes many lines; read-only at run time."})
          .Property("BackColor", &T::BackColor, &T::SetBackColor,
                    {.defaults = Always(kBackColor), .help = "Background colour of the text."})
          .Property("ForeColor", &T::ForeColor, &T::SetForeColor,
                    {.defaults = Always(kForeColor), .help = "Colour of the text."})
          .Property("Enabled", &T::Enabled, &T::SetEnabled,
                    {.defaults = Always(true), .help = "Whether the text box takes input."})
          .Property("Font", &T::GetFont, &T::SetFont,
                    {.defaults = Always(kAmbientFont), .help = "Font of the text."})
          .Property("Alignment", &T::Alignment, &T::SetAlignment,
                    {.defaults = Always(std::int32_t{ksxLeft}), .help = "Horizontal alignment of the text."})
          .Property("MaxLength", &T::MaxLength, &T::SetMaxLength,
                    {.defaults = Always(0), .help = "Characters that can be typed; 0 for no limit."})
          .Property("PasswordChar", &T::PasswordChar, &T::SetPasswordChar,
                    {.defaults = Always(""), .help = "Character shown in place of each typed one."})
          .Property("Text", &T::Text, &T::SetText, {.defaults = Always(""), .help = "The text."})
          .Property("ScrollBackColor", &T::ScrollBackColor, &T::SetScrollBackColor,
                    {.defaults = Always(kScrollBackColor), .help = "Colour of the bar's track."})
          .Property("ScrollButtonColor", &T::ScrollButtonColor, &T::SetScrollButtonColor,
                    {.defaults = Always(kScrollButtonColor), .help = "Fill of the bar's buttons and thumb."})
          .Property("ScrollMouseOverColor", &T::ScrollMouseOverColor, &T::SetScrollMouseOverColor,
                    {.defaults = Always(kScrollMouseOverColor),
                     .help = "Fill of a button of the bar under the pointer."})
          .Property(
              "ScrollPushedColor", &T::ScrollPushedColor, &T::SetScrollPushedColor,
              {.defaults = Always(kScrollPushedColor), .help = "Fill of a button of the bar held down."})
          .ReadOnly("hWnd", &T::hWnd, "Handle of the control's window.")
          .Persisted({"MultiLine", "BackColor", "ForeColor", "Enabled", "Font", "Alignment", "MaxLength",
                      "PasswordChar", "Text", "ScrollBackColor", "ScrollButtonColor", "ScrollMouseOverColor",
                      "ScrollPushedColor"})
          .DefaultMember("Text")
          .Method("Refresh", &T::Refresh, {}, "Repaints the text.")
          .Event(1, "Change", &T::Change, {}, "The text changed.")
          .Event(2, "Click", &T::Click, {}, "Clicked.")
          .Event(3, "DblClick", &T::DblClick, {}, "Clicked twice.")
          .Event(4, "KeyDown", &T::KeyDown, kKeyArguments, "A key went down.")
          .Event(5, "KeyPress", &T::KeyPress, kCharacterArguments, "A character was typed.")
          .Event(6, "KeyUp", &T::KeyUp, kKeyArguments, "A key went up.")
          .Event(7, "MouseDown", &T::MouseDown, kPointerArguments, "A pointer button went down.")
          .Event(8, "MouseMove", &T::MouseMove, kPointerArguments, "The pointer moved.")
          .Event(9, "MouseUp", &T::MouseUp, kPointerArguments, "A pointer button went up.")
          .DefaultSize(Twips(1800), Twips(315))
          .Build();
  return info;
}

FlatTextBox::FlatTextBox(std::shared_ptr<ControlSite> site)
    : EditControl(std::move(site), {.back_color = kBackColor, .fore_color = kForeColor, .font = {}}),
      scrV_(*this, "scrV", kBarSize) {
  Relay(txtSingle_);
  Relay(txtMulti_);
  scrV_->Change += [this] { ScrollToBar(); };
}

void FlatTextBox::OnInitialize() {
  subclass_.emplace(GetSurface().Windows(), hWnd(),
                    [this](std::uint32_t message, WParam wparam, LParam lparam) {
                      return HandleMessage(message, wparam, lparam);
                    });
  // Both, so that neither has a font that nobody has chosen when MultiLine shows it.
  txtSingle_.SetFont(Site().AmbientFont());
  txtMulti_.SetFont(Site().AmbientFont());
  ShowMode();
}

// --- Properties --------------------------------------------------------------------------------------

void FlatTextBox::SetMultiLine(bool multi_line) {
  if (Started() && Site().UserMode()) {
    RaiseControlError(kInvalidTabCode, "FlatTextBox", "Can't assign to read-only property.");
  }
  const auto keep = Reference();
  multi_line_ = multi_line;
  PropertyChanged("MultiLine");
  ShowMode();
}

void FlatTextBox::ShowMode() {
  txt_ = multi_line_ ? &txtMulti_ : &txtSingle_;
  txtSingle_.SetVisible(!multi_line_);
  txtMulti_.SetVisible(multi_line_);
  scrV_.SetVisible(multi_line_);
  LayOut();
}

void FlatTextBox::SetBackColor(Color color) {
  Assign("BackColor", Then::kNotify, [&] { txt_->SetBackColor(color); });
}

void FlatTextBox::SetForeColor(Color color) {
  Assign("ForeColor", Then::kNotify, [&] { txt_->SetForeColor(color); });
}

void FlatTextBox::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kNotify, [&] { Enable(enabled); });
}

void FlatTextBox::SetFont(FontRef font) {
  Assign("Font", Then::kNotify, [&] {
    txt_->SetFont(std::move(font));
    SynchroniseBar();
  });
}

void FlatTextBox::SetAlignment(ksxAlignmentConstants alignment) {
  Assign("Alignment", Then::kNotify, [&] { txt_->SetAlignment(alignment); });
}

void FlatTextBox::SetMaxLength(std::int32_t length) {
  Assign("MaxLength", Then::kNotify, [&] { txt_->SetMaxLength(length); });
}

void FlatTextBox::SetPasswordChar(std::string_view character) {
  Assign("PasswordChar", Then::kNotify, [&] { txt_->SetPasswordChar(character); });
}

void FlatTextBox::SetText(std::string_view text) {
  Assign("Text", Then::kNotify, [&] { txt_->SetText(text); });
}

void FlatTextBox::SetScrollBackColor(Color color) {
  Assign("ScrollBackColor", Then::kNotify, [&] { scrV_->SetBackColor(color); });
}

void FlatTextBox::SetScrollButtonColor(Color color) {
  Assign("ScrollButtonColor", Then::kNotify, [&] { scrV_->SetButtonColor(color); });
}

void FlatTextBox::SetScrollMouseOverColor(Color color) {
  Assign("ScrollMouseOverColor", Then::kNotify, [&] { scrV_->SetButtonColorMouseOver(color); });
}

void FlatTextBox::SetScrollPushedColor(Color color) {
  Assign("ScrollPushedColor", Then::kNotify, [&] { scrV_->SetButtonColorPushed(color); });
}

Variant FlatTextBox::Refresh() {
  txt_->Refresh();
  return {};
}

// --- Notifications -----------------------------------------------------------------------------------

void FlatTextBox::OnResize() { LayOut(); }

void FlatTextBox::OnEditChange() {
  const auto keep = Reference();
  Change.Raise();
  SynchroniseBar();
}

void FlatTextBox::LayOut() {
  const Twips width = GetSurface().ScaleWidth();
  const Twips height = GetSurface().ScaleHeight();
  const Twips bar = scrV_.Size().width;
  scrV_.Move({width - bar, Twips()}, {bar, height});
  if (multi_line_) {
    txtMulti_.Move({}, {width - bar, height});
  } else {
    txtSingle_.Move({}, {width, height});
  }
  SynchroniseBar();
}

}  // namespace levelwidgets
