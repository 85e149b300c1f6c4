#include <levelwidgets/controls/textbox/flat_text_box.h>

#include <levelwidgets/frame/edit_rows.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {
constexpr Color kScrollBackColor{0x00EFF7F7u};
constexpr Color kScrollButtonColor{0x00CEDBDEu};
constexpr Color kScrollMouseOverColor{0x00DEE7EFu};
constexpr Color kScrollPushedColor{0x00CEDBDEu};
constexpr TwipSize kBarSize{Twips(255), Twips(1200)};
}  // namespace

const ClassInfo& FlatTextBox::Table() {
  using T = FlatTextBox;
  using Row = table::Row<T>;
  using Edit = table::EditRows<T>;
  static constexpr auto data = ClassTable(
      ControlClass<T>("FlatTextBox", "A text box with a flat vertical scroll bar.",
                      {Twips(1800), Twips(315)}),
      table::JoinProperties(
          Row::Property<&T::MultiLine, &T::SetMultiLine>(
              1, "MultiLine", Always(false), "Whether it takes many lines; read-only at run time.",
              {.flags = MemberFlags::kRefusesItsOwn}),
          Edit::Look(2), Edit::Font(5), Edit::Alignment(6),
          Row::Property<&T::MaxLength, &T::SetMaxLength>(7, "MaxLength", Always(0),
                                                         "Characters that can be typed; 0 for no limit."),
          Row::Property<&T::PasswordChar, &T::SetPasswordChar>(8, "PasswordChar", Always(""),
                                                               "Character shown in place of each typed one."),
          Edit::Text(9),
          Row::Property<&T::ScrollBackColor, &T::SetScrollBackColor>(
              10, "ScrollBackColor", Always(kScrollBackColor), "Colour of the bar's track."),
          Row::Property<&T::ScrollButtonColor, &T::SetScrollButtonColor>(
              11, "ScrollButtonColor", Always(kScrollButtonColor), "Fill of the bar's buttons and thumb."),
          Row::Property<&T::ScrollMouseOverColor, &T::SetScrollMouseOverColor>(
              12, "ScrollMouseOverColor", Always(kScrollMouseOverColor),
              "Fill of a button of the bar under the pointer.", {.flags = MemberFlags::kShownLater}),
          Row::Property<&T::ScrollPushedColor, &T::SetScrollPushedColor>(
              13, "ScrollPushedColor", Always(kScrollPushedColor), "Fill of a button of the bar held down.",
              {.flags = MemberFlags::kShownLater}),
          Edit::Handle(14)),
      table::Persisted("MultiLine", "BackColor", "ForeColor", "Enabled", "Font", "Alignment", "MaxLength",
                       "PasswordChar", "Text", "ScrollBackColor", "ScrollButtonColor", "ScrollMouseOverColor",
                       "ScrollPushedColor"),
      table::Methods(Row::Method<&T::Refresh>(15, "Refresh", "", "Repaints the text.")), Edit::Events(1));
  static constexpr ClassInfo info(data);
  return info;
}

FlatTextBox::FlatTextBox(std::shared_ptr<ControlSite> site)
    : EditControl(std::move(site), {.back_color = kWindowBack, .fore_color = kWindowText, .font = {}},
                  txtSingle_),
      bar_colors_{kScrollBackColor, kScrollButtonColor, kScrollMouseOverColor, kScrollPushedColor} {
  Relay(txtSingle_);
  Relay(txtMulti_);
}

void FlatTextBox::OnInitialize() {
  subclass_.emplace(GetSurface().Windows(), hWnd(),
                    [this](std::uint32_t message, WParam wparam, LParam lparam) {
                      return HandleMessage(message, wparam, lparam);
                    });
  // Both, so that neither has a font that nobody has chosen when MultiLine shows it.
  txtSingle_.SetFont(Site().AmbientFont());
  txtMulti_.SetFont(Site().AmbientFont());
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
  if (multi_line_ && !scrV_ && hWnd()) MakeBar();
  txtSingle_.SetVisible(!multi_line_);
  txtMulti_.SetVisible(multi_line_);
  if (scrV_) scrV_->SetVisible(multi_line_);
  LayOut();
}

void FlatTextBox::MakeBar() {
  FlatScroll& bar = *scrV_.emplace(*this, "scrV", kBarSize);
  bar.SetBackColor(bar_colors_.back);
  bar.SetButtonColor(bar_colors_.button);
  bar.SetButtonColorMouseOver(bar_colors_.mouse_over);
  bar.SetButtonColorPushed(bar_colors_.pushed);
  bar.Change += [this] { ScrollToBar(); };
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
  AssignBarColor("ScrollBackColor", &BarColors::back, &FlatScroll::SetBackColor, color);
}

void FlatTextBox::SetScrollButtonColor(Color color) {
  AssignBarColor("ScrollButtonColor", &BarColors::button, &FlatScroll::SetButtonColor, color);
}

void FlatTextBox::SetScrollMouseOverColor(Color color) {
  AssignBarColor("ScrollMouseOverColor", &BarColors::mouse_over, &FlatScroll::SetButtonColorMouseOver, color);
}

void FlatTextBox::SetScrollPushedColor(Color color) {
  AssignBarColor("ScrollPushedColor", &BarColors::pushed, &FlatScroll::SetButtonColorPushed, color);
}

void FlatTextBox::AssignBarColor(std::string_view name, Color BarColors::*kept,
                                 void (FlatScroll::*set)(Color), Color color) {
  Assign(name, Then::kNotify, [&] {
    bar_colors_.*kept = color;
    if (scrV_) ((**scrV_).*set)(color);
  });
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
  const Twips bar = kBarSize.width;
  if (scrV_) scrV_->Move({width - bar, Twips()}, {bar, height});
  if (multi_line_) {
    txtMulti_.Move({}, {width - bar, height});
  } else {
    txtSingle_.Move({}, {width, height});
  }
  SynchroniseBar();
}

}  // namespace levelwidgets
