#include <levelwidgets/controls/grid/cell_editor.h>

#include <algorithm>
#include <limits>

#include <levelwidgets/controls/calculator/flat_calculator.h>
#include <levelwidgets/controls/calendar/flat_calendar.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/frame/parts/child_control.h>

namespace levelwidgets {

namespace {

constexpr int kAroundText = 2;  // pixels
// Of the controls, where the row does not decide it.
constexpr Twips kOwnHeight{315};

struct ControlPlace {
  TwipPoint position;
  TwipSize size;
};
// In whole pixels, and not beyond what a window can be.
Twips RowHeight(const EditorPlace& place) {
  return ToTwips(place.cell.height() - 1, place.twips_per_pixel_y);
}
// As wide as its cell and centred on its row, with the editor's own height.
ControlPlace CentredOn(const EditorPlace& place, Twips own_height) {
  const auto& [cell, text_height, twips_x, twips_y] = place;
  const Twips top(ToTwips(cell.top, twips_y).value - (own_height.value - RowHeight(place).value) / 2);
  return {{ToTwips(cell.left, twips_x), top}, {ToTwips(cell.right - cell.left, twips_x), own_height}};
}

// --- Edit box ------------------------------------------------------------------------------------------

class TextEditor final : public CellEditor {
 public:
  explicit TextEditor(PartHost& grid) : CellEditor(grid), txtEdit_(grid, false) { txtEdit_.NeedWindow(); }

  WindowHandle hWnd() const override { return txtEdit_.hWnd(); }
  bool Holds(WindowHandle window) const override { return txtEdit_.Holds(window); }
  TextBox& Edit() const override { return txtEdit_; }
  EditEvents& Events() override { return txtEdit_; }

  // It covers its cell.
  PixelRect Place(const EditorPlace& place) override {
    Windows().SetWindowPos(hWnd(), {}, place.cell, kSwpNoZOrder);
    return place.cell;
  }

 private:
  void SetFont(const FontRef& font) override { txtEdit_.SetFont(font); }
  void Show(const FlatColumn&, std::string_view text) override { txtEdit_.SetText(text); }
  void SetVisible(bool visible) override { txtEdit_.SetVisible(visible); }

  mutable TextBox txtEdit_;
};

// --- Controls ------------------------------------------------------------------------------------------

// One that opens a panel.
template <typename T>
class ControlEditor : public CellEditor {
 public:
  ControlEditor(PartHost& grid, std::string name)
      : CellEditor(grid), control_(grid, std::move(name), {Twips(0), kOwnHeight}) {}

  WindowHandle hWnd() const override { return control_.hWnd(); }
  bool Holds(WindowHandle window) const override { return control_.Holds(window); }
  TextBox& Edit() const override { return control_->ActiveEdit(); }
  EditEvents& Events() override { return *control_; }
  bool PanelIsOpen() const override { return control_->PanelIsOpen(); }

  PixelRect Place(const EditorPlace& place) override {
    const auto [position, size] = PlaceOf(place);
    control_.Move(position, size);
    const int top = ToPixels(position.y, place.twips_per_pixel_y);
    return {place.cell.left, top, place.cell.right, top + ToPixels(size.height, place.twips_per_pixel_y)};
  }

 protected:
  T& Inner() const { return *control_; }

 private:
  // It covers its cell, unless a line of text does not fit in there or would be far above the cell's own.
  virtual ControlPlace PlaceOf(const EditorPlace& place) const {
    const Twips cell_height = ToTwips(place.cell.height(), place.twips_per_pixel_y);
    const bool fits = place.cell.height() >= place.text_height + kAroundText && cell_height <= kOwnHeight;
    if (!fits) return CentredOn(place, kOwnHeight);
    const TwipPoint corner{ToTwips(place.cell.left, place.twips_per_pixel_x),
                           ToTwips(place.cell.top, place.twips_per_pixel_y)};
    return {corner, {ToTwips(place.cell.width(), place.twips_per_pixel_x), cell_height}};
  }
  void SetFont(const FontRef& font) override { control_->SetFont(font); }
  void SetVisible(bool visible) override { control_.SetVisible(visible); }

  ChildControl<T> control_;
};

// In the column's format, and as high as the row.
class CalculatorEditor final : public ControlEditor<FlatCalculator> {
 public:
  explicit CalculatorEditor(PartHost& grid) : ControlEditor(grid, "fcalcEdit") {}

 private:
  ControlPlace PlaceOf(const EditorPlace& place) const override { return CentredOn(place, RowHeight(place)); }
  void Show(const FlatColumn& column, std::string_view text) override {
    Inner().SetAlignment(column.Alignment());
    Inner().SetFormatString(column.Format());
    Inner().SetText(text);
  }
};

// Empty for a cell that holds no date.
class CalendarEditor final : public ControlEditor<FlatCalendar> {
 public:
  explicit CalendarEditor(PartHost& grid) : ControlEditor(grid, "fcalEdit") {}

 private:
  void Show(const FlatColumn&, std::string_view text) override {
    ConversionApi& conversions = Inner().GetSurface().GetPlatform().Conversions();
    Inner().SetValue(conversions.IsDate(text) ? text : std::string_view());
  }
};

// With the values of the column.
class DropDownEditor final : public ControlEditor<FlatDropDown> {
 public:
  explicit DropDownEditor(PartHost& grid) : ControlEditor(grid, "fddEdit") {}

 private:
  void Show(const FlatColumn& column, std::string_view text) override {
    FlatDropDown& list = Inner();
    list.Clear();
    std::int16_t selected = 0;
    if (const auto values = column.ValueList()) {
      for (const auto& value : *values) {
        if (list.ItemCount() == std::numeric_limits<std::int16_t>::max()) break;
        std::string description = value->Description();
        const bool is_first = selected == 0 && description == text;
        list.AddItem(description);
        if (is_first) selected = list.ItemCount();
      }
    }
    list.SetText(text);
    list.SetListIndex(selected);
  }
};

}  // namespace

std::unique_ptr<CellEditor> CellEditor::Make(PartHost& grid, ksxEditTypeConstants type) {
  switch (type) {
    case ksxEditNone: return nullptr;
    case ksxEditCalculator: return std::make_unique<CalculatorEditor>(grid);
    case ksxEditCalendar: return std::make_unique<CalendarEditor>(grid);
    case ksxEditDropDown: return std::make_unique<DropDownEditor>(grid);
    default: return std::make_unique<TextEditor>(grid);
  }
}

void CellEditor::Load(const FlatColumn& column, std::string_view text, const FontRef& font) {
  if (Edit().GetFont() != font) SetFont(font);
  Show(column, text);
  Edit().Select(0, std::numeric_limits<std::int32_t>::max());
}

void CellEditor::ShowBehind(WindowHandle front) {
  if (visible_) return;
  visible_ = true;
  Windows().SetWindowPos(hWnd(), front, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
  SetVisible(true);
}

void CellEditor::Hide() {
  if (!visible_) return;
  visible_ = false;
  SetVisible(false);
  Windows().SetWindowPos(hWnd(), {kHwndBottom}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
}

}  // namespace levelwidgets
