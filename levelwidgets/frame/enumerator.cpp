#include <levelwidgets/frame/enumerator.h>

#include <levelwidgets/frame/class_table.h>

namespace levelwidgets {

const ClassInfo& Enumerator::Table() {
  static const ClassInfo info =
      ClassTable("Enumerator", "The items of a collection, one after the other.")
          .ReadOnly("AtEnd", &Enumerator::AtEnd, "Whether all items have been handed out.")
          .Method("Next", &Enumerator::Next, {}, "The next item, or empty after the last.")
          .Method("Reset", &Enumerator::Reset, {}, "Begins again with the first item.")
          .Build();
  return info;
}

}  // namespace levelwidgets
