#include <levelwidgets/controls/calendar/month_model.h>

#include <levelwidgets/frame/conversions.h>
#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

constexpr int kNameLength = 3;

// The first `count` characters.
std::string_view Left(std::string_view text, int count) {
  std::string_view rest = text;
  while (count-- > 0 && !rest.empty()) text::TakeCharacter(rest);
  return text.substr(0, text.size() - rest.size());
}

// A blank behind each character, blanks included.
std::string SpacedOut(std::string_view text) {
  std::string spaced;
  while (!text.empty()) {
    const std::string_view character = text::FirstCharacter(text);
    spaced.append(character) += ' ';
    text.remove_prefix(character.size());
  }
  return spaced;
}

}  // namespace

int DaysInMonth(int month, int year) {
  switch (month) {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12: return 31;
    case 2: return (year & 3) == 0 ? 29 : 28;
    default: return 30;
  }
}

Date MonthModel::FirstOfShownMonth() const {
  const std::string text = std::to_string(month_) + "/1/" + std::to_string(year_);
  return ResultOf(conversions_.ToDate(text));
}

std::string MonthModel::HeaderOf(Date date, std::string_view format) const {
  return SpacedOut(conversions_.UpperCase(ResultOf(conversions_.Format(date, format))));
}

// Today is marked in its own month only, the selected day wherever it is shown.
DayBack MonthModel::BackOf(Date date, Date today, std::optional<Date> selected) const {
  if (date == today && ResultOf(conversions_.Month(date)) == month_) return DayBack::kToday;
  return date == selected ? DayBack::kSelected : DayBack::kPlain;
}

void MonthModel::FillMonth(int month, int year) {
  const std::int16_t checked_month = ToInt16(month);
  year_ = ToInt16(year);
  month_ = checked_month;
  const Date first = FirstOfShownMonth();
  const int lead = ResultOf(conversions_.Weekday(first, kSunday)) - 1;
  const int last = DaysInMonth(month_, year_) + lead - 1;
  const std::optional<Date> selected = value_.SelectedDate();
  const Date today = calendar::DayOf(now_());
  std::string header = HeaderOf(first, "mmm yyyy");
  std::array<DayCell, kDayCells> days;
  for (int i = 0; i < kDayCells; ++i) {
    DayCell& cell = days[static_cast<std::size_t>(i)];
    cell.date = ResultOf(conversions_.DateAdd("y", i - lead, first));
    cell.caption = ResultOf(conversions_.Format(cell.date, "d"));
    cell.text = i >= lead && i <= last ? DayText::kShownMonth : DayText::kAdjacentMonth;
    cell.back = BackOf(cell.date, today, selected);
  }
  header_ = std::move(header);
  days_ = std::move(days);
}

void MonthModel::FillMonths(int year) {
  year_ = ToInt16(year);
  header_ = HeaderOf(FirstOfShownMonth(), "yyyy");
  for (int i = 0; i < kMonthCells; ++i) {
    const std::string name = ResultOf(conversions_.MonthName(i + 1));
    months_[static_cast<std::size_t>(i)] = {std::string(Left(name, kNameLength)), i + 1 == month_};
  }
}

std::string MonthModel::Tag(int cell) const {
  const auto index = static_cast<std::size_t>(cell);
  if (index >= days_.size()) throw Error(kSubscriptOutOfRange);
  return ResultOf(conversions_.ToText(days_[index].date));
}

void MonthModel::Open() { OpenAt(value_.SelectedDate().value_or(now_())); }

void MonthModel::OpenToday() { OpenAt(now_()); }

void MonthModel::OpenAt(Date date) {
  const DateParts parts = ResultOf(conversions_.SplitDate(date));
  Show(View::kDays, parts.month, parts.year);
}

void MonthModel::Show(View view, int month, int year) {
  view_ = view;
  if (view == View::kDays) return FillMonth(month, year);
  month_ = ToInt16(month);
  FillMonths(year);
}

void MonthModel::Move(int direction) {
  const int step = direction == kMoveForward ? 1 : -1;
  if (view_ == View::kMonths) return FillMonths(year_ + step);
  const int month = month_ + step;
  if (month > kMonthCells) return FillMonth(1, year_ + 1);
  if (month < 1) return FillMonth(kMonthCells, year_ - 1);
  FillMonth(month, year_);
}

void MonthModel::Toggle() { Show(view_ == View::kDays ? View::kMonths : View::kDays, month_, year_); }

void MonthModel::PickMonth(int index) {
  if (index < 0 || index >= kMonthCells) throw Error(kSubscriptOutOfRange);
  Show(View::kDays, index + 1, year_);
}

}  // namespace levelwidgets
