// What for-each asks a collection for.
#pragma once

#include <optional>
#include <vector>

#include <levelwidgets/frame/object.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class ClassInfo;

// The items that a collection had when it was asked, one after the other; later additions and removals change
// nothing here.
class Enumerator : public Object {
 public:
  static const ClassInfo& Table();
  explicit Enumerator(std::vector<Variant> items) : items_(std::move(items)) {}
  // Of a collection of shared objects.
  template <typename Collection>
  static std::shared_ptr<Enumerator> Of(const Collection& collection) {
    std::vector<Variant> items;
    for (const auto& item : collection) items.emplace_back(ObjectRef(item));
    return std::make_shared<Enumerator>(std::move(items));
  }

  const ClassInfo& Class() const override { return Table(); }

  // The next item, or empty after the last.
  Variant Next() { return position_ < items_.size() ? items_[position_++] : Variant(); }
  bool AtEnd() const { return position_ == items_.size(); }
  // Begins again.
  void Reset() { position_ = 0; }

 private:
  std::vector<Variant> items_;
  std::size_t position_ = 0;
};

}  // namespace levelwidgets
