// The columns of a grid.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/controls/grid/flat_column.h>
#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/keyed_collection.h>
#include <levelwidgets/frame/property_bag.h>

namespace levelwidgets {

// Positions count from 1. A position outside 1..Count() raises 9 (subscript out of range), an unknown key 5
// (invalid call), a key in use 457; the collection is then as it was. Keys compare without case.
class FlatColumns : public Object, public std::enable_shared_from_this<FlatColumns> {
 public:
  static const ClassInfo& Table();
  // Always shared: its columns refer to it.
  static std::shared_ptr<FlatColumns> Create() { return std::shared_ptr<FlatColumns>(new FlatColumns); }

  // --- Methods ----------------------------------------------------------------------------------

  // Inserts a new column behind the one at position `insert_after`, or at the end for 0. `width` is in twips;
  // an empty `key` is no key. Raises ColumnInfoChanged six times, before the column is in the collection,
  // then ColumnAdded.
  std::shared_ptr<FlatColumn> Add(std::string caption, std::int32_t width = 0,
                                  ksxAlignmentConstants header_alignment = ksxLeft,
                                  ksxAlignmentConstants alignment = ksxLeft,
                                  ksxEditTypeConstants edit_type = ksxEditNone, bool visible = false,
                                  std::string format = {}, std::string_view key = {},
                                  std::int32_t insert_after = 0);
  // Empties the collection, then raises ColumnAdded. Returns an empty value.
  Variant Clear();
  // By its key for a text, otherwise by its position.
  std::shared_ptr<FlatColumn> Item(const Variant& index_or_key) const { return columns_.Item(index_or_key); }
  std::int32_t Count() const { return columns_.Count(); }
  // As Item finds it; then raises ColumnAdded.
  void Remove(const Variant& index_or_key);
  std::shared_ptr<Enumerator> NewEnum() const { return Enumerator::Of(columns_); }

  // For range-based for. A loop must end after a handler has changed the collection.
  auto begin() const { return columns_.begin(); }
  auto end() const { return columns_.end(); }

  // --- Events -----------------------------------------------------------------------------------

  // The set or the order of the columns has changed, also after Remove and Clear.
  Event<> ColumnAdded;
  // A property of a column was assigned.
  Event<> ColumnInfoChanged;

  const ClassInfo& Class() const override { return Table(); }

  // --- For the grid and its columns -------------------------------------------------------------

  void NotifyColumnInfoChanged() const { ColumnInfoChanged.Raise(); }

 private:
  FlatColumns() = default;

  KeyedCollection<std::shared_ptr<FlatColumn>> columns_;
};

}  // namespace levelwidgets
