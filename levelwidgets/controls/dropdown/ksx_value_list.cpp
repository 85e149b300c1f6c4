#include <levelwidgets/controls/dropdown/ksx_value_list.h>

#include <levelwidgets/frame/class_table.h>

namespace levelwidgets {

const ClassInfo& ksxValueListItem::Table() {
  using Row = table::Row<ksxValueListItem>;
  static constexpr auto data = ClassTable(
      CreatableClass<ksxValueListItem>("ksxValueListItem", "One value of a list."),
      table::Properties(Row::Property<&ksxValueListItem::Description, &ksxValueListItem::SetDescription>(
          1, "Description", kNoDefault, "Text of the value.")));
  static constexpr ClassInfo info(data);
  return info;
}

const ClassInfo& ksxValueList::Table() {
  using Row = table::Row<ksxValueList>;
  static constexpr auto data = ClassTable(
      CreatableClass<ksxValueList>("ksxValueList", "The values that a column's drop-down editor offers."),
      table::Properties(
          Row::IndexedReadOnly<&ksxValueList::Item>(1, "Item", "Index", "The item at a position from 1 on.",
                                                    MemberFlags::kDefault),
          Row::ReadOnly<&ksxValueList::Count>(2, "Count", "Number of items."),
          Row::Enumerated<&ksxValueList::NewEnum>(3, "NewEnum", "The items in order, one after the other.")),
      table::Persisted(),
      table::Methods(
          Row::Method<&ksxValueList::Add>(4, "Add", "Description", "Appends a new item and returns it."),
          Row::Method<&ksxValueList::Remove>(5, "Remove", "Index",
                                             "Removes the item at a position from 1 on."),
          Row::Method<&ksxValueList::Clear>(6, "Clear", "", "Removes all items.")));
  static constexpr ClassInfo info(data);
  return info;
}

std::shared_ptr<ksxValueListItem> ksxValueList::Add(std::string description) {
  auto item = std::make_shared<ksxValueListItem>();
  item->SetDescription(std::move(description));
  items_.Add(item);
  return item;
}

}  // namespace levelwidgets
