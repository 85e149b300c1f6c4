#include "order_entry.h"

#include <cmath>
#include <fstream>

#include <levelwidgets/frame/conversions.h>

namespace {

Placement Place(float left, float top, float width, float height) {  // twips
  return {{Twips(left), Twips(top)}, TwipSize{Twips(width), Twips(height)}};
}

}  // namespace

OrderEntry::OrderEntry(Platform& platform)
    : form(Form::Create(platform, {.caption = "Order entry", .size = {Twips(9000), Twips(5250)}})),
      ordered(form->Add<FlatCalendar>("calOrdered", Place(240, 240, 1800, 315))),
      lines(form->Add<FlatGrid>("grdLines", Place(240, 750, 8520, 3255))),
      state(form->Add<FlatLabel>("lblState", Place(240, 4200, 5400, 240))),
      total(form->Add<FlatLabel>("lblTotal", Place(5760, 4200, 3000, 240))),
      add(form->Add<FlatButton>("cmdAdd", Place(240, 4650, 1500, 375))),
      save(form->Add<FlatButton>("cmdSave", Place(7260, 4650, 1500, 375))),
      conversions_(platform.Conversions()) {
  ordered.SetDateFormat("yyyy-mm-dd");
  ordered.SetValue("2024-05-15");
  MakeColumns();
  state.SetCaption("");
  total.SetCaption("0.00");
  total.SetAlignment(ksxRight);
  add.SetCaption("&Another line");
  add.Click += [this] { AddLine(); };
  save.SetCaption("&Save");
  save.Click += [this] { Save("order.txt"); };

  lines.BeforeCellEdit += [this](int, int column, std::string& value, bool& cancel) {
    const auto approved = Approved(column, value);
    if (approved) value = *approved;
    cancel = !approved;
  };
  lines.AfterCellEdit += [this](int row, int) { Calculate(row); };
}

void OrderEntry::MakeColumns() {
  FlatColumns& columns = *lines.Columns();
  const auto article = columns.Add("Article", 2700, ksxLeft, ksxLeft, ksxEditDropDown, true);
  for (const auto& [name, price] : prices_) article->ValueList()->Add(name);
  columns.Add("Pieces", 1200, ksxCenter, ksxRight, ksxEditCalculator, true, "#,##0");
  columns.Add("Price", 1200, ksxCenter, ksxRight, ksxEditNone, true, "#,##0.00");
  columns.Add("Sum", 1500, ksxCenter, ksxRight, ksxEditNone, true, "#,##0.00");
  columns.Add("Wanted on", 1860, ksxCenter, ksxCenter, ksxEditCalendar, true, "d mmm yyyy");
  lines.SetRowHeight(Twips(315));
  lines.SetRowCount(8);
  lines.SetShowCellFocus(true);
  lines.SetAllowEdits(true);
}

std::optional<std::string> OrderEntry::Approved(int column, const std::string& typed) {
  state.SetCaption("");
  switch (column) {
    case kArticle:
      if (prices_.contains(typed)) return typed;
      return Refuse('"' + typed + "\" is no article");
    case kPieces: return ApprovedPieces(typed);
    case kWanted: return ApprovedDay(typed);
    default: return typed;
  }
}

std::optional<std::string> OrderEntry::ApprovedPieces(const std::string& typed) {
  const auto pieces = conversions_.ToDouble(typed);
  if (!pieces || pieces.value <= 0 || pieces.value != std::floor(pieces.value)) {
    return Refuse("Pieces are a whole number above 0; \"" + typed + "\" is not");
  }
  return conversions_.Format(pieces.value, "0").value;
}

std::optional<std::string> OrderEntry::ApprovedDay(const std::string& typed) {
  const auto wanted = conversions_.ToDate(typed);
  if (!conversions_.IsDate(typed) || !wanted) return Refuse('"' + typed + "\" is no date");
  const std::string day = TextOfDay(wanted.value);
  const auto first = conversions_.ToDate(ToConversionValue(ordered.Value()));
  if (!first || day >= TextOfDay(first.value)) return day;
  return Refuse(day + " is before the day of the order, " + TextOfDay(first.value));
}

// In the order of the days.
std::string OrderEntry::TextOfDay(Date day) const { return conversions_.Format(day, "yyyy-mm-dd").value; }

std::nullopt_t OrderEntry::Refuse(const std::string& why) {
  state.SetCaption(why);
  return std::nullopt;
}

void OrderEntry::Calculate(int row) {
  const auto price = prices_.find(lines.RowData(row, kArticle));
  const auto pieces = conversions_.ToDouble(lines.RowData(row, kPieces));
  const bool known = price != prices_.end();
  lines.SetRowData(row, kPrice, known ? conversions_.ToText(price->second).value : "");
  lines.SetRowData(row, kSum, known && pieces ? conversions_.ToText(price->second * pieces.value).value : "");
  double sum = 0;
  for (int line = 1; line <= lines.RowCount(); ++line) {
    sum += conversions_.ToDouble(lines.RowData(line, kSum)).value;  // 0 for none
  }
  total.SetCaption(conversions_.Format(sum, "#,##0.00").value);
}

void OrderEntry::AddLine() {
  lines.SetRowCount(lines.RowCount() + 1);
  form->Find("grdLines")->SetFocus();
  lines.SetRowIndex(lines.RowCount());
}

std::optional<std::string> OrderEntry::Text() {
  std::string text;
  for (int row = 1; row <= lines.RowCount(); ++row) {
    std::string line, cells;
    for (int column = kArticle; column <= kWanted; ++column) {
      line += (column == kArticle ? "" : "\t") + lines.RowData(row, column);
      cells += lines.RowData(row, column);
    }
    if (cells.empty()) continue;
    for (const int column : {kArticle, kPieces, kWanted}) {
      if (!lines.RowData(row, column).empty()) continue;
      return Refuse("Line " + std::to_string(row) + " has no " + lines.Columns()->Item(column)->Caption());
    }
    text += line + "\n";
  }
  if (text.empty()) return Refuse("There is nothing to save");
  return text;
}

void OrderEntry::Save(const std::string& path) {
  const auto text = Text();
  if (!text) return;
  std::ofstream file(path, std::ios::binary);
  file << *text << std::flush;
  state.SetCaption(file ? "Saved as " + path : "Not saved: " + path + " cannot be written");
}
