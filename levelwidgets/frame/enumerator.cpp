#include <levelwidgets/frame/enumerator.h>

#include <levelwidgets/frame/class_table.h>

namespace levelwidgets {

const ClassInfo& Enumerator::Table() {
  using Row = table::Row<Enumerator>;
  static constexpr auto data = ClassTable(
      ObjectClass("Enumerator", "The items of a collection, one after the other."),
      table::Properties(
          Row::ReadOnly<&Enumerator::AtEnd>(1, "AtEnd", "Whether all items have been handed out.")),
      table::Persisted(),
      table::Methods(Row::Method<&Enumerator::Next>(2, "Next", "", "The next item, or empty after the last."),
                     Row::Method<&Enumerator::Reset>(3, "Reset", "", "Begins again with the first item.")));
  static constexpr ClassInfo info(data);
  return info;
}

}  // namespace levelwidgets
