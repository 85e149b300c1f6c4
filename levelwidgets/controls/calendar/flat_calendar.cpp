#include <levelwidgets/controls/calendar/flat_calendar.h>

#include <optional>

#include <levelwidgets/controls/calendar/calendar_value.h>
#include <levelwidgets/controls/calendar/month_panel.h>
#include <levelwidgets/frame/edit_rows.h>

namespace levelwidgets {

namespace {

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
  using Edit = table::EditRows<C>;
  static constexpr auto data = ClassTable(
      ControlClass<C>("FlatCalendar", "An edit box for dates with a month view that drops down.",
                      {Twips(1800), Twips(315)}),
      table::JoinProperties(
          Edit::Alignment(1), Edit::Look(2), Edit::Font(5), Edit::Handle(6), Edit::Selection(7),
          Row::Property<&C::Value, &C::SetValue>(
              10, "Value", Always(""),
              "Null, the empty string or a date; while it is typed, the text of a date.",
              {.flags = MemberFlags::kBecomesAnother}),
          Row::Property<&C::DateFormat, &C::SetDateFormat>(
              11, "DateFormat", Always(""), "Format in which dates are shown; the general form when empty.",
              {.flags = MemberFlags::kFormat}),
          Edit::Strip(12),
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
      table::Methods(), Edit::Events(1, {.change = "The text changed, or Value was assigned."}));
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
