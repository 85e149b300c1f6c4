// An edit box for dates with a month view that drops down.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/fixed_panel_control.h>

namespace levelwidgets {

class MonthPanel;

// A click on a day closes the month view and takes the day over; a typed date is taken over when the control
// is left. Value is Null, the empty string or a date or, between keystrokes, the typed text of a date.
class FlatCalendar : public FixedPanelControl {
 public:
  static const ClassInfo& Table();
  explicit FlatCalendar(std::shared_ptr<ControlSite> site);
  ~FlatCalendar() override;

  // --- Properties -------------------------------------------------------------------------------
  // Each notifies.

  const Variant& Value() const;
  // Takes Null, the empty string, or a date or the text of one, which becomes a date and is shown by
  // DateFormat; raises 13 (type mismatch) for anything else, and nothing changes. Raises Change after it has
  // notified.
  void SetValue(const Variant& value);
  // In which dates are shown from the next one on; the general form when empty.
  const std::string& DateFormat() const;
  void SetDateFormat(std::string format);
  // The month view: background of all that has no other, texts, days of the adjacent months, the lines around
  // it, the weekdays' heads, what is under the pointer, the selected day and today. An open month view shows
  // a new colour at once, except those of single days, which wait for the next month. The first two overwrite
  // them.
  Color CalBackColor() const;
  void SetCalBackColor(Color color);
  Color CalForeColor() const;
  void SetCalForeColor(Color color);
  Color CalDisabledColor() const;
  void SetCalDisabledColor(Color color);
  Color CalBorderColor() const;
  void SetCalBorderColor(Color color);
  Color CalHeaderBackColor() const;
  void SetCalHeaderBackColor(Color color);
  Color CalMouseOverColor() const;
  void SetCalMouseOverColor(Color color);
  Color CalSelectBackColor() const;
  void SetCalSelectBackColor(Color color);
  Color CalTodayBackColor() const;
  void SetCalTodayBackColor(Color color);

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnExitFocus() override;

  // What is in it, for tests; null before it has first opened.
  const MonthPanel* Months() const;

 protected:
  bool PreparePanel() override;
  bool PanelKey(std::int16_t code) override;
  void OnEditChange() override;

 private:
  struct Inside;

  void AssignPanelColor(std::string_view name, Color& kept, Color color, void (MonthPanel::*show)());
  void Pick(int cell);
  void Commit();

  std::unique_ptr<Inside> inside_;
  bool typed_ = false;      // since the last date was taken over
  bool assigning_ = false;  // the edit box gets its text from Value
};

}  // namespace levelwidgets
