#include <levelwidgets/controls/calendar/flat_calendar.h>

#include <optional>

#include <levelwidgets/controls/calendar/calendar_value.h>
#include <levelwidgets/controls/calendar/month_panel.h>

namespace levelwidgets {

namespace {

constexpr Color kBackColor{0x80000005u};  // window background
constexpr Color kForeColor{0x80000008u};  // window text
constexpr DropButton::Colors kButton;
constexpr CalendarColors kCalendar;

constexpr PopupLook kPanel{kWsPopup | kWsBorder, DetachOrder::kStyleExtendedStyleParent, true};

}  // namespace

// What the month view works with. It is made when it first opens.
struct FlatCalendar::Inside {
  explicit Inside(Platform& platform)
      : value(platform.Conversions()),
        model(
            platform.Conversions(), [&clock = platform.Clock()] { return clock.Now(); }, value) {}

  CalendarValue value;
  MonthModel model;
  CalendarColors colors;
  std::optional<MonthPanel> panel;
};

const ClassInfo& FlatCalendar::Table() {
  using C = FlatCalendar;
  using Row = table::Row<C>;
  static constexpr auto data = ClassTable(
      ControlClass<C>("FlatCalendar", "An edit box for dates with a month view that drops down.",
                      {Twips(1800), Twips(315)}),
      table::Properties(
          Row::Property<&C::Alignment, &C::SetAlignment>(1, "Alignment", Always(std::int32_t{ksxLeft}),
                                                         "Horizontal alignment of the text."),
          Row::Property<&C::BackColor, &C::SetBackColor>(2, "BackColor", Always(kBackColor),
                                                         "Background colour of the text."),
          Row::Property<&C::ForeColor, &C::SetForeColor>(3, "ForeColor", Always(kForeColor),
                                                         "Colour of the text."),
          Row::Property<&C::Enabled, &C::SetEnabled>(4, "Enabled", Always(true),
                                                     "Whether the control takes input."),
          Row::Property<&C::GetFont, &C::SetFont>(5, "Font", Always(kAmbientFont), "Font of the text."),
          Row::ReadOnly<&C::hWnd>(6, "hWnd", "Handle of the control's window."),
          Row::Property<&C::SelStart, &C::SetSelStart>(7, "SelStart", kNoDefault,
                                                       "Where the selection begins, in characters from 0."),
          Row::Property<&C::SelLength, &C::SetSelLength>(8, "SelLength", kNoDefault,
                                                         "How many characters are selected."),
          Row::Property<&C::SelText, &C::SetSelText>(9, "SelText", kNoDefault, "The selected text.",
                                                     {.flags = MemberFlags::kBecomesAnother}),
          Row::Property<&C::Value, &C::SetValue>(
              10, "Value", Always(""),
              "Null, the empty string or a date; while it is typed, the text of a date.",
              {.flags = MemberFlags::kBecomesAnother}),
          Row::Property<&C::DateFormat, &C::SetDateFormat>(
              11, "DateFormat", Always(""), "Format in which dates are shown; the general form when empty.",
              {.flags = MemberFlags::kFormat}),
          Row::Property<&C::DropDownBackColor, &C::SetDropDownBackColor>(
              12, "DropDownBackColor", Always(kButton.rest), "Fill of the drop button."),
          Row::Property<&C::DropDownBackColorMouseOver, &C::SetDropDownBackColorMouseOver>(
              13, "DropDownBackColorMouseOver", Always(kButton.mouse_over),
              "Fill of the drop button under the pointer."),
          Row::Property<&C::DropDownBackColorPushed, &C::SetDropDownBackColorPushed>(
              14, "DropDownBackColorPushed", Always(kButton.pushed),
              "Fill of the drop button while the left button is held down on it."),
          Row::Property<&C::CalBackColor, &C::SetCalBackColor>(15, "CalBackColor", Always(kCalendar.back),
                                                               "Background colour of the month view."),
          Row::Property<&C::CalForeColor, &C::SetCalForeColor>(16, "CalForeColor", Always(kCalendar.fore),
                                                               "Colour of the texts of the month view."),
          Row::Property<&C::CalDisabledColor, &C::SetCalDisabledColor>(
              17, "CalDisabledColor", Always(kCalendar.disabled),
              "Colour of the days of the months before and after; shown from the next month on."),
          Row::Property<&C::CalBorderColor, &C::SetCalBorderColor>(
              18, "CalBorderColor", Always(kCalendar.border), "Colour of the lines around the month view."),
          Row::Property<&C::CalHeaderBackColor, &C::SetCalHeaderBackColor>(
              19, "CalHeaderBackColor", Always(kCalendar.header_back),
              "Background colour of the names of the weekdays."),
          Row::Property<&C::CalMouseOverColor, &C::SetCalMouseOverColor>(
              20, "CalMouseOverColor", Always(kCalendar.mouse_over),
              "Background colour of arrows and months under the pointer."),
          Row::Property<&C::CalSelectBackColor, &C::SetCalSelectBackColor>(
              21, "CalSelectBackColor", Always(kCalendar.select_back),
              "Background colour of the selected day; shown from the next month on."),
          Row::Property<&C::CalTodayBackColor, &C::SetCalTodayBackColor>(
              22, "CalTodayBackColor", Always(kCalendar.today_back),
              "Background colour of today; shown from the next month on.")),
      // DateFormat before Value, which is shown by it.
      table::Persisted("Alignment", "BackColor", "ForeColor", "Enabled", "Font", "DateFormat", "Value",
                       "DropDownBackColor", "DropDownBackColorMouseOver", "DropDownBackColorPushed",
                       "CalBackColor", "CalForeColor", "CalDisabledColor", "CalBorderColor",
                       "CalHeaderBackColor", "CalMouseOverColor", "CalSelectBackColor", "CalTodayBackColor"),
      table::Methods(),
      table::Events(
          Row::Event<&C::Change>(1, "Change", "", "The text changed, or Value was assigned."),
          Row::Event<&C::Click>(2, "Click", "", "The text was clicked."),
          Row::Event<&C::DblClick>(3, "DblClick", "", "The text was clicked twice."),
          Row::Event<&C::KeyDown>(4, "KeyDown", kKeyArguments, "A key went down."),
          Row::Event<&C::KeyPress>(5, "KeyPress", kCharacterArguments, "A character was typed."),
          Row::Event<&C::KeyUp>(6, "KeyUp", kKeyArguments, "A key went up."),
          Row::Event<&C::MouseDown>(7, "MouseDown", kPointerArguments,
                                    "A pointer button went down on the text."),
          Row::Event<&C::MouseMove>(8, "MouseMove", kPointerArguments, "The pointer moved over the text."),
          Row::Event<&C::MouseUp>(9, "MouseUp", kPointerArguments, "A pointer button went up on the text.")));
  static constexpr ClassInfo info(data);
  return info;
}

FlatCalendar::FlatCalendar(std::shared_ptr<ControlSite> site)
    : FixedPanelControl(std::move(site), kPanel),
      inside_(std::make_unique<Inside>(GetSurface().GetPlatform())) {}

FlatCalendar::~FlatCalendar() = default;

// --- Value -------------------------------------------------------------------------------------------

const Variant& FlatCalendar::Value() const { return inside_->value.Value(); }

void FlatCalendar::SetValue(const Variant& value) {
  const auto keep = Reference();
  const std::string text = inside_->value.Assign(value);
  typed_ = false;
  assigning_ = true;
  Edit().SetText(text);
  assigning_ = false;
  PropertyChanged("Value");
  Change.Raise();
}

const std::string& FlatCalendar::DateFormat() const { return inside_->value.DateFormat(); }

void FlatCalendar::SetDateFormat(std::string format) {
  Assign("DateFormat", Then::kNotify, [&] { inside_->value.SetDateFormat(std::move(format)); });
}

void FlatCalendar::OnEditChange() {
  if (assigning_) return;
  typed_ = true;
  inside_->value.Typed(Edit().Text());
  Change.Raise();
}

void FlatCalendar::OnExitFocus() {
  const auto keep = Reference();
  // What was typed is validated, once; then comes what has not been taken over for another reason.
  if (std::exchange(typed_, false) && inside_->value.CommitsOnValidate(Edit().Text())) Commit();
  if (inside_->value.CommitsOnExit(Edit().Text())) Commit();
}

void FlatCalendar::Commit() { SetValue(Edit().Text()); }

// --- Colours -----------------------------------------------------------------------------------------

Color FlatCalendar::CalBackColor() const { return inside_->colors.back; }
Color FlatCalendar::CalForeColor() const { return inside_->colors.fore; }
Color FlatCalendar::CalDisabledColor() const { return inside_->colors.disabled; }
Color FlatCalendar::CalBorderColor() const { return inside_->colors.border; }
Color FlatCalendar::CalHeaderBackColor() const { return inside_->colors.header_back; }
Color FlatCalendar::CalMouseOverColor() const { return inside_->colors.mouse_over; }
Color FlatCalendar::CalSelectBackColor() const { return inside_->colors.select_back; }
Color FlatCalendar::CalTodayBackColor() const { return inside_->colors.today_back; }

void FlatCalendar::SetCalBackColor(Color color) {
  AssignPanelColor("CalBackColor", inside_->colors.back, color, &MonthPanel::ShowBackColor);
}

void FlatCalendar::SetCalForeColor(Color color) {
  AssignPanelColor("CalForeColor", inside_->colors.fore, color, &MonthPanel::ShowForeColor);
}

void FlatCalendar::SetCalBorderColor(Color color) {
  AssignPanelColor("CalBorderColor", inside_->colors.border, color, &MonthPanel::ShowBorderColor);
}

void FlatCalendar::SetCalHeaderBackColor(Color color) {
  AssignPanelColor("CalHeaderBackColor", inside_->colors.header_back, color,
                   &MonthPanel::ShowHeaderBackColor);
}

void FlatCalendar::SetCalMouseOverColor(Color color) {
  AssignPanelColor("CalMouseOverColor", inside_->colors.mouse_over, color, &MonthPanel::ShowMouseOverColor);
}

void FlatCalendar::SetCalDisabledColor(Color color) {
  Store("CalDisabledColor", Then::kNotify, inside_->colors.disabled, color);
}

void FlatCalendar::SetCalSelectBackColor(Color color) {
  Store("CalSelectBackColor", Then::kNotify, inside_->colors.select_back, color);
}

void FlatCalendar::SetCalTodayBackColor(Color color) {
  Store("CalTodayBackColor", Then::kNotify, inside_->colors.today_back, color);
}

void FlatCalendar::AssignPanelColor(std::string_view name, Color& kept, Color color,
                                    void (MonthPanel::*show)()) {
  Assign(name, Then::kNotify, [&] {
    kept = color;
    if (inside_->panel) ((*inside_->panel).*show)();
  });
}

// --- Month view --------------------------------------------------------------------------------------

const MonthPanel* FlatCalendar::Months() const { return inside_->panel ? &*inside_->panel : nullptr; }

bool FlatCalendar::PreparePanel() {
  if (!inside_->panel) {
    MonthPanel& panel = inside_->panel.emplace(NeedPanel(), inside_->model, inside_->colors);
    panel.DayPicked += [this](int cell) { Pick(cell); };
  }
  inside_->panel->Fill();
  return true;
}

// No key moves through the days. Those that close other panels or press a form's buttons go no further.
bool FlatCalendar::PanelKey(std::int16_t code) {
  if (code == kKeyEscape) HidePanel();
  return code == kKeyEscape || code == kKeyEnter || code == kKeyF4 || code == kKeyDown;
}

void FlatCalendar::Pick(int cell) {
  const auto keep = Reference();
  const std::string date = inside_->model.Tag(cell);
  HidePanel();
  SetValue(date);
}

}  // namespace levelwidgets
