#include <levelwidgets/controls/grid/flat_column.h>

#include <levelwidgets/controls/grid/flat_columns.h>

namespace levelwidgets {

namespace {
constexpr PropertyOptions kShort{.stored_as = VariantType::kInt16};
}

const ClassInfo& FlatColumn::Table() {
  using T = FlatColumn;
  using Row = table::Row<T>;
  static constexpr auto data = ClassTable(
      ObjectClass("FlatColumn", "One column of a grid."),
      table::Properties(
          Row::Property<&T::ValueList, &T::SetValueList>(1, "ValueList", kNoDefault,
                                                         "The values that the drop-down editor offers."),
          // No editor is -1, so the editor is always saved.
          Row::Property<&T::EditType, &T::SetEditType>(2, "EditType", {ksxEditNone, ksxEditText, true},
                                                       "The editor that opens on a cell.", kShort),
          Row::Property<&T::Format, &T::SetFormat>(3, "Format", Always(""),
                                                   "Format of the cells' texts when painted."),
          Row::Property<&T::Visible, &T::SetVisible>(4, "Visible", {false, true, true},
                                                     "Whether the column is shown."),
          Row::Property<&T::Alignment, &T::SetAlignment>(5, "Alignment", Always(ksxLeft),
                                                         "Horizontal alignment of the cells' texts.", kShort),
          // A caption aligned right is not saved, and is centred when loaded again.
          Row::Property<&T::HeaderAlignment, &T::SetHeaderAlignment>(
              6, "HeaderAlignment", {ksxLeft, ksxCenter, ksxRight}, "Horizontal alignment of the caption.",
              kShort),
          Row::Property<&T::Width, &T::SetWidth>(7, "Width", {0, 1440, 1440}, "Width in twips.", kShort),
          Row::Property<&T::Caption, &T::SetCaption>(8, "Caption", Always(""), "Text of the header.")),
      table::Persisted("Caption", "Width", "Alignment", "HeaderAlignment", "EditType", "Visible", "Format"));
  static constexpr ClassInfo info(data);
  return info;
}

FlatColumn::FlatColumn() : value_list_(std::make_shared<ksxValueList>()) {}

void FlatColumn::NotifyOwner() const {
  if (const auto owner = owner_.lock()) owner->NotifyColumnInfoChanged();
}

void FlatColumn::SetFormat(std::string format) {
  format_ = std::move(format);
  NotifyOwner();
}

void FlatColumn::SetVisible(bool visible) {
  visible_ = visible;
  NotifyOwner();
}

void FlatColumn::SetAlignment(ksxAlignmentConstants alignment) {
  alignment_ = alignment;
  NotifyOwner();
}

void FlatColumn::SetHeaderAlignment(ksxAlignmentConstants alignment) {
  header_alignment_ = alignment;
  NotifyOwner();
}

void FlatColumn::SetWidth(std::int32_t width) {
  width_ = width;
  NotifyOwner();
}

void FlatColumn::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  NotifyOwner();
}

}  // namespace levelwidgets
