// Where the parts of a calendar's panel are: twips, each relative to what holds it.
#pragma once

#include <array>
#include <string_view>

#include <levelwidgets/controls/calendar/month_model.h>
#include <levelwidgets/frame/units.h>

namespace levelwidgets {

struct MonthPlace {
  TwipPoint position;
  TwipSize size;
};

struct MonthLine {
  TwipPoint start;
  TwipPoint end;
};

namespace month {

constexpr MonthPlace Place(int left, int top, int width, int height) {
  return {{Twips(left), Twips(top)}, {Twips(width), Twips(height)}};
}
constexpr MonthLine Line(int x1, int y1, int x2, int y2) {
  return {{Twips(x1), Twips(y1)}, {Twips(x2), Twips(y2)}};
}

}  // namespace month

// --- Panel -------------------------------------------------------------------------------------------

inline constexpr TwipSize kMonthPanelSize{Twips(2320), Twips(2260)};
inline constexpr std::array kMonthBorder{
    month::Line(60, 60, 2220, 60),
    month::Line(60, 2160, 2220, 2160),
    month::Line(60, 60, 60, 2160),
    month::Line(2220, 60, 2220, 2160),
};
inline constexpr MonthPlace kMonthHead = month::Place(600, 90, 1215, 255);
// Back and forward.
inline constexpr std::array kMonthArrows{month::Place(240, 120, 240, 240), month::Place(1800, 120, 240, 240)};
// Of both views.
inline constexpr MonthPlace kMonthFrame = month::Place(240, 360, 1935, 1695);

// --- Days --------------------------------------------------------------------------------------------

inline constexpr int kWeekdays = 7;
inline constexpr std::array<std::string_view, kWeekdays> kWeekdayHeads{"Su", "Mo", "Tu", "We",
                                                                       "Th", "Fr", "Sa"};

namespace month {
inline constexpr std::array<int, kWeekdays> kColumns{0, 255, 525, 780, 1035, 1305, 1560};
inline constexpr int kColumnWidth = 265;
inline constexpr int kFirstWeek = 240;
inline constexpr int kWeekHeight = 240;
}  // namespace month

constexpr MonthPlace WeekdayHead(int weekday) {
  return month::Place(month::kColumns[static_cast<std::size_t>(weekday)], 0, month::kColumnWidth, 210);
}
// A cell fills the column of its weekday's head and the row between two rules.
constexpr MonthPlace DayPlace(int cell) {
  return month::Place(month::kColumns[static_cast<std::size_t>(cell % kWeekdays)],
                      month::kFirstWeek + cell / kWeekdays * month::kWeekHeight, month::kColumnWidth,
                      month::kWeekHeight);
}
inline constexpr std::array kWeekRules{
    month::Line(0, 480, 1800, 480),   month::Line(0, 720, 1800, 720),   month::Line(0, 960, 1800, 960),
    month::Line(0, 1200, 1800, 1200), month::Line(0, 1440, 1800, 1440),
};

// --- Months ------------------------------------------------------------------------------------------

inline constexpr MonthPlace kMonthsTitle = month::Place(0, 0, 1935, 210);
// Four to a row; neighbours overlap.
constexpr MonthPlace MonthLabel(int index) {
  return month::Place(index % 4 * 450, 240 + index / 4 * 480, 495, 495);
}

}  // namespace levelwidgets
