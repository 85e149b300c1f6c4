// Lists that are handed out one by one.
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include <levelwidgets/activex/com/com_object.h>

namespace levelwidgets::activex {

// Of items that are held by the calls of `share` and `release`.
template <typename Interface, typename Item>
class ItemEnumeration : public ComObject<Interface> {
 public:
  using Call = std::function<void(const Item&)>;
  ItemEnumeration(std::vector<Item> items, Call share, Call release)
      : items_(std::move(items)), share_(std::move(share)), release_(std::move(release)) {
    for (const Item& item : items_) share_(item);
  }
  ~ItemEnumeration() override {
    for (const Item& item : items_) release_(item);
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Item* items, ULONG* fetched) override {
    if (!items || (!fetched && wanted != 1)) return E_POINTER;
    ULONG count = 0;
    for (; count < wanted && position_ < items_.size(); ++count) {
      items[count] = items_[position_++];
      share_(items[count]);
    }
    if (fetched) *fetched = count;
    return count == wanted ? S_OK : S_FALSE;
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
      auto* const made = new ItemEnumeration(items_, share_, release_);
      made->position_ = position_;
      *copy = made;
      return S_OK;
    });
  }

 private:
  std::vector<Item> items_;
  Call share_;
  Call release_;
  std::size_t position_ = 0;
};

template <typename Interface, typename Item>
Interface* MakeEnumeration(std::vector<Item> items, std::function<void(const Item&)> share,
                           std::function<void(const Item&)> release) {
  return new ItemEnumeration<Interface, Item>(std::move(items), std::move(share), std::move(release));
}
template <typename Interface, typename Item>
Interface* MakeEnumeration(std::vector<Item> items) {
  return MakeEnumeration<Interface, Item>(
      std::move(items), [](const Item&) {}, [](const Item&) {});
}

}  // namespace levelwidgets::activex
