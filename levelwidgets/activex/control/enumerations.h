// Lists that are handed out one by one.
#pragma once

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/com/failure.h>

namespace levelwidgets::activex {

// Of items that each holder has a copy of, made by `copy` and ended by `release`.
template <typename Interface, typename Item>
class ItemEnumeration : public ComObject<Interface> {
 public:
  using Copy = std::function<Item(const Item&)>;
  using Release = std::function<void(const Item&)>;
  ItemEnumeration(const std::vector<Item>& items, Copy copy, Release release)
      : copy_(std::move(copy)), release_(std::move(release)) {
    CopyAll(items, std::back_inserter(items_));
  }
  ~ItemEnumeration() override { std::ranges::for_each(items_, release_); }

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Item* items, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!items || (!fetched && wanted != 1)) return E_POINTER;
    return Guarded([&] {
      const auto count = static_cast<ULONG>(std::min<std::size_t>(wanted, items_.size() - position_));
      CopyAll(std::span(items_).subspan(position_, count), items);
      position_ += count;
      if (fetched) *fetched = count;
      return count == wanted ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = items_.size() - position_;
    position_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    position_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
    if (!copy) return E_POINTER;
    *copy = nullptr;
    return Guarded([&] {
      auto* const made = new ItemEnumeration(items_, copy_, release_);
      made->position_ = position_;
      *copy = made;
      return S_OK;
    });
  }

 private:
  // All of them or, when a copy fails, none.
  template <typename Target>
  void CopyAll(std::span<const Item> items, Target target) const {
    std::vector<Item> copies;
    copies.reserve(items.size());
    try {
      for (const Item& item : items) copies.push_back(copy_(item));
    } catch (...) {
      std::ranges::for_each(copies, release_);
      throw;
    }
    std::ranges::copy(copies, target);
  }

  std::vector<Item> items_;
  Copy copy_;
  Release release_;
  std::size_t position_ = 0;
};

template <typename Interface, typename Item>
Interface* MakeEnumeration(const std::vector<Item>& items, std::function<Item(const Item&)> copy,
                           std::function<void(const Item&)> release) {
  return new ItemEnumeration<Interface, Item>(items, std::move(copy), std::move(release));
}
// Of items that hold nothing.
template <typename Interface, typename Item>
Interface* MakeEnumeration(const std::vector<Item>& items) {
  return MakeEnumeration<Interface, Item>(
      items, [](const Item& item) { return item; }, [](const Item&) {});
}
// Of objects.
template <typename Interface, typename Object>
Interface* MakeEnumeration(const std::vector<Object*>& objects) {
  return MakeEnumeration<Interface, Object*>(
      objects,
      [](Object* const& object) {
        object->AddRef();
        return object;
      },
      [](Object* const& object) { object->Release(); });
}

}  // namespace levelwidgets::activex
