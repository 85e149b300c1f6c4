#include <levelwidgets/controls/grid/flat_columns.h>

namespace levelwidgets {

const ClassInfo& FlatColumns::Table() {
  static const ClassInfo info =
      ClassTable("FlatColumns", "The columns of a grid.")
          .Method("Add", &FlatColumns::Add,
                  {{"Caption"},
                   {"Width", Variant(0)},
                   {"HeaderAlignment", Variant(0)},
                   {"Alignment", Variant(0)},
                   {"EditType", Variant(0)},
                   {"Visible", Variant(false)},
                   {"Format", Variant("")},
                   {"sKey", Variant("")},
                   {"InsertAfterIndex", Variant(0)}},
                  "Adds a column, at the end or behind the one at a position, and returns it.")
          .Method("Clear", &FlatColumns::Clear, {}, "Removes all columns.")
          .IndexedReadOnly("Item", &FlatColumns::Item, {"vntIndexKey"},
                           "The column at a position from 1 on, or under a key.")
          .ReadOnly("Count", &FlatColumns::Count, "Number of columns.")
          .Method("Remove", &FlatColumns::Remove, {{"vntIndexKey"}},
                  "Removes the column at a position from 1 on, or under a key.")
          .Enumerated("NewEnum", &FlatColumns::NewEnum, "The columns in order, one after the other.")
          .DefaultMember("Item")
          .Event(1, "ColumnAdded", &FlatColumns::ColumnAdded, {},
                 "A column was added or removed, or all were removed.")
          .Event(2, "ColumnInfoChanged", &FlatColumns::ColumnInfoChanged, {},
                 "A property of a column was assigned.")
          .Build();
  return info;
}

std::shared_ptr<FlatColumn> FlatColumns::Add(std::string caption, std::int32_t width,
                                             ksxAlignmentConstants header_alignment,
                                             ksxAlignmentConstants alignment, ksxEditTypeConstants edit_type,
                                             bool visible, std::string format, std::string_view key,
                                             std::int32_t insert_after) {
  const auto keep = shared_from_this();  // a listener may let go of the collection
  auto column = std::make_shared<FlatColumn>();
  // Before the properties: each of them is told, although the column is not in the collection yet.
  column->SetOwner(weak_from_this());
  column->SetCaption(std::move(caption));
  column->SetWidth(width);
  column->SetAlignment(alignment);
  column->SetHeaderAlignment(header_alignment);
  column->SetVisible(visible);
  column->SetFormat(std::move(format));
  column->SetEditType(edit_type);
  columns_.Add(column, key, insert_after == 0 ? InsertPlace::AtEnd() : InsertPlace::After(insert_after));
  ColumnAdded.Raise();
  return column;
}

Variant FlatColumns::Clear() {
  columns_.Clear();
  ColumnAdded.Raise();
  return {};
}

void FlatColumns::Remove(const Variant& index_or_key) {
  columns_.Remove(index_or_key);
  ColumnAdded.Raise();
}

}  // namespace levelwidgets
