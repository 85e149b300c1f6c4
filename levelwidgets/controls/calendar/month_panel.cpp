#include <levelwidgets/controls/calendar/month_panel.h>

#include <cstdlib>

#include <levelwidgets/frame/paint.h>

namespace levelwidgets {

namespace {

constexpr Color kWhite{0x00FFFFFFu};
constexpr Color kBlack{0x00000000u};
constexpr Color kLightLink{0x009CDFF7u};
constexpr Color kDarkLink{0x00804A1Cu};
// Whatever the colours of the calendar.
constexpr Color kShownMonthBack{0x004A5052u};
constexpr Color kRule{0x004A5052u};
constexpr std::array<std::string_view, 2> kArrowGlyphs{"3", "4"};  // in the symbol font

FontRef PanelFont() { return MakeFont({}); }
FontRef GlyphFont() { return MakeFont({.name = "Marlett", .size = 9, .charset = kSymbolCharset}); }

void Put(ChildPart& part, const MonthPlace& place) {
  part.Move(place.position, place.size);
  part.SetVisible(true);
}

int Brightness(ColorRef color) { return 299 * color.red() + 587 * color.green() + 114 * color.blue(); }

}  // namespace

MonthPanel::MonthPanel(PopupPanel& panel, MonthModel& model, const CalendarColors& colors)
    : model_(model), colors_(colors), picPopup_(panel) {
  picPopup_.SetFont(PanelFont());
  picPopup_.Move({}, kMonthPanelSize);
  for (const MonthLine& line : kMonthBorder) LineBorder_.emplace_back(picPopup_).Move(line.start, line.end);
  flblHead_->SetFont(PanelFont());
  flblHead_->SetAlignment(ksxCenter);
  Put(flblHead_, kMonthHead);
  flblHead_->Click += [this] { Go([this] { model_.Toggle(); }); };
  for (int direction : {kMoveBack, kMoveForward}) {
    const auto index = static_cast<std::size_t>(direction);
    auto& arrow = flblMove_.emplace_back(picPopup_, "flblMove", kMonthArrows[index].size);
    arrow->SetFont(GlyphFont());
    arrow->SetMouseUnderline(false);
    arrow->SetAlignment(ksxCenter);
    arrow->SetCaption(std::string(kArrowGlyphs[index]));
    Put(arrow, kMonthArrows[index]);
    const auto move = [this, direction] { Go([this, direction] { model_.Move(direction); }); };
    arrow->Click += move;
    arrow->DblClick += move;
  }
  MakeDays();
  MakeMonths();
  ShowBackColor();
  ShowForeColor();
  ShowBorderColor();
  ShowHeaderBackColor();
  ShowMouseOverColor();
}

void MonthPanel::MakeDays() {
  frmDays_.SetFont(picPopup_.GetFont());
  frmDays_.Move(kMonthFrame.position, kMonthFrame.size);
  frmDays_.SetVisible(true);
  for (int weekday = 0; weekday < kWeekdays; ++weekday) {
    TextLabel& head = lblDay_.emplace_back(frmDays_);
    head.SetCaption(std::string(kWeekdayHeads[static_cast<std::size_t>(weekday)]));
    head.SetAlignment(ksxCenter);
    head.Move(WeekdayHead(weekday).position, WeekdayHead(weekday).size);
  }
  for (int cell = 0; cell < kDayCells; ++cell) {
    TextLabel& day = lblDate_.emplace_back(frmDays_);
    day.SetAlignment(ksxCenter);
    day.Move(DayPlace(cell).position, DayPlace(cell).size);
    day.Click += [this, cell] { DayPicked.Raise(cell); };
  }
  // Last, so that they are seen on the cells.
  for (const MonthLine& line : kWeekRules) {
    LineShape& rule = LineWeek_.emplace_back(frmDays_);
    rule.SetBorderColor(kRule);
    rule.Move(line.start, line.end);
  }
}

void MonthPanel::MakeMonths() {
  frmMonths_.SetFont(picPopup_.GetFont());
  frmMonths_.Move(kMonthFrame.position, kMonthFrame.size);
  lblTitle_.SetCaption("Select a Month");
  lblTitle_.SetAlignment(ksxCenter);
  lblTitle_.Move(kMonthsTitle.position, kMonthsTitle.size);
  for (int index = 0; index < kMonthCells; ++index) {
    const MonthPlace place = MonthLabel(index);
    auto& label = flblMonth_.emplace_back(frmMonths_, "flblMonth", place.size);
    label->SetFont(PanelFont());
    // The shown month looks the same under the pointer: nothing would take the line away again.
    label->SetMouseUnderline(false);
    label->SetAlignment(ksxCenter);
    Put(label, place);
    label->Click += [this, index] { PickMonth(index); };
  }
}

// --- What the user does ------------------------------------------------------------------------------

// The value's month, today's where it has none or cannot be shown.
void MonthPanel::Fill() {
  try {
    model_.Open();
  } catch (const Error&) {
    model_.OpenToday();
  }
  ShowView();
}

void MonthPanel::Go(const std::function<void()>& change) {
  const int month = model_.ShownMonth();
  const int year = model_.ShownYear();
  const MonthModel::View view = model_.ShownView();
  try {
    change();
  } catch (const Error&) {
    model_.Show(view, month, year);
  }
  ShowView();
}

void MonthPanel::PickMonth(int index) {
  picPopup_.SetFocus();
  Go([&] { model_.PickMonth(index); });
}

// --- What is shown -----------------------------------------------------------------------------------

void MonthPanel::ShowView() {
  const bool days = model_.ShownView() == MonthModel::View::kDays;
  if (frmDays_.Visible() != days) frmDays_.SetVisible(days);
  if (frmMonths_.Visible() == days) frmMonths_.SetVisible(!days);
  flblHead_->SetCaption(model_.Header());
  if (days) {
    FillDays();
  } else {
    FillMonths();
  }
}

void MonthPanel::FillDays() {
  const auto back = [this](DayBack role) {
    if (role == DayBack::kToday) return colors_.today_back;
    return role == DayBack::kSelected ? colors_.select_back : colors_.back;
  };
  for (std::size_t cell = 0; cell < lblDate_.size(); ++cell) {
    const DayCell& day = model_.Days()[cell];
    lblDate_[cell].SetCaption(day.caption);
    lblDate_[cell].SetBackColor(back(day.back));
    lblDate_[cell].SetForeColor(day.text == DayText::kShownMonth ? colors_.fore : colors_.disabled);
  }
}

void MonthPanel::FillMonths() {
  for (std::size_t index = 0; index < flblMonth_.size(); ++index) {
    const MonthCell& month = model_.Months()[index];
    FlatLabel& label = *flblMonth_[index];
    SetFore(label);
    SetHover(label, month.shown ? kShownMonthBack : colors_.mouse_over);
    SetBack(label, month.shown ? kShownMonthBack : colors_.back);
    label.SetCaption(month.caption);
  }
  // Of the whole panel: where the days were, it is still to be painted, and nothing keeps that off the
  // months.
  picPopup_.Refresh();
}

// --- Colours -----------------------------------------------------------------------------------------

Color MonthPanel::Readable(Color back, Color one, Color other) const {
  DrawingApi& drawing = picPopup_.GetSurface().Drawing();
  const int on = Brightness(TranslateColor(drawing, back));
  const auto distance = [&](Color color) {
    return std::abs(Brightness(TranslateColor(drawing, color)) - on);
  };
  return distance(one) >= distance(other) ? one : other;
}

// Pushed, a label looks as at rest.
void MonthPanel::SetBack(FlatLabel& label, Color back) {
  label.SetBackColorPushed(back);
  label.SetBackColor(back);
}

void MonthPanel::SetFore(FlatLabel& label) {
  label.SetForeColor(colors_.fore);
  label.SetForeColorPushed(colors_.fore);
  label.SetForeColorMouseOver(Readable(label.BackColorMouseOver(), colors_.fore, colors_.back));
}

void MonthPanel::SetHover(FlatLabel& label, Color mouse_over) {
  label.SetBackColorMouseOver(mouse_over);
  label.SetForeColorMouseOver(Readable(mouse_over, colors_.fore, colors_.back));
}

void MonthPanel::ForEachHovering(void (MonthPanel::*change)(FlatLabel&)) {
  for (Labels* labels : {&flblMove_, &flblMonth_}) {
    for (auto& label : *labels) (this->*change)(*label);
  }
}

void MonthPanel::ShowBackColor() {
  const Color back = colors_.back;
  picPopup_.SetBackColor(back);
  frmDays_.SetBackColor(back);
  frmMonths_.SetBackColor(back);
  lblTitle_.SetBackColor(back);
  for (TextLabel& day : lblDate_) day.SetBackColor(back);
  ForEachHovering(&MonthPanel::SetCurrentBack);
  // No property has the colours of the header's text, which is a link.
  FlatLabel& head = *flblHead_;
  const Color text = Readable(back, kWhite, kBlack);
  head.SetForeColor(text);
  head.SetForeColorMouseOver(Readable(back, kLightLink, kDarkLink));
  head.SetForeColorPushed(text);
  head.SetBackColorMouseOver(back);
  SetBack(head, back);
}

void MonthPanel::ShowForeColor() {
  lblTitle_.SetForeColor(colors_.fore);
  for (TextLabel& head : lblDay_) head.SetForeColor(colors_.fore);
  for (TextLabel& day : lblDate_) day.SetForeColor(colors_.fore);
  ForEachHovering(&MonthPanel::SetFore);
}

void MonthPanel::ShowBorderColor() {
  for (LineShape& line : LineBorder_) line.SetBorderColor(colors_.border);
}

void MonthPanel::ShowHeaderBackColor() {
  for (TextLabel& head : lblDay_) head.SetBackColor(colors_.header_back);
}

void MonthPanel::ShowMouseOverColor() { ForEachHovering(&MonthPanel::SetCurrentHover); }

}  // namespace levelwidgets
