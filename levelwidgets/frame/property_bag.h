// Where a container keeps one control's saved property values.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <levelwidgets/frame/variant.h>

namespace levelwidgets {

class PropertyBag {
 public:
  struct Entry {
    std::string name;
    Variant value;
  };

  PropertyBag() = default;
  PropertyBag(const PropertyBag&) = default;
  PropertyBag(PropertyBag&&) = default;
  PropertyBag& operator=(const PropertyBag&) = default;
  PropertyBag& operator=(PropertyBag&&) = default;
  virtual ~PropertyBag() = default;

  // The saved value, or `default_value` where none was saved.
  Variant ReadProperty(std::string_view name, const Variant& default_value) const;
  // Saves `value`; one that equals `default_value` is not stored. Writing a name again replaces its value.
  void WriteProperty(std::string_view name, const Variant& value, const Variant& default_value);

  // In the order written.
  const std::vector<Entry>& Entries() const { return entries_; }
  // Null when nothing was saved under `name`. A container whose bag can only be asked for names answers here.
  virtual const Variant* Find(std::string_view name) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
  };
  // How many entries are searched one by one. A control may have tens of thousands of numbered ones.
  static constexpr std::size_t kSearched = 16;

  std::size_t PositionOf(std::string_view name) const;
  void List();

  std::vector<Entry> entries_;
  // Positions in entries_, empty while these are searched.
  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> positions_;
};

}  // namespace levelwidgets
