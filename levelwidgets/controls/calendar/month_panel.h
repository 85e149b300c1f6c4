// The panel of a calendar: the days of a month, or the months of a year.
#pragma once

#include <deque>
#include <functional>

#include <levelwidgets/controls/calendar/month_layout.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/line_shape.h>
#include <levelwidgets/frame/parts/popup_panel.h>
#include <levelwidgets/frame/parts/text_label.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

struct CalendarColors {
  Color back{0x00000000u};
  Color fore{0x00FFFFFFu};
  Color disabled = kGrayText;  // days of the adjacent months
  Color border{0x004A5052u};
  Color header_back{0x004A5052u};  // of the weekday heads
  Color mouse_over{0x009CDFF7u};
  Color select_back{0x006B7C6Du};
  Color today_back{0x004A5052u};
};

// Shows what the model has, and does to the model what the user does with arrows, header and months. The
// colours of single days and months are those of the last fill.
class MonthPanel {
 public:
  // All outlive it.
  MonthPanel(PopupPanel& panel, MonthModel& model, const CalendarColors& colors);

  // Fills it with the days of the value's month, or of today's.
  void Fill();
  // To be called when one of the colours has changed. The first two overwrite what marks days and months.
  void ShowBackColor();
  void ShowForeColor();
  void ShowBorderColor();
  void ShowHeaderBackColor();
  void ShowMouseOverColor();

  // The cell, 0 to 41, that was clicked.
  Event<int> DayPicked;

  // The parts, for tests.
  const FlatLabel& Head() const { return *flblHead_; }
  const FlatLabel& Arrow(int direction) const { return *At(flblMove_, direction); }
  const FlatLabel& Month(int index) const { return *At(flblMonth_, index); }
  const TextLabel& Day(int cell) const { return At(lblDate_, cell); }
  const TextLabel& WeekdayHeadOf(int weekday) const { return At(lblDay_, weekday); }
  const PictureBox& DaysFrame() const { return frmDays_; }
  const PictureBox& MonthsFrame() const { return frmMonths_; }

 private:
  using Labels = std::deque<ChildControl<FlatLabel>>;
  template <typename T>
  static const T& At(const std::deque<T>& parts, int index) {
    return parts[static_cast<std::size_t>(index)];
  }

  void MakeDays();
  void MakeMonths();
  // By `change` of the model; a month that has no days to show leaves everything as it was.
  void Go(const std::function<void()>& change);
  void PickMonth(int index);
  void ShowView();
  void FillDays();
  void FillMonths();
  void SetBack(FlatLabel& label, Color back);
  void SetFore(FlatLabel& label);
  void SetHover(FlatLabel& label, Color mouse_over);
  void SetCurrentBack(FlatLabel& label) {
    SetBack(label, colors_.back);
    SetFore(label);
  }
  void SetCurrentHover(FlatLabel& label) { SetHover(label, colors_.mouse_over); }
  // The arrows and the months.
  void ForEachHovering(void (MonthPanel::*change)(FlatLabel&));
  // Of two, the one that can be read better on `back`.
  Color Readable(Color back, Color one, Color other) const;

  MonthModel& model_;
  const CalendarColors& colors_;
  PopupPanel& picPopup_;
  std::deque<LineShape> LineBorder_;
  ChildControl<FlatLabel> flblHead_{picPopup_, "flblHead", kMonthHead.size};
  Labels flblMove_;
  PictureBox frmDays_{picPopup_};
  std::deque<TextLabel> lblDay_;
  std::deque<TextLabel> lblDate_;
  std::deque<LineShape> LineWeek_;
  PictureBox frmMonths_{picPopup_};
  TextLabel lblTitle_{frmMonths_};
  Labels flblMonth_;
};

}  // namespace levelwidgets
