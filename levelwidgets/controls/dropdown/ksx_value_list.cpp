#include <levelwidgets/controls/dropdown/ksx_value_list.h>

#include <levelwidgets/frame/class_table.h>

namespace levelwidgets {

const ClassInfo& ksxValueListItem::Table() {
  static const ClassInfo info =
      ClassTable("ksxValueListItem", "One value of a list.")
          .Property("Description", &ksxValueListItem::Description, &ksxValueListItem::SetDescription,
                    {.help = "Text of the value."})
          .Creatable<ksxValueListItem>()
          .Build();
  return info;
}

const ClassInfo& ksxValueList::Table() {
  static const ClassInfo info =
      ClassTable("ksxValueList", "The values that a column's drop-down editor offers.")
          .Method("Add", &ksxValueList::Add, {{"Description"}}, "Appends a new item and returns it.")
          .IndexedReadOnly("Item", &ksxValueList::Item, {"Index"}, "The item at a position from 1 on.")
          .ReadOnly("Count", &ksxValueList::Count, "Number of items.")
          .Method("Remove", &ksxValueList::Remove, {{"Index"}}, "Removes the item at a position from 1 on.")
          .Method("Clear", &ksxValueList::Clear, {}, "Removes all items.")
          .Enumerated("NewEnum", &ksxValueList::NewEnum, "The items in order, one after the other.")
          .DefaultMember("Item")
          .Creatable<ksxValueList>()
          .Build();
  return info;
}

std::shared_ptr<ksxValueListItem> ksxValueList::Add(std::string description) {
  auto item = std::make_shared<ksxValueListItem>();
  item->SetDescription(std::move(description));
  items_.Add(item);
  return item;
}

}  // namespace levelwidgets
