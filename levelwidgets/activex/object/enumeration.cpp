#include <levelwidgets/activex/object/enumeration.h>

#include <algorithm>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/frame/enumerator.h>

namespace levelwidgets::activex {

namespace {

class Enumeration : public ComObject<IEnumVARIANT> {
 public:
  using Items = std::shared_ptr<const std::vector<Variant>>;
  Enumeration(std::shared_ptr<Runtime> runtime, Items items, std::size_t position)
      : runtime_(std::move(runtime)), items_(std::move(items)), position_(position) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* values, ULONG* fetched) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    if (!values || (!fetched && wanted != 1)) return E_POINTER;
    ULONG count = 0;
    if (fetched) *fetched = 0;
    return Guarded([&] {
      for (; count < wanted && position_ < items_->size(); ++count) {
        ::VariantInit(&values[count]);
        ToComponent(*runtime_, (*items_)[position_++], values[count]);
      }
      if (fetched) *fetched = count;
      return count == wanted ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    const std::size_t left = items_->size() - position_;
    position_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    position_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    if (!copy) return E_POINTER;
    *copy = new (std::nothrow) Enumeration(runtime_, items_, position_);
    return *copy ? S_OK : E_OUTOFMEMORY;
  }

 private:
  void Destroy() override {
    runtime_->EndObject([this] { delete this; });
  }

  std::shared_ptr<Runtime> runtime_;
  Items items_;
  std::size_t position_;
};

}  // namespace

ComPtr<IEnumVARIANT> EnumerationOf(Enumerator& items) {
  auto left = std::make_shared<std::vector<Variant>>();
  while (!items.AtEnd()) left->push_back(items.Next());
  return ComPtr<IEnumVARIANT>::Taking(new Enumeration(Runtime::OfThread(), std::move(left), 0));
}

}  // namespace levelwidgets::activex
