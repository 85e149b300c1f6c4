#include <levelwidgets/controls/grid/flat_columns.h>

namespace levelwidgets {

namespace {

// Adds a loaded column. The values stand in the order of the persisted properties of FlatColumn.
void AddLoaded(Object& columns, std::span<const Variant> values) {
  enum Field { kCaption, kWidth, kAlignment, kHeaderAlignment, kEditType, kVisible, kFormat };
  const auto whole = [&](Field field) { return ToInt32(values[field]); };
  static_cast<FlatColumns&>(columns).Add(ToText(values[kCaption]), whole(kWidth),
                                         static_cast<ksxAlignmentConstants>(whole(kHeaderAlignment)),
                                         static_cast<ksxAlignmentConstants>(whole(kAlignment)),
                                         static_cast<ksxEditTypeConstants>(whole(kEditType)),
                                         ToBoolean(values[kVisible]), ToText(values[kFormat]));
}

constexpr SavedItems kSavedColumns{
    .count_key = "ColumnCount",
    .prefix = "Column",
    .item_class = &FlatColumn::Table,
    .count = [](const Object& columns) { return static_cast<const FlatColumns&>(columns).Count(); },
    .item = [](const Object& columns, std::int32_t position) -> ObjectRef {
      return static_cast<const FlatColumns&>(columns).Item(position);
    },
    .add = &AddLoaded};

}  // namespace

const ClassInfo& FlatColumns::Table() {
  using Row = table::Row<FlatColumns>;
  static constexpr Literal kAddDefaults[] = {0, 0, 0, 0, false, "", "", 0};
  static constexpr auto data = ClassTable(
      CollectionClass("FlatColumns", "The columns of a grid.", kSavedColumns),
      table::Properties(
          Row::IndexedReadOnly<&FlatColumns::Item>(1, "Item", "vntIndexKey",
                                                   "The column at a position from 1 on, or under a key.",
                                                   MemberFlags::kDefault),
          Row::ReadOnly<&FlatColumns::Count>(2, "Count", "Number of columns."),
          Row::Enumerated<&FlatColumns::NewEnum>(3, "NewEnum", "The columns in order, one after the other.")),
      table::Persisted(),
      table::Methods(
          Row::Method<&FlatColumns::Add>(
              4, "Add",
              "Caption, Width, HeaderAlignment, Alignment, EditType, Visible, Format, sKey, InsertAfterIndex",
              "Adds a column, at the end or behind the one at a position, and returns it.", kAddDefaults),
          Row::Method<&FlatColumns::Clear>(5, "Clear", "", "Removes all columns."),
          Row::Method<&FlatColumns::Remove>(6, "Remove", "vntIndexKey",
                                            "Removes the column at a position from 1 on, or under a key.")),
      table::Events(Row::Event<&FlatColumns::ColumnAdded>(
                        1, "ColumnAdded", "", "A column was added or removed, or all were removed."),
                    Row::Event<&FlatColumns::ColumnInfoChanged>(2, "ColumnInfoChanged", "",
                                                                "A property of a column was assigned.")));
  static constexpr ClassInfo info(data);
  return info;
}

std::shared_ptr<FlatColumn> FlatColumns::Add(std::string caption, std::int32_t width,
                                             ksxAlignmentConstants header_alignment,
                                             ksxAlignmentConstants alignment, ksxEditTypeConstants edit_type,
                                             bool visible, std::string format, std::string_view key,
                                             std::int32_t insert_after) {
  const auto keep = shared_from_this();  // a listener may let go of the collection
  auto column = std::make_shared<FlatColumn>();
  // Before the properties: each of them is reported, although the column is not in the collection yet.
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
