// A counted reference to an object of the component interface.
#pragma once

#include <utility>

#include <levelwidgets/activex/com/component_interface.h>

namespace levelwidgets::activex {

template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  // Shares `object`, or none.
  ComPtr(T* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }
  // Takes the reference that the caller has.
  static ComPtr Taking(T* object) {
    ComPtr taken;
    taken.object_ = object;
    return taken;
  }

  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // Where a call leaves an object with a reference of its own.
  T** Receive() {
    *this = nullptr;
    return &object_;
  }
  // Hands the reference on.
  T* Detach() { return std::exchange(object_, nullptr); }

 private:
  T* object_ = nullptr;
};

// Another interface of `object`; null when it has none, or is null.
template <typename To>
ComPtr<To> As(IUnknown* object) {
  void* found = nullptr;
  if (!object || FAILED(object->QueryInterface(__uuidof(To), &found))) return nullptr;
  return ComPtr<To>::Taking(static_cast<To*>(found));
}
template <typename To, typename From>
ComPtr<To> As(const ComPtr<From>& object) {
  return As<To>(static_cast<IUnknown*>(object.Get()));
}

// Whether both are interfaces of one object.
inline bool SameObject(IUnknown* a, IUnknown* b) { return As<IUnknown>(a).Get() == As<IUnknown>(b).Get(); }

}  // namespace levelwidgets::activex
