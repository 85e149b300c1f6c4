// The bases of objects of the component interface: counting and finding interfaces.
#pragma once

#include <type_traits>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/failure.h>
#include <levelwidgets/activex/com/module_life.h>

namespace levelwidgets::activex {

// The interface `iid` among those that `object` implements; null for none. One that extends another stands
// for both when `Base` names that other, as in Extends<IViewObject2, IViewObject>.
template <typename Interface, typename... Bases>
struct Extends {};

template <typename Interface, typename Object>
void* FindOne(Object* object, REFIID iid, std::type_identity<Interface>) {
  return ::IsEqualIID(iid, __uuidof(Interface)) ? static_cast<Interface*>(object) : nullptr;
}
template <typename Interface, typename... Bases, typename Object>
void* FindOne(Object* object, REFIID iid, std::type_identity<Extends<Interface, Bases...>>) {
  const bool fits = ::IsEqualIID(iid, __uuidof(Interface)) || (::IsEqualIID(iid, __uuidof(Bases)) || ...);
  return fits ? static_cast<Interface*>(object) : nullptr;
}
template <typename... Interfaces, typename Object>
void* FindAmong(Object* object, REFIID iid) {
  void* found = nullptr;
  static_cast<void>(((found = FindOne(object, iid, std::type_identity<Interfaces>())) || ...));
  return found;
}

template <typename I>
struct InterfaceOf {
  using Type = I;
};
template <typename I, typename... Bases>
struct InterfaceOf<Extends<I, Bases...>> {
  using Type = I;
};

// An object of its own. It begins with one reference, which its maker has.
template <typename First, typename... Rest>
class ComObject : public InterfaceOf<First>::Type, public InterfaceOf<Rest>::Type... {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override {
    if (!found) return E_POINTER;
    *found = ::IsEqualIID(iid, IID_IUnknown) ? static_cast<typename InterfaceOf<First>::Type*>(this)
                                             : FindAmong<First, Rest...>(this, iid);
    if (!*found) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(::InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = ::InterlockedDecrement(&references_);
    if (left == 0) Destroy();
    return static_cast<ULONG>(left);
  }

 protected:
  ComObject() = default;
  // Nobody has a reference any more.
  virtual void Destroy() { delete this; }
  virtual ~ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

 private:
  LONG references_ = 1;
  ModuleLock lock_;
};

// Some of the interfaces of an object: it shares count and interfaces of `outer`, whose member it is.
template <typename... Interfaces>
class ComPart : public InterfaceOf<Interfaces>::Type... {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override {
    return outer_.QueryInterface(iid, found);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return outer_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return outer_.Release(); }

  // Null when it has no such interface.
  void* FindInterface(REFIID iid) { return FindAmong<Interfaces...>(this, iid); }

 protected:
  explicit ComPart(IUnknown& outer) : outer_(outer) {}
  virtual ~ComPart() = default;
  ComPart(const ComPart&) = delete;
  ComPart& operator=(const ComPart&) = delete;

 private:
  IUnknown& outer_;
};

}  // namespace levelwidgets::activex
