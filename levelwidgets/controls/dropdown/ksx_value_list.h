// The values that a column's drop-down editor offers.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/controls/dropdown/ksx_value_list_item.h>
#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/keyed_collection.h>

namespace levelwidgets {

// Shared items in the order added; a text may be there more than once. Positions count from 1; one outside
// 1..Count() raises 9 (subscript out of range) and changes nothing.
class ksxValueList : public Object {
 public:
  static const ClassInfo& Table();

  // Appends a new item with that text and returns it.
  std::shared_ptr<ksxValueListItem> Add(std::string description);
  // The stored item itself: changing its text changes the list.
  std::shared_ptr<ksxValueListItem> Item(std::int32_t index) const { return items_.At(index); }
  std::int32_t Count() const { return items_.Count(); }
  // Later items move up by one.
  void Remove(std::int32_t index) { items_.RemoveAt(index); }
  // Items that someone else holds live on.
  void Clear() { items_.Clear(); }
  std::shared_ptr<Enumerator> NewEnum() const { return Enumerator::Of(items_); }

  // For range-based for.
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

  const ClassInfo& Class() const override { return Table(); }

 private:
  KeyedCollection<std::shared_ptr<ksxValueListItem>> items_;
};

}  // namespace levelwidgets
