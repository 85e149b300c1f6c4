// An ordered collection with positions from 1 and, where wanted, keys.
#pragma once

#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/variant.h>
#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

// Keys that differ only in the case of letters are the same key.
struct KeyHash {
  using is_transparent = void;

  std::size_t operator()(std::string_view key) const {
    std::uint64_t hash = 0xCBF29CE484222325u;
    const auto mix = [&hash](char32_t unit) { hash = (hash ^ unit) * 0x100000001B3u; };
    for (; !key.empty() && static_cast<unsigned char>(key.front()) < 0x80; key.remove_prefix(1)) {
      mix(static_cast<char32_t>(text::AsciiLower(key.front())));
    }
    while (!key.empty()) {
      const char32_t capital = text::UpperCase(text::TakeCharacter(key));
      mix(capital < 0x80 ? static_cast<char32_t>(text::AsciiLower(static_cast<char>(capital))) : capital);
    }
    return static_cast<std::size_t>(hash);
  }
};
struct KeyEqual {
  using is_transparent = void;

  bool operator()(std::string_view a, std::string_view b) const {
    // Nearly all keys are ASCII to their end.
    while (!a.empty() && !b.empty() && static_cast<unsigned char>(a.front() | b.front()) < 0x80) {
      if (text::AsciiLower(a.front()) != text::AsciiLower(b.front())) return false;
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
    return text::EqualIgnoringCase(a, b);
  }
};

// Where an item goes: behind all others, or beside the one at a position or under a key.
class InsertPlace {
 public:
  static InsertPlace AtEnd() { return {}; }
  static InsertPlace Before(std::int32_t position) { return {position, 0}; }
  static InsertPlace Before(std::string_view key) { return {key, 0}; }
  static InsertPlace After(std::int32_t position) { return {position, 1}; }
  static InsertPlace After(std::string_view key) { return {key, 1}; }

 private:
  template <typename T>
  friend class KeyedCollection;
  using Beside = std::variant<std::monostate, std::int32_t, std::string_view>;

  InsertPlace() = default;
  InsertPlace(Beside beside, std::size_t offset) : beside_(beside), offset_(offset) {}

  Beside beside_;
  std::size_t offset_ = 0;  // 1 behind it
};

// Raises 9 (subscript out of range) for a position outside 1..Count() and 5 (invalid call) for an unknown
// key. A failed call changes nothing. Adding and removing take time in proportion to Count(), looking up does
// not.
template <typename T>
class KeyedCollection {
  struct Entry {
    T item;
    std::string key;  // "" for none
  };
  // Held by pointer, so that a key stays where by_key_ looks for it.
  using Entries = std::vector<std::unique_ptr<Entry>>;

 public:
  std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  bool HasKey(std::string_view key) const { return by_key_.contains(key); }

  const T& At(std::int32_t position) const { return entries_[IndexOf(position)]->item; }
  const T& Under(std::string_view key) const { return EntryUnder(key).item; }
  // A text is a key; any other value is converted to a position; raises 13 or 6 when it
  // does not convert.
  const T& Item(const Variant& position_or_key) const {
    const std::string* key = std::get_if<std::string>(&position_or_key.Get());
    return key ? Under(*key) : At(ToInt32(position_or_key));
  }

  // An empty key means that there is no key. Raises 457 for a key that is in use.
  void Add(T item, std::string_view key = {}, const InsertPlace& place = InsertPlace::AtEnd()) {
    const std::size_t index = IndexOf(place);
    if (!key.empty() && HasKey(key)) throw Error(kKeyInUse);
    auto entry = std::make_unique<Entry>(Entry{std::move(item), std::string(key)});
    const Entry& added = *entry;
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(index), std::move(entry));
    if (!key.empty()) by_key_.emplace(added.key, &added);
  }

  void RemoveAt(std::int32_t position) { Erase(IndexOf(position)); }
  void RemoveUnder(std::string_view key) { Erase(IndexOf(EntryUnder(key))); }
  // As Item finds it.
  void Remove(const Variant& position_or_key) {
    const std::string* key = std::get_if<std::string>(&position_or_key.Get());
    key ? RemoveUnder(*key) : RemoveAt(ToInt32(position_or_key));
  }
  void Clear() {
    by_key_.clear();
    // Detached first: an item's end may look at the collection.
    const Entries ended = std::exchange(entries_, {});
  }

  // The items in order.
  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = T;

    Iterator() = default;
    explicit Iterator(typename Entries::const_iterator at) : at_(at) {}
    const T& operator*() const { return (*at_)->item; }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    Iterator operator++(int) { return Iterator(at_++); }
    friend bool operator==(const Iterator&, const Iterator&) = default;

   private:
    typename Entries::const_iterator at_;
  };
  Iterator begin() const { return Iterator(entries_.begin()); }
  Iterator end() const { return Iterator(entries_.end()); }

 private:
  std::size_t IndexOf(std::int32_t position) const {
    if (position < 1 || position > Count()) throw Error(kSubscriptOutOfRange);
    return static_cast<std::size_t>(position) - 1;
  }
  std::size_t IndexOf(const Entry& entry) const {
    std::size_t index = 0;
    while (entries_[index].get() != &entry) ++index;
    return index;
  }
  std::size_t IndexOf(const InsertPlace& place) const {
    if (const auto* position = std::get_if<std::int32_t>(&place.beside_)) {
      return IndexOf(*position) + place.offset_;
    }
    if (const auto* key = std::get_if<std::string_view>(&place.beside_)) {
      return IndexOf(EntryUnder(*key)) + place.offset_;
    }
    return entries_.size();
  }
  const Entry& EntryUnder(std::string_view key) const {
    const auto found = by_key_.find(key);
    if (found == by_key_.end()) throw Error(kInvalidCall);
    return *found->second;
  }
  void Erase(std::size_t index) {
    const std::unique_ptr<Entry> ended = std::move(entries_[index]);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    if (!ended->key.empty()) by_key_.erase(ended->key);
  }

  Entries entries_;
  std::unordered_map<std::string_view, const Entry*, KeyHash, KeyEqual> by_key_;  // of keys in their entries
};

}  // namespace levelwidgets
