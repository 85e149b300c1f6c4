// Which days and months a calendar's panel shows, and how it moves between them.
#pragma once

#include <array>
#include <functional>
#include <string>

#include <levelwidgets/controls/calendar/calendar_value.h>

namespace levelwidgets {

// With no century rule, on purpose: 1900 and 2100 are leap years. 30 for an unknown month.
int DaysInMonth(int month, int year);

inline constexpr int kDayCells = 42;  // seven to a row, Sunday first
inline constexpr int kMonthCells = 12;
inline constexpr int kMoveBack = 0;
inline constexpr int kMoveForward = 1;

// The roles that the control's colours are for.
enum class DayBack { kPlain, kToday, kSelected };
enum class DayText { kShownMonth, kAdjacentMonth };

struct DayCell {
  Date date;
  std::string caption;  // the day without a leading zero
  DayBack back = DayBack::kPlain;
  DayText text = DayText::kAdjacentMonth;
};

struct MonthCell {
  std::string caption;  // three letters of the locale's name
  bool shown = false;   // marked
};

// Dates follow the locale's conversions, the first of a month too, which is read in the order month, day,
// year on every locale. What a conversion raises (13 for a year outside 100 to 9999, 5 for a day after the
// last possible one) passes through; the shown month and year are stored by then, the cells are as they were.
class MonthModel {
 public:
  enum class View { kDays, kMonths };

  // Both outlive the model; `now` returns today's date.
  MonthModel(ConversionApi& conversions, std::function<Date()> now, const CalendarValue& value)
      : conversions_(conversions), now_(std::move(now)), value_(value) {}

  // --- What is shown ----------------------------------------------------------------------------

  View ShownView() const { return view_; }
  int ShownMonth() const { return month_; }
  int ShownYear() const { return year_; }
  // Spaced out: "M A Y   2 0 2 4 " with its blanks at the end.
  const std::string& Header() const { return header_; }
  const std::array<DayCell, kDayCells>& Days() const { return days_; }
  const std::array<MonthCell, kMonthCells>& Months() const { return months_; }
  // The date of the cell (0 to 41) as text: what a click on it assigns to the control's Value.
  std::string Tag(int cell) const;

  // --- What the user does -----------------------------------------------------------------------

  // Shows the days of the value's month, of today's when it is no date.
  void Open();
  // The same for today's month, whatever the value.
  void OpenToday();
  // An arrow, kMoveBack or kMoveForward: a month in the view of days, a year in that of months. Raises 6
  // (overflow) for a year of more than 16 bits.
  void Move(int direction);
  // The header: toggles the views.
  void Toggle();
  // A month label, 0 to 11: shows its days.
  void PickMonth(int index);

  // --- Filling ----------------------------------------------------------------------------------

  // `month` has no part in what the view of months shows, except for the mark.
  void Show(View view, int month, int year);
  void FillMonth(int month, int year);
  void FillMonths(int year);

 private:
  void OpenAt(Date date);
  Date FirstOfShownMonth() const;
  std::string HeaderOf(Date date, std::string_view format) const;
  DayBack BackOf(Date date, Date today, std::optional<Date> selected) const;

  ConversionApi& conversions_;
  std::function<Date()> now_;
  const CalendarValue& value_;

  View view_ = View::kDays;
  std::int16_t month_ = 1;
  std::int16_t year_ = 1900;
  std::string header_;
  std::array<DayCell, kDayCells> days_;
  std::array<MonthCell, kMonthCells> months_;
};

}  // namespace levelwidgets
