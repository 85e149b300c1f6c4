#include <levelwidgets/controls/grid/flat_column.h>

#include <levelwidgets/controls/grid/flat_columns.h>

namespace levelwidgets {

const ClassInfo& FlatColumn::Table() {
  static const ClassInfo info =
      ClassTable("FlatColumn", "One column of a grid.")
          .Property("ValueList", &FlatColumn::ValueList, &FlatColumn::SetValueList,
                    {.help = "The values that the drop-down editor offers."})
          .Property("EditType", &FlatColumn::EditType, &FlatColumn::SetEditType,
                    {.help = "The editor that opens on a cell."})
          .Property("Format", &FlatColumn::Format, &FlatColumn::SetFormat,
                    {.help = "Format of the cells' texts when painted."})
          .Property("Visible", &FlatColumn::Visible, &FlatColumn::SetVisible,
                    {.help = "Whether the column is shown."})
          .Property("Alignment", &FlatColumn::Alignment, &FlatColumn::SetAlignment,
                    {.help = "Horizontal alignment of the cells' texts."})
          .Property("HeaderAlignment", &FlatColumn::HeaderAlignment, &FlatColumn::SetHeaderAlignment,
                    {.help = "Horizontal alignment of the caption."})
          .Property("Width", &FlatColumn::Width, &FlatColumn::SetWidth, {.help = "Width in twips."})
          .Property("Caption", &FlatColumn::Caption, &FlatColumn::SetCaption, {.help = "Text of the header."})
          .Build();
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
