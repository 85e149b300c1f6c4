// An order with its lines in a grid. Each value that is typed there is approved, sums are calculated, and the
// order is saved to a file.
#pragma once

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/controls/grid/flat_grid.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form/form.h>

#include <map>
#include <optional>
#include <string>

using namespace levelwidgets;

class OrderEntry {
 public:
  // Columns.
  enum { kArticle = 1, kPieces, kPrice, kSum, kWanted };

  explicit OrderEntry(Platform& platform);
  OrderEntry(const OrderEntry&) = delete;

  // The lines, with a tab between their cells. Nothing without a line, or when a line is not complete;
  // `state` says why.
  std::optional<std::string> Text();
  // Writes the text to the file at `path`; `state` says how that ended.
  void Save(const std::string& path);

  std::shared_ptr<Form> form;
  FlatCalendar& ordered;  // nothing is wanted before this day
  FlatGrid& lines;
  FlatLabel& state;
  FlatLabel& total;
  FlatButton& add;
  FlatButton& save;

 private:
  void MakeColumns();
  // The text to store for what was typed. Nothing where it is refused, which `state` then says.
  std::optional<std::string> Approved(int column, const std::string& typed);
  std::optional<std::string> ApprovedPieces(const std::string& typed);
  std::optional<std::string> ApprovedDay(const std::string& typed);
  std::string TextOfDay(Date day) const;
  std::nullopt_t Refuse(const std::string& why);
  void Calculate(int row);
  void AddLine();

  ConversionApi& conversions_;
  std::map<std::string, double> prices_{
      {"Door handle", 31.75}, {"Hinge, brass", 4.9}, {"Nut M4", 0.02}, {"Screw M4 x 20", 0.035}};
};
